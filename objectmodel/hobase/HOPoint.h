#pragma once
// HOPoint: a position of two doubles (map units, page units or pixels, as the caller says).
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HOPoint {
    double x = 0.0;
    double y = 0.0;

    HOPoint() = default;
    HOPoint(double px, double py) : x(px), y(py) {}

    HOPoint operator+(const HOPoint& o) const { return {x + o.x, y + o.y}; }
    HOPoint operator-(const HOPoint& o) const { return {x - o.x, y - o.y}; }
    bool operator==(const HOPoint& o) const { return x == o.x && y == o.y; }
    bool operator!=(const HOPoint& o) const { return !(*this == o); }
};

}  // namespace HXObjects
