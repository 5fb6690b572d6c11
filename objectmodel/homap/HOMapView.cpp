#include "HOMapView.h"

#include <QPainter>
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
#include "HORenderContext.h"
#include "HOTool.h"
#include "HOTrackCancel.h"
#include "HOTwinkle.h"
#include "HOViewport.h"

namespace HXObjects {

namespace {
constexpr int kResizeDelayMs = 200;
constexpr double kZoomStep = 2.0;
constexpr double kWheelNotch = 120.0;
constexpr int kPanButton = 3;  // the middle button pans whatever the current tool

}  // namespace

class HOMapView::Private {
public:
    Private(HOMapView* view, const HOString& viewName);

    // Applies a change to the viewport under the lock, then fires BoundChangedSignal and
    // ScaleChangedSignal for what really changed and renders the new place. True when it changed.
    template <class Change>
    bool navigate(Change change, int renderDelayMs = 0);
    void requestRender(bool all, std::set<int> layers, int delayMs);
    void fitFullExtentIfNone();
    double metresPerUnit() const;
    double currentDpi() const;
    void fireRedraw();
    void compose(HOGraphics& surface);
    void onLayersChanged(void* sender, HOEvent* event);
    // The offset of a middle-button drag under way; false when none is (`end` finishes it).
    bool middleDragOffset(int x, int y, QPoint* offset, bool end);

    HOMapView* q;
    const HOString name;
    HOTrackCancel cancel;
    HODisplay display;  // has its own lock; mirrors the viewport for readers of the screen display

    mutable std::mutex mutex;  // guards the members below
    HOViewport viewport;
    QPoint panOffset;
    QPoint panStart;
    bool middleDrag = false;  // a release without its press (pressed outside the view) must not pan
    double dpi = 96.0;
    HORefPtr<HOMap> map;
    HORefPtr<HOTool> tool;
    HOToolBuddy* buddy = nullptr;
    HOMapRulerAndGrid grid;       // edited by the host through GetRulerAndGridSetting (GUI thread)
    HOMapRulerAndGrid gridShown;  // the copy Draw reads, taken by RequestRedraw
    std::optional<HOTwinkle> twinkle;

    std::unique_ptr<HOMapRenderer> renderer;
};

HOMapView::Private::Private(HOMapView* view, const HOString& viewName)
    : q(view), name(viewName), dpi(HOMapScale::ScreenDpi()) {
    HOMapRenderer::Callbacks callbacks;
    callbacks.redraw = [this] { fireRedraw(); };
    callbacks.finished = [this] {
        HOEvent event;
        q->RenderFinishedSignal.fire(q, &event);
    };
    renderer = std::make_unique<HOMapRenderer>(&cancel, std::move(callbacks));
}

template <class Change>
bool HOMapView::Private::navigate(Change change, int renderDelayMs) {
    HORect oldExtent, newExtent;
    double oldScale = 0.0, newScale = 0.0;
    {
        std::lock_guard<std::mutex> lock(mutex);
        oldExtent = viewport.Extent();
        oldScale = viewport.IsDrawable() ? viewport.UnitsPerPixel() : 0.0;
        if (!change(viewport)) return false;
        newExtent = viewport.Extent();
        newScale = viewport.IsDrawable() ? viewport.UnitsPerPixel() : 0.0;
        display.SetDisplayTransform(viewport.Transform());
        display.SetDeviceSize(viewport.Size());
    }
    if (newExtent == oldExtent && newScale == oldScale) return false;
    HOEvent event;
    if (newExtent != oldExtent) q->BoundChangedSignal.fire(q, &event);
    if (newScale != oldScale) q->ScaleChangedSignal.fire(q, &event);
    requestRender(false, {}, renderDelayMs);
    fireRedraw();  // the preview, at once
    return true;
}

void HOMapView::Private::requestRender(bool all, std::set<int> layers, int delayMs) {
    HORenderRequest request;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!map || !viewport.IsDrawable()) return;
        request.map = map;
        request.transform = viewport.Transform();
        request.size = viewport.Size();
        request.dpi = dpi;
    }
    request.redrawAll = all;
    request.redrawLayers = std::move(layers);
    renderer->Request(std::move(request), delayMs);
}

