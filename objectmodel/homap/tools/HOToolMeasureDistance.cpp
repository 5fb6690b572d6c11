#include "HOToolMeasureDistance.h"

#include <QCoreApplication>

#include "HOMeasurement.h"

namespace HXObjects {

QString HOToolMeasureDistance::Figure(const HOMeasurement& measurement, const HOGeometry::Part& points,
                                      HOUnitType unit) const {
    return QCoreApplication::translate("HXObjects::HOToolMeasureDistance", "Length: %1")
        .arg(HOMeasurement::LengthText(measurement.Length(points), unit));
}

}  // namespace HXObjects
