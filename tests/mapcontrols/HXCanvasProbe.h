#pragma once
// Reading what a canvas shows: its render toggle, pixel counts and image differences.
#include <QImage>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>

#include "HXMapCanvas.h"

namespace HXCanvasProbe {

inline QToolButton* RenderToggle(HXMapCanvas& canvas) {
    for (auto* button : canvas.StatusBar()->findChildren<QToolButton*>())
        if (button->toolTip() == "Toggles pause refresh and continue") return button;
    return nullptr;
}

inline int CountPixels(const QImage& image, const QColor& colour) {
    int n = 0;
    for (int row = 0; row < image.height(); ++row)
        for (int col = 0; col < image.width(); ++col) n += image.pixelColor(col, row) == colour;
    return n;
}

// The largest difference of any colour channel of any pixel; -1 when the sizes differ.
inline int MaxDifference(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return -1;
    const QImage x = a.convertToFormat(QImage::Format_ARGB32);
    const QImage y = b.convertToFormat(QImage::Format_ARGB32);
    int worst = 0;
    for (int row = 0; row < x.height(); ++row) {
        for (int col = 0; col < x.width(); ++col) {
            const QRgb p = x.pixel(col, row), q = y.pixel(col, row);
            worst = std::max({worst, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                              std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return worst;
}

}  // namespace HXCanvasProbe
