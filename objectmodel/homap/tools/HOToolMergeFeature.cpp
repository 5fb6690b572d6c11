#include "HOToolMergeFeature.h"

#include <QCoreApplication>

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "edit/HOFeatureEditor.h"
#include "edit/HOFeatureMerge.h"

namespace HXObjects {

namespace {

// The texts of this file, translated in the context HXObjects::HOToolMergeFeature.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(HXObjects::HOToolMergeFeature)
};

}  // namespace

void HOToolMergeFeature::Activate() {
    HOToolSingleSelect::Activate();
    if (HOFeatureLayer* layer = selectedLayer()) merge(layer);
}

HOFeatureLayer* HOToolMergeFeature::selectedLayer() {
    HOMap* map = TargetMap();
    std::vector<HOFeatureLayer*> selected;
    for (const HORefPtr<HOLayer>& layer : map ? map->GetLayers() : std::vector<HORefPtr<HOLayer>>()) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features && features->HasSelectedFeatures()) selected.push_back(features);
    }
    if (selected.size() != 1 || selected.front()->GetSelectedIds().size() < 2) {
        HOFeatureEditor::Report(this, Text::tr("Select two or more features of one layer to merge them"));
        return nullptr;
    }
    return HOFeatureEditor::Editable(selected.front(), this);
}

void HOToolMergeFeature::merge(HOFeatureLayer* layer) {
    std::vector<HORefPtr<HOFeature>> features;
    for (const int id : layer->GetSelectedIds()) {
        HORefPtr<HOFeature> feature = HOFeatureEditor::Current(layer, id);
        if (!feature) {
            HOFeatureEditor::Report(this, HOString(Text::tr("Feature %1 no longer exists").arg(id)));
            return;
        }
        features.push_back(feature);
    }
    HOString error;
    HORefPtr<HOGeometry> merged = HOFeatureMerge::Union(features, &error);
    if (!merged) {
        HOFeatureEditor::Report(this, error);
        return;
    }
    const int answer = GetToolBuddy() ? GetToolBuddy()->combineFeatureAttributeFID(layer) : -1;
    if (answer == -2) return;
    std::size_t kept = answer == -1 ? HOFeatureMerge::Largest(features) : features.size();
    for (std::size_t i = 0; i < features.size(); ++i)
        if (features[i]->GetID() == answer) kept = i;
    if (kept == features.size()) {
        HOFeatureEditor::Report(
            this, HOString(Text::tr("Feature %1 is not among the selected features").arg(answer)));
        return;
    }
    std::vector<HOFeatureChange> changes;
    for (std::size_t i = 0; i < features.size(); ++i) {
        const HORefPtr<HOFeature>& f = features[i];
        changes.push_back({f, i == kept ? new HOFeature(f->GetID(), merged, f->GetAttributes()) : nullptr});
    }
    HORefPtr<HOFeatureLayer> target(layer);
    const int survivor = features[kept]->GetID();
    HOFeatureEditor::Commit(TargetMap(), layer, std::move(changes),
                            Text::tr("Merge %1 features").arg(features.size()), this,
                            [target, survivor](bool written, const std::vector<HOFeatureChange>&) {
                                if (written) target->SetSelectedIds({survivor});
                            });
}

}  // namespace HXObjects
