#include "HOFeatureMerge.h"

#include <QCoreApplication>

#include <ogr_api.h>

#include "source/private/HOOgrGeometry.h"

namespace HXObjects {

namespace {

OGRGeometryUniquePtr OgrOf(const HOFeature& feature) {
    return feature.GetGeometry() ? HOOgrGeometry::ToOgr(*feature.GetGeometry()) : nullptr;
}

double Size(const OGRGeometry* geometry) {
    if (!geometry) return 0;
    switch (OGR_GT_GetCollection(wkbFlatten(geometry->getGeometryType()))) {
        case wkbMultiPolygon:
            return OGR_G_Area(OGRGeometry::ToHandle(const_cast<OGRGeometry*>(geometry)));
        case wkbMultiLineString:
            return OGR_G_Length(OGRGeometry::ToHandle(const_cast<OGRGeometry*>(geometry)));
        default:
            return 0;
    }
}

// The texts of this file, translated in the context HXObjects::HOFeatureMerge.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(HXObjects::HOFeatureMerge)
};

}  // namespace

HORefPtr<HOGeometry> HOFeatureMerge::Union(const std::vector<HORefPtr<HOFeature>>& features,
                                           HOString* error) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRGeometryUniquePtr merged;
    OGRwkbGeometryType kind = wkbUnknown;
    for (const HORefPtr<HOFeature>& feature : features) {
        OGRGeometryUniquePtr geometry = OgrOf(*feature);
        if (!geometry) continue;
        const OGRwkbGeometryType k = OGR_GT_GetCollection(wkbFlatten(geometry->getGeometryType()));
        if (kind != wkbUnknown && k != kind) {
            *error = Text::tr("Features of different geometry types cannot be merged");
            return nullptr;
        }
        kind = k;
        merged.reset(merged ? merged->Union(geometry.get()) : geometry.release());
        if (!merged) break;
    }
    HORefPtr<HOGeometry> result = merged ? HOOgrGeometry::FromOgr(*merged) : nullptr;
    if (!result || !merged->IsValid()) {
        *error = Text::tr("The merged geometry is not valid; nothing was merged");
        return nullptr;
    }
    return result;
}

std::size_t HOFeatureMerge::Largest(const std::vector<HORefPtr<HOFeature>>& features) {
    std::size_t best = 0;
    double largest = -1;
    for (std::size_t i = 0; i < features.size(); ++i) {
        const double size = Size(OgrOf(*features[i]).get());
        if (size > largest) {
            largest = size;
            best = i;
        }
    }
    return best;
}

}  // namespace HXObjects
