#pragma once
// HOToolIdentify ("HXObjects::HOToolIdentify"): a click reports the topmost feature under the mouse
// among the visible feature layers. The report is an HOIdentifyEvent fired on IdentifiedSignal with
// the tool as sender; the host shows it.
#include "HOEventSignal.h"
#include "HOMapTool.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOToolIdentify : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolIdentify"; }
    void Activate() override;
    void OnMouseUp(int button, int x, int y) override;

    // Search radius around a click, pixels.
    static constexpr double kTolerancePixels = 3.0;

    HOEventSignal IdentifiedSignal;
};

}  // namespace HXObjects
