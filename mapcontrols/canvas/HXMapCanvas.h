#pragma once
// HXMapCanvas: the widget a host puts in a document window to show a map view or a print page
// layout. It routes mouse, wheel and key input to the view of its mode (and so to the current map
// tool), has the view render into its drawing widget, keeps a status bar with coordinates, scale
// and a render toggle, and is the object model's tool buddy. The view mode is fixed at construction.
//
// Ownership: child widgets through the widget tree; one reference on each stored view; tools, the
// command control and the tool buddy are borrowed. The destructor unbinds every callback the canvas
// bound to any view still alive, also those a replaced view keeps.
//
// Input that belongs to the status bar (clicks on its labels, keys typed into its boxes) stays
// there: it never reaches the view or the current tool.
//
// The members are defined in the folder of the subsystem they belong to: canvas/ (views, rendering,
// navigation), interaction/ (tools, input, notices, file prompts, context menu), dialogs/.
#include <QPointF>
#include <QWidget>
#include <memory>

#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HORefPtr.h"
#include "HOToolBuddy.h"
#include "HXMapControlsExport.h"
#include "HXMapSettings.h"

class QAction;
class QContextMenuEvent;
class QMenu;
class QStatusBar;
class QStyle;
class HXMapWidget;
class HXStatusBarCoordinatesWidget;
class HXStatusBarScaleWidget;
class HXTooltip;
class HXViewBindings;
struct HXPanState;

namespace HXObjects {
class HOCommandControl;
class HOGeometry;
class HOLayer;
class HOMap;
class HOTool;
}  // namespace HXObjects

class HXMAPCONTROLS_EXPORT HXMapCanvas : public QWidget, public HXObjects::HOToolBuddy {
    Q_OBJECT
    // What a form author sets. The view mode is chosen at construction, so it is only read here
    // (HXMapCanvasFrame makes it settable in forms).
    Q_PROPERTY(ViewMode viewMode READ getViewMode CONSTANT)
    Q_PROPERTY(double wheelFactor READ wheelFactor WRITE setWheelFactor)
    Q_PROPERTY(bool scaleLocked READ isScaleLocked WRITE setScaleLocked)

public:
    enum ViewMode { PageLayoutMode = 0, MapViewMode = 1, ReservedMode = 2 };
    Q_ENUM(ViewMode)

    HXMapCanvas(ViewMode mode, QWidget* parent);
    ~HXMapCanvas() override;

    // Views (canvas/HXMapCanvas.cpp).
    HXObjects::HOMapView* GetMapView() const override;
    void SetMapView(HXObjects::HOMapView* view) override;
    HXObjects::HOPageLayoutView* GetPageLayoutView() override;
    void SetPageLayoutView(HXObjects::HOPageLayoutView* view) override;
    bool IsMapView() override;
    ViewMode getViewMode();
    int getMapViewGroupID();
    void SetToolBuddy(HXObjects::HOToolBuddy* buddy);
    const HXMapSettings& mapSettings() const;
    bool antiAliasingEnabled() const;
    QStatusBar* StatusBar();
    void SetScaleEnable(bool enabled);
    void SetCommandControl(HXObjects::HOCommandControl* control);
    void setStatusBarStyle(QStyle* style);
    void SetPageModified() override;
    void ReloadLayerTree() override;
    void enableWaterMask(bool enabled);
    void enableMapViewLic(bool enabled);
    void onRequest3DRefresh(void* sender, HXObjects::HOEvent* event);
    void pagelyoutViewChangeActiveCallback(void* sender, HXObjects::HOEvent* event);

    // Navigation (canvas/HXMapCanvasNavigation.cpp).
    HXObjects::HOPoint center();
    HXObjects::HORect extent();
    double scale();
    void setCenter(const HXObjects::HOPoint& p);
    void setExtent(const HXObjects::HORect& extent, bool magnified = false);
    void zoomByFactor(double factor, const HXObjects::HOPoint* center = nullptr);
    void zoomScale(double scale);
    void zoomIn();
    void zoomOut();
    double magnificationFactor() const;
    void setMagnificationFactor(double factor);
    double rotation() const;
    void setScaleLocked(bool locked);
    bool isScaleLocked() const { return mScaleLocked; }
    void setWheelFactor(double factor);
    double wheelFactor() const { return mWheelFactor; }
    void ScaleChanged() override;
    void scaleChangedCallback(void* sender, HXObjects::HOEvent* event);
    void viewBoundChangedCallback(void* sender, HXObjects::HOEvent* event);
    // True while the last wheel event was handed to a view.
    static bool wheelEventSt;

    // Tool host (interaction/HXMapCanvasTools.cpp).
    void setMapTool(const HXObjects::HOString& name) override;
    void setMapTool(HXObjects::HOTool* tool) override;
    HXObjects::HOTool* getMapTool() const;
    void SetCursor(HOCursor shape) override;
    HXObjects::HOPoint GetCursorPos() override;
    HOKeyboardModifier GetKeyboardModifiers() override;
    quintptr GetMainWindowHandle() override;
    void SetHOToolEnabled(HXObjects::HOTool* tool, bool enabled) override;
    void DisplayLinePath(HXObjects::HORefPtr<HXObjects::HOGeometry> path, HXObjects::HOTool* tool, bool show);
    void clearToolpaint() const;
    void setCurrentLayer(HXObjects::HOLayer* layer);
    int getImageLayerId() override;
    void setImageLayerId(int id);
    int getMeasruePointLayerId() override;
    void setMeasurePointLayerId(int id) override;
    int getTripleLineLayerId() override;
    void setTripleLineLayerId(int id) override;
    int getNewPathOption_Polygon() override;
    void setNewPathOption_Polygon(int option) override;
    int getNewPathOption_Line() override;
    void setNewPathOption_Line(int option) override;
    int getNewPathOption_AddFeature() override;
    void setNewPathOption_AddFeature(int option) override;

