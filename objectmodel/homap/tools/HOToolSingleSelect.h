#pragma once
// HOToolSingleSelect ("HXObjects::HOToolSingleSelect"): a click selects the topmost feature under
// the mouse and the topmost graphic element there; a dragged box selects every feature of the
// visible feature layers that meets it. Shift adds to the selection, control toggles. The number
// of selected features is left in HOTool::selectFeatureNum.
#include <vector>

#include "HORubberBandTool.h"

namespace HXObjects {

class HOFeatureLayer;
class HOMap;

class HOToolSingleSelect : public HORubberBandTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolSingleSelect"; }
    void Activate() override;

    // Search radius around a click, pixels.
    static constexpr double kTolerancePixels = 3.0;

protected:
    void OnClick(const HOPoint& point) override;
    void OnBox(const HORect& box) override;

private:
    enum Mode { Replace, Add, Toggle };
    struct LayerPick;
    // The new selection of one layer from the ids selected before and the ids just picked.
    static std::vector<int> Combine(const std::vector<int>& before, const std::vector<int>& picked,
                                    Mode mode);
    Mode currentMode() const;
    void apply(HOMap* map, const std::vector<LayerPick>& picks);
    void selectElementAt(HOMap* map, const HOPoint& point, double tolerance);
};

}  // namespace HXObjects
