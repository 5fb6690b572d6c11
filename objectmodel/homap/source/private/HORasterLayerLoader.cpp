#include "source/private/HORasterLayerLoader.h"

#include <QFileInfo>

#include "source/private/HORasterLayerPrivate.h"

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
    GDALRasterBand* first = dataset->GetRasterBand(1);
    // A truncated file may still have a sound header: read one pixel of the whole band (from the
    // smallest overview when there is one) to know the pixels can be read at all.
    float sample = 0;
    CPLErrorReset();
    if (first->RasterIO(GF_Read, 0, 0, first->GetXSize(), first->GetYSize(), &sample, 1, 1, GDT_Float32, 0,
                        0) != CE_None) {
        reason->Format("its pixels cannot be read: %s", CPLGetLastErrorMsg());
        return nullptr;
    }
    HORasterStretch stretch;
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
