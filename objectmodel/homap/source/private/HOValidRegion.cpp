#include "source/private/HOValidRegion.h"

#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "HOCoordinateSystem.h"

namespace HXObjects {

namespace {

constexpr double margin = 15.0;                     // degrees added around a recorded area
constexpr double mercatorLimit = 85.0511287798066;  // latitude of Web Mercator's square edge
constexpr double capRadius = 89.5;                  // degrees: the horizon itself projects unreliably
constexpr double edgeStep = 1.0;                    // degrees between the region's edge vertices
constexpr double reach = 720.0;                     // the region is built over -reach..reach
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

// Points from a to b, a included, b left out, at most edgeStep apart.
void appendEdge(std::vector<HOVertex>& out, HOVertex a, HOVertex b) {
    const double span = std::max(std::fabs(b.x - a.x), std::fabs(b.y - a.y));
    const int n = std::max(1, int(std::ceil(span / edgeStep)));
    for (int i = 0; i < n; ++i) out.push_back({a.x + (b.x - a.x) * i / n, a.y + (b.y - a.y) * i / n});
}

std::vector<HOVertex> rectangle(double west, double south, double east, double north) {
    std::vector<HOVertex> ring;
    appendEdge(ring, {west, south}, {east, south});
    appendEdge(ring, {east, south}, {east, north});
    appendEdge(ring, {east, north}, {west, north});
    appendEdge(ring, {west, north}, {west, south});
    return ring;
}

}  // namespace

HOValidRegion::HOValidRegion(const HOCoordinateSystem* system) {
    const OGRSpatialReference& srs = *system->Ogr();
    if (srs.IsGeographic()) {
        m_geographic = const_cast<HOCoordinateSystem*>(system);
        m_wholeWorld = true;
        return;
    }
    OGRSpatialReference* base = srs.CloneGeogCS();
    m_geographic = HOCoordinateSystem::FromOgr(base);
    if (base) base->Release();
    m_centre = srs.GetNormProjParm(SRS_PP_CENTRAL_MERIDIAN, 0.0);
    // Azimuthal projections go on round the pole: no meridian is the world's edge.
    m_seamless = methodIs(srs, "Orthographic") || methodIs(srs, "Polar_Stereographic") ||
                 methodIs(srs, "Stereographic") || methodIs(srs, "Azimuthal") ||
                 methodIs(srs, "Lambert_Azimuthal") || methodIs(srs, "Gnomonic");
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
    OGRMultiPolygon whole;
    if (east - west >= 360.0) {
        whole.addGeometryDirectly(polygon(rectangle(-reach, south, reach, north)));
        m_edge = rectangle(m_centre - 180.0, south, m_centre + 180.0, north);
    } else {
        for (double turn = -reach; turn <= reach; turn += 360.0)
            whole.addGeometryDirectly(polygon(rectangle(west + turn, south, east + turn, north)));
        m_edge = rectangle(west, south, east, north);
    }
    cutIntoTurns(whole);
}

void HOValidRegion::setCap(double latitude, double longitude) {
    // A cap centred on (or very near) the equator is the band of longitudes within its radius.
    if (std::fabs(latitude) < 1.0) {
        setRectangle(longitude - capRadius, -90.0, longitude + capRadius, 90.0);
        return;
    }
    m_cap = true;
    m_sinLat0 = std::sin(radians(latitude));
    m_cosLat0 = std::cos(radians(latitude));
    m_cosRadius = std::cos(radians(capRadius));
    // The cap's edge as a latitude for each longitude: with A = |sin(lat0)|, B = cos(lat0) cos(dlon),
    // points on it satisfy A sin(lat) + B cos(lat) = cos(radius); mirrored for a southern centre.
    const double side = latitude > 0 ? 1.0 : -1.0;  // the cap holds this pole
    const double a = std::fabs(m_sinLat0);
    const auto edgeLatitude = [&](double lon) {
        const double b = m_cosLat0 * std::cos(radians(lon - longitude));
        const double lat = std::asin(std::min(1.0, m_cosRadius / std::hypot(a, b))) - std::atan2(b, a);
        return side * std::clamp(lat * 180.0 / pi, -90.0, 90.0);
    };
    constexpr double fine = 0.25;  // the edge turns steeply where it passes the far side
    std::vector<HOVertex> ring;
    for (double lon = -reach; lon <= reach; lon += fine) {
        ring.push_back({lon, edgeLatitude(lon)});
        if (std::fabs(lon - m_centre) <= 180.0) m_edge.push_back(ring.back());
    }
    ring.push_back({reach, 90.0 * side});
    ring.push_back({-reach, 90.0 * side});
    std::unique_ptr<OGRPolygon> whole(polygon(ring));
    cutIntoTurns(*whole);
}

void HOValidRegion::cutIntoTurns(const OGRGeometry& whole) {
    if (m_seamless) {
        m_pieces.push_back({-reach, reach, 0.0, std::shared_ptr<OGRGeometry>(whole.clone())});
        return;
    }
    for (double shift : {360.0, 0.0, -360.0}) {
        const double west = m_centre - 180.0 - shift, east = m_centre + 180.0 - shift;
        std::unique_ptr<OGRPolygon> turn(polygon(rectangle(west, -90.0, east, 90.0)));
        std::shared_ptr<OGRGeometry> shape(whole.Intersection(turn.get()));
        if (shape && !shape->IsEmpty()) m_pieces.push_back({west, east, shift, std::move(shape)});
    }
}

HOVertex HOValidRegion::Home(const HOVertex& v) const {
    if (m_wholeWorld) return v;
    const double west = m_centre - 180.0;
    return {v.x - 360.0 * std::floor((v.x - west) / 360.0), v.y};
}

bool HOValidRegion::Contains(const HOVertex& v) const {
    if (m_wholeWorld) return std::isfinite(v.x) && std::isfinite(v.y);
    if (!m_seamless && !(std::fabs(v.x - m_centre) <= 180.0)) return false;
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
