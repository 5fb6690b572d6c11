#include "HOGeometryPainter.h"

#include "HOStylePainter.h"

#include <QPainter>

namespace HXObjects {

HOGeometryPainter::HOGeometryPainter(QPainter& painter, const HODisplayTransform& transform)
    : m_painter(painter), m_transform(transform) {}

bool HOGeometryPainter::isPoint(const HOGeometry& geometry) {
    return geometry.GetType() == HOGeometry::GeoPoint || geometry.GetType() == HOGeometry::GeoMultiPoint;
}

bool HOGeometryPainter::isArea(const HOGeometry& geometry) {
    return geometry.GetType() == HOGeometry::GeoPolygon || geometry.GetType() == HOGeometry::GeoMultiPolygon;
}

QPainterPath HOGeometryPainter::path(const HOGeometry& geometry, bool closed) const {
    QPainterPath p;
    p.setFillRule(Qt::OddEvenFill);
    for (const auto& part : geometry.Parts()) {
        if (part.empty()) continue;
        const HOPoint first = m_transform.ToDevice(part.front());
        p.moveTo(first.x, first.y);
        for (std::size_t i = 1; i < part.size(); ++i) {
            const HOPoint q = m_transform.ToDevice(part[i]);
            p.lineTo(q.x, q.y);
        }
        if (closed) p.closeSubpath();
    }
    return p;
}

template <class DrawAt>
void HOGeometryPainter::eachPoint(const HOGeometry& geometry, DrawAt drawAt) const {
    for (const auto& part : geometry.Parts()) {
        for (const auto& point : part) {
            const HOPoint q = m_transform.ToDevice(point);
            drawAt(QPointF(q.x, q.y));
        }
    }
}

void HOGeometryPainter::Draw(const HOGeometry& geometry, const HOStyle* style) {
    const HOStyle::StyleType fallbackType = isPoint(geometry)  ? HOStyle::MarkerStyle
                                            : isArea(geometry) ? HOStyle::FillStyle
                                                               : HOStyle::LineStyle;
    const HOStyle fallback(fallbackType);
    const HOStyle& s = style ? *style : fallback;
    if (isPoint(geometry)) {
        eachPoint(geometry, [&](const QPointF& at) { HOStylePainter::DrawMarker(m_painter, s, at); });
        return;
    }
    m_painter.save();
    m_painter.setPen(HOStylePainter::Pen(s));
    m_painter.setBrush(isArea(geometry) ? HOStylePainter::Brush(s) : QBrush(Qt::NoBrush));
    m_painter.drawPath(path(geometry, isArea(geometry)));
    m_painter.restore();
}

void HOGeometryPainter::DrawHighlight(const HOGeometry& geometry, const QColor& color, double width) {
    m_painter.save();
    m_painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(Qt::NoBrush);
    if (isPoint(geometry))
        eachPoint(geometry, [&](const QPointF& at) { m_painter.drawEllipse(at, 2.0 * width, 2.0 * width); });
    else
        m_painter.drawPath(path(geometry, isArea(geometry)));
    m_painter.restore();
}

}  // namespace HXObjects
