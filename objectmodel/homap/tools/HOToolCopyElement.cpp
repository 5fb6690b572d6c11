#include "HOToolCopyElement.h"

#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOToolCopyElement::Activate() {
    HOToolSingleSelect::Activate();
    HOElementEditor::CopySelected(TargetMap());
}

}  // namespace HXObjects
