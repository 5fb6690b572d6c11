#include "HORasterLayer.h"

#include <QPainter>

#include "HORenderContext.h"
#include "source/private/HORasterLayerPrivate.h"
#include "source/private/HORasterStatistics.h"

namespace HXObjects {

HORasterLayer::Private::Private(HORasterLayer* layer, HORasterInfo metadata, GDALDatasetUniquePtr dataset,
                                const std::string& readPath)
    : info(std::move(metadata)),
      handles(std::move(dataset), readPath),
      overviews(
          info.path, !info.palette.empty(),
          [layer](double) { layer->OverviewProgressSignal.fire(layer, nullptr); },
          [this, layer](const std::string& copy) {
              handles.SwitchTo(copy);
              layer->OverviewProgressSignal.fire(layer, nullptr);
          }) {}

bool HORasterLayer::Private::Stretch(GDALDataset* dataset, const HOTrackCancel* cancel,
                                     HORasterStretch* stretch) {
    if (info.rgb || !info.palette.empty()) return true;
    std::lock_guard<std::mutex> lock(m_stretchMutex);
    if (!m_stretchKnown)
        m_stretchKnown = HORasterStatistics::RobustStretch(dataset->GetRasterBand(1), cancel, &m_stretch);
    *stretch = m_stretch;
    return m_stretchKnown;
}

HORasterLayer::HORasterLayer() = default;

HORasterLayer::~HORasterLayer() = default;

HOLayer::LayerType HORasterLayer::GetLayerType() const {
    return RasterLayer;
}

HORefPtr<HOCoordinateSystem> HORasterLayer::GetSpatialReference() const {
    return d->info.system;
}

HORect HORasterLayer::GetExtent() const {
    return d->info.extent;
}

void HORasterLayer::Render(const HORenderContext& context) {
    if (!context.painter || context.IsCancelled()) return;
    // A damaged block fails the read, which draws nothing; GDAL need not report it each time.
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    HORasterHandlePool::Lease handle = d->handles.Borrow();
    HORasterView view;
    HORasterStretch stretch;
    if (!handle || !handle->ViewFor(d->info, context.mapSystem, &view) ||
        !d->Stretch(handle->Dataset(), context.cancel, &stretch))
        return;
    HORasterReader reader(view, d->info, stretch, context.cancel);
    // Read at the device's resolution: on a HiDPI picture a raster read per logical pixel looks blurred.
    QRectF target;
    const QImage image = reader.Read(context.extent, context.DeviceTransform(), &target);
    const double ratio = context.devicePixelRatio;
    target = QRectF(target.topLeft() / ratio, target.size() / ratio);
    if (reader.NeedsOverviews()) d->overviews.Start();
    if (image.isNull() || context.IsCancelled()) return;
    context.painter->save();
    context.painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    context.painter->drawImage(target, image);
    context.painter->restore();
}

int HORasterLayer::GetRasterWidth() const {
    return d->info.width;
}

int HORasterLayer::GetRasterHeight() const {
    return d->info.height;
}

int HORasterLayer::GetBandCount() const {
    return d->info.bands;
}

double HORasterLayer::GetOverviewProgress() const {
    return d->overviews.Progress();
}

}  // namespace HXObjects
