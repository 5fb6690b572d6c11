#pragma once
// HOProjectedStores: a feature layer's geometry in every coordinate system it has been drawn in.
// Each copy is built on first use (cut to what the system can show, HOStoreReprojector), shared by
// all views rendering in that system, and kept while the copies fit the memory budget beside the
// source (the oldest are dropped first, and made again when asked for). The list is locked only to
// look up and to add, never while a copy is built, so asking for a copy already made never waits on
// one being made.
#include <memory>
#include <mutex>
#include <vector>

#include "HOCoordinateSystem.h"
#include "HORefPtr.h"
#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOProjectedStores {
public:
    HOProjectedStores(std::shared_ptr<const HOFeatureStore> source,
                      HORefPtr<HOCoordinateSystem> sourceSystem);

    std::shared_ptr<const HOFeatureStore> Source() const;
    // After an edit: the new source; the copies in other systems are made again when asked for.
    void ReplaceSource(std::shared_ptr<const HOFeatureStore> source);
    // The source store when no transformation is needed; null when none exists.
    std::shared_ptr<const HOFeatureStore> StoreFor(const HOCoordinateSystem* target);
    // The copy for the target if it is made already (the source when none is needed), else null.
    std::shared_ptr<const HOFeatureStore> MadeFor(const HOCoordinateSystem* target);

private:
    // Under the lock: drops the oldest copies while the source and the copies together exceed the
    // memory budget (HOMemoryBudget); the newest is kept.
    void evictOverBudget();
    // Under the lock: the copy for the target, and whether there is an entry for it.
    std::shared_ptr<const HOFeatureStore> find(const HOCoordinateSystem* target, bool* found) const;

    using Copy = std::pair<HORefPtr<const HOCoordinateSystem>, std::shared_ptr<const HOFeatureStore>>;

    std::shared_ptr<const HOFeatureStore> m_source;
    HORefPtr<HOCoordinateSystem> m_system;
    mutable std::mutex m_mutex;
    std::vector<Copy> m_copies;
};

}  // namespace HXObjects
