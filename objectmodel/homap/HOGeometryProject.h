#pragma once
// HOGeometryProject: reprojects geometries in place from one coordinate system to another.
#include "HOGeometry.h"
#include "HORefPtr.h"
#include "HXExport.h"

#include <memory>

namespace HXObjects {

class HOCoordinateSystem;
class HOParaConvertBase;  // datum-shift parameters; none are needed with PROJ

class HX_EXPORT HOGeometryProject {
public:
    HOGeometryProject();
    ~HOGeometryProject();

    bool SetPrj(HOCoordinateSystem* from, HOCoordinateSystem* to, HOParaConvertBase* parameters);
    // False (geometry untouched) when no transformation is set or a point cannot be transformed.
    bool ProjHxGeometry(HOGeometry* geometry, HOGeometry::GeoType type);
    bool ProjPoint(double& x, double& y) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
