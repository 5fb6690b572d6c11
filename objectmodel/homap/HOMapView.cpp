#include "HOMapView.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

#include "HOCallbackKey.h"
#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOGeometryPainter.h"
#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapGridOverlay.h"
#include "HOMapRenderer.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapScale.h"
#include "HORasterLayer.h"
#include "HORenderContext.h"
#include "HOTool.h"
#include "HOTrackCancel.h"
#include "HOTwinkle.h"
#include "HOViewport.h"

namespace HXObjects {

namespace {
constexpr double kEquatorMetres = 2.0 * M_PI * HOMapScale::kEarthRadius;
constexpr double kMinMetresPerPixel = 0.001;
constexpr double kMaxMetresPerPixel = kEquatorMetres / 8.0;
constexpr double kMaxCentreMetres = 1.0e8;
constexpr int kFullExtentMarginPixels = 8;
}  // namespace

class HOMapView::Private {
public:
    Private(HOMapView* view, const HOString& viewName);

    // Draws all layers or those named again, within the area (an empty rectangle: everywhere).
    void requestRender(bool all, const std::set<int>& layers, int delayMs, const HORect& area = HORect());
    void fitFullExtentIfNone();
    void compose(HOGraphics& surface);
    void onLayersChanged(void* sender, HOEvent* event);
    // Graphic elements are drawn over the finished frame: a redraw shows their change.
    void onElementsChanged(void*, HOEvent*) { q->FireRedraw(); }
    // Binds to the raster layers of `shown` (none when null) and unbinds from those it no longer has.
    void watchRasters(const HOMap* shown);
    // On the overview builder's thread: once a raster draws from its overviews, it is drawn again.
    void onOverviewProgress(void* sender, HOEvent*);

    HOMapView* q;
    const HOString name;
    HOTrackCancel cancel;

    // Guarded by the view's lock, so that a render thread's snapshot is consistent with the viewport.
    QPoint panOffset;
    double devicePixelRatio = 1.0;
    HORefPtr<HOMap> map;
    HOMapRulerAndGrid grid;       // edited by the host through GetRulerAndGridSetting (GUI thread)
    HOMapRulerAndGrid gridShown;  // the copy Draw reads, taken by RequestRedraw
    std::optional<HOTwinkle> twinkle;
    std::vector<HORefPtr<HORasterLayer>> watchedRasters;  // GUI thread only

    HOMapGridOverlay gridOverlay;
    std::unique_ptr<HOMapRenderer> renderer;
};

HOMapView::Private::Private(HOMapView* view, const HOString& viewName) : q(view), name(viewName) {
    HOMapRenderer::Callbacks callbacks;
    callbacks.redraw = [this] { q->FireRedraw(); };
    callbacks.finished = [this] {
        HOEvent event;
        q->RenderFinishedSignal.fire(q, &event);
    };
    renderer = std::make_unique<HOMapRenderer>(&cancel, std::move(callbacks));
}

void HOMapView::Private::requestRender(bool all, const std::set<int>& layers, int delayMs,
                                       const HORect& area) {
    HORenderRequest request;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        const HOViewport& viewport = q->LockedViewport();
        if (!map || !viewport.IsDrawable()) return;
        request.map = map;
        request.transform = viewport.Transform();
        request.size = viewport.Size();
        request.dpi = q->LockedDpi();
        request.devicePixelRatio = devicePixelRatio;
    }
    const QRect pixels = request.PixelsOf(area);
    if (all) request.redrawEverywhere = pixels;
    for (const int layer : layers) request.redrawLayers[layer] = pixels;
    renderer->Request(std::move(request), delayMs);
}

void HOMapView::Private::fitFullExtentIfNone() {
    HORefPtr<HOMap> shown;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        const HOViewport& viewport = q->LockedViewport();
        if (viewport.HasExtent() || !viewport.Extent().IsEmpty()) return;
        shown = map;
    }
    if (!shown) return;
    const HORect full = shown->GetFullExtent();
    q->Navigate([&](HOViewport& v) {
        return !v.HasExtent() && v.Extent().IsEmpty() && v.Fit(full, kFullExtentMarginPixels);
    });
}

