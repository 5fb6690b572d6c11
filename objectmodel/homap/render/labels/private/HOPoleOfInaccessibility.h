#pragma once
// HOPoleOfInaccessibility: the point inside a polygon farthest from its edges — where a label sits
// well inside even a crescent or a ring, unlike the centroid. Found by splitting the search area into
// square cells, best-first by the distance a cell could still reach, until no cell can beat the best
// by more than the precision. Rings are read by the even-odd rule, so holes and several parts work.
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <vector>

namespace HXObjects {

class HOPoleOfInaccessibility {
public:
    struct Result {
        QPointF point;
        double distance = 0.0;  // to the nearest edge; <= 0 when nothing inside was found
    };

    // Searches within `area` (the rings' bounds clipped to what is visible, say).
    static Result Find(const std::vector<QPolygonF>& rings, const QRectF& area, double precision);

private:
    // Distance from p to the nearest edge, negative outside.
    static double SignedDistance(const std::vector<QPolygonF>& rings, const QPointF& p);
};

}  // namespace HXObjects
