#include "HOToolZoomIn.h"

namespace HXObjects {

void HOToolZoomIn::Activate() {
    HORubberBandTool::Activate();
    ShowCursor(HOToolBuddy::ZoomInCursor);
}

void HOToolZoomIn::OnClick(const HOPoint& point) {
    MapView()->ZoomByFactor(1.0 / ZoomFactor(), &point);
}

void HOToolZoomIn::OnBox(const HORect& box) {
    MapView()->SetExtent(box);
}

}  // namespace HXObjects
