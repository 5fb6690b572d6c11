#pragma once
// HOTrackCancel: the cancel flag of a view's drawing in progress. Cancel() may be called from any
// thread; the renderer polls IsCancelled() between small batches of work.
#include <atomic>

#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOTrackCancel {
public:
    void Cancel() { m_cancelled.store(true, std::memory_order_release); }
    bool IsCancelled() const { return m_cancelled.load(std::memory_order_acquire); }
    void Reset() { m_cancelled.store(false, std::memory_order_release); }

private:
    std::atomic<bool> m_cancelled{false};
};

}  // namespace HXObjects
