#pragma once
// HOToolEditAttributes ("class HXObjects::HOToolEditAttributes", the name the canvas knows it by):
// selects features like the selection tool; the canvas then asks its host (EditFeature) to show the
// selected features' attributes for editing. The host writes the edits back as one undoable edit
// (HOFeatureEditor::Commit).
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolEditAttributes : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "class HXObjects::HOToolEditAttributes"; }
};

}  // namespace HXObjects
