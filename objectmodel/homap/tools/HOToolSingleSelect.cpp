#include "HOToolSingleSelect.h"

#include <QCoreApplication>
#include <QPainter>
#include <Qt>
#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOGeometryPainter.h"
#include "HOMap.h"
#include "edit/HOElementEditor.h"

namespace HXObjects {

struct HOToolSingleSelect::LayerPick {
    HORefPtr<HOFeatureLayer> layer;
    std::vector<int> before;
    std::vector<int> picked;
};

namespace {

std::vector<HORefPtr<HOFeatureLayer>> VisibleFeatureLayers(HOMap* map) {
    std::vector<HORefPtr<HOFeatureLayer>> result;
    for (const auto& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features && features->IsVisible()) result.emplace_back(features);
    }
    return result;
}

std::vector<int> Sorted(std::vector<int> ids) {
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

}  // namespace

std::vector<int> HOToolSingleSelect::Combine(const std::vector<int>& before, const std::vector<int>& picked,
                                             Mode mode) {
    const std::vector<int> a = Sorted(before), b = Sorted(picked);
    std::vector<int> result;
    switch (mode) {
        case Replace:
            return b;
        case Add:
            std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
            break;
        case Toggle:
            std::set_symmetric_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
            break;
    }
    return result;
}

void HOToolSingleSelect::Activate() {
    HORubberBandTool::Activate();
    ShowCursor(HOToolBuddy::ArrowCursor);
}

void HOToolSingleSelect::Deactivate() {
    endDrag();
    HORubberBandTool::Deactivate();  // clears the band too
}

void HOToolSingleSelect::ClearToolPaint() {
    endDrag();
    HORubberBandTool::ClearToolPaint();
}

void HOToolSingleSelect::OnMouseDown(int button, int x, int y) {
    if (button == 1 && MapView())
        m_handle = HOVertexHandle::At(selectedElements(), HOPoint(x, y), MapView()->GetDisplayTransform(),
                                      HOVertexHandle::kHalfSize + 1);
    if (button == 1 && !m_handle) m_grabbed = elementAt(x, y);
    if (!m_grabbed && !m_handle) return HORubberBandTool::OnMouseDown(button, x, y);
    m_grabX = x;
    m_grabY = y;
    m_moving = false;
}

void HOToolSingleSelect::OnMouseMove(int button, int x, int y) {
    if (m_handle) return dragHandle(x, y);
    if (!m_grabbed) return HORubberBandTool::OnMouseMove(button, x, y);
    m_moving =
        m_moving || std::abs(x - m_grabX) >= kMinimumBoxPixels || std::abs(y - m_grabY) >= kMinimumBoxPixels;
    if (!m_moving) return;
    const HOPoint shift = SnapToMap(x, y, m_grabbed->GetID()) - ToMap(m_grabX, m_grabY);
    std::vector<HORefPtr<HOGeometry>> preview;
    for (const auto& element : draggedElements(m_grabbed))
        preview.push_back(HOElementEditor::Translated(*element->GetGeometry(), shift.x, shift.y));
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_preview = std::move(preview);
    }
    ShowCursor(HOToolBuddy::SizeAllCursor);
    RefreshPaint();
}

void HOToolSingleSelect::OnMouseUp(int button, int x, int y) {
    if (m_handle && button == 1) return dropHandle(x, y);
    if (!m_grabbed || button != 1) return HORubberBandTool::OnMouseUp(button, x, y);
    const HORefPtr<HOElement> grabbed = m_grabbed;
    const bool moved = m_moving;
    const HOPoint from = ToMap(m_grabX, m_grabY), shift = SnapToMap(x, y, grabbed->GetID()) - from;
    endDrag();
    if (!moved) return OnClick(from);
    std::vector<int> ids;
    for (const auto& element : draggedElements(grabbed)) ids.push_back(element->GetID());
    HOElementEditor::Move(TargetMap(), ids, shift.x, shift.y);
}

bool HOToolSingleSelect::OnKeyDown(int key) {
    if (key != Qt::Key_Escape) return HORubberBandTool::OnKeyDown(key);
    if (m_grabbed || m_handle) {
        endDrag();
    } else if (HOMap* map = TargetMap()) {
        map->GetGraphicsLayer()->ClearSelection();
        map->GetGraphicsLayer()->NotifyElementsChanged();
    }
    return true;
}

void HOToolSingleSelect::DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) {
    HORubberBandTool::DrawToolPaint(painter, transform);
    std::lock_guard<std::mutex> lock(paintMutex());
    HOGeometryPainter preview(painter, transform);
    for (const auto& geometry : m_preview) preview.DrawHighlight(*geometry, QColor(255, 0, 0), 1.0);
    DrawSnapMark(painter, transform);
    if (m_preview.empty()) HOVertexHandle::Draw(painter, transform, selectedElements());
}

std::vector<HORefPtr<HOElement>> HOToolSingleSelect::selectedElements() const {
    HOMapView* view = MapView();
    HOMap* map = view ? view->GetMap() : nullptr;
    return map ? map->GetGraphicsLayer()->GetSelectedElements() : std::vector<HORefPtr<HOElement>>();
}

