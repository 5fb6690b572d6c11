#pragma once
// HXCoordinateText: the coordinates box's text, apart from the widget so it can be checked on any
// text. Positions are shown as "x , y" with three decimals; a typed position is two numbers
// separated by a comma or by spaces.
#include <QString>

class HXCoordinateText {
public:
    // One coordinate as the box shows it: three decimals, C locale.
    static QString number(double value);
    // "x , y".
    static QString pair(double x, double y);
    // Two C-locale numbers separated by ',' (spaces around them ignored) or by one or more spaces.
    // False, with x and y untouched, for anything else, and for a number that is not finite: no
    // map can be centred on it.
    static bool parse(const QString& text, double* x, double* y);
};
