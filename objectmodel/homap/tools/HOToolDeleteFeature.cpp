#include "HOToolDeleteFeature.h"

#include "edit/HOFeatureEditor.h"

namespace HXObjects {

void HOToolDeleteFeature::Activate() {
    HOToolSingleSelect::Activate();
    HOFeatureEditor::DeleteSelected(TargetMap(), this);
}

}  // namespace HXObjects
