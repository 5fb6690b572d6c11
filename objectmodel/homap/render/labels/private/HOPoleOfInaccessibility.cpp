#include "render/labels/private/HOPoleOfInaccessibility.h"

#include <cmath>
#include <limits>
#include <queue>

namespace HXObjects {

namespace {

// Bounds the work on huge or degenerate rings; the best cell so far is still a good answer.
constexpr int kMaxCells = 4000;

double segmentDistanceSquared(const QPointF& p, const QPointF& a, const QPointF& b) {
    QPointF d = b - a;
    QPointF closest = a;
    const double length = QPointF::dotProduct(d, d);
    if (length > 0) {
        const double t = std::clamp(QPointF::dotProduct(p - a, d) / length, 0.0, 1.0);
        closest = a + d * t;
    }
    const QPointF e = p - closest;
    return QPointF::dotProduct(e, e);
}

struct Cell {
    QPointF centre;
    double half;
    double distance;
    double Potential() const { return distance + half * M_SQRT2; }
    bool operator<(const Cell& o) const { return Potential() < o.Potential(); }
};

}  // namespace

double HOPoleOfInaccessibility::SignedDistance(const std::vector<QPolygonF>& rings, const QPointF& p) {
    bool inside = false;
    double best = std::numeric_limits<double>::infinity();
    for (const QPolygonF& ring : rings) {
        for (int i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
            const QPointF& a = ring[i];
            const QPointF& b = ring[j];
            if ((a.y() > p.y()) != (b.y() > p.y()) &&
                p.x() < (b.x() - a.x()) * (p.y() - a.y()) / (b.y() - a.y()) + a.x())
                inside = !inside;
            best = std::min(best, segmentDistanceSquared(p, a, b));
        }
    }
    return (inside ? 1.0 : -1.0) * std::sqrt(best);
}

HOPoleOfInaccessibility::Result HOPoleOfInaccessibility::Find(const std::vector<QPolygonF>& rings,
                                                              const QRectF& area, double precision) {
    Result best{area.center(), SignedDistance(rings, area.center())};
    const double size = std::min(area.width(), area.height());
    if (!(size > 0)) return best;
    std::priority_queue<Cell> queue;
    const auto push = [&](const QPointF& centre, double half) {
        queue.push({centre, half, SignedDistance(rings, centre)});
    };
    for (double x = area.left(); x < area.right(); x += size)
        for (double y = area.top(); y < area.bottom(); y += size)
            push({x + size / 2, y + size / 2}, size / 2);
    for (int cells = 0; !queue.empty() && cells < kMaxCells; ++cells) {
        const Cell cell = queue.top();
        queue.pop();
        if (cell.distance > best.distance) best = {cell.centre, cell.distance};
        if (cell.Potential() - best.distance <= precision) continue;
        const double h = cell.half / 2;
        for (const QPointF offset : {QPointF(-h, -h), QPointF(h, -h), QPointF(-h, h), QPointF(h, h)})
            push(cell.centre + offset, h);
    }
    return best;
}

}  // namespace HXObjects
