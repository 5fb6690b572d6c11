#pragma once
// HOCmdCopyElement ("HXObjects::HOCmdCopyElement"): a one-shot command that puts the selected graphic
// elements of the buddy's map view on the clipboard; the current tool stays.
#include "HOMapTool.h"

namespace HXObjects {

class HOCmdCopyElement : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOCmdCopyElement"; }
    bool IsOneShot() override { return true; }
    void Activate() override;
};

}  // namespace HXObjects
