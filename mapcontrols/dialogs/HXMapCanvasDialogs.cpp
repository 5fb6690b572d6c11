// HXMapCanvas: the members that open the editing and display dialogs. The dialogs are not built yet;
// until then each member answers as if its dialog had been accepted with its default choice.
#include "HOFeatureLayer.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

void HXMapCanvas::CustomStyle() {}

void HXMapCanvas::SetMapGridAndRuler() {}

int HXMapCanvas::combineFeatureAttributeFID(HOLayer* layer) {
    // -2: no answer (only feature layers have attributes to inherit); -1: inherit from the largest.
    return dynamic_cast<HOFeatureLayer*>(layer) ? -1 : -2;
}
