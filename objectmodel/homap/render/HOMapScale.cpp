#include "HOMapScale.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>

namespace HXObjects {

double HOMapScale::MetresPerUnit(HOUnitType unit) {
    switch (unit) {
        case HOUnitFoot:
            return 0.3048;
        case HOUnitYard:
            return 0.9144;
        case HOUnitMile:
            return 1609.344;
        case HOUnitNauticalMile:
            return 1852.0;
        case HOUnitKilometer:
            return 1000.0;
        case HOUnitDegree:
        case HOUnitDecimalDegree:
        case HOUnitDegreeMinuteSecond:
        case HOUnitDegreeDecimalMinute:
            return 2.0 * M_PI * kEarthRadius / 360.0;
        case HOUnitMeter:
        case HOUnitUnknown:
            break;
    }
    return 1.0;
}

double HOMapScale::ScreenDpi() {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return 96.0;
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dpi = screen ? screen->logicalDotsPerInch() : 0.0;
    return dpi > 0.0 ? dpi : 96.0;
}

double HOMapScale::Denominator(double unitsPerPixel, double metresPerUnit, double dpi) {
    return unitsPerPixel * metresPerUnit * dpi / kMetresPerInch;
}

double HOMapScale::UnitsPerPixel(double denominator, double metresPerUnit, double dpi) {
    return denominator * kMetresPerInch / (dpi * metresPerUnit);
}

}  // namespace HXObjects