void HOToolSingleSelect::dragHandle(int x, int y) {
    m_moving =
        m_moving || std::abs(x - m_grabX) >= kMinimumBoxPixels || std::abs(y - m_grabY) >= kMinimumBoxPixels;
    if (!m_moving) return;
    const HORefPtr<HOGeometry> moved = m_handle.Moved(SnapToMap(x, y, m_handle.element->GetID()));
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_preview = {moved};
    }
    RefreshPaint();
}

void HOToolSingleSelect::dropHandle(int x, int y) {
    const HOVertexHandle handle = m_handle;
    const bool moved = m_moving;
    const HOPoint to = SnapToMap(x, y, handle.element->GetID());
    endDrag();
    if (!moved) return OnClick(ToMap(x, y));
    HOElementEditor::Reshape(TargetMap(), handle.element->GetID(), handle.Moved(to),
                             QCoreApplication::translate("HXObjects::HOToolSingleSelect", "Move vertex"));
}

HORefPtr<HOElement> HOToolSingleSelect::elementAt(int x, int y) const {
    HOMap* map = MapView() ? MapView()->GetMap() : nullptr;
    if (!map) return nullptr;
    const auto elements = map->GetGraphicsLayer()->LocateElements(ToMap(x, y), PixelsToMap(kTolerancePixels),
                                                                  MapView()->GetScreenDisplay());
    return elements.empty() ? nullptr : elements.front();
}

std::vector<HORefPtr<HOElement>> HOToolSingleSelect::draggedElements(
    const HORefPtr<HOElement>& grabbed) const {
    HOMap* map = TargetMap();
    if (!map) return {};
    const HORefPtr<HOGraphicsLayer> graphics = map->GetGraphicsLayer();
    if (!graphics->IsElementSelected(grabbed->GetID())) return {grabbed};
    return graphics->GetSelectedElements();
}

void HOToolSingleSelect::endDrag() {
    const bool shown = m_moving;
    m_grabbed = nullptr;
    m_handle = HOVertexHandle();
    ForgetSnap();
    m_moving = false;
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_preview.clear();
    }
    if (!shown) return;
    ShowCursor(HOToolBuddy::ArrowCursor);
    RefreshPaint();
}

HOToolSingleSelect::Mode HOToolSingleSelect::currentMode() const {
    const int modifiers = Modifiers();
    if (modifiers & HOToolBuddy::ControlModifier) return Toggle;
    if (modifiers & HOToolBuddy::ShiftModifier) return Add;
    return Replace;
}

void HOToolSingleSelect::OnClick(const HOPoint& point) {
    HOMap* map = MapView()->GetMap();
    if (!map) return;
    const double tolerance = PixelsToMap(kTolerancePixels);
    const HORefPtr<HOCoordinateSystem> system = map->GetSpatialReference();
    // Only the topmost feature under the mouse is picked: walk the layers from the top down.
    std::vector<LayerPick> picks;
    bool found = false;
    const auto layers = VisibleFeatureLayers(map);
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        LayerPick pick{*it, (*it)->GetSelectedIds(), {}};
        if (!found) {
            const std::vector<int> hits = (*it)->IdentifyAt(point, tolerance, system.get());
            if (!hits.empty()) pick.picked.push_back(hits.front());
            found = !hits.empty();
        }
        picks.push_back(std::move(pick));
    }
    selectElementAt(map, point, tolerance);
    apply(map, picks);
}

void HOToolSingleSelect::OnBox(const HORect& box) {
    HOMap* map = MapView()->GetMap();
    if (!map) return;
    const HORefPtr<HOCoordinateSystem> system = map->GetSpatialReference();
    std::vector<LayerPick> picks;
    for (const auto& layer : VisibleFeatureLayers(map)) {
        LayerPick pick{layer, layer->GetSelectedIds(), {}};
        // The layer finds what meets the box; apply() then decides what stays selected.
        layer->SelectByRect(box, false, system.get());
        pick.picked = layer->GetSelectedIds();
        picks.push_back(std::move(pick));
    }
    apply(map, picks);
}

void HOToolSingleSelect::apply(HOMap* map, const std::vector<LayerPick>& picks) {
    const Mode mode = currentMode();
    int count = 0;
    for (const LayerPick& pick : picks) {
        const std::vector<int> ids = Combine(pick.before, pick.picked, mode);
        pick.layer->SetSelectedIds(ids);
        count += static_cast<int>(ids.size());
    }
    selectFeatureNum = count;
    map->GetGraphicsLayer()->NotifyElementsChanged();
    MapView()->RefreshMap(false, HORect());
}

void HOToolSingleSelect::selectElementAt(HOMap* map, const HOPoint& point, double tolerance) {
    const HORefPtr<HOGraphicsLayer> graphics = map->GetGraphicsLayer();
    if (!graphics) return;
    const auto elements = graphics->LocateElements(point, tolerance, MapView()->GetScreenDisplay());
    const Mode mode = currentMode();
    if (mode == Replace) graphics->ClearSelection();
    if (elements.empty()) return;
    const int id = elements.front()->GetID();
    graphics->SelectElement(id, mode == Toggle ? !graphics->IsElementSelected(id) : true);
}

}  // namespace HXObjects
