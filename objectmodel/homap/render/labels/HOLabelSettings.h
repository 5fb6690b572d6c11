#pragma once
// HOLabelSettings: how a feature layer is labelled — the text (one field, or an expression that
// puts field values into a template: "{name} {name_zh}"), the font, colour and halo, the scale range
// in which labels show, and the layer's priority when labels of several layers compete for space.
// A plain value type; a layer keeps a copy.
#include <QString>
#include <vector>

#include "HOColor.h"
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HOLabelSettings {
    QString expression;  // empty: no labels
    QString fontFamily = QStringLiteral("Noto Sans CJK SC");
    double fontSize = 9.0;  // points
    bool bold = false;
    HOColor color{40, 40, 40};
    HOColor haloColor{255, 255, 255, 220};
    double haloWidth = 1.5;  // pixels; 0: none
    // Scale denominators; 0 leaves that side open. Labels show while minScale <= scale <= maxScale.
    double minScale = 0.0;
    double maxScale = 0.0;
    int priority = 0;               // higher is placed first
    double repeatDistance = 400.0;  // pixels between repeated labels along a line

    bool IsEnabled() const { return !expression.trimmed().isEmpty(); }
    bool ShowsAt(double scaleDenominator) const;
    // The fields the expression names, in order of first use.
    std::vector<QString> Fields() const;
    // The text for one feature, given the values of Fields() in that order.
    QString Compose(const std::vector<QString>& values) const;
};

}  // namespace HXObjects
