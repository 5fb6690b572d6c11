#include "source/private/HOProjectedStores.h"

#include "source/private/HOExtentProjector.h"

namespace HXObjects {

HOProjectedStores::HOProjectedStores(std::shared_ptr<const HOFeatureStore> source,
                                     HORefPtr<HOCoordinateSystem> sourceSystem)
    : m_source(std::move(source)), m_system(std::move(sourceSystem)) {}

std::shared_ptr<const HOFeatureStore> HOProjectedStores::StoreFor(const HOCoordinateSystem* target) {
    if (!target || !m_system || target == m_system.get()) return m_source;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Copy& copy : m_copies)
        if (copy.first.get() == target || copy.first->IsSame(target)) return copy.second;
    std::shared_ptr<const HOFeatureStore> store;
    if (HOExtentProjector::IsIdentity(m_system.get(), target)) {
        store = m_source;
    } else {
        std::vector<HOVertex> vertices = m_source->Vertices();
        if (HOExtentProjector::Project(vertices, m_system.get(), target))
            store = std::make_shared<HOFeatureStore>(m_source->SharedTopology(), std::move(vertices));
    }
    m_copies.emplace_back(HORefPtr<const HOCoordinateSystem>(target), store);
    return store;
}

}  // namespace HXObjects
