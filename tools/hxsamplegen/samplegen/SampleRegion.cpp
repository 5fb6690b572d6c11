#include "SampleRegion.h"

#include <ogr_geometry.h>

#include <cmath>

#include "LanduseMosaic.h"
#include "NameGenerator.h"
#include "RiverTracer.h"
#include "RoadNetwork.h"
#include "TownPlacer.h"

namespace {
// Streams of the seed, one per part of the region.
enum Part : quint64 { Coast = 1, Islands, Lakes, Relief, Names, Towns, Roads, Rivers, Landuse };

constexpr int kCoastVertices = 8000;
constexpr int kIslandCount = 5;
constexpr int kLakeCount = 14;
constexpr int kPlacementAttempts = 400;

QPointF randomPoint(SampleRandom& random, const QRectF& r) {
    return QPointF(random.uniform(r.left(), r.right()), random.uniform(r.top(), r.bottom()));
}
}  // namespace

SampleRegion::SampleRegion(quint64 seed, double scale)
    : m_random(seed),
      m_coastline(mainland(m_random.fork(Coast))),
      m_terrain(m_coastline, m_islands, m_random.fork(Relief).next()) {
    addIslands(m_random.fork(Islands));
    addLakes(m_random.fork(Lakes));
    NameGenerator names(m_random.fork(Names));
    m_towns = TownPlacer(m_coastline, m_terrain, m_lakes, names, m_random.fork(Towns)).place(scale);

    m_layers.push_back(landLayer());
    m_layers.push_back(seaLayer(m_layers.back()));
    m_layers.push_back(lakeLayer(names));
    m_layers.push_back(
        LanduseMosaic(m_coastline, m_terrain, m_lakes, m_towns, m_random.fork(Landuse).next()).build(scale));
    m_layers.push_back(RiverTracer(m_coastline, m_terrain, names, m_random.fork(Rivers)).build(scale));
    m_layers.push_back(RoadNetwork(m_towns, m_coastline, m_lakes, m_random.fork(Roads)).build());
    m_layers.push_back(townLayer());
}

QRectF SampleRegion::extent() {
    return QRectF(505000, 3395000, 100000, 70000);
}

Coastline SampleRegion::mainland(SampleRandom random) {
    // The land's heart lies in the north-west; its rim swings through the region as the coast, with
    // the sea to the east and south. Sampling noise on a circle gives bays and headlands tens of
    // kilometres across, then a rugged shore whose bumps are smaller than they are wide, so the coast
    // frays without sprouting spikes.
    const QRectF region = extent();
    const QPointF centre(region.left() + 0.15 * region.width(), region.top() + 0.7 * region.height());
    const FractalNoise noise(random.next());
    std::vector<double> shore(kCoastVertices), broad(kCoastVertices);
    for (int i = 0; i < kCoastVertices; ++i) {
        const double angle = 2 * M_PI * i / kCoastVertices;
        const double c = std::cos(angle), s = std::sin(angle);
        broad[i] = std::max(20000.0, 60000 + 60000 * noise.fractal(2.5 * c, 2.5 * s, 3));
        shore[i] = broad[i] + 3000 * noise.fractal(40 * c + 50, 40 * s, 6);
    }
    return Coastline(region, StarShape(centre, std::move(shore)), StarShape(centre, std::move(broad)));
}

bool SampleRegion::isClear(const StarShape& shape, const std::vector<StarShape>& others, double gap) const {
    for (const StarShape& other : others) {
        const QPointF d = other.centre() - shape.centre();
        if (std::hypot(d.x(), d.y()) < other.maxRadius() + shape.maxRadius() + gap) return false;
    }
    return true;
}

void SampleRegion::addIslands(SampleRandom random) {
    const FractalNoise noise(random.next());
    const QRectF region = extent();
    for (int attempt = 0; int(m_islands.size()) < kIslandCount && attempt < kPlacementAttempts; ++attempt) {
        const double radius = random.uniform(500, 2400);
        StarShape island =
            StarShape::blob(randomPoint(random, region), radius, 0.4, 180, noise, random.uniform(0, 100));
        const double reach = island.maxRadius() + 300;
        const bool offshore = m_coastline.inlandDistance(island.centre()) < -reach - 800;
        const bool inside = region.adjusted(reach, reach, -reach, -reach).contains(island.centre());
        if (offshore && inside && isClear(island, m_islands, 800)) m_islands.push_back(std::move(island));
    }
}

void SampleRegion::addLakes(SampleRandom random) {
    const FractalNoise noise(random.next());
    for (int attempt = 0; int(m_lakes.size()) < kLakeCount && attempt < kPlacementAttempts; ++attempt) {
        const double radius = 400 * std::pow(5.0, random.uniform());
        StarShape lake =
            StarShape::blob(randomPoint(random, extent()), radius, 0.4, 140, noise, random.uniform(0, 100));
        if (m_coastline.isLand(lake.centre(), lake.maxRadius() + 1500) && isClear(lake, m_lakes, 1500))
            m_lakes.push_back(std::move(lake));
    }
}

SampleLayer SampleRegion::landLayer() const {
    SampleLayer layer("land", wkbMultiPolygon, {});
    auto land = std::make_unique<OGRMultiPolygon>();
    land->addGeometryDirectly(m_coastline.polygon().release());
    for (const StarShape& island : m_islands) {
        auto polygon = new OGRPolygon;
        polygon->addRingDirectly(island.ring().release());
        land->addGeometryDirectly(polygon);
    }
    layer.add(std::move(land));
    return layer;
}

SampleLayer SampleRegion::seaLayer(const SampleLayer& land) const {
    // The region's rectangle less its land: a map can show the sea inside the region and leave
    // what lies beyond the region's edge blank, as a map sheet does.
    SampleLayer layer("sea", wkbMultiPolygon, {});
    const QRectF r = extent();
    OGRLinearRing* ring = new OGRLinearRing;
    for (const QPointF& p : {r.topLeft(), r.topRight(), r.bottomRight(), r.bottomLeft(), r.topLeft()})
        ring->addPoint(p.x(), p.y());
    OGRPolygon rectangle;
    rectangle.addRingDirectly(ring);
    std::unique_ptr<OGRGeometry> sea(rectangle.Difference(land.features().front().geometry.get()));
    if (sea) layer.add(std::unique_ptr<OGRGeometry>(OGRGeometryFactory::forceToMultiPolygon(sea.release())));
    return layer;
}

SampleLayer SampleRegion::lakeLayer(NameGenerator& names) const {
    SampleLayer layer("lakes", wkbPolygon, {{"name", OFTString}, {"name_zh", OFTString}});
    for (const StarShape& lake : m_lakes) {
        auto polygon = std::make_unique<OGRPolygon>();
        polygon->addRingDirectly(lake.ring().release());
        const QString name = names.next();
        layer.add(std::move(polygon), {"Lake " + name, NameGenerator::chinese(name, QStringLiteral("湖"))});
    }
    return layer;
}

SampleLayer SampleRegion::townLayer() const {
    SampleLayer layer(
        "towns", wkbPoint,
        {{"name", OFTString}, {"name_zh", OFTString}, {"population", OFTInteger}, {"kind", OFTString}});
    for (const Town& town : m_towns)
        layer.add(std::make_unique<OGRPoint>(town.position.x(), town.position.y()),
                  {town.name, NameGenerator::chinese(town.name, town.chineseSuffix()), town.population,
                   town.kindName()});
    return layer;
}
