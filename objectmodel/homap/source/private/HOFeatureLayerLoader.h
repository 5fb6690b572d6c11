#pragma once
// HOFeatureLayerLoader: makes a feature layer of one OGR layer of an open data source, reading all
// of its geometry into memory.
#include <gdal_priv.h>

#include "HOFeatureLayer.h"
#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOFeatureLayerLoader {
public:
    // The named layer, or the first when `layerName` is empty; null with the reason on failure.
    static HORefPtr<HOFeatureLayer> Load(GDALDatasetUniquePtr dataset, const HOString& layerName,
                                         HOString* reason);

private:
    static HOLayer::LayerType layerTypeOf(OGRwkbGeometryType type, HOFeatureKind dominant);
    static HOGeometry::GeoType geoTypeOf(OGRwkbGeometryType type, HOFeatureKind dominant);
};

}  // namespace HXObjects
