#pragma once
// HORasterLayer::Private: the metadata taken at open (read by any thread without a lock), the pool
// of datasets renders read through, the grey stretch (worked out by the first render that needs it)
// and the overview builder. Only render threads and the builder's thread ever wait on anything here.
#include <memory>
#include <mutex>

#include "HORasterLayer.h"
#include "source/private/HORasterHandlePool.h"
#include "source/private/HORasterInfo.h"
#include "source/private/HORasterOverviewBuilder.h"
#include "source/private/HORasterReader.h"

namespace HXObjects {

class HORasterLayer::Private {
    std::mutex m_stretchMutex;
    bool m_stretchKnown = false;
    HORasterStretch m_stretch;

public:
    Private(HORasterLayer* layer, HORasterInfo metadata, GDALDatasetUniquePtr dataset,
            const std::string& readPath);

    // The grey stretch, computed through `dataset` the first time; false when that was cancelled.
    bool Stretch(GDALDataset* dataset, const HOTrackCancel* cancel, HORasterStretch* stretch);

    const HORasterInfo info;
    HORasterHandlePool handles;
    // Last: its thread stops before the pool it switches goes away.
    HORasterOverviewBuilder overviews;
};

}  // namespace HXObjects
