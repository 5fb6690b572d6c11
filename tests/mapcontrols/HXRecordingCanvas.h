#pragma once
// HXRecordingCanvas: a canvas of a given mode whose views record the calls made of them. In
// page-layout mode the recording layout shows the recording map view in its operating data frame.
#include "HODataFrame.h"
#include "HORecordingView.h"
#include "HXMapCanvas.h"

struct HXRecordingCanvas {
    explicit HXRecordingCanvas(HXMapCanvas::ViewMode mode) : canvas(mode, nullptr) {
        if (mode == HXMapCanvas::PageLayoutMode) {
            HXObjects::HORefPtr<HXObjects::HODataFrame> frame = new HXObjects::HODataFrame();
            frame->set_map_view(map);
            layout->set_operating_data_frame(frame);
            canvas.SetPageLayoutView(layout);
        } else {
            canvas.SetMapView(map);
        }
        map->clearCalls();
        layout->clearCalls();
    }

    HXObjects::HORefPtr<HORecordingMapView> map = new HORecordingMapView();
    HXObjects::HORefPtr<HORecordingPageLayoutView> layout = new HORecordingPageLayoutView();
    HXMapCanvas canvas;
};
