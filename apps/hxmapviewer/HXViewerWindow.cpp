#include "HXViewerWindow.h"

#include "HOCMDPool.h"
#include "HOCallbackKey.h"
#include "HOCoordinateSystem.h"
#include "HOIdentifyEvent.h"
#include "HOLayer.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HOToolIdentify.h"
#include "HXApplication.h"
#include "HXCommandDock.h"
#include "HXEditActions.h"
#include "HXElementAutosave.h"
#include "HXFeatureEditing.h"
#include "HXFileOpening.h"
#include "HXIdentifyPanel.h"
#include "HXLayerPanel.h"
#include "HXLayerStyler.h"
#include "HXLayoutWindow.h"
#include "HXMapCanvas.h"
#include "HXMessageBar.h"
#include "HXRecentFiles.h"
#include "HXViewerIcons.h"
#include "HXViewerTools.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QStyle>
#include <QThread>
#include <QToolBar>
#include <QVBoxLayout>

using namespace HXObjects;

namespace {
const char* const kFileFilter =
    "Map data (*.gpkg *.shp *.geojson *.json *.kml *.gml *.tab *.mif *.csv *.tif *.tiff *.img *.jp2 *.png "
    "*.jpg *.vrt);;"
    "All files (*)";

// The map's coordinate system from what a person typed: null, with the reason, when it cannot be
// read or is one a flat map cannot be drawn in (geocentric, vertical).
HORefPtr<HOCoordinateSystem> readMapCoordinateSystem(const QString& definition, QString* error) {
    HORefPtr<HOCoordinateSystem> system = HOCoordinateSystem::FromUserInput(HOString(definition));
    if (!system) {
        *error = QCoreApplication::translate("HXViewerWindow", "cannot read '%1'").arg(definition);
        return nullptr;
    }
    if (!system->CanDrawMap()) {
        *error = QCoreApplication::translate("HXViewerWindow", "'%1' is neither geographic nor projected")
                     .arg(definition);
        return nullptr;
    }
    return system;
}

// How long showAndOpen lets the files take.
constexpr int kOpenTimeoutMs = 600000;

// The size a window opens at before the user chose one: three quarters of the screen.
QRect firstGeometry() {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QRect rect(QPoint(), screen.size() * 3 / 4);
    rect.moveCenter(screen.center());
    return rect;
}
}  // namespace

HXViewerWindow::HXViewerWindow(QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(tr("HXMapViewer"));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    mMessageBar = new HXMessageBar(central);
    mCanvas = new HXMapCanvas(HXMapCanvas::MapViewMode, central);
    layout->addWidget(mMessageBar);
    layout->addWidget(mCanvas, 1);
    setCentralWidget(central);
    mCanvas->installEventFilter(this);

    mLayers = new HXLayerPanel(mCanvas, this);
    mIdentify = new HXIdentifyPanel(this);
    mCommand = new HXCommandDock(mCanvas, this);
    addDockWidget(Qt::LeftDockWidgetArea, mLayers);
    addDockWidget(Qt::RightDockWidgetArea, mIdentify);
    addDockWidget(Qt::BottomDockWidgetArea, mCommand);
    // The map gets the room: a slim command line, and identify results only once there are some.
    resizeDocks({mLayers}, {200}, Qt::Horizontal);
    resizeDocks({mCommand}, {90}, Qt::Vertical);
    mIdentify->hide();
    mCanvas->SetCommandControl(mCommand);
    mOpening = new HXFileOpening(this);
    mCanvas->StatusBar()->addWidget(mOpening);
    connect(mOpening, &HXFileOpening::opened, this, &HXViewerWindow::onFileOpened);

    if (HOMapView* view = mCanvas->GetMapView())
        HOBindMember(view->RenderFinishedSignal, this, &HXViewerWindow::onRenderFinished);
    buildToolBar();
    buildMenus();
    buildEditing();
    bindIdentifyTool();
    new HXFeatureEditing(mCanvas);
    restoreSettings();
    mCanvas->setFocus();
}

HXViewerWindow::~HXViewerWindow() {
    if (HOMapView* view = mCanvas->GetMapView())
        HOUnbindMember(view->RenderFinishedSignal, this, &HXViewerWindow::onRenderFinished);
    if (mIdentifyTool) HOUnbindMember(mIdentifyTool->IdentifiedSignal, this, &HXViewerWindow::onIdentified);
}

