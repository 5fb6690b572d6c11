#include "source/private/HOProjectedStores.h"

#include "source/private/HOExtentProjector.h"
#include "source/private/HOMemoryBudget.h"
#include "source/private/HOStoreReprojector.h"

namespace HXObjects {

HOProjectedStores::HOProjectedStores(std::shared_ptr<const HOFeatureStore> source,
                                     HORefPtr<HOCoordinateSystem> sourceSystem)
    : m_source(std::move(source)), m_system(std::move(sourceSystem)) {}

std::shared_ptr<const HOFeatureStore> HOProjectedStores::Source() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_source;
}

void HOProjectedStores::ReplaceSource(std::shared_ptr<const HOFeatureStore> source) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_source = std::move(source);
    m_copies.clear();
}

std::shared_ptr<const HOFeatureStore> HOProjectedStores::StoreFor(const HOCoordinateSystem* target) {
    const std::shared_ptr<const HOFeatureStore> source = Source();
    if (!target || !m_system || target == m_system.get()) return source;
    bool found = false;
    if (auto store = find(target, &found); found) return store;
    std::shared_ptr<const HOFeatureStore> store;
    if (HOExtentProjector::IsIdentity(m_system.get(), target))
        store = source;
    else
        store = HOStoreReprojector::Project(*source, m_system.get(), target);
    std::lock_guard<std::mutex> lock(m_mutex);
    // An edit replaced the source meanwhile: this copy is of the old one.
    if (source != m_source) return store;
    // Two threads may have made it at once: the first one kept wins.
    for (const Copy& copy : m_copies)
        if (copy.first.get() == target) return copy.second;
    m_copies.emplace_back(HORefPtr<const HOCoordinateSystem>(target), store);
    evictOverBudget();
    return store;
}

void HOProjectedStores::evictOverBudget() {
    const std::size_t budget = HOMemoryBudget::Bytes();
    std::size_t held = m_source->GeometryBytes();
    for (const Copy& copy : m_copies) held += copy.second ? copy.second->GeometryBytes() : 0;
    // The oldest go first; the newest stays, being in use. A render still drawing a dropped copy
    // keeps it until it is done.
    while (held > budget && m_copies.size() > 1) {
        held -= m_copies.front().second ? m_copies.front().second->GeometryBytes() : 0;
        m_copies.erase(m_copies.begin());
    }
}

std::shared_ptr<const HOFeatureStore> HOProjectedStores::MadeFor(const HOCoordinateSystem* target) {
    if (!target || !m_system || target == m_system.get()) return Source();
    bool found = false;
    return find(target, &found);
}

std::shared_ptr<const HOFeatureStore> HOProjectedStores::find(const HOCoordinateSystem* target,
                                                              bool* found) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Copy& copy : m_copies) {
        if (copy.first.get() == target || copy.first->IsSame(target)) {
            *found = true;
            return copy.second;
        }
    }
    return nullptr;
}

}  // namespace HXObjects
