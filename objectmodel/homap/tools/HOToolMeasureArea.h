#pragma once
// HOToolMeasureArea ("HXObjects::HOToolMeasureArea"): measures the area inside a ring clicked on the
// map, with its perimeter ("Area: 12.31 km², perimeter: 444.00 km").
#include "HOMeasureTool.h"

namespace HXObjects {

class HOToolMeasureArea : public HOMeasureTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolMeasureArea"; }

protected:
    QString Figure(const HOMeasurement& measurement, const HOGeometry::Part& points,
                   HOUnitType unit) const override;
    HOGeometry::GeoType PathType() const override { return HOGeometry::GeoPolygon; }
};

}  // namespace HXObjects
