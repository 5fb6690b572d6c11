#include "HORasterLayerLoader.h"

#include "HORasterLayerPrivate.h"

#include <QFileInfo>

namespace HXObjects {

HORefPtr<HORasterLayer> HORasterLayerLoader::Load(GDALDatasetUniquePtr dataset, HOString* reason) {
    if (dataset->GetRasterCount() < 1) {
        *reason = "it holds no raster band";
        return nullptr;
    }
    double geo[6];
    if (dataset->GetGeoTransform(geo) != CE_None || !(geo[1] > 0) || !(geo[5] < 0)) {
        *reason = "the raster is not georeferenced north-up";
        return nullptr;
    }
    HORasterStretch stretch;
    GDALRasterBand* first = dataset->GetRasterBand(1);
    double range[2] = {0, 255};
    // Grey bands stretch between their minimum and maximum; an approximate scan reads overviews
    // when present and writes nothing next to the data.
    if (dataset->GetRasterCount() < 3 && first->ComputeRasterMinMax(TRUE, range) == CE_None)
        stretch = {range[0], range[1]};
    HORefPtr<HORasterLayer> layer(new HORasterLayer);
    layer->d->system = HOCoordinateSystem::FromOgr(dataset->GetSpatialRef());
    layer->d->stretch = stretch;
    layer->SetName(QFileInfo(QString::fromUtf8(dataset->GetDescription())).completeBaseName());
    layer->d->dataset = std::move(dataset);
    return layer;
}

}  // namespace HXObjects
