#include "HOMeasurement.h"

#include <geodesic.h>
#include <ogr_spatialref.h>

#include <QString>
#include <cmath>

#include "HOCoordinateSystem.h"
#include "HOGeometryProject.h"
#include "private/HOCoordinateSystemOgr.h"

namespace HXObjects {

namespace {

struct Unit {
    double metres;
    const char* symbol;
};

Unit UnitOf(HOUnitType unit) {
    switch (unit) {
        case HOUnitKilometer:
            return {1000.0, "km"};
        case HOUnitFoot:
            return {0.3048, "ft"};
        case HOUnitYard:
            return {0.9144, "yd"};
        case HOUnitMile:
            return {1609.344, "mi"};
        case HOUnitNauticalMile:
            return {1852.0, "nmi"};
        default:
            return {1.0, "m"};
    }
}

}  // namespace

class HOMeasurement::Private {
public:
    bool geodesic = false;
    geod_geodesic ellipsoid{};
    HOGeometryProject toLonLat;

    // The points as longitude and latitude (or as they are, without an ellipsoid).
    HOGeometry::Part lonLat(const HOGeometry::Part& points) const {
        HOGeometry::Part out = points;
        if (geodesic)
            for (HOPoint& p : out) toLonLat.ProjPoint(p.x, p.y);
        return out;
    }
};

HOMeasurement::HOMeasurement(HOCoordinateSystem* mapSystem) : d(new Private) {
    if (!mapSystem || !HOCoordinateSystemOgr::Ogr(mapSystem)) return;
    std::unique_ptr<OGRSpatialReference> geographic(HOCoordinateSystemOgr::Ogr(mapSystem)->CloneGeogCS());
    if (!geographic) return;
    geographic->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const HORefPtr<HOCoordinateSystem> lonLat = HOCoordinateSystemOgr::FromOgr(geographic.get());
    if (!lonLat || !d->toLonLat.SetPrj(mapSystem, lonLat.get(), nullptr)) return;
    const double inverse = geographic->GetInvFlattening();
    geod_init(&d->ellipsoid, geographic->GetSemiMajor(), inverse > 0 ? 1.0 / inverse : 0.0);
    d->geodesic = true;
}

HOMeasurement::~HOMeasurement() = default;

bool HOMeasurement::IsGeodesic() const {
    return d->geodesic;
}

double HOMeasurement::Length(const HOGeometry::Part& points) const {
    const HOGeometry::Part p = d->lonLat(points);
    double length = 0;
    for (std::size_t i = 1; i < p.size(); ++i) {
        double s = 0;
        if (d->geodesic)
            geod_inverse(&d->ellipsoid, p[i - 1].y, p[i - 1].x, p[i].y, p[i].x, &s, nullptr, nullptr);
        else
            s = std::hypot(p[i].x - p[i - 1].x, p[i].y - p[i - 1].y);
        length += s;
    }
    return length;
}

double HOMeasurement::Area(const HOGeometry::Part& ring) const {
    const HOGeometry::Part p = d->lonLat(ring);
    if (p.size() < 3) return 0;
    double area = 0;
    if (d->geodesic) {
        geod_polygon polygon;
        geod_polygon_init(&polygon, 0);
        for (const HOPoint& v : p) geod_polygon_addpoint(&d->ellipsoid, &polygon, v.y, v.x);
        geod_polygon_compute(&d->ellipsoid, &polygon, 0, 1, &area, nullptr);
    } else {
        for (std::size_t i = 0; i < p.size(); ++i) {
            const HOPoint& a = p[i];
            const HOPoint& b = p[(i + 1) % p.size()];
            area += a.x * b.y - b.x * a.y;
        }
        area /= 2;
    }
    return std::abs(area);
}

QString HOMeasurement::LengthText(double metres, HOUnitType unit) {
    const Unit u = UnitOf(unit);
    return QString("%1 %2").arg(metres / u.metres, 0, 'f', 2).arg(u.symbol);
}

QString HOMeasurement::AreaText(double squareMetres, HOUnitType unit) {
    const Unit u = UnitOf(unit);
    // The square sign goes in after the arguments: arg() would read "%2²" as a placeholder.
    return QString("%1 %2").arg(squareMetres / (u.metres * u.metres), 0, 'f', 2).arg(u.symbol) +
           QChar(0x00B2);
}

}  // namespace HXObjects
