#include "render/private/HOFeaturePainter.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "HOStylePainter.h"

namespace HXObjects {

HOFeaturePainter::HOFeaturePainter(QPainter& painter, const HOFeatureStore& store,
                                   const HODisplayTransform& transform)
    : m_painter(painter),
      m_store(store),
      m_topology(store.Topology()),
      m_path(transform),
      m_blitter(painter),
      m_markerPaths(painter),
      m_target(HODirectTarget::Of(painter)),
      m_rasterizer(m_target, painter.testRenderHint(QPainter::Antialiasing)),
      m_filler(m_target),
      m_antialias(painter.testRenderHint(QPainter::Antialiasing)),
      m_vector(painter.paintEngine() && painter.paintEngine()->type() != QPaintEngine::Raster),
      m_markerShapes(m_vector || (painter.device() && painter.device()->devicePixelRatioF() != 1.0)) {}

void HOFeaturePainter::Draw(HOFeatureKind kind, uint32_t firstPart, uint32_t endPart, const HOStyle& style,
                            bool bulkStyle) {
    // Whatever is queued was drawn before these parts.
    if (kind != HOFeatureKind::Point) {
        m_blitter.Flush();
        m_markerPaths.Flush();
    }
    if (kind != HOFeatureKind::Line) m_rasterizer.Flush();
    switch (kind) {
        case HOFeatureKind::Polygon:
            useStyle(style);
            drawPolygon(firstPart, endPart);
            break;
        case HOFeatureKind::Line:
            useStyle(style);
            drawLine(firstPart, endPart);
            break;
        case HOFeatureKind::Point:
            drawPoints(firstPart, endPart, style, bulkStyle);
            break;
        case HOFeatureKind::Empty:
            break;
    }
}

void HOFeaturePainter::useStyle(const HOStyle& style) {
    if (m_current == &style) return;
    m_current = &style;
    m_pen = HOStylePainter::Pen(style);
    m_casing = HOStylePainter::CasingPen(style);
    m_brush = HOStylePainter::Brush(style);
    m_mode = Mode::Unset;
    // Our own fill where QPainter's would be aliased too: a solid brush under an outline.
    const bool ownFill =
        m_target.IsValid() && m_brush.style() == Qt::SolidPattern && m_pen.style() != Qt::NoPen;
    m_fillColor = ownFill ? qPremultiply(m_brush.color().rgba()) : 0;
    // A hairline (width 0) on paper would be the printer's thinnest line: draw one screen pixel wide.
    if (m_vector && m_pen.style() != Qt::NoPen && m_pen.widthF() == 0.0) m_pen.setWidthF(1.0);
    // A cased line is drawn in two passes through the painter, so nothing may wait in the queue.
    const bool cased = m_casing.style() != Qt::NoPen;
    if (cased) m_rasterizer.Flush();
    m_rasterizeLines = !cased && m_target.IsValid() && HOLineRasterizer::Handles(m_pen);
    if (m_rasterizeLines) m_rasterizer.SetColor(m_pen.color());
}

void HOFeaturePainter::stroke(const QPointF* points, int count, bool acrossImage) {
    if (m_rasterizeLines) {
        m_rasterizer.DrawPolyline(points, count, acrossImage);
        return;
    }
    beginStroke();
    m_painter.drawPolyline(points, count);
}

// Filling and stroking in separate calls is several times faster in the raster engine than one
// call doing both. Under an outline the fill's own edge is hidden, so it is filled without
// antialiasing, which costs half as much.
void HOFeaturePainter::beginFill() {
    if (m_mode == Mode::Fill) return;
    m_mode = Mode::Fill;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_brush);
    if (m_antialias) m_painter.setRenderHint(QPainter::Antialiasing, m_pen.style() == Qt::NoPen);
}

void HOFeaturePainter::beginStroke() {
    if (m_mode == Mode::Stroke) return;
    m_mode = Mode::Stroke;
    m_painter.setPen(m_pen);
    m_painter.setBrush(Qt::NoBrush);
    if (m_antialias) m_painter.setRenderHint(QPainter::Antialiasing, true);
}

