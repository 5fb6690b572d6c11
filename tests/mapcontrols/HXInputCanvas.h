#pragma once
// HXInputCanvas: a canvas of a given mode whose views record the input handed to them. In page-layout
// mode the layout shows the recording map view in its operating data frame.
#include "HODataFrame.h"
#include "HOInputRecordingView.h"
#include "HXMapCanvas.h"

struct HXInputCanvas {
    explicit HXInputCanvas(HXMapCanvas::ViewMode mode) : canvas(mode, nullptr) {
        if (mode == HXMapCanvas::PageLayoutMode) {
            frame->set_map_view(map);
            layout->set_operating_data_frame(frame);
            layout->get_graphicscontainer()->AddElement(frame);
            canvas.SetPageLayoutView(layout);
        } else {
            canvas.SetMapView(map);
        }
        canvas.resize(400, 250);
        map->calls.clear();
        layout->calls.clear();
    }

    // The view that receives input in this mode.
    QStringList& viewCalls() { return canvas.IsMapView() ? map->calls : layout->calls; }

    HXObjects::HORefPtr<HOInputRecordingMapView> map = new HOInputRecordingMapView();
    HXObjects::HORefPtr<HOInputRecordingLayoutView> layout = new HOInputRecordingLayoutView();
    HXObjects::HORefPtr<HXObjects::HODataFrame> frame = new HXObjects::HODataFrame();
    HXMapCanvas canvas;
};
