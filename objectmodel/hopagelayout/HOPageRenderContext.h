#pragma once
// HOPageRenderContext: how a page is being drawn — the transform from page millimetres to the device's
// pixels, the device's dots per inch, and whether it is for output (paper or a file: maps are drawn
// now, at the device's resolution, and no editing marks) or for the screen (maps show their finished
// pictures). Elements size everything in millimetres through it, so the screen at any zoom, a 300 dpi
// PDF and a printer get the same page.
#include <QRectF>

#include "HODisplayTransform.h"
#include "HORect.h"
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HOPageRenderContext {
    HODisplayTransform transform;  // page units (mm) -> device pixels
    double dpi = 96.0;
    bool output = false;

    double PixelsPerMm() const { return 1.0 / transform.unitsPerPixel; }
    double ToPixels(double mm) const { return mm / transform.unitsPerPixel; }
    // A page rectangle (y up) as a device rectangle (y down).
    QRectF ToDevice(const HORect& page) const {
        const HOPoint a = transform.ToDevice({page.minx, page.maxy});
        const HOPoint b = transform.ToDevice({page.maxx, page.miny});
        return QRectF(QPointF(a.x, a.y), QPointF(b.x, b.y));
    }
};

}  // namespace HXObjects
