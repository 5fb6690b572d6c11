#pragma once
// HOProjectedStores: a feature layer's geometry in every coordinate system it has been drawn in.
// Each copy is built once, on first use, and shared by all views rendering in that system.
#include <memory>
#include <mutex>
#include <vector>

#include "HOCoordinateSystem.h"
#include "source/private/HOFeatureStore.h"
#include "HORefPtr.h"

namespace HXObjects {

class HOProjectedStores {
public:
    HOProjectedStores(std::shared_ptr<const HOFeatureStore> source,
                      HORefPtr<HOCoordinateSystem> sourceSystem);

    std::shared_ptr<const HOFeatureStore> Source() const { return m_source; }
    // The source store when no transformation is needed; null when none exists.
    std::shared_ptr<const HOFeatureStore> StoreFor(const HOCoordinateSystem* target);

private:
    using Copy = std::pair<HORefPtr<const HOCoordinateSystem>, std::shared_ptr<const HOFeatureStore>>;

    std::shared_ptr<const HOFeatureStore> m_source;
    HORefPtr<HOCoordinateSystem> m_system;
    std::mutex m_mutex;
    std::vector<Copy> m_copies;
};

}  // namespace HXObjects
