#include "LanduseMosaic.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>

#include "Coastline.h"
#include "DryLand.h"
#include "SampleRandom.h"
#include "StarShape.h"
#include "Terrain.h"

namespace {
constexpr double kBaseCell = 1000;    // parcel size in metres at scale 1
constexpr double kJitter = 0.22;      // of a cell
constexpr double kEdgeWander = 0.06;  // of an edge's length
constexpr double kEdgeVertexSpacing = 130;
constexpr double kMinShoreParcel = 0.02;  // of a cell's area: smaller shore slivers are dropped

quint64 nodeKey(int i, int j) {
    return (quint64(quint32(i)) << 32) | quint32(j);
}
}  // namespace

LanduseMosaic::LanduseMosaic(const Coastline& coastline, const Terrain& terrain,
                             const std::vector<StarShape>& lakes, const std::vector<Town>& towns,
                             quint64 seed)
    : m_coastline(coastline),
      m_terrain(terrain),
      m_lakes(lakes),
      m_towns(towns),
      m_seed(seed),
      m_noise(seed) {
    for (int t = 0; t < int(towns.size()); ++t)
        if (towns[t].kind != Town::Village) m_townIndex.insert(towns[t].position, t);
}

SampleLayer LanduseMosaic::build(double scale) {
    SampleLayer layer("landuse", wkbPolygon, {{"class", OFTString}});
    m_cell = kBaseCell / std::sqrt(scale);
    std::vector<std::unique_ptr<OGRPolygon>> lakes;
    std::vector<const OGRGeometry*> lakeShapes;
    for (const StarShape& lake : m_lakes) {
        lakes.push_back(std::make_unique<OGRPolygon>());
        lakes.back()->addRingDirectly(lake.ring().release());
        lakeShapes.push_back(lakes.back().get());
    }
    const QRectF& region = m_coastline.region();
    const DryLand dryLand(*m_coastline.polygon(), lakeShapes, region, std::max(5000.0, 4 * m_cell),
                          2 * m_cell);
    // One cell beyond the region on every side, so that the clipped parcels reach its edges.
    const int columns = int(region.width() / m_cell) + 1, rows = int(region.height() / m_cell) + 1;
    for (int j = -1; j < rows; ++j)
        for (int i = -1; i < columns; ++i) addParcel({i, j}, dryLand, layer);
    return layer;
}

void LanduseMosaic::addParcel(const Node& corner, const DryLand& dryLand, SampleLayer& layer) const {
    const Site site = siteOf(corner);
    if (site == Site::Water) return;
    auto shape = parcel(corner);
    if (site == Site::Inland) {
        layer.add(std::move(shape),
                  {classAt((position(corner) + position({corner.i + 1, corner.j + 1})) / 2)});
        return;
    }
    if (!DryLand::canClip()) return;
    const double sliver = kMinShoreParcel * m_cell * m_cell;
    for (auto& part : dryLand.clip(*shape)) {
        if (part->get_Area() <= sliver) continue;
        // Classed where the remaining land is: the cell's middle may lie at sea or outside the region.
        OGRPoint inside;
        part->PointOnSurface(&inside);
        layer.add(std::move(part), {classAt(QPointF(inside.getX(), inside.getY()))});
    }
}

std::unique_ptr<OGRPolygon> LanduseMosaic::parcel(const Node& corner) const {
    const int i = corner.i, j = corner.j;
    const Node corners[5] = {{i, j}, {i + 1, j}, {i + 1, j + 1}, {i, j + 1}, {i, j}};
    auto ring = new OGRLinearRing;
    for (int k = 0; k < 4; ++k)
        for (const QPointF& p : edge(corners[k], corners[k + 1])) ring->addPoint(p.x(), p.y());
    ring->closeRings();
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRingDirectly(ring);
    return polygon;
}

QPointF LanduseMosaic::position(const Node& n) const {
    const quint64 hash = SampleRandom::mix(m_seed ^ SampleRandom::mix(nodeKey(n.i, n.j)));
    const double dx = SampleRandom::unit(hash) - 0.5, dy = SampleRandom::unit(SampleRandom::mix(hash)) - 0.5;
    const QRectF& region = m_coastline.region();
    return QPointF(region.left() + (n.i + 0.5 + 2 * kJitter * dx) * m_cell,
                   region.top() + (n.j + 0.5 + 2 * kJitter * dy) * m_cell);
}

