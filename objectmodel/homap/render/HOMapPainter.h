#pragma once
// HOMapPainter: draws a map at once, on the calling thread, into any painter — a PDF page, a printer,
// a print-resolution image. It uses the same layer drawing as a map view's render thread; vector
// layers, the graphics layer and the grid are drawn in screen pixels scaled to the device's dots per
// inch (so a line one pixel wide on screen is 1/96 inch on paper and stays a vector), while rasters
// are read at the device's own resolution.
#include "HODisplayTransform.h"
#include "HOSize.h"

class QPainter;

namespace HXObjects {

class HOMap;
class HOMapRulerAndGrid;
class HOTrackCancel;

class HOMapPainter {
public:
    // The dots per inch a map view's drawing is designed for.
    static constexpr double kScreenDpi = 96.0;

    // `transform` maps the map to device pixels of the painter's device; `size` is the area drawn
    // (device pixels from the transform's device origin); `grid` may be null.
    static void Paint(QPainter& painter, const HOMap& map, const HODisplayTransform& transform,
                      const HOSize& size, double dpi, const HOMapRulerAndGrid* grid,
                      const HOTrackCancel* cancel = nullptr);
};

}  // namespace HXObjects
