#pragma once
// HOCoordinateSystemOgr: the OGR face of HOCoordinateSystem, for the library's own readers, writers
// and projections. Kept out of the public header so hosts never need GDAL's headers.
#include "HOCoordinateSystem.h"

class OGRSpatialReference;

namespace HXObjects {

class HOCoordinateSystemOgr {
public:
    // Copies the definition; null for a null or empty reference.
    static HORefPtr<HOCoordinateSystem> FromOgr(const OGRSpatialReference* reference);
    // The definition behind a system; the system keeps it.
    static const OGRSpatialReference* Ogr(const HOCoordinateSystem* system);
};

}  // namespace HXObjects
