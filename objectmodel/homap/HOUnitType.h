#pragma once
// Map display units. The numeric values are part of the interface (settings and widgets store them).
namespace HXObjects {

enum HOUnitType {
    HOUnitMeter = 0,
    HOUnitFoot = 1,
    HOUnitDegree = 2,
    HOUnitUnknown = 3,
    HOUnitNauticalMile = 7,
    HOUnitKilometer = 8,
    HOUnitYard = 9,
    HOUnitMile = 10,
    HOUnitDecimalDegree = 21,
    HOUnitDegreeMinuteSecond = 22,
    HOUnitDegreeDecimalMinute = 23,
};

}  // namespace HXObjects
