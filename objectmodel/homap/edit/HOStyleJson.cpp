#include "edit/HOStyleJson.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>

namespace HXObjects {

namespace {

QString Colour(const HOColor& c) {
    return QColor(c.getR(), c.getG(), c.getB(), c.getA()).name(QColor::HexArgb);
}

HOColor Colour(const QJsonValue& value) {
    return HOColor(QColor(value.toString()));
}

}  // namespace

QString HOStyleJson::Write(const HOStyle& style) {
    const QJsonObject object{
        {"type", int(style.GetStyleType())},
        {"shape", int(style.GetMarkerShape())},
        {"size", style.GetSize()},
        {"color", Colour(style.GetColor())},
        {"width", style.GetWidth()},
        {"dash", int(style.GetDash())},
        {"outline", Colour(style.GetOutlineColor())},
        {"casing", style.GetCasingWidth()},
        {"fill", int(style.GetFillPattern())},
        {"opacity", style.GetOpacity()},
    };
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

HORefPtr<HOStyle> HOStyleJson::Read(const QString& text) {
    const QJsonObject o = QJsonDocument::fromJson(text.toUtf8()).object();
    if (!o.contains("type")) return nullptr;
    HORefPtr<HOStyle> style(new HOStyle(HOStyle::StyleType(o["type"].toInt())));
    style->SetMarkerShape(HOStyle::MarkerShape(o["shape"].toInt()));
    style->SetSize(o["size"].toDouble());
    style->SetColor(Colour(o["color"]));
    style->SetWidth(o["width"].toDouble());
    style->SetDash(HOStyle::DashPattern(o["dash"].toInt()));
    style->SetOutlineColor(Colour(o["outline"]));
    style->SetCasingWidth(o["casing"].toDouble());
    style->SetFillPattern(HOStyle::FillPattern(o["fill"].toInt()));
    style->SetOpacity(o["opacity"].toDouble(1.0));
    return style;
}

}  // namespace HXObjects
