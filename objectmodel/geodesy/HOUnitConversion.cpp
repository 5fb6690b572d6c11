#include "HOUnitConversion.h"

#include <cmath>

namespace HXObjects {

namespace {

// Below this, a remainder of 60 units is binary noise and is carried to the next unit up; it is far
// under the resolution anyone reads (about 3e-10 degrees).
constexpr double kCarrySlack = 1e-9;

// Splits a non-negative count of a unit into whole units and the remainder in sixtieths, carrying a
// remainder that is 60 but for noise.
double WholeAndSixtieths(double value, double* sixtieths) {
    double whole = std::floor(value);
    *sixtieths = (value - whole) * 60.0;
    if (*sixtieths >= 60.0 - kCarrySlack) {
        whole += 1.0;
        *sixtieths = 0.0;
    }
    return whole;
}

}  // namespace

double HOUnitConversion::DegreeToDms(double degrees) {
    if (!std::isfinite(degrees)) return degrees;
    double minutes = 0.0, seconds = 0.0;
    double whole = WholeAndSixtieths(std::fabs(degrees), &minutes);
    double wholeMinutes = WholeAndSixtieths(minutes, &seconds);
    if (wholeMinutes >= 60.0) {  // 59'59.9999999999" carried up to a full degree
        whole += 1.0;
        wholeMinutes = 0.0;
    }
    return std::copysign(whole + wholeMinutes / 100.0 + seconds / 10000.0, degrees);
}

double HOUnitConversion::DegreeToDdm(double degrees) {
    if (!std::isfinite(degrees)) return degrees;
    double minutes = 0.0;
    const double whole = WholeAndSixtieths(std::fabs(degrees), &minutes);
    return std::copysign(whole + minutes / 100.0, degrees);
}

}  // namespace HXObjects
