#include "HOMap.h"

#include <QUndoStack>
#include <algorithm>
#include <cmath>
#include <optional>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"

namespace HXObjects {

HOMap::HOMap() : m_graphics(new HOGraphicsLayer), m_undoStack(new QUndoStack) {}

HOMap::~HOMap() = default;

QUndoStack* HOMap::GetUndoStack() const {
    return m_undoStack.get();
}

std::vector<HORefPtr<HOLayer>> HOMap::GetLayers(bool) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_layers;
}

int HOMap::GetLayerCount() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_layers.size());
}

void HOMap::AddLayer(HOLayer* layer) {
    if (!layer) return;
    const HORefPtr<HOCoordinateSystem> system = layer->GetSpatialReference();
    int place = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (std::find(m_layers.begin(), m_layers.end(), layer) != m_layers.end()) return;
        place = int(m_layers.size());
        m_layers.emplace_back(layer);
        // The first system that can carry a map becomes the map's and stays.
        if (!m_system && system && system->CanDrawMap()) m_system = system;
    }
    // An unstyled layer takes the palette colour of its place, so layers loaded together differ.
    if (auto* features = dynamic_cast<HOFeatureLayer*>(layer)) features->SetDefaultStyleIndex(place);
    notifyChanged();
}

void HOMap::RemoveLayer(HOLayer* layer) {
    // The reference is dropped after the lock is released: a layer's destructor may be slow.
    HORefPtr<HOLayer> removed;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto it = std::find(m_layers.begin(), m_layers.end(), layer);
        if (it == m_layers.end()) return;
        removed = *it;
        m_layers.erase(it);
    }
    notifyChanged();
}

void HOMap::MoveLayer(HOLayer* layer, int index) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto it = std::find(m_layers.begin(), m_layers.end(), layer);
        if (it == m_layers.end()) return;
        const int from = static_cast<int>(it - m_layers.begin());
        const int to = std::clamp(index, 0, static_cast<int>(m_layers.size()) - 1);
        if (from == to) return;
        HORefPtr<HOLayer> moved = *it;
        m_layers.erase(it);
        m_layers.insert(m_layers.begin() + to, moved);
    }
    notifyChanged();
}

void HOMap::SetLayerVisible(HOLayer* layer, bool visible) {
    if (!layer || layer->IsVisible() == visible) return;
    layer->SetVisible(visible);
    notifyChanged();
}

HORefPtr<HOGraphicsLayer> HOMap::GetGraphicsLayer() const {
    return m_graphics;
}

HOColor HOMap::GetBackgroundColor() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_background;
}

void HOMap::SetBackgroundColor(const HOColor& color) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_background = color;
}

HORefPtr<HOCoordinateSystem> HOMap::GetSpatialReference() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_system;
}

void HOMap::SetSpatialReference(HOCoordinateSystem* system) {
    if (system && !system->CanDrawMap()) return;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_system.get() == system) return;
        m_system = system;
    }
    notifyChanged();
}

HOUnitType HOMap::GetMapDisplayUnit() const {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_unitSet) return m_unit;
    }
    // Unset: the unit of the map's coordinate system.
    const auto system = GetSpatialReference();
    return system ? system->GetUnit() : HOUnitMeter;
}

void HOMap::SetMapDisplayUnit(HOUnitType unit) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_unit = unit;
    m_unitSet = true;
}

int HOMap::GetSnapTolerance() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_snapTolerance;
}

void HOMap::SetSnapTolerance(int pixels) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_snapTolerance = std::max(pixels, 0);
}

HORect HOMap::GetFullExtent() const {
    const auto layers = GetLayers(true);
    const auto system = GetSpatialReference();
    std::optional<HORect> full;
    for (const auto& layer : layers) {
        if (!layer->IsVisible()) continue;
        // A single point or a straight line has a flat extent; it still counts.
        const HORect e = layer->GetExtentIn(system.get());
        if (!(e.maxx >= e.minx && e.maxy >= e.miny) || !std::isfinite(e.Width() + e.Height())) continue;
        full = full ? HORect(std::min(full->minx, e.minx), std::max(full->maxx, e.maxx),
                             std::min(full->miny, e.miny), std::max(full->maxy, e.maxy))
                    : e;
    }
    if (!full) return {};
    // A flat extent is opened up so that a view can show it.
    const double pad = std::max({full->Width(), full->Height(), 1.0}) / 2.0;
    if (full->Width() <= 0.0) full = HORect(full->minx - pad, full->maxx + pad, full->miny, full->maxy);
    if (full->Height() <= 0.0) full = HORect(full->minx, full->maxx, full->miny - pad, full->maxy + pad);
    return *full;
}

void HOMap::notifyChanged() {
    HOEvent event;
    LayersChangedSignal.fire(this, &event);
}

}  // namespace HXObjects
