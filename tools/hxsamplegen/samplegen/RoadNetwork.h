#pragma once

#include <QPointF>
#include <set>
#include <utility>
#include <vector>

#include "FractalNoise.h"
#include "SampleLayer.h"
#include "SampleRandom.h"
#include "Town.h"

class Coastline;
class StarShape;

// Links the settlements into a road network: motorways span the cities, primary roads span cities and
// towns, secondary roads close loops between neighbouring towns and minor roads link every village
// into the network. Roads bend gently and never cross the sea or a lake.
class RoadNetwork {
public:
    RoadNetwork(const std::vector<Town>& towns, const Coastline& coastline,
                const std::vector<StarShape>& lakes, SampleRandom random);

    SampleLayer build();

private:
    using Link = std::pair<int, int>;  // town indices, smaller first
    std::vector<Link> spanningLinks(const std::vector<int>& members) const;
    std::vector<Link> nearestLinks(const std::vector<int>& members, int rank) const;
    void addRoads(const std::vector<Link>& links, const char* roadClass, SampleLayer& layer);
    QString roadName(const Link& link, const char* roadClass);
    std::vector<QPointF> route(const QPointF& a, const QPointF& b, double bend) const;
    bool isDry(const std::vector<QPointF>& line) const;
    std::vector<int> townsOf(std::initializer_list<Town::Kind> kinds) const;

    const std::vector<Town>& m_towns;
    const Coastline& m_coastline;
    const std::vector<StarShape>& m_lakes;
    SampleRandom m_random;
    FractalNoise m_noise;
    std::set<Link> m_built;
    int m_numbered = 0;
};
