#pragma once
// HOView: what a map view and a page-layout view share, and all a canvas needs of either. The virtual
// operations are declared in their fixed table order.
#include "HODisplay.h"
#include "HOEventSignal.h"
#include "HORect.h"
#include "HORefBase.h"
#include "HOSize.h"
#include "HXExport.h"

namespace HXObjects {

class HOGraphics;
class HOTool;
class HOToolBuddy;

class HX_EXPORT HOView : public HORefBase {
public:
    // True when the view (its current tool) used the key.
    virtual bool KeyDown(int key) = 0;
    // Buttons: 1 left, 2 right, 3 middle, 0 none. x, y in widget pixels.
    virtual void MouseDown(int button, int x, int y) = 0;
    virtual void MouseUp(int button, int x, int y) = 0;
    virtual void MouseMove(int button, int x, int y) = 0;
    virtual void DoubleClick(int button, int x, int y) = 0;
    // Zooms about (x, y); the sign and size of delta choose direction and factor.
    virtual void Wheel(int reserved, int delta, int x, int y) = 0;
    virtual void SetSize(int width, int height) = 0;
    virtual void DrawTo(HOGraphics* surface, int reserved) = 0;
    virtual void SetSize(const HOSize& size) = 0;
    virtual HORect GetExtent() = 0;
    virtual void SetExtent(const HORect& extent) = 0;
    virtual void RefreshView(bool all) = 0;
    virtual void PauseRender() = 0;
    virtual void ResumeRender() = 0;
    virtual HOPoint GetCenter() = 0;
    // The scale denominator n of 1:n.
    virtual double GetScale() = 0;
    virtual void SetScale(double denominator) = 0;
    virtual void SetCurrentTool(HOTool* tool) = 0;
    virtual void ZoomIn() = 0;
    virtual void ZoomOut() = 0;
    // Multiplies the scale denominator (the visible extent) by the factor about the point, or about the
    // centre when null: a factor above 1 zooms out. The map point under `centre` stays put.
    virtual void ZoomByFactor(double factor, const HOPoint* centre) = 0;
    virtual HODisplay* GetScreenDisplay() = 0;
    virtual HODisplayTransform GetDisplayTransform() = 0;
    virtual void SetToolBuddy(HOToolBuddy* buddy) = 0;
    virtual void ResizeRefresh(int delayMs) = 0;

    virtual HOTool* GetCurrentTool() const = 0;
    virtual HOToolBuddy* GetToolBuddy() const = 0;

    // Fired when the view's picture changed and should be drawn again (possibly on a render thread).
    HOEventSignal RedrawSignal;
    // Fired with a non-null event when the scale really changed.
    HOEventSignal ScaleChangedSignal;

protected:
    HOView() = default;
    ~HOView() override = default;
};

}  // namespace HXObjects
