#pragma once
// HOToolAddControlPoint ("HXObjects::HOToolAddControlPoint"): places the numbered control points an
// image is georeferenced by, as point elements of the map's graphics layer labelled 1, 2, 3...
// A click places one under the mouse; a typed point (X and Y in map units, or longitude and latitude
// in degrees, projected into a projected map's system) lands exactly where typed.
// CancelPoint or Backspace takes back the last point placed. Every placement is one undoable edit.
#include <vector>

#include "HOMapTool.h"

namespace HXObjects {

class HOToolAddControlPoint : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolAddControlPoint"; }
    void Activate() override;
    bool AcceptsPointInput() override { return true; }
    using HOMapTool::AddPoint;
    void AddPoint(const HOPoint& point) override;
    void CancelPoint() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseUp(int button, int x, int y) override;
    bool OnKeyDown(int key) override;

private:
    // 1 + the highest number among the map's control points.
    static int nextNumber(HOMap* map);

    std::vector<int> m_placed;  // ids of the points placed, last one last
};

}  // namespace HXObjects
