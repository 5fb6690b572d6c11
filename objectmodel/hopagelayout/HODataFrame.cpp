#include "HODataFrame.h"

#include <QCoreApplication>
#include <QPainter>

#include "HOCallbackKey.h"
#include "HOCoordinateSystem.h"
#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapPainter.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOPageText.h"

namespace HXObjects {

namespace {
constexpr double kMmPerMetre = 1000.0;
}

HODataFrame::HODataFrame() : HOPageLayoutBaseElement(HOElementDataFrame) {}

HODataFrame::~HODataFrame() {
    if (m_view) HOUnbindMember(m_view->BoundChangedSignal, this, &HODataFrame::onViewMoved);
}

HOMapView* HODataFrame::get_map_view() const {
    return view().get();
}

HORefPtr<HOMapView> HODataFrame::view() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_view;
}

void HODataFrame::set_map_view(HOMapView* view) {
    HORefPtr<HOMapView> old;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_view == view) return;
        old = m_view;
        m_view = view;
        m_extent = HORect();
    }
    if (old) HOUnbindMember(old->BoundChangedSignal, this, &HODataFrame::onViewMoved);
    if (view) HOBindMember(view->BoundChangedSignal, this, &HODataFrame::onViewMoved);
}

void HODataFrame::onViewMoved(void*, HOEvent*) {
    if (m_showing) return;
    const HORefPtr<HOMapView> shown = view();
    const HORect extent = shown ? shown->GetExtent() : HORect();
    std::lock_guard<std::mutex> lock(m_mutex);
    m_extent = extent;
}

void HODataFrame::showInView(HOMapView& view, const HORect& extent, const HOSize* size) {
    m_showing = true;
    if (size) view.SetSize(*size);
    if (!extent.IsEmpty()) view.SetExtent(extent);
    m_showing = false;
}

void HODataFrame::set_note(const QString& note) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_note = note;
}

QString HODataFrame::get_note() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_note;
}

HORefPtr<HOPageLayoutBaseElement> HODataFrame::create() const {
    HORefPtr<HODataFrame> copy(new HODataFrame);
    copy->set_map_view(get_map_view());
    copy->set_note(get_note());
    return copy;
}

QRectF HODataFrame::pixel_rect(const HODisplayTransform& pageToPixels) const {
    HOPageRenderContext context;
    context.transform = pageToPixels;
    return context.ToDevice(get_bounds());
}

HODisplay* HODataFrame::get_screendisplay() const {
    const QRectF frame = pixel_rect(m_page.GetDisplayTransform());
    const HORefPtr<HOMapView> shown = view();
    HODisplayTransform transform = shown ? shown->GetDisplayTransform() : HODisplayTransform();
    transform.deviceLeft = frame.left();
    transform.deviceTop = frame.top();
    m_display.SetDisplayTransform(transform);
    m_display.SetDeviceSize(HOSize(qRound(frame.width()), qRound(frame.height())));
    return &m_display;
}

void HODataFrame::set_page_transform(const HODisplayTransform& pageToPixels) {
    m_page.SetDisplayTransform(pageToPixels);
    const HORefPtr<HOMapView> shown = view();
    if (!shown) return;
    const QRectF frame = pixel_rect(pageToPixels);
    const HOSize size(qRound(frame.width()), qRound(frame.height()));
    if (shown->GetScreenDisplay()->GetDeviceSize() == size) return;
    // The map keeps what it shows; only its pixels change with the page's zoom.
    showInView(*shown, get_map_extent(), &size);
}

HORect HODataFrame::get_map_extent() const {
    HORefPtr<HOMapView> shown;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_extent.IsEmpty()) return m_extent;
        shown = m_view;
    }
    if (!shown) return {};
    const HORect extent = shown->GetExtent();
    if (!extent.IsEmpty() || !shown->GetMap()) return extent;
    return shown->GetMap()->GetFullExtent();
}

