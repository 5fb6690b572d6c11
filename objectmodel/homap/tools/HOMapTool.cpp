#include "HOMapTool.h"

#include <cmath>

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

double HOMapTool::ZoomFactor() {
    const Parameters& parameters = GetParameters();
    const auto given = parameters.find(kZoomFactorParameter);
    bool ok = false;
    const double factor = given == parameters.end() ? 0.0 : given->second.toQString().toDouble(&ok);
    return ok && std::isfinite(factor) && factor > 1.0 ? factor : 2.0;
}

}  // namespace HXObjects
