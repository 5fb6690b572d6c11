#include "HOMapTool.h"

namespace HXObjects {

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