// On the render thread: only counts.
void HXViewerWindow::onRenderFinished(void*, HOEvent*) {
    ++mRendersFinished;
}

void HXViewerWindow::buildToolBar() {
    Q_INIT_RESOURCE(hxmapviewer);  // the viewer's own icons, in a static library
    QToolBar* bar = addToolBar(tr("Map tools"));
    bar->setObjectName("mapTools");
    mToolGroup = new QActionGroup(this);
    for (const HXViewerTool& tool : HXViewerTools::all()) {
        const QIcon icon = tool.icon == "pan"           ? HXViewerIcons::pan()
                           : tool.icon == "select"      ? HXViewerIcons::select()
                           : tool.icon.startsWith(":/") ? QIcon(tool.icon)
                                                        : HXApplication::getThemeIcon(tool.icon);
        QAction* action = bar->addAction(icon, tool.label);
        action->setCheckable(true);
        action->setShortcut(QKeySequence(tool.shortcut));
        action->setToolTip(QString("%1 (%2)").arg(tool.label, tool.shortcut));
        action->setData(tool.className);
        mToolGroup->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, name = tool.className] { mCanvas->setMapTool(HOString(name)); });
    }
    mToolGroup->actions().first()->trigger();
    bar->addSeparator();
    bar->addAction(style()->standardIcon(QStyle::SP_DesktopIcon), tr("Full extent"), this,
                   &HXViewerWindow::zoomToFullExtent);
    bar->addAction(style()->standardIcon(QStyle::SP_BrowserReload), tr("Refresh"), mCanvas,
                   &HXMapCanvas::refresh);
}

void HXViewerWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open…"), this, &HXViewerWindow::openWithPrompt, QKeySequence::Open);
    mRecentMenu = file->addMenu(tr("Open &recent"));
    rebuildRecentMenu();
    file->addSeparator();
    HXLayoutWindow::addFileMenuEntries(file, this, [this] { return mCanvas->GetMapView()->GetMap(); });
    file->addSeparator();
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

    // Page Up / Page Down and the arrows are the canvas's own bindings; the menu shows them.
    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("Zoom in\tPgUp"), mCanvas, &HXMapCanvas::zoomIn);
    view->addAction(tr("Zoom out\tPgDown"), mCanvas, &HXMapCanvas::zoomOut);
    view->addAction(tr("Full extent"), this, &HXViewerWindow::zoomToFullExtent, QKeySequence(Qt::Key_Home));
    view->addAction(tr("Refresh"), mCanvas, &HXMapCanvas::refresh, QKeySequence::Refresh);
    view->addSeparator();
    mGridAction =
        view->addAction(tr("&Grid"), this, &HXViewerWindow::setGridShown, QKeySequence(tr("Ctrl+G")));
    mGridAction->setCheckable(true);
    view->addAction(tr("Grid settings…"), mCanvas, &HXMapCanvas::SetMapGridAndRuler);
    view->addSeparator();
    view->addAction(mLayers->toggleViewAction());
    view->addAction(mIdentify->toggleViewAction());
    view->addAction(mCommand->toggleViewAction());

    QMenu* map = menuBar()->addMenu(tr("&Map"));
    map->addAction(tr("Coordinate system…"), this, &HXViewerWindow::chooseCoordinateSystem);
}

void HXViewerWindow::buildEditing() {
    mEdit = new HXEditActions(mCanvas, mToolGroup, this);
    addToolBarBreak();
    addToolBar(mEdit->toolBar());
    menuBar()->insertMenu(menuBar()->actions().value(1), mEdit->menu());
    mAutosave = new HXElementAutosave(mCanvas, HXElementAutosave::defaultPath(), this);
    connect(mAutosave, &HXElementAutosave::failed, this,
            [this](const QString& error) { mMessageBar->pushWarning(tr("Graphic elements"), error); });
}

void HXViewerWindow::rebuildRecentMenu() {
    mRecentMenu->clear();
    for (const QString& path : HXRecentFiles::load()) {
        mRecentMenu->addAction(QFileInfo(path).fileName(), this, [this, path] { openFiles({path}); })
            ->setToolTip(path);
    }
    mRecentMenu->setEnabled(!mRecentMenu->isEmpty());
}

