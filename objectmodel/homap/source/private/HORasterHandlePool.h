#pragma once
// HORasterHandlePool: the open datasets of one raster, one per render in progress. A render borrows
// a handle (opening another when all are lent) and gives it back when done, so renders on several
// threads read in parallel and nothing else ever waits for them. The mutex guards only the list.
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "source/private/HORasterHandle.h"

namespace HXObjects {

class HORasterHandlePool {
public:
    using Lease = std::unique_ptr<HORasterHandle, std::function<void(HORasterHandle*)>>;

    // `first` is the dataset the raster was opened with; more are opened from `path`.
    HORasterHandlePool(GDALDatasetUniquePtr first, const std::string& path);

    // A handle for this thread's use until the lease ends; null when the raster cannot be reopened.
    Lease Borrow();
    // From now on handles open `path` (the same pixels with overviews); handles lent now are closed
    // when they come back.
    void SwitchTo(const std::string& path);

private:
    void giveBack(HORasterHandle* handle);

    std::mutex m_mutex;
    std::string m_path;
    int m_generation = 0;
    std::vector<std::unique_ptr<HORasterHandle>> m_idle;
};

}  // namespace HXObjects
