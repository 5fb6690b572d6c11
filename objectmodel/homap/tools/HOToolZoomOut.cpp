#include "HOToolZoomOut.h"

namespace HXObjects {

void HOToolZoomOut::Activate() {
    HORubberBandTool::Activate();
    ShowCursor(HOToolBuddy::ZoomOutCursor);
}

HORect HOToolZoomOut::ExtentShowingIn(const HORect& current, const HORect& box) {
    // Each axis grows by current/box; the box's offset inside the current extent, grown by the
    // same factor, is the current extent's offset inside the new one.
    const double fx = current.Width() / box.Width(), fy = current.Height() / box.Height();
    const double minx = current.minx - fx * (box.minx - current.minx);
    const double miny = current.miny - fy * (box.miny - current.miny);
    return HORect(minx, minx + fx * current.Width(), miny, miny + fy * current.Height());
}

void HOToolZoomOut::OnClick(const HOPoint& point) {
    MapView()->ZoomByFactor(ZoomFactor(), &point);
}

void HOToolZoomOut::OnBox(const HORect& box) {
    HOMapView* view = MapView();
    view->SetExtent(ExtentShowingIn(view->GetExtent(), box));
}

}  // namespace HXObjects
