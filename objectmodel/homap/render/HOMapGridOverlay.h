#pragma once
// HOMapGridOverlay: draws a map view's coordinate grids and rulers, as its HOMapRulerAndGrid says,
// into any painter (the view's surface, a page layout's data frame, a printer).
//
//  - The BL grid: meridians and parallels at whole multiples of the spacing from the start
//    position, computed in longitude/latitude of the map's datum and projected into the map
//    (densified, so they curve where the projection curves them), at the set spacing or an
//    automatic one from a ladder of round angles chosen from the map scale (HOGridSpacing).
//  - The KM grid: lines of whole multiples of the spacing in map units, at the set spacing or
//    automatically "by map scale" (a round 1-2-5 distance at least 2 cm on the sheet) or "by scale
//    unit" (a whole power of ten of the ruler's unit at least 1 cm on the sheet). A projected map
//    only; a geographic map has none of its own.
//  - At large scales a geographic map's BL grid becomes a kilometre grid: when the map scale is at
//    least the conversion scale (its denominator at most the set one), the BL grid is drawn as
//    the Gauss-Krueger 3-degree zone's kilometre grid at the view's centre, with the BL grid's
//    look and the KM grid's spacing rule.
//  - Rulers: each grid's ruler is a band round the map with a tick where a line meets the frame and
//    its value (degrees, minutes and seconds for BL, kilometres for KM); with both, the KM band is
//    the inner one.
// Lines are never drawn where the projection cannot carry them; a spacing that would draw more
// than a few hundred lines, or lines a few pixels apart, thins to a whole multiple of itself; a
// map without a coordinate system draws no BL grid.
//
// Each map view owns one; Draw may be called from any thread (calls are serialised), and keeps
// the projections it made for the last coordinate system it was given.
#include <QRectF>
#include <memory>
#include <mutex>

#include "HODisplayTransform.h"
#include "HOMapRulerAndGrid.h"
#include "HORefPtr.h"
#include "HOSize.h"

class QPainter;

namespace HXObjects {

class HOCoordinateSystem;

class HOMapGridOverlay {
public:
    // Where the grid is drawn: the painter's pixels, the map's system (null: none), the dpi the
    // scale is read at.
    struct Target {
        HODisplayTransform transform;
        HOSize size;
        HORefPtr<HOCoordinateSystem> system;
        double dpi = 96.0;
    };

    HOMapGridOverlay();
    ~HOMapGridOverlay();

    static bool IsEnabled(const HOMapRulerAndGrid& settings);
    void Draw(QPainter& painter, const HOMapRulerAndGrid& settings, const Target& target);
    // The map's frame inside the rulers drawn on the target (the whole target without rulers).
    QRectF MapFrame(const HOMapRulerAndGrid& settings, const Target& target);

private:
    static bool drawsOn(const HOMapRulerAndGrid& settings, const Target& target);
    class Private;
    std::unique_ptr<Private> d;
    std::mutex m_mutex;
};

}  // namespace HXObjects
