#include "HOFeaturePainter.h"

#include "HOStylePainter.h"

#include <QPainter>

namespace HXObjects {

HOFeaturePainter::HOFeaturePainter(QPainter& painter, const HOFeatureStore& store, const HODisplayTransform& transform)
    : m_painter(painter), m_store(store), m_topology(store.Topology()), m_path(transform), m_blitter(painter) {}

void HOFeaturePainter::Draw(uint32_t feature, const HOStyle& style, bool bulkStyle) {
    switch (m_topology.Kind(feature)) {
    case HOFeatureKind::Polygon:
        useStyle(style);
        drawPolygon(feature);
        break;
    case HOFeatureKind::Line:
        useStyle(style);
        drawLine(feature);
        break;
    case HOFeatureKind::Point:
        drawPoints(feature, style, bulkStyle);
        break;
    case HOFeatureKind::Empty:
        break;
    }
}

void HOFeaturePainter::useStyle(const HOStyle& style) {
    if (m_current == &style) return;
    m_current = &style;
    m_painter.setPen(HOStylePainter::Pen(style));
    m_painter.setBrush(HOStylePainter::Brush(style));
}

void HOFeaturePainter::drawPolygon(uint32_t feature) {
    const uint32_t firstPart = m_topology.PartBegin(feature), endPart = m_topology.PartEnd(feature);
    m_path.Clear();
    QPointF start;
    for (uint32_t part = firstPart; part < endPart; ++part) {
        const int kept = m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part)));
        if (kept == 0) continue;
        const QPointF first = m_path.Points()[m_path.Size() - kept];
        // Each ring is closed and the path returns to the first ring's start, so the joins run
        // forth and back over the same segment and cancel out in the odd-even fill.
        m_path.AppendPoint(first);
        if (m_path.Size() == kept + 1)
            start = first;
        else
            m_path.AppendPoint(start);
    }
    // Smaller than a pixel: invisible at this scale.
    if (m_path.Size() < 3 || (m_path.Width() < 1.0 && m_path.Height() < 1.0)) return;
    if (endPart - firstPart == 1) {
        m_painter.drawPolygon(m_path.Points(), m_path.Size(), Qt::OddEvenFill);
        return;
    }
    const QPen pen = m_painter.pen();
    m_painter.setPen(Qt::NoPen);
    m_painter.drawPolygon(m_path.Points(), m_path.Size(), Qt::OddEvenFill);
    m_painter.setPen(pen);
    if (pen.style() == Qt::NoPen) return;
    for (uint32_t part = firstPart; part < endPart; ++part) {
        m_path.Clear();
        if (m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part))) > 1)
            m_painter.drawPolyline(m_path.Points(), m_path.Size());
    }
}

void HOFeaturePainter::drawLine(uint32_t feature) {
    for (uint32_t part = m_topology.PartBegin(feature); part < m_topology.PartEnd(feature); ++part) {
        m_path.Clear();
        if (m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part))) < 2) continue;
        if (m_path.Width() < 1.0 && m_path.Height() < 1.0) continue;
        m_painter.drawPolyline(m_path.Points(), m_path.Size());
    }
}

void HOFeaturePainter::drawPoints(uint32_t feature, const HOStyle& style, bool bulkStyle) {
    auto it = m_markers.find(&style);
    if (it == m_markers.end()) it = m_markers.emplace(&style, HOStylePainter::MarkerImage(style)).first;
    m_blitter.SetMarker(&it->second, bulkStyle);
    const uint32_t first = m_topology.VertexBegin(m_topology.PartBegin(feature));
    const uint32_t end = m_topology.VertexBegin(m_topology.PartEnd(feature));
    for (uint32_t v = first; v < end; ++v) m_blitter.Stamp(m_path.ToDevice(*vertex(v)));
}

}  // namespace HXObjects
