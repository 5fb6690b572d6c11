#pragma once
// HOToolZoomOut ("HXObjects::HOToolZoomOut"): a click zooms out about the clicked point by the zoom
// factor the tool host gives (2 unless it gives another); after a drag the whole current extent
// fits into the dragged box.
#include "HORubberBandTool.h"

namespace HXObjects {

class HOToolZoomOut : public HORubberBandTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolZoomOut"; }
    void Activate() override;

    // The extent in which `current` appears where `box` lies now (both in map units).
    static HORect ExtentShowingIn(const HORect& current, const HORect& box);

protected:
    void OnClick(const HOPoint& point) override;
    void OnBox(const HORect& box) override;
};

}  // namespace HXObjects
