#pragma once
// CcurrencyFunc: geodetic helpers for the status bar and the grid — packed degree-minute-second
// angles and the Gauss–Krüger forward projection. Stateless; every function is thread-safe.
//
// Packed angles (D.MMSSsss): degrees + minutes / 100 + seconds / 10000, so 120.3015 is 120°30'15"
// and 120.301525 is 120°30'15.25". The sign belongs to the whole angle: -120.3015 is -(120°30'15").
#include "HXExport.h"

class HX_EXPORT CcurrencyFunc {
public:
    // Reference ellipsoids understood by bl2XY.
    enum Ellipsoid {
        CGCS2000 = 0,    // China Geodetic Coordinate System 2000 (a 6378137, 1/f 298.257222101)
        Krassovsky = 1,  // Beijing 1954 (a 6378245, 1/f 298.3)
        IAG75 = 2,       // Xian 1980 (a 6378140, 1/f 298.257)
        WGS84 = 3,       // a 6378137, 1/f 298.257223563
        GRS80 = 4,       // a 6378137, 1/f 298.257222101 (ETRS89, NAD83)
    };
    // How bl2XY reads its latitude and longitude.
    enum AngleFormat {
        DecimalDegrees = 0,
        PackedDms = 1,
    };

    // A packed D.MMSS angle in decimal degrees. Non-finite input comes back unchanged.
    static double DmsToDegree(double packed);

    // Gauss–Krüger forward projection (transverse Mercator, scale factor 1 on the central meridian),
    // accurate to well below a millimetre within several degrees of the central meridian.
    //   ellipsoid        one of Ellipsoid.
    //   lat, lon         the point, in the form angleFormat says.
    //   centralMeridian  L0, always in decimal degrees (a whole number for 6° and 3° zones reads
    //                    the same either way).
    //   zone             the zone number the caller derived L0 from; informational only. The easting
    //                    is never prefixed with it: the caller chooses the false easting, and displays
    //                    show the plain easting.
    //   falseEasting     added to the easting, e.g. 500000.0.
    //   northing         (first output) receives X, the distance from the equator along the central
    //                    meridian, in metres; negative south of it (no false northing).
    //   easting          (second output) receives Y, the offset from the central meridian plus
    //                    falseEasting, in metres. Displays write it first: "easting , northing".
    // Returns false, and writes NaN to the outputs given, for an unknown ellipsoid or format, a
    // null output, a non-finite argument, a latitude beyond ±90°, a longitude or central meridian
    // beyond ±360°, or a point 90° or more from the central meridian (where the projection has no
    // finite value).
    static bool bl2XY(int ellipsoid, double lat, double lon, double centralMeridian, int zone,
                      double falseEasting, double* northing, double* easting, int angleFormat);
};
