#include "Coastline.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {
constexpr double kEpsilon = 1e-6;

// Which sides of the rectangle a point lies on, one bit per side.
int sidesOf(const QRectF& r, const QPointF& p) {
    return (std::abs(p.x() - r.left()) < kEpsilon ? 1 : 0) |
           (std::abs(p.x() - r.right()) < kEpsilon ? 2 : 0) | (std::abs(p.y() - r.top()) < kEpsilon ? 4 : 0) |
           (std::abs(p.y() - r.bottom()) < kEpsilon ? 8 : 0);
}
}  // namespace

Coastline::Coastline(const QRectF& region, StarShape mainland, StarShape broadOutline)
    : m_region(region), m_shape(std::move(mainland)), m_broad(std::move(broadOutline)) {}

bool Coastline::isLand(const QPointF& p, double margin) const {
    return m_region.adjusted(margin, margin, -margin, -margin).contains(p) && m_shape.contains(p, margin);
}

bool Coastline::facesSea(double angle) const {
    return m_shape.radiusAt(angle) < rayToRegionEdge(angle);
}

double Coastline::rayToRegionEdge(double angle) const {
    const double c = std::cos(angle), s = std::sin(angle);
    const QPointF o = m_shape.centre();
    double t = std::numeric_limits<double>::max();
    if (c > kEpsilon) t = std::min(t, (m_region.right() - o.x()) / c);
    if (c < -kEpsilon) t = std::min(t, (m_region.left() - o.x()) / c);
    if (s > kEpsilon) t = std::min(t, (m_region.bottom() - o.y()) / s);
    if (s < -kEpsilon) t = std::min(t, (m_region.top() - o.y()) / s);
    return t;
}

QPointF Coastline::pointAt(double angle, double radius) const {
    const double r = std::min(radius, rayToRegionEdge(angle));
    return m_shape.centre() + QPointF(r * std::cos(angle), r * std::sin(angle));
}

std::unique_ptr<OGRPolygon> Coastline::polygon() const {
    // Walk the rim by angle, inserting the rectangle's corners where they fall, so the cut follows
    // the rectangle exactly.
    std::vector<std::pair<double, double>> samples;  // angle, radius
    for (int i = 0; i < m_shape.vertexCount(); ++i)
        samples.emplace_back(m_shape.angleOf(i), m_shape.radius(i));
    const QPointF o = m_shape.centre();
    for (const QPointF& corner :
         {m_region.topLeft(), m_region.topRight(), m_region.bottomLeft(), m_region.bottomRight()}) {
        double angle = std::atan2(corner.y() - o.y(), corner.x() - o.x());
        if (angle < 0) angle += 2 * M_PI;
        samples.emplace_back(angle, m_shape.radiusAt(angle));
    }
    std::sort(samples.begin(), samples.end());

    std::vector<QPointF> points;
    for (const auto& [angle, radius] : samples) points.push_back(pointAt(angle, radius));
    // Drop points in the middle of a straight run along one side of the rectangle.
    std::vector<QPointF> kept;
    const size_t n = points.size();
    for (size_t i = 0; i < n; ++i) {
        const QPointF& before = kept.empty() ? points[n - 1] : kept.back();
        const int shared =
            sidesOf(m_region, before) & sidesOf(m_region, points[i]) & sidesOf(m_region, points[(i + 1) % n]);
        if (!shared) kept.push_back(points[i]);
    }
    auto ring = new OGRLinearRing;
    for (const QPointF& p : kept) ring->addPoint(p.x(), p.y());
    ring->closeRings();
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRingDirectly(ring);
    return polygon;
}
