#include "source/private/HOAttributeSnapshot.h"

namespace HXObjects {

HOAttributeSnapshot::Attributes HOAttributeSnapshot::Get(int64_t id,
                                                         const std::function<bool(Attributes*)>& read) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_known.find(id);
        if (found != m_known.end()) return found->second;
    }
    Attributes attributes;
    if (!read(&attributes)) return attributes;
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_known.emplace(id, std::move(attributes)).first->second;  // another reader may have been first
}

void HOAttributeSnapshot::Forget(const std::vector<HOFeatureChange>& changes) {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const HOFeatureChange& change : changes)
        for (const HORefPtr<HOFeature>& feature : {change.before, change.after})
            if (feature) m_known.erase(feature->GetID());
}

void HOAttributeSnapshot::Clear() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_known.clear();
}

}  // namespace HXObjects
