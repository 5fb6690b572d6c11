#pragma once
// HODisplayTransform: pixels to map units and back. Five doubles, in this order: device origin left,
// device origin top (pixels), visible extent left, visible extent top (map units), map units per
// pixel. A pixel (px, py) is the map point
//   x = (px - left) * unitsPerPixel + extentLeft,  y = extentTop - (py - top) * unitsPerPixel.
#include "HOPoint.h"
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HODisplayTransform {
    double deviceLeft = 0.0;
    double deviceTop = 0.0;
    double extentLeft = 0.0;
    double extentTop = 0.0;
    double unitsPerPixel = 1.0;

    HOPoint ToMap(double px, double py) const {
        return {(px - deviceLeft) * unitsPerPixel + extentLeft, extentTop - (py - deviceTop) * unitsPerPixel};
    }
    HOPoint ToDevice(const HOPoint& map) const {
        return {(map.x - extentLeft) / unitsPerPixel + deviceLeft,
                (extentTop - map.y) / unitsPerPixel + deviceTop};
    }
    bool operator==(const HODisplayTransform& o) const {
        return deviceLeft == o.deviceLeft && deviceTop == o.deviceTop && extentLeft == o.extentLeft &&
               extentTop == o.extentTop && unitsPerPixel == o.unitsPerPixel;
    }
};

}  // namespace HXObjects
