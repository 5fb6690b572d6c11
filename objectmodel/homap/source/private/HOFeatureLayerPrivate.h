#pragma once
// HOFeatureLayer::Private: the state behind a feature layer — the open data source (for attribute
// lookups, shared with the other layers read from it), the geometry in memory per coordinate
// system, style, overrides and selection. The mutex guards the style and the selection, the shared
// dataset's own mutex the OGR layer; the stores guard themselves. Lock order: mutex, then source.
#include <ogrsf_frmts.h>

#include <map>
#include <mutex>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "render/labels/private/HOLayerLabels.h"
#include "render/private/HOFeatureCategories.h"
#include "source/private/HOAttributeSnapshot.h"
#include "source/private/HOFeatureOverview.h"
#include "source/private/HOFeatureStream.h"
#include "source/private/HOFeatureWriter.h"
#include "source/private/HOProjectedStores.h"
#include "source/private/HOSharedDataset.h"

namespace HXObjects {

class HOFeatureLayer::Private {
public:
    Private(std::shared_ptr<HOSharedDataset> dataset, OGRLayer* layer, HORefPtr<HOCoordinateSystem> system,
            std::shared_ptr<const HOFeatureStore> store)
        : source(std::move(dataset)),
          ogrLayer(layer),
          system(system),
          stores(std::move(store), system),
          labels(QString::fromUtf8(source->dataset->GetDescription()), QString::fromUtf8(layer->GetName())) {}

    mutable std::mutex mutex;
    const std::shared_ptr<HOSharedDataset> source;
    OGRLayer* ogrLayer;
    HORefPtr<HOCoordinateSystem> system;
    HOProjectedStores stores;
    LayerType type = UnknownLayer;
    HOGeometry::GeoType geometryType = HOGeometry::GeoUnknown;
    HORefPtr<HOStyle> style;
    bool styleIsDefault = true;  // until the host sets one
    HORefPtr<HOUserFeatureRender> custom{new HOUserFeatureRender};
    std::vector<int64_t> selected;  // ascending
    std::shared_ptr<const HOFeatureCategories> categories;
    HOString categoryField;  // and the styles by value, as given
    std::map<HOString, HORefPtr<HOStyle>> categoryStyles;
    HOLayerLabels labels;  // guards itself
    // Editing: the writer, or why there is none. Edits run on one thread at a time (editMutex);
    // a shapefile's re-added feature gets a new id, and later edits that name the old one mean it.
    std::unique_ptr<HOFeatureWriter> writer;
    HOString readOnlyReason;
    std::mutex editMutex;
    std::map<int64_t, int64_t> renamed;
    std::vector<std::pair<HOString, HOString>> fields;  // name, type
    HOAttributeSnapshot attributes;                     // as read, for the edits' comparison
    // A layer over the memory budget is drawn from its source: `stores` then holds no feature.
    std::shared_ptr<const HOFeatureStream> stream;
    std::unique_ptr<HOFeatureOverview> overview;  // of `stream`, which it reads while it is built
};

}  // namespace HXObjects
