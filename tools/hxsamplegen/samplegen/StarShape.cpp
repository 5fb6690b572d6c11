#include "StarShape.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>

#include "FractalNoise.h"

namespace {
constexpr double kTwoPi = 6.283185307179586;
}

StarShape::StarShape(const QPointF& centre, std::vector<double> radii)
    : m_centre(centre), m_radii(std::move(radii)) {
    m_maxRadius = *std::max_element(m_radii.begin(), m_radii.end());
}

StarShape StarShape::blob(const QPointF& centre, double radius, double roughness, int vertexCount,
                          const FractalNoise& noise, double noisePhase) {
    std::vector<double> radii(vertexCount);
    for (int i = 0; i < vertexCount; ++i) {
        // Sampling the noise on a circle makes the rim close without a seam.
        const double angle = kTwoPi * i / vertexCount;
        const double wobble = noise.fractal(noisePhase + 1.5 * std::cos(angle), 1.5 * std::sin(angle), 5);
        radii[i] = radius * std::max(0.25, 1.0 + 2.0 * roughness * wobble);
    }
    return StarShape(centre, std::move(radii));
}

double StarShape::angleOf(int vertex) const {
    return kTwoPi * vertex / vertexCount();
}

double StarShape::radiusAt(double angle) const {
    double steps = angle / kTwoPi * vertexCount();
    steps -= std::floor(steps / vertexCount()) * vertexCount();
    const int i = std::min(int(steps), vertexCount() - 1);
    const double t = steps - i;
    return m_radii[i] * (1 - t) + m_radii[(i + 1) % vertexCount()] * t;
}

double StarShape::edgeDistance(const QPointF& p) const {
    const double dx = p.x() - m_centre.x(), dy = p.y() - m_centre.y();
    return radiusAt(std::atan2(dy, dx)) - std::hypot(dx, dy);
}

std::unique_ptr<OGRLinearRing> StarShape::ring() const {
    auto ring = std::make_unique<OGRLinearRing>();
    ring->setNumPoints(vertexCount() + 1, FALSE);
    for (int i = 0; i <= vertexCount(); ++i) {
        const int v = i % vertexCount();
        const double angle = angleOf(v);
        ring->setPoint(i, m_centre.x() + m_radii[v] * std::cos(angle),
                       m_centre.y() + m_radii[v] * std::sin(angle));
    }
    return ring;
}
