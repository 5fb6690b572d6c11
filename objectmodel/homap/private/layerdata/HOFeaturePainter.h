#pragma once
// HOFeaturePainter: draws features of one store through one painter — polygons filled and outlined,
// lines stroked, points stamped from a marker image cached per style. One per painting thread; it
// sets the painter's pen and brush only when the style changes.
#include "HOFeatureStore.h"
#include "HOMarkerBlitter.h"
#include "HOPixelPath.h"
#include "HOStyle.h"

#include <QImage>
#include <map>

class QPainter;

namespace HXObjects {

class HOFeaturePainter {
public:
    HOFeaturePainter(QPainter& painter, const HOFeatureStore& store, const HODisplayTransform& transform);

    // `bulkStyle` marks the style most features share: its markers skip pixels already stamped.
    void Draw(uint32_t feature, const HOStyle& style, bool bulkStyle);

private:
    void useStyle(const HOStyle& style);
    void drawPolygon(uint32_t feature);
    void drawLine(uint32_t feature);
    void drawPoints(uint32_t feature, const HOStyle& style, bool bulkStyle);
    const HOVertex* vertex(uint32_t index) const { return m_store.Vertices().data() + index; }

    QPainter& m_painter;
    const HOFeatureStore& m_store;
    const HOFeatureTopology& m_topology;
    HOPixelPath m_path;
    HOMarkerBlitter m_blitter;
    const HOStyle* m_current = nullptr;
    std::map<const HOStyle*, QImage> m_markers;
};

}  // namespace HXObjects
