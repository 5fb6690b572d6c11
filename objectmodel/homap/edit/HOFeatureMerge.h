#pragma once
// HOFeatureMerge: the geometry of several features merged into one (their union through GEOS, a
// multi-part geometry where they do not meet), and the feature of largest area or length, whose
// attributes a merge keeps when the user asks for that.
#include <vector>

#include "HOFeature.h"
#include "HOString.h"

namespace HXObjects {

class HOFeatureMerge {
public:
    // Null with the reason when the features are not all points, all lines or all areas, or the
    // union fails or is not valid.
    static HORefPtr<HOGeometry> Union(const std::vector<HORefPtr<HOFeature>>& features, HOString* error);
    // The index of the feature of largest area (areas) or length (lines); 0 for points.
    static std::size_t Largest(const std::vector<HORefPtr<HOFeature>>& features);
};

}  // namespace HXObjects
