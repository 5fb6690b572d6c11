#pragma once
// HOFeatureLayer::Private: the state behind a feature layer — the open data source (for attribute
// lookups), the geometry in memory per coordinate system, style, overrides and selection. The
// mutex guards the style, the selection and the data source; the stores guard themselves.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <mutex>

#include "HOCoordinateSystem.h"
#include "render/labels/private/HOLayerLabels.h"
#include "render/private/HOFeatureCategories.h"
#include "HOFeatureLayer.h"
#include "source/private/HOProjectedStores.h"

namespace HXObjects {

class HOFeatureLayer::Private {
public:
    Private(GDALDatasetUniquePtr source, OGRLayer* layer, HORefPtr<HOCoordinateSystem> system,
            std::shared_ptr<const HOFeatureStore> store)
        : dataset(std::move(source)),
          ogrLayer(layer),
          system(system),
          stores(std::move(store), system),
          labels(QString::fromUtf8(dataset->GetDescription()), QString::fromUtf8(layer->GetName())) {}

    mutable std::mutex mutex;
    GDALDatasetUniquePtr dataset;
    OGRLayer* ogrLayer;
    HORefPtr<HOCoordinateSystem> system;
    HOProjectedStores stores;
    LayerType type = UnknownLayer;
    HOGeometry::GeoType geometryType = HOGeometry::GeoUnknown;
    HORefPtr<HOStyle> style;
    HORefPtr<HOUserFeatureRender> custom{new HOUserFeatureRender};
    std::vector<int64_t> selected;  // ascending
    std::shared_ptr<const HOFeatureCategories> categories;
    HOLayerLabels labels;  // guards itself
};

}  // namespace HXObjects