void HOMapView::Private::compose(HOGraphics& surface) {
    HORefPtr<HOMap> shownMap;
    HORefPtr<HOTool> currentTool;
    HODisplayTransform shown;
    HOSize size;
    HOMapRulerAndGrid gridSettings;
    double dpi = 96.0;
    std::optional<HOTwinkle> flash;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        const HOViewport& viewport = q->LockedViewport();
        if (!map || !viewport.IsDrawable()) return;
        shownMap = map;
        currentTool = q->LockedTool();
        shown = viewport.Transform();
        // While panning, the picture follows the mouse: draw as if the view had moved already.
        shown.extentLeft -= panOffset.x() * shown.unitsPerPixel;
        shown.extentTop += panOffset.y() * shown.unitsPerPixel;
        size = viewport.Size();
        gridSettings = gridShown;
        dpi = q->LockedDpi();
        flash = twinkle;
    }
    const HOViewFrame frame = renderer->Frame();
    const QColor background = shownMap->GetBackgroundColor().toQColor();
    QImage& target = surface.Image();
    if (frame.IsAt(shown) && frame.image.size() == target.size() && frame.image.format() == target.format()) {
        // The frame holds the background and every layer already: one copy of its bytes.
        surface.End();
        std::memcpy(target.bits(), frame.image.constBits(),
                    static_cast<std::size_t>(frame.image.sizeInBytes()));
    } else if (frame.CanBlitInto(target) && background.alpha() == 255) {
        surface.End();
        frame.BlitInto(target, shown, background);
    } else {
        QPainter& painter = *surface.Painter();
        painter.fillRect(QRect(0, 0, size.width, size.height), background);
        frame.DrawInto(painter, shown);
    }
    QPainter& painter = *surface.Painter();

    HORenderContext context;
    context.painter = &painter;
    context.SetArea(shown, size);
    shownMap->GetGraphicsLayer()->Render(context);

    if (flash && flash->IsShownAt(HOTwinkle::Clock::now())) {
        HOGeometryPainter geometryPainter(painter, shown);
        if (flash->Style())
            geometryPainter.Draw(flash->Geometry(), flash->Style());
        else
            geometryPainter.DrawHighlight(flash->Geometry(), QColor(255, 0, 0), 3.0);
    }
    if (currentTool) currentTool->DrawToolPaint(painter, shown);
    if (HOMapGridOverlay::IsEnabled(gridSettings))
        gridOverlay.Draw(painter, gridSettings, {shown, size, shownMap->GetSpatialReference(), dpi});
}

void HOMapView::Private::watchRasters(const HOMap* shown) {
    std::vector<HORefPtr<HORasterLayer>> rasters;
    if (shown)
        for (const auto& layer : shown->GetLayers())
            if (auto* raster = dynamic_cast<HORasterLayer*>(layer.get())) rasters.emplace_back(raster);
    for (const auto& raster : watchedRasters)
        if (std::find(rasters.begin(), rasters.end(), raster) == rasters.end())
            HOUnbindMember(raster->OverviewProgressSignal, this, &Private::onOverviewProgress);
    for (const auto& raster : rasters)
        if (!HOIsMemberBound(raster->OverviewProgressSignal, this, &Private::onOverviewProgress))
            HOBindMember(raster->OverviewProgressSignal, this, &Private::onOverviewProgress);
    watchedRasters = std::move(rasters);
}

void HOMapView::Private::onOverviewProgress(void* sender, HOEvent*) {
    auto* raster = static_cast<HORasterLayer*>(sender);
    if (raster->GetOverviewProgress() == 1) requestRender(false, {raster->GetLayerId()}, 0);
}

