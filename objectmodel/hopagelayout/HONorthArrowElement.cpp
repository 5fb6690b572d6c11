#include "HONorthArrowElement.h"

#include <QPainter>
#include <QPolygonF>

#include "HOPageText.h"

namespace HXObjects {

HONorthArrowElement::HONorthArrowElement() : HOPageLayoutBaseElement(HOElementNorthArrow) {
    set_size(15.0, 22.0);
}

void HONorthArrowElement::draw(QPainter& painter, const HOPageRenderContext& context) {
    const QRectF box = context.ToDevice(get_bounds());
    const double letter = box.height() * 0.3;
    HOPageText::Style style{10.0, true, Qt::black};
    HOPageText::Draw(painter, context, QRectF(box.left(), box.top(), box.width(), letter), "N", style,
                     Qt::AlignCenter);
    const double cx = box.center().x(), half = std::min(box.width(), box.height() - letter) * 0.3;
    const QPointF tip(cx, box.top() + letter), base(cx, box.bottom()), notch(cx, box.bottom() - half * 0.8);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(Qt::black, context.ToPixels(0.25)));
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygonF({tip, QPointF(cx - half, base.y()), notch}));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({tip, QPointF(cx + half, base.y()), notch}));
    painter.restore();
}

}  // namespace HXObjects
