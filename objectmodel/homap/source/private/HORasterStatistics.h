#pragma once
// HORasterStatistics: the values a grey band is stretched between — its 2nd and 98th percentiles,
// so that a few extreme values do not leave the rest black. Taken from approximate histograms (an
// overview or a sample of blocks), refined a few times around the percentiles; nothing is written
// next to the data. Slow on a large raster: called on a render thread, never the GUI thread.
#include "HOTrackCancel.h"
#include "source/private/HORasterReader.h"

class GDALRasterBand;

namespace HXObjects {

class HORasterStatistics {
public:
    // False when cancelled; a band without valid values gets an empty stretch (drawn mid-grey).
    static bool RobustStretch(GDALRasterBand* band, const HOTrackCancel* cancel, HORasterStretch* stretch);
};

}  // namespace HXObjects
