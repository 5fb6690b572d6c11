#include "render/private/HOMarkerPathBatch.h"

#include <QPainter>
#include <cmath>

#include "HOStylePainter.h"

namespace HXObjects {

void HOMarkerPathBatch::Add(const HOStyle& style, const QPointF& centre) {
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y())) return;
    if (&style != m_style || m_count >= kMaxRun) {
        Flush();
        if (&style != m_style) m_shape = HOStylePainter::MarkerPath(style);
        m_style = &style;
    }
    m_path.addPath(m_shape.translated(centre));
    ++m_count;
}

void HOMarkerPathBatch::Flush() {
    if (m_count == 0 || !m_style) return;
    m_path.setFillRule(Qt::WindingFill);
    m_painter.save();
    HOStylePainter::DrawMarkerPath(m_painter, *m_style, m_path);
    m_painter.restore();
    m_path = QPainterPath();
    m_count = 0;
}

}  // namespace HXObjects
