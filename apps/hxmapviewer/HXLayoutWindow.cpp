#include "HXLayoutWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QThread>
#include <QToolBar>
#include <QUndoStack>

#include "HODataFrame.h"
#include "HOFileFunc.h"
#include "HOLayoutComposer.h"
#include "HOLayoutDocument.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOPageExporter.h"
#include "HOPageLayoutView.h"
#include "HOTool.h"
#include "HXMapCanvas.h"
#include "HXViewerIcons.h"

using namespace HXObjects;

namespace {
const char* const kFilter = QT_TRANSLATE_NOOP("HXLayoutWindow", "Layouts (*.hxlayout)");
constexpr int kDefaultDpi = 300;
}  // namespace

HXLayoutWindow::HXLayoutWindow(QWidget* parent)
    : QMainWindow(parent), mCanvas(new HXMapCanvas(HXMapCanvas::PageLayoutMode, this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Layout"));
    setCentralWidget(mCanvas);
    resize(1100, 800);
    buildMenus();
    buildToolBar();
}

HXLayoutWindow::~HXLayoutWindow() {
    // A closing window is refused while an output runs; a parent's teardown still lets it end first.
    if (mWorker) {
        mWorker->wait();
        delete mWorker;
    }
    for (const auto& element : mCanvas->GetPageLayoutView()->get_graphicscontainer()->GetElements()) {
        if (auto* frame = dynamic_cast<HODataFrame*>(element.get()))
            if (HOMapView* view = frame->get_map_view()) view->StopRender(true);
    }
}

void HXLayoutWindow::addFileMenuEntries(QMenu* menu, QWidget* parent, std::function<HOMap*()> map) {
    menu->addAction(tr("New &layout"), parent, [parent, map] {
        auto* window = new HXLayoutWindow(parent);
        window->setWindowFlag(Qt::Window);
        window->compose(map(), tr("Map"));
        window->show();
    });
    menu->addAction(tr("Open la&yout…"), parent, [parent] {
        auto* window = new HXLayoutWindow(parent);
        window->setWindowFlag(Qt::Window);
        window->show();
        window->openWithPrompt();
    });
}

void HXLayoutWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    mDocumentActions << file->addAction(tr("&New layout"), this, &HXLayoutWindow::newLayout,
                                        QKeySequence::New)
                     << file->addAction(tr("&Open…"), this, &HXLayoutWindow::openWithPrompt,
                                        QKeySequence::Open)
                     << file->addAction(tr("&Save"), this, &HXLayoutWindow::save, QKeySequence::Save)
                     << file->addAction(tr("Save &as…"), this, &HXLayoutWindow::saveAs, QKeySequence::SaveAs);
    file->addSeparator();
    mDocumentActions << file->addAction(tr("&Print…"), this, &HXLayoutWindow::print, QKeySequence::Print)
                     << file->addAction(tr("Export P&DF…"), this, &HXLayoutWindow::exportPdf)
                     << file->addAction(tr("Export &image…"), this, &HXLayoutWindow::exportImage);
    file->addSeparator();
    file->addAction(tr("&Close"), this, &QWidget::close, QKeySequence::Close);

    QMenu* page = menuBar()->addMenu(tr("&Page"));
    auto* papers = new QActionGroup(this);
    QAction* landscape = new QAction(tr("&Landscape"), this);
    landscape->setCheckable(true);
    landscape->setChecked(mCanvas->GetPageLayoutView()->GetPageSetup().IsLandscape());
    for (const QString& name : HOPageSetup::PaperNames()) {
        QAction* action = page->addAction(name);
        action->setCheckable(true);
        action->setChecked(name == mCanvas->GetPageLayoutView()->GetPageSetup().Paper());
        papers->addAction(action);
        connect(action, &QAction::triggered, this, [=] { setPaper(name, landscape->isChecked()); });
    }
    page->addSeparator();
    page->addAction(landscape);
    connect(landscape, &QAction::toggled, this,
            [this](bool on) { setPaper(mCanvas->GetPageLayoutView()->GetPageSetup().Paper(), on); });
}

