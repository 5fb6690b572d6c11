#pragma once
// HXLayoutWindow: the viewer's print-page window — an HXMapCanvas in page-layout mode with File
// (new, open, save, save as, print, export PDF or image) and Page (paper, orientation) menus and the
// page tools (select and edit elements, pan, zoom). Printing and exporting run on a worker thread
// while the page is locked against edits; the window stays responsive.
#include <QMainWindow>
#include <QStringList>
#include <functional>
#include <memory>

class QMenu;
class QPrinter;
class QThread;
class HXMapCanvas;

namespace HXObjects {
class HOMap;
}

class HXLayoutWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit HXLayoutWindow(QWidget* parent = nullptr);
    ~HXLayoutWindow() override;

    // The default layout (title, map with grid, scale bar, north arrow, legend) of the map.
    void compose(HXObjects::HOMap* map, const QString& title);
    // False (the page unchanged) with the reason in errors(); sources that moved are listed there too.
    bool openLayout(const QString& path);
    bool saveLayout(const QString& path);
    // Starts writing a PDF or an image (by suffix) at the resolution; exportFinished tells the end.
    bool startExport(const QString& path, int dpi);
    bool isExporting() const;

    HXMapCanvas* canvas() const { return mCanvas; }
    QString documentPath() const { return mPath; }
    const QStringList& errors() const { return mErrors; }

    // File-menu entries of a map window: "New layout" (of the map `map()` returns) and "Open layout…".
    static void addFileMenuEntries(QMenu* menu, QWidget* parent, std::function<HXObjects::HOMap*()> map);

signals:
    void exportFinished(bool ok, const QString& message);

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
    void exportWithPrompt(const QString& title, const QString& filter, const QString& resolution);
    // Runs the output on a worker; the page is locked until it ends.
    void runOutput(const QString& done, std::function<bool(QString*)> output);

    HXMapCanvas* mCanvas;
    QString mPath;
    QStringList mErrors;
    QThread* mOutput = nullptr;          // the running output, deleted when it ends
    std::unique_ptr<QPrinter> mPrinter;  // alive while a print runs
};
