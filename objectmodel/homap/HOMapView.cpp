#include "HOMapView.h"

#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOTrackCancel.h"

namespace HXObjects {

class HOMapView::Private {
public:
    HOString name;
    HORefPtr<HOMap> map;
    HODisplay display;
    HOTrackCancel cancel;
    HOMapRulerAndGrid grid;
    HOTool* tool = nullptr;
    HOToolBuddy* buddy = nullptr;
};

HOMapView::HOMapView(const HOString& name) : d(std::make_unique<Private>()) { d->name = name; }
HOMapView::~HOMapView() = default;

bool HOMapView::KeyDown(int) { return false; }
void HOMapView::MouseDown(int, int, int) {}
void HOMapView::MouseUp(int, int, int) {}
void HOMapView::MouseMove(int, int, int) {}
void HOMapView::DoubleClick(int, int, int) {}
void HOMapView::Wheel(int, int, int, int) {}
void HOMapView::SetSize(int, int) {}
void HOMapView::DrawTo(HOGraphics*, int) {}
void HOMapView::SetSize(const HOSize&) {}
HORect HOMapView::GetExtent() { return {}; }
void HOMapView::SetExtent(const HORect&) {}
void HOMapView::RefreshView(bool) {}
void HOMapView::PauseRender() {}
void HOMapView::ResumeRender() {}
HOPoint HOMapView::GetCenter() { return {}; }
double HOMapView::GetScale() { return 0.0; }
void HOMapView::SetScale(double) {}
void HOMapView::SetCurrentTool(HOTool* tool) { d->tool = tool; }
void HOMapView::ZoomIn() {}
void HOMapView::ZoomOut() {}
void HOMapView::ZoomByFactor(double, const HOPoint*) {}
HODisplay* HOMapView::GetScreenDisplay() { return &d->display; }
HODisplayTransform HOMapView::GetDisplayTransform() { return d->display.GetDisplayTransform(); }
void HOMapView::SetToolBuddy(HOToolBuddy* buddy) { d->buddy = buddy; }
void HOMapView::ResizeRefresh(int) {}
HOTool* HOMapView::GetCurrentTool() const { return d->tool; }
HOToolBuddy* HOMapView::GetToolBuddy() const { return d->buddy; }
HOString HOMapView::GetName() const { return d->name; }
HOMap* HOMapView::GetMap() const { return d->map.get(); }
void HOMapView::SetMap(HOMap* map) { d->map = map; }
void HOMapView::Draw(HOGraphics*) {}
void HOMapView::RefreshMap(bool, const HORect&) {}
void HOMapView::Refresh(HOLayer*, HOMapCache::CacheType, const HORect&) {}
void HOMapView::StopRender(bool) {}
void HOMapView::SelectAll() {}
HOTrackCancel* HOMapView::GetTrackCancel() { return &d->cancel; }
HOMapRulerAndGrid* HOMapView::GetRulerAndGridSetting() { return &d->grid; }
void HOMapView::TwinkleGeometry(HOGeometry*, HOStyle*, int) {}
void HOMapView::RequestRedraw(bool) {}
void HOMapView::ZoomToFullExtent() {}
bool HOMapView::IsRendering() const { return false; }
void HOMapView::BeginPan() {}
void HOMapView::PanTo(int, int) {}
void HOMapView::EndPan(int, int) {}
void HOMapView::RefreshToolPaint() {}

}  // namespace HXObjects
