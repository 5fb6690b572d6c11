#pragma once
// HOToolDoubleLine ("HXObjects::HOToolDoubleLine"): digitises a centre line like the line tool and
// makes the two lines parallel to it at half the "LineWidth" parameter (metres on the ground, 10 by
// default) on either side, one undoable edit. The buddy's "Please input line width" sets the width.
// A width not above zero or a centre line without two distinct vertices makes nothing.
#include "HODigitizeTool.h"

namespace HXObjects {

class HOToolDoubleLine : public HODigitizeTool {
public:
    HOToolDoubleLine();
    HOString GetClassName() override { return "HXObjects::HOToolDoubleLine"; }

protected:
    bool IsArea() const override { return false; }
    int NewPathOption(HOToolBuddy* buddy) const override { return buddy->getNewPathOption_Line(); }
    void SetNewPathOption(HOToolBuddy* buddy, int option) const override {
        buddy->setNewPathOption_Line(option);
    }
    void Create(HOMap* map, HORefPtr<HOGeometry> shape) override;
};

}  // namespace HXObjects
