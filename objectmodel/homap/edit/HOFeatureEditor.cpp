#include "HOFeatureEditor.h"

#include <QCoreApplication>
#include <QUndoStack>

#include "HOCoordinateSystem.h"
#include "HOFeatureEditCommand.h"
#include "HOGeometryProject.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTool.h"
#include "HOToolBuddy.h"

namespace HXObjects {

void HOFeatureEditor::Report(HOTool* tool, const HOString& text) {
    if (HOToolBuddy* buddy = tool ? tool->GetToolBuddy() : nullptr) buddy->ShowMessage(text);
}

HOFeatureLayer* HOFeatureEditor::Editable(HOLayer* layer, HOTool* tool) {
    auto* features = dynamic_cast<HOFeatureLayer*>(layer);
    if (!features) {
        Report(tool,
               QCoreApplication::translate("HXObjects::HOFeatureEditor", "Choose a feature layer to edit"));
        return nullptr;
    }
    if (!features->IsEditable()) {
        Report(tool,
               HOString(features->GetName().toQString() + ": " + features->GetReadOnlyReason().toQString()));
        return nullptr;
    }
    return features;
}

HOFeatureEditCommand* HOFeatureEditor::make(HOMap* map, HOFeatureLayer* layer,
                                            std::vector<HOFeatureChange> changes, const QString& text,
                                            HOTool* tool, QUndoCommand* parent) {
    if (!map || !Editable(layer, tool) || changes.empty()) return nullptr;
    HORefPtr<HOTool> reporter(tool);
    auto* command = new HOFeatureEditCommand(
        layer, std::move(changes), text, [reporter](const HOString& why) { Report(reporter.get(), why); },
        parent, map->GetUndoStack());
    // The layer holds the change once it is written: draw the map again then.
    command->SetShow([reporter] {
        HOToolBuddy* buddy = reporter ? reporter->GetToolBuddy() : nullptr;
        if (HOMapView* view = buddy ? buddy->GetMapView() : nullptr) view->RefreshMap(false, HORect());
    });
    return command;
}

bool HOFeatureEditor::Commit(HOMap* map, HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                             const QString& text, HOTool* tool, HOFeatureEditCommand::Settled settled) {
    HOFeatureEditCommand* command = make(map, layer, std::move(changes), text, tool, nullptr);
    if (!command) return false;
    command->SetSettled(std::move(settled));
    map->GetUndoStack()->push(command);  // its redo submits the write
    return true;
}

bool HOFeatureEditor::ToLayer(HOMap* map, HOFeatureLayer* layer, HOGeometry* geometry) {
    HORefPtr<HOCoordinateSystem> from = map ? map->GetSpatialReference() : nullptr;
    HORefPtr<HOCoordinateSystem> to = layer->GetSpatialReference();
    if (!from || !to || from->IsSame(to.get())) return true;
    HOGeometryProject project;
    return project.SetPrj(from.get(), to.get(), nullptr) &&
           project.ProjHxGeometry(geometry, geometry->GetType());
}

HORefPtr<HOFeature> HOFeatureEditor::Current(HOFeatureLayer* layer, int id) {
    return layer->GetFeature(id);
}

int HOFeatureEditor::DeleteSelected(HOMap* map, HOTool* tool) {
    if (!map) return 0;
    std::vector<std::pair<HOFeatureLayer*, std::vector<HOFeatureChange>>> edits;
    int count = 0;
    for (const HORefPtr<HOLayer>& each : map->GetLayers()) {
        auto* layer = dynamic_cast<HOFeatureLayer*>(each.get());
        if (!layer || !layer->HasSelectedFeatures() || !Editable(layer, tool)) continue;
        std::vector<HOFeatureChange> changes;
        for (const int id : layer->GetSelectedIds())
            if (HORefPtr<HOFeature> feature = Current(layer, id)) changes.push_back({feature, nullptr});
        count += int(changes.size());
        edits.emplace_back(layer, std::move(changes));
    }
    if (count == 0) return 0;
    // One undo step for all layers; a layer that refuses keeps its features and is not in it.
    auto group = std::make_unique<QUndoCommand>(
        QCoreApplication::translate("HXObjects::HOFeatureEditor", "Delete %n feature(s)", nullptr, count));
    for (auto& edit : edits) make(map, edit.first, std::move(edit.second), group->text(), tool, group.get());
    map->GetUndoStack()->push(group.release());
    return count;
}

}  // namespace HXObjects
