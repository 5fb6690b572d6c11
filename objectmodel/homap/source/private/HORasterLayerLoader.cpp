#include "source/private/HORasterLayerLoader.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "source/private/HORasterLayerPrivate.h"

namespace HXObjects {

HORefPtr<HORasterLayer> HORasterLayerLoader::Load(GDALDatasetUniquePtr dataset, HOString* reason) {
    if (dataset->GetRasterCount() < 1) {
        *reason = QCoreApplication::translate("HXObjects::HORasterLayerLoader", "it holds no raster band");
        return nullptr;
    }
    HORasterInfo info;
    if (!HORasterInfo::Inspect(dataset.get(), &info, reason)) return nullptr;
    GDALRasterBand* first = dataset->GetRasterBand(1);
    // A truncated file may still have a sound header: read one pixel of the whole band (one block,
    // or the smallest overview) to know the pixels can be read at all.
    float sample = 0;
    CPLErrorReset();
    if (first->RasterIO(GF_Read, 0, 0, first->GetXSize(), first->GetYSize(), &sample, 1, 1, GDT_Float32, 0,
                        0) != CE_None) {
        *reason =
            QCoreApplication::translate("HXObjects::HORasterLayerLoader", "its pixels cannot be read: %1")
                .arg(QString::fromUtf8(CPLGetLastErrorMsg()));
        return nullptr;
    }
    HORefPtr<HORasterLayer> layer(new HORasterLayer);
    layer->SetName(QFileInfo(QString::fromStdString(info.path)).completeBaseName());
    // Overviews built in an earlier session are read from the cache instead of the file itself.
    const std::string cached = HORasterOverviewBuilder::Cached(info.path);
    if (!cached.empty()) dataset.reset();
    const std::string readPath = cached.empty() ? info.path : cached;
    layer->d =
        std::make_unique<HORasterLayer::Private>(layer.get(), std::move(info), std::move(dataset), readPath);
    return layer;
}

}  // namespace HXObjects
