#pragma once

#include <QRectF>
#include <memory>
#include <vector>

#include "Coastline.h"
#include "NameGenerator.h"
#include "SampleLayer.h"
#include "SampleRandom.h"
#include "StarShape.h"
#include "Terrain.h"
#include "Town.h"

// The fictional coastal region, built in memory from a seed: a mainland with an irregular coast and a
// few offshore islands, lakes, land use, rivers, towns and the roads between them, in CGCS2000 /
// Gauss-Kruger CM 117E metres around 31 degrees north. The same seed and scale give the same region.
class SampleRegion {
public:
    // Scale multiplies the number of land-use parcels, rivers, towns and roads; the extent stays.
    SampleRegion(quint64 seed, double scale);
    SampleRegion(const SampleRegion&) = delete;  // the terrain refers to the coastline and islands
    SampleRegion& operator=(const SampleRegion&) = delete;

    static QRectF extent();
    const Terrain& terrain() const { return m_terrain; }
    // In drawing order: land, lakes, landuse, rivers, roads, towns.
    const std::vector<SampleLayer>& layers() const { return m_layers; }

private:
    static Coastline mainland(SampleRandom random);
    void addIslands(SampleRandom random);
    void addLakes(SampleRandom random);
    bool isClear(const StarShape& shape, const std::vector<StarShape>& others, double gap) const;
    SampleLayer landLayer() const;
    SampleLayer seaLayer(const SampleLayer& land) const;
    SampleLayer lakeLayer(NameGenerator& names) const;
    SampleLayer townLayer() const;

    SampleRandom m_random;
    Coastline m_coastline;
    std::vector<StarShape> m_islands;
    std::vector<StarShape> m_lakes;
    Terrain m_terrain;
    std::vector<Town> m_towns;
    std::vector<SampleLayer> m_layers;
};
