#pragma once
// HOCmdDigitizeLine ("HXObjects::HOCmdDigitizeLine"): draws a line element vertex by vertex.
#include "HODigitizeTool.h"

namespace HXObjects {

class HOCmdDigitizeLine : public HODigitizeTool {
public:
    HOString GetClassName() override { return "HXObjects::HOCmdDigitizeLine"; }

protected:
    bool IsArea() const override { return false; }
    int NewPathOption(HOToolBuddy* buddy) const override { return buddy->getNewPathOption_Line(); }
    void SetNewPathOption(HOToolBuddy* buddy, int option) const override {
        buddy->setNewPathOption_Line(option);
    }
};

}  // namespace HXObjects
