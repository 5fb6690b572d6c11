#include "HXCoordinateText.h"

#include <QRegularExpression>
#include <QStringList>
#include <cmath>

namespace {

bool parseSplit(const QString& text, QChar separator, double* x, double* y) {
    const QStringList parts = text.split(separator, Qt::KeepEmptyParts);
    if (parts.size() != 2) return false;
    bool xOk = false;
    bool yOk = false;
    const double first = parts.at(0).toDouble(&xOk);
    const double second = parts.at(1).toDouble(&yOk);
    // "inf" and "nan" read as numbers, but no map has such a place.
    if (!xOk || !yOk || !std::isfinite(first) || !std::isfinite(second)) return false;
    *x = first;
    *y = second;
    return true;
}

}  // namespace

QString HXCoordinateText::number(double value) {
    return QString::number(value, 'f', 3);
}

QString HXCoordinateText::pair(double x, double y) {
    return number(x) + QStringLiteral(" , ") + number(y);
}

bool HXCoordinateText::parse(const QString& typed, double* x, double* y) {
    static const QRegularExpression runOfSpaces(QStringLiteral(" {2,}"));
    const QString text = QString(typed).replace(runOfSpaces, QStringLiteral(" "));
    return parseSplit(text, QLatin1Char(','), x, y) || parseSplit(text, QLatin1Char(' '), x, y);
}
