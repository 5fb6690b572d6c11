#pragma once
// HOViewportView: what a map view and a page-layout view do alike — a viewport navigated under one
// lock, the screen display that mirrors it, zooming, the middle-button pan, and the current tool (with
// its buddy) that receives the input. A derived view says what a navigation means to it (render again,
// lay frames out again), how many metres one of its units is, how far it may be navigated and how a
// pan moves it. Whenever its scale changes it tells its tool buddy (ScaleChanged), so that a host
// that shows it learns of every zoom.
//
// Threads: navigation and input on the GUI thread; the lock, the display transform and the screen
// display may be used from a render thread. No lock is held while a signal fires or a hook runs.
#include <QPoint>
#include <functional>
#include <mutex>

#include "HORefPtr.h"
#include "HOView.h"
#include "HOViewport.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOViewportView : public HOView {
public:
    // HOView, in table order; the operations left out are the derived view's.
    bool KeyDown(int key) override;
    void MouseDown(int button, int x, int y) override;
    void MouseUp(int button, int x, int y) override;
    void MouseMove(int button, int x, int y) override;
    void DoubleClick(int button, int x, int y) override;
    void Wheel(int reserved, int delta, int x, int y) override;
    void SetSize(int width, int height) override;
    void SetSize(const HOSize& size) override;
    HORect GetExtent() override;
    void SetExtent(const HORect& extent) override;
    HOPoint GetCenter() override;
    double GetScale() override;
    void SetScale(double denominator) override;
    void SetCurrentTool(HOTool* tool) override;
    void ZoomIn() override;
    void ZoomOut() override;
    void ZoomByFactor(double factor, const HOPoint* centre) override;
    HODisplay* GetScreenDisplay() override;
    HODisplayTransform GetDisplayTransform() override;
    void SetToolBuddy(HOToolBuddy* buddy) override;
    HOTool* GetCurrentTool() const override;
    HOToolBuddy* GetToolBuddy() const override;

    // Draws the view `magnification` times larger without changing its scale (a non-positive or
    // non-finite factor is ignored).
    void SetMagnification(double magnification);

protected:
    // Shows `initial` once the view has a size (an empty rectangle: nothing yet).
    explicit HOViewportView(const HORect& initial = HORect());
    ~HOViewportView() override;

    // Applies a change to the viewport under the lock; the change returns false when it changed
    // nothing. When the extent or the scale really changed it then, without the lock, calls
    // OnExtentChanged (extent changed), fires ScaleChangedSignal (scale changed), calls OnNavigated
    // and fires RedrawSignal. True when something changed.
    bool Navigate(const std::function<bool(HOViewport&)>& change, int settleDelayMs = 0);
    void FireRedraw();

    // Guards the viewport, the dpi and the tool, and whatever a derived view must read consistently
    // with them (a render thread's snapshot).
    std::mutex& Mutex() const;
    // These three need Mutex() held.
    const HOViewport& LockedViewport() const;
    double LockedDpi() const;
    HORefPtr<HOTool> LockedTool() const;

private:
    // The hooks run without the lock.
    virtual void OnExtentChanged() {}
    // The limits every navigation keeps within; none by default.
    virtual HOViewport::Limits NavigationLimits() const { return {}; }
    // After a real navigation, before RedrawSignal. A costly reaction may wait `settleDelayMs` for
    // more changes (a resize in progress).
    virtual void OnNavigated(int settleDelayMs) = 0;
    virtual double MetresPerUnit() const = 0;
    virtual void OnPanStarted() = 0;
    // The middle-button drag is (dx, dy) pixels from where it started; `released` when it ended there.
    virtual void OnPanDragged(int dx, int dy, bool released) = 0;

    // For the pan button (true): moves the drag under way, if any; `released` ends it.
    bool DragPan(int button, int x, int y, bool released);

    HODisplay m_display;  // has its own lock; mirrors the viewport for readers of the screen display

    mutable std::mutex m_mutex;  // guards the members below
    HOViewport m_viewport;
    double m_dpi;
    HORefPtr<HOTool> m_tool;
    HOToolBuddy* m_buddy = nullptr;
    QPoint m_panStart;
    bool m_panning = false;  // a release without its press (pressed outside the view) must not pan
};

}  // namespace HXObjects
