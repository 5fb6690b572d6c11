#pragma once
// HODoubleLine: the two lines that run parallel to a centre line at half a width on either side, with
// mitred joins at its corners (GEOS offset curves). The width is in metres on the ground: the centre
// line is taken into a local azimuthal equidistant frame around its middle (on the datum of the map's
// system), offset there and brought back, so the width holds in degrees and in any projection alike;
// a map without a coordinate system is taken to be in metres.
#include <vector>

#include "HOGeometry.h"
#include "HORefPtr.h"

namespace HXObjects {

class HOCoordinateSystem;

class HODoubleLine {
public:
    // The left and right lines (one path per part of the centre line); none when the width is not
    // above zero, no part has two distinct vertices, or the offset fails.
    static std::vector<HORefPtr<HOGeometry>> Make(const HOGeometry& centre, double widthMetres,
                                                  HOCoordinateSystem* mapSystem);

private:
    // The offset of each part in the geometry's own (metric) units; left for a positive distance.
    static HORefPtr<HOGeometry> offset(const HOGeometry& centre, double distance);
};

}  // namespace HXObjects
