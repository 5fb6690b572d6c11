#include "HOFeatureEditCommand.h"

#include <algorithm>

namespace HXObjects {

HOFeatureEditCommand::HOFeatureEditCommand(HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                                           const QString& text, Reporter report, QUndoCommand* parent)
    : QUndoCommand(text, parent), m_layer(layer), m_changes(std::move(changes)), m_report(std::move(report)) {}

HOFeatureEditCommand* HOFeatureEditCommand::Write(HOFeatureLayer* layer, std::vector<HOFeatureChange> changes,
                                                  const QString& text, Reporter report, QUndoCommand* parent,
                                                  HOString* error) {
    if (!layer->ApplyChanges(changes, error)) return nullptr;
    return new HOFeatureEditCommand(layer, std::move(changes), text, std::move(report), parent);
}

bool HOFeatureEditCommand::write(std::vector<HOFeatureChange>& changes, HOString* error) {
    return m_layer->ApplyChanges(changes, error);
}

void HOFeatureEditCommand::redo() {
    if (m_written) {
        m_written = false;
        return;
    }
    HOString error;
    if (write(m_changes, &error)) return;
    if (m_report) m_report(error);
    setObsolete(true);
}

void HOFeatureEditCommand::undo() {
    std::vector<HOFeatureChange> inverse;
    for (auto it = m_changes.rbegin(); it != m_changes.rend(); ++it) inverse.push_back(it->Inverse());
    HOString error;
    if (!write(inverse, &error)) {
        if (m_report) m_report(error);
        setObsolete(true);
        return;
    }
    // A deleted feature put back may have a new id; the redo must name that one.
    m_changes.clear();
    for (auto it = inverse.rbegin(); it != inverse.rend(); ++it) m_changes.push_back(it->Inverse());
}

}  // namespace HXObjects
