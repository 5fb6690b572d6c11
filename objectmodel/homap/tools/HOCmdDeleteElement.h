#pragma once
// HOCmdDeleteElement ("HXObjects::HOCmdDeleteElement"): a one-shot command that deletes the selected graphic
// elements of the buddy's map view as one undoable edit; the current tool stays.
#include "HOMapTool.h"

namespace HXObjects {

class HOCmdDeleteElement : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOCmdDeleteElement"; }
    bool IsOneShot() override { return true; }
    void Activate() override;
};

}  // namespace HXObjects
