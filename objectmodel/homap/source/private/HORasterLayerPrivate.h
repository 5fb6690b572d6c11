#pragma once
// HORasterLayer::Private: the open dataset, its warped views per map coordinate system (declared
// after the dataset so they close first), and the grey stretch. The mutex serialises every use of
// the datasets, which GDAL does not allow from two threads at once.
#include <gdal_priv.h>

#include <mutex>
#include <vector>

#include "HOCoordinateSystem.h"
#include "HORasterLayer.h"
#include "source/private/HORasterReader.h"

namespace HXObjects {

class HORasterLayer::Private {
public:
    // The dataset to read for a map in `target`: the source itself, or a warped view built once.
    GDALDataset* DatasetFor(const HOCoordinateSystem* target);

    std::mutex mutex;
    GDALDatasetUniquePtr dataset;
    HORefPtr<HOCoordinateSystem> system;
    HORasterStretch stretch;
    std::vector<std::pair<HORefPtr<const HOCoordinateSystem>, GDALDatasetUniquePtr>> warped;
};

}  // namespace HXObjects
