#pragma once
// HOMapScale: scale denominators from map units per pixel and back. A scale is true on screen: a
// pixel is 0.0254 / dpi metres, with the screen's logical dpi.
//
// Degrees become metres along the equator of the WGS 84 ellipsoid: one degree is 2 * pi * 6378137 / 360
// metres (111 319.49 m), whatever the latitude, so a scale does not change while a map is panned.
#include "HOUnitType.h"

namespace HXObjects {

class HOMapScale {
public:
    static constexpr double kEarthRadius = 6378137.0;
    static constexpr double kMetresPerInch = 0.0254;

    // Metres in one map unit; unknown units are read as metres.
    static double MetresPerUnit(HOUnitType unit);
    // The primary screen's logical dpi, or 96 without a GUI application.
    static double ScreenDpi();
    static double Denominator(double unitsPerPixel, double metresPerUnit, double dpi);
    static double UnitsPerPixel(double denominator, double metresPerUnit, double dpi);
};

}  // namespace HXObjects