void HXViewerWindow::restoreSettings() {
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    if (!restoreGeometry(settings.value("viewer/geometry").toByteArray())) setGeometry(firstGeometry());
    restoreState(settings.value("viewer/state").toByteArray());
}

void HXViewerWindow::closeEvent(QCloseEvent* event) {
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    settings.setValue("viewer/geometry", saveGeometry());
    settings.setValue("viewer/state", saveState());
    mAutosave->finish();
    QMainWindow::closeEvent(event);
}

void HXViewerWindow::openFiles(const QStringList& paths) {
    mOpening->open(paths);
}

bool HXViewerWindow::waitForOpened(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (mOpening->isBusy() && clock.elapsed() < timeoutMs)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    return !mOpening->isBusy();
}

void HXViewerWindow::onFileOpened(const QString& path, const std::vector<HORefPtr<HOLayer>>& layers,
                                  const QStringList& errors) {
    HOMapView* view = mCanvas->GetMapView();
    if (!view) return;
    const bool wasEmpty = view->GetMap()->GetLayerCount() == 0;
    for (const QString& error : errors) {
        mErrors << error;
        mMessageBar->pushCritical(QString(), error);
    }
    if (layers.empty()) {
        ++mOpenFailures;
        return;
    }
    for (const HORefPtr<HOLayer>& layer : layers) addLayer(layer);
    HXRecentFiles::add(QFileInfo(path).absoluteFilePath());
    mMessageBar->pushSuccess(tr("Opened"), QFileInfo(path).fileName());
    HXLayerStyler::styleMap(view->GetMap());
    applyGrid();
    rebuildRecentMenu();
    mCanvas->ReloadLayerTree();
    if (wasEmpty) zoomToFullExtent();
}

void HXViewerWindow::addLayer(HOLayer* layer) {
    HXLayerStyler::addLayer(mCanvas->GetMapView()->GetMap(), layer);
}

void HXViewerWindow::openWithPrompt() {
    const std::vector<HOString> chosen =
        mCanvas->getOpenFileNames(HOString(tr("Open map data")), HOString(), HOString(QString(kFileFilter)));
    QStringList paths;
    for (const HOString& path : chosen) paths << path.toQString();
    if (!paths.isEmpty()) openFiles(paths);
}

bool HXViewerWindow::setCoordinateSystem(const QString& definition, QString* error) {
    QString reason;
    HORefPtr<HOCoordinateSystem> system = readMapCoordinateSystem(definition, &reason);
    HOMapView* view = mCanvas->GetMapView();
    if (!system || !view) {
        mMessageBar->pushWarning(tr("Coordinate system"), reason);
        if (error) *error = reason;
        return false;
    }
    view->GetMap()->SetSpatialReference(system);
    view->GetMap()->SetMapDisplayUnit(system->IsGeographic() ? HOUnitDegree : HOUnitMeter);
    zoomToFullExtent();
    applyGrid();
    mMessageBar->pushInfo(tr("Coordinate system"), system->GetName().toQString());
    return true;
}

void HXViewerWindow::chooseCoordinateSystem() {
    HOMapView* view = mCanvas->GetMapView();
    HORefPtr<HOCoordinateSystem> current = view ? view->GetMap()->GetSpatialReference() : nullptr;
    const QString initial = current && current->GetEpsgCode() ? QString("EPSG:%1").arg(current->GetEpsgCode())
                                                              : QString("EPSG:4490");
    bool ok = false;
    const QString text =
        QInputDialog::getText(this, tr("Map coordinate system"), tr("EPSG code, WKT or PROJ definition:"),
                              QLineEdit::Normal, initial, &ok);
    if (ok && !text.trimmed().isEmpty()) setCoordinateSystem(text.trimmed());
}

void HXViewerWindow::setGridShown(bool shown) {
    if (mGridAction->isChecked() != shown) mGridAction->setChecked(shown);
    applyGrid();
}

