#include "HOPageLayoutView.h"

#include <QPainter>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <cmath>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOGraphics.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOTool.h"
#include "HOViewport.h"

namespace HXObjects {

namespace {
// A4 landscape in millimetres. Page coordinates grow rightwards and upwards from the page's
// bottom-left corner, as map coordinates do, so one display transform serves pages and maps.
const HORect kPage(0.0, 297.0, 0.0, 210.0);
constexpr double kMargin = 10.0;
constexpr double kDeskAround = 0.05;  // of the page's size, shown around it when the whole page fits
constexpr double kMetresPerPageUnit = 0.001;
constexpr double kZoomStep = 2.0;
constexpr double kWheelNotch = 120.0;
constexpr int kPanButton = 3;
constexpr int kShadow = 4;
const QColor kDesk(160, 160, 160);
const QColor kShadowColor(90, 90, 90);

HORect pageWithDesk() {
    const double dx = kPage.Width() * kDeskAround, dy = kPage.Height() * kDeskAround;
    return {kPage.minx - dx, kPage.maxx + dx, kPage.miny - dy, kPage.maxy + dy};
}
}  // namespace

class HOPageLayoutView::Private {
public:
    explicit Private(HOPageLayoutView* view);

    // Applies a change of where the page is on screen; fires ScaleChangedSignal when the zoom really
    // changed, lays the data frames out again and asks for a redraw.
    template <class Change>
    bool navigate(Change change);
    void layoutFrames();
    std::vector<HODataFrame*> frames() const;
    void forwardRedraws(HOMapView* view);
    void stopForwarding(HOMapView* view);
    void onMapRedraw(void* sender, HOEvent* event);
    void fireRedraw();
    void drawPage(QPainter& painter);

    HOPageLayoutView* q;
    HOGraphicsContainer container;
    HODisplay display;  // mirrors the viewport

    mutable std::mutex mutex;  // guards the members below
    HOViewport viewport;
    double dpi = 96.0;
    HORefPtr<HOPageLayoutBaseElement> operating;
    HORefPtr<HOTool> tool;
    HOToolBuddy* buddy = nullptr;
    QPoint panStart;
    HOPoint panCentre;
    std::vector<HORefPtr<HOMapView>> forwarded;  // map views whose redraws become the page's

    std::atomic<bool> redrawQueued{false};
    // Lives on the thread that made the page (whose event loop delivers map redraws); destroyed first,
    // which drops a redraw still queued.
    QObject relay;
};

HOPageLayoutView::Private::Private(HOPageLayoutView* view) : q(view), dpi(HOMapScale::ScreenDpi()) {
    viewport.Fit(pageWithDesk());
}

template <class Change>
bool HOPageLayoutView::Private::navigate(Change change) {
    double oldScale = 0.0, newScale = 0.0;
    bool moved = false;
    {
        std::lock_guard<std::mutex> lock(mutex);
        const HORect oldExtent = viewport.Extent();
        oldScale = viewport.IsDrawable() ? viewport.UnitsPerPixel() : 0.0;
        if (!change(viewport)) return false;
        newScale = viewport.IsDrawable() ? viewport.UnitsPerPixel() : 0.0;
        moved = viewport.Extent() != oldExtent || newScale != oldScale;
        display.SetDisplayTransform(viewport.Transform());
        display.SetDeviceSize(viewport.Size());
    }
    if (!moved) return false;
    if (newScale != oldScale) {
        HOEvent event;
        q->ScaleChangedSignal.fire(q, &event);
    }
    layoutFrames();
    fireRedraw();
    return true;
}

std::vector<HODataFrame*> HOPageLayoutView::Private::frames() const {
    std::vector<HODataFrame*> out;
    for (const auto& element : container.GetElements()) {
        if (element->get_element_type() == HOElementDataFrame)
            out.push_back(static_cast<HODataFrame*>(element.get()));
    }
    return out;
}

void HOPageLayoutView::Private::layoutFrames() {
    HODisplayTransform transform;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!viewport.IsDrawable()) return;
        transform = viewport.Transform();
    }
    // The container keeps its elements alive; a frame removed meanwhile is laid out harmlessly.
    for (HODataFrame* frame : frames()) frame->set_page_transform(transform);
}

void HOPageLayoutView::Private::forwardRedraws(HOMapView* view) {
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!view || std::find(forwarded.begin(), forwarded.end(), view) != forwarded.end()) return;
        forwarded.emplace_back(view);
    }
    HOBindMember(view->RedrawSignal, this, &Private::onMapRedraw);
}

void HOPageLayoutView::Private::stopForwarding(HOMapView* view) {
    HORefPtr<HOMapView> kept;  // released after unbinding
    {
        std::lock_guard<std::mutex> lock(mutex);
        const auto it = std::find(forwarded.begin(), forwarded.end(), view);
        if (it == forwarded.end()) return;
        kept = *it;
        forwarded.erase(it);
    }
    HOUnbindMember(kept->RedrawSignal, this, &Private::onMapRedraw);
}

