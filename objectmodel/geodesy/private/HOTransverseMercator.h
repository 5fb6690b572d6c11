#pragma once
// HOTransverseMercator: the forward transverse Mercator of one ellipsoid by Krüger's series in the
// third flattening n, carried to n^6 (sub-millimetre far beyond a 6° zone). Built once per
// ellipsoid; Forward() is const and thread-safe.
#include <array>

namespace HXObjects {

class HOTransverseMercator {
public:
    HOTransverseMercator(double semiMajorAxis, double inverseFlattening);

    // latitude and dLongitude (from the central meridian) in radians, |dLongitude| < pi/2.
    // Outputs are metres at unit scale: northing from the equator, easting from the meridian.
    void Forward(double latitude, double dLongitude, double* northing, double* easting) const;

private:
    double ConformalTan(double latitude) const;

    double m_e = 0.0;           // first eccentricity
    double m_rectifying = 0.0;  // radius of the rectifying sphere, A
    std::array<double, 6> m_alpha{};
};

}  // namespace HXObjects
