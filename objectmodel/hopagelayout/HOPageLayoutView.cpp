#include "HOPageLayoutView.h"

#include <QCoreApplication>
#include <QPainter>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <optional>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOFileFunc.h"
#include "HOGraphics.h"
#include "HOLayoutDocument.h"
#include "HOMapView.h"
#include "HOPageElementDrag.h"
#include "HOPageSelectionMarks.h"
#include "HORubberBandTool.h"
#include "HOTool.h"
#include "HOViewport.h"

namespace HXObjects {

namespace {
// Page coordinates are millimetres growing rightwards and upwards from the page's bottom-left corner,
// as map coordinates do, so one display transform serves pages and maps.
constexpr double kMmPerInch = 25.4;
constexpr double kDeskAround = 0.05;  // of the page's size, shown around it when the whole page fits
constexpr double kMetresPerPageUnit = 0.001;
constexpr int kShadow = 4;
const QColor kDesk(160, 160, 160);
const QColor kShadowColor(90, 90, 90);

HORect pageWithDesk(const HOPageSetup& setup) {
    const HORect page = setup.PageRect();
    const double dx = page.Width() * kDeskAround, dy = page.Height() * kDeskAround;
    return {page.minx - dx, page.maxx + dx, page.miny - dy, page.maxy + dy};
}
}  // namespace

class HOPageLayoutView::Private {
public:
    explicit Private(HOPageLayoutView* view);

    void layoutFrames();
    std::vector<HODataFrame*> frames() const;
    void forwardRedraws(HOMapView* view);
    void stopForwarding(HOMapView* view);
    void onMapRedraw(void* sender, HOEvent* event);
    void drawDesk(QPainter& painter, const HOPageRenderContext& context, const HOSize& size);
    void drawElements(QPainter& painter, const HOPageRenderContext& context);
    HOPageRenderContext screenContext() const;
    // The active frame's map view and the pixel in it, when the pixel is inside the active frame.
    HOMapView* activeViewAt(int x, int y, QPoint* local) const;
    // What the left button does on the page with the current tool.
    enum class LeftButton { PanPage, ZoomIn, ZoomOut, EditElements };
    LeftButton leftButton() const;

    HOPageElementDrag drag;        // GUI thread only
    bool panningWithTool = false;  // the pan tool's left drag is moving the page
    // The zoom-in tool's press on the page and the box dragged from it (device pixels; GUI thread only).
    std::optional<QPoint> zoomPress;
    QRect zoomBand;
    void endZoomIn(int x, int y);

    HOPageLayoutView* q;
    HOGraphicsContainer container;

    // Guarded by the view's lock.
    HORefPtr<HOPageLayoutBaseElement> operating;
    HORefPtr<HODataFrame> active;
    HOPageSetup setup;
    HOPoint panCentre;                           // where the page was when the middle-button drag started
    std::vector<HORefPtr<HOMapView>> forwarded;  // map views whose redraws become the page's

    std::atomic<bool> redrawQueued{false};
    // Lives on the thread that made the page (whose event loop delivers map redraws); destroyed first,
    // which drops a redraw still queued.
    QObject relay;
};

HOPageLayoutView::Private::Private(HOPageLayoutView* view) : q(view) {}

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
        std::lock_guard<std::mutex> lock(q->Mutex());
        if (!q->LockedViewport().IsDrawable()) return;
        transform = q->LockedViewport().Transform();
    }
    // The container keeps its elements alive; a frame removed meanwhile is laid out harmlessly.
    for (HODataFrame* frame : frames()) frame->set_page_transform(transform);
}

void HOPageLayoutView::Private::forwardRedraws(HOMapView* view) {
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        if (!view || std::find(forwarded.begin(), forwarded.end(), view) != forwarded.end()) return;
        forwarded.emplace_back(view);
    }
    HOBindMember(view->RedrawSignal, this, &Private::onMapRedraw);
}

void HOPageLayoutView::Private::stopForwarding(HOMapView* view) {
    HORefPtr<HOMapView> kept;  // released after unbinding
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
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
        q->FireRedraw();
        return;
    }
    if (redrawQueued.exchange(true)) return;
    QMetaObject::invokeMethod(
        &relay,
        [this] {
            redrawQueued = false;
            q->FireRedraw();
        },
        Qt::QueuedConnection);
}

