#include "HOGeometryProject.h"

#include <ogr_spatialref.h>

#include "HOCoordinateSystem.h"
#include "private/HOCoordinateSystemOgr.h"

namespace HXObjects {

class HOGeometryProject::Private {
public:
    std::unique_ptr<OGRCoordinateTransformation> transform;
};

HOGeometryProject::HOGeometryProject() : d(std::make_unique<Private>()) {}
HOGeometryProject::~HOGeometryProject() = default;

bool HOGeometryProject::SetPrj(HOCoordinateSystem* from, HOCoordinateSystem* to, HOParaConvertBase*) {
    d->transform.reset();
    if (!from || !to) return false;
    OGRSpatialReference source(*HOCoordinateSystemOgr::Ogr(from));
    OGRSpatialReference target(*HOCoordinateSystemOgr::Ogr(to));
    source.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    target.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    d->transform.reset(OGRCreateCoordinateTransformation(&source, &target));
    return d->transform != nullptr;
}

bool HOGeometryProject::ProjHxGeometry(HOGeometry* geometry, HOGeometry::GeoType) {
    if (!d->transform || !geometry) return false;
    // Transform a copy so a failure part-way leaves the caller's geometry as it was.
    std::vector<HOGeometry::Part> parts = geometry->Parts();
    for (HOGeometry::Part& part : parts) {
        for (HOPoint& p : part)
            if (!ProjPoint(p.x, p.y)) return false;
    }
    geometry->Parts() = std::move(parts);
    return true;
}

bool HOGeometryProject::ProjPoint(double& x, double& y) const {
    if (!d->transform) return false;
    double tx = x, ty = y;
    if (!d->transform->Transform(1, &tx, &ty) || !std::isfinite(tx) || !std::isfinite(ty)) return false;
    x = tx;
    y = ty;
    return true;
}

}  // namespace HXObjects
