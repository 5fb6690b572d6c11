#pragma once
// HOStylePainter: turns an HOStyle into QPainter pens, brushes and marker shapes, so layers, tools
// and symbol previews draw a style the same way.
#include <QBrush>
#include <QImage>
#include <QPen>

#include "HOStyle.h"

class QPainter;
class QPainterPath;
class QPointF;
class QRectF;

namespace HXObjects {

class HOStylePainter {
public:
    // The line of a line style, or the outline of a fill or marker style (no pen for width 0).
    static QPen Pen(const HOStyle& style);
    // The casing drawn beneath a line (no pen when the style has none).
    static QPen CasingPen(const HOStyle& style);
    // The fill of a fill or marker style, solid or hatched; no brush for a line style.
    static QBrush Brush(const HOStyle& style);
    // Pixels the style draws beyond the geometry it draws: half a pen or a marker, a casing, the
    // mitre of a sharp join, and a pixel of antialiasing.
    static double Reach(const HOStyle& style);
    // Draws a marker centred on the point with the current painter state replaced by the style's.
    static void DrawMarker(QPainter& painter, const HOStyle& style, const QPointF& centre);
    // The marker's outline centred on (0, 0).
    static QPainterPath MarkerPath(const HOStyle& style);
    // Draws marker outlines (one or many, already placed) with the style's pen and brush, leaving them set.
    static void DrawMarkerPath(QPainter& painter, const HOStyle& style, const QPainterPath& path);
    // A premultiplied image of the marker, its centre at the image's centre.
    static QImage MarkerImage(const HOStyle& style);
    // A sample of the style fitted into the rectangle: a marker, a zigzag line or a filled square.
    static void DrawPreview(QPainter& painter, const HOStyle& style, const QRectF& rect);
};

}  // namespace HXObjects
