#pragma once
// HOMapGridOverlay: the ruler-and-grid layer drawn over a map view's picture. For now it draws the
// kilometre grid's lines (at the set spacing, or a round spacing of about 100 pixels); the rulers and
// the longitude/latitude grid, which need the map's geographic conversion, come with the ruler work.
#include "HODisplayTransform.h"
#include "HOMapRulerAndGrid.h"
#include "HOSize.h"

class QPainter;

namespace HXObjects {

class HOMapGridOverlay {
public:
    static bool IsEnabled(const HOMapRulerAndGrid& settings);
    static void Draw(QPainter& painter, const HOMapRulerAndGrid& settings,
                     const HODisplayTransform& transform, const HOSize& size);
    // A 1, 2 or 5 times a power of ten about `pixels` wide at the transform's scale.
    static double RoundSpacing(double unitsPerPixel, double pixels);

private:
    // True when lines `step` apart across [from, to] are few enough to draw: a mistyped tiny spacing
    // draws nothing rather than millions of lines.
    static bool linesFit(double from, double to, double step);
};

}  // namespace HXObjects
