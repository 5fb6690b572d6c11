#include "RoadNetwork.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "Coastline.h"
#include "PointIndex.h"
#include "StarShape.h"

namespace {
constexpr double kVertexSpacing = 220;  // metres between road vertices
constexpr double kShoreClearance = 60;
constexpr int kCandidateNeighbours = 8;

double distance(const QPointF& a, const QPointF& b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}
}  // namespace

RoadNetwork::RoadNetwork(const std::vector<Town>& towns, const Coastline& coastline,
                         const std::vector<StarShape>& lakes, SampleRandom random)
    : m_towns(towns), m_coastline(coastline), m_lakes(lakes), m_random(random), m_noise(random.next()) {}

SampleLayer RoadNetwork::build() {
    SampleLayer layer("roads", wkbLineString, {{"class", OFTString}, {"name", OFTString}});
    const auto cities = townsOf({Town::City});
    const auto towns = townsOf({Town::City, Town::Market});
    addRoads(spanningLinks(cities), "motorway", layer);
    addRoads(spanningLinks(towns), "primary", layer);
    addRoads(nearestLinks(towns, 2), "secondary", layer);
    addRoads(spanningLinks(townsOf({Town::City, Town::Market, Town::Village})), "minor", layer);
    return layer;
}

std::vector<int> RoadNetwork::townsOf(std::initializer_list<Town::Kind> kinds) const {
    std::vector<int> found;
    for (int i = 0; i < int(m_towns.size()); ++i)
        if (std::find(kinds.begin(), kinds.end(), m_towns[i].kind) != kinds.end()) found.push_back(i);
    return found;
}

std::vector<RoadNetwork::Link> RoadNetwork::spanningLinks(const std::vector<int>& members) const {
    // Kruskal over each member's nearest neighbours: a minimum spanning tree without the full graph.
    PointIndex index;
    for (int i : members) index.insert(m_towns[i].position, i);
    std::vector<std::pair<double, Link>> candidates;
    for (int i : members)
        for (int j : index.nearest(m_towns[i].position, kCandidateNeighbours + 1))
            if (i < j) candidates.push_back({distance(m_towns[i].position, m_towns[j].position), {i, j}});
    std::sort(candidates.begin(), candidates.end());

    std::vector<int> parent(m_towns.size());
    std::iota(parent.begin(), parent.end(), 0);
    const auto root = [&parent](int i) {
        while (parent[i] != i) i = parent[i] = parent[parent[i]];
        return i;
    };
    std::vector<Link> links;
    for (const auto& candidate : candidates) {
        const int a = root(candidate.second.first), b = root(candidate.second.second);
        if (a == b) continue;
        parent[a] = b;
        links.push_back(candidate.second);
    }
    return links;
}

std::vector<RoadNetwork::Link> RoadNetwork::nearestLinks(const std::vector<int>& members, int rank) const {
    PointIndex index;
    for (int i : members) index.insert(m_towns[i].position, i);
    std::vector<Link> links;
    for (int i : members) {
        const auto near = index.nearest(m_towns[i].position, rank + 1);  // the first is the town itself
        if (int(near.size()) > rank) links.push_back({std::min(i, near[rank]), std::max(i, near[rank])});
    }
    return links;
}

void RoadNetwork::addRoads(const std::vector<Link>& links, const char* roadClass, SampleLayer& layer) {
    for (const Link& link : links) {
        if (!m_built.insert(link).second) continue;
        const QPointF& a = m_towns[link.first].position;
        const QPointF& b = m_towns[link.second].position;
        const double bend = m_random.uniform(-1, 1);
        // Try the drawn bend, the opposite one and a straight road before giving up on a link over water.
        for (double tryBend : {bend, -bend, 0.0}) {
            const auto line = route(a, b, tryBend);
            if (!isDry(line)) continue;
            auto geometry = std::make_unique<OGRLineString>();
            for (const QPointF& p : line) geometry->addPoint(p.x(), p.y());
            layer.add(std::move(geometry), {QString(roadClass), roadName(link, roadClass)});
            break;
        }
    }
}

QString RoadNetwork::roadName(const Link& link, const char* roadClass) {
    const QString from = m_towns[link.first].name, to = m_towns[link.second].name;
    const QString kind(roadClass);
    if (kind == "motorway") return QString("G%1").arg(11 + ++m_numbered);
    if (kind == "primary") return QString("S%1").arg(200 + ++m_numbered);
    if (kind == "secondary") return QString("%1-%2 Road").arg(from, to);
    return QString("%1 Lane").arg(m_towns[link.first].kind == Town::Village ? from : to);
}

std::vector<QPointF> RoadNetwork::route(const QPointF& a, const QPointF& b, double bend) const {
    const double length = distance(a, b);
    const int segments = std::max(2, int(length / kVertexSpacing));
    const QPointF along = (b - a) / length;
    const QPointF across(-along.y(), along.x());
    const double phase = 0.001 * (a.x() + b.y());
    std::vector<QPointF> line;
    for (int i = 0; i <= segments; ++i) {
        const double t = double(i) / segments;
        // A broad bend plus a little wander, both vanishing at the towns.
        const double wander = m_noise.fractal(phase + t * length / 6000.0, phase, 3);
        const double offset =
            std::sin(M_PI * t) * (bend * 0.12 * length + wander * std::min(0.08 * length, 1500.0));
        line.push_back(a + along * (t * length) + across * offset);
    }
    return line;
}

bool RoadNetwork::isDry(const std::vector<QPointF>& line) const {
    return std::all_of(line.begin(), line.end(), [this](const QPointF& p) {
        return m_coastline.isLand(p, kShoreClearance) &&
               std::none_of(m_lakes.begin(), m_lakes.end(),
                            [&](const StarShape& lake) { return lake.edgeDistance(p) > -kShoreClearance; });
    });
}
