#pragma once
// HOToolEditVertex ("HXObjects::HOToolEditVertex"): edits the vertices of one feature of an
// editable feature layer. A click picks the topmost feature under it and shows its vertices; a
// vertex dragged moves (snapped), a double click on a segment inserts a vertex there, Backspace
// deletes the vertex under the mouse, Escape lets the feature go. Each change is one undoable edit;
// one the layer refuses (an invalid shape, a feature changed by someone else) is reported and undone
// on screen.
#include <vector>

#include "HOFeatureLayer.h"
#include "HOMapTool.h"

namespace HXObjects {

class HOToolEditVertex : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolEditVertex"; }
    void Activate() override;
    void Deactivate() override;
    void ClearToolPaint() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseMove(int button, int x, int y) override;
    void OnMouseUp(int button, int x, int y) override;
    void OnDoubleClick(int button, int x, int y) override;
    bool OnKeyDown(int key) override;
    void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) override;

    // Search radius around the mouse for vertices and segments, pixels.
    static constexpr double kTolerancePixels = 5.0;

private:
    struct Vertex {
        int part = -1, index = -1;
    };
    void pick(const HOPoint& point);
    void release();
    // The vertex of the feature within the tolerance of the point; part -1 for none.
    Vertex vertexAt(const HOPoint& point) const;
    // Writes the changed shape; on refusal the shape shown goes back to the feature's.
    void commit(std::vector<HOGeometry::Part> parts);
    void showFeature();

    HORefPtr<HOFeatureLayer> m_layer;
    int m_id = -1;
    HORefPtr<HOGeometry> m_feature;         // as the layer holds it, in the map's system
    std::vector<HOGeometry::Part> m_parts;  // as shown (guarded by paintMutex)
    Vertex m_dragged;
    Vertex m_hovered;
};

}  // namespace HXObjects
