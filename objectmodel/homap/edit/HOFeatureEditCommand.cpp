#include "HOFeatureEditCommand.h"

#include <QUndoStack>

#include "HOFeatureEditQueue.h"

namespace HXObjects {

// The changes as last written are the worker's: only the queued writes (one at a time, in order)
// read and update them, so an undo queued behind its redo names the ids that redo gave. The command
// pointer is the GUI thread's; it is cleared when the stack deletes the command before an outcome.
struct HOFeatureEditCommand::State {
    HORefPtr<HOFeatureLayer> layer;
    std::vector<HOFeatureChange> changes;
    HOFeatureEditCommand* command = nullptr;
};

namespace {

std::vector<HOFeatureChange> Inverse(const std::vector<HOFeatureChange>& changes) {
    std::vector<HOFeatureChange> inverse;
    for (auto it = changes.rbegin(); it != changes.rend(); ++it) inverse.push_back(it->Inverse());
    return inverse;
}

}  // namespace

HOFeatureEditCommand::HOFeatureEditCommand(HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                                           const QString& text, Reporter report, QUndoCommand* parent,
                                           QUndoStack* stack)
    : QUndoCommand(text, parent),
      m_state(std::make_shared<State>()),
      m_parent(parent),
      m_stack(stack),
      m_report(std::move(report)) {
    m_state->layer = layer;
    m_state->changes = std::move(changes);
    m_state->command = this;
}

HOFeatureEditCommand::~HOFeatureEditCommand() {
    m_state->command = nullptr;
}

void HOFeatureEditCommand::redo() {
    if (!isObsolete()) submit(false);
}

void HOFeatureEditCommand::undo() {
    if (!isObsolete()) submit(true);
}

void HOFeatureEditCommand::submit(bool inverse) {
    const std::shared_ptr<State> state = m_state;
    HOFeatureEditQueue::Submit(
        state->layer.get(),
        [state, inverse] {
            HOFeatureEditQueue::Outcome outcome;
            outcome.changes = inverse ? Inverse(state->changes) : state->changes;
            outcome.written = state->layer->ApplyChanges(outcome.changes, &outcome.error);
            // A deleted feature put back may have a new id; the next redo must name that one.
            if (outcome.written) state->changes = inverse ? Inverse(outcome.changes) : outcome.changes;
            return outcome;
        },
        [state, inverse](const HOFeatureEditQueue::Outcome& outcome) {
            if (state->command)
                state->command->settle(outcome.written, inverse, outcome.changes, outcome.error);
        });
}

void HOFeatureEditCommand::settle(bool written, bool inverse, const std::vector<HOFeatureChange>& changes,
                                  const HOString& error) {
    if (!written) {
        if (m_report) m_report(error);
        setObsolete(true);
    } else if (m_show) {
        m_show();
    }
    if (m_settled && !inverse) {
        const Settled settled = std::move(m_settled);
        m_settled = nullptr;
        settled(written, written ? changes : std::vector<HOFeatureChange>());
    }
    if (!written) leaveStack(inverse);  // last: the stack may delete this command
}

void HOFeatureEditCommand::leaveStack(bool inverse) {
    // A group of edits (one per layer) leaves when none of its edits is left.
    QUndoCommand* top = this;
    if (m_parent) {
        for (int i = 0; i < m_parent->childCount(); ++i)
            if (!m_parent->child(i)->isObsolete()) return;
        m_parent->setObsolete(true);
        top = m_parent;
    }
    QUndoStack* stack = m_stack;
    if (!stack) return;
    // The stack deletes an obsolete command, without running it, when it steps over it.
    const int index = stack->index();
    if (!inverse && index > 0 && stack->command(index - 1) == top) stack->undo();
    if (inverse && index < stack->count() && stack->command(index) == top) stack->redo();
}

}  // namespace HXObjects
