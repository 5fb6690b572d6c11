#pragma once
// HOToolZoomIn ("HXObjects::HOToolZoomIn"): a click zooms in about the clicked point by the zoom
// factor the tool host gives (2 unless it gives another); a dragged box becomes the visible extent.
#include "HORubberBandTool.h"

namespace HXObjects {

class HOToolZoomIn : public HORubberBandTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolZoomIn"; }
    void Activate() override;

protected:
    void OnClick(const HOPoint& point) override;
    void OnBox(const HORect& box) override;
};

}  // namespace HXObjects