void HOFeaturePainter::dot() {
    // The outline's colour where there is one: a translucent fill would hardly show in one pixel.
    const QColor colour = m_pen.style() != Qt::NoPen ? m_pen.color() : m_brush.color();
    const QPointF centre = m_path.Centre();
    // Far off the image (and beyond what an int holds): nothing to draw.
    if (!(std::fabs(centre.x()) < 1e9 && std::fabs(centre.y()) < 1e9)) return;
    const int x = int(std::floor(centre.x())), y = int(std::floor(centre.y()));
    m_rasterizer.Flush();
    if (!m_target.IsValid()) {
        m_painter.fillRect(QRect(x, y, 1, 1), colour);
        return;
    }
    if (x >= 0 && y >= m_target.top && x < m_target.width && y < m_target.bottom)
        HODirectTarget::Blend(m_target.bits[y * m_target.stride + x], qPremultiply(colour.rgba()));
}

void HOFeaturePainter::drawPolygon(uint32_t firstPart, uint32_t endPart) {
    if (m_vector) {
        drawPolygonPath(firstPart, endPart);
        return;
    }
    m_path.Clear();
    QPointF start;
    for (uint32_t part = firstPart; part < endPart; ++part) {
        const int kept =
            m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part)));
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
    if (m_path.Size() == 0) return;
    // Smaller than a pixel: still one pixel, so that small islands show at any scale.
    if (m_path.Width() < 1.0 && m_path.Height() < 1.0) return dot();
    if (m_path.Size() < 3) return;
    if (m_fillColor && HOPolygonFiller::Handles(m_path.Width(), m_path.Height())) {
        m_filler.Fill(m_path.Points(), m_path.Size(), m_fillColor);
    } else if (m_brush.style() != Qt::NoBrush) {
        beginFill();
        m_painter.drawPolygon(m_path.Points(), m_path.Size(), Qt::OddEvenFill);
    }
    if (m_pen.style() == Qt::NoPen) return;
    if (endPart - firstPart == 1) {
        stroke(m_path.Points(), m_path.Size(), false);
        return;
    }
    for (uint32_t part = firstPart; part < endPart; ++part) {
        m_path.Clear();
        if (m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part))) > 1)
            stroke(m_path.Points(), m_path.Size(), false);
    }
}

// On a vector device (PDF, printer) each ring is a closed subpath of its own: the joins that cancel out
// in the raster engine's fill would show there as hairlines.
void HOFeaturePainter::drawPolygonPath(uint32_t firstPart, uint32_t endPart) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (uint32_t part = firstPart; part < endPart; ++part) {
        m_path.Clear();
        if (m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part))) < 3)
            continue;
        path.moveTo(m_path.Points()[0]);
        for (int i = 1; i < m_path.Size(); ++i) path.lineTo(m_path.Points()[i]);
        path.closeSubpath();
    }
    const QRectF bounds = path.boundingRect();
    if (path.isEmpty() || (bounds.width() < 1.0 && bounds.height() < 1.0)) return;
    if (m_brush.style() != Qt::NoBrush) {
        beginFill();
        m_painter.drawPath(path);
    }
    if (m_pen.style() == Qt::NoPen) return;
    beginStroke();
    m_painter.drawPath(path);
}

void HOFeaturePainter::drawLine(uint32_t firstPart, uint32_t endPart) {
    for (uint32_t part = firstPart; part < endPart; ++part) {
        m_path.Clear();
        if (m_path.Append(vertex(m_topology.VertexBegin(part)), vertex(m_topology.VertexEnd(part))) == 0)
            continue;
        if (m_path.Width() < 1.0 && m_path.Height() < 1.0) {
            dot();
            continue;
        }
        if (m_casing.style() != Qt::NoPen) {
            beginStroke();
            m_painter.setPen(m_casing);
            m_painter.drawPolyline(m_path.Points(), m_path.Size());
            m_painter.setPen(m_pen);
        }
        stroke(m_path.Points(), m_path.Size(), true);
    }
}

void HOFeaturePainter::drawPoints(uint32_t firstPart, uint32_t endPart, const HOStyle& style,
                                  bool bulkStyle) {
    const uint32_t first = m_topology.VertexBegin(firstPart);
    const uint32_t end = m_topology.VertexBegin(endPart);
    if (m_markerShapes) {
        for (uint32_t v = first; v < end; ++v) m_markerPaths.Add(style, m_path.ToDevice(*vertex(v)));
        return;
    }
    if (&style != m_currentMarker) {
        auto it = m_markers.find(&style);
        if (it == m_markers.end()) it = m_markers.emplace(&style, HOStylePainter::MarkerImage(style)).first;
        m_blitter.SetMarker(&it->second, bulkStyle);
        m_currentMarker = &style;
    }
    for (uint32_t v = first; v < end; ++v) m_blitter.Stamp(m_path.ToDevice(*vertex(v)));
}

}  // namespace HXObjects