std::vector<QPointF> LanduseMosaic::edge(const Node& a, const Node& b) const {
    // Compute the edge always from its lower corner so both parcels along it get identical points.
    const bool forward = nodeKey(a.i, a.j) < nodeKey(b.i, b.j);
    const Node& from = forward ? a : b;
    const Node& to = forward ? b : a;
    const QPointF p = position(from), q = position(to);
    const double length = std::hypot(q.x() - p.x(), q.y() - p.y());
    const int segments = std::clamp(int(length / kEdgeVertexSpacing), 1, 8);
    const QPointF across = QPointF(p.y() - q.y(), q.x() - p.x()) / length;
    const double phase =
        100 * SampleRandom::unit(SampleRandom::mix(nodeKey(from.i, from.j) ^ (nodeKey(to.i, to.j) << 1)));
    std::vector<QPointF> points;
    for (int k = 0; k <= segments; ++k) {
        const double t = double(k) / segments;
        const double wander =
            k == 0 || k == segments ? 0 : std::sin(M_PI * t) * m_noise.fractal(phase + 1.7 * t, phase, 2);
        points.push_back(p + (q - p) * t + across * (kEdgeWander * length * wander));
    }
    if (!forward) std::reverse(points.begin(), points.end());
    points.pop_back();
    return points;
}

LanduseMosaic::Site LanduseMosaic::siteOf(const Node& corner) const {
    const QPointF corners[4] = {position(corner), position({corner.i + 1, corner.j}),
                                position({corner.i + 1, corner.j + 1}), position({corner.i, corner.j + 1})};
    // Edges wander less than a quarter cell off their corners.
    const double reach = 0.25 * m_cell;
    const bool dry = std::all_of(std::begin(corners), std::end(corners),
                                 [&](const QPointF& p) { return m_coastline.isLand(p, reach); });
    const bool wet = std::none_of(std::begin(corners), std::end(corners),
                                  [&](const QPointF& p) { return m_coastline.isLand(p, -reach); });
    if (wet) return Site::Water;
    const QPointF middle = (corners[0] + corners[2]) / 2;
    const bool nearLake = std::any_of(m_lakes.begin(), m_lakes.end(), [&](const StarShape& lake) {
        const QPointF d = lake.centre() - middle;
        return std::hypot(d.x(), d.y()) < lake.maxRadius() + m_cell;
    });
    return dry && !nearLake ? Site::Inland : Site::Shore;
}

bool LanduseMosaic::isUrban(const QPointF& p) const {
    for (int t : m_townIndex.nearest(p, 3)) {
        const Town& town = m_towns[t];
        const double reach =
            (town.kind == Town::City ? 1200 : 300) + 3.5 * std::sqrt(double(town.population));
        const QPointF d = town.position - p;
        if (std::hypot(d.x(), d.y()) < reach * (1 + 0.35 * m_noise.noise(p.x() / 900, p.y() / 900)))
            return true;
    }
    return false;
}

QString LanduseMosaic::classAt(const QPointF& p) const {
    if (isUrban(p)) return "urban";
    const double elevation = m_terrain.elevation(p);
    const double moisture = m_noise.fractal(p.x() / 7000 + 300, p.y() / 7000, 3);
    const double cover = m_noise.fractal(p.x() / 5000 - 300, p.y() / 5000, 3);
    const bool lakeShore = std::any_of(m_lakes.begin(), m_lakes.end(), [&](const StarShape& lake) {
        return lake.edgeDistance(p) > -1.5 * m_cell - 300;
    });
    if ((elevation < 12 && moisture > 0.05) || (lakeShore && moisture > -0.15)) return "wetland";
    if (elevation > 560 + 200 * cover || cover > 0.3) return "forest";
    if (elevation > 480) return "grassland";
    if (cover < -0.3) return "orchard";
    return "farmland";
}
