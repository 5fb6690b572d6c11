#include "HXLayerStyler.h"

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOStyle.h"

#include <QString>

using namespace HXObjects;

namespace {

using Classes = std::map<HOString, HORefPtr<HOStyle>>;

const HOColor kSea(168, 204, 238);
// What lies beyond a region that brings its own sea: blank paper.
const HOColor kPaper(246, 244, 238);

HORefPtr<HOStyle> parcel(int r, int g, int b, int alpha) {
    return HOStyle::NewFill(HOColor(r, g, b, alpha), HOColor(r - 30, g - 30, b - 30, 50), 0.5);
}

HORefPtr<HOStyle> road(double width, const HOColor& colour) {
    return HOStyle::NewLine(width, colour);
}

HORefPtr<HOStyle> styleFor(const QString& name) {
    if (name == "land") return HOStyle::NewFill(HOColor(236, 232, 210), HOColor(150, 140, 110), 1.0);
    if (name == "sea") return HOStyle::NewFill(kSea, kSea, 0.0);
    if (name == "lakes") return HOStyle::NewFill(HOColor(150, 195, 235), HOColor(90, 140, 200), 0.8);
    if (name == "landuse") return parcel(200, 215, 160, 110);
    if (name == "rivers") return HOStyle::NewLine(1.4, HOColor(70, 130, 210));
    if (name == "roads") return road(1.2, HOColor(205, 75, 55));
    if (name == "towns") {
        HORefPtr<HOStyle> marker = HOStyle::NewMarker(HOStyle::Circle, 7.0, HOColor(170, 25, 30));
        marker->SetOutlineColor(HOColor(255, 255, 255));
        return marker;
    }
    return nullptr;
}

// Styles by the value of a field, for the layers whose features carry a class.
void styleClasses(HOFeatureLayer* layer) {
    const QString name = layer->GetName().toQString();
    if (name == "landuse") {
        layer->SetCategoryStyles("class", Classes{{"farmland", parcel(236, 222, 150, 120)},
                                                  {"orchard", parcel(190, 215, 120, 130)},
                                                  {"forest", parcel(95, 150, 85, 140)},
                                                  {"wetland", parcel(140, 200, 190, 130)},
                                                  {"urban", parcel(205, 190, 185, 170)}});
    } else if (name == "roads") {
        layer->SetCategoryStyles("class", Classes{{"motorway", road(2.6, HOColor(200, 60, 40))},
                                                  {"primary", road(1.8, HOColor(215, 95, 50))},
                                                  {"secondary", road(1.3, HOColor(205, 75, 55))},
                                                  {"minor", road(0.9, HOColor(150, 120, 110))}});
    }
}

// Names in both scripts on the towns, lakes and rivers. Rivers claim their space first: a line's
// label has few places to go, a town's has eight around it.
void styleLabels(HOFeatureLayer* layer) {
    const QString name = layer->GetName().toQString();
    if (name != "towns" && name != "lakes" && name != "rivers") return;
    HOLabelSettings labels;
    labels.expression = QStringLiteral("{name} {name_zh}");
    if (name == "towns") {
        labels.priority = 1;
        labels.fontSize = 9.5;
    } else if (name == "lakes") {
        labels.priority = 2;
        labels.color = HOColor(30, 80, 150);
    } else {
        labels.priority = 3;
        labels.fontSize = 8.5;
        labels.color = HOColor(30, 90, 180);
    }
    layer->SetLabelSettings(labels);
}

}  // namespace

void HXLayerStyler::style(HOLayer* layer) {
    if (layer->GetLayerType() == HOLayer::RasterLayer && layer->GetName() == "hillshade") {
        layer->SetComposition(HOLayer::Multiply);
        layer->SetOpacity(0.5);
        return;
    }
    auto* features = dynamic_cast<HOFeatureLayer*>(layer);
    if (!features) return;
    if (HORefPtr<HOStyle> s = styleFor(features->GetName().toQString())) features->SetStyle(s);
    styleClasses(features);
    styleLabels(features);
}

void HXLayerStyler::addLayer(HOMap* map, HOLayer* layer) {
    style(layer);
    map->AddLayer(layer);
    if (layer->GetLayerType() == HOLayer::RasterLayer) map->MoveLayer(layer, 0);
}

void HXLayerStyler::styleMap(HOMap* map) {
    const std::vector<HORefPtr<HOLayer>> layers = map->GetLayers(true);
    int landTop = -1;
    for (int i = 0; i < int(layers.size()); ++i) {
        const HOString name = layers[i]->GetName();
        if (name == "land") map->SetBackgroundColor(kSea);
        if (name == "land" || name == "landuse") landTop = i;
    }
    for (const HORefPtr<HOLayer>& layer : layers) {
        if (layer->GetName() == "sea") map->SetBackgroundColor(kPaper);
    }
    // Relief shades the land colours, under the water, roads and towns drawn on it.
    for (int i = 0; i < landTop; ++i) {
        if (layers[i]->GetComposition() != HOLayer::SourceOver) map->MoveLayer(layers[i], landTop);
    }
    for (const HORefPtr<HOLayer>& layer : layers) {
        if (layer->GetName() == "lakes") map->MoveLayer(layer, landTop);
    }
}
