#include "HORasterLayer.h"

#include <gdalwarper.h>

#include <QPainter>

#include "HORenderContext.h"
#include "source/private/HOExtentProjector.h"
#include "source/private/HORasterLayerPrivate.h"

namespace HXObjects {

GDALDataset* HORasterLayer::Private::DatasetFor(const HOCoordinateSystem* target) {
    if (HOExtentProjector::IsIdentity(system.get(), target)) return dataset.get();
    for (const auto& view : warped)
        if (view.first.get() == target || view.first->IsSame(target)) return view.second.get();
    const std::string wkt = target->ToWkt().toStdString();
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    GDALDatasetH view = GDALAutoCreateWarpedVRT(GDALDataset::ToHandle(dataset.get()), nullptr, wkt.c_str(),
                                                GRA_Bilinear, 0.125, nullptr);
    warped.emplace_back(HORefPtr<const HOCoordinateSystem>(target),
                        GDALDatasetUniquePtr(GDALDataset::FromHandle(view)));
    return warped.back().second.get();
}

HORasterLayer::HORasterLayer() : d(std::make_unique<Private>()) {}

HORasterLayer::~HORasterLayer() {
    // Warped views read through the source dataset; close them first.
    d->warped.clear();
}

HOLayer::LayerType HORasterLayer::GetLayerType() const {
    return RasterLayer;
}

HORefPtr<HOCoordinateSystem> HORasterLayer::GetSpatialReference() const {
    return d->system;
}

HORect HORasterLayer::GetExtent() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return HORasterReader(d->dataset.get(), d->stretch).Extent();
}

void HORasterLayer::Render(const HORenderContext& context) {
    if (!context.painter || context.IsCancelled()) return;
    QRectF target;
    QImage image;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        // A damaged block fails the read, which draws nothing; GDAL need not report it each time.
        CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
        GDALDataset* dataset = d->DatasetFor(context.mapSystem);
        if (!dataset) return;  // no transformation into the map's system
        image = HORasterReader(dataset, d->stretch).Read(context.extent, context.transform, &target);
    }
    if (image.isNull() || context.IsCancelled()) return;
    context.painter->save();
    context.painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    context.painter->drawImage(target, image);
    context.painter->restore();
}

int HORasterLayer::GetRasterWidth() const {
    return d->dataset->GetRasterXSize();
}

int HORasterLayer::GetRasterHeight() const {
    return d->dataset->GetRasterYSize();
}

int HORasterLayer::GetBandCount() const {
    return d->dataset->GetRasterCount();
}

}  // namespace HXObjects
