#pragma once
// HXLayoutWindow: the viewer's print-page window — an HXMapCanvas in page-layout mode with File
// (new, open, save, save as, print, export PDF or image) and Page (paper, orientation) menus and the
// page tools (select and edit elements, pan, zoom). Opening a document (reading it and opening its
// sources), printing and exporting run on a worker thread while the document actions are off (and,
// for an output, the page is locked against edits); the window stays responsive.
#include <QList>
#include <QMainWindow>
#include <QStringList>
#include <functional>
#include <memory>

#include "HOLayoutDocument.h"

class QAction;
class QMenu;
class QPrinter;
class QThread;
class HXMapCanvas;

namespace HXObjects {
class HOFileFunc;
class HOMap;
}  // namespace HXObjects

class HXLayoutWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit HXLayoutWindow(QWidget* parent = nullptr);
    ~HXLayoutWindow() override;

    // The default layout (title, map with grid, scale bar, north arrow, legend) of the map.
    void compose(HXObjects::HOMap* map, const QString& title);
    // Starts opening the document; openFinished tells the end. A failed open leaves the page as it
    // was, with the reason in errors(); sources that moved are listed there too. False (nothing
    // started) while the window is busy.
    bool openLayout(const QString& path);
    bool saveLayout(const QString& path);
    // Starts writing a PDF or an image (by suffix) at the resolution; exportFinished tells the end.
    bool startExport(const QString& path, int dpi);
    bool isExporting() const;
    bool isOpening() const;

    HXMapCanvas* canvas() const { return mCanvas; }
    QString documentPath() const { return mPath; }
    const QStringList& errors() const { return mErrors; }

    // File-menu entries of a map window: "New layout" (of the map `map()` returns) and "Open layout…".
    static void addFileMenuEntries(QMenu* menu, QWidget* parent, std::function<HXObjects::HOMap*()> map);

signals:
    void exportFinished(bool ok, const QString& message);
    void openFinished(bool ok, const QString& message);

public slots:
    void newLayout();
    void openWithPrompt();
    bool save();
    bool saveAs();
    void print();
    void exportPdf();
    void exportImage();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildToolBar();
    void setPaper(const QString& paper, bool landscape);
    void report(const QString& message);
    // Records and shows the error; false.
    bool refuse(const QString& error);
    void setDocument(const QString& path);
    // Puts a document read on the worker on the page; null contents: the read failed.
    void finishOpening(const HXObjects::HOFileFunc& file, HXObjects::HOLayoutDocument::Contents* contents);
    void exportWithPrompt(const QString& title, const QString& filter, const QString& resolution);
    // Runs the output on a worker; the page is locked until it ends.
    void runOutput(const QString& done, std::function<bool(QString*)> output);
    // Runs `work` on a worker with the document actions off, then `finished` on this thread.
    void runOnWorker(const QString& status, std::function<void()> work, std::function<void()> finished);

    HXMapCanvas* mCanvas;
    QString mPath;
    QStringList mErrors;
    enum class Work { None, Opening, Writing };
    Work mWork = Work::None;
    QThread* mWorker = nullptr;  // the running open or output, deleted when it ends
    QList<QAction*> mDocumentActions;
    std::unique_ptr<QPrinter> mPrinter;  // alive while a print runs
};
