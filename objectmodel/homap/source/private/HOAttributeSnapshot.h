#pragma once
// HOAttributeSnapshot: the attribute values of a feature layer's features as the layer first read
// them, kept until the layer is read again, as its geometry is. An edit's `before` then holds what
// the user saw, so a feature whose attributes someone else changed since is not overwritten or
// deleted unnoticed. Features our own writes touched are forgotten and read afresh when next asked
// for. Guards itself.
#include <cstdint>
#include <functional>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "HOFeature.h"
#include "HOFeatureChange.h"

namespace HXObjects {

class HOAttributeSnapshot {
public:
    using Attributes = std::vector<HOFeature::Attribute>;

    // The feature's attributes as first read; `read` reads them from the source when they are not
    // known yet (false: the source has no such feature, and nothing is kept).
    Attributes Get(int64_t id, const std::function<bool(Attributes*)>& read);
    // After a write: the features it touched.
    void Forget(const std::vector<HOFeatureChange>& changes);
    void Clear();

private:
    std::mutex m_mutex;
    std::unordered_map<int64_t, Attributes> m_known;
};

}  // namespace HXObjects
