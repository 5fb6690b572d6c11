#include "render/private/HOGridProjection.h"

#include <cpl_error.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "HOCoordinateSystem.h"
#include "private/HOCoordinateSystemOgr.h"

namespace HXObjects {

namespace {

using Transformation = std::unique_ptr<OGRCoordinateTransformation>;

void release(OGRSpatialReference* srs) {
    if (srs) srs->Release();
}

// A point is trusted only if it comes back where it started: a projection used far outside its
// domain gives finite but meaningless numbers, wrong by whole units, while inverse formulas near a
// world map's rim lose a few digits. Longitudes may come back a turn away (180 as -180).
constexpr double kNudge = 1e-7;
constexpr double kDomainMargin = 15.0;  // degrees round a projected system's area of use

bool returns(double start, double back, bool longitude) {
    const double tolerance = 1e-5 * std::max(1.0, std::abs(start));
    const double miss = std::abs(back - start);
    return miss < tolerance || (longitude && std::abs(miss - 360.0) < tolerance);
}

}  // namespace

class HOGridProjection::Private {
public:
    Kind kind = Identity;
    double centralMeridian = 0.0;
    Transformation forward;  // grid -> map
    Transformation inverse;  // map -> grid
    std::optional<HORect> domain;

    bool carry(OGRCoordinateTransformation* there, OGRCoordinateTransformation* back, bool fromGeographic,
               std::vector<HOPoint>& points, std::vector<char>& ok) const;
};

HOGridProjection::HOGridProjection(const HOCoordinateSystem* map, Kind kind, double centralMeridian)
    : d(std::make_unique<Private>()) {
    d->kind = kind;
    d->centralMeridian = centralMeridian;
    if (kind == Identity || !map) return;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRSpatialReference mapSrs(*HOCoordinateSystemOgr::Ogr(map));
    mapSrs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    std::unique_ptr<OGRSpatialReference, void (*)(OGRSpatialReference*)> grid(mapSrs.CloneGeogCS(), release);
    if (!grid) return;
    if (kind == GaussKrueger) {
        grid->SetProjCS("Gauss-Kruger zone");
        grid->SetTM(0.0, centralMeridian, 1.0, 500000.0, 0.0);
        grid->SetLinearUnits(SRS_UL_METER, 1.0);
    }
    grid->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    double west, south, east, north;
    if (kind == Geographic && mapSrs.IsProjected() &&
        mapSrs.GetAreaOfUse(&west, &south, &east, &north, nullptr) && west <= east)
        d->domain = HORect(std::max(west - kDomainMargin, -180.0), std::min(east + kDomainMargin, 180.0),
                           std::max(south - kDomainMargin, -90.0), std::min(north + kDomainMargin, 90.0));
    d->forward.reset(OGRCreateCoordinateTransformation(grid.get(), &mapSrs));
    d->inverse.reset(OGRCreateCoordinateTransformation(&mapSrs, grid.get()));
}

HOGridProjection::~HOGridProjection() = default;

bool HOGridProjection::IsValid() const {
    return d->kind == Identity || (d->forward && d->inverse);
}

bool HOGridProjection::IsIdentity() const {
    return d->kind == Identity;
}

HOGridProjection::Kind HOGridProjection::GetKind() const {
    return d->kind;
}

double HOGridProjection::CentralMeridian() const {
    return d->centralMeridian;
}

void HOGridProjection::ToMap(std::vector<HOPoint>& points, std::vector<char>& ok) const {
    ok.assign(points.size(), 1);
    if (d->kind != Identity &&
        !d->carry(d->forward.get(), d->inverse.get(), d->kind == Geographic, points, ok))
        ok.assign(points.size(), 0);
}

void HOGridProjection::ToGrid(std::vector<HOPoint>& points, std::vector<char>& ok) const {
    ok.assign(points.size(), 1);
    if (d->kind != Identity && !d->carry(d->inverse.get(), d->forward.get(), false, points, ok))
        ok.assign(points.size(), 0);
}

bool HOGridProjection::Domain(HORect* lonLat) const {
    if (d->domain) *lonLat = *d->domain;
    return d->domain.has_value();
}

double HOGridProjection::ZoneMeridian(double longitude) {
    return 3.0 * std::round(longitude / 3.0);
}

bool HOGridProjection::Private::carry(OGRCoordinateTransformation* there, OGRCoordinateTransformation* back,
                                      bool fromGeographic, std::vector<HOPoint>& points,
                                      std::vector<char>& ok) const {
    if (!there || !back) return false;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);  // points outside the projection's domain fail
    const int n = static_cast<int>(points.size());
    std::vector<double> x(n), y(n), bx(n), by(n);
    std::vector<int> thereOk(n), backOk(n);
    for (int i = 0; i < n; ++i) {
        x[i] = points[i].x;
        y[i] = points[i].y;
    }
    there->Transform(n, x.data(), y.data(), nullptr, thereOk.data());
    bx = x;
    by = y;
    back->Transform(n, bx.data(), by.data(), nullptr, backOk.data());
    // A point exactly on a world map's rim may not come back; one nudged a hair inwards does.
    if (std::find(backOk.begin(), backOk.end(), 0) != backOk.end()) {
        std::vector<double> nx(n), ny(n);
        std::vector<int> nudgedOk(n);
        for (int i = 0; i < n; ++i) nx[i] = x[i] * (1.0 - kNudge), ny[i] = y[i] * (1.0 - kNudge);
        back->Transform(n, nx.data(), ny.data(), nullptr, nudgedOk.data());
        for (int i = 0; i < n; ++i) {
            if (backOk[i] || !nudgedOk[i]) continue;
            backOk[i] = 1;
            bx[i] = nx[i];
            by[i] = ny[i];
        }
    }
    for (int i = 0; i < n; ++i) {
        const bool finite = std::isfinite(x[i]) && std::isfinite(y[i]);
        ok[i] = thereOk[i] && backOk[i] && finite && returns(points[i].x, bx[i], fromGeographic) &&
                returns(points[i].y, by[i], false);
        points[i] = HOPoint(x[i], y[i]);
    }
    return true;
}

}  // namespace HXObjects
