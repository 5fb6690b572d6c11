#pragma once
// HOGdalCancel: a GDAL progress callback that lets long reads stop as soon as a render is cancelled;
// the callback data is the render's HOTrackCancel (or null: never cancelled).
#include <cpl_progress.h>

#include "HOTrackCancel.h"

namespace HXObjects {

inline int CPL_STDCALL HOGdalCancel(double, const char*, void* cancel) {
    return !(cancel && static_cast<const HOTrackCancel*>(cancel)->IsCancelled());
}

inline void* HOGdalCancelData(const HOTrackCancel* cancel) {
    return const_cast<HOTrackCancel*>(cancel);
}

}  // namespace HXObjects
