#include "HOToolMeasureArea.h"

#include <QCoreApplication>

#include "HOMeasurement.h"

namespace HXObjects {

QString HOToolMeasureArea::Figure(const HOMeasurement& measurement, const HOGeometry::Part& points,
                                  HOUnitType unit) const {
    HOGeometry::Part ring = points;
    if (ring.size() > 1) ring.push_back(ring.front());
    return QCoreApplication::translate("HXObjects::HOToolMeasureArea", "Area: %1, perimeter: %2")
        .arg(HOMeasurement::AreaText(measurement.Area(points), unit),
             HOMeasurement::LengthText(measurement.Length(ring), unit));
}

}  // namespace HXObjects