void HXLayoutWindow::buildToolBar() {
    QToolBar* bar = addToolBar(tr("Page tools"));
    auto* group = new QActionGroup(this);
    const struct {
        QIcon icon;
        QString label, tool;
    } tools[] = {{HXViewerIcons::select(), tr("Select elements"), QString()},
                 {HXViewerIcons::pan(), tr("Pan"), "HXObjects::HOToolPan"},
                 {QIcon(), tr("Zoom in"), "HXObjects::HOToolZoomIn"},
                 {QIcon(), tr("Zoom out"), "HXObjects::HOToolZoomOut"}};
    for (const auto& t : tools) {
        QAction* action = bar->addAction(t.icon, t.label);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, name = t.tool] {
            if (name.isEmpty())
                mCanvas->setMapTool(static_cast<HOTool*>(nullptr));
            else
                mCanvas->setMapTool(HOString(name));
        });
    }
    group->actions().first()->setChecked(true);
}

void HXLayoutWindow::setPaper(const QString& paper, bool landscape) {
    HOPageSetup setup = mCanvas->GetPageLayoutView()->GetPageSetup();
    if (!setup.SetPaper(paper)) return;
    setup.SetLandscape(landscape);
    mCanvas->GetPageLayoutView()->SetPageSetup(setup);
}

void HXLayoutWindow::report(const QString& message) {
    statusBar()->showMessage(message, 10000);
}

void HXLayoutWindow::compose(HOMap* map, const QString& title) {
    HOMapView* view = mCanvas->GetMapView();
    if (!view) return;
    if (map) view->SetMap(map);
    HOLayoutComposer::ComposeDefault(*mCanvas->GetPageLayoutView(), view, title);
}

void HXLayoutWindow::newLayout() {
    HOMapView* view = mCanvas->GetMapView();
    compose(view ? view->GetMap() : nullptr, tr("Map"));
    mPath.clear();
    setWindowTitle(tr("Layout"));
}

bool HXLayoutWindow::openLayout(const QString& path) {
    if (mWorker) return false;
    auto file = std::make_shared<HOFileFunc>(path);
    auto contents = std::make_shared<HOLayoutDocument::Contents>();
    auto ok = std::make_shared<bool>(false);
    QThread* gui = thread();
    mWork = Work::Opening;
    runOnWorker(
        tr("Opening %1…").arg(path),
        [=] {
            *ok = HOLayoutDocument::Load(*file, contents.get());
            // The maps' undo stacks are edited from the window's thread.
            for (const auto& element : contents->elements) {
                if (auto* frame = dynamic_cast<HODataFrame*>(element.get()))
                    if (HOMapView* view = frame->get_map_view())
                        if (HOMap* map = view->GetMap()) map->GetUndoStack()->moveToThread(gui);
            }
        },
        [=] { finishOpening(*file, *ok ? contents.get() : nullptr); });
    return true;
}

void HXLayoutWindow::finishOpening(const HOFileFunc& file, HOLayoutDocument::Contents* contents) {
    if (!contents) {
        refuse(file.LastError());
        emit openFinished(false, file.LastError());
        return;
    }
    mCanvas->GetPageLayoutView()->Install(std::move(*contents));
    mErrors << file.Warnings();
    setDocument(file.Path());
    const QString message = file.Warnings().isEmpty()
                                ? tr("Opened %1").arg(file.Path())
                                : tr("Missing data: %1").arg(file.Warnings().join("; "));
    report(message);
    mCanvas->refresh();
    emit openFinished(true, message);
}

bool HXLayoutWindow::saveLayout(const QString& path) {
    HOFileFunc file(path);
    if (!mCanvas->GetPageLayoutView()->save(&file, 0)) return refuse(file.LastError());
    setDocument(path);
    report(tr("Saved %1").arg(path));
    return true;
}

bool HXLayoutWindow::refuse(const QString& error) {
    mErrors << error;
    report(error);
    return false;
}

void HXLayoutWindow::setDocument(const QString& path) {
    mPath = path;
    setWindowTitle(QFileInfo(path).fileName());
}

void HXLayoutWindow::openWithPrompt() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Open layout"), QString(), tr(kFilter));
    if (!path.isEmpty()) openLayout(path);
}

