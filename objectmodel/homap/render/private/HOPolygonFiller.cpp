#include "render/private/HOPolygonFiller.h"

#include <algorithm>
#include <cmath>

namespace HXObjects {

void HOPolygonFiller::Fill(const QPointF* input, int count, uint32_t color) {
    if (count < 3) return;
    // On QPainter's grid of 1/64 pixel.
    m_points.resize(std::size_t(count));
    for (int i = 0; i < count; ++i)
        m_points[std::size_t(i)] = {std::round(input[i].x() * 64) / 64, std::round(input[i].y() * 64) / 64};
    const QPointF* points = m_points.data();
    double top = points[0].y(), bottom = top;
    for (int i = 1; i < count; ++i) {
        top = std::min(top, points[i].y());
        bottom = std::max(bottom, points[i].y());
    }
    // Rows whose centre (y + 0.5) lies within the polygon's height.
    const int firstRow = std::max(m_target.top, int(std::ceil(top - 0.5)));
    const int endRow = std::min(m_target.bottom, int(std::ceil(bottom - 0.5)));
    for (int row = firstRow; row < endRow; ++row) {
        const double y = row + 0.5;
        m_crossings.clear();
        // Each edge counts from its upper end up to, not including, its lower one.
        for (int i = 0, j = count - 1; i < count; j = i++) {
            const QPointF &a = points[j], &b = points[i];
            if ((a.y() <= y) == (b.y() <= y)) continue;
            m_crossings.push_back(a.x() + (y - a.y()) * (b.x() - a.x()) / (b.y() - a.y()));
        }
        std::sort(m_crossings.begin(), m_crossings.end());
        uint32_t* line = m_target.bits + std::ptrdiff_t(row) * m_target.stride;
        for (std::size_t k = 0; k + 1 < m_crossings.size(); k += 2) {
            // Pixels whose centre (x + 0.5) lies in [left, right).
            const int from = std::max(0, int(std::ceil(m_crossings[k] - 0.5)));
            const int to = std::min(m_target.width, int(std::ceil(m_crossings[k + 1] - 0.5)));
            for (int x = from; x < to; ++x) HODirectTarget::Blend(line[x], color);
        }
    }
}

}  // namespace HXObjects
