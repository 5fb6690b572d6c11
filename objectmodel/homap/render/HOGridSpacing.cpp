#include "HOGridSpacing.h"

#include <cmath>
#include <iterator>

#include "HOMapScale.h"

namespace HXObjects {

namespace {

// The first 1-2-5 multiple of a power of ten at least `minimum`, or of `unit` powers of ten.
double roundUp(double minimum, const double* steps, int count) {
    const double power = std::pow(10.0, std::floor(std::log10(minimum)));
    for (int i = 0; i < count; ++i) {
        if (steps[i] * power >= minimum * (1.0 - 1e-12)) return steps[i] * power;
    }
    return 10.0 * power;
}

}  // namespace

double HOGridSpacing::AutoAngle(double scaleDenominator, double metresPerArcSecond) {
    static const double ladder[] = {1,   2,    5,    10,   20,   30,    60,    120,   300,
                                    600, 1200, 1800, 3600, 7200, 18000, 36000, 54000, 108000};
    if (!(scaleDenominator > 0.0) || !(metresPerArcSecond > 0.0)) return ladder[12];
    const double wanted = scaleDenominator * kMinSheetSpacing / metresPerArcSecond;
    for (const double angle : ladder) {
        if (angle >= wanted) return angle;
    }
    return ladder[std::size(ladder) - 1];
}

double HOGridSpacing::AutoByMapScale(double scaleDenominator) {
    static const double steps[] = {1.0, 2.0, 5.0};
    if (!(scaleDenominator > 0.0) || !std::isfinite(scaleDenominator)) return 1000.0;
    return roundUp(scaleDenominator * kMinSheetSpacing, steps, 3);
}

double HOGridSpacing::AutoByScaleUnit(double scaleDenominator, HOUnitType rulerUnit) {
    static const double steps[] = {1.0};
    const double unit = HOMapScale::MetresPerUnit(rulerUnit);
    if (!(scaleDenominator > 0.0) || !std::isfinite(scaleDenominator)) return 1000.0;
    return roundUp(scaleDenominator * kMinUnitSpacing / unit, steps, 1) * unit;
}

double HOGridSpacing::Thinned(double step, double span, double pixelsPerUnit) {
    if (!(step > 0.0) || !std::isfinite(step)) return 0.0;
    static const double factors[] = {1.0, 2.0, 5.0};
    for (double power = 1.0; power < 1e18; power *= 10.0) {
        for (const double f : factors) {
            const double thinned = step * f * power;
            if (std::abs(span) / thinned <= kMaxLines && thinned * pixelsPerUnit >= kMinPixels)
                return thinned;
        }
    }
    return 0.0;
}

}  // namespace HXObjects