void HOMapView::Private::onLayersChanged(void*, HOEvent*) {
    HORefPtr<HOMap> shown;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        shown = map;
    }
    watchRasters(shown.get());
    fitFullExtentIfNone();
    requestRender(false, {}, 0);
}

HOMapView::HOMapView(const HOString& name) : d(std::make_unique<Private>(this, name)) {}

HOMapView::~HOMapView() {
    // No map callback may reach a view being destroyed, and no render may outlive it.
    if (d->map) {
        HOUnbindMember(d->map->LayersChangedSignal, d.get(), &Private::onLayersChanged);
        HOUnbindMember(d->map->GetGraphicsLayer()->ElementsChangedSignal, d.get(),
                       &Private::onElementsChanged);
    }
    d->watchRasters(nullptr);
    d->renderer.reset();
}

void HOMapView::SetSize(int width, int height) {
    HOViewportView::SetSize(width, height);
    d->fitFullExtentIfNone();
}

void HOMapView::DrawTo(HOGraphics* surface, int) {
    Draw(surface);
}

void HOMapView::RefreshView(bool) {
    RefreshMap(true, HORect());
}

void HOMapView::PauseRender() {
    d->renderer->Pause();
}

void HOMapView::ResumeRender() {
    d->renderer->Resume();
}

void HOMapView::SetCurrentTool(HOTool* tool) {
    HOViewportView::SetCurrentTool(tool);
    FireRedraw();
}

void HOMapView::SetDevicePixelRatio(double ratio) {
    std::lock_guard<std::mutex> lock(Mutex());
    d->devicePixelRatio = ratio > 0 ? ratio : 1.0;
}

void HOMapView::ResizeRefresh(int delayMs) {
    d->fitFullExtentIfNone();
    d->requestRender(false, {}, delayMs);
}

void HOMapView::OnExtentChanged() {
    HOEvent event;
    BoundChangedSignal.fire(this, &event);
}

HOViewport::Limits HOMapView::NavigationLimits() const {
    const double metresPerUnit = MetresPerUnit();
    HOViewport::Limits limits;
    limits.minUnitsPerPixel = kMinMetresPerPixel / metresPerUnit;
    limits.maxUnitsPerPixel = kMaxMetresPerPixel / metresPerUnit;
    limits.maxCentre = kMaxCentreMetres / metresPerUnit;
    return limits;
}

void HOMapView::OnNavigated(int settleDelayMs) {
    d->requestRender(false, {}, settleDelayMs);
}

double HOMapView::MetresPerUnit() const {
    HORefPtr<HOMap> shown;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        shown = d->map;
    }
    const HORefPtr<HOCoordinateSystem> system = shown ? shown->GetSpatialReference() : nullptr;
    return HOMapScale::MetresPerUnit(system ? system->GetUnit() : HOUnitMeter);
}

void HOMapView::OnPanStarted() {
    BeginPan();
}

void HOMapView::OnPanDragged(int dx, int dy, bool released) {
    if (released)
        EndPan(dx, dy);
    else
        PanTo(dx, dy);
}

HOString HOMapView::GetName() const {
    return d->name;
}

HOMap* HOMapView::GetMap() const {
    std::lock_guard<std::mutex> lock(Mutex());
    return d->map.get();
}

void HOMapView::SetMap(HOMap* map) {
    HORefPtr<HOMap> old;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        if (d->map.get() == map) return;
        old = d->map;
        d->map = map;
    }
    if (old) {
        HOUnbindMember(old->LayersChangedSignal, d.get(), &Private::onLayersChanged);
        HOUnbindMember(old->GetGraphicsLayer()->ElementsChangedSignal, d.get(), &Private::onElementsChanged);
    }
    if (map) {
        HOBindMember(map->LayersChangedSignal, d.get(), &Private::onLayersChanged);
        HOBindMember(map->GetGraphicsLayer()->ElementsChangedSignal, d.get(), &Private::onElementsChanged);
    }
    d->watchRasters(map);
    // Waits (a few milliseconds) so that no picture of the old map is published after this.
    d->renderer->Stop(true);
    d->renderer->ClearFrame();
    const HORect full = map ? map->GetFullExtent() : HORect();
    const bool moved = Navigate([&](HOViewport& v) {
        v.Clear();
        v.Fit(full, kFullExtentMarginPixels);
        return true;
    });
    if (!moved) d->requestRender(false, {}, 0);
}

