#include "CcurrencyFunc.h"

#include <cmath>
#include <limits>

#include "private/HOTransverseMercator.h"

using HXObjects::HOTransverseMercator;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180.0;

// Packed digits are read back through decimal fractions that binary doubles cannot hold exactly
// (120.30 is 120.2999999999999...); this much slack keeps 30 minutes from becoming 29'59.99".
constexpr double kDigitSlack = 1e-9;

// The whole part of a non-negative value read with kDigitSlack, and what is left of it (never < 0).
double SplitWhole(double value, double* rest) {
    const double whole = std::floor(value + kDigitSlack);
    *rest = std::fmax(0.0, value - whole);
    return whole;
}

const HOTransverseMercator* ProjectionFor(int ellipsoid) {
    // Built on first use; the series coefficients depend on the ellipsoid only.
    static const HOTransverseMercator cgcs2000(6378137.0, 298.257222101);
    static const HOTransverseMercator krassovsky(6378245.0, 298.3);
    static const HOTransverseMercator iag75(6378140.0, 298.257);
    static const HOTransverseMercator wgs84(6378137.0, 298.257223563);
    switch (ellipsoid) {
        case CcurrencyFunc::CGCS2000:
        case CcurrencyFunc::GRS80:  // same a and f as CGCS2000 to far below a micrometre
            return &cgcs2000;
        case CcurrencyFunc::Krassovsky:
            return &krassovsky;
        case CcurrencyFunc::IAG75:
            return &iag75;
        case CcurrencyFunc::WGS84:
            return &wgs84;
        default:
            return nullptr;
    }
}

bool ReadAngle(double value, int angleFormat, double* degrees) {
    switch (angleFormat) {
        case CcurrencyFunc::DecimalDegrees:
            *degrees = value;
            return true;
        case CcurrencyFunc::PackedDms:
            *degrees = CcurrencyFunc::DmsToDegree(value);
            return true;
        default:
            return false;
    }
}

// False for NaN too.
bool InRange(double degrees, double limit) {
    return std::fabs(degrees) <= limit;
}

void WriteFailure(double* northing, double* easting) {
    if (northing) *northing = std::numeric_limits<double>::quiet_NaN();
    if (easting) *easting = std::numeric_limits<double>::quiet_NaN();
}

}  // namespace

double CcurrencyFunc::DmsToDegree(double packed) {
    if (!std::isfinite(packed)) return packed;
    double rest = 0.0;
    const double degrees = SplitWhole(std::fabs(packed), &rest);
    const double minutes = SplitWhole(rest * 100.0, &rest);
    const double seconds = rest * 100.0;
    return std::copysign(degrees + minutes / 60.0 + seconds / 3600.0, packed);
}

bool CcurrencyFunc::bl2XY(int ellipsoid, double lat, double lon, double centralMeridian, int /*zone*/,
                          double falseEasting, double* northing, double* easting, int angleFormat) {
    const HOTransverseMercator* projection = ProjectionFor(ellipsoid);
    double latDeg = 0.0, lonDeg = 0.0;
    if (!projection || !northing || !easting || !ReadAngle(lat, angleFormat, &latDeg) ||
        !ReadAngle(lon, angleFormat, &lonDeg) || !InRange(latDeg, 90.0) || !InRange(lonDeg, 360.0) ||
        !InRange(centralMeridian, 360.0) || !std::isfinite(falseEasting)) {
        WriteFailure(northing, easting);
        return false;
    }
    // Longitudes wrap: 179° east of a meridian at -177° is 4° west of it.
    const double dLonDeg = std::remainder(lonDeg - centralMeridian, 360.0);
    if (std::fabs(dLonDeg) >= 90.0) {
        WriteFailure(northing, easting);
        return false;
    }
    double x = 0.0, y = 0.0;
    projection->Forward(latDeg * kDegree, dLonDeg * kDegree, &x, &y);
    *northing = x;
    *easting = y + falseEasting;
    return true;
}
