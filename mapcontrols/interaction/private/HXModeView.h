#pragma once
// The view that receives input in the canvas's view mode: the map view in map-view mode, the
// page-layout view in page-layout mode, none otherwise.
#include "HXMapCanvas.h"

inline HXObjects::HOView* HXModeView(HXMapCanvas* canvas) {
    switch (canvas->getViewMode()) {
        case HXMapCanvas::MapViewMode:
            return canvas->GetMapView();
        case HXMapCanvas::PageLayoutMode:
            return canvas->GetPageLayoutView();
        default:
            return nullptr;
    }
}
