#include "HOPageLayoutView.h"

#include "HODataFrame.h"
#include "HOMapView.h"

namespace HXObjects {

class HOPageLayoutView::Private {
public:
    HODisplay display;
    HOGraphicsContainer container;
    HORefPtr<HOPageLayoutBaseElement> operating;
    HOTool* tool = nullptr;
    HOToolBuddy* buddy = nullptr;
};

HOPageLayoutView::HOPageLayoutView() : d(std::make_unique<Private>()) {}
HOPageLayoutView::~HOPageLayoutView() = default;

bool HOPageLayoutView::KeyDown(int) { return false; }
void HOPageLayoutView::MouseDown(int, int, int) {}
void HOPageLayoutView::MouseUp(int, int, int) {}
void HOPageLayoutView::MouseMove(int, int, int) {}
void HOPageLayoutView::DoubleClick(int, int, int) {}
void HOPageLayoutView::Wheel(int, int, int, int) {}
void HOPageLayoutView::SetSize(int, int) {}
void HOPageLayoutView::DrawTo(HOGraphics*, int) {}
void HOPageLayoutView::SetSize(const HOSize&) {}
HORect HOPageLayoutView::GetExtent() { return {}; }
void HOPageLayoutView::SetExtent(const HORect&) {}
void HOPageLayoutView::RefreshView(bool) {}
void HOPageLayoutView::PauseRender() {}
void HOPageLayoutView::ResumeRender() {}
HOPoint HOPageLayoutView::GetCenter() { return {}; }
double HOPageLayoutView::GetScale() { return 1.0; }
void HOPageLayoutView::SetScale(double) {}
void HOPageLayoutView::SetCurrentTool(HOTool* tool) { d->tool = tool; }
void HOPageLayoutView::ZoomIn() {}
void HOPageLayoutView::ZoomOut() {}
void HOPageLayoutView::ZoomByFactor(double, const HOPoint*) {}
HODisplay* HOPageLayoutView::GetScreenDisplay() { return &d->display; }
HODisplayTransform HOPageLayoutView::GetDisplayTransform() { return d->display.GetDisplayTransform(); }
void HOPageLayoutView::SetToolBuddy(HOToolBuddy* buddy) { d->buddy = buddy; }
void HOPageLayoutView::ResizeRefresh(int) {}
HOTool* HOPageLayoutView::GetCurrentTool() const { return d->tool; }
HOToolBuddy* HOPageLayoutView::GetToolBuddy() const { return d->buddy; }

void HOPageLayoutView::SwitchToLayoutView(HOMapView*) {}
HORefPtr<HOPageLayoutBaseElement> HOPageLayoutView::get_operating_data_frame() const { return d->operating; }
void HOPageLayoutView::set_operating_data_frame(HOPageLayoutBaseElement* element) { d->operating = element; }
HOGraphicsContainer* HOPageLayoutView::get_graphicscontainer() const { return &d->container; }
bool HOPageLayoutView::open(HOFileFunc*, double) { return false; }
bool HOPageLayoutView::save(HOFileFunc*, double) { return false; }

}  // namespace HXObjects
