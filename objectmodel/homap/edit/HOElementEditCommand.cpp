#include "HOElementEditCommand.h"

#include <QCoreApplication>

#include "HOGraphicsLayer.h"

namespace HXObjects {

HOElementEditCommand::HOElementEditCommand(HOGraphicsLayer* layer, const QString& text)
    : QUndoCommand(text), m_layer(layer) {}

void HOElementEditCommand::AddChange(HORefPtr<HOElement> before, HORefPtr<HOElement> after, int index) {
    m_changes.push_back({std::move(before), std::move(after), index});
}

void HOElementEditCommand::redo() {
    apply(true);
}

void HOElementEditCommand::undo() {
    apply(false);
}

// Changes are recorded in drawing order, so putting elements back one after the other at their
// recorded places rebuilds the order they had.
void HOElementEditCommand::apply(bool forward) {
    std::vector<int> shown;
    for (const Change& change : m_changes) {
        const HORefPtr<HOElement>& from = forward ? change.before : change.after;
        const HORefPtr<HOElement>& to = forward ? change.after : change.before;
        if (!to) {
            m_layer->RemoveElement(from->GetID());
            continue;
        }
        if (from)
            m_layer->ReplaceElement(to);
        else
            m_layer->InsertElement(to, change.index);
        shown.push_back(to->GetID());
    }
    m_layer->SetSelectedIds(shown);
    m_layer->NotifyElementsChanged();
}

QString HOElementEditCommand::CountText(const char* verb, int count) {
    const QString action = QCoreApplication::translate("HXObjects::HOElementEditCommand", verb);
    return count == 1
               ? QCoreApplication::translate("HXObjects::HOElementEditCommand", "%1 1 element").arg(action)
               : QCoreApplication::translate("HXObjects::HOElementEditCommand", "%1 %2 elements")
                     .arg(action)
                     .arg(count);
}

}  // namespace HXObjects
