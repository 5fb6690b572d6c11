#pragma once
// HOFeaturePainter: draws features of one store through one painter — polygons filled and outlined,
// lines stroked, points stamped from a marker image cached per style; a polygon or line smaller than
// a pixel still takes one pixel. One per painting thread; it sets the painter's pen and brush only
// when the style changes. On a vector device (PDF, printer) it draws paths and marker shapes, so the
// output stays vectors.
#include <QBrush>
#include <QImage>
#include <QPen>
#include <map>

#include "HOStyle.h"
#include "render/private/HOLineRasterizer.h"
#include "render/private/HOMarkerBlitter.h"
#include "render/private/HOMarkerPathBatch.h"
#include "render/private/HOPixelPath.h"
#include "render/private/HOPolygonFiller.h"
#include "source/private/HOFeatureStore.h"

class QPainter;

namespace HXObjects {

class HOFeaturePainter {
public:
    HOFeaturePainter(QPainter& painter, const HOFeatureStore& store, const HODisplayTransform& transform);

    // Draws the parts [firstPart, endPart) of one feature as `kind`. `bulkStyle` marks the style most
    // features share: its markers skip pixels already stamped.
    void Draw(HOFeatureKind kind, uint32_t firstPart, uint32_t endPart, const HOStyle& style, bool bulkStyle);

private:
    void useStyle(const HOStyle& style);
    // Switches the painter between filling (no pen) and stroking (no brush) only when needed.
    void beginFill();
    void beginStroke();
    void stroke(const QPointF* points, int count, bool acrossImage);
    // One pixel at the centre of the path, in the style's most visible colour.
    void dot();
    void drawPolygon(uint32_t firstPart, uint32_t endPart);
    void drawPolygonPath(uint32_t firstPart, uint32_t endPart);
    void drawLine(uint32_t firstPart, uint32_t endPart);
    void drawPoints(uint32_t firstPart, uint32_t endPart, const HOStyle& style, bool bulkStyle);
    const HOVertex* vertex(uint32_t index) const { return m_store.Vertices().data() + index; }

    QPainter& m_painter;
    const HOFeatureStore& m_store;
    const HOFeatureTopology& m_topology;
    std::map<const HOStyle*, QImage> m_markers;  // before the blitter, which stamps them until it goes
    HOPixelPath m_path;
    HOMarkerBlitter m_blitter;
    HOMarkerPathBatch m_markerPaths;  // draws what it gathered when it goes, before the painter state below
    HODirectTarget m_target;          // invalid: draw dots through the painter
    HOLineRasterizer m_rasterizer;    // after the path: flushes what it queued when it goes
    HOPolygonFiller m_filler;
    uint32_t m_fillColor = 0;       // premultiplied; 0: m_brush is not one m_filler draws
    bool m_rasterizeLines = false;  // the current pen is drawn by m_rasterizer
    const HOStyle* m_current = nullptr;
    QPen m_pen;
    QPen m_casing;  // beneath the line pen; NoPen for most styles
    QBrush m_brush;
    bool m_antialias;
    bool m_vector;  // the device keeps vectors: shapes and paths instead of pictures and joined rings
    // Markers as shapes rather than stamped pictures: on vector devices, and on HiDPI pictures, where a
    // picture made in logical pixels would be scaled up and blurred.
    bool m_markerShapes;
    enum class Mode { Unset, Fill, Stroke } m_mode = Mode::Unset;
    const HOStyle* m_currentMarker = nullptr;
};

}  // namespace HXObjects
