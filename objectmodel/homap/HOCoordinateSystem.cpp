#include "HOCoordinateSystem.h"

#include <ogr_spatialref.h>

#include <mutex>

#include "private/HOCoordinateSystemOgr.h"
#include "source/private/HOGdalEnvironment.h"

namespace HXObjects {

// OGR's reference and transformation objects keep lazy internal state, so even const calls are
// serialised; the cheap queries are answered from values fixed at construction.
class HOCoordinateSystem::Private {
public:
    explicit Private(const OGRSpatialReference& source) : srs(source) {
        srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        geographic = srs.IsGeographic();
        projected = srs.IsProjected();
        kind = readKind();
        unit = readUnit();
    }

    Kind readKind() const {
        if (projected) return ProjectedKind;
        if (geographic) return GeographicKind;
        if (srs.IsGeocentric()) return GeocentricKind;
        if (srs.IsVertical()) return VerticalKind;
        if (srs.IsLocal()) return LocalKind;
        return OtherKind;
    }

    HOUnitType readUnit() const {
        if (geographic) return HOUnitDegree;
        if (!projected) return HOUnitUnknown;
        const double metres = srs.GetLinearUnits();
        struct Known {
            double metres;
            HOUnitType unit;
        };
        static const Known known[] = {{1.0, HOUnitMeter},          {0.3048, HOUnitFoot},
                                      {0.3048006096, HOUnitFoot},  {1000.0, HOUnitKilometer},
                                      {0.9144, HOUnitYard},        {1609.344, HOUnitMile},
                                      {1852.0, HOUnitNauticalMile}};
        for (const Known& k : known)
            if (std::abs(metres - k.metres) < 1e-6 * k.metres) return k.unit;
        return HOUnitUnknown;
    }

    OGRCoordinateTransformation* toGeographic() {
        if (!toGeo) {
            OGRSpatialReference* base = srs.CloneGeogCS();
            if (!base) return nullptr;
            base->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
            toGeo.reset(OGRCreateCoordinateTransformation(&srs, base));
            base->Release();
        }
        return toGeo.get();
    }

    std::mutex mutex;
    OGRSpatialReference srs;
    bool geographic = false;
    bool projected = false;
    Kind kind = OtherKind;
    HOUnitType unit = HOUnitUnknown;
    std::unique_ptr<OGRCoordinateTransformation> toGeo;
};

HOCoordinateSystem::HOCoordinateSystem() = default;
HOCoordinateSystem::~HOCoordinateSystem() = default;

HORefPtr<HOCoordinateSystem> HOCoordinateSystem::FromUserInput(const HOString& definition) {
    if (definition.isEmpty()) return nullptr;
    OGRSpatialReference srs;
    if (srs.SetFromUserInput(definition.c_str()) != OGRERR_NONE) return nullptr;
    return HOCoordinateSystemOgr::FromOgr(&srs);
}

HORefPtr<HOCoordinateSystem> HOCoordinateSystem::FromEpsg(int code) {
    OGRSpatialReference srs;
    if (srs.importFromEPSG(code) != OGRERR_NONE) return nullptr;
    return HOCoordinateSystemOgr::FromOgr(&srs);
}

HORefPtr<HOCoordinateSystem> HOCoordinateSystemOgr::FromOgr(const OGRSpatialReference* reference) {
    if (!reference || reference->IsEmpty()) return nullptr;
    HOGdalEnvironment::Prepare();  // transformations report outside-domain points as errors
    HORefPtr<HOCoordinateSystem> system(new HOCoordinateSystem);
    system->d = std::make_unique<HOCoordinateSystem::Private>(*reference);
    return system;
}

bool HOCoordinateSystem::IsGeographic() {
    return d->geographic;
}

bool HOCoordinateSystem::IsProjected() {
    return d->projected;
}

HOUnitType HOCoordinateSystem::GetUnit() {
    return d->unit;
}

bool HOCoordinateSystem::ToGeographic(double x, double y, double* lon, double* lat) {
    std::lock_guard<std::mutex> lock(d->mutex);
    OGRCoordinateTransformation* transform = d->toGeographic();
    if (!transform || !transform->Transform(1, &x, &y)) return false;
    if (lon) *lon = x;
    if (lat) *lat = y;
    return true;
}

HOCoordinateSystem::Kind HOCoordinateSystem::GetKind() const {
    return d->kind;
}

bool HOCoordinateSystem::CanDrawMap() const {
    return d->kind == GeographicKind || d->kind == ProjectedKind;
}

HOString HOCoordinateSystem::GetName() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    const char* name = d->srs.GetName();
    return name ? HOString(name) : HOString();
}

HOString HOCoordinateSystem::ToWkt() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    char* wkt = nullptr;
    const char* const options[] = {"FORMAT=WKT2_2018", nullptr};
    d->srs.exportToWkt(&wkt, options);
    HOString text(wkt ? wkt : "");
    CPLFree(wkt);
    return text;
}

int HOCoordinateSystem::GetEpsgCode() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    const char* authority = d->srs.GetAuthorityName(nullptr);
    const char* code = d->srs.GetAuthorityCode(nullptr);
    if (!authority || !code || !EQUAL(authority, "EPSG")) return 0;
    return atoi(code);
}

bool HOCoordinateSystem::IsSame(const HOCoordinateSystem* other) const {
    if (!other) return false;
    if (other == this) return true;
    // Lock both in address order so two threads comparing a pair cannot deadlock.
    std::mutex* first = &d->mutex;
    std::mutex* second = &other->d->mutex;
    if (second < first) std::swap(first, second);
    std::lock_guard<std::mutex> lockFirst(*first);
    std::lock_guard<std::mutex> lockSecond(*second);
    const char* const options[] = {"IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", "CRITERION=EQUIVALENT",
                                   nullptr};
    return d->srs.IsSame(&other->d->srs, options);
}

const OGRSpatialReference* HOCoordinateSystemOgr::Ogr(const HOCoordinateSystem* system) {
    return &system->d->srs;
}

}  // namespace HXObjects
