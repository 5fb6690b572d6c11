#include "HOLabelSettings.h"

#include <QRegularExpression>
#include <algorithm>

namespace HXObjects {

namespace {

// A field reference in a template: {name}.
const QRegularExpression& fieldPattern() {
    static const QRegularExpression pattern(QStringLiteral("\\{([^{}]+)\\}"));
    return pattern;
}

bool isTemplate(const QString& expression) {
    return expression.contains(fieldPattern());
}

}  // namespace

bool HOLabelSettings::ShowsAt(double scaleDenominator) const {
    return (minScale <= 0 || scaleDenominator >= minScale) && (maxScale <= 0 || scaleDenominator <= maxScale);
}

std::vector<QString> HOLabelSettings::Fields() const {
    std::vector<QString> fields;
    if (!isTemplate(expression)) {
        if (IsEnabled()) fields.push_back(expression.trimmed());
        return fields;
    }
    for (auto it = fieldPattern().globalMatch(expression); it.hasNext();) {
        const QString field = it.next().captured(1).trimmed();
        if (std::find(fields.begin(), fields.end(), field) == fields.end()) fields.push_back(field);
    }
    return fields;
}

QString HOLabelSettings::Compose(const std::vector<QString>& values) const {
    if (!isTemplate(expression)) return values.empty() ? QString() : values.front();
    const std::vector<QString> fields = Fields();
    QString text;
    int last = 0;
    for (auto it = fieldPattern().globalMatch(expression); it.hasNext();) {
        const auto match = it.next();
        text += expression.midRef(last, match.capturedStart() - last);
        const auto field = std::find(fields.begin(), fields.end(), match.captured(1).trimmed());
        text += values[std::size_t(field - fields.begin())];
        last = match.capturedEnd();
    }
    text += expression.midRef(last);
    // A missing value leaves no stray separator behind.
    return text.simplified();
}

}  // namespace HXObjects
