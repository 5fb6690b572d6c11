#pragma once
// HOCoordinateSystem: a coordinate reference system (backed by PROJ through OGR). Axis order is the
// traditional GIS one everywhere: x = easting or longitude, y = northing or latitude.
#include "HORefBase.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HOUnitType.h"
#include "HXExport.h"

#include <memory>

namespace HXObjects {

class HX_EXPORT HOCoordinateSystem : public HORefBase {
public:
    // What a system measures. Only geographic and projected ones (alone or as the horizontal part of
    // a compound system) can carry a map.
    enum Kind { GeographicKind, ProjectedKind, GeocentricKind, VerticalKind, LocalKind, OtherKind };

    // "EPSG:4490", WKT or a PROJ string; null when it cannot be read.
    static HORefPtr<HOCoordinateSystem> FromUserInput(const HOString& definition);
    static HORefPtr<HOCoordinateSystem> FromEpsg(int code);

    virtual bool IsGeographic();
    virtual bool IsProjected();
    // Metre for projected systems, degree for geographic ones (other linear units when defined so).
    virtual HOUnitType GetUnit();
    virtual bool ToGeographic(double x, double y, double* lon, double* lat);

    Kind GetKind() const;
    // Whether a map can be drawn in this system: a geographic or projected one.
    bool CanDrawMap() const;
    HOString GetName() const;
    HOString ToWkt() const;
    int GetEpsgCode() const;  // 0 when unknown
    bool IsSame(const HOCoordinateSystem* other) const;

protected:
    ~HOCoordinateSystem() override;

private:
    friend class HOCoordinateSystemOgr;  // the library's own way in and out of OGR
    HOCoordinateSystem();
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
