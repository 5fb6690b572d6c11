#pragma once
// HXViewerWindow: the reference host. An HXMapCanvas in map-view mode with a message bar above it, a
// tool bar of map tools, layer and identify panels, a command line, File/View/Map menus, recent
// files and drag-and-drop of files onto the map. Settings (geometry, recent files, last directory)
// live in the application's settings file.
#include <QMainWindow>
#include <QStringList>
#include <atomic>

class QAction;
class QActionGroup;
class QMenu;
class HXCommandDock;
class HXIdentifyPanel;
class HXLayerPanel;
class HXMapCanvas;
class HXMessageBar;

namespace HXObjects {
class HOEvent;
class HOToolIdentify;
}  // namespace HXObjects

class HXViewerWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit HXViewerWindow(QWidget* parent = nullptr);
    ~HXViewerWindow() override;

    // Adds every layer of the files to the map; returns how many files failed. Errors go to the
    // message bar and errors().
    int openFiles(const QStringList& paths);
    // "EPSG:4490", WKT or a PROJ string; false (map unchanged) when it cannot be read.
    bool setCoordinateSystem(const QString& definition);
    // Processes events until a render has finished and none is running, or the time is up.
    bool waitForRender(int timeoutMs);

    HXMapCanvas* canvas() const { return mCanvas; }
    HXMessageBar* messageBar() const { return mMessageBar; }
    HXLayerPanel* layerPanel() const { return mLayers; }
    HXIdentifyPanel* identifyPanel() const { return mIdentify; }
    HXCommandDock* commandDock() const { return mCommand; }
    const QStringList& errors() const { return mErrors; }

public slots:
    void openWithPrompt();
    void chooseCoordinateSystem();
    void zoomToFullExtent();
    // View > Grid: the grid and rulers that suit the map's coordinate system.
    void setGridShown(bool shown);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildToolBar();
    void buildMenus();
    void rebuildRecentMenu();
    bool openSource(const QString& source);
    void bindIdentifyTool();
    void restoreSettings();
    void applyGrid();
    void onRenderFinished(void* sender, HXObjects::HOEvent* event);
    void onIdentified(void* sender, HXObjects::HOEvent* event);

    HXMapCanvas* mCanvas;
    HXMessageBar* mMessageBar;
    HXLayerPanel* mLayers;
    HXIdentifyPanel* mIdentify;
    HXCommandDock* mCommand;
    QActionGroup* mToolGroup = nullptr;
    QMenu* mRecentMenu = nullptr;
    QAction* mGridAction = nullptr;
    QStringList mErrors;
    HXObjects::HOToolIdentify* mIdentifyTool = nullptr;
    std::atomic<int> mRendersFinished{0};
};
