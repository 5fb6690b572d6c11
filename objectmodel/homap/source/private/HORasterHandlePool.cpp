#include "source/private/HORasterHandlePool.h"

namespace HXObjects {

namespace {
constexpr std::size_t maxIdle = 4;  // more renders at once than this are rare
}

HORasterHandlePool::HORasterHandlePool(GDALDatasetUniquePtr first, const std::string& path) : m_path(path) {
    if (first) m_idle.push_back(std::make_unique<HORasterHandle>(std::move(first), m_generation));
}

HORasterHandlePool::Lease HORasterHandlePool::Borrow() {
    std::string path;
    int generation;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_idle.empty()) {
            HORasterHandle* handle = m_idle.back().release();
            m_idle.pop_back();
            return Lease(handle, [this](HORasterHandle* h) { giveBack(h); });
        }
        path = m_path;
        generation = m_generation;
    }
    // Opening reads the file's header; the list stays free meanwhile.
    GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    if (!dataset) return Lease(nullptr, [](HORasterHandle*) {});
    return Lease(new HORasterHandle(std::move(dataset), generation),
                 [this](HORasterHandle* h) { giveBack(h); });
}

void HORasterHandlePool::SwitchTo(const std::string& path) {
    std::vector<std::unique_ptr<HORasterHandle>> stale;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_path = path;
    ++m_generation;
    stale.swap(m_idle);
}

void HORasterHandlePool::giveBack(HORasterHandle* handle) {
    std::unique_ptr<HORasterHandle> owned(handle);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (owned->Generation() == m_generation && m_idle.size() < maxIdle) m_idle.push_back(std::move(owned));
}

}  // namespace HXObjects
