#pragma once
// HOPageSelectionMarks: the marks around a selected element on screen — a dashed outline and eight
// square handles (corners and edge middles) that resize it — and the hit test of those handles.
#include <QRectF>
#include <array>

class QPainter;

namespace HXObjects {

class HOPageSelectionMarks {
public:
    static constexpr double kHandlePixels = 7.0;
    // Handle order: top-left, top, top-right, right, bottom-right, bottom, bottom-left, left.
    static std::array<QPointF, 8> Handles(const QRectF& rect);
    static void Draw(QPainter& painter, const QRectF& rect);
    // The outline of the data frame whose map takes the input.
    static void DrawActive(QPainter& painter, const QRectF& rect);
    // The handle under the pixel, or -1.
    static int HandleAt(const QRectF& rect, const QPointF& pixel);
};

}  // namespace HXObjects
