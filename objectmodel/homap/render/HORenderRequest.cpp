#include "HORenderRequest.h"

#include <QtMath>

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
    context.devicePixelRatio = devicePixelRatio;
    return context;
}

QSize HORenderRequest::PictureSize() const {
    return QSize(qCeil(size.width * devicePixelRatio), qCeil(size.height * devicePixelRatio));
}

QImage HORenderRequest::Picture() const {
    QImage picture(PictureSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

}  // namespace HXObjects
