#pragma once
// HOFeatureEditCommand: one undoable edit of a feature layer's features (any number of them added,
// deleted or changed), for a map's undo stack. Nothing is written on the GUI thread: redo (the
// stack's push runs the first) and undo queue the change or its inverse for the layer
// (HOFeatureEditQueue), each written in one transaction after the edits queued before it, and the
// command learns the outcome later, on the GUI thread. An edit the data source refuses (invalid
// geometry, someone else changed the feature meanwhile, the file went read-only) changes nothing,
// is reported, and the command drops out of its stack (at once when it is next to the stack's
// position, else when undo or redo reach it).
#include <QUndoCommand>
#include <functional>
#include <memory>
#include <vector>

#include "HOFeatureChange.h"
#include "HOFeatureLayer.h"
#include "HXExport.h"

class QUndoStack;

namespace HXObjects {

class HX_EXPORT HOFeatureEditCommand : public QUndoCommand {
public:
    using Reporter = std::function<void(const HOString&)>;
    // The outcome of the first write: the changes as written (added features carry their ids), or
    // nothing when it was refused.
    using Settled = std::function<void(bool written, const std::vector<HOFeatureChange>& changes)>;

    // A part of `parent` when given; `stack` (may be null) is the one it (or its parent) is pushed
    // on, which it leaves when refused.
    HOFeatureEditCommand(HOFeatureLayer* layer, std::vector<HOFeatureChange> changes, const QString& text,
                         Reporter report, QUndoCommand* parent = nullptr, QUndoStack* stack = nullptr);
    ~HOFeatureEditCommand() override;
    void SetSettled(Settled settled) { m_settled = std::move(settled); }
    // Called on the GUI thread after every write that worked (redo or undo), e.g. to redraw.
    void SetShow(std::function<void()> show) { m_show = std::move(show); }

    void redo() override;
    void undo() override;

private:
    struct State;
    void submit(bool inverse);
    void settle(bool written, bool inverse, const std::vector<HOFeatureChange>& changes,
                const HOString& error);
    void leaveStack(bool inverse);

    std::shared_ptr<State> m_state;
    QUndoCommand* m_parent;
    QUndoStack* m_stack;
    Reporter m_report;
    Settled m_settled;
    std::function<void()> m_show;
};

}  // namespace HXObjects
