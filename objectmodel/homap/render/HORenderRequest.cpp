#include "HORenderRequest.h"

#include <QtMath>
#include <cmath>

namespace HXObjects {

QRect HORenderRequest::PixelsOf(const HORect& area) const {
    if (area.IsEmpty()) return Whole();
    const HOPoint topLeft = transform.ToDevice(HOPoint(area.minx, area.maxy));
    const HOPoint bottomRight = transform.ToDevice(HOPoint(area.maxx, area.miny));
    const QPoint first(int(std::floor(topLeft.x)), int(std::floor(topLeft.y)));
    const QPoint last(int(std::ceil(bottomRight.x)) - 1, int(std::ceil(bottomRight.y)) - 1);
    return QRect(first, last).intersected(Whole());
}

void HORenderRequest::Absorb(const HORenderRequest& older) {
    const bool samePlace = older.transform == transform && older.Whole() == Whole();
    const auto here = [&](const QRegion& area) {
        return samePlace || area.isEmpty() ? area : QRegion(Whole());
    };
    redrawEverywhere += here(older.redrawEverywhere);
    for (const auto& [layer, area] : older.redrawLayers) redrawLayers[layer] += here(area);
    dropCaches = dropCaches || older.dropCaches;
}

QRegion HORenderRequest::RedrawArea(int layerId) const {
    const auto named = redrawLayers.find(layerId);
    return named == redrawLayers.end() ? redrawEverywhere : redrawEverywhere.united(named->second);
}

HORenderContext HORenderRequest::Context(const HOCoordinateSystem* system,
                                         const HOTrackCancel* cancel) const {
    HORenderContext context;
    context.SetArea(transform, size);
    context.mapSystem = system;
    context.cancel = cancel;
    context.dpi = dpi;
    context.devicePixelRatio = devicePixelRatio;
    return context;
}

QSize HORenderRequest::PictureSize() const {
    return PictureSizeOf(QSize(size.width, size.height), devicePixelRatio);
}

QImage HORenderRequest::Picture() const {
    return PictureOf(QSize(size.width, size.height), devicePixelRatio);
}

QSize HORenderRequest::PictureSizeOf(const QSize& logical, double ratio) {
    return QSize(qCeil(logical.width() * ratio), qCeil(logical.height() * ratio));
}

QImage HORenderRequest::PictureOf(const QSize& logical, double ratio) {
    QImage picture(PictureSizeOf(logical, ratio), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

}  // namespace HXObjects
