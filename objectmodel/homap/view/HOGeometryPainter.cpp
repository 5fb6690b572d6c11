#include "HOGeometryPainter.h"

#include <QPainter>
#include <QtMath>

namespace HXObjects {

namespace {

Qt::PenStyle penStyle(HOStyle::DashPattern dash) {
    switch (dash) {
        case HOStyle::Dash:
            return Qt::DashLine;
        case HOStyle::Dot:
            return Qt::DotLine;
        case HOStyle::DashDot:
            return Qt::DashDotLine;
        case HOStyle::Solid:
            break;
    }
    return Qt::SolidLine;
}

// A marker of the shape, `size` pixels across, centred on the origin.
QPainterPath markerShape(HOStyle::MarkerShape shape, double size) {
    const double r = size / 2.0;
    QPainterPath p;
    switch (shape) {
        case HOStyle::Square:
            p.addRect(-r, -r, size, size);
            break;
        case HOStyle::Triangle:
            p.addPolygon(QPolygonF({{0, -r}, {r, r}, {-r, r}, {0, -r}}));
            break;
        case HOStyle::Diamond:
            p.addPolygon(QPolygonF({{0, -r}, {r, 0}, {0, r}, {-r, 0}, {0, -r}}));
            break;
        case HOStyle::Cross:
            p.addRect(-r, -r / 4, size, r / 2);
            p.addRect(-r / 4, -r, r / 2, size);
            p.setFillRule(Qt::WindingFill);
            break;
        case HOStyle::Star: {
            QPolygonF star;
            for (int i = 0; i <= 10; ++i) {
                const double radius = (i % 2) ? r * 0.45 : r;
                const double angle = -M_PI / 2 + i * M_PI / 5;
                star << QPointF(radius * std::cos(angle), radius * std::sin(angle));
            }
            p.addPolygon(star);
            break;
        }
        case HOStyle::Circle:
            p.addEllipse(QPointF(0, 0), r, r);
            break;
    }
    return p;
}

}  // namespace

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

QPainterPath HOGeometryPainter::markers(const HOGeometry& geometry, HOStyle::MarkerShape shape,
                                        double size) const {
    const QPainterPath marker = markerShape(shape, size);
    QPainterPath all;
    for (const auto& part : geometry.Parts()) {
        for (const auto& point : part) {
            const HOPoint q = m_transform.ToDevice(point);
            all.addPath(marker.translated(q.x, q.y));
        }
    }
    return all;
}

void HOGeometryPainter::Draw(const HOGeometry& geometry, const HOStyle* style) {
    const HOStyle::StyleType fallbackType = isPoint(geometry)  ? HOStyle::MarkerStyle
                                            : isArea(geometry) ? HOStyle::FillStyle
                                                               : HOStyle::LineStyle;
    const HOStyle fallback(fallbackType);
    const HOStyle& s = style ? *style : fallback;
    m_painter.save();
    if (isPoint(geometry)) {
        m_painter.setPen(QPen(s.GetOutlineColor().toQColor(), 1.0));
        m_painter.setBrush(s.GetColor().toQColor());
        m_painter.drawPath(markers(geometry, s.GetMarkerShape(), s.GetSize()));
    } else if (isArea(geometry)) {
        const bool fill = s.GetStyleType() == HOStyle::FillStyle;
        const QColor outline = fill ? s.GetOutlineColor().toQColor() : s.GetColor().toQColor();
        m_painter.setPen(s.GetWidth() > 0 ? QPen(outline, s.GetWidth()) : QPen(Qt::NoPen));
        m_painter.setBrush(fill ? QBrush(s.GetColor().toQColor()) : QBrush(Qt::NoBrush));
        m_painter.drawPath(path(geometry, true));
    } else {
        QPen pen(s.GetColor().toQColor(), s.GetWidth(), penStyle(s.GetDash()));
        pen.setCapStyle(Qt::RoundCap);
        pen.setJoinStyle(Qt::RoundJoin);
        m_painter.setPen(pen);
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPath(path(geometry, false));
    }
    m_painter.restore();
}

void HOGeometryPainter::DrawHighlight(const HOGeometry& geometry, const QColor& color, double width) {
    m_painter.save();
    m_painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(Qt::NoBrush);
    if (isPoint(geometry))
        m_painter.drawPath(markers(geometry, HOStyle::Circle, 4.0 * width));
    else
        m_painter.drawPath(path(geometry, isArea(geometry)));
    m_painter.restore();
}

}  // namespace HXObjects
