// HXMapCanvas: the members that open the editing and display dialogs. The dialogs are not built yet;
// until then each member answers as if its dialog had been accepted with its default choice.
#include "HOFeatureLayer.h"
#include "HXCombineFeatureMethodDialog.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

void HXMapCanvas::CustomStyle() {}

void HXMapCanvas::SetMapGridAndRuler() {}

int HXMapCanvas::combineFeatureAttributeFID(HOLayer* layer) {
    // -2: no answer (only feature layers have attributes to inherit); -1: inherit from the largest
    // feature; otherwise the id of the feature whose attributes the merged feature keeps.
    auto* features = dynamic_cast<HOFeatureLayer*>(layer);
    if (!features) return -2;
    HXCombineFeatureMethodDialog dialog(features, this);
    dialog.move(mapToGlobal(QPoint(0, 0)));
    if (dialog.exec() != QDialog::Accepted) return -2;
    return dialog.isInheritMaxArea() ? -1 : dialog.selectedFeatureId();
}
