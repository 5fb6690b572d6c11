#pragma once
// HXGis: parsing of numbers that users type, and shared map constants.
#include <QString>

#include "HXExport.h"

// The scales offered in scale boxes until the user configures others ("Map/scales").
inline constexpr const char* PROJECT_SCALES =
    "1:1000000,1:500000,1:250000,1:100000,1:50000,1:25000,1:10000,1:5000,1:2500,1:1000,1:500";

class HX_EXPORT HXGis {
public:
    // A number written in the current locale (QLocale()), group separators allowed where the
    // locale puts them ("1,234.5" in English, "1.234,5" in German), or a plain C-locale number
    // ("1234.5"). Where the locale groups with a space, an ordinary space is accepted too.
    // Anything else gives ok = false and 0: "1,2,3" in English, "12abc", "".
    static double permissiveToDouble(QString string, bool& ok);
    // The same for whole numbers ("12,345"; "12.5" is rejected).
    static int permissiveToInt(QString string, bool& ok);
};
