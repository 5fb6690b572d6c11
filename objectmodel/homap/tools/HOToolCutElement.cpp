#include "HOToolCutElement.h"

#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOToolCutElement::Activate() {
    HOToolSingleSelect::Activate();
    HOElementEditor::CutSelected(TargetMap());
}

}  // namespace HXObjects
