#pragma once
// HOFeatureLayerLoader: makes a feature layer of one OGR layer of an open data source, reading all
// of its geometry into memory — or, when that would exceed the memory budget, none of it: the
// layer is then drawn from its source. The layer keeps the shared dataset for attribute lookups.
#include <gdal_priv.h>

#include <memory>

#include "HOFeatureLayer.h"
#include "source/private/HOFeatureTopology.h"
#include "source/private/HOOgrGeometryReader.h"
#include "source/private/HOSharedDataset.h"

namespace HXObjects {

class HOFeatureLayerLoader {
public:
    // The layer at `index`; null with the reason on failure or when `progress` stopped the read.
    // Takes the dataset's lock.
    static HORefPtr<HOFeatureLayer> Load(const std::shared_ptr<HOSharedDataset>& source, int index,
                                         HOString* reason,
                                         const HOOgrGeometryReader::Progress& progress = nullptr);

private:
    // Makes the layer one drawn from its source, which it opens again for that.
    static void streamFrom(HOFeatureLayer::Private& d, const std::string& path, OGRLayer* layer);
    static HOLayer::LayerType layerTypeOf(OGRwkbGeometryType type, HOFeatureKind dominant);
    static HOGeometry::GeoType geoTypeOf(OGRwkbGeometryType type, HOFeatureKind dominant);
};

}  // namespace HXObjects
