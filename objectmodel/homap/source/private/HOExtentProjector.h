#pragma once
// HOExtentProjector: carries rectangles and vertex arrays from one coordinate system to another.
#include <vector>

#include "source/private/HOFeatureTopology.h"
#include "HORect.h"

namespace HXObjects {

class HOCoordinateSystem;

class HOExtentProjector {
public:
    // True when no transformation is needed: either side unknown, or both the same system.
    static bool IsIdentity(const HOCoordinateSystem* from, const HOCoordinateSystem* to);
    // The rectangle's bounds in `to` (edges densified, so curved edges are covered); the rectangle
    // itself when no transformation is needed, empty when none exists.
    static HORect Project(const HORect& rect, const HOCoordinateSystem* from, const HOCoordinateSystem* to);
    // Transforms in place; a vertex that cannot be transformed becomes NaN. False when there is no
    // transformation between the systems.
    static bool Project(std::vector<HOVertex>& vertices, const HOCoordinateSystem* from,
                        const HOCoordinateSystem* to);
};

}  // namespace HXObjects
