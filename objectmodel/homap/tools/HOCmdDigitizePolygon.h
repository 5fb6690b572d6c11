#pragma once
// HOCmdDigitizePolygon ("HXObjects::HOCmdDigitizePolygon"): draws a polygon element vertex by vertex.
#include "HODigitizeTool.h"

namespace HXObjects {

class HOCmdDigitizePolygon : public HODigitizeTool {
public:
    HOString GetClassName() override { return "HXObjects::HOCmdDigitizePolygon"; }

protected:
    bool IsArea() const override { return true; }
    int NewPathOption(HOToolBuddy* buddy) const override { return buddy->getNewPathOption_Polygon(); }
    void SetNewPathOption(HOToolBuddy* buddy, int option) const override {
        buddy->setNewPathOption_Polygon(option);
    }
};

}  // namespace HXObjects
