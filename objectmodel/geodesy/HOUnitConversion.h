#pragma once
// HOUnitConversion: decimal degrees to the packed forms shown to users — D.MMSS (degrees, minutes,
// seconds) and D.MMmmm (degrees and decimal minutes). Stateless; the functions are static so a
// caller may use an instance or the class.
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOUnitConversion {
public:
    // 120.5 -> 120.30, 120.50425 -> 120.301530 (120°30'15.30"); -120.5 -> -120.30.
    // Seconds that round to 60 carry into the minutes, minutes into the degrees.
    static double DegreeToDms(double degrees);
    // 120.5 -> 120.30, 120.5125 -> 120.30750 (120°30.75'); -120.5 -> -120.30.
    static double DegreeToDdm(double degrees);
};

}  // namespace HXObjects