void HOPageLayoutView::Private::onMapRedraw(void*, HOEvent*) {
    // The page and its elements are edited on their own thread; drawing them there too keeps a map's
    // render thread away from them. Redraws asked for meanwhile are one redraw.
    if (QThread::currentThread() == relay.thread()) {
        fireRedraw();
        return;
    }
    if (redrawQueued.exchange(true)) return;
    QMetaObject::invokeMethod(
        &relay,
        [this] {
            redrawQueued = false;
            fireRedraw();
        },
        Qt::QueuedConnection);
}

void HOPageLayoutView::Private::fireRedraw() {
    HOEvent event;
    q->RedrawSignal.fire(q, &event);
}

void HOPageLayoutView::Private::drawPage(QPainter& painter) {
    HODisplayTransform transform;
    HOSize size;
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (!viewport.IsDrawable()) return;
        transform = viewport.Transform();
        size = viewport.Size();
    }
    painter.fillRect(QRect(0, 0, size.width, size.height), kDesk);
    const HOPoint topLeft = transform.ToDevice({kPage.minx, kPage.maxy});
    const HOPoint bottomRight = transform.ToDevice({kPage.maxx, kPage.miny});
    const QRectF page(QPointF(topLeft.x, topLeft.y), QPointF(bottomRight.x, bottomRight.y));
    painter.fillRect(page.translated(kShadow, kShadow), kShadowColor);
    painter.fillRect(page, Qt::white);

    const auto selected = container.GetSelectedElements(true);
    for (const auto& element : container.GetElements()) {
        element->draw(painter, transform);
        if (std::find(selected.begin(), selected.end(), element) == selected.end()) continue;
        const HORect b = element->get_bounds();
        const HOPoint a = transform.ToDevice({b.minx, b.maxy});
        const HOPoint c = transform.ToDevice({b.maxx, b.miny});
        painter.save();
        painter.setPen(QPen(QColor(0, 120, 215), 1.0, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(QPointF(a.x, a.y), QPointF(c.x, c.y)));
        painter.restore();
    }
}

HOPageLayoutView::HOPageLayoutView() : d(std::make_unique<Private>(this)) {}

HOPageLayoutView::~HOPageLayoutView() {
    std::vector<HORefPtr<HOMapView>> forwarded;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        forwarded = d->forwarded;
    }
    for (const auto& view : forwarded) d->stopForwarding(view);
    if (d->tool && d->tool->GetView() == this) d->tool->SetView(nullptr);
}

bool HOPageLayoutView::KeyDown(int key) {
    HOTool* tool = GetCurrentTool();
    return tool && tool->OnKeyDown(key);
}

