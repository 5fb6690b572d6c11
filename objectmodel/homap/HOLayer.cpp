#include "HOLayer.h"

#include <gdal_priv.h>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HORasterLayer.h"
#include "source/private/HOExtentProjector.h"
#include "source/private/HOFeatureLayerLoader.h"
#include "source/private/HORasterLayerLoader.h"

namespace HXObjects {

namespace {
std::atomic<int> nextLayerId{1};
}

HOLayer::HOLayer() : m_id(nextLayerId.fetch_add(1)) {}

HORect HOLayer::GetExtentIn(const HOCoordinateSystem* system) const {
    return HOExtentProjector::Project(GetExtent(), GetSpatialReference().get(), system);
}

HOString HOLayer::GetName() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_name;
}

void HOLayer::SetName(const HOString& name) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_name = name;
}

HOString HOLayer::GetSource() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_source;
}

void HOLayer::SetSource(const HOString& source) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_source = source;
}

HORefPtr<HOLayer> OpenLayer(const HOString& source, HOString* error) {
    GDALAllRegister();
    // "path|layername=NAME" picks one layer of a multi-layer source.
    const std::string& text = source.toStdString();
    const std::size_t bar = text.find("|layername=");
    const std::string path = text.substr(0, bar);
    const HOString layerName = bar == std::string::npos ? HOString() : HOString(text.substr(bar + 11));

    HOString reason;
    HORefPtr<HOLayer> layer;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    VSIStatBufL status;
    GDALDatasetUniquePtr dataset;
    if (VSIStatL(path.c_str(), &status) != 0 && path.find(':') == std::string::npos) {
        reason = "no such file";
    } else {
        CPLErrorReset();
        dataset.reset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_RASTER | GDAL_OF_READONLY));
        if (!dataset)
            reason =
                CPLGetLastErrorMsg()[0] ? CPLGetLastErrorMsg() : "not a recognised vector or raster format";
    }
    if (dataset && (dataset->GetLayerCount() > 0 || dataset->GetRasterCount() == 0))
        layer = HOFeatureLayerLoader::Load(std::move(dataset), layerName, &reason).get();
    else if (dataset)
        layer = HORasterLayerLoader::Load(std::move(dataset), &reason).get();
    if (layer) {
        layer->SetSource(source);
    } else if (error) {
        error->Format("cannot open '%s': %s", source.c_str(), reason.c_str());
    }
    return layer;
}

}  // namespace HXObjects