void HOMapView::Private::fitFullExtentIfNone() {
    HORefPtr<HOMap> shown;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (viewport.HasExtent() || !viewport.Extent().IsEmpty()) return;
        shown = map;
    }
    if (!shown) return;
    const HORect full = shown->GetFullExtent();
    navigate([&](HOViewport& v) { return !v.HasExtent() && v.Extent().IsEmpty() && v.Fit(full); });
}

double HOMapView::Private::metresPerUnit() const {
    HORefPtr<HOMap> shown;
    {
        std::lock_guard<std::mutex> lock(mutex);
        shown = map;
    }
    const HORefPtr<HOCoordinateSystem> system = shown ? shown->GetSpatialReference() : nullptr;
    return HOMapScale::MetresPerUnit(system ? system->GetUnit() : HOUnitMeter);
}

double HOMapView::Private::currentDpi() const {
    std::lock_guard<std::mutex> lock(mutex);
    return dpi;
}

void HOMapView::Private::fireRedraw() {
    HOEvent event;
    q->RedrawSignal.fire(q, &event);
}

void HOMapView::Private::compose(HOGraphics& surface) {
    HORefPtr<HOMap> shownMap;
    HORefPtr<HOTool> currentTool;
    HODisplayTransform shown;
    HOSize size;
    HOMapRulerAndGrid gridSettings;
    std::optional<HOTwinkle> flash;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!map || !viewport.IsDrawable()) return;
        shownMap = map;
        currentTool = tool;
        shown = viewport.Transform();
        // While panning, the picture follows the mouse: draw as if the view had moved already.
        shown.extentLeft -= panOffset.x() * shown.unitsPerPixel;
        shown.extentTop += panOffset.y() * shown.unitsPerPixel;
        size = viewport.Size();
        gridSettings = gridShown;
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
    context.transform = shown;
    context.size = size;
    const HOPoint bottomRight = shown.ToMap(size.width, size.height);
    context.extent = HORect(shown.extentLeft, bottomRight.x, bottomRight.y, shown.extentTop);
    shownMap->GetGraphicsLayer()->Render(context);

    if (flash && flash->IsShownAt(HOTwinkle::Clock::now())) {
        HOGeometryPainter geometryPainter(painter, shown);
        if (flash->Style())
            geometryPainter.Draw(flash->Geometry(), flash->Style());
        else
            geometryPainter.DrawHighlight(flash->Geometry(), QColor(255, 0, 0), 3.0);
    }
    if (currentTool) currentTool->DrawToolPaint(painter, shown);
    if (HOMapGridOverlay::IsEnabled(gridSettings)) HOMapGridOverlay::Draw(painter, gridSettings, shown, size);
}

bool HOMapView::Private::middleDragOffset(int x, int y, QPoint* offset, bool end) {
    std::lock_guard<std::mutex> lock(mutex);
    if (!middleDrag) return false;
    middleDrag = !end;
    *offset = QPoint(x, y) - panStart;
    return true;
}

void HOMapView::Private::onLayersChanged(void*, HOEvent*) {
    fitFullExtentIfNone();
    requestRender(false, {}, 0);
}

HOMapView::HOMapView(const HOString& name) : d(std::make_unique<Private>(this, name)) {}

HOMapView::~HOMapView() {
    // No map callback may reach a view being destroyed, and no render may outlive it.
    if (d->map) HOUnbindMember(d->map->LayersChangedSignal, d.get(), &Private::onLayersChanged);
    d->renderer.reset();
    if (d->tool && d->tool->GetView() == this) d->tool->SetView(nullptr);
}

