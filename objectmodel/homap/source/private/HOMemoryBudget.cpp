#include "source/private/HOMemoryBudget.h"

#if defined(__unix__) || defined(__APPLE__)
#include <unistd.h>
#endif

namespace HXObjects {

std::atomic<std::size_t> HOMemoryBudget::s_bytes{0};

std::size_t HOMemoryBudget::Bytes() {
    const std::size_t set = s_bytes.load();
    return set ? set : defaultBytes();
}

void HOMemoryBudget::Set(std::size_t bytes) {
    s_bytes.store(bytes);
}

std::size_t HOMemoryBudget::defaultBytes() {
    std::size_t physical = std::size_t(4) << 30;  // where the system does not tell
#if defined(__unix__) || defined(__APPLE__)
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGE_SIZE);
    if (pages > 0 && pageSize > 0) physical = std::size_t(pages) * std::size_t(pageSize);
#endif
    return physical / 4;
}

}  // namespace HXObjects
