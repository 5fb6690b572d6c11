#include "source/private/HOStoreReprojector.h"

#include <cpl_error.h>
#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>

#include "HOCoordinateSystem.h"
#include "private/HOCoordinateSystemOgr.h"
#include "source/private/HOExtentProjector.h"
#include "source/private/HOValidRegion.h"

namespace HXObjects {

namespace {

constexpr double densifyStep = 1.0;  // degrees: the longest edge left as it is

bool finite(const HOVertex& v) {
    return std::isfinite(v.x) && std::isfinite(v.y);
}

}  // namespace

std::shared_ptr<const HOFeatureStore> HOStoreReprojector::Project(const HOFeatureStore& source,
                                                                  const HOCoordinateSystem* from,
                                                                  const HOCoordinateSystem* to) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);  // GEOS reports a failed cut through CPL
    const HOValidRegion region(to);
    const HOCoordinateSystem* degreesSystem = region.Geographic().get();
    std::vector<HOVertex> vertices = source.Vertices();
    if (!degreesSystem || !HOExtentProjector::Project(vertices, from, degreesSystem)) return nullptr;
    const HOFeatureTopology& topology = source.Topology();
    std::shared_ptr<const HOFeatureTopology> parts = source.SharedTopology();
    const bool densify = !HOCoordinateSystemOgr::Ogr(to)->IsGeographic();
    if (topology.IsSinglePoints() || (region.IsWholeWorld() && !densify)) {
        // Parts stay as they are: points outside are left out when drawn.
        for (HOVertex& v : vertices)
            v = region.Contains(region.Home(v)) ? region.Home(v) : HOVertex{NAN, NAN};
    } else {
        HOStoreReprojector builder(region, densify);
        builder.cutFeatures(topology, vertices);
        vertices = std::move(builder.m_vertices);
        parts = std::make_shared<const HOFeatureTopology>(std::move(builder.m_topology));
    }
    if (!HOExtentProjector::Project(vertices, degreesSystem, to)) return nullptr;
    return std::make_shared<const HOFeatureStore>(std::move(parts), std::move(vertices));
}

HOStoreReprojector::HOStoreReprojector(const HOValidRegion& region, bool densify)
    : m_region(region), m_densify(densify) {}

void HOStoreReprojector::cutFeatures(const HOFeatureTopology& t, const std::vector<HOVertex>& degrees) {
    m_topology.Reserve(t.FeatureCount());
    m_vertices.reserve(degrees.size() + degrees.size() / 8);
    const auto inside = [&](const HOVertex& v) { return m_region.Contains(v); };
    for (std::size_t f = 0; f < t.FeatureCount(); ++f) {
        for (uint32_t part = t.PartBegin(f); part < t.PartEnd(f); ++part) {
            const HOVertex* first = degrees.data() + t.VertexBegin(part);
            const HOVertex* last = degrees.data() + t.VertexEnd(part);
            const HOFeatureKind kind = t.PartKind(f, part);
            if (kind == HOFeatureKind::Point) {
                for (const HOVertex* v = first; v != last; ++v)
                    if (inside(m_region.Home(*v))) m_vertices.push_back(m_region.Home(*v));
                m_topology.EndPart(uint32_t(m_vertices.size()), kind);
            } else if (std::all_of(first, last, inside)) {
                appendPart(first, last, kind, 0.0);
            } else {
                cutPart(first, last, kind);
            }
        }
        m_topology.EndFeature(t.Kind(f), t.Id(f));
    }
    m_topology.Compact();
}

void HOStoreReprojector::cutPart(const HOVertex* first, const HOVertex* last, HOFeatureKind kind) {
    const bool area = kind == HOFeatureKind::Polygon;
    m_scratch.clear();
    std::copy_if(first, last, std::back_inserter(m_scratch), finite);
    if (m_scratch.size() < (area ? 3u : 2u)) return;
    HOBox box;
    for (const HOVertex& v : m_scratch) box.Add(v);
    std::unique_ptr<OGRGeometry> geometry;  // made once the region is known to come near
    for (const HOValidRegion::Turn& turn : m_region.Turns()) {
        // The region near the part only (a degree around it), so a cut costs what the part does.
        HOBox near;
        near.min = {std::max(box.min.x - 1.0, turn.west), box.min.y - 1.0};
        near.max = {std::min(box.max.x + 1.0, turn.east), box.max.y + 1.0};
        const std::unique_ptr<OGRGeometry> shape = m_region.ShapeIn(near);
        if (!shape) continue;
        if (!geometry) geometry = toOgr(area);
        std::unique_ptr<OGRGeometry> cut(geometry->Intersection(shape.get()));
        if (!cut && area) {
            // A ring that crosses itself: GEOS cuts its valid form instead.
            std::unique_ptr<OGRGeometry> valid(geometry->MakeValid());
            if (valid) cut.reset(valid->Intersection(shape.get()));
        }
        if (cut) appendPieces(*cut, kind, turn.shift);
    }
}

std::unique_ptr<OGRGeometry> HOStoreReprojector::toOgr(bool area) const {
    static_assert(sizeof(OGRRawPoint) == sizeof(HOVertex), "vertices are copied as OGR raw points");
    const auto* points = reinterpret_cast<const OGRRawPoint*>(m_scratch.data());
    if (!area) {
        auto line = std::make_unique<OGRLineString>();
        line->setPoints(int(m_scratch.size()), points);
        return line;
    }
    auto* ring = new OGRLinearRing;
    ring->setPoints(int(m_scratch.size()), points);
    ring->closeRings();
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRingDirectly(ring);
    return polygon;
}

void HOStoreReprojector::appendPieces(const OGRGeometry& geometry, HOFeatureKind kind, double shift) {
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) {
        for (const OGRGeometry* member : *geometry.toGeometryCollection()) appendPieces(*member, kind, shift);
        return;
    }
    // A cut may leave bits of lower dimension where the part touches the edge: those are dropped.
    if (kind == HOFeatureKind::Polygon && type == wkbPolygon) {
        for (const OGRLinearRing* ring : *geometry.toPolygon()) appendCurve(*ring, kind, shift);
    } else if (kind == HOFeatureKind::Line && type == wkbLineString) {
        appendCurve(*geometry.toSimpleCurve(), kind, shift);
    }
}

void HOStoreReprojector::appendCurve(const OGRSimpleCurve& curve, HOFeatureKind kind, double shift) {
    m_piece.resize(std::size_t(curve.getNumPoints()));
    curve.getPoints(reinterpret_cast<OGRRawPoint*>(m_piece.data()));
    appendPart(m_piece.data(), m_piece.data() + m_piece.size(), kind, shift);
}

void HOStoreReprojector::appendPart(const HOVertex* first, const HOVertex* last, HOFeatureKind kind,
                                    double shift) {
    const HOVertex* previous = nullptr;
    for (const HOVertex* v = first; v != last; ++v) {
        if (!finite(*v)) continue;
        const HOVertex here{v->x + shift, v->y};
        if (m_densify && previous) {
            const HOVertex from{previous->x + shift, previous->y};
            const double span = std::max(std::fabs(here.x - from.x), std::fabs(here.y - from.y));
            const int steps = int(std::ceil(span / densifyStep));
            for (int i = 1; i < steps; ++i)
                m_vertices.push_back(
                    {from.x + (here.x - from.x) * i / steps, from.y + (here.y - from.y) * i / steps});
        }
        m_vertices.push_back(here);
        previous = v;
    }
    m_topology.EndPart(uint32_t(m_vertices.size()), kind);
}

}  // namespace HXObjects
