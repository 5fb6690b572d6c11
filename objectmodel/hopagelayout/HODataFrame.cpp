#include "HODataFrame.h"

#include <QPainter>

#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapView.h"

namespace HXObjects {

HODataFrame::HODataFrame() : HOPageLayoutBaseElement(HOElementDataFrame) {}

HODataFrame::~HODataFrame() = default;

HOMapView* HODataFrame::get_map_view() const {
    return view().get();
}

HORefPtr<HOMapView> HODataFrame::view() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_view;
}

void HODataFrame::set_map_view(HOMapView* view) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_view = view;
}

QRectF HODataFrame::pixel_rect(const HODisplayTransform& pageToPixels) const {
    const HORect b = get_bounds();
    const HOPoint topLeft = pageToPixels.ToDevice({b.minx, b.maxy});
    const HOPoint bottomRight = pageToPixels.ToDevice({b.maxx, b.miny});
    return QRectF(QPointF(topLeft.x, topLeft.y), QPointF(bottomRight.x, bottomRight.y));
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
    const HORect extent = shown->GetExtent();
    shown->SetSize(size);
    if (!extent.IsEmpty()) shown->SetExtent(extent);
}

void HODataFrame::draw(QPainter& painter, const HODisplayTransform& pageToPixels) {
    const QRectF frame = pixel_rect(pageToPixels);
    const HORefPtr<HOMapView> shown = view();
    painter.save();
    if (shown && shown->GetMap()) {
        const HOSize size = shown->GetScreenDisplay()->GetDeviceSize();
        HORefPtr<HOGraphics> picture(new HOGraphics);
        picture->SetSize(size.width, size.height);
        picture->Clear(shown->GetMap()->GetBackgroundColor());
        shown->Draw(picture);
        // Scaled only while the view has not been resized to a new page zoom yet.
        if (!picture->Image().isNull()) painter.drawImage(frame, picture->Image());
    }
    painter.setPen(QPen(Qt::black, 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    painter.restore();
}

}  // namespace HXObjects
