#pragma once
// HOFeatureStoreEditor: the geometry of a feature layer after a written edit, as a new store made
// from the old one (stores are never changed once made, so renders in progress keep theirs).
// A changed feature keeps its place in the drawing order; added ones are drawn last.
#include <memory>
#include <vector>

#include "HOFeatureChange.h"
#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOFeatureStoreEditor {
public:
    static std::shared_ptr<const HOFeatureStore> Apply(const HOFeatureStore& store,
                                                       const std::vector<HOFeatureChange>& changes);
};

}  // namespace HXObjects
