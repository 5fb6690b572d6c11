#pragma once
// HODigitizeTool: the base of the tools that draw a line or an area vertex by vertex. A click adds a
// vertex and the mouse shows the next segment; a double click or Enter finishes the shape; Backspace
// (or CancelPoint) drops the last vertex and Escape abandons the shape. "new path" (the command, or
// the buddy's "New path" menu entry) closes the part under way and starts another part of the same
// shape. The finished shape becomes a selected element of the map's graphics layer, one undoable
// edit; a shape without a part of enough distinct vertices makes nothing.
#include <vector>

#include "HOGeometry.h"
#include "HOMapTool.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HODigitizeTool : public HOMapTool {
public:
    void Activate() override;
    void Deactivate() override;
    void OnCommand(const HOString& command) override;
    void ClearToolPaint() override;
    using HOMapTool::AddPoint;
    // A vertex typed in map units.
    void AddPoint(const HOPoint& point) override;
    void CancelPoint() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseMove(int button, int x, int y) override;
    void OnMouseUp(int button, int x, int y) override;
    void OnDoubleClick(int button, int x, int y) override;
    bool OnKeyDown(int key) override;
    void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) override;

protected:
    // True for areas (closed rings of three vertices or more), false for lines (two or more).
    virtual bool IsArea() const = 0;
    // The buddy's new-path option of this kind of shape: -1 until its "New path" entry is chosen.
    virtual int NewPathOption(HOToolBuddy* buddy) const = 0;
    virtual void SetNewPathOption(HOToolBuddy* buddy, int option) const = 0;
    // Makes what the finished shape stands for; by default an element of that shape.
    virtual void Create(HOMap* map, HORefPtr<HOGeometry> shape);

private:
    // The part without repeated vertices (and, for a ring, closed); empty when too short.
    HOGeometry::Part usable(const HOGeometry::Part& part) const;
    void startNewPath();
    void finish();
    void abandon();
    bool inProgress();
    // Runs `change` on the shape under the paint lock, then redraws the tool's drawing.
    template <class Change>
    void edit(Change change);

    // Guarded by paintMutex: the render thread draws them.
    std::vector<HOGeometry::Part> m_parts;  // finished parts
    HOGeometry::Part m_current;             // the part under way
    HOPoint m_hover;
    bool m_hovering = false;
};

}  // namespace HXObjects
