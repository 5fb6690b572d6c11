#pragma once
// HOToolSingleSelect ("HXObjects::HOToolSingleSelect"): a click selects the topmost feature under
// the mouse and the topmost graphic element there; a dragged box selects every feature of the
// visible feature layers that meets it. Shift adds to the selection, control toggles. The number
// of selected features is left in HOTool::selectFeatureNum. A drag that starts on a graphic element
// moves the selected elements (or that element alone when it is not selected) as one undoable edit;
// Escape drops a drag in progress, else the element selection. Selected elements show a handle on
// each vertex; dragging a handle moves that vertex, one undoable edit. Dragged vertices and elements
// follow the pointer snapped to nearby vertices and segments (Alt held: not snapped).
#include <vector>

#include "HOElement.h"
#include "HORubberBandTool.h"
#include "HOVertexHandle.h"

namespace HXObjects {

class HOFeatureLayer;
class HOMap;

class HOToolSingleSelect : public HORubberBandTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolSingleSelect"; }
    void Activate() override;
    void Deactivate() override;
    void ClearToolPaint() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseMove(int button, int x, int y) override;
    void OnMouseUp(int button, int x, int y) override;
    bool OnKeyDown(int key) override;
    void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) override;

    // Search radius around a click, pixels.
    static constexpr double kTolerancePixels = 3.0;

protected:
    void OnClick(const HOPoint& point) override;
    void OnBox(const HORect& box) override;

private:
    enum Mode { Replace, Add, Toggle };
    struct LayerPick;
    // The new selection of one layer from the ids selected before and the ids just picked.
    static std::vector<int> Combine(const std::vector<int>& before, const std::vector<int>& picked,
                                    Mode mode);
    Mode currentMode() const;
    void apply(HOMap* map, const std::vector<LayerPick>& picks);
    void selectElementAt(HOMap* map, const HOPoint& point, double tolerance);
    // The topmost element under a view pixel, or null.
    HORefPtr<HOElement> elementAt(int x, int y) const;
    // The elements a drag from `grabbed` moves.
    std::vector<HORefPtr<HOElement>> draggedElements(const HORefPtr<HOElement>& grabbed) const;
    void endDrag();
    // The selected elements, whose vertices have handles.
    std::vector<HORefPtr<HOElement>> selectedElements() const;
    void dragHandle(int x, int y);
    void dropHandle(int x, int y);

    // An element drag in progress (the press was on an element).
    HORefPtr<HOElement> m_grabbed;
    int m_grabX = 0, m_grabY = 0;
    bool m_moving = false;
    // A vertex handle drag in progress.
    HOVertexHandle m_handle;
    // The dragged elements where they would land (guarded by paintMutex).
    std::vector<HORefPtr<HOGeometry>> m_preview;
};

}  // namespace HXObjects
