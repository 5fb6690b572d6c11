#pragma once
// HXScaleText: the scale box's text rules, apart from the widget so they can be checked on any text.
// A scale is a ratio (1:50 000 is 0.00002; 0 means no scale). Pure functions of the text and the
// current locale.
#include <QString>

class HXScaleText {
public:
    // "1:n" for a ratio of 1 or less, "n:1" above, n rounded and grouped as the locale does; "0" for
    // 0; empty when there is no such text (a negative n, or one beyond 64 bits).
    static QString toString(double scale);
    // A locale or plain number, or "a:b" of two whole numbers; ok false for anything else and for
    // what is no scale at all ("inf", "nan", "1:0").
    static double toDouble(const QString& text, bool* ok = nullptr);
    // What a person typed into the box, as a ratio: like toDouble, except that a plain number of at
    // least 1 is a denominator ("50000" is 1:50 000, while "0.5" stays a ratio).
    static double fromTyped(const QString& text, bool* ok);
};
