#include "HXLayerStyler.h"

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOStyle.h"

#include <QString>

using namespace HXObjects;

namespace {

HORefPtr<HOStyle> styleFor(const QString& name) {
    if (name == "land") return HOStyle::NewFill(HOColor(233, 229, 205, 200), HOColor(150, 140, 110), 1.0);
    if (name == "lakes") return HOStyle::NewFill(HOColor(150, 195, 235), HOColor(90, 140, 200), 0.8);
    if (name == "landuse") return HOStyle::NewFill(HOColor(120, 175, 100, 90), HOColor(110, 150, 90, 40), 0.5);
    if (name == "rivers") return HOStyle::NewLine(1.4, HOColor(70, 130, 210));
    if (name == "roads") return HOStyle::NewLine(1.6, HOColor(205, 75, 55));
    if (name == "towns") {
        HORefPtr<HOStyle> marker = HOStyle::NewMarker(HOStyle::Circle, 7.0, HOColor(170, 25, 30));
        marker->SetOutlineColor(HOColor(255, 255, 255));
        return marker;
    }
    return nullptr;
}

}  // namespace

void HXLayerStyler::style(HOLayer* layer) {
    auto* features = dynamic_cast<HOFeatureLayer*>(layer);
    if (!features) return;
    if (HORefPtr<HOStyle> s = styleFor(features->GetName().toQString())) features->SetStyle(s);
}

void HXLayerStyler::styleMap(HOMap* map) {
    for (const HORefPtr<HOLayer>& layer : map->GetLayers(true)) {
        if (layer->GetName() == "land") {
            map->SetBackgroundColor(HOColor(168, 204, 238));
            return;
        }
    }
}
