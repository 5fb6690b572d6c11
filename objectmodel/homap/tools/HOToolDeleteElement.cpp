#include "HOToolDeleteElement.h"

#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOToolDeleteElement::Activate() {
    HOToolSingleSelect::Activate();
    HOElementEditor::DeleteSelected(TargetMap());
}

}  // namespace HXObjects
