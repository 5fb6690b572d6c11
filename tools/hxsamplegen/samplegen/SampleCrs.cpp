#include "SampleCrs.h"

#include <ogr_spatialref.h>

std::unique_ptr<OGRSpatialReference> SampleCrs::fromEpsg(int code) {
    auto srs = std::make_unique<OGRSpatialReference>();
    if (srs->importFromEPSG(code) != OGRERR_NONE) return nullptr;
    srs->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return srs;
}
