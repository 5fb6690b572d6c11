#include "HXStyleLibrary.h"

#include <QColor>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

using HXObjects::HOColor;
using HXObjects::HORefPtr;
using HXObjects::HOStyle;

namespace {

// The names used in library files, in the order of the matching enumeration.
const QStringList kKinds{"marker", "line", "fill"};
const QStringList kShapes{"circle", "square", "triangle", "diamond", "cross", "star"};
const QStringList kDashes{"solid", "dash", "dot", "dashdot"};
const QStringList kPatterns{"solid", "none",      "horizontal", "vertical",
                            "cross", "fdiagonal", "bdiagonal",  "diagonalcross"};

// The index of the value's name in the list, or the fallback for a missing or unknown name.
int nameIndex(const QStringList& names, const QJsonValue& value, int fallback) {
    const int index = names.indexOf(value.toString().toLower());
    return index < 0 ? fallback : index;
}

HOColor colorValue(const QJsonValue& value, const HOColor& fallback) {
    const QColor color(value.toString());
    return color.isValid() ? HOColor(color.red(), color.green(), color.blue()) : fallback;
}

}  // namespace

// Outside any namespace, as Q_INIT_RESOURCE requires.
static void initStyleManagerResources() {
    Q_INIT_RESOURCE(stylemanager);  // the library is static: its resources need registering
}

HXStyleLibrary& HXStyleLibrary::instance() {
    static HXStyleLibrary library;
    return library;
}

HXStyleLibrary::HXStyleLibrary() {
    initStyleManagerResources();
    addSymbols(QStringLiteral(":/stylemanager/symbols.json"));
}

std::vector<HXStyleLibrary::Symbol> HXStyleLibrary::symbols(HOStyle::StyleType type) const {
    std::vector<Symbol> result;
    for (const Symbol& symbol : mSymbols)
        if (symbol.style->GetStyleType() == type) result.push_back(symbol);
    return result;
}

bool HXStyleLibrary::addSymbols(const QString& path, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error) *error = HXStyleLibrary::tr("cannot open '%1': %2").arg(path, file.errorString());
        return false;
    }
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parse);
    const QJsonValue list = document.object().value("symbols");
    if (parse.error != QJsonParseError::NoError || !list.isArray()) {
        if (error)
            *error = parse.error != QJsonParseError::NoError
                         ? HXStyleLibrary::tr("cannot read '%1': %2").arg(path, parse.errorString())
                         : HXStyleLibrary::tr("cannot read '%1': no list of symbols").arg(path);
        return false;
    }
    for (const QJsonValue& entry : list.toArray()) {
        const QJsonObject symbol = entry.toObject();
        if (auto style = styleFromJson(symbol)) addSymbol(symbol.value("name").toString(), style);
    }
    return true;
}

void HXStyleLibrary::addSymbol(const QString& name, HORefPtr<HOStyle> style) {
    if (style) mSymbols.push_back({name, std::move(style)});
}

HORefPtr<HOStyle> HXStyleLibrary::styleFromJson(const QJsonObject& symbol) {
    const int kind = kKinds.indexOf(symbol.value("kind").toString().toLower());
    if (kind < 0) return nullptr;
    HORefPtr<HOStyle> style(new HOStyle(HOStyle::StyleType(kind)));
    const bool line = style->GetStyleType() == HOStyle::LineStyle;
    style->SetColor(colorValue(symbol.value("color"), style->GetColor()));
    style->SetOutlineColor(
        colorValue(symbol.value(line ? "casingColor" : "outline"), style->GetOutlineColor()));
    style->SetWidth(symbol.value(line ? "width" : "outlineWidth").toDouble(style->GetWidth()));
    style->SetOpacity(symbol.value("opacity").toDouble(style->GetOpacity()));
    style->SetSize(symbol.value("size").toDouble(style->GetSize()));
    style->SetMarkerShape(
        HOStyle::MarkerShape(nameIndex(kShapes, symbol.value("shape"), style->GetMarkerShape())));
    style->SetDash(HOStyle::DashPattern(nameIndex(kDashes, symbol.value("dash"), style->GetDash())));
    style->SetFillPattern(
        HOStyle::FillPattern(nameIndex(kPatterns, symbol.value("pattern"), style->GetFillPattern())));
    style->SetCasingWidth(symbol.value("casingWidth").toDouble(style->GetCasingWidth()));
    return style;
}
