#pragma once
// HOValidRegion: the part of the globe a coordinate system draws well, in longitude and latitude of
// the system's own geographic base. It is the area of use PROJ records for the system, widened by a
// margin (projections hold well past the area they were made for, and a neighbour's data just beyond
// it stays visible); Mercator stops at ±85.0511°, where its square world ends; an orthographic view
// holds the hemisphere that faces it; a system without a recorded area takes the whole globe.
// A cylindrical or conic projection's world ends at the meridian opposite its centre: what runs across
// that seam (or lies a turn away, at longitudes past ±180) must be cut there and moved by whole turns
// to the side it is drawn on. So the region comes in turns, each with the shift that brings it home;
// an azimuthal projection has no seam and takes one turn without bounds.
// Cheap to build; Contains() is cheap enough to ask per vertex, and the region's shape is made only
// for the box a cut needs, so cutting a small part costs little whatever the region.
#include <memory>
#include <vector>

#include "HORefPtr.h"
#include "source/private/HOFeatureTopology.h"

class OGRGeometry;

namespace HXObjects {

class HOCoordinateSystem;

class HOValidRegion {
public:
    struct Turn {
        double west, east;  // its longitudes
        double shift;       // degrees of longitude that bring it into the centre turn
    };

    explicit HOValidRegion(const HOCoordinateSystem* system);

    // The geographic system the region's degrees are in (the system itself when geographic).
    HORefPtr<HOCoordinateSystem> Geographic() const { return m_geographic; }
    // The whole globe with no seam to cut at (a geographic system).
    bool IsWholeWorld() const { return m_wholeWorld; }
    // In the region and within the centre turn: drawn as it is.
    bool Contains(const HOVertex& lonLat) const;
    // The point moved by whole turns of longitude into the centre turn.
    HOVertex Home(const HOVertex& lonLat) const;
    const std::vector<Turn>& Turns() const { return m_turns; }
    // The region within the box, as polygons in degrees; null when they do not meet. A curved edge
    // comes as vertices a quarter of a degree apart; straight edges are left for the caller to densify.
    std::unique_ptr<OGRGeometry> ShapeIn(const HOBox& box) const;
    // Points spread over the region's edge in the centre turn: where a clipped extent may reach.
    const std::vector<HOVertex>& Edge() const { return m_edge; }

private:
    void setRectangle(double west, double south, double east, double north);
    void setCap(double latitude, double longitude);
    // Latitude of the cap's edge at a longitude.
    double capEdge(double lon) const;

    HORefPtr<HOCoordinateSystem> m_geographic;
    bool m_wholeWorld = false;
    double m_centre = 0;  // the central meridian; the centre turn spans 180° either side
    // A rectangle (repeating in longitude) ...
    double m_west = -180, m_south = -90, m_east = 180, m_north = 90;
    // ... or the cap within an angle (its cosine here) of a centre, holding the pole on m_capSide.
    bool m_cap = false;
    double m_capSide = 1, m_sinLat0 = 0, m_cosLat0 = 1, m_cosRadius = 0;
    std::vector<Turn> m_turns;
    std::vector<HOVertex> m_edge;
};

}  // namespace HXObjects
