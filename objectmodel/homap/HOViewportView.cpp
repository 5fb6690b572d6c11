#include "HOViewportView.h"

#include <cmath>

#include "HOMapScale.h"
#include "HOTool.h"
#include "HOToolBuddy.h"

namespace HXObjects {

namespace {
constexpr int kResizeDelayMs = 200;
constexpr double kZoomStep = 2.0;
constexpr double kWheelNotch = 120.0;
constexpr int kPanButton = 3;  // the middle button pans whatever the current tool
}  // namespace

HOViewportView::HOViewportView(const HORect& initial) : m_dpi(HOMapScale::ScreenDpi()) {
    m_viewport.Fit(initial);
}

HOViewportView::~HOViewportView() {
    if (m_tool && m_tool->GetView() == this) m_tool->SetView(nullptr);
}

bool HOViewportView::Navigate(const std::function<bool(HOViewport&)>& change, int settleDelayMs) {
    const HOViewport::Limits limits = NavigationLimits();
    HORect oldExtent, newExtent;
    double oldScale = 0.0, newScale = 0.0;
    HOToolBuddy* buddy = nullptr;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_viewport.SetLimits(limits);
        oldExtent = m_viewport.Extent();
        oldScale = m_viewport.IsDrawable() ? m_viewport.ScaleUnitsPerPixel() : 0.0;
        if (!change(m_viewport)) return false;
        newExtent = m_viewport.Extent();
        newScale = m_viewport.IsDrawable() ? m_viewport.ScaleUnitsPerPixel() : 0.0;
        buddy = m_buddy;
        m_display.SetDisplayTransform(m_viewport.Transform());
        m_display.SetDeviceSize(m_viewport.Size());
    }
    if (newExtent == oldExtent && newScale == oldScale) return false;
    if (newExtent != oldExtent) OnExtentChanged();
    if (newScale != oldScale) {
        HOEvent event;
        ScaleChangedSignal.fire(this, &event);
        if (buddy) buddy->ScaleChanged();
    }
    OnNavigated(settleDelayMs);
    FireRedraw();
    return true;
}

void HOViewportView::FireRedraw() {
    HOEvent event;
    RedrawSignal.fire(this, &event);
}

std::mutex& HOViewportView::Mutex() const {
    return m_mutex;
}

const HOViewport& HOViewportView::LockedViewport() const {
    return m_viewport;
}

double HOViewportView::LockedDpi() const {
    return m_dpi;
}

HORefPtr<HOTool> HOViewportView::LockedTool() const {
    return m_tool;
}

bool HOViewportView::DragPan(int button, int x, int y, bool released) {
    if (button != kPanButton) return false;
    QPoint offset;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_panning) return true;
        m_panning = !released;
        offset = QPoint(x, y) - m_panStart;
    }
    OnPanDragged(offset.x(), offset.y(), released);
    return true;
}

bool HOViewportView::KeyDown(int key) {
    HOTool* tool = GetCurrentTool();
    return tool && tool->OnKeyDown(key);
}

void HOViewportView::MouseDown(int button, int x, int y) {
    if (button == kPanButton) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_panStart = QPoint(x, y);
            m_panning = true;
        }
        OnPanStarted();
        return;
    }
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseDown(button, x, y);
}

void HOViewportView::MouseUp(int button, int x, int y) {
    if (DragPan(button, x, y, true)) return;
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseUp(button, x, y);
}

void HOViewportView::MouseMove(int button, int x, int y) {
    if (DragPan(button, x, y, false)) return;
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnMouseMove(button, x, y);
}

void HOViewportView::DoubleClick(int button, int x, int y) {
    if (HORefPtr<HOTool> tool = GetCurrentTool()) tool->OnDoubleClick(button, x, y);
}

void HOViewportView::Wheel(int, int delta, int x, int y) {
    if (delta == 0) return;
    const HOPoint at = GetDisplayTransform().ToMap(x, y);
    // A notch (120) halves or doubles the scale; finer wheels and touchpads zoom in proportion.
    ZoomByFactor(std::pow(kZoomStep, -delta / kWheelNotch), &at);
}

void HOViewportView::SetSize(int width, int height) {
    const double dpi = HOMapScale::ScreenDpi();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_dpi = dpi;
    }
    Navigate(
        [&](HOViewport& v) {
            if (v.Size() == HOSize(width, height)) return false;
            v.SetSize(HOSize(width, height));
            return true;
        },
        kResizeDelayMs);
}

void HOViewportView::SetSize(const HOSize& size) {
    SetSize(size.width, size.height);
}

HORect HOViewportView::GetExtent() {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_viewport.Extent();
}

void HOViewportView::SetExtent(const HORect& extent) {
    Navigate([&](HOViewport& v) { return v.Fit(extent); });
}

HOPoint HOViewportView::GetCenter() {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_viewport.HasExtent() ? m_viewport.Center() : m_viewport.Extent().Center();
}

double HOViewportView::GetScale() {
    double unitsPerPixel = 0.0, dpi = 0.0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_viewport.IsDrawable()) return 0.0;
        unitsPerPixel = m_viewport.ScaleUnitsPerPixel();
        dpi = m_dpi;
    }
    return HOMapScale::Denominator(unitsPerPixel, MetresPerUnit(), dpi);
}

void HOViewportView::SetScale(double denominator) {
    double dpi = 0.0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        dpi = m_dpi;
    }
    const double unitsPerPixel = HOMapScale::UnitsPerPixel(denominator, MetresPerUnit(), dpi);
    Navigate([&](HOViewport& v) { return v.SetUnitsPerPixel(unitsPerPixel / v.Magnification()); });
}

void HOViewportView::SetMagnification(double magnification) {
    Navigate([&](HOViewport& v) { return v.SetMagnification(magnification); });
}

void HOViewportView::SetCurrentTool(HOTool* tool) {
    HORefPtr<HOTool> old;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        old = m_tool;
        m_tool = tool;
    }
    if (old && old != tool && old->GetView() == this) old->SetView(nullptr);
    if (tool) tool->SetView(this);
}

void HOViewportView::ZoomIn() {
    ZoomByFactor(1.0 / kZoomStep, nullptr);
}

void HOViewportView::ZoomOut() {
    ZoomByFactor(kZoomStep, nullptr);
}

void HOViewportView::ZoomByFactor(double factor, const HOPoint* centre) {
    Navigate([&](HOViewport& v) { return v.ZoomByFactor(factor, centre ? *centre : v.Center()); });
}

HODisplay* HOViewportView::GetScreenDisplay() {
    return &m_display;
}

HODisplayTransform HOViewportView::GetDisplayTransform() {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_viewport.Transform();
}

void HOViewportView::SetToolBuddy(HOToolBuddy* buddy) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_buddy = buddy;
}

HOTool* HOViewportView::GetCurrentTool() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_tool.get();
}

HOToolBuddy* HOViewportView::GetToolBuddy() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_buddy;
}

}  // namespace HXObjects
