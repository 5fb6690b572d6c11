#pragma once
// HORasterLayerLoader: makes a raster layer of an open GDAL raster data source.
#include <gdal_priv.h>

#include "HORasterLayer.h"

namespace HXObjects {

class HORasterLayerLoader {
public:
    // Null with the reason when the source has no band the layer can draw.
    static HORefPtr<HORasterLayer> Load(GDALDatasetUniquePtr dataset, HOString* reason);
};

}  // namespace HXObjects