void HOPageLayoutView::Private::drawDesk(QPainter& painter, const HOPageRenderContext& context,
                                         const HOSize& size) {
    HORect page;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        page = setup.PageRect();
    }
    painter.fillRect(QRect(0, 0, size.width, size.height), kDesk);
    const QRectF sheet = context.ToDevice(page);
    painter.fillRect(sheet.translated(kShadow, kShadow), kShadowColor);
    painter.fillRect(sheet, Qt::white);
}

void HOPageLayoutView::Private::drawElements(QPainter& painter, const HOPageRenderContext& context) {
    const auto selected = context.output ? decltype(container.GetSelectedElements(true))()
                                         : container.GetSelectedElements(true);
    HORefPtr<HODataFrame> activeFrame;
    if (!context.output) {
        std::lock_guard<std::mutex> lock(q->Mutex());
        activeFrame = active;
    }
    for (const auto& element : container.GetElements()) {
        element->draw(painter, context);
        if (element == activeFrame)
            HOPageSelectionMarks::DrawActive(painter, context.ToDevice(element->get_bounds()));
        if (std::find(selected.begin(), selected.end(), element) == selected.end()) continue;
        HOPageSelectionMarks::Draw(painter, context.ToDevice(element->get_bounds()));
    }
}

HOPageRenderContext HOPageLayoutView::Private::screenContext() const {
    HOPageRenderContext context;
    context.transform = q->GetDisplayTransform();
    return context;
}

HOMapView* HOPageLayoutView::Private::activeViewAt(int x, int y, QPoint* local) const {
    HORefPtr<HODataFrame> frame = q->get_active_data_frame();
    if (!frame) return nullptr;
    const QRectF rect = screenContext().ToDevice(frame->get_bounds());
    if (!rect.contains(QPointF(x, y))) return nullptr;
    *local = QPoint(x - qRound(rect.left()), y - qRound(rect.top()));
    return frame->get_map_view();
}

HOPageLayoutView::Private::LeftButton HOPageLayoutView::Private::leftButton() const {
    HOTool* tool = q->GetCurrentTool();
    const HOString name = tool ? tool->GetClassName() : HOString();
    if (name == "HXObjects::HOToolPan") return LeftButton::PanPage;
    if (name == "HXObjects::HOToolZoomIn") return LeftButton::ZoomIn;
    if (name == "HXObjects::HOToolZoomOut") return LeftButton::ZoomOut;
    return LeftButton::EditElements;
}

HOPageLayoutView::HOPageLayoutView()
    : HOViewportView(pageWithDesk(HOPageSetup())), d(std::make_unique<Private>(this)) {}

HOPageLayoutView::~HOPageLayoutView() {
    std::vector<HORefPtr<HOMapView>> forwarded;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        forwarded = d->forwarded;
    }
    for (const auto& view : forwarded) d->stopForwarding(view);
}

namespace {
constexpr int kLeft = 1, kPan = 3;
constexpr double kToolZoomStep = 2.0;
}  // namespace

void HOPageLayoutView::MouseDown(int button, int x, int y) {
    QPoint local;
    if (HOMapView* view = d->activeViewAt(x, y, &local)) {
        view->MouseDown(button, local.x(), local.y());
        return;
    }
    if (button == kLeft && get_active_data_frame()) ActivateDataFrame(nullptr);  // pressed outside it
    if (button != kLeft) {
        HOViewportView::MouseDown(button, x, y);
        return;
    }
    const HOPoint at = GetDisplayTransform().ToMap(x, y);
    switch (d->leftButton()) {
        case Private::LeftButton::PanPage:
            d->panningWithTool = true;
            HOViewportView::MouseDown(kPan, x, y);
            break;
        case Private::LeftButton::ZoomIn:
            d->zoomPress = QPoint(x, y);
            break;
        case Private::LeftButton::ZoomOut:
            ZoomByFactor(kToolZoomStep, &at);
            break;
        case Private::LeftButton::EditElements:
            d->drag.Begin(d->container, d->screenContext(), QPointF(x, y));
            FireRedraw();
            break;
    }
}

void HOPageLayoutView::MouseMove(int button, int x, int y) {
    QPoint local;
    if (d->panningWithTool) {
        HOViewportView::MouseMove(kPan, x, y);
    } else if (d->zoomPress) {
        const QPoint& press = *d->zoomPress;
        d->zoomBand = HORubberBandTool::IsBox(press.x(), press.y(), x, y)
                          ? QRect(press, QPoint(x, y)).normalized()
                          : QRect();
        FireRedraw();
    } else if (d->drag.IsActive()) {
        if (!d->drag.MoveTo(d->screenContext(), QPointF(x, y))) return;
        d->layoutFrames();
        FireRedraw();
    } else if (HOMapView* view = d->activeViewAt(x, y, &local)) {
        view->MouseMove(button, local.x(), local.y());
    } else {
        HOViewportView::MouseMove(button, x, y);
    }
}

