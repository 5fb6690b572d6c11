#pragma once
// HOToolPan ("HXObjects::HOToolPan"): drag the map with the left button. The picture follows the
// mouse at once without rendering; the map renders once when the button is released.
#include "HOMapTool.h"

namespace HXObjects {

class HOToolPan : public HOMapTool {
public:
    HOString GetClassName() override { return "HXObjects::HOToolPan"; }
    void Activate() override;
    void Deactivate() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseMove(int button, int x, int y) override;
    void OnMouseUp(int button, int x, int y) override;

private:
    void endDrag();

    HOMapView* m_dragView = nullptr;  // the view being dragged; null while no drag runs
    int m_pressX = 0, m_pressY = 0;
    int m_dx = 0, m_dy = 0;  // offset of the picture since the press, pixels
};

}  // namespace HXObjects
