#pragma once
// HOFeatureEditor: what the feature tools share — the one way an edit of features reaches a layer:
// refused with the layer's reason when it is read-only, else pushed on the map's undo stack as one
// command that is written on a worker (HOFeatureEditCommand); a refusal is shown in the host's
// message bar and takes the command off the stack again.
#include <QString>
#include <QUndoCommand>
#include <vector>

#include "HOFeatureChange.h"
#include "HOFeatureEditCommand.h"
#include "HOFeatureLayer.h"
#include "HXExport.h"

namespace HXObjects {

class HOMap;
class HOTool;

class HX_EXPORT HOFeatureEditor {
public:
    // Submits the edit; false, with the reason shown, when the layer is read-only or there is
    // nothing to do. `settled` (optional) learns the outcome on the GUI thread once written.
    static bool Commit(HOMap* map, HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                       const QString& text, HOTool* tool, HOFeatureEditCommand::Settled settled = nullptr);
    // The selected features of every editable feature layer of the map deleted, one command per
    // layer (one undo step for all); a read-only layer with a selection is named with its reason.
    // The number of features submitted for deletion.
    static int DeleteSelected(HOMap* map, HOTool* tool);
    // A feature as it is now, for the `before` of a change; null when it is gone.
    static HORefPtr<HOFeature> Current(HOFeatureLayer* layer, int id);
    // Tells the user through the tool's host.
    static void Report(HOTool* tool, const HOString& text);
    // A geometry drawn on the map, in the map's system, brought into the layer's; false (reported
    // by the caller) when it cannot be.
    static bool ToLayer(HOMap* map, HOFeatureLayer* layer, HOGeometry* geometry);
    // The layer as an editable feature layer; null, with its reason reported, otherwise.
    static HOFeatureLayer* Editable(HOLayer* layer, HOTool* tool);

private:
    // The command for the map's stack (a child of `parent` when given); null with the reason
    // reported when the layer is read-only or there is nothing to do.
    static HOFeatureEditCommand* make(HOMap* map, HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                                      const QString& text, HOTool* tool, QUndoCommand* parent);
};

}  // namespace HXObjects