void HOPageLayoutView::MouseUp(int button, int x, int y) {
    QPoint local;
    if (button == kLeft && d->panningWithTool) {
        d->panningWithTool = false;
        HOViewportView::MouseUp(kPan, x, y);
    } else if (button == kLeft && d->zoomPress) {
        d->endZoomIn(x, y);
    } else if (button == kLeft && d->drag.IsActive()) {
        d->drag.End();
    } else if (HOMapView* view = d->activeViewAt(x, y, &local)) {
        view->MouseUp(button, local.x(), local.y());
    } else {
        HOViewportView::MouseUp(button, x, y);
    }
}

void HOPageLayoutView::Private::endZoomIn(int x, int y) {
    const QPoint press = *zoomPress;
    zoomPress.reset();
    zoomBand = QRect();
    HODisplayTransform transform;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        if (!q->LockedViewport().IsDrawable()) return;  // a page not on screen has no pixels to zoom to
        transform = q->LockedViewport().Transform();
    }
    const HOPoint a = transform.ToMap(press.x(), press.y());
    if (!HORubberBandTool::IsBox(press.x(), press.y(), x, y)) {
        q->ZoomByFactor(1.0 / kToolZoomStep, &a);
        return;
    }
    const HOPoint b = transform.ToMap(x, y);
    q->SetExtent(HORect(std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.y, b.y)));
}

void HOPageLayoutView::DoubleClick(int button, int x, int y) {
    QPoint local;
    if (HOMapView* view = d->activeViewAt(x, y, &local)) {
        view->DoubleClick(button, local.x(), local.y());
        return;
    }
    if (button != kLeft) return;
    const auto hit = d->container.LocateElements(GetDisplayTransform().ToMap(x, y), 0.0);
    for (auto it = hit.rbegin(); it != hit.rend(); ++it) {
        if (auto* frame = dynamic_cast<HODataFrame*>(it->get())) {
            ActivateDataFrame(frame);
            return;
        }
    }
    ActivateDataFrame(nullptr);
}

void HOPageLayoutView::Wheel(int reserved, int delta, int x, int y) {
    QPoint local;
    if (HOMapView* view = d->activeViewAt(x, y, &local))
        view->Wheel(reserved, delta, local.x(), local.y());
    else
        HOViewportView::Wheel(reserved, delta, x, y);
}

void HOPageLayoutView::SetCurrentTool(HOTool* tool) {
    HOViewportView::SetCurrentTool(tool);
    // The active frame's map works with the page's tool.
    if (HORefPtr<HODataFrame> frame = get_active_data_frame())
        if (HOMapView* view = frame->get_map_view()) view->SetCurrentTool(tool);
}

HORefPtr<HODataFrame> HOPageLayoutView::get_active_data_frame() const {
    std::lock_guard<std::mutex> lock(Mutex());
    return d->active;
}

void HOPageLayoutView::ActivateDataFrame(HODataFrame* frame) {
    HORefPtr<HODataFrame> previous;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        if (d->active.get() == frame) return;
        previous = d->active;
        d->active = frame;
        if (frame) d->operating = frame;
    }
    HORefPtr<HOTool> tool = GetCurrentTool();
    if (previous && previous->get_map_view()) previous->get_map_view()->SetCurrentTool(nullptr);
    if (frame && frame->get_map_view()) frame->get_map_view()->SetCurrentTool(tool);
    if (!frame && tool) tool->SetView(this);
    if (frame) d->container.AddElement(frame);
    HOEvent event;
    ActiveElementChangedSignal.fire(this, &event);
    FireRedraw();
}

void HOPageLayoutView::DrawTo(HOGraphics* surface, int) {
    QPainter* painter = surface ? surface->Painter() : nullptr;
    if (!painter) return;
    HOPageRenderContext context;
    HOSize size;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        const HOViewport& viewport = LockedViewport();
        if (viewport.IsDrawable()) {
            context.transform = viewport.Transform();
            context.dpi = LockedDpi();
            size = viewport.Size();
        }
    }
    if (size.width > 0) {
        d->drawDesk(*painter, context, size);
        d->drawElements(*painter, context);
        if (!d->zoomBand.isEmpty()) HORubberBandTool::DrawBand(*painter, d->zoomBand);
    }
    surface->End();
}

