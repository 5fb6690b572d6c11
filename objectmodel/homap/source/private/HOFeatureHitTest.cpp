#include "source/private/HOFeatureHitTest.h"

#include <algorithm>

namespace HXObjects {

namespace {

bool inside(const HOVertex& v, const HOBox& r) {
    return v.x >= r.min.x && v.x <= r.max.x && v.y >= r.min.y && v.y <= r.max.y;
}

}  // namespace

bool HOFeatureHitTest::Meets(const HOFeatureStore& store, uint32_t feature, const HOBox& rect) {
    const HOFeatureTopology& t = store.Topology();
    const HOVertex* v = store.Vertices().data();
    bool area = false;  // some part is a polygon's ring
    for (uint32_t part = t.PartBegin(feature); part < t.PartEnd(feature); ++part) {
        const uint32_t first = t.VertexBegin(part), end = t.VertexEnd(part);
        const HOFeatureKind kind = t.PartKind(feature, part);
        area = area || kind == HOFeatureKind::Polygon;
        if (kind == HOFeatureKind::Point) {
            if (std::any_of(v + first, v + end, [&](const HOVertex& p) { return inside(p, rect); }))
                return true;
            continue;
        }
        if (end - first == 1 && inside(v[first], rect)) return true;
        for (uint32_t i = first; i + 1 < end; ++i)
            if (segmentMeets(v[i], v[i + 1], rect)) return true;
    }
    const HOVertex centre{(rect.min.x + rect.max.x) / 2, (rect.min.y + rect.max.y) / 2};
    return area && polygonHolds(store, feature, centre);
}

bool HOFeatureHitTest::segmentMeets(const HOVertex& a, const HOVertex& b, const HOBox& rect) {
    if (inside(a, rect) || inside(b, rect)) return true;
    // Clip the segment's parameter range against each slab of the rectangle.
    double t0 = 0.0, t1 = 1.0;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - rect.min.x, rect.max.x - a.x, a.y - rect.min.y, rect.max.y - a.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double r = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, r);
        else
            t1 = std::min(t1, r);
        if (t0 > t1) return false;
    }
    return true;
}

bool HOFeatureHitTest::polygonHolds(const HOFeatureStore& store, uint32_t feature, const HOVertex& point) {
    const HOFeatureTopology& t = store.Topology();
    const HOVertex* v = store.Vertices().data();
    bool in = false;  // odd-even over all rings
    for (uint32_t part = t.PartBegin(feature); part < t.PartEnd(feature); ++part) {
        if (t.PartKind(feature, part) != HOFeatureKind::Polygon) continue;  // a collection's other members
        const uint32_t first = t.VertexBegin(part), end = t.VertexEnd(part);
        for (uint32_t i = first, j = end - 1; i < end; j = i++) {
            if ((v[i].y > point.y) != (v[j].y > point.y) &&
                point.x < (v[j].x - v[i].x) * (point.y - v[i].y) / (v[j].y - v[i].y) + v[i].x)
                in = !in;
        }
    }
    return in;
}

}  // namespace HXObjects
