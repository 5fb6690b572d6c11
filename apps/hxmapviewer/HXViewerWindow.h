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
class HXEditActions;
class HXElementAutosave;
class HXIdentifyPanel;
class HXLayerPanel;
class HXMapCanvas;
class HXMessageBar;

namespace HXObjects {
class HOEvent;
class HOLayer;
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
    // Shows the window, opens the files and starts the first render at once, at the size the
    // window settles on once the message bar reports the files. Returns how many files failed.
    int showAndOpen(const QStringList& paths);
    // "EPSG:4490", WKT or a PROJ string of a geographic or projected system; false (map unchanged,
    // the reason in error) otherwise.
    bool setCoordinateSystem(const QString& definition, QString* error = nullptr);
    // Processes events until the view is sized to the drawing widget, a picture has been finished
    // and no render runs or waits; false when the time is up first.
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
    // The Edit tool bar and menu, and the autosave of graphic elements.
    void buildEditing();
    void rebuildRecentMenu();
    void addLayer(HXObjects::HOLayer* layer);
    void bindIdentifyTool();
    void restoreSettings();
    void settleLayout();
    bool pictureIsFinal() const;
    void applyGrid();
    void onRenderFinished(void* sender, HXObjects::HOEvent* event);
    void onIdentified(void* sender, HXObjects::HOEvent* event);

    HXMapCanvas* mCanvas;
    HXMessageBar* mMessageBar;
    HXLayerPanel* mLayers;
    HXIdentifyPanel* mIdentify;
    HXCommandDock* mCommand;
    HXEditActions* mEdit = nullptr;
    HXElementAutosave* mAutosave = nullptr;
    QActionGroup* mToolGroup = nullptr;
    QMenu* mRecentMenu = nullptr;
    QAction* mGridAction = nullptr;
    QStringList mErrors;
    HXObjects::HOToolIdentify* mIdentifyTool = nullptr;
    std::atomic<int> mRendersFinished{0};
};
