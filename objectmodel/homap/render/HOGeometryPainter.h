#pragma once
// HOGeometryPainter: draws a standalone geometry (map coordinates) with a style onto a painter through
// a display transform: markers for points, pens for lines, fills for polygons (odd-even rings). Used
// for the graphics layer's elements and for flashing a geometry.
#include <QPainterPath>

#include "HODisplayTransform.h"
#include "HOGeometry.h"
#include "HOStyle.h"

class QPainter;

namespace HXObjects {

class HOGeometryPainter {
public:
    HOGeometryPainter(QPainter& painter, const HODisplayTransform& transform);

    // A null style draws with a default one of the geometry's kind.
    void Draw(const HOGeometry& geometry, const HOStyle* style);
    // An outline over the geometry in the colour, `width` pixels wide (selection, flashing).
    void DrawHighlight(const HOGeometry& geometry, const QColor& color, double width);

private:
    QPainterPath path(const HOGeometry& geometry, bool closed) const;
    template <class DrawAt>
    void eachPoint(const HOGeometry& geometry, DrawAt drawAt) const;
    static bool isPoint(const HOGeometry& geometry);
    static bool isArea(const HOGeometry& geometry);

    QPainter& m_painter;
    HODisplayTransform m_transform;
};

}  // namespace HXObjects