void HOPageLayoutView::Print(QPainter& painter, double dpi) {
    const HOPageSetup setup = GetPageSetup();
    HOPageRenderContext context;
    context.output = true;
    context.dpi = dpi;
    context.transform.extentTop = setup.Height();
    context.transform.unitsPerPixel = kMmPerInch / dpi;
    painter.save();
    painter.setClipRect(context.ToDevice(setup.PageRect()));
    d->drawElements(painter, context);
    painter.restore();
}

HOPageSetup HOPageLayoutView::GetPageSetup() const {
    std::lock_guard<std::mutex> lock(Mutex());
    return d->setup;
}

void HOPageLayoutView::SetPageSetup(const HOPageSetup& setup) {
    {
        std::lock_guard<std::mutex> lock(Mutex());
        if (d->setup == setup) return;
        d->setup = setup;
    }
    Navigate([&](HOViewport& v) { return v.Fit(pageWithDesk(setup)); });
    FireRedraw();
}

void HOPageLayoutView::RefreshView(bool all) {
    d->layoutFrames();
    if (all) {
        for (HODataFrame* frame : d->frames()) {
            if (HOMapView* view = frame->get_map_view()) view->RefreshMap(true, HORect());
        }
    }
    FireRedraw();
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

void HOPageLayoutView::ResizeRefresh(int) {
    d->layoutFrames();
    FireRedraw();
}

void HOPageLayoutView::OnNavigated(int) {
    d->layoutFrames();
}

double HOPageLayoutView::MetresPerUnit() const {
    return kMetresPerPageUnit;
}

void HOPageLayoutView::OnPanStarted() {
    std::lock_guard<std::mutex> lock(Mutex());
    d->panCentre = LockedViewport().Center();
}

void HOPageLayoutView::OnPanDragged(int dx, int dy, bool) {
    // The page follows the mouse; it is cheap to draw, so it moves for real.
    Navigate([&](HOViewport& v) {
        const double upp = v.UnitsPerPixel();
        return v.SetCenter(HOPoint(d->panCentre.x - dx * upp, d->panCentre.y + dy * upp));
    });
}

void HOPageLayoutView::SwitchToLayoutView(HOMapView* view) {
    HORefPtr<HODataFrame> frame(dynamic_cast<HODataFrame*>(get_operating_data_frame().get()));
    if (!frame) {
        frame = new HODataFrame;
        frame->set_bounds(GetPageSetup().PrintableRect());
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
    FireRedraw();
}

HORefPtr<HOPageLayoutBaseElement> HOPageLayoutView::get_operating_data_frame() const {
    std::lock_guard<std::mutex> lock(Mutex());
    return d->operating;
}

void HOPageLayoutView::set_operating_data_frame(HOPageLayoutBaseElement* element) {
    {
        std::lock_guard<std::mutex> lock(Mutex());
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

bool HOPageLayoutView::open(HOFileFunc* file, double) {
    HOLayoutDocument::Contents contents;
    if (!file || !HOLayoutDocument::Load(*file, &contents)) return false;
    Install(std::move(contents));
    return true;
}

void HOPageLayoutView::Install(HOLayoutDocument::Contents contents) {
    ActivateDataFrame(nullptr);
    std::vector<HORefPtr<HOMapView>> forwarded;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        forwarded = d->forwarded;
    }
    for (const auto& view : forwarded) d->stopForwarding(view);
    for (const auto& element : d->container.GetElements()) d->container.RemoveElement(element);
    for (const auto& element : contents.elements) d->container.AddElement(element);
    for (HODataFrame* frame : d->frames()) d->forwardRedraws(frame->get_map_view());
    SetPageSetup(contents.setup);
    set_operating_data_frame(contents.operating);
    RefreshView(false);
}

bool HOPageLayoutView::save(HOFileFunc* file, double version) {
    if (!file) return false;
    if (version > HOLayoutDocument::kVersion) {
        file->SetError(QCoreApplication::translate("HOPageLayoutView", "layout version %1 cannot be written")
                           .arg(version));
        return false;
    }
    return HOLayoutDocument::Save(*this, *file);
}

}  // namespace HXObjects
