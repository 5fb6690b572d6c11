#pragma once
// HOSnapper: moves a map point onto the nearest vertex, or failing that the nearest segment, of the
// visible feature layers and graphic elements within the map's snap tolerance (pixels, converted with
// the view's scale). Feature candidates come from each layer's spatial index around the point, never
// from a scan of the layer. Used by the tools while digitising and moving; GUI thread.
#include <vector>

#include "HOGeometry.h"
#include "edit/HOSnapResult.h"

namespace HXObjects {

class HOMapView;

class HOSnapper {
public:
    // `ignoredElement`: an element (by id) the point must not snap to, such as the one being reshaped.
    static HOSnapResult Snap(const HOPoint& mapPoint, HOMapView* view, int ignoredElement = 0);
    // The same over given candidate parts, within `tolerance` map units.
    static HOSnapResult SnapTo(const HOPoint& point, const std::vector<HOGeometry::Part>& parts,
                               double tolerance);

private:
    static std::vector<HOGeometry::Part> candidates(HOMapView* view, const HORect& area, int ignoredElement);
};

}  // namespace HXObjects