bool HOMapView::KeyDown(int key) {
    HOTool* tool = GetCurrentTool();
    return tool && tool->OnKeyDown(key);
}

void HOMapView::MouseDown(int button, int x, int y) {
    if (button == kPanButton) {
        {
            std::lock_guard<std::mutex> lock(d->mutex);
            d->panStart = QPoint(x, y);
            d->middleDrag = true;
        }
        BeginPan();
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseDown(button, x, y);
}

void HOMapView::MouseUp(int button, int x, int y) {
    if (button == kPanButton) {
        QPoint offset;
        if (d->middleDragOffset(x, y, &offset, true)) EndPan(offset.x(), offset.y());
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseUp(button, x, y);
}

void HOMapView::MouseMove(int button, int x, int y) {
    if (button == kPanButton) {
        QPoint offset;
        if (d->middleDragOffset(x, y, &offset, false)) PanTo(offset.x(), offset.y());
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseMove(button, x, y);
}

void HOMapView::DoubleClick(int button, int x, int y) {
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnDoubleClick(button, x, y);
}

void HOMapView::Wheel(int, int delta, int x, int y) {
    if (delta == 0) return;
    const HOPoint at = GetDisplayTransform().ToMap(x, y);
    // A notch (120) halves or doubles the scale; finer wheels and touchpads zoom in proportion.
    ZoomByFactor(std::pow(kZoomStep, -delta / kWheelNotch), &at);
}

void HOMapView::SetSize(int width, int height) {
    const double dpi = HOMapScale::ScreenDpi();
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        d->dpi = dpi;
    }
    d->navigate(
        [&](HOViewport& v) {
            if (v.Size() == HOSize(width, height)) return false;
            v.SetSize(HOSize(width, height));
            return true;
        },
        kResizeDelayMs);
    d->fitFullExtentIfNone();
}

void HOMapView::DrawTo(HOGraphics* surface, int) {
    Draw(surface);
}

void HOMapView::SetSize(const HOSize& size) {
    SetSize(size.width, size.height);
}

HORect HOMapView::GetExtent() {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->viewport.Extent();
}

void HOMapView::SetExtent(const HORect& extent) {
    d->navigate([&](HOViewport& v) { return v.Fit(extent); });
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

HOPoint HOMapView::GetCenter() {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->viewport.HasExtent() ? d->viewport.Center() : d->viewport.Extent().Center();
}

double HOMapView::GetScale() {
    double unitsPerPixel = 0.0;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        if (!d->viewport.IsDrawable()) return 0.0;
        unitsPerPixel = d->viewport.UnitsPerPixel();
    }
    return HOMapScale::Denominator(unitsPerPixel, d->metresPerUnit(), d->currentDpi());
}

void HOMapView::SetScale(double denominator) {
    const double unitsPerPixel = HOMapScale::UnitsPerPixel(denominator, d->metresPerUnit(), d->currentDpi());
    d->navigate([&](HOViewport& v) { return v.SetUnitsPerPixel(unitsPerPixel); });
}

void HOMapView::SetCurrentTool(HOTool* tool) {
    HORefPtr<HOTool> old;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        old = d->tool;
        d->tool = tool;
    }
    if (old && old != tool && old->GetView() == this) old->SetView(nullptr);
    if (tool) tool->SetView(this);
    d->fireRedraw();  // the old tool's drawing goes
}

void HOMapView::ZoomIn() {
    ZoomByFactor(1.0 / kZoomStep, nullptr);
}

void HOMapView::ZoomOut() {
    ZoomByFactor(kZoomStep, nullptr);
}

void HOMapView::ZoomByFactor(double factor, const HOPoint* centre) {
    d->navigate([&](HOViewport& v) { return v.ZoomByFactor(factor, centre ? *centre : v.Center()); });
}

HODisplay* HOMapView::GetScreenDisplay() {
    return &d->display;
}

HODisplayTransform HOMapView::GetDisplayTransform() {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->viewport.Transform();
}

void HOMapView::SetToolBuddy(HOToolBuddy* buddy) {
    std::lock_guard<std::mutex> lock(d->mutex);
    d->buddy = buddy;
}

void HOMapView::ResizeRefresh(int delayMs) {
    d->fitFullExtentIfNone();
    d->requestRender(false, {}, delayMs);
}

HOTool* HOMapView::GetCurrentTool() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->tool.get();
}

