#include "HOToolIdentify.h"

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOIdentifyEvent.h"
#include "HOMap.h"

namespace HXObjects {

namespace {

// Fills the event with the topmost hit, walking the layers from the top of the map down.
void FindTopmost(HOMap* map, double tolerance, HOIdentifyEvent& event) {
    const HORefPtr<HOCoordinateSystem> system = map->GetSpatialReference();
    const auto layers = map->GetLayers(true);
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        auto* features = dynamic_cast<HOFeatureLayer*>(it->get());
        if (!features || !features->IsVisible()) continue;
        const std::vector<int> ids = features->IdentifyAt(event.point, tolerance, system.get());
        if (ids.empty()) continue;
        const HORefPtr<HOFeature> feature = features->GetFeature(ids.front());
        if (!feature) continue;
        event.layerName = features->GetName();
        event.featureId = feature->GetID();
        event.attributes = feature->GetAttributes();
        return;
    }
}

}  // namespace

void HOToolIdentify::Activate() {
    HOMapTool::Activate();
    ShowCursor(HOToolBuddy::IdentifyCursor);
}

void HOToolIdentify::OnMouseUp(int button, int x, int y) {
    HOMapView* view = MapView();
    if (button != 1 || !view) return;
    HOIdentifyEvent event;
    event.point = ToMap(x, y);
    if (HOMap* map = view->GetMap()) FindTopmost(map, PixelsToMap(kTolerancePixels), event);
    IdentifiedSignal.fire(this, &event);
}

}  // namespace HXObjects
