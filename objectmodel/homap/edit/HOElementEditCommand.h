#pragma once
// HOElementEditCommand: one undoable change of a graphics layer's elements (adding, removing or
// replacing any number of them), for a map's undo stack. Each change holds the element before and
// after (null for none), so undo and redo put back exactly the elements they took away, in their
// places. After either, the elements the command left in the layer are the selection.
#include <QUndoCommand>
#include <vector>

#include "HOElement.h"

namespace HXObjects {

class HOGraphicsLayer;

class HOElementEditCommand : public QUndoCommand {
public:
    HOElementEditCommand(HOGraphicsLayer* layer, const QString& text);

    // `before` null: `after` is added (at `index`, -1 appends); `after` null: `before` is removed.
    void AddChange(HORefPtr<HOElement> before, HORefPtr<HOElement> after, int index = -1);
    bool IsEmpty() const { return m_changes.empty(); }

    void redo() override;
    void undo() override;

    // "Delete 1 element", "Delete 3 elements".
    static QString CountText(const char* verb, int count);

private:
    struct Change {
        HORefPtr<HOElement> before, after;
        int index;
    };
    void apply(bool forward);

    HORefPtr<HOGraphicsLayer> m_layer;
    std::vector<Change> m_changes;
};

}  // namespace HXObjects
