#include "source/private/HORasterStatistics.h"

#include <gdal_priv.h>

#include <vector>

#include "source/private/HOGdalCancel.h"

namespace HXObjects {

namespace {

constexpr int buckets = 256;
constexpr double lowShare = 0.02, highShare = 0.98;
// Each pass looks closer at the percentiles; four passes narrow 256^4 times, past any float's spread.
constexpr int passes = 4;

}  // namespace

bool HORasterStatistics::RobustStretch(GDALRasterBand* band, const HOTrackCancel* cancel,
                                       HORasterStretch* stretch) {
    double range[2] = {0, 0};
    if (band->ComputeRasterMinMax(TRUE, range) != CE_None) {
        *stretch = {0, 0};
        return true;
    }
    double low = range[0], high = range[1];
    for (int pass = 0; pass < passes && high > low; ++pass) {
        // Values outside [low, high] count in the end buckets, so the ranks stay those of the band.
        std::vector<GUIntBig> counts(buckets, 0);
        // The plain computation: a driver's own (PAM) would save each histogram beside the file.
        if (band->GDALRasterBand::GetHistogram(low, high, buckets, counts.data(), TRUE, TRUE, HOGdalCancel,
                                               HOGdalCancelData(cancel)) != CE_None)
            return false;
        GUIntBig total = 0;
        for (GUIntBig c : counts) total += c;
        if (total == 0) break;
        int first = -1, last = buckets - 1;
        GUIntBig seen = 0;
        for (int b = 0; b < buckets; ++b) {
            seen += counts[std::size_t(b)];
            if (first < 0 && seen > lowShare * total) first = b;
            if (seen >= highShare * total) {
                last = b;
                break;
            }
        }
        const double width = (high - low) / buckets;
        const double newLow = low + first * width, newHigh = low + (last + 1) * width;
        // Stop once a pass no longer narrows much: the percentiles are as sharp as they get.
        const bool narrowed = newHigh - newLow < (high - low) / 4;
        low = newLow;
        high = newHigh;
        if (!narrowed) break;
    }
    *stretch = {low, high};
    return true;
}

}  // namespace HXObjects