    // Input (interaction/HXMapCanvasInput.cpp).
    void moveOffElement(double dx, double dy);

    // Notices and file prompts (interaction/HXMapCanvasNotices.cpp).
    void ShowTip(int x, int y, HXObjects::HOString text) override;
    void ShowMessage(HXObjects::HOString text) override;
    void AddNoticeInfo(HXObjects::HOString text) override;
    void SetCmdEditInfo(HXObjects::HOString text) override;
    void ShowCommandView(HXObjects::HOString text, HXObjects::HOTool* tool, bool show) override;
    void SetCommandViewFocus();
    HXObjects::HOString getOpenFileName(const HXObjects::HOString& caption, const HXObjects::HOString& dir,
                                        const HXObjects::HOString& filter) override;
    std::vector<HXObjects::HOString> getOpenFileNames(const HXObjects::HOString& caption,
                                                      const HXObjects::HOString& dir,
                                                      const HXObjects::HOString& filter) override;
    HXObjects::HOString GetCharsetEncoding() override;
    bool DocStateChanged() const;
    void SetDocStateChanged();
    void ResetDocState();

    // Context menu (interaction/HXMapCanvasContextMenu.cpp).
    void OnContextMenu(int x, int y) override;

    // Dialogs (dialogs/).
    int combineFeatureAttributeFID(HXObjects::HOLayer* layer) override;

public slots:
    // Rendering (canvas/HXMapCanvasRender.cpp).
    void onRender(bool paused);
    void pauseRender();
    void resumeRender();
    void refresh();
    void onResize(QResizeEvent* e);
    void updateScale();
    void StartNewPath(QAction* action);
    void AddPointWithInput(QAction* action);
    void DeleteElement();
    void CustomStyle();
    void SetMapGridAndRuler();

signals:
    void beforeDestroyed();
    void activeElementChanged(void* sender, void* event);
    void actionEnabled(HXObjects::HOTool* tool, bool enabled);
    void contextMenuTrigger(void* sender, QContextMenuEvent* event);
    void currentLayerChanged(HXObjects::HOLayer* layer);
    void extentsChanged();
    void keyPressed(QKeyEvent* event);
    void keyReleased(QKeyEvent* event);
    void layerTreeReload();
    void layersChanged();
    void magnificationChanged(double factor);
    void mapCanvasRefreshed();
    void mousePressed(QMouseEvent* event, int nButtonType);
    void mouseReleased(QMouseEvent* event);
    void renderStarting();
    void rotationChanged(double rotation);
    void scaleChanged(double scale);
    void sendLeftButtonClicked(QPoint pos);
    void sendLeftButtonDoubleClicked(QPoint pos);
    void sendLeftButtonRelease(QPoint pos);
    void signal_cursorChanged(QCursor cursor);
    void signal_updateScale();
    void wheelEventStart();
    void xyCoordinates(const QPointF& p, HXObjects::HOMap* map);
    void EditFeature(HXObjects::HOTool* tool, bool active, int count);

protected:
    bool event(QEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    void contextMenuEvent(QContextMenuEvent* e) override;
    virtual void setForwardKeyEvents(bool forward);
    void MapViewContextMenu(int x, int y);

private:
    // Status bar, coordinates, scale and render toggle (constructor helper).
    void buildStatusBar();
    // The view navigation acts on: the map view in map-view mode, the layout in page-layout mode.
    HXObjects::HOView* navigatedView() const;
    // Removes every callback the canvas may have bound to the view, and itself as its tool buddy.
    void unbindAll(HXObjects::HOView* view);

    // Tool-host and input state (interaction/).
    bool mIsBrowseTool = false;
    bool mIsDigitizePolygon = false;
    bool mIsDigitizeLine = false;
    bool mIsAddFeature = false;
    bool mIsAddControlPoint = false;
    bool mMiddleButtonDown = false;
    int mNewPathOptionPolygon = -1;
    int mNewPathOptionLine = -1;
    int mNewPathOptionAddFeature = -1;
    HXObjects::HORefPtr<HXObjects::HOPageLayoutView> mPageLayoutView;
    HXObjects::HORefPtr<HXObjects::HOMapView> mMapView;
    ViewMode mViewMode;
    HXTooltip* mTooltip = nullptr;
    QMenu* mContextMenu = nullptr;
    QStatusBar* mStatusBar = nullptr;
    HXStatusBarScaleWidget* mScaleWidget = nullptr;
    HXStatusBarCoordinatesWidget* mCoordsWidget = nullptr;
    HXMapSettings mMapSettings;
    HXObjects::HOTool* mMapTool = nullptr;
    HXPanState* mPanState = nullptr;
    bool mScaleLocked = false;
    double mWheelFactor = 2.0;
    bool mPageModified = false;
    bool mForwardKeyEvents = false;
    int mMapViewGroupId = 0;
    int mTripleLineLayerId = -1;
    int mMeasurePointLayerId = -1;
    int mImageLayerId = -1;
    HXObjects::HOCommandControl* mCommandControl = nullptr;
    HXMapWidget* mMapWidget = nullptr;
    HXObjects::HOToolBuddy* mToolBuddy = nullptr;
    bool mDocStateChanged = false;
    HXObjects::HOLayer* mCurrentLayer = nullptr;
    std::unique_ptr<HXViewBindings> mBindings;
};
