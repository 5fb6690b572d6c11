#pragma once
// HOCmdPasteElement ("HXObjects::HOCmdPasteElement"): a one-shot command that pastes the clipboard's elements
// into the buddy's map view where they were copied from, as one undoable edit; the current tool stays.
#include "HOMapTool.h"

namespace HXObjects {

class HOCmdPasteElement : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOCmdPasteElement"; }
    bool IsOneShot() override { return true; }
    void Activate() override;
};

}  // namespace HXObjects
