#include "HORenderRequest.h"

namespace HXObjects {

void HORenderRequest::Absorb(const HORenderRequest& older) {
    redrawAll = redrawAll || older.redrawAll;
    redrawLayers.insert(older.redrawLayers.begin(), older.redrawLayers.end());
    dropCaches = dropCaches || older.dropCaches;
}

}  // namespace HXObjects
