#include "edit/HODoubleLine.h"

#include <geos_c.h>
#include <ogr_spatialref.h>

#include <memory>

#include "HOCoordinateSystem.h"
#include "HOGeometryProject.h"
#include "private/HOCoordinateSystemOgr.h"

namespace HXObjects {

namespace {

constexpr int kQuadrantSegments = 8;
// Corners sharper than this (mitre length over half width) are bevelled instead of spiking out.
constexpr double kMitreLimit = 5.0;

using Context = std::unique_ptr<std::remove_pointer_t<GEOSContextHandle_t>, void (*)(GEOSContextHandle_t)>;

GEOSGeometry* ToGeos(GEOSContextHandle_t context, const HOGeometry::Part& part) {
    GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(context, unsigned(part.size()), 2);
    for (unsigned i = 0; i < part.size(); ++i)
        GEOSCoordSeq_setXY_r(context, sequence, i, part[i].x, part[i].y);
    return GEOSGeom_createLineString_r(context, sequence);  // takes the sequence
}

// Appends the paths of a line or multi-line.
void AppendPaths(GEOSContextHandle_t context, const GEOSGeometry* lines, HOGeometry& out) {
    for (int g = 0; g < GEOSGetNumGeometries_r(context, lines); ++g) {
        const GEOSCoordSequence* sequence =
            GEOSGeom_getCoordSeq_r(context, GEOSGetGeometryN_r(context, lines, g));
        unsigned size = 0;
        if (!sequence || !GEOSCoordSeq_getSize_r(context, sequence, &size) || size < 2) continue;
        HOGeometry::Part path(size);
        for (unsigned i = 0; i < size; ++i)
            GEOSCoordSeq_getXY_r(context, sequence, i, &path[i].x, &path[i].y);
        out.AddPart(std::move(path));
    }
}

// Distinct consecutive vertices only; GEOS offsets nothing shorter than two.
HOGeometry::Part Distinct(const HOGeometry::Part& part) {
    HOGeometry::Part distinct;
    for (const HOPoint& p : part)
        if (distinct.empty() || distinct.back().x != p.x || distinct.back().y != p.y) distinct.push_back(p);
    return distinct;
}

// A metric frame centred on the point (map units) on the datum of the map's system.
HORefPtr<HOCoordinateSystem> LocalFrame(HOCoordinateSystem* mapSystem, HOPoint centre) {
    std::unique_ptr<OGRSpatialReference> geographic(HOCoordinateSystemOgr::Ogr(mapSystem)->CloneGeogCS());
    if (!geographic) return nullptr;
    geographic->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const HORefPtr<HOCoordinateSystem> lonLat = HOCoordinateSystemOgr::FromOgr(geographic.get());
    HOGeometryProject toLonLat;
    if (!lonLat || !toLonLat.SetPrj(mapSystem, lonLat.get(), nullptr) ||
        !toLonLat.ProjPoint(centre.x, centre.y))
        return nullptr;
    OGRSpatialReference local(*geographic);
    local.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (local.SetAE(centre.y, centre.x, 0, 0) != OGRERR_NONE) return nullptr;
    return HOCoordinateSystemOgr::FromOgr(&local);
}

bool Reproject(HOGeometry& geometry, HOCoordinateSystem* from, HOCoordinateSystem* to) {
    HOGeometryProject project;
    return project.SetPrj(from, to, nullptr) && project.ProjHxGeometry(&geometry, geometry.GetType());
}

}  // namespace

std::vector<HORefPtr<HOGeometry>> HODoubleLine::Make(const HOGeometry& centre, double widthMetres,
                                                     HOCoordinateSystem* mapSystem) {
    if (!(widthMetres > 0)) return {};
    HORefPtr<HOGeometry> line(new HOGeometry(HOGeometry::GeoMultiLineString));
    for (const auto& part : centre.Parts())
        if (Distinct(part).size() > 1) line->AddPart(Distinct(part));
    if (line->IsEmpty()) return {};
    const HORefPtr<HOCoordinateSystem> local =
        mapSystem ? LocalFrame(mapSystem, line->GetEnvelope().Center()) : nullptr;
    if (mapSystem && (!local || !Reproject(*line, mapSystem, local.get()))) return {};
    std::vector<HORefPtr<HOGeometry>> sides;
    for (const double side : {widthMetres / 2, -widthMetres / 2}) {
        HORefPtr<HOGeometry> parallel = offset(*line, side);
        if (!parallel || (mapSystem && !Reproject(*parallel, local.get(), mapSystem))) return {};
        parallel->SetType(parallel->Parts().size() > 1 ? HOGeometry::GeoMultiLineString
                                                       : HOGeometry::GeoLineString);
        sides.push_back(parallel);
    }
    return sides;
}

HORefPtr<HOGeometry> HODoubleLine::offset(const HOGeometry& centre, double distance) {
    const Context context(GEOS_init_r(), GEOS_finish_r);  // no message handlers: GEOS stays quiet
    HORefPtr<HOGeometry> result(new HOGeometry(HOGeometry::GeoMultiLineString));
    for (const auto& part : centre.Parts()) {
        GEOSGeometry* path = ToGeos(context.get(), part);
        GEOSGeometry* parallel = path ? GEOSOffsetCurve_r(context.get(), path, distance, kQuadrantSegments,
                                                          GEOSBUF_JOIN_MITRE, kMitreLimit)
                                      : nullptr;
        if (parallel) AppendPaths(context.get(), parallel, *result);
        GEOSGeom_destroy_r(context.get(), parallel);
        GEOSGeom_destroy_r(context.get(), path);
    }
    return result->IsEmpty() ? nullptr : result;
}

}  // namespace HXObjects