HOToolBuddy* HOMapView::GetToolBuddy() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->buddy;
}

HOString HOMapView::GetName() const {
    return d->name;
}

HOMap* HOMapView::GetMap() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->map.get();
}

void HOMapView::SetMap(HOMap* map) {
    HORefPtr<HOMap> old;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        if (d->map.get() == map) return;
        old = d->map;
        d->map = map;
    }
    if (old) HOUnbindMember(old->LayersChangedSignal, d.get(), &Private::onLayersChanged);
    if (map) HOBindMember(map->LayersChangedSignal, d.get(), &Private::onLayersChanged);
    // Waits (a few milliseconds) so that no picture of the old map is published after this.
    d->renderer->Stop(true);
    d->renderer->ClearFrame();
    const HORect full = map ? map->GetFullExtent() : HORect();
    const bool moved = d->navigate([&](HOViewport& v) {
        HOViewport fresh;
        fresh.SetSize(v.Size());
        fresh.Fit(full);
        v = fresh;
        return true;
    });
    if (!moved) d->requestRender(false, {}, 0);
}

void HOMapView::Draw(HOGraphics* surface) {
    if (!surface || surface->Image().isNull()) return;
    d->compose(*surface);
    surface->End();
}

void HOMapView::RefreshMap(bool, const HORect&) {
    d->fitFullExtentIfNone();
    d->requestRender(true, {}, 0);
}

void HOMapView::Refresh(HOLayer* layer, HOMapCache::CacheType cacheType, const HORect& area) {
    if (cacheType == HOMapCache::CacheAll) {
        RefreshMap(true, area);
    } else if (!layer || cacheType == HOMapCache::CacheGraphics ||
               layer->GetLayerType() == HOLayer::GraphicsLayer) {
        d->fireRedraw();  // the graphics layer is drawn on every Draw
    } else {
        d->requestRender(false, {layer->GetLayerId()}, 0);
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
    if (!changed.empty()) d->requestRender(false, std::move(changed), 0);
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
        std::lock_guard<std::mutex> lock(d->mutex);
        d->twinkle = flash;
    }
    for (const auto& when : flash.Changes()) d->renderer->RedrawAt(when);
    d->fireRedraw();
}

void HOMapView::RequestRedraw(bool all) {
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        d->gridShown = d->grid;
    }
    if (all)
        RefreshMap(true, HORect());
    else
        d->fireRedraw();
}

void HOMapView::ZoomToFullExtent() {
    HOMap* map = GetMap();
    if (map) SetExtent(map->GetFullExtent());
}

bool HOMapView::IsRendering() const {
    return d->renderer->IsBusy();
}

void HOMapView::BeginPan() {
    std::lock_guard<std::mutex> lock(d->mutex);
    d->panOffset = QPoint();
}

void HOMapView::PanTo(int dx, int dy) {
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        d->panOffset = QPoint(dx, dy);
    }
    d->fireRedraw();
}

void HOMapView::EndPan(int dx, int dy) {
    const bool moved = d->navigate([&](HOViewport& v) {
        d->panOffset = QPoint();
        const double upp = v.UnitsPerPixel();
        return v.SetCenter(HOPoint(v.Center().x - dx * upp, v.Center().y + dy * upp));
    });
    if (!moved) d->fireRedraw();
}

void HOMapView::RefreshToolPaint() {
    d->fireRedraw();
}

}  // namespace HXObjects
