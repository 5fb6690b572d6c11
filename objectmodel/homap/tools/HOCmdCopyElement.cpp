#include "HOCmdCopyElement.h"

#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOCmdCopyElement::Activate() {
    HOMapTool::Activate();
    HOElementEditor::CopySelected(TargetMap());
}

}  // namespace HXObjects
