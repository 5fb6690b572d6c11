#pragma once
// HOToolCopyElement ("HXObjects::HOToolCopyElement"): puts the selected graphic elements on the clipboard
// when it is installed, then works as the selection tool.
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolCopyElement : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "HXObjects::HOToolCopyElement"; }
    void Activate() override;
};

}  // namespace HXObjects
