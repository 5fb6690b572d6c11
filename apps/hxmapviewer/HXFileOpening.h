#pragma once
// HXFileOpening: the files the viewer is opening, read one after another on a worker
// (HOLayerOpening) so that the window stays responsive. While any is read, it shows in the status
// bar as the file's name, a progress bar and a cancel button (which drops the file being read and
// those waiting); otherwise it is hidden. Each file's layers are handed on, in drawing order, as
// soon as that file is read.
#include <QStringList>
#include <QWidget>
#include <vector>

#include "HOLayer.h"
#include "HOLayerOpening.h"

class QLabel;
class QProgressBar;
class QToolButton;

class HXFileOpening : public QWidget {
    Q_OBJECT
public:
    explicit HXFileOpening(QWidget* parent);
    ~HXFileOpening() override;

    void open(const QStringList& paths);
    void cancel();
    bool isBusy() const { return mCurrent != nullptr; }
    QProgressBar* progressBar() const { return mBar; }
    QToolButton* cancelButton() const { return mCancel; }

signals:
    // A file read: its layers in drawing order (none when it could not be read) and the reasons of
    // what could not be read. Not sent for a cancelled file.
    void opened(const QString& path, const std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>>& layers,
                const QStringList& errors);
    // Nothing is being read any more.
    void idle();

private:
    void startNext();
    void onProgress(void* sender, HXObjects::HOEvent* event);
    void onFinished(void* sender, HXObjects::HOEvent* event);
    void stopListening();

    QStringList mWaiting;
    HXObjects::HORefPtr<HXObjects::HOLayerOpening> mCurrent;
    QLabel* mName;
    QProgressBar* mBar;
    QToolButton* mCancel;
};
