#pragma once
// HOToolMergeFeature ("HXObjects::HOToolMergeFeature"): merges the selected features of one
// editable feature layer into one when it is installed, as one undoable edit, and then works as the
// selection tool. The host chooses whose attributes survive (combineFeatureAttributeFID: -2
// abandons, -1 takes the feature of largest area or length, else the feature with that id); that
// feature takes the merged geometry and the others are deleted.
#include "HOToolSingleSelect.h"

namespace HXObjects {

class HOToolMergeFeature : public HOToolSingleSelect {
public:
    HOString GetClassName() override { return "HXObjects::HOToolMergeFeature"; }
    void Activate() override;

private:
    // The one layer with a selection; null, reported, when none or several have one.
    HOFeatureLayer* selectedLayer();
    void merge(HOFeatureLayer* layer);
};

}  // namespace HXObjects
