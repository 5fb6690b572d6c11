#include "HOStylePainter.h"

#include <QPainter>
#include <QPainterPath>
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

Qt::BrushStyle brushStyle(HOStyle::FillPattern pattern) {
    switch (pattern) {
        case HOStyle::NoFill:
            return Qt::NoBrush;
        case HOStyle::HorizontalHatch:
            return Qt::HorPattern;
        case HOStyle::VerticalHatch:
            return Qt::VerPattern;
        case HOStyle::CrossHatch:
            return Qt::CrossPattern;
        case HOStyle::ForwardDiagonalHatch:
            return Qt::FDiagPattern;
        case HOStyle::BackwardDiagonalHatch:
            return Qt::BDiagPattern;
        case HOStyle::DiagonalCrossHatch:
            return Qt::DiagCrossPattern;
        case HOStyle::SolidFill:
            break;
    }
    return Qt::SolidPattern;
}

// One of the style's colours with the style's opacity.
QColor styleColor(const HOStyle& style, const HOColor& color) {
    QColor c = color.toQColor();
    c.setAlphaF(c.alphaF() * qBound(0.0, style.GetOpacity(), 1.0));
    return c;
}

QPolygonF regularPolygon(int corners, double radius, double innerRadius, double startDegrees) {
    QPolygonF polygon;
    const int steps = innerRadius > 0 ? corners * 2 : corners;
    for (int i = 0; i < steps; ++i) {
        const double r = (innerRadius > 0 && i % 2) ? innerRadius : radius;
        const double a = qDegreesToRadians(startDegrees + 360.0 * i / steps);
        polygon << QPointF(r * std::cos(a), r * std::sin(a));
    }
    return polygon;
}

// The marker outline centred on the origin.
QPainterPath markerPath(HOStyle::MarkerShape shape, double size) {
    const double r = size / 2.0;
    QPainterPath path;
    switch (shape) {
        case HOStyle::Circle:
            path.addEllipse(QPointF(0, 0), r, r);
            break;
        case HOStyle::Square:
            path.addRect(-r, -r, size, size);
            break;
        case HOStyle::Triangle:
            path.addPolygon(regularPolygon(3, r, 0, -90));
            break;
        case HOStyle::Diamond:
            path.addPolygon(regularPolygon(4, r, 0, -90));
            break;
        case HOStyle::Star:
            path.addPolygon(regularPolygon(5, r, r * 0.45, -90));
            break;
        case HOStyle::Cross:
            path.moveTo(-r, 0);
            path.lineTo(r, 0);
            path.moveTo(0, -r);
            path.lineTo(0, r);
            break;
    }
    path.closeSubpath();
    return path;
}

}  // namespace

QPen HOStylePainter::Pen(const HOStyle& style) {
    const bool line = style.GetStyleType() == HOStyle::LineStyle;
    if (style.GetWidth() <= 0 && !line) return QPen(Qt::NoPen);
    QPen pen(styleColor(style, line ? style.GetColor() : style.GetOutlineColor()));
    // Widths up to one pixel take the fast one-pixel path of the raster engine.
    pen.setWidthF(style.GetWidth() <= 1.0 ? 0.0 : style.GetWidth());
    pen.setStyle(line ? penStyle(style.GetDash()) : Qt::SolidLine);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

QPen HOStylePainter::CasingPen(const HOStyle& style) {
    if (style.GetStyleType() != HOStyle::LineStyle || style.GetCasingWidth() <= 0) return QPen(Qt::NoPen);
    QPen pen(styleColor(style, style.GetOutlineColor()),
             std::max(1.0, style.GetWidth()) + 2 * style.GetCasingWidth());
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

double HOStylePainter::Reach(const HOStyle& style) {
    const double pen = std::max(1.0, style.GetWidth()) + 2 * style.GetCasingWidth();
    const double marker = style.GetStyleType() == HOStyle::MarkerStyle ? style.GetSize() / 2 + pen : 0.0;
    // QPen's mitre limit is twice the pen width.
    return std::max(pen * 2, marker) + 1;
}

QBrush HOStylePainter::Brush(const HOStyle& style) {
    if (style.GetStyleType() == HOStyle::LineStyle) return QBrush(Qt::NoBrush);
    const Qt::BrushStyle pattern =
        style.GetStyleType() == HOStyle::FillStyle ? brushStyle(style.GetFillPattern()) : Qt::SolidPattern;
    return QBrush(styleColor(style, style.GetColor()), pattern);
}

void HOStylePainter::DrawMarker(QPainter& painter, const HOStyle& style, const QPointF& centre) {
    painter.save();
    painter.translate(centre);
    DrawMarkerPath(painter, style, MarkerPath(style));
    painter.restore();
}

QPainterPath HOStylePainter::MarkerPath(const HOStyle& style) {
    return markerPath(style.GetMarkerShape(), style.GetSize());
}

void HOStylePainter::DrawMarkerPath(QPainter& painter, const HOStyle& style, const QPainterPath& path) {
    const bool cross = style.GetMarkerShape() == HOStyle::Cross;
    QPen pen =
        cross ? QPen(styleColor(style, style.GetColor()), std::max(1.0, style.GetWidth())) : Pen(style);
    painter.setPen(pen);
    painter.setBrush(cross ? QBrush(Qt::NoBrush) : Brush(style));
    painter.drawPath(path);
}

QImage HOStylePainter::MarkerImage(const HOStyle& style) {
    const int side = int(std::ceil(style.GetSize() + std::max(1.0, style.GetWidth()))) + 2;
    QImage image(side | 1, side | 1, QImage::Format_ARGB32_Premultiplied);  // odd: a centre pixel
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawMarker(painter, style, QPointF(image.width() / 2.0, image.height() / 2.0));
    return image;
}

void HOStylePainter::DrawPreview(QPainter& painter, const HOStyle& style, const QRectF& rect) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF inner =
        rect.adjusted(rect.width() * 0.15, rect.height() * 0.15, -rect.width() * 0.15, -rect.height() * 0.15);
    switch (style.GetStyleType()) {
        case HOStyle::MarkerStyle:
            DrawMarker(painter, style, rect.center());
            break;
        case HOStyle::LineStyle: {
            const QPointF zigzag[] = {
                inner.bottomLeft(), QPointF(inner.left() + inner.width() / 3, inner.top()),
                QPointF(inner.left() + inner.width() * 2 / 3, inner.bottom()), inner.topRight()};
            for (const QPen& pen : {CasingPen(style), Pen(style)}) {
                if (pen.style() == Qt::NoPen) continue;
                painter.setPen(pen);
                painter.drawPolyline(zigzag, 4);
            }
            break;
        }
        case HOStyle::FillStyle:
            painter.setPen(Pen(style));
            painter.setBrush(Brush(style));
            painter.drawRect(inner);
            break;
    }
    painter.restore();
}

}  // namespace HXObjects
