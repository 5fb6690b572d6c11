#pragma once
// HOMap: an ordered stack of layers (first drawn first), a background colour, a coordinate system
// and a display unit, plus its graphics layer. The map's system is the host's choice, else that of
// the first layer added that has one; it stays when layers in other systems are added, moved or
// removed, and they are drawn reprojected into it. Thread-safe:
// the render thread reads the layer list while the GUI thread edits it. LayersChangedSignal fires
// after every change of the list, a layer's visibility through SetLayerVisible, or the system.
#include "HOColor.h"
#include "HOEventSignal.h"
#include "HOGraphicsLayer.h"
#include "HOLayer.h"
#include "HORect.h"
#include "HORefPtr.h"
#include "HOUnitType.h"
#include "HXExport.h"

#include <memory>
#include <mutex>
#include <vector>

class QUndoStack;

namespace HXObjects {

class HOCoordinateSystem;

class HX_EXPORT HOMap : public HORefBase {
public:
    HOMap();

    // All layers in map order (the argument is kept for callers that pass true).
    std::vector<HORefPtr<HOLayer>> GetLayers(bool all = true) const;
    int GetLayerCount() const;
    void AddLayer(HOLayer* layer);
    void RemoveLayer(HOLayer* layer);
    // Moves the layer to the index (clamped); no-op for a layer not in the map.
    void MoveLayer(HOLayer* layer, int index);
    void SetLayerVisible(HOLayer* layer, bool visible);
    HORefPtr<HOGraphicsLayer> GetGraphicsLayer() const;
    // The undo stack of this map's edits (GUI thread only); the map owns it.
    QUndoStack* GetUndoStack() const;

    HOColor GetBackgroundColor() const;
    void SetBackgroundColor(const HOColor& color);
    // May be null (no layer with a system yet).
    HORefPtr<HOCoordinateSystem> GetSpatialReference() const;
    // Ignores a system no map can be drawn in (HOCoordinateSystem::CanDrawMap).
    void SetSpatialReference(HOCoordinateSystem* system);
    HOUnitType GetMapDisplayUnit() const;
    void SetMapDisplayUnit(HOUnitType unit);
    // How near, in pixels, the pointer snaps to a vertex or segment while editing (10 by default;
    // 0 turns snapping off for this map).
    int GetSnapTolerance() const;
    void SetSnapTolerance(int pixels);
    // The union of the visible layers' extents in the map's system; empty when there are none. A flat
    // union (one point, one straight line) is widened to be viewable.
    HORect GetFullExtent() const;

    HOEventSignal LayersChangedSignal;

protected:
    ~HOMap() override;

private:
    void notifyChanged();

    mutable std::mutex m_mutex;
    std::vector<HORefPtr<HOLayer>> m_layers;
    HORefPtr<HOGraphicsLayer> m_graphics;
    std::unique_ptr<QUndoStack> m_undoStack;
    HORefPtr<HOCoordinateSystem> m_system;
    HOColor m_background{255, 255, 255};
    HOUnitType m_unit = HOUnitMeter;
    bool m_unitSet = false;
    int m_snapTolerance = 10;
};

}  // namespace HXObjects
