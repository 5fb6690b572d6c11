#include "HORubberBandTool.h"

#include <QPainter>
#include <cstdlib>

namespace HXObjects {

void HORubberBandTool::Deactivate() {
    m_pressed = false;
    ClearToolPaint();
    HOMapTool::Deactivate();
}

void HORubberBandTool::ClearToolPaint() {
    setBand(HORect());
}

void HORubberBandTool::OnMouseDown(int button, int x, int y) {
    if (button != 1 || !MapView()) return;
    m_pressed = true;
    m_pressX = x;
    m_pressY = y;
}

void HORubberBandTool::OnMouseMove(int, int x, int y) {
    if (m_pressed) setBand(IsBox(m_pressX, m_pressY, x, y) ? boxTo(x, y) : HORect());
}

void HORubberBandTool::OnMouseUp(int button, int x, int y) {
    if (button == 2) OpenContextMenu(x, y);
    if (button != 1 || !m_pressed) return;
    m_pressed = false;
    setBand(HORect());
    if (!MapView()) return;
    if (IsBox(m_pressX, m_pressY, x, y)) {
        OnBox(boxTo(x, y));
    } else {
        OnClick(ToMap(m_pressX, m_pressY));
    }
}

void HORubberBandTool::DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) {
    std::lock_guard<std::mutex> lock(paintMutex());
    if (m_band.IsEmpty()) return;
    const HOPoint topLeft = transform.ToDevice(HOPoint(m_band.minx, m_band.maxy));
    const HOPoint bottomRight = transform.ToDevice(HOPoint(m_band.maxx, m_band.miny));
    DrawBand(painter, QRectF(QPointF(topLeft.x, topLeft.y), QPointF(bottomRight.x, bottomRight.y)));
}

void HORubberBandTool::DrawBand(QPainter& painter, const QRectF& box) {
    painter.save();
    painter.setPen(QPen(QColor(255, 0, 0), 1.0, Qt::DashLine));
    painter.setBrush(QColor(255, 0, 0, 40));
    painter.drawRect(box);
    painter.restore();
}

bool HORubberBandTool::IsBox(int pressX, int pressY, int x, int y) {
    return std::abs(x - pressX) >= kMinimumBoxPixels && std::abs(y - pressY) >= kMinimumBoxPixels;
}

HORect HORubberBandTool::boxTo(int x, int y) const {
    const HOPoint a = ToMap(m_pressX, m_pressY), b = ToMap(x, y);
    return HORect(std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.y, b.y));
}

void HORubberBandTool::setBand(const HORect& band) {
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        if (band == m_band) return;
        m_band = band;
    }
    RefreshPaint();
}

}  // namespace HXObjects
