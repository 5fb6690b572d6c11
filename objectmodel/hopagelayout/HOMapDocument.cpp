#include "HOMapDocument.h"

#include <QJsonArray>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"

namespace HXObjects {

namespace {

// Every grid setting, written under its own name.
// clang-format off
#define HO_GRID_FIELDS(X)              \
    X(draw_km_grid)                    \
    X(draw_km_grid_ruler)              \
    X(manually_set_km_grid_distanse)   \
    X(km_grid_x_start_position)        \
    X(km_grid_y_start_position)        \
    X(km_grid_x_distance)              \
    X(km_grid_y_distance)              \
    X(calc_km_grid_dis_style)          \
    X(km_grid_line_width)              \
    X(km_grid_color)                   \
    X(km_grid_ruler_tick_mark_width)   \
    X(km_grid_ruler_tick_mark_color)   \
    X(km_grid_ruler_label_font_height) \
    X(km_grid_ruler_label_font_width)  \
    X(km_grid_ruler_label_font_color)  \
    X(draw_bl_grid)                    \
    X(draw_bl_grid_ruler)              \
    X(manually_set_bl_grid_distanse)   \
    X(bl_grid_x_start_position)        \
    X(bl_grid_y_start_position)        \
    X(bl_grid_x_distance)              \
    X(bl_grid_y_distance)              \
    X(bl_grid_line_width)              \
    X(bl_grid_color)                   \
    X(bl_grid_ruler_tick_mark_width)   \
    X(bl_grid_ruler_tick_mark_color)   \
    X(bl_grid_ruler_label_font_height) \
    X(bl_grid_ruler_label_font_width)  \
    X(bl_grid_ruler_label_font_color)  \
    X(convert_scale)                   \
    X(ruler_unit_type)
// clang-format on

// Every label setting, written under its own name.
// clang-format off
#define HO_LABEL_FIELDS(X) \
    X(expression)          \
    X(fontFamily)          \
    X(fontSize)            \
    X(bold)                \
    X(color)               \
    X(haloColor)           \
    X(haloWidth)           \
    X(minScale)            \
    X(maxScale)            \
    X(priority)            \
    X(repeatDistance)
// clang-format on

QJsonValue toJson(const QString& v) {
    return v;
}
QJsonValue toJson(bool v) {
    return v;
}
QJsonValue toJson(int v) {
    return v;
}
QJsonValue toJson(double v) {
    return v;
}
QJsonValue toJson(HOUnitType v) {
    return int(v);
}
QJsonValue toJson(const HOColor& c) {
    return c.toQColor().name(QColor::HexArgb);
}

void fromJson(const QJsonValue& j, QString* v) {
    *v = j.toString(*v);
}
void fromJson(const QJsonValue& j, bool* v) {
    *v = j.toBool(*v);
}
void fromJson(const QJsonValue& j, int* v) {
    *v = j.toInt(*v);
}
void fromJson(const QJsonValue& j, double* v) {
    *v = j.toDouble(*v);
}
void fromJson(const QJsonValue& j, HOUnitType* v) {
    *v = HOUnitType(j.toInt(int(*v)));
}
void fromJson(const QJsonValue& j, HOColor* v) {
    const QColor c(j.toString());
    if (c.isValid()) *v = HOColor(c);
}

QJsonObject gridToJson(const HOMapRulerAndGrid& g) {
    QJsonObject json;
#define HO_WRITE(name) json[#name] = toJson(g.get_##name());
    HO_GRID_FIELDS(HO_WRITE)
#undef HO_WRITE
    return json;
}

void gridFromJson(const QJsonObject& json, HOMapRulerAndGrid* g){
#define HO_READ(name)                  \
    {                                  \
        auto value = g->get_##name();  \
        fromJson(json[#name], &value); \
        g->set_##name(value);          \
    }
    HO_GRID_FIELDS(HO_READ)
#undef HO_READ
}

QJsonObject labelsToJson(const HOLabelSettings& s) {
    QJsonObject json;
#define HO_WRITE(name) json[#name] = toJson(s.name);
    HO_LABEL_FIELDS(HO_WRITE)
#undef HO_WRITE
    return json;
}

HOLabelSettings labelsFromJson(const QJsonObject& json) {
    HOLabelSettings s;
#define HO_READ(name) fromJson(json[#name], &s.name);
    HO_LABEL_FIELDS(HO_READ)
#undef HO_READ
    return s;
}

QJsonObject styleToJson(const HOStyle& s) {
    return {{"kind", int(s.GetStyleType())},
            {"shape", int(s.GetMarkerShape())},
            {"size", s.GetSize()},
            {"color", toJson(s.GetColor())},
            {"width", s.GetWidth()},
            {"dash", int(s.GetDash())},
            {"outline", toJson(s.GetOutlineColor())}};
}

HORefPtr<HOStyle> styleFromJson(const QJsonObject& json) {
    const int kind = json["kind"].toInt(-1);
    if (kind < HOStyle::MarkerStyle || kind > HOStyle::FillStyle) return {};
    HORefPtr<HOStyle> s(new HOStyle(HOStyle::StyleType(kind)));
    s->SetMarkerShape(HOStyle::MarkerShape(qBound(0, json["shape"].toInt(), int(HOStyle::Star))));
    s->SetSize(json["size"].toDouble(s->GetSize()));
    s->SetWidth(json["width"].toDouble(s->GetWidth()));
    s->SetDash(HOStyle::DashPattern(qBound(0, json["dash"].toInt(), int(HOStyle::DashDot))));
    HOColor color = s->GetColor(), outline = s->GetOutlineColor();
    fromJson(json["color"], &color);
    fromJson(json["outline"], &outline);
    s->SetColor(color);
    s->SetOutlineColor(outline);
    return s;
}

QJsonArray rectToJson(const HORect& r) {
    return {r.minx, r.maxx, r.miny, r.maxy};
}

HORect rectFromJson(const QJsonValue& value) {
    const QJsonArray a = value.toArray();
    if (a.size() != 4) return {};
    return {a[0].toDouble(), a[1].toDouble(), a[2].toDouble(), a[3].toDouble()};
}

// "path|options": the path relative to the folder, the options kept.
QString relativeSource(const QString& source, const QDir& folder) {
    const int bar = source.indexOf('|');
    const QString path = bar < 0 ? source : source.left(bar);
    return folder.relativeFilePath(path) + (bar < 0 ? QString() : source.mid(bar));
}

QString absoluteSource(const QString& source, const QDir& folder) {
    const int bar = source.indexOf('|');
    const QString path = bar < 0 ? source : source.left(bar);
    return QDir::cleanPath(folder.absoluteFilePath(path)) + (bar < 0 ? QString() : source.mid(bar));
}

// Styles by value of one field: {"field": name, "styles": {value: style, ...}}.
QJsonObject categoriesToJson(const HOString& field, const std::map<HOString, HORefPtr<HOStyle>>& styles) {
    QJsonObject byValue;
    for (const auto& [value, style] : styles)
        if (style) byValue[value.toQString()] = styleToJson(*style);
    return {{"field", field.toQString()}, {"styles", byValue}};
}

void applyCategoriesJson(HOFeatureLayer& layer, const QJsonObject& json) {
    std::map<HOString, HORefPtr<HOStyle>> styles;
    const QJsonObject byValue = json["styles"].toObject();
    for (auto it = byValue.begin(); it != byValue.end(); ++it)
        if (const HORefPtr<HOStyle> style = styleFromJson(it.value().toObject())) styles[it.key()] = style;
    layer.SetCategoryStyles(json["field"].toString(), styles);
}

QJsonObject layerToJson(HOLayer& layer, const QDir& folder) {
    QJsonObject json{{"source", relativeSource(layer.GetSource().toQString(), folder)},
                     {"name", layer.GetName().toQString()},
                     {"visible", layer.IsVisible()},
                     {"opacity", layer.GetOpacity()},
                     {"composition", int(layer.GetComposition())}};
    auto* features = dynamic_cast<HOFeatureLayer*>(&layer);
    if (!features) return json;
    const HOLabelSettings labels = features->GetLabelSettings();
    if (labels.IsEnabled()) json["labels"] = labelsToJson(labels);
    if (const HORefPtr<HOStyle> style = features->GetStyle()) json["style"] = styleToJson(*style);
    QJsonArray custom;
    for (const auto& [id, style] : features->GetCustomFeatureRender()->GetAllStyles())
        custom.append(QJsonObject{{"id", id}, {"style", styleToJson(*style)}});
    if (!custom.isEmpty()) json["featureStyles"] = custom;
    if (const HOString field = features->GetCategoryField(); !field.isEmpty())
        json["categories"] = categoriesToJson(field, features->GetCategoryStyles());
    return json;
}

void applyLayerJson(HOLayer& layer, const QJsonObject& json) {
    if (json.contains("name")) layer.SetName(json["name"].toString());
    layer.SetVisible(json["visible"].toBool(true));
    layer.SetOpacity(json["opacity"].toDouble(1.0));
    layer.SetComposition(HOLayer::Composition(qBound(0, json["composition"].toInt(), int(HOLayer::Lighten))));
    auto* features = dynamic_cast<HOFeatureLayer*>(&layer);
    if (!features) return;
    if (json.contains("labels")) features->SetLabelSettings(labelsFromJson(json["labels"].toObject()));
    if (const HORefPtr<HOStyle> style = styleFromJson(json["style"].toObject())) features->SetStyle(style);
    for (const QJsonValue& entry : json["featureStyles"].toArray()) {
        const QJsonObject o = entry.toObject();
        if (const HORefPtr<HOStyle> style = styleFromJson(o["style"].toObject()))
            features->GetCustomFeatureRender()->SetFeatureStyle(o["id"].toInt(), style);
    }
    if (json.contains("categories")) applyCategoriesJson(*features, json["categories"].toObject());
}

}  // namespace

QJsonObject HOMapDocument::Write(HOMapView& view, const HORect& extent, const QDir& folder) {
    QJsonObject json;
    HOMap* map = view.GetMap();
    if (!map) return json;
    QJsonArray layers;
    for (const auto& layer : map->GetLayers(true)) layers.append(layerToJson(*layer, folder));
    json["layers"] = layers;
    if (const HORefPtr<HOCoordinateSystem> system = map->GetSpatialReference())
        json["crs"] = system->ToWkt().toQString();
    json["background"] = toJson(map->GetBackgroundColor());
    json["grid"] = gridToJson(*view.GetRulerAndGridSetting());
    if (!extent.IsEmpty()) json["extent"] = rectToJson(extent);
    return json;
}

HORefPtr<HOMapView> HOMapDocument::Read(const QJsonObject& json, const QDir& folder, HORect* extent,
                                        QStringList* missing) {
    HORefPtr<HOMap> map(new HOMap);
    if (json.contains("crs")) {
        if (const HORefPtr<HOCoordinateSystem> system =
                HOCoordinateSystem::FromUserInput(json["crs"].toString()))
            map->SetSpatialReference(system);
    }
    HOColor background = map->GetBackgroundColor();
    fromJson(json["background"], &background);
    map->SetBackgroundColor(background);
    for (const QJsonValue& entry : json["layers"].toArray()) {
        const QJsonObject o = entry.toObject();
        HOString error;
        const HORefPtr<HOLayer> layer = OpenLayer(absoluteSource(o["source"].toString(), folder), &error);
        if (!layer) {
            missing->append(error.toQString());
            continue;
        }
        applyLayerJson(*layer, o);
        map->AddLayer(layer);
    }
    HORefPtr<HOMapView> view(new HOMapView);
    gridFromJson(json["grid"].toObject(), view->GetRulerAndGridSetting());
    view->SetMap(map);
    *extent = rectFromJson(json["extent"]);
    return view;
}

}  // namespace HXObjects
