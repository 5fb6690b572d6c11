#pragma once
// HXElementAutosave: keeps the map's graphic elements in a GeoPackage beside the viewer's settings
// file (the viewer has no document of its own), so that they survive closing the viewer. The file is
// read once when the autosave starts and written again after every edit that reaches the map's undo
// stack; reading and writing run on a worker thread with a snapshot of the immutable elements, one
// write at a time. Finish() waits for the last write (at close).
#include <QObject>
#include <QString>
#include <future>
#include <vector>

#include "HOElement.h"
#include "HOMap.h"

class HXMapCanvas;

class HXElementAutosave : public QObject {
    Q_OBJECT
public:
    HXElementAutosave(HXMapCanvas* canvas, const QString& path, QObject* parent);
    ~HXElementAutosave() override;

    // The default file: beside the settings file.
    static QString defaultPath();
    QString path() const { return mPath; }
    // Waits for a write in progress and writes what is still unsaved.
    void finish();

signals:
    // A read or write failed (the text names the file and the reason).
    void failed(const QString& error);
    // The file's elements are in the map.
    void loaded(int count);

private:
    void load();
    void insert(const std::vector<HXObjects::HORefPtr<HXObjects::HOElement>>& elements);
    void save();
    void saveFinished(const QString& error);

    HXMapCanvas* mCanvas;
    // Held: the canvas (and its view) may go before this object does.
    HXObjects::HORefPtr<HXObjects::HOMap> mMap;
    QString mPath;
    std::future<void> mWork;
    bool mBusy = false;
    bool mDirty = false;
};
