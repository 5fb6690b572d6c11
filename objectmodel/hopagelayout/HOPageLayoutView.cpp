#include "HOPageLayoutView.h"

#include <QPainter>
#include <QThread>
#include <algorithm>
#include <atomic>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOGraphics.h"
#include "HOMapView.h"
#include "HOViewport.h"

namespace HXObjects {

namespace {
// A4 landscape in millimetres. Page coordinates grow rightwards and upwards from the page's
// bottom-left corner, as map coordinates do, so one display transform serves pages and maps.
const HORect kPage(0.0, 297.0, 0.0, 210.0);
constexpr double kMargin = 10.0;
constexpr double kDeskAround = 0.05;  // of the page's size, shown around it when the whole page fits
constexpr double kMetresPerPageUnit = 0.001;
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

    void layoutFrames();
    std::vector<HODataFrame*> frames() const;
    void forwardRedraws(HOMapView* view);
    void stopForwarding(HOMapView* view);
    void onMapRedraw(void* sender, HOEvent* event);
    void drawPage(QPainter& painter);

    HOPageLayoutView* q;
    HOGraphicsContainer container;

    // Guarded by the view's lock.
    HORefPtr<HOPageLayoutBaseElement> operating;
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

void HOPageLayoutView::Private::drawPage(QPainter& painter) {
    HODisplayTransform transform;
    HOSize size;
    {
        std::lock_guard<std::mutex> lock(q->Mutex());
        const HOViewport& viewport = q->LockedViewport();
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

HOPageLayoutView::HOPageLayoutView() : HOViewportView(pageWithDesk()), d(std::make_unique<Private>(this)) {}

HOPageLayoutView::~HOPageLayoutView() {
    std::vector<HORefPtr<HOMapView>> forwarded;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        forwarded = d->forwarded;
    }
    for (const auto& view : forwarded) d->stopForwarding(view);
}

void HOPageLayoutView::DrawTo(HOGraphics* surface, int) {
    QPainter* painter = surface ? surface->Painter() : nullptr;
    if (!painter) return;
    d->drawPage(*painter);
    surface->End();
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

// Layout files have no format yet.
bool HOPageLayoutView::open(HOFileFunc*, double) {
    return false;
}

bool HOPageLayoutView::save(HOFileFunc*, double) {
    return false;
}

}  // namespace HXObjects
