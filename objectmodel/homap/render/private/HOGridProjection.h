#pragma once
// HOGridProjection: carries grid coordinates (the coordinates a grid's lines are constant in) into a
// map's coordinate system and back: longitude/latitude of the map's own datum for the BL grid, the
// map's own coordinates for a KM grid on a projected map (no transformation at all), or a
// Gauss-Krueger 3-degree zone on the map's datum for the KM grid a geographic map shows at large
// scales. A point the projection cannot carry (outside its domain, or one that does not come back
// to where it started) is reported as failed, so no line is drawn there; nor is a BL grid drawn far
// outside the area a projected map's system is made for (a Gauss-Krueger zone seen as a whole world
// is not a world map). Not thread-safe; the
// grid overlay that owns it serialises its use.
#include <memory>
#include <vector>

#include "HOPoint.h"
#include "HORect.h"

namespace HXObjects {

class HOCoordinateSystem;

class HOGridProjection {
public:
    enum Kind { Identity, Geographic, GaussKrueger };

    // `centralMeridian` (degrees) is read for GaussKrueger only.
    HOGridProjection(const HOCoordinateSystem* map, Kind kind, double centralMeridian = 0.0);
    ~HOGridProjection();
    HOGridProjection(const HOGridProjection&) = delete;
    HOGridProjection& operator=(const HOGridProjection&) = delete;

    bool IsValid() const;
    bool IsIdentity() const;
    Kind GetKind() const;
    double CentralMeridian() const;
    // Grid to map coordinates, in place; ok[i] is false where a point cannot be carried.
    void ToMap(std::vector<HOPoint>& points, std::vector<char>& ok) const;
    // Map to grid coordinates, in place; same contract.
    void ToGrid(std::vector<HOPoint>& points, std::vector<char>& ok) const;

    // For the longitude/latitude grid of a projected map: the longitudes and latitudes where the
    // map's projection is meant to be used, widened by a margin; false when the whole globe is.
    bool Domain(HORect* lonLat) const;

    // The central meridian of the 3-degree zone holding a longitude.
    static double ZoneMeridian(double longitude);

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
