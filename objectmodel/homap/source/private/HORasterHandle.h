#pragma once
// HORasterHandle: one open GDAL dataset of a raster, used by one render at a time (GDAL allows a
// dataset on one thread only), with the north-up views it has warped for map coordinate systems.
// Owned by HORasterHandlePool, lent to one render at a time.
#include <gdal_priv.h>

#include <utility>
#include <vector>

#include "HOCoordinateSystem.h"
#include "source/private/HORasterInfo.h"
#include "source/private/HORasterReader.h"

namespace HXObjects {

class HORasterHandle {
public:
    HORasterHandle(GDALDatasetUniquePtr dataset, int generation);
    ~HORasterHandle();

    GDALDataset* Dataset() const { return m_dataset.get(); }
    int Generation() const { return m_generation; }
    // The raster as drawn in a map in `target` (null: the raster's own system): the dataset itself
    // when it is north-up there, otherwise a warped view (built once, transparent outside the
    // footprint). False when the raster cannot be transformed into `target`.
    bool ViewFor(const HORasterInfo& info, const HOCoordinateSystem* target, HORasterView* view);

private:
    GDALDatasetUniquePtr warp(const HORasterInfo& info, const HOCoordinateSystem* target, int* alphaBand);

    GDALDatasetUniquePtr m_dataset;
    int m_generation;
    struct Warped {
        HORefPtr<const HOCoordinateSystem> system;
        GDALDatasetUniquePtr dataset;
        int alphaBand;
    };
    std::vector<Warped> m_warped;
};

}  // namespace HXObjects
