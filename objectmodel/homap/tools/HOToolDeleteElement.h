#pragma once
// HOToolDeleteElement ("HXObjects::HOToolDeleteElement"): deletes the selected graphic elements when it is
// installed, as one undoable edit, and then works as the selection tool, so that the next selection
// can be deleted with the Delete key again.
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolDeleteElement : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "HXObjects::HOToolDeleteElement"; }
    void Activate() override;
};

}  // namespace HXObjects
