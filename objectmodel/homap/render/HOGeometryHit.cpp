#include "HOGeometryHit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace HXObjects {

double HOGeometryHit::Distance(const HOGeometry& geometry, const HOPoint& point) {
    switch (geometry.GetType()) {
        case HOGeometry::GeoPolygon:
        case HOGeometry::GeoMultiPolygon:
            return inside(geometry, point) ? 0.0 : toParts(geometry, point, true);
        case HOGeometry::GeoLineString:
        case HOGeometry::GeoMultiLineString:
            return toParts(geometry, point, false);
        case HOGeometry::GeoPoint:
        case HOGeometry::GeoMultiPoint:
        case HOGeometry::GeoUnknown:
            break;
    }
    double best = std::numeric_limits<double>::infinity();
    for (const auto& part : geometry.Parts()) {
        for (const auto& q : part) best = std::min(best, std::hypot(q.x - point.x, q.y - point.y));
    }
    return best;
}

double HOGeometryHit::toSegment(const HOPoint& p, const HOPoint& a, const HOPoint& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    const double t =
        length2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

double HOGeometryHit::toParts(const HOGeometry& geometry, const HOPoint& point, bool closed) {
    double best = std::numeric_limits<double>::infinity();
    for (const auto& part : geometry.Parts()) {
        if (part.size() == 1) best = std::min(best, toSegment(point, part[0], part[0]));
        for (std::size_t i = 1; i < part.size(); ++i)
            best = std::min(best, toSegment(point, part[i - 1], part[i]));
        if (closed && part.size() > 2) best = std::min(best, toSegment(point, part.back(), part.front()));
    }
    return best;
}

bool HOGeometryHit::inside(const HOGeometry& geometry, const HOPoint& point) {
    bool in = false;
    for (const auto& ring : geometry.Parts()) {
        for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
            const HOPoint& a = ring[i];
            const HOPoint& b = ring[j];
            if ((a.y > point.y) != (b.y > point.y) &&
                point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
                in = !in;
        }
    }
    return in;
}

}  // namespace HXObjects
