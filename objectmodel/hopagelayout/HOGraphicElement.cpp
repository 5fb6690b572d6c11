#include "HOGraphicElement.h"

#include <QPainter>

namespace HXObjects {

namespace {

QColor colorFrom(const QJsonValue& value, const QColor& fallback) {
    const QColor color(value.toString());
    return color.isValid() ? color : fallback;
}

}  // namespace

HOGraphicElement::HOGraphicElement() : HOPageLayoutBaseElement(HOElementGraphic) {}

void HOGraphicElement::draw(QPainter& painter, const HOPageRenderContext& context) {
    const QRectF box = context.ToDevice(get_bounds());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(m_strokeMm > 0 ? QPen(m_stroke, context.ToPixels(m_strokeMm)) : QPen(Qt::NoPen));
    painter.setBrush(m_fill.alpha() ? QBrush(m_fill) : QBrush(Qt::NoBrush));
    switch (m_shape) {
        case Rectangle:
            painter.drawRect(box);
            break;
        case Ellipse:
            painter.drawEllipse(box);
            break;
        case Line:
            painter.drawLine(box.bottomLeft(), box.topRight());
            break;
    }
    painter.restore();
}

QJsonObject HOGraphicElement::properties() const {
    return {{"shape", int(m_shape)},
            {"stroke", m_stroke.name(QColor::HexArgb)},
            {"strokeMm", m_strokeMm},
            {"fill", m_fill.name(QColor::HexArgb)}};
}

void HOGraphicElement::set_properties(const QJsonObject& json) {
    const int shape = json.value("shape").toInt(m_shape);
    if (shape >= Rectangle && shape <= Line) m_shape = Shape(shape);
    m_stroke = colorFrom(json.value("stroke"), m_stroke);
    m_strokeMm = json.value("strokeMm").toDouble(m_strokeMm);
    m_fill = colorFrom(json.value("fill"), m_fill);
}

}  // namespace HXObjects
