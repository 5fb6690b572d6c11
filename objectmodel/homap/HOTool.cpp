#include "HOTool.h"

namespace HXObjects {

int HOTool::selectFeatureNum = 0;

void HOTool::Activate() {
    m_active = true;
}
void HOTool::Deactivate() {
    m_active = false;
}
bool HOTool::IsActive() {
    return m_active;
}
void HOTool::SetToolBuddy(HOToolBuddy* buddy) {
    m_buddy = buddy;
}
void HOTool::OnCommand(const HOString&) {}
bool HOTool::IsOneShot() {
    return false;
}
void HOTool::ClearToolPaint() {}
HOTool::Parameters& HOTool::GetParameters() {
    return m_parameters;
}
void HOTool::SetParameter(const HOString& key, const HOString& value) {
    m_parameters[key] = value;
}
void HOTool::AddPoint(const HOPoint&) {}
void HOTool::AddPoint(const HOPoint& point, PointInput) {
    AddPoint(point);
}
void HOTool::CancelPoint() {}
bool HOTool::AcceptsPointInput() {
    return false;
}
void HOTool::OnMouseDown(int, int, int) {}
void HOTool::OnMouseUp(int, int, int) {}
void HOTool::OnMouseMove(int, int, int) {}
void HOTool::OnDoubleClick(int, int, int) {}
bool HOTool::OnKeyDown(int) {
    return false;
}
void HOTool::DrawToolPaint(QPainter&, const HODisplayTransform&) {}
void HOTool::SetView(HOView* view) {
    m_view = view;
}

}  // namespace HXObjects
