#pragma once
// HORect: an extent held as minimum x, maximum x, minimum y, maximum y (the order of OGR's envelope).
// A rectangle without positive width and height (the default one included) is empty; operations
// that take an area read an empty rectangle as "everything".
#include <cmath>

#include "HOPoint.h"
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HORect {
    double minx = 0.0;
    double maxx = 0.0;
    double miny = 0.0;
    double maxy = 0.0;

    HORect() = default;
    HORect(double minX, double maxX, double minY, double maxY)
        : minx(minX), maxx(maxX), miny(minY), maxy(maxY) {}

    // False for NaN bounds too.
    bool IsEmpty() const { return !(maxx > minx && maxy > miny); }
    // No bound is infinite or NaN.
    bool IsFinite() const {
        return std::isfinite(minx) && std::isfinite(maxx) && std::isfinite(miny) && std::isfinite(maxy);
    }
    double Width() const { return maxx - minx; }
    double Height() const { return maxy - miny; }
    HOPoint Center() const { return {(minx + maxx) / 2.0, (miny + maxy) / 2.0}; }

    bool Contains(const HOPoint& p) const { return p.x >= minx && p.x <= maxx && p.y >= miny && p.y <= maxy; }
    bool Intersects(const HORect& o) const {
        return !(o.minx > maxx || o.maxx < minx || o.miny > maxy || o.maxy < miny);
    }
    // The smallest rectangle holding both; an empty operand is ignored.
    HORect United(const HORect& o) const;

    bool operator==(const HORect& o) const {
        return minx == o.minx && maxx == o.maxx && miny == o.miny && maxy == o.maxy;
    }
    bool operator!=(const HORect& o) const { return !(*this == o); }
};

}  // namespace HXObjects
