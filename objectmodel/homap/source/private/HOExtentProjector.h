#pragma once
// HOExtentProjector: carries rectangles and vertex arrays from one coordinate system to another.
#include <vector>

#include "HORect.h"
#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOCoordinateSystem;

class HOExtentProjector {
public:
    // True when no transformation is needed: either side unknown, or both the same system.
    static bool IsIdentity(const HOCoordinateSystem* from, const HOCoordinateSystem* to);
    // The bounds in `to` of the part of the rectangle `to` can show (HOValidRegion), from samples
    // over the rectangle and the region's edge, so curved edges are covered and nothing the target
    // cannot project stretches it; the rectangle itself when no transformation is needed, empty when
    // none exists or nothing of it can be shown.
    static HORect Project(const HORect& rect, const HOCoordinateSystem* from, const HOCoordinateSystem* to);
    // Transforms in place; a vertex that cannot be transformed becomes NaN. False when there is no
    // transformation between the systems.
    static bool Project(std::vector<HOVertex>& vertices, const HOCoordinateSystem* from,
                        const HOCoordinateSystem* to);
};

}  // namespace HXObjects
