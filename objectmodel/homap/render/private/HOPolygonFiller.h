#pragma once
// HOPolygonFiller: fills small polygons in one solid colour straight into a direct target, without
// antialiasing — a pixel is filled when its centre is inside by the odd-even rule, on QPainter's
// grid of 1/64 pixel, so the pixels are those of QPainter's aliased fill but where an edge runs
// exactly through a pixel centre (a tie the polygon's outline covers) — for the many polygons of a
// map a few pixels across, where QPainter's setup for each fill costs more than the fill itself.
#include <QPointF>
#include <vector>

#include "render/private/HODirectTarget.h"

namespace HXObjects {

class HOPolygonFiller {
public:
    explicit HOPolygonFiller(const HODirectTarget& target) : m_target(target) {}

    // Whether a polygon with these bounds (pixels) is one to fill here.
    static bool Handles(double width, double height) { return width <= kMaxSize && height <= kMaxSize; }
    // `color`: premultiplied.
    void Fill(const QPointF* points, int count, uint32_t color);

private:
    static constexpr double kMaxSize = 48;

    HODirectTarget m_target;
    std::vector<QPointF> m_points;    // the polygon on the grid
    std::vector<double> m_crossings;  // of the row being filled
};

}  // namespace HXObjects
