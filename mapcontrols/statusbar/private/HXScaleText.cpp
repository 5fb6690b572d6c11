#include "HXScaleText.h"

#include <QLocale>
#include <QStringList>
#include <cmath>
#include <limits>

#include "HXGis.h"

namespace {

bool fitsInt64(double value) {
    return std::isfinite(value) && std::fabs(value) < static_cast<double>(std::numeric_limits<qint64>::max());
}

}  // namespace

QString HXScaleText::toString(double scale) {
    if (scale == 0.0) return QStringLiteral("0");
    const bool reduction = scale <= 1.0;
    const double value = reduction ? 1.0 / scale : scale;
    // Not a number or beyond a 64-bit denominator: no text, so no such scale can be applied.
    if (!fitsInt64(value)) return QString();
    const qint64 rounded = qRound64(value);
    if (rounded < 0) return QString();
    const QString number = QLocale().toString(rounded);
    return reduction ? QStringLiteral("1:%1").arg(number) : QStringLiteral("%1:1").arg(number);
}

double HXScaleText::toDouble(const QString& text, bool* returnOk) {
    bool ok = false;
    double scale = HXGis::permissiveToDouble(text, ok);
    if (!ok) {
        const QStringList parts = text.split(QLatin1Char(':'), Qt::KeepEmptyParts);
        if (parts.size() == 2) {
            bool numeratorOk = false;
            bool denominatorOk = false;
            const int numerator = HXGis::permissiveToInt(parts.at(0), numeratorOk);
            const int denominator = HXGis::permissiveToInt(parts.at(1), denominatorOk);
            if (numeratorOk && denominatorOk) {
                ok = true;
                scale = static_cast<double>(numerator) / static_cast<double>(denominator);
            }
        }
    }
    // "inf", "nan" and "1:0" are numbers to the parser but no scale.
    ok = ok && std::isfinite(scale);
    if (returnOk) *returnOk = ok;
    return scale;
}

double HXScaleText::fromTyped(const QString& text, bool* ok) {
    const bool typedAsNumber = text.split(QLatin1Char(':')).size() != 2;
    const double scale = toDouble(text, ok);
    return *ok && typedAsNumber && scale >= 1.0 ? 1.0 / scale : scale;
}
