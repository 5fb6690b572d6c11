#include "HOMapTool.h"

#include <Qt>

#include "HOFeatureLayer.h"
#include "HOMap.h"

namespace HXObjects {

namespace {

bool HasSelection(HOMap* map) {
    if (!map->GetGraphicsLayer()->GetSelectedIds().empty()) return true;
    for (const auto& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features && features->HasSelectedFeatures()) return true;
    }
    return false;
}

}  // namespace

bool HOMapTool::OnKeyDown(int key) {
    HOMap* map = TargetMap();
    return key == Qt::Key_Delete && map && HasSelection(map);
}

HOMap* HOMapTool::TargetMap() const {
    HOMapView* view = MapView();
    if (!view && GetToolBuddy()) view = GetToolBuddy()->GetMapView();
    return view ? view->GetMap() : nullptr;
}

void HOMapTool::OpenContextMenu(int x, int y) const {
    if (HOToolBuddy* buddy = GetToolBuddy()) buddy->OnContextMenu(x, y);
}

void HOMapTool::RefreshPaint() const {
    if (HOMapView* view = MapView()) view->RefreshToolPaint();
}

HOMapView* HOMapTool::MapView() const {
    return dynamic_cast<HOMapView*>(GetView());
}

HOPoint HOMapTool::ToMap(double x, double y) const {
    HOMapView* view = MapView();
    return view ? view->GetDisplayTransform().ToMap(x, y) : HOPoint(x, y);
}

double HOMapTool::PixelsToMap(double pixels) const {
    HOMapView* view = MapView();
    return view ? pixels * view->GetDisplayTransform().unitsPerPixel : pixels;
}

void HOMapTool::ShowCursor(HOToolBuddy::HOCursor shape) const {
    if (HOToolBuddy* buddy = GetToolBuddy()) buddy->SetCursor(shape);
}

HOToolBuddy::HOKeyboardModifier HOMapTool::Modifiers() const {
    HOToolBuddy* buddy = GetToolBuddy();
    return buddy ? buddy->GetKeyboardModifiers() : HOToolBuddy::NoModifier;
}

}  // namespace HXObjects
