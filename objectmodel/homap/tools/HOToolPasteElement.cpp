#include "HOToolPasteElement.h"

#include "HOMap.h"
#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOToolPasteElement::Activate() {
    HOToolSingleSelect::Activate();
    HOMapView* view = MapView();
    HOToolBuddy* buddy = GetToolBuddy();
    if (!view || !buddy) return;
    const HOPoint cursor = buddy->GetCursorPos();
    const HOPoint mouse = ToMap(cursor.x, cursor.y);
    const bool inside = view->GetExtent().Contains(mouse);
    HOElementEditor::Paste(view->GetMap(), inside ? &mouse : nullptr, buddy);
}

void HOToolPasteElement::OnClick(const HOPoint& point) {
    HOElementEditor::Paste(TargetMap(), &point, GetToolBuddy());
}

}  // namespace HXObjects
