#pragma once
// HOToolDeleteFeature ("HXObjects::HOToolDeleteFeature"): deletes the selected features of the
// map's editable feature layers when it is installed, as one undoable edit, and then works as the
// selection tool. Layers that cannot be edited keep their features, and the user is told why.
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolDeleteFeature : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "HXObjects::HOToolDeleteFeature"; }
    void Activate() override;
};

}  // namespace HXObjects
