#include "HOCmdDeleteElement.h"

#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOCmdDeleteElement::Activate() {
    HOMapTool::Activate();
    HOElementEditor::DeleteSelected(TargetMap());
}

}  // namespace HXObjects
