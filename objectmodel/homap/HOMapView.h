#pragma once
// HOMapView: a view of one map. It renders the map's layers on a worker thread, in map order, into
// cached images, and composes them (with the graphics layer, the current tool's temporary drawing
// and the ruler-and-grid overlay) whenever Draw() is asked. Draw() never waits for a render: while
// a new render runs after a pan or zoom it shows the previous picture moved and scaled to the new
// extent. A raster layer whose overviews finish building in the background is rendered again by
// itself, without waiting for the next navigation.
//
// Navigation stays where a person can still find the map: from a millimetre per pixel (about 1:4 on
// a 96 dpi screen) out to the equator across eight pixels (about 5000 km per pixel), with the centre
// no farther than 100 000 km from the origin along either axis (for a geographic map: 898 degrees),
// whatever the map's unit. The full extent is shown with a margin of 8 pixels, so that features on
// its boundary are drawn whole.
//
// Threads: navigation and input on the GUI thread; RedrawSignal, RenderFinishedSignal and Draw()
// may run on the render thread. Created by HOMapViewManager::addView (reference-counted).
#include <memory>

#include "HOMapCache.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HOViewportView.h"
#include "HXExport.h"

namespace HXObjects {

class HOMap;
class HOLayer;
class HOGeometry;
class HOStyle;
class HOTrackCancel;
class HOMapRulerAndGrid;
class HOMapRenderer;

class HX_EXPORT HOMapView : public HOViewportView {
public:
    explicit HOMapView(const HOString& name = HOString());

    // HOView, in table order, where a map view differs from HOViewportView.
    using HOViewportView::SetSize;
    // Also fits the map's full extent when nothing is shown yet.
    void SetSize(int width, int height) override;
    void DrawTo(HOGraphics* surface, int reserved) override;
    void RefreshView(bool all) override;
    void PauseRender() override;
    void ResumeRender() override;
    // Also redraws, so that the old tool's drawing goes.
    void SetCurrentTool(HOTool* tool) override;
    void ResizeRefresh(int delayMs) override;

    HOString GetName() const;
    HOMap* GetMap() const;
    // Shows another map (the view keeps a reference) and renders it at its full extent.
    void SetMap(HOMap* map);

    // Composes the finished images into the surface; never waits for the render thread.
    void Draw(HOGraphics* surface);
    // Re-renders an area (an empty rectangle: everything).
    void RefreshMap(bool all, const HORect& area);
    // Re-renders one layer's cached image only, within the area (an empty rectangle: all of it).
    virtual void Refresh(HOLayer* layer, HOMapCache::CacheType cacheType, const HORect& area);
    // Cancels the running render; with wait, returns after the render thread has stopped.
    void StopRender(bool wait);
    // Selects every feature of the visible feature layers.
    void SelectAll();
    HOTrackCancel* GetTrackCancel();
    // The grid settings; changes show after RequestRedraw (Draw reads a copy taken there).
    HOMapRulerAndGrid* GetRulerAndGridSetting();
    // Flashes the geometry (map coordinates) `times` times over the map; null style: a highlight.
    void TwinkleGeometry(HOGeometry* geometry, HOStyle* style, int times);
    // Asks for a new picture after display settings changed (grid, styles).
    virtual void RequestRedraw(bool all);

    // Device pixels per logical pixel of the screen showing the view (2 on a typical HiDPI screen):
    // the next render makes its pictures at that resolution. Positions, extents and the scale stay in
    // logical pixels.
    void SetDevicePixelRatio(double ratio);

    // Fits the map's full extent into the view, a few pixels in from its edges.
    void ZoomToFullExtent();
    bool IsRendering() const;
    // Fired once when a render completes (not when it is cancelled), on the render thread.
    HOEventSignal RenderFinishedSignal;
    // Fired when the visible extent really changed, with a non-null event.
    HOEventSignal BoundChangedSignal;

    // Interactive panning: the current picture follows the mouse (offsets in pixels since BeginPan)
    // without rendering; EndPan applies the offset to the extent and renders once.
    void BeginPan();
    void PanTo(int dx, int dy);
    void EndPan(int dx, int dy);
    // Recomposes without re-rendering, e.g. after the current tool's temporary drawing changed.
    void RefreshToolPaint();

protected:
    ~HOMapView() override;

private:
    void OnExtentChanged() override;
    HOViewport::Limits NavigationLimits() const override;
    void OnNavigated(int settleDelayMs) override;
    double MetresPerUnit() const override;
    void OnPanStarted() override;
    void OnPanDragged(int dx, int dy, bool released) override;

    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
