#include "HOPageLayoutView.h"

#include <QCoreApplication>
#include <QPainter>
#include <QThread>
#include <algorithm>
#include <atomic>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOFileFunc.h"
#include "HOGraphics.h"
#include "HOLayoutDocument.h"
#include "HOMapView.h"
#include "HOPageSelectionMarks.h"
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

    HOPageLayoutView* q;
    HOGraphicsContainer container;

    // Guarded by the view's lock.
    HORefPtr<HOPageLayoutBaseElement> operating;
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
    for (const auto& element : container.GetElements()) {
        element->draw(painter, context);
        if (std::find(selected.begin(), selected.end(), element) == selected.end()) continue;
        HOPageSelectionMarks::Draw(painter, context.ToDevice(element->get_bounds()));
    }
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
    return true;
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
