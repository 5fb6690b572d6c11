#include "HORenderRequest.h"

namespace HXObjects {

void HORenderRequest::Absorb(const HORenderRequest& older) {
    redrawAll = redrawAll || older.redrawAll;
    redrawLayers.insert(older.redrawLayers.begin(), older.redrawLayers.end());
    dropCaches = dropCaches || older.dropCaches;
}

HORenderContext HORenderRequest::Context(const HOCoordinateSystem* system, const HOTrackCancel* cancel) const {
    HORenderContext context;
    context.transform = transform;
    context.size = size;
    const HOPoint bottomRight = transform.ToMap(size.width, size.height);
    context.extent = HORect(transform.extentLeft, bottomRight.x, bottomRight.y, transform.extentTop);
    context.mapSystem = system;
    context.cancel = cancel;
    context.dpi = dpi;
    return context;
}

}  // namespace HXObjects
