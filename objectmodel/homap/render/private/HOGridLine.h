#pragma once
// HOGridLine: one drawn piece of a grid line, in device pixels, and the grid coordinate it keeps
// (a longitude, a latitude, an easting or a northing). A line the projection cannot carry all the
// way is several pieces with the same value.
#include <QPolygonF>

namespace HXObjects {

struct HOGridLine {
    QPolygonF points;
    double value = 0.0;
    bool alongY = true;  // true: x is constant (a meridian or an easting line)
};

}  // namespace HXObjects
