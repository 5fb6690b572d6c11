#pragma once
// HOViewport: where a view looks — its pixel size, the map point at its centre and the map units per
// pixel shown (pixels are square). A plain value; the view that owns it guards it with its own lock.
//
// Every change keeps within the viewport's limits (see Limits): a zoom or fit that would pass them
// stops at them, a centre beyond them is moved back. A magnification draws the map larger without
// changing its scale: the units per pixel shown are the scale's units per pixel divided by it.
#include <limits>

#include "HODisplayTransform.h"
#include "HORect.h"
#include "HOSize.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOViewport {
public:
    // How far navigation may go, in map units: the units per pixel shown, and how far the centre may
    // lie from the origin along either axis. The default limits nothing.
    struct Limits {
        double minUnitsPerPixel = 0.0;
        double maxUnitsPerPixel = std::numeric_limits<double>::infinity();
        double maxCentre = std::numeric_limits<double>::infinity();
    };

    HOSize Size() const { return m_size; }
    bool HasExtent() const { return m_hasExtent; }
    // True when there is something to draw: a size and an extent.
    bool IsDrawable() const { return m_hasExtent && m_size.width > 0 && m_size.height > 0; }

    // The limits of the following changes; what is shown now is left as it is.
    void SetLimits(const Limits& limits) { m_limits = limits; }
    // Keeps the centre and the scale. The first usable size fits an extent asked for before it.
    void SetSize(const HOSize& size);
    // Makes the rectangle visible, centred, with square pixels, `marginPixels` in from each edge
    // where the size allows. False (nothing changes) for an empty or non-finite rectangle.
    bool Fit(const HORect& rect, int marginPixels = 0);
    // Keeps the centre; false for a non-positive or non-finite value or before there is an extent.
    bool SetUnitsPerPixel(double unitsPerPixel);
    // Multiplies the units per pixel by the factor; the map point `fixed` keeps its pixel (unless a
    // limit stops the zoom).
    bool ZoomByFactor(double factor, const HOPoint& fixed);
    bool SetCenter(const HOPoint& centre);
    // Keeps the centre and the scale; false for a non-positive or non-finite factor.
    bool SetMagnification(double magnification);
    // Forgets the extent (shown or asked for); keeps the size, the limits and the magnification.
    void Clear();

    HOPoint Center() const { return m_center; }
    double UnitsPerPixel() const { return m_unitsPerPixel; }
    double Magnification() const { return m_magnification; }
    // The units per pixel that the scale is reckoned from: those shown, times the magnification.
    double ScaleUnitsPerPixel() const { return m_unitsPerPixel * m_magnification; }
    HODisplayTransform Transform() const;
    // The visible extent; before the view has a size, the extent asked for.
    HORect Extent() const;

private:
    double limitedUnitsPerPixel(double unitsPerPixel) const;
    HOPoint limitedCentre(const HOPoint& centre) const;

    HOSize m_size;
    HOPoint m_center;
    double m_unitsPerPixel = 1.0;
    double m_magnification = 1.0;
    bool m_hasExtent = false;
    HORect m_pendingFit;
    int m_pendingMargin = 0;
    Limits m_limits;
};

}  // namespace HXObjects
