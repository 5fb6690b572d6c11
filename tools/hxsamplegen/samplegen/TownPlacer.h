#pragma once

#include <vector>

#include "NameGenerator.h"
#include "PointIndex.h"
#include "SampleRandom.h"
#include "Town.h"

class Coastline;
class StarShape;
class Terrain;

// Scatters the region's cities, towns and villages over dry land: cities on the lowest ground of a
// few candidates (coastal plains and valleys), each kind at its own minimum spacing.
class TownPlacer {
public:
    TownPlacer(const Coastline& coastline, const Terrain& terrain, const std::vector<StarShape>& lakes,
               NameGenerator& names, SampleRandom random);

    // Counts are multiplied by scale; spacings shrink with it so denser regions still fit.
    std::vector<Town> place(double scale);

private:
    struct Kind {
        Town::Kind kind;
        int count;
        double spacing;  // metres to the nearest other settlement
        int candidates;  // the lowest of this many sites wins
        int minPopulation;
        int maxPopulation;
    };
    void placeKind(const Kind& kind, std::vector<Town>& towns);
    bool isSite(const QPointF& p) const;
    QPointF bestSite(const Kind& kind);

    const Coastline& m_coastline;
    const Terrain& m_terrain;
    const std::vector<StarShape>& m_lakes;
    NameGenerator& m_names;
    SampleRandom m_random;
    PointIndex m_placed;
};