void HOPageLayoutView::MouseDown(int button, int x, int y) {
    if (button == kPanButton) {
        std::lock_guard<std::mutex> lock(d->mutex);
        d->panStart = QPoint(x, y);
        d->panCentre = d->viewport.Center();
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseDown(button, x, y);
}

void HOPageLayoutView::MouseUp(int button, int x, int y) {
    if (button == kPanButton) {
        MouseMove(button, x, y);
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseUp(button, x, y);
}

void HOPageLayoutView::MouseMove(int button, int x, int y) {
    if (button == kPanButton) {
        // The page follows the mouse; it is cheap to draw, so it moves for real.
        d->navigate([&](HOViewport& v) {
            const double upp = v.UnitsPerPixel();
            return v.SetCenter(HOPoint(d->panCentre.x - (x - d->panStart.x()) * upp,
                                       d->panCentre.y + (y - d->panStart.y()) * upp));
        });
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseMove(button, x, y);
}

void HOPageLayoutView::DoubleClick(int button, int x, int y) {
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnDoubleClick(button, x, y);
}

void HOPageLayoutView::Wheel(int, int delta, int x, int y) {
    if (delta == 0) return;
    const HOPoint at = GetDisplayTransform().ToMap(x, y);
    ZoomByFactor(std::pow(kZoomStep, -delta / kWheelNotch), &at);
}

void HOPageLayoutView::SetSize(int width, int height) {
    const double dpi = HOMapScale::ScreenDpi();
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        d->dpi = dpi;
    }
    d->navigate([&](HOViewport& v) {
        if (v.Size() == HOSize(width, height)) return false;
        v.SetSize(HOSize(width, height));
        return true;
    });
}

void HOPageLayoutView::DrawTo(HOGraphics* surface, int) {
    QPainter* painter = surface ? surface->Painter() : nullptr;
    if (!painter) return;
    d->drawPage(*painter);
    surface->End();
}

void HOPageLayoutView::SetSize(const HOSize& size) {
    SetSize(size.width, size.height);
}

HORect HOPageLayoutView::GetExtent() {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->viewport.Extent();
}

void HOPageLayoutView::SetExtent(const HORect& extent) {
    d->navigate([&](HOViewport& v) { return v.Fit(extent); });
}

void HOPageLayoutView::RefreshView(bool all) {
    d->layoutFrames();
    if (all) {
        for (HODataFrame* frame : d->frames()) {
            if (HOMapView* view = frame->get_map_view()) view->RefreshMap(true, HORect());
        }
    }
    d->fireRedraw();
}

void HOPageLayoutView::PauseRender() {
    for (HODataFrame* frame : d->frames()) {
        if (HOMapView* view = frame->get_map_view()) view->PauseRender();
    }
}

void HOPageLayoutView::ResumeRender() {
    for (HODataFrame* frame : d->frames()) {
        if (HOMapView* view = frame->get_map_view()) view->ResumeRender();
    }
}

HOPoint HOPageLayoutView::GetCenter() {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->viewport.Center();
}

double HOPageLayoutView::GetScale() {
    std::lock_guard<std::mutex> lock(d->mutex);
    if (!d->viewport.IsDrawable()) return 0.0;
    return HOMapScale::Denominator(d->viewport.UnitsPerPixel(), kMetresPerPageUnit, d->dpi);
}

void HOPageLayoutView::SetScale(double denominator) {
    const double dpi = [&] {
        std::lock_guard<std::mutex> lock(d->mutex);
        return d->dpi;
    }();
    const double unitsPerPixel = HOMapScale::UnitsPerPixel(denominator, kMetresPerPageUnit, dpi);
    d->navigate([&](HOViewport& v) { return v.SetUnitsPerPixel(unitsPerPixel); });
}

void HOPageLayoutView::SetCurrentTool(HOTool* tool) {
    HORefPtr<HOTool> old;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        old = d->tool;
        d->tool = tool;
    }
    if (old && old != tool && old->GetView() == this) old->SetView(nullptr);
    if (tool) tool->SetView(this);
}

void HOPageLayoutView::ZoomIn() {
    ZoomByFactor(1.0 / kZoomStep, nullptr);
}

void HOPageLayoutView::ZoomOut() {
    ZoomByFactor(kZoomStep, nullptr);
}

void HOPageLayoutView::ZoomByFactor(double factor, const HOPoint* centre) {
    d->navigate([&](HOViewport& v) { return v.ZoomByFactor(factor, centre ? *centre : v.Center()); });
}

HODisplay* HOPageLayoutView::GetScreenDisplay() {
    return &d->display;
}

HODisplayTransform HOPageLayoutView::GetDisplayTransform() {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->viewport.Transform();
}

void HOPageLayoutView::SetToolBuddy(HOToolBuddy* buddy) {
    std::lock_guard<std::mutex> lock(d->mutex);
    d->buddy = buddy;
}

void HOPageLayoutView::ResizeRefresh(int) {
    d->layoutFrames();
    d->fireRedraw();
}

HOTool* HOPageLayoutView::GetCurrentTool() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->tool.get();
}

HOToolBuddy* HOPageLayoutView::GetToolBuddy() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->buddy;
}

void HOPageLayoutView::SwitchToLayoutView(HOMapView* view) {
    HORefPtr<HODataFrame> frame(dynamic_cast<HODataFrame*>(get_operating_data_frame().get()));
    if (!frame) {
        frame = new HODataFrame;
        frame->set_off_x(kPage.minx + kMargin);
        frame->set_off_y(kPage.miny + kMargin);
        frame->set_size(kPage.Width() - 2 * kMargin, kPage.Height() - 2 * kMargin);
        d->container.AddElement(frame);
    }
    const HORefPtr<HOMapView> old = frame->get_map_view();
    if (old != view) {
        frame->set_map_view(view);
        const auto frames = d->frames();
        const bool oldStillShown = std::any_of(
            frames.begin(), frames.end(), [&](HODataFrame* f) { return f->get_map_view() == old.get(); });
        if (old && !oldStillShown) d->stopForwarding(old);
        d->forwardRedraws(view);
    }
    set_operating_data_frame(frame);
    d->layoutFrames();
    d->fireRedraw();
}

HORefPtr<HOPageLayoutBaseElement> HOPageLayoutView::get_operating_data_frame() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->operating;
}

void HOPageLayoutView::set_operating_data_frame(HOPageLayoutBaseElement* element) {
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        if (d->operating.get() == element) return;
        d->operating = element;
    }
    // An element being worked on is on the page.
    d->container.AddElement(element);
    HOEvent event;
    ActiveElementChangedSignal.fire(this, &event);
}

HOGraphicsContainer* HOPageLayoutView::get_graphicscontainer() const {
    return &d->container;
}

// Layout files have no format yet.
bool HOPageLayoutView::open(HOFileFunc*, double) {
    return false;
}

bool HOPageLayoutView::save(HOFileFunc*, double) {
    return false;
}

}  // namespace HXObjects
