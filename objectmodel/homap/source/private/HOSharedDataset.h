#pragma once
// HOSharedDataset: one open GDAL dataset shared by every layer read from it (a GeoPackage of many
// tables is opened once). GDAL lets one thread at a time use a dataset and its layers; whoever
// touches `dataset` or one of its OGR layers holds `mutex`. A source whose files an edit replaces
// (a shapefile) is opened again after the edit, under the mutex.
#include <gdal_priv.h>

#include <memory>
#include <mutex>
#include <string>

namespace HXObjects {

struct HOSharedDataset {
    HOSharedDataset(GDALDatasetUniquePtr opened, std::string source)
        : dataset(std::move(opened)), path(std::move(source)) {}

    std::mutex mutex;
    GDALDatasetUniquePtr dataset;
    const std::string path;
};

}  // namespace HXObjects
