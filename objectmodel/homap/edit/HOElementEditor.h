#pragma once
// HOElementEditor: the edits of a map's graphic elements that tools and commands offer. Each edit that
// changes the elements goes onto the map's undo stack as one command; nothing happens (and nothing is
// pushed) when there is nothing to change. GUI thread only.
#include <vector>

#include "HOElement.h"
#include "HOPoint.h"

namespace HXObjects {

class HOMap;
class HOToolBuddy;

class HOElementEditor {
public:
    // Adds a new element made of the geometry (default style when none) and selects it. Its id, or 0.
    static int Add(HOMap* map, HORefPtr<HOGeometry> geometry, const QString& text,
                   HORefPtr<HOStyle> style = nullptr, const HOString& label = HOString());
    // Adds one element per geometry (default styles) as one edit and selects them; their ids, none
    // when there is nothing to add.
    static std::vector<int> AddAll(HOMap* map, const std::vector<HORefPtr<HOGeometry>>& geometries,
                                   const QString& text);
    // Removes the element with that id (`text` names the command).
    static bool Remove(HOMap* map, int id, const QString& text);
    // The selected elements; false when none is selected.
    static bool DeleteSelected(HOMap* map);
    static bool CopySelected(HOMap* map);
    static bool CutSelected(HOMap* map);
    // Pastes the clipboard's elements with their centre at `at`, or where they were when `at` is null.
    // A clipboard without elements or WKT pastes nothing and says so through the buddy's ShowMessage.
    static int Paste(HOMap* map, const HOPoint* at, HOToolBuddy* buddy);
    // Moves the elements by (dx, dy) map units.
    static bool Move(HOMap* map, const std::vector<int>& ids, double dx, double dy);

    // Gives the element another geometry (`text` names the command).
    static bool Reshape(HOMap* map, int id, HORefPtr<HOGeometry> geometry, const QString& text);

    static HORefPtr<HOGeometry> Translated(const HOGeometry& geometry, double dx, double dy);

private:
    static std::vector<int> pushAdded(HOMap* map, const std::vector<HORefPtr<HOElement>>& elements,
                                      const QString& text);
    static bool removeSelected(HOMap* map, const char* verb);
};

}  // namespace HXObjects
