#include "HOToolZoomIn.h"

namespace HXObjects {

void HOToolZoomIn::Activate() {
    HORubberBandTool::Activate();
    ShowCursor(HOToolBuddy::ZoomInCursor);
}

void HOToolZoomIn::OnClick(const HOPoint& point) {
    MapView()->ZoomByFactor(0.5, &point);
}

void HOToolZoomIn::OnBox(const HORect& box) {
    MapView()->SetExtent(box);
}

}  // namespace HXObjects