void HOMapView::Draw(HOGraphics* surface) {
    if (!surface || surface->Image().isNull()) return;
    d->compose(*surface);
    surface->End();
}

void HOMapView::RefreshMap(bool, const HORect& area) {
    d->fitFullExtentIfNone();
    d->requestRender(true, {}, 0, area);
}

void HOMapView::Refresh(HOLayer* layer, HOMapCache::CacheType cacheType, const HORect& area) {
    if (cacheType == HOMapCache::CacheAll) {
        RefreshMap(true, area);
    } else if (!layer || cacheType == HOMapCache::CacheGraphics ||
               layer->GetLayerType() == HOLayer::GraphicsLayer) {
        FireRedraw();  // the graphics layer is drawn on every Draw
    } else {
        d->requestRender(false, {layer->GetLayerId()}, 0, area);
    }
}

void HOMapView::StopRender(bool wait) {
    d->renderer->Stop(wait);
}

void HOMapView::SelectAll() {
    HOMap* map = GetMap();
    if (!map) return;
    std::set<int> changed;
    for (const auto& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (!features || !layer->IsVisible()) continue;
        features->SelectByRect(features->GetExtent(), false);
        changed.insert(layer->GetLayerId());
    }
    if (!changed.empty()) d->requestRender(false, changed, 0);
}

HOTrackCancel* HOMapView::GetTrackCancel() {
    return &d->cancel;
}

HOMapRulerAndGrid* HOMapView::GetRulerAndGridSetting() {
    return &d->grid;
}

void HOMapView::TwinkleGeometry(HOGeometry* geometry, HOStyle* style, int times) {
    if (!geometry || times <= 0) return;
    const HOTwinkle flash(HORefPtr<HOGeometry>(geometry->Clone()), style, times, HOTwinkle::Clock::now());
    {
        std::lock_guard<std::mutex> lock(Mutex());
        d->twinkle = flash;
    }
    for (const auto& when : flash.Changes()) d->renderer->RedrawAt(when);
    FireRedraw();
}

void HOMapView::RequestRedraw(bool all) {
    {
        std::lock_guard<std::mutex> lock(Mutex());
        d->gridShown = d->grid;
    }
    if (all)
        RefreshMap(true, HORect());
    else
        FireRedraw();
}

void HOMapView::ZoomToFullExtent() {
    HOMap* map = GetMap();
    if (!map) return;
    const HORect full = map->GetFullExtent();
    Navigate([&](HOViewport& v) { return v.Fit(full, kFullExtentMarginPixels); });
}

bool HOMapView::IsRendering() const {
    return d->renderer->IsBusy();
}

void HOMapView::BeginPan() {
    std::lock_guard<std::mutex> lock(Mutex());
    d->panOffset = QPoint();
}

void HOMapView::PanTo(int dx, int dy) {
    {
        std::lock_guard<std::mutex> lock(Mutex());
        d->panOffset = QPoint(dx, dy);
    }
    FireRedraw();
}

void HOMapView::EndPan(int dx, int dy) {
    const bool moved = Navigate([&](HOViewport& v) {
        d->panOffset = QPoint();
        const double upp = v.UnitsPerPixel();
        return v.SetCenter(HOPoint(v.Center().x - dx * upp, v.Center().y + dy * upp));
    });
    if (!moved) FireRedraw();
}

void HOMapView::RefreshToolPaint() {
    FireRedraw();
}

}  // namespace HXObjects