// A geographic map gets the longitude/latitude grid; a projected one the kilometre grid inside a
// longitude/latitude frame, as a topographic sheet has.
void HXViewerWindow::applyGrid() {
    HOMapView* view = mCanvas->GetMapView();
    HOMapRulerAndGrid* grid = view ? view->GetRulerAndGridSetting() : nullptr;
    if (!grid || !view->GetMap()) return;
    const bool shown = mGridAction->isChecked();
    const HORefPtr<HOCoordinateSystem> system = view->GetMap()->GetSpatialReference();
    const bool geographic = system && system->IsGeographic();
    grid->set_draw_km_grid(shown && !geographic);
    grid->set_draw_km_grid_ruler(shown && !geographic);
    grid->set_draw_bl_grid(shown && geographic);
    grid->set_draw_bl_grid_ruler(shown && system);
    grid->set_km_grid_color(HOColor(40, 90, 170));
    grid->set_km_grid_line_width(0.8);
    grid->set_bl_grid_color(HOColor(40, 90, 170));
    grid->set_bl_grid_line_width(0.8);
    grid->set_ruler_unit_type(view->GetMap()->GetMapDisplayUnit());
    view->RequestRedraw(false);
}

void HXViewerWindow::zoomToFullExtent() {
    if (HOMapView* view = mCanvas->GetMapView()) view->ZoomToFullExtent();
}

int HXViewerWindow::showAndOpen(const QStringList& paths) {
    show();
    settleLayout();
    const int failedBefore = mOpenFailures;
    openFiles(paths);
    if (!waitForOpened(kOpenTimeoutMs)) return paths.size();
    // The message bar just took its room above the map: lay out now and draw at that size, rather
    // than after the canvas's delay for a window being dragged to a new size.
    settleLayout();
    mCanvas->refresh();
    return mOpenFailures - failedBefore;
}

void HXViewerWindow::settleLayout() {
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

bool HXViewerWindow::waitForRender(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    HOMapView* view = mCanvas->GetMapView();
    if (!view || view->GetMap()->GetLayerCount() == 0) {
        QApplication::processEvents();
        return true;  // nothing to draw
    }
    while (clock.elapsed() < timeoutMs) {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
        if (pictureIsFinal()) {
            QApplication::processEvents();
            return true;
        }
        QThread::msleep(10);
    }
    return false;
}

// A picture of an earlier size, or one still to be replaced by a render that runs or waits, is not
// final. The picture may have been finished before anyone started waiting for it.
bool HXViewerWindow::pictureIsFinal() const {
    HOMapView* view = mCanvas->GetMapView();
    const HOSize drawn = view->GetScreenDisplay()->GetDeviceSize();
    const QSize shown = mCanvas->layout()->itemAt(0)->widget()->size();  // the drawing widget
    const bool sized = drawn.width == shown.width() && drawn.height == shown.height();
    return sized && mRendersFinished.load() > 0 && !view->IsRendering();
}

bool HXViewerWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mCanvas && event->type() == QEvent::DragEnter) {
        auto* drag = static_cast<QDragEnterEvent*>(event);
        if (drag->mimeData()->hasUrls()) drag->acceptProposedAction();
        return true;
    }
    if (watched == mCanvas && event->type() == QEvent::Drop) {
        QStringList paths;
        for (const QUrl& url : static_cast<QDropEvent*>(event)->mimeData()->urls()) {
            if (url.isLocalFile()) paths << url.toLocalFile();
        }
        openFiles(paths);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void HXViewerWindow::bindIdentifyTool() {
    mIdentifyTool =
        dynamic_cast<HOToolIdentify*>(HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolIdentify"));
    if (mIdentifyTool) HOBindMember(mIdentifyTool->IdentifiedSignal, this, &HXViewerWindow::onIdentified);
}

// The identify tool reports on the GUI thread, one click at a time.
void HXViewerWindow::onIdentified(void* sender, HOEvent* event) {
    auto* found = dynamic_cast<HOIdentifyEvent*>(event);
    if (!found || sender != mIdentifyTool || mCanvas->getMapTool() != mIdentifyTool) return;
    mIdentify->clear();
    if (found->featureId < 0) {
        mMessageBar->pushInfo(tr("Identify"), tr("nothing found here"));
        return;
    }
    HXIdentifyPanel::Attributes attributes;
    for (const auto& attribute : found->attributes)
        attributes.append({attribute.first.toQString(), attribute.second.toQString()});
    mIdentify->addFeature(found->layerName.toQString(), found->featureId, attributes);
}
