#pragma once
// HOGeometryHit: how far a point is from a geometry, in the geometry's units: to the nearest point,
// to the nearest segment of a path, or 0 inside a polygon (odd-even over all rings).
#include "HOGeometry.h"

namespace HXObjects {

class HOGeometryHit {
public:
    static double Distance(const HOGeometry& geometry, const HOPoint& point);

private:
    static double toSegment(const HOPoint& p, const HOPoint& a, const HOPoint& b);
    static double toParts(const HOGeometry& geometry, const HOPoint& point, bool closed);
    static bool inside(const HOGeometry& geometry, const HOPoint& point);
};

}  // namespace HXObjects
