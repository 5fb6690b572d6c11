#pragma once
// HOMeasurement: lengths and areas of map points as a person means them: on the ellipsoid of the
// map's coordinate system (geodesics, whatever the projection), or in plain map units when the map
// has none; and their text in a display unit ("111319.49 m", "12.31 km²").
#include <memory>

#include "HOGeometry.h"
#include "HOUnitType.h"

class QString;

namespace HXObjects {

class HOCoordinateSystem;

class HOMeasurement {
public:
    explicit HOMeasurement(HOCoordinateSystem* mapSystem);
    ~HOMeasurement();

    // True when figures are metres on the ellipsoid, false when they are map units.
    bool IsGeodesic() const;
    // Length of the path through the points.
    double Length(const HOGeometry::Part& points) const;
    // Area enclosed by the points (an open ring), positive whichever way round.
    double Area(const HOGeometry::Part& ring) const;

    // A length or area (metres, square metres) in the unit; angular and unknown units show metres.
    static QString LengthText(double metres, HOUnitType unit);
    static QString AreaText(double squareMetres, HOUnitType unit);

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
