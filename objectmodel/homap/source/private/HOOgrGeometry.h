#pragma once
// HOOgrGeometry: HOGeometry to and from OGR's geometry classes, exactly (no text in between).
// Polygon rings are sorted into polygons and holes by OGR.
#include <ogr_geometry.h>

#include "HOGeometry.h"
#include "HORefPtr.h"

namespace HXObjects {

class HOOgrGeometry {
public:
    // Null for an empty geometry or one of unknown type.
    static OGRGeometryUniquePtr ToOgr(const HOGeometry& geometry);
    // One geometry of a simple or multi type; null for anything else or an empty one.
    static HORefPtr<HOGeometry> FromOgr(const OGRGeometry& geometry);
};

}  // namespace HXObjects
