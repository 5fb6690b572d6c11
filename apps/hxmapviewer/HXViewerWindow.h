#pragma once
// HXViewerWindow: the reference host. An HXMapCanvas in map-view mode with a message bar above it, a
// tool bar of map tools, layer and identify panels, a command line, File/View/Map menus, recent
// files and drag-and-drop of files onto the map. Settings (geometry, recent files, last directory)
// live in the application's settings file.
#include <QMainWindow>
#include <QStringList>
#include <atomic>
#include <vector>

#include "HORefPtr.h"

class QAction;
class QActionGroup;
class QMenu;
class HXCommandDock;
class HXEditActions;
class HXFileOpening;
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

    // Starts reading the files on a worker, with a progress bar and a cancel button in the status
    // bar; each file's layers are added to the map once it is read. Errors go to the message bar
    // and errors(); openFailures() counts the files that yielded no layer.
    void openFiles(const QStringList& paths);
    // Processes events until every file asked for is read or cancelled; false when the time is up first.
    bool waitForOpened(int timeoutMs);
    int openFailures() const { return mOpenFailures; }
    HXFileOpening* fileOpening() const { return mOpening; }
    // Shows the window, opens the files (running the event loop meanwhile) and starts the first
    // render at the size the window settles on once the message bar reports the files. Returns
    // how many files failed.
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
    void onFileOpened(const QString& path, const std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>>& layers,
                      const QStringList& errors);
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
    HXFileOpening* mOpening;
    int mOpenFailures = 0;
    HXObjects::HOToolIdentify* mIdentifyTool = nullptr;
    std::atomic<int> mRendersFinished{0};
};
