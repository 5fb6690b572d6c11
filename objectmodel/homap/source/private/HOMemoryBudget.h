#pragma once
// HOMemoryBudget: how many bytes of geometry one feature layer may hold in memory. A layer that
// would need more is not loaded whole but drawn from its source (HOFeatureStream). The host sets
// the budget; until it does, a quarter of the machine's memory.
#include <atomic>
#include <cstddef>

namespace HXObjects {

class HOMemoryBudget {
public:
    static std::size_t Bytes();
    // 0 restores the default.
    static void Set(std::size_t bytes);

private:
    static std::size_t defaultBytes();
    static std::atomic<std::size_t> s_bytes;
};

}  // namespace HXObjects
