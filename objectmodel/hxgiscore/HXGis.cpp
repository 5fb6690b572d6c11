#include "HXGis.h"

#include <QLocale>

namespace {

// The current locale, with group separators accepted even if the application turned them off.
QLocale GroupingLocale() {
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() & ~QLocale::RejectGroupSeparator);
    return locale;
}

// People type an ordinary space where the locale groups with a no-break space (French, Russian...).
QString WithLocaleSpaces(const QString& string, const QLocale& locale) {
    QString text = string.trimmed();
    const QChar group = locale.groupSeparator();
    if (group.isSpace() && group != QLatin1Char(' ')) text.replace(QLatin1Char(' '), group);
    return text;
}

}  // namespace

double HXGis::permissiveToDouble(QString string, bool& ok) {
    const QLocale locale = GroupingLocale();
    const double value = locale.toDouble(WithLocaleSpaces(string, locale), &ok);
    if (ok) return value;
    const double plain = string.toDouble(&ok);
    return ok ? plain : 0.0;
}

int HXGis::permissiveToInt(QString string, bool& ok) {
    const QLocale locale = GroupingLocale();
    const int value = locale.toInt(WithLocaleSpaces(string, locale), &ok);
    if (ok) return value;
    const int plain = string.toInt(&ok);
    return ok ? plain : 0;
}
