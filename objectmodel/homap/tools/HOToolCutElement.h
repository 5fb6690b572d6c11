#pragma once
// HOToolCutElement ("HXObjects::HOToolCutElement"): puts the selected graphic elements on the clipboard and
// removes them (one undoable edit) when it is installed, then works as the selection tool.
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolCutElement : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "HXObjects::HOToolCutElement"; }
    void Activate() override;
};

}  // namespace HXObjects
