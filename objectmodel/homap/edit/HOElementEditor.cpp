#include "HOElementEditor.h"

#include <QCoreApplication>
#include <QUndoStack>
#include <algorithm>

#include "HOMap.h"
#include "HOToolBuddy.h"
#include "edit/HOElementClipboard.h"
#include "edit/HOElementEditCommand.h"

namespace HXObjects {

namespace {

void Push(HOMap* map, HOElementEditCommand* command) {
    if (command->IsEmpty())
        delete command;
    else
        map->GetUndoStack()->push(command);  // the stack owns it and runs its redo()
}

// The centre of the elements' common envelope (flat envelopes of straight lines included, which a
// rectangle union would skip as empty).
HOPoint CentreOf(const std::vector<HORefPtr<HOElement>>& elements) {
    HORect box = elements.front()->GetGeometry()->GetEnvelope();
    for (const auto& element : elements) {
        const HORect e = element->GetGeometry()->GetEnvelope();
        box = HORect(std::min(box.minx, e.minx), std::max(box.maxx, e.maxx), std::min(box.miny, e.miny),
                     std::max(box.maxy, e.maxy));
    }
    return box.Center();
}

}  // namespace

int HOElementEditor::Add(HOMap* map, HORefPtr<HOGeometry> geometry, const QString& text,
                         HORefPtr<HOStyle> style, const HOString& label) {
    if (!map || !geometry || geometry->IsEmpty()) return 0;
    HOGraphicsLayer* layer = map->GetGraphicsLayer().get();
    if (!style) style = HOGraphicsLayer::DefaultStyle(geometry->GetType());
    return pushAdded(map, {layer->NewElement(geometry, style, label)}, text).front();
}

std::vector<int> HOElementEditor::AddAll(HOMap* map, const std::vector<HORefPtr<HOGeometry>>& geometries,
                                         const QString& text) {
    if (!map) return {};
    HOGraphicsLayer* layer = map->GetGraphicsLayer().get();
    std::vector<HORefPtr<HOElement>> elements;
    for (const auto& geometry : geometries) {
        if (geometry && !geometry->IsEmpty())
            elements.push_back(
                layer->NewElement(geometry, HOGraphicsLayer::DefaultStyle(geometry->GetType())));
    }
    return elements.empty() ? std::vector<int>() : pushAdded(map, elements, text);
}

std::vector<int> HOElementEditor::pushAdded(HOMap* map, const std::vector<HORefPtr<HOElement>>& elements,
                                            const QString& text) {
    auto* command = new HOElementEditCommand(map->GetGraphicsLayer().get(), text);
    std::vector<int> ids;
    for (const auto& element : elements) {
        command->AddChange(nullptr, element);
        ids.push_back(element->GetID());
    }
    Push(map, command);
    return ids;
}

bool HOElementEditor::Remove(HOMap* map, int id, const QString& text) {
    HOGraphicsLayer* layer = map ? map->GetGraphicsLayer().get() : nullptr;
    HORefPtr<HOElement> element = layer ? layer->GetElement(id) : nullptr;
    if (!element) return false;
    auto* command = new HOElementEditCommand(layer, text);
    command->AddChange(element, nullptr, layer->IndexOf(id));
    Push(map, command);
    return true;
}

bool HOElementEditor::removeSelected(HOMap* map, const char* verb) {
    if (!map) return false;
    HOGraphicsLayer* layer = map->GetGraphicsLayer().get();
    const auto selected = layer->GetSelectedElements();
    if (selected.empty()) return false;
    auto* command = new HOElementEditCommand(
        layer, HOElementEditCommand::CountText(verb, static_cast<int>(selected.size())));
    for (const auto& element : selected)
        command->AddChange(element, nullptr, layer->IndexOf(element->GetID()));
    Push(map, command);
    return true;
}

bool HOElementEditor::DeleteSelected(HOMap* map) {
    return removeSelected(map, QT_TRANSLATE_NOOP("HXObjects::HOElementEditCommand", "Delete"));
}

bool HOElementEditor::CopySelected(HOMap* map) {
    if (!map) return false;
    const auto selected = map->GetGraphicsLayer()->GetSelectedElements();
    if (selected.empty()) return false;
    HOElementClipboard::Put(selected);
    return true;
}

bool HOElementEditor::CutSelected(HOMap* map) {
    return CopySelected(map) &&
           removeSelected(map, QT_TRANSLATE_NOOP("HXObjects::HOElementEditCommand", "Cut"));
}

int HOElementEditor::Paste(HOMap* map, const HOPoint* at, HOToolBuddy* buddy) {
    if (!map) return 0;
    const auto pasted = HOElementClipboard::Take();
    if (pasted.empty()) {
        if (buddy)
            buddy->ShowMessage(
                QCoreApplication::translate("HXObjects::HOElementEditor",
                                            "Nothing to paste: the clipboard holds no elements "
                                            "and no WKT geometry"));
        return 0;
    }
    HOGraphicsLayer* layer = map->GetGraphicsLayer().get();
    const HOPoint shift = at ? *at - CentreOf(pasted) : HOPoint();
    auto* command = new HOElementEditCommand(
        layer, HOElementEditCommand::CountText(QT_TRANSLATE_NOOP("HXObjects::HOElementEditCommand", "Paste"),
                                               static_cast<int>(pasted.size())));
    for (const auto& element : pasted) {
        command->AddChange(nullptr, layer->NewElement(Translated(*element->GetGeometry(), shift.x, shift.y),
                                                      element->GetStyle(), element->GetLabel()));
    }
    Push(map, command);
    return static_cast<int>(pasted.size());
}

bool HOElementEditor::Move(HOMap* map, const std::vector<int>& ids, double dx, double dy) {
    if (!map || (dx == 0 && dy == 0)) return false;
    HOGraphicsLayer* layer = map->GetGraphicsLayer().get();
    std::vector<HORefPtr<HOElement>> moved;
    for (const auto& element : layer->GetElements()) {
        if (std::find(ids.begin(), ids.end(), element->GetID()) != ids.end()) moved.push_back(element);
    }
    auto* command = new HOElementEditCommand(
        layer, HOElementEditCommand::CountText(QT_TRANSLATE_NOOP("HXObjects::HOElementEditCommand", "Move"),
                                               static_cast<int>(moved.size())));
    for (const auto& element : moved)
        command->AddChange(element, element->WithGeometry(Translated(*element->GetGeometry(), dx, dy)));
    const bool any = !command->IsEmpty();
    Push(map, command);
    return any;
}

bool HOElementEditor::Reshape(HOMap* map, int id, HORefPtr<HOGeometry> geometry, const QString& text) {
    HOGraphicsLayer* layer = map ? map->GetGraphicsLayer().get() : nullptr;
    HORefPtr<HOElement> element = layer ? layer->GetElement(id) : nullptr;
    if (!element || !geometry) return false;
    auto* command = new HOElementEditCommand(layer, text);
    command->AddChange(element, element->WithGeometry(geometry));
    Push(map, command);
    return true;
}

HORefPtr<HOGeometry> HOElementEditor::Translated(const HOGeometry& geometry, double dx, double dy) {
    HORefPtr<HOGeometry> copy(geometry.Clone());
    for (auto& part : copy->Parts()) {
        for (HOPoint& p : part) p = p + HOPoint(dx, dy);
    }
    return copy;
}

}  // namespace HXObjects
