#pragma once
// HOViewport: where a view looks — its pixel size, the map point at its centre and the map units per
// pixel (pixels are square). A plain value; the view that owns it guards it with its own lock.
#include "HODisplayTransform.h"
#include "HORect.h"
#include "HOSize.h"

namespace HXObjects {

class HOViewport {
public:
    HOSize Size() const { return m_size; }
    bool HasExtent() const { return m_hasExtent; }
    // True when there is something to draw: a size and an extent.
    bool IsDrawable() const { return m_hasExtent && m_size.width > 0 && m_size.height > 0; }

    // Keeps the centre and the scale. The first usable size fits an extent asked for before it.
    void SetSize(const HOSize& size);
    // Makes the rectangle visible, centred, with square pixels. False (nothing changes) for an empty
    // or non-finite rectangle.
    bool Fit(const HORect& rect);
    // Keeps the centre; false for a non-positive or non-finite value or before there is an extent.
    bool SetUnitsPerPixel(double unitsPerPixel);
    // Multiplies the units per pixel by the factor; the map point `fixed` keeps its pixel.
    bool ZoomByFactor(double factor, const HOPoint& fixed);
    bool SetCenter(const HOPoint& centre);

    HOPoint Center() const { return m_center; }
    double UnitsPerPixel() const { return m_unitsPerPixel; }
    HODisplayTransform Transform() const;
    // The visible extent; before the view has a size, the extent asked for.
    HORect Extent() const;

private:
    HOSize m_size;
    HOPoint m_center;
    double m_unitsPerPixel = 1.0;
    bool m_hasExtent = false;
    HORect m_pendingFit;
};

}  // namespace HXObjects
