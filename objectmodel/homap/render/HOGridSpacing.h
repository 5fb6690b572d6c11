#pragma once
// HOGridSpacing: how far apart a map's grid lines are when the spacing is automatic, and how a
// spacing too fine for the view thins itself.
//
// Automatic spacings depend on the map scale (denominator n of 1:n), as on a printed sheet:
//  - BL grid: the first angle of the ladder 1", 2", 5", 10", 20", 30", 1', 2', 5', 10', 20', 30', 1°,
//    2°, 5°, 10°, 15°, 30° that spans at least 2 cm of the sheet at the scale (ground distance
//    n * 0.02 m, converted with the metres in one arc second where the grid is read).
//  - KM grid "by map scale": the smallest 1, 2 or 5 times a power of ten of metres that spans at
//    least 2 cm of the sheet (1 km at 1:50 000, 2 km at 1:100 000, 200 m at 1:10 000).
//  - KM grid "by scale unit": the smallest power of ten of the ruler's unit (a whole metre, ten
//    metres, ... a kilometre, ten kilometres) that spans at least 1 cm of the sheet, so the lines
//    fall on round numbers of the unit the ruler is labelled in.
#include "HOUnitType.h"

namespace HXObjects {

class HOGridSpacing {
public:
    // Sheet lengths the automatic spacings aim at, metres.
    static constexpr double kMinSheetSpacing = 0.02;
    static constexpr double kMinUnitSpacing = 0.01;
    // Lines closer than this on screen smear into a tint; more than this many per direction are
    // never drawn.
    static constexpr double kMinPixels = 20.0;
    static constexpr double kMaxLines = 400.0;

    // Arc seconds.
    static double AutoAngle(double scaleDenominator, double metresPerArcSecond);
    // Metres.
    static double AutoByMapScale(double scaleDenominator);
    // Metres; `rulerUnit` is the unit the ruler is labelled in (unknown units: metres).
    static double AutoByScaleUnit(double scaleDenominator, HOUnitType rulerUnit);

    // `step` made coarser by a factor of 2, 5, 10, 20, ... until lines `step` apart across `span`
    // are at most kMaxLines and at least kMinPixels apart (`pixelsPerUnit` on screen). Keeps lines
    // on the same lattice. 0 when the step is not a positive finite number.
    static double Thinned(double step, double span, double pixelsPerUnit);
};

}  // namespace HXObjects
