#pragma once
// HORubberBandTool: the base of the tools that act on a click or on a box dragged with the left
// button. While dragging, the box is drawn over the map as the tool's temporary drawing; on release
// the subclass gets either the clicked map point or the box in map units. A right click asks for the
// context menu.
#include "HOMapTool.h"
#include "HORect.h"

class QRectF;

namespace HXObjects {

class HORubberBandTool : public HOMapTool {
public:
    void Deactivate() override;
    void ClearToolPaint() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseMove(int button, int x, int y) override;
    void OnMouseUp(int button, int x, int y) override;
    void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) override;

    // A drag shorter than this (pixels, each way) is a click at the press point.
    static constexpr int kMinimumBoxPixels = 3;
    // True when the pointer went far enough from the press point for a box.
    static bool IsBox(int pressX, int pressY, int x, int y);
    // Draws a box being dragged (device pixels).
    static void DrawBand(QPainter& painter, const QRectF& box);

protected:
    virtual void OnClick(const HOPoint& point) = 0;
    virtual void OnBox(const HORect& box) = 0;

private:
    HORect boxTo(int x, int y) const;
    void setBand(const HORect& band);

    bool m_pressed = false;
    int m_pressX = 0, m_pressY = 0;
    HORect m_band;  // map units; empty while nothing is drawn (guarded by paintMutex)
};

}  // namespace HXObjects
