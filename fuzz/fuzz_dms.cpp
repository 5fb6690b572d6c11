// Packed angles (D.MMSS, D.MMmmm) and the Gauss–Krüger projection that reads them: finite in, finite
// out; minutes and seconds below 60; degrees survive packing and unpacking; a refused projection
// says so with NaN.
//   byte 0: even = the rest is a typed number (C locale), odd = raw doubles and projection settings.
#include <cmath>

#include "CcurrencyFunc.h"
#include "FuzzInput.h"
#include "HOUnitConversion.h"

using HXObjects::HOUnitConversion;

namespace {

QString numberText(double value) {
    return QString::number(value, 'g', 17);
}

bool sameSign(double a, double b) {
    return std::signbit(a) == std::signbit(b);
}

// The two decimal digits after the point of |packed| (minutes), then the rest (seconds), for angles
// small enough that a double holds those digits. Digits are read with slack for binary noise, as
// readers of packed angles do (3.15 is 3.1499999999999999).
bool sixtiethsBelow60(double packed, int levels) {
    double rest = std::fabs(packed);
    for (int i = 0; i < levels; ++i) {
        rest = std::fmax(0.0, rest - std::floor(rest + 1e-7)) * 100.0;
        if (rest >= 60.0 + 1e-5) return false;
    }
    return true;
}

void checkDegrees(double degrees) {
    const QString context = numberText(degrees);
    const double dms = HOUnitConversion::DegreeToDms(degrees);
    const double ddm = HOUnitConversion::DegreeToDdm(degrees);
    if (!std::isfinite(degrees)) {
        FUZZ_CHECK(
            std::isnan(degrees) ? std::isnan(dms) && std::isnan(ddm) : dms == degrees && ddm == degrees,
            context);
        return;
    }
    FUZZ_CHECK(std::isfinite(dms) && std::isfinite(ddm), context);
    FUZZ_CHECK(sameSign(dms, degrees) && sameSign(ddm, degrees), context);
    if (std::fabs(degrees) > 1e6) return;
    FUZZ_CHECK(sixtiethsBelow60(dms, 2) && sixtiethsBelow60(ddm, 1), context + " packed " + numberText(dms));
    if (std::fabs(degrees) > 1000.0) return;
    const double back = CcurrencyFunc::DmsToDegree(dms);
    FUZZ_CHECK(std::fabs(back - degrees) <= 1e-9,
               context + " packed " + numberText(dms) + " read " + numberText(back));
}

void checkPacked(double packed) {
    const double degrees = CcurrencyFunc::DmsToDegree(packed);
    const QString context = numberText(packed);
    if (!std::isfinite(packed)) {
        FUZZ_CHECK(std::isnan(packed) ? std::isnan(degrees) : degrees == packed, context);
        return;
    }
    FUZZ_CHECK(std::isfinite(degrees) && sameSign(degrees, packed), context);
    // Two digits of minutes and of seconds add less than 100/60 + 100/3600 to the whole degrees.
    if (std::fabs(packed) < 1e9) {
        const double whole = std::floor(std::fabs(packed) + 1e-9);
        FUZZ_CHECK(std::fabs(degrees) >= whole - 1e-9 && std::fabs(degrees) < whole + 1.7, context);
    }
}

void checkProjection(FuzzInput& input) {
    const int ellipsoid = input.byte() % 7 - 1;  // -1 and 5 are not ellipsoids
    const int format = input.byte() % 4 - 1;     // nor are -1 and 2 formats
    const double lat = input.rawDouble();
    const double lon = input.rawDouble();
    const double centralMeridian = input.rawDouble();
    const double falseEasting = input.rawDouble();
    double northing = 0.0;
    double easting = 0.0;
    const bool projected = CcurrencyFunc::bl2XY(ellipsoid, lat, lon, centralMeridian, 0, falseEasting,
                                                &northing, &easting, format);
    const QString context =
        QString("ellipsoid %1 format %2 lat %3 lon %4 L0 %5 FE %6")
            .arg(ellipsoid)
            .arg(format)
            .arg(numberText(lat), numberText(lon), numberText(centralMeridian), numberText(falseEasting));
    if (projected) {
        FUZZ_CHECK(std::isfinite(northing) && std::isfinite(easting), context);
    } else {
        FUZZ_CHECK(std::isnan(northing) && std::isnan(easting), context);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    if (input.byte() % 2 == 0) {
        bool ok = false;
        const double typed = input.text().toDouble(&ok);
        if (!ok) return 0;
        checkDegrees(typed);
        checkPacked(typed);
    } else {
        const double value = input.rawDouble();
        checkDegrees(value);
        checkPacked(value);
        checkProjection(input);
    }
    return 0;
}
