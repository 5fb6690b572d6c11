#pragma once
// HORefBase: intrusive, thread-safe reference counting for object-model objects. A new object starts
// with no reference; the first HORefPtr (or AddRef) takes one, and the last Release deletes it.
#include <atomic>

#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HORefBase {
public:
    HORefBase() = default;
    HORefBase(const HORefBase&) = delete;
    HORefBase& operator=(const HORefBase&) = delete;

    int AddRef() const { return m_refs.fetch_add(1, std::memory_order_relaxed) + 1; }
    int Release() const {
        const int left = m_refs.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (left == 0) delete this;
        return left;
    }
    int RefCount() const { return m_refs.load(std::memory_order_acquire); }

protected:
    virtual ~HORefBase() = default;

private:
    mutable std::atomic<int> m_refs{0};
};

}  // namespace HXObjects
