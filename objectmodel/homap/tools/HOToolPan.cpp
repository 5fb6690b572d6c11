#include "HOToolPan.h"

namespace HXObjects {

void HOToolPan::Activate() {
    HOMapTool::Activate();
    ShowCursor(HOToolBuddy::OpenHandCursor);
}

void HOToolPan::Deactivate() {
    // A drag cut short by another tool still lands where the mouse left the picture.
    if (m_dragView) endDrag();
    HOMapTool::Deactivate();
}

void HOToolPan::OnMouseDown(int button, int x, int y) {
    if (button != 1 || m_dragView) return;
    m_dragView = MapView();
    if (!m_dragView) return;
    m_pressX = x;
    m_pressY = y;
    m_dx = m_dy = 0;
    m_dragView->BeginPan();
    ShowCursor(HOToolBuddy::ClosedHandCursor);
}

void HOToolPan::OnMouseMove(int, int x, int y) {
    if (!m_dragView) return;
    m_dx = x - m_pressX;
    m_dy = y - m_pressY;
    m_dragView->PanTo(m_dx, m_dy);
}

void HOToolPan::OnMouseUp(int button, int x, int y) {
    if (button != 1 || !m_dragView) return;
    m_dx = x - m_pressX;
    m_dy = y - m_pressY;
    endDrag();
    ShowCursor(HOToolBuddy::OpenHandCursor);
}

void HOToolPan::endDrag() {
    HOMapView* view = m_dragView;
    m_dragView = nullptr;
    view->EndPan(m_dx, m_dy);
}

}  // namespace HXObjects
