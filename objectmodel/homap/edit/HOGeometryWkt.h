#pragma once
// HOGeometryWkt: geometries to and from well-known text, through OGR. Reading splits a geometry
// collection into its members; curves come back as straight segments.
#include "HOGeometry.h"
#include "HORefPtr.h"
#include "HOString.h"

#include <vector>

namespace HXObjects {

class HOGeometryWkt {
public:
    // Empty for an empty geometry.
    static HOString ToWkt(const HOGeometry& geometry);
    // The geometries of one WKT text; empty when the text is not WKT.
    static std::vector<HORefPtr<HOGeometry>> FromWkt(const HOString& text);
};

}  // namespace HXObjects
