#pragma once
// HOToolMeasureDistance ("HXObjects::HOToolMeasureDistance"): measures the length of a path clicked
// on the map ("Length: 111319.49 m").
#include "HOMeasureTool.h"

namespace HXObjects {

class HOToolMeasureDistance : public HOMeasureTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolMeasureDistance"; }

protected:
    QString Figure(const HOMeasurement& measurement, const HOGeometry::Part& points,
                   HOUnitType unit) const override;
    HOGeometry::GeoType PathType() const override { return HOGeometry::GeoLineString; }
};

}  // namespace HXObjects
