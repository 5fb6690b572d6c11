#include "TownPlacer.h"

#include <algorithm>
#include <cmath>

#include "Coastline.h"
#include "Terrain.h"

namespace {
constexpr int kAttemptsPerTown = 60;
constexpr double kShoreMargin = 600;  // metres of dry land around a settlement
constexpr double kMaxSiteElevation = 650;
}  // namespace

TownPlacer::TownPlacer(const Coastline& coastline, const Terrain& terrain,
                       const std::vector<StarShape>& lakes, NameGenerator& names, SampleRandom random)
    : m_coastline(coastline), m_terrain(terrain), m_lakes(lakes), m_names(names), m_random(random) {}

std::vector<Town> TownPlacer::place(double scale) {
    const double spacing = 1.0 / std::sqrt(scale);
    const auto count = [scale](int base) { return std::max(1, int(std::lround(base * scale))); };
    std::vector<Town> towns;
    placeKind({Town::City, count(3), 20000 * spacing, 24, 250000, 2000000}, towns);
    placeKind({Town::Market, count(14), 5500 * spacing, 6, 12000, 120000}, towns);
    placeKind({Town::Village, count(60), 1800 * spacing, 1, 300, 6000}, towns);
    return towns;
}

bool TownPlacer::isSite(const QPointF& p) const {
    if (!m_coastline.isLand(p, kShoreMargin) || m_terrain.elevation(p) > kMaxSiteElevation) return false;
    return std::none_of(m_lakes.begin(), m_lakes.end(),
                        [&](const StarShape& lake) { return lake.edgeDistance(p) > -kShoreMargin; });
}

QPointF TownPlacer::bestSite(const Kind& kind) {
    const QRectF& region = m_coastline.region();
    QPointF best(qQNaN(), qQNaN());
    double bestElevation = 1e9;
    for (int found = 0, attempt = 0; found < kind.candidates && attempt < kAttemptsPerTown; ++attempt) {
        const QPointF p(m_random.uniform(region.left(), region.right()),
                        m_random.uniform(region.top(), region.bottom()));
        if (!isSite(p) || m_placed.anyWithin(p, kind.spacing)) continue;
        ++found;
        const double elevation = m_terrain.elevation(p);
        if (elevation < bestElevation) {
            bestElevation = elevation;
            best = p;
        }
    }
    return best;
}

void TownPlacer::placeKind(const Kind& kind, std::vector<Town>& towns) {
    for (int i = 0; i < kind.count; ++i) {
        const QPointF site = bestSite(kind);
        if (qIsNaN(site.x())) continue;
        // Log-uniform: a few large places and many small ones.
        const double population =
            kind.minPopulation *
            std::pow(double(kind.maxPopulation) / kind.minPopulation, std::pow(m_random.uniform(), 1.6));
        m_placed.insert(site, int(towns.size()));
        towns.push_back({site, m_names.next(), int(population), kind.kind});
    }
}
