#include "HOGeometryWkt.h"

#include <cpl_error.h>
#include <ogr_geometry.h>

#include <QString>
#include <memory>

#include "source/private/HOOgrGeometry.h"

namespace HXObjects {

HOString HOGeometryWkt::ToWkt(const HOGeometry& geometry) {
    if (geometry.IsEmpty()) return HOString();
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRGeometryUniquePtr ogr = HOOgrGeometry::ToOgr(geometry);
    return ogr ? HOString(ogr->exportToWkt().c_str()) : HOString();
}

std::vector<HORefPtr<HOGeometry>> HOGeometryWkt::FromWkt(const HOString& text) {
    const std::string& wkt = text.toStdString();
    const char* rest = wkt.c_str();
    OGRGeometry* parsed = nullptr;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    const OGRErr error = OGRGeometryFactory::createFromWkt(&rest, nullptr, &parsed);
    OGRGeometryUniquePtr owner(parsed);
    // Text after the geometry makes the whole text something else.
    if (error != OGRERR_NONE || !parsed || !QString::fromUtf8(rest).trimmed().isEmpty()) return {};
    if (parsed->hasCurveGeometry()) owner.reset(parsed->getLinearGeometry());
    std::vector<HORefPtr<HOGeometry>> result;
    if (wkbFlatten(owner->getGeometryType()) == wkbGeometryCollection) {
        for (const OGRGeometry* member : *owner->toGeometryCollection()) {
            if (HORefPtr<HOGeometry> g = HOOgrGeometry::FromOgr(*member)) result.push_back(g);
        }
    } else if (HORefPtr<HOGeometry> g = HOOgrGeometry::FromOgr(*owner)) {
        result.push_back(g);
    }
    return result;
}

}  // namespace HXObjects
