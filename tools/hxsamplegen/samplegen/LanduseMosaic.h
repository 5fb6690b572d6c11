#pragma once

#include <QPointF>
#include <memory>
#include <vector>

#include "FractalNoise.h"
#include "PointIndex.h"
#include "SampleLayer.h"
#include "Town.h"

class Coastline;
class DryLand;
class OGRPolygon;
class StarShape;
class Terrain;

// Covers the dry land with parcels of land use. The parcels are cells of a jittered grid whose edges
// wander a little; an edge's shape depends only on its two corners, so neighbouring parcels share their
// boundary exactly and never overlap. Parcels on the coast or a lake shore are clipped to the shore.
// The class follows the ground: towns are urban, wet lowland and lake shores are wetland, high ground
// is forest.
class LanduseMosaic {
public:
    LanduseMosaic(const Coastline& coastline, const Terrain& terrain, const std::vector<StarShape>& lakes,
                  const std::vector<Town>& towns, quint64 seed);

    SampleLayer build(double scale);

private:
    struct Node {
        int i, j;
    };
    enum class Site { Inland, Shore, Water };
    QPointF position(const Node& n) const;
    // The edge's points from a to b, without b.
    std::vector<QPointF> edge(const Node& a, const Node& b) const;
    std::unique_ptr<OGRPolygon> parcel(const Node& corner) const;
    Site siteOf(const Node& corner) const;
    void addParcel(const Node& corner, const DryLand& dryLand, SampleLayer& layer) const;
    QString classAt(const QPointF& p) const;
    bool isUrban(const QPointF& p) const;

    const Coastline& m_coastline;
    const Terrain& m_terrain;
    const std::vector<StarShape>& m_lakes;
    const std::vector<Town>& m_towns;
    quint64 m_seed;
    FractalNoise m_noise;
    PointIndex m_townIndex;
    double m_cell = 1000;
};
