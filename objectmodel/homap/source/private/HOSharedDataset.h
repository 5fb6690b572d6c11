#pragma once
// HOSharedDataset: one open GDAL dataset shared by every layer read from it (a GeoPackage of many
// tables is opened once). GDAL lets one thread at a time use a dataset and its layers; whoever
// touches `dataset` or one of its OGR layers holds `mutex`.
#include <gdal_priv.h>

#include <memory>
#include <mutex>

namespace HXObjects {

struct HOSharedDataset {
    explicit HOSharedDataset(GDALDatasetUniquePtr opened) : dataset(std::move(opened)) {}

    std::mutex mutex;
    const GDALDatasetUniquePtr dataset;
};

}  // namespace HXObjects