void HODataFrame::set_map_extent(const HORect& extent) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_extent = extent;
    }
    if (const HORefPtr<HOMapView> shown = view()) showInView(*shown, extent, nullptr);
}

double HODataFrame::metresPerMapUnit() const {
    const HORefPtr<HOMapView> shown = view();
    const HORefPtr<HOCoordinateSystem> system =
        shown && shown->GetMap() ? shown->GetMap()->GetSpatialReference() : nullptr;
    return HOMapScale::MetresPerUnit(system ? system->GetUnit() : HOUnitMeter);
}

double HODataFrame::get_map_scale() const {
    const HORect extent = get_map_extent();
    if (extent.IsEmpty() || get_width() <= 0.0 || get_height() <= 0.0) return 0.0;
    // The extent fills the frame's width or its height, whichever it reaches first.
    const double unitsPerMm = std::max(extent.Width() / get_width(), extent.Height() / get_height());
    return unitsPerMm * metresPerMapUnit() * kMmPerMetre;
}

void HODataFrame::set_map_scale(double denominator) {
    const HORect extent = get_map_extent();
    if (extent.IsEmpty() || !(denominator > 0.0)) return;
    const double unitsPerMm = denominator / (metresPerMapUnit() * kMmPerMetre);
    const HOPoint c = extent.Center();
    const double hw = get_width() * unitsPerMm / 2.0, hh = get_height() * unitsPerMm / 2.0;
    set_map_extent(HORect(c.x - hw, c.x + hw, c.y - hh, c.y + hh));
}

void HODataFrame::draw(QPainter& painter, const HOPageRenderContext& context) {
    const QRectF frame = context.ToDevice(get_bounds());
    painter.save();
    drawMap(painter, context, frame);
    drawNote(painter, context, frame);
    painter.setPen(QPen(Qt::black, std::max(1.0, context.ToPixels(0.3))));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    painter.restore();
}

void HODataFrame::drawMap(QPainter& painter, const HOPageRenderContext& context, const QRectF& frame) {
    const HORefPtr<HOMapView> shown = view();
    HOMap* map = shown ? shown->GetMap() : nullptr;
    if (!map) return;
    if (!context.output) {
        const HOSize size = shown->GetScreenDisplay()->GetDeviceSize();
        HORefPtr<HOGraphics> picture(new HOGraphics);
        picture->SetSize(size.width, size.height);
        picture->Clear(map->GetBackgroundColor());
        shown->Draw(picture);
        // Scaled only while the view has not been resized to a new page zoom yet.
        if (!picture->Image().isNull()) painter.drawImage(frame, picture->Image());
        return;
    }
    const HORect extent = get_map_extent();
    const HOSize size(qMax(1, qRound(frame.width())), qMax(1, qRound(frame.height())));
    if (extent.IsEmpty()) return;
    HODisplayTransform transform;
    transform.unitsPerPixel = std::max(extent.Width() / size.width, extent.Height() / size.height);
    const HOPoint c = extent.Center();
    transform.deviceLeft = frame.left();
    transform.deviceTop = frame.top();
    transform.extentLeft = c.x - size.width / 2.0 * transform.unitsPerPixel;
    transform.extentTop = c.y + size.height / 2.0 * transform.unitsPerPixel;
    HOMapPainter::Paint(painter, *map, transform, size, context.dpi, shown->GetRulerAndGridSetting());
}

void HODataFrame::drawNote(QPainter& painter, const HOPageRenderContext& context, const QRectF& frame) {
    const HORefPtr<HOMapView> shown = view();
    const bool empty = !shown || !shown->GetMap() || shown->GetMap()->GetLayerCount() == 0;
    if (!empty) return;
    QString note = get_note();
    if (note.isEmpty()) note = QCoreApplication::translate("HODataFrame", "No layers in this map");
    HOPageText::Style style;
    style.color = QColor(120, 120, 120);
    HOPageText::Draw(painter, context, frame.adjusted(4, 4, -4, -4), note, style,
                     Qt::AlignCenter | Qt::TextWordWrap);
}

}  // namespace HXObjects
