#include "HORenderRequest.h"

namespace HXObjects {

void HORenderRequest::Absorb(const HORenderRequest& older) {
    redrawAll = redrawAll || older.redrawAll;
    redrawLayers.insert(older.redrawLayers.begin(), older.redrawLayers.end());
    dropCaches = dropCaches || older.dropCaches;
}

HORenderContext HORenderRequest::Context(const HOCoordinateSystem* system, const HOTrackCancel* cancel) const {
    HORenderContext context;
    context.SetArea(transform, size);
    context.mapSystem = system;
    context.cancel = cancel;
    context.dpi = dpi;
    return context;
}

}  // namespace HXObjects
