#include "source/private/HOFeatureStoreEditor.h"

#include <map>

#include "source/private/HOOgrGeometry.h"
#include "source/private/HOOgrGeometryReader.h"

namespace HXObjects {

namespace {

OGRGeometryUniquePtr OgrOf(const HOFeature& feature) {
    return feature.GetGeometry() ? HOOgrGeometry::ToOgr(*feature.GetGeometry()) : nullptr;
}

}  // namespace

std::shared_ptr<const HOFeatureStore> HOFeatureStoreEditor::Apply(
    const HOFeatureStore& store, const std::vector<HOFeatureChange>& changes) {
    std::map<int64_t, const HOFeature*> replaced;  // null: deleted
    for (const HOFeatureChange& change : changes)
        if (change.before) replaced[change.before->GetID()] = change.after.get();
    HOOgrGeometryReader builder;
    const HOFeatureTopology& topology = store.Topology();
    for (std::size_t f = 0; f < store.FeatureCount(); ++f) {
        const auto found = replaced.find(topology.Id(f));
        if (found == replaced.end() || (found->second && !found->second->GetGeometry()))
            builder.CopyFeature(store, f);
        else if (found->second)
            builder.AppendFeature(OgrOf(*found->second).get(), found->first);
    }
    for (const HOFeatureChange& change : changes)
        if (!change.before && change.after)
            builder.AppendFeature(OgrOf(*change.after).get(), change.after->GetID());
    builder.Finish();
    auto newTopology = std::make_shared<HOFeatureTopology>(std::move(builder.Topology()));
    return std::make_shared<const HOFeatureStore>(newTopology, std::move(builder.Vertices()),
                                                  std::move(builder.Boxes()));
}

}  // namespace HXObjects
