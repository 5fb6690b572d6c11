#include "HOCmdPasteElement.h"

#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOCmdPasteElement::Activate() {
    HOMapTool::Activate();
    HOElementEditor::Paste(TargetMap(), nullptr, GetToolBuddy());
}

}  // namespace HXObjects
