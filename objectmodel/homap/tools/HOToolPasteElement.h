#pragma once
// HOToolPasteElement ("HXObjects::HOToolPasteElement"): pastes the clipboard's elements when it is installed,
// centred under the mouse, or where they were copied from when the mouse is outside the map; then it
// works as the selection tool, except that a click pastes again there.
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolPasteElement : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "HXObjects::HOToolPasteElement"; }
    void Activate() override;

protected:
    void OnClick(const HOPoint& point) override;
};

}  // namespace HXObjects
