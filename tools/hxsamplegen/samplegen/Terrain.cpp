#include "Terrain.h"

#include <cmath>
#include <limits>

namespace {
constexpr double kMainlandRamp = 6000;  // metres inland over which the coastal plain rises to the hills
constexpr double kIslandRamp = 1200;
constexpr double kShoreBlend = 1500;
constexpr double kHillHeight = 1400;
}  // namespace

Terrain::Terrain(const Coastline& coastline, const std::vector<StarShape>& islands, quint64 seed)
    : m_coastline(coastline), m_islands(islands), m_noise(seed) {}

double Terrain::relief(const QPointF& p, double inland, double rampLength) const {
    const double x = p.x() / 18000.0, y = p.y() / 18000.0;
    const double rise = 1.0 - std::exp(-std::max(0.0, inland) / rampLength);
    const double hills = 0.5 + 0.5 * m_noise.fractal(x, y, 6);
    const double ridges = 1.0 - std::abs(m_noise.noise(2.3 * x + 40.0, 2.3 * y));
    const double rough = 0.5 + 0.5 * m_noise.fractal(8 * x - 70.0, 8 * y, 3);
    return kHillHeight * rise * rise * (0.15 + hills * hills * (0.55 + 0.45 * ridges * ridges)) +
           12.0 * rise * rough;
}

double Terrain::elevation(const QPointF& p) const {
    const double inland = m_coastline.inlandDistance(p);
    if (inland >= 0 && m_coastline.region().contains(p)) {
        // Rise from the broad outline, and fade to zero over the last stretch to the actual shore.
        const double shore = std::min(1.0, inland / kShoreBlend);
        const double fade = shore * shore * (3 - 2 * shore);
        return fade * relief(p, m_coastline.broadInlandDistance(p) + kShoreBlend, kMainlandRamp);
    }
    for (const StarShape& island : m_islands) {
        const double onIsland = island.edgeDistance(p);
        if (onIsland >= 0) return 0.25 * relief(p, onIsland, kIslandRamp);
    }
    return std::numeric_limits<double>::quiet_NaN();
}

QPointF Terrain::downhill(const QPointF& p, double step) const {
    const double east = elevation(p + QPointF(step, 0)) - elevation(p - QPointF(step, 0));
    const double north = elevation(p + QPointF(0, step)) - elevation(p - QPointF(0, step));
    const double length = std::hypot(east, north);
    if (!(length > 0)) return QPointF();
    return QPointF(-east / length, -north / length);
}