bool HXLayoutWindow::save() {
    return mPath.isEmpty() ? saveAs() : saveLayout(mPath);
}

bool HXLayoutWindow::saveAs() {
    QString path = QFileDialog::getSaveFileName(this, tr("Save layout"), mPath, tr(kFilter));
    if (path.isEmpty()) return false;
    if (QFileInfo(path).suffix().isEmpty()) path += ".hxlayout";
    return saveLayout(path);
}

bool HXLayoutWindow::isExporting() const {
    return mWork == Work::Writing;
}

bool HXLayoutWindow::isOpening() const {
    return mWork == Work::Opening;
}

void HXLayoutWindow::runOnWorker(const QString& status, std::function<void()> work,
                                 std::function<void()> finished) {
    for (QAction* action : qAsConst(mDocumentActions)) action->setEnabled(false);
    report(status);
    mWorker = QThread::create(std::move(work));
    connect(mWorker, &QThread::finished, this, [this, finished] {
        mWorker->deleteLater();
        mWorker = nullptr;
        mWork = Work::None;
        for (QAction* action : qAsConst(mDocumentActions)) action->setEnabled(true);
        finished();
    });
    mWorker->start();
}

void HXLayoutWindow::runOutput(const QString& done, std::function<bool(QString*)> output) {
    mCanvas->setEnabled(false);  // no edits while a worker draws the page
    mWork = Work::Writing;
    auto result = std::make_shared<QPair<bool, QString>>();
    runOnWorker(
        tr("Writing…"),
        [=] {
            QString error;
            result->first = output(&error);
            result->second = result->first ? done : error;
        },
        [this, result] {
            mPrinter.reset();
            mCanvas->setEnabled(true);
            report(result->second);
            emit exportFinished(result->first, result->second);
        });
}

bool HXLayoutWindow::startExport(const QString& path, int dpi) {
    QString error;
    if (mWorker || !HOPageExporter::CheckDpi(dpi, &error)) {
        report(error);
        return false;
    }
    HORefPtr<HOPageLayoutView> layout = mCanvas->GetPageLayoutView();
    const bool pdf = QFileInfo(path).suffix().compare("pdf", Qt::CaseInsensitive) == 0;
    const QString title = windowTitle();
    runOutput(tr("Wrote %1").arg(path), [=](QString* error) {
        return pdf ? HOPageExporter::ExportPdf(*layout, path, dpi, title, error)
                   : HOPageExporter::ExportImage(*layout, path, dpi, error);
    });
    return true;
}

void HXLayoutWindow::exportPdf() {
    exportWithPrompt(tr("Export PDF"), tr("PDF (*.pdf)"), tr("Resolution of rasters (dpi):"));
}

void HXLayoutWindow::exportImage() {
    exportWithPrompt(tr("Export image"), tr("Images (*.png *.tif *.tiff *.jpg)"), tr("Resolution (dpi):"));
}

void HXLayoutWindow::exportWithPrompt(const QString& title, const QString& filter,
                                      const QString& resolution) {
    const QString path = QFileDialog::getSaveFileName(this, title, QString(), filter);
    if (path.isEmpty()) return;
    bool ok = false;
    const int dpi =
        QInputDialog::getInt(this, title, resolution, kDefaultDpi, 1, HOPageExporter::kMaxDpi, 50, &ok);
    if (ok) startExport(path, dpi);
}

void HXLayoutWindow::print() {
    if (mWorker) return;
    mPrinter = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(mPrinter.get(), this);
    if (dialog.exec() != QDialog::Accepted) {
        mPrinter.reset();
        return;
    }
    HORefPtr<HOPageLayoutView> layout = mCanvas->GetPageLayoutView();
    QPrinter* printer = mPrinter.get();
    runOutput(tr("Printed"), [=](QString* error) { return HOPageExporter::Print(*layout, *printer, error); });
}

void HXLayoutWindow::closeEvent(QCloseEvent* event) {
    if (mWorker) {
        report(isExporting() ? tr("Still writing the page; close when it is done.")
                             : tr("Still opening the layout; close when it is done."));
        event->ignore();
        return;
    }
    QMainWindow::closeEvent(event);
}
