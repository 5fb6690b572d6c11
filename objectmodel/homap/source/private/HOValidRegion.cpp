#include "source/private/HOValidRegion.h"

#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "HOCoordinateSystem.h"
#include "private/HOCoordinateSystemOgr.h"

namespace HXObjects {

namespace {

constexpr double margin = 15.0;                     // degrees added around a recorded area
constexpr double mercatorLimit = 85.0511287798066;  // latitude of Web Mercator's square edge
constexpr double capRadius = 89.5;                  // degrees: the horizon itself projects unreliably
constexpr double capStep = 0.25;                    // degrees between vertices of the cap's edge
constexpr double pi = 3.14159265358979323846;

double radians(double degrees) {
    return degrees * pi / 180.0;
}

bool methodIs(const OGRSpatialReference& srs, const char* prefix) {
    const char* method = srs.GetAttrValue("PROJECTION");
    return method && EQUALN(method, prefix, std::strlen(prefix));
}

OGRPolygon* polygon(const std::vector<HOVertex>& points) {
    auto* ring = new OGRLinearRing;
    ring->setNumPoints(int(points.size()) + 1);
    for (std::size_t i = 0; i <= points.size(); ++i) {
        const HOVertex& p = points[i % points.size()];
        ring->setPoint(int(i), p.x, p.y);
    }
    auto* result = new OGRPolygon;
    result->addRingDirectly(ring);
    return result;
}

// The outline of a rectangle with a vertex at least every degree (for the extent's samples).
std::vector<HOVertex> outline(double west, double south, double east, double north) {
    std::vector<HOVertex> points;
    const HOVertex corners[] = {{west, south}, {east, south}, {east, north}, {west, north}};
    for (int c = 0; c < 4; ++c) {
        const HOVertex a = corners[c], b = corners[(c + 1) % 4];
        const int n = std::max(1, int(std::ceil(std::max(std::fabs(b.x - a.x), std::fabs(b.y - a.y)))));
        for (int i = 0; i < n; ++i) points.push_back({a.x + (b.x - a.x) * i / n, a.y + (b.y - a.y) * i / n});
    }
    return points;
}

}  // namespace

HOValidRegion::HOValidRegion(const HOCoordinateSystem* system) {
    const OGRSpatialReference& srs = *HOCoordinateSystemOgr::Ogr(system);
    if (srs.IsGeographic()) {
        m_geographic = const_cast<HOCoordinateSystem*>(system);
        m_wholeWorld = true;
        return;
    }
    OGRSpatialReference* base = srs.CloneGeogCS();
    m_geographic = HOCoordinateSystemOgr::FromOgr(base);
    if (base) base->Release();
    m_centre = srs.GetNormProjParm(SRS_PP_CENTRAL_MERIDIAN, 0.0);
    // Azimuthal projections go on round the pole: no meridian is the world's edge.
    const bool seamless = methodIs(srs, "Orthographic") || methodIs(srs, "Polar_Stereographic") ||
                          methodIs(srs, "Stereographic") || methodIs(srs, "Azimuthal") ||
                          methodIs(srs, "Lambert_Azimuthal") || methodIs(srs, "Gnomonic");
    if (seamless)
        m_turns.push_back({-INFINITY, INFINITY, 0.0});
    else
        for (double shift : {360.0, 0.0, -360.0})
            m_turns.push_back({m_centre - 180.0 - shift, m_centre + 180.0 - shift, shift});
    if (methodIs(srs, "Orthographic")) {
        setCap(srs.GetNormProjParm(SRS_PP_LATITUDE_OF_ORIGIN, 0.0), m_centre);
        return;
    }
    double west = -180, south = -90, east = 180, north = 90;
    if (srs.GetAreaOfUse(&west, &south, &east, &north, nullptr)) {
        if (east < west) east += 360.0;  // an area across the antimeridian
        const bool global = east - west >= 359.0;
        west = global ? -180.0 : west - margin;
        east = global ? 180.0 : east + margin;
        south = std::max(-90.0, south - margin);
        north = std::min(90.0, north + margin);
    }
    if (methodIs(srs, "Mercator") || methodIs(srs, "Popular_Visualisation")) {
        south = std::max(south, -mercatorLimit);
        north = std::min(north, mercatorLimit);
    }
    setRectangle(west, south, std::min(east, west + 360.0), north);
}

void HOValidRegion::setRectangle(double west, double south, double east, double north) {
    m_west = west;
    m_south = south;
    m_east = east;
    m_north = north;
    if (east - west >= 360.0)
        m_edge = outline(m_centre - 180.0, south, m_centre + 180.0, north);
    else
        m_edge = outline(west, south, east, north);
}

void HOValidRegion::setCap(double latitude, double longitude) {
    // A cap centred on (or very near) the equator is the band of longitudes within its radius.
    if (std::fabs(latitude) < 1.0) {
        setRectangle(longitude - capRadius, -90.0, longitude + capRadius, 90.0);
        return;
    }
    m_cap = true;
    m_capSide = latitude > 0 ? 1.0 : -1.0;
    m_sinLat0 = std::sin(radians(latitude));
    m_cosLat0 = std::cos(radians(latitude));
    m_cosRadius = std::cos(radians(capRadius));
    for (double lon = longitude - 180.0; lon <= longitude + 180.0; lon += capStep)
        m_edge.push_back({lon, capEdge(lon)});
}

double HOValidRegion::capEdge(double lon) const {
    // With A = |sin(lat0)| and B = cos(lat0) cos(dlon), points on the edge satisfy
    // A sin(lat) + B cos(lat) = cos(radius); mirrored for a southern centre.
    const double a = std::fabs(m_sinLat0);
    const double b = m_cosLat0 * std::cos(radians(lon - m_centre));
    const double lat = std::asin(std::min(1.0, m_cosRadius / std::hypot(a, b))) - std::atan2(b, a);
    return m_capSide * std::clamp(lat * 180.0 / pi, -90.0, 90.0);
}

std::unique_ptr<OGRGeometry> HOValidRegion::ShapeIn(const HOBox& box) const {
    const double south = std::max(box.min.y, m_cap ? -90.0 : m_south);
    const double north = std::min(box.max.y, m_cap ? 90.0 : m_north);
    if (!(south < north && box.min.x < box.max.x)) return nullptr;
    if (m_cap) {
        // Between the edge and the cap's pole, from the box's side away from the pole: a polygon
        // over the graph of the edge, simple whatever the edge does.
        const double away = m_capSide > 0 ? south : north;
        std::vector<HOVertex> ring;
        bool meets = false;
        const double steps = std::ceil((box.max.x - box.min.x) / capStep);
        for (double i = 0; i <= steps; ++i) {
            const double lon = box.min.x + (box.max.x - box.min.x) * i / steps;
            const double edge = capEdge(lon);
            meets = meets || (m_capSide > 0 ? edge < north : edge > south);
            ring.push_back({lon, m_capSide > 0 ? std::max(edge, away) : std::min(edge, away)});
        }
        if (!meets) return nullptr;
        ring.push_back({box.max.x, 90.0 * m_capSide});
        ring.push_back({box.min.x, 90.0 * m_capSide});
        return std::unique_ptr<OGRGeometry>(polygon(ring));
    }
    // The rectangle's copies, one per turn, that meet the box.
    auto shape = std::make_unique<OGRMultiPolygon>();
    const bool allLongitudes = m_east - m_west >= 360.0;
    const double first = allLongitudes ? 0.0 : std::floor((box.min.x - m_east) / 360.0) + 1.0;
    const double last = allLongitudes ? 0.0 : std::floor((box.max.x - m_west) / 360.0);
    for (double turn = first; turn <= last; ++turn) {
        const double west = allLongitudes ? box.min.x : std::max(box.min.x, m_west + 360.0 * turn);
        const double east = allLongitudes ? box.max.x : std::min(box.max.x, m_east + 360.0 * turn);
        if (west < east)
            shape->addGeometryDirectly(polygon({{west, south}, {east, south}, {east, north}, {west, north}}));
    }
    if (shape->IsEmpty()) return nullptr;
    return shape;
}

HOVertex HOValidRegion::Home(const HOVertex& v) const {
    if (m_wholeWorld) return v;
    const double west = m_centre - 180.0;
    return {v.x - 360.0 * std::floor((v.x - west) / 360.0), v.y};
}

bool HOValidRegion::Contains(const HOVertex& v) const {
    if (m_wholeWorld) return std::isfinite(v.x) && std::isfinite(v.y);
    const Turn& centre = m_turns.size() == 1 ? m_turns[0] : m_turns[1];
    if (!(v.x >= centre.west && v.x <= centre.east)) return false;
    if (m_cap) {
        const double lat = radians(v.y);
        const double cosAngle =
            m_sinLat0 * std::sin(lat) + m_cosLat0 * std::cos(lat) * std::cos(radians(v.x - m_centre));
        return cosAngle >= m_cosRadius;
    }
    if (!(v.y >= m_south && v.y <= m_north)) return false;
    if (m_east - m_west >= 360.0) return true;
    const double lon = v.x - 360.0 * std::floor((v.x - m_west) / 360.0);  // into [west, west + 360)
    return lon <= m_east;
}

}  // namespace HXObjects
