#pragma once
// HOValidRegion: the part of the globe a coordinate system draws well, in longitude and latitude of
// the system's own geographic base. It is the area of use PROJ records for the system, widened by a
// margin (projections hold well past the area they were made for, and a neighbour's data just beyond
// it stays visible); Mercator stops at ±85.0511°, where its square world ends; an orthographic view
// holds the hemisphere that faces it; a system without a recorded area takes the whole globe.
// A cylindrical or conic projection's world ends at the meridian opposite its centre: what runs across
// that seam (or lies a turn away, at longitudes past ±180) must be cut there and moved by whole turns
// to the side it is drawn on. So the region comes as pieces, one per turn, each with the shift that
// brings it home; an azimuthal projection has no seam and its region is one piece.
// Built once per projected copy of a layer; Contains() is cheap enough to ask per vertex.
#include <memory>
#include <vector>

#include "HORefPtr.h"
#include "source/private/HOFeatureTopology.h"

class OGRGeometry;

namespace HXObjects {

class HOCoordinateSystem;

class HOValidRegion {
public:
    struct Piece {
        double west, east;                   // its longitudes
        double shift;                        // degrees of longitude that bring it into the centre turn
        std::shared_ptr<OGRGeometry> shape;  // polygons in degrees, edges a degree apart or closer
    };

    explicit HOValidRegion(const HOCoordinateSystem* system);

    // The geographic system the region's degrees are in (the system itself when geographic).
    HORefPtr<HOCoordinateSystem> Geographic() const { return m_geographic; }
    // The whole globe with no seam to cut at (a geographic system).
    bool IsWholeWorld() const { return m_wholeWorld; }
    // In the region and within the turn centred on the system's central meridian: drawn as it is.
    bool Contains(const HOVertex& lonLat) const;
    // The point moved by whole turns of longitude into the centre turn.
    HOVertex Home(const HOVertex& lonLat) const;
    const std::vector<Piece>& Pieces() const { return m_pieces; }
    // Points spread over the region's edge in the centre turn: where a clipped extent may reach.
    const std::vector<HOVertex>& Edge() const { return m_edge; }

private:
    void setRectangle(double west, double south, double east, double north);
    void setCap(double latitude, double longitude);
    // Cuts the region, given over several turns, into one piece per turn around the centre.
    void cutIntoTurns(const OGRGeometry& whole);

    HORefPtr<HOCoordinateSystem> m_geographic;
    bool m_wholeWorld = false;
    bool m_seamless = false;  // azimuthal: no seam to cut at
    double m_centre = 0;  // the central meridian; the centre turn spans 180° either side
    // A rectangle (repeating in longitude) ...
    double m_west = -180, m_south = -90, m_east = 180, m_north = 90;
    // ... or the cap within an angle (its cosine here) of a centre.
    bool m_cap = false;
    double m_sinLat0 = 0, m_cosLat0 = 1, m_cosRadius = 0;
    std::vector<Piece> m_pieces;
    std::vector<HOVertex> m_edge;
};

}  // namespace HXObjects
