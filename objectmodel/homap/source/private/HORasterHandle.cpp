#include "source/private/HORasterHandle.h"

#include <gdalwarper.h>

#include <algorithm>

#include "source/private/HOExtentProjector.h"

namespace HXObjects {

HORasterHandle::HORasterHandle(GDALDatasetUniquePtr dataset, int generation)
    : m_dataset(std::move(dataset)), m_generation(generation) {}

HORasterHandle::~HORasterHandle() {
    // Warped views read through the dataset; close them first.
    m_warped.clear();
}

bool HORasterHandle::ViewFor(const HORasterInfo& info, const HOCoordinateSystem* target, HORasterView* view) {
    const bool same = HOExtentProjector::IsIdentity(info.system.get(), target);
    if (same && info.northUp) {
        *view = {m_dataset.get(), {}, info.alphaBand};
        std::copy(info.geo, info.geo + 6, view->geo);
        return true;
    }
    // A rotated raster is warped into its own system, north-up.
    const HOCoordinateSystem* system = same ? info.system.get() : target;
    auto found = std::find_if(m_warped.begin(), m_warped.end(), [&](const Warped& w) {
        return w.system.get() == system || (w.system && system && w.system->IsSame(system));
    });
    if (found == m_warped.end()) {
        int alphaBand = 0;
        GDALDatasetUniquePtr warped = warp(info, system, &alphaBand);
        if (!warped) return false;
        m_warped.push_back({HORefPtr<const HOCoordinateSystem>(system), std::move(warped), alphaBand});
        found = m_warped.end() - 1;
    }
    *view = {found->dataset.get(), {}, found->alphaBand, true};
    return found->dataset->GetGeoTransform(view->geo) == CE_None;
}

GDALDatasetUniquePtr HORasterHandle::warp(const HORasterInfo& info, const HOCoordinateSystem* target,
                                          int* alphaBand) {
    // The colour bands are warped; an alpha band comes along as alpha, and the view gets one more
    // alpha band that is transparent outside the raster's footprint.
    const int colourBands = info.alphaBand ? info.alphaBand - 1 : info.bands;
    GDALWarpOptions* options = GDALCreateWarpOptions();
    options->nBandCount = colourBands;
    options->panSrcBands = static_cast<int*>(CPLMalloc(sizeof(int) * std::size_t(colourBands)));
    options->panDstBands = static_cast<int*>(CPLMalloc(sizeof(int) * std::size_t(colourBands)));
    for (int b = 0; b < colourBands; ++b) options->panSrcBands[b] = options->panDstBands[b] = b + 1;
    options->nSrcAlphaBand = info.alphaBand;
    options->nDstAlphaBand = colourBands + 1;
    options->papszWarpOptions = CSLSetNameValue(options->papszWarpOptions, "DST_ALPHA_MAX", "255");
    *alphaBand = options->nDstAlphaBand;
    const std::string wkt = target ? target->ToWkt().toStdString() : std::string();
    // Palette indices and classes must not be blended.
    const GDALResampleAlg resampling = info.palette.empty() ? GRA_Bilinear : GRA_NearestNeighbour;
    GDALDatasetH view =
        GDALAutoCreateWarpedVRTEx(GDALDataset::ToHandle(m_dataset.get()), nullptr,
                                  target ? wkt.c_str() : nullptr, resampling, 0.125, options, nullptr);
    GDALDestroyWarpOptions(options);
    return GDALDatasetUniquePtr(GDALDataset::FromHandle(view));
}

}  // namespace HXObjects
