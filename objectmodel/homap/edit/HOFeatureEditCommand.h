#pragma once
// HOFeatureEditCommand: one undoable edit of a feature layer's features (any number of them added,
// deleted or changed), for a map's undo stack. The command is written once when it is made
// (HOFeatureEditor::Commit) and pushed only when that worked; redo and undo then write the change
// or its inverse through the layer, each in one transaction. An undo or redo the data source
// refuses (someone else changed the feature meanwhile, the file went read-only) changes nothing,
// is reported, and drops the command from the stack.
#include <QUndoCommand>
#include <functional>
#include <vector>

#include "HOFeatureChange.h"
#include "HOFeatureLayer.h"

namespace HXObjects {

class HOFeatureEditCommand : public QUndoCommand {
public:
    using Reporter = std::function<void(const HOString&)>;

    // Writes the changes; the command that holds them (a child of `parent` when given), or null with
    // the reason, having written nothing.
    static HOFeatureEditCommand* Write(HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                                       const QString& text, Reporter report, QUndoCommand* parent, HOString* error);
    // The changes as last written (added features carry their ids).
    const std::vector<HOFeatureChange>& Changes() const { return m_changes; }

    void redo() override;
    void undo() override;

private:
    HOFeatureEditCommand(HOFeatureLayer* layer, std::vector<HOFeatureChange> changes, const QString& text,
                         Reporter report, QUndoCommand* parent);
    bool write(std::vector<HOFeatureChange>& changes, HOString* error);

    HORefPtr<HOFeatureLayer> m_layer;
    std::vector<HOFeatureChange> m_changes;
    Reporter m_report;
    bool m_written = true;  // by Write: the first redo has nothing to do
};

}  // namespace HXObjects
