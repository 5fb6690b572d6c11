#include "render/private/HOPixelPath.h"

#include <algorithm>
#include <cmath>

namespace HXObjects {

HOPixelPath::HOPixelPath(const HODisplayTransform& t)
    : m_scale(1.0 / t.unitsPerPixel),
      m_offsetX(t.deviceLeft - t.extentLeft / t.unitsPerPixel),
      m_offsetY(t.deviceTop + t.extentTop / t.unitsPerPixel) {
    m_points.reserve(4096);
}

void HOPixelPath::Clear() {
    m_points.clear();
    m_minX = m_minY = INFINITY;
    m_maxX = m_maxY = -INFINITY;
}

int HOPixelPath::Append(const HOVertex* first, const HOVertex* last) {
    const std::size_t start = m_points.size();
    double lastX = NAN, lastY = NAN;
    for (const HOVertex* v = first; v != last; ++v) {
        const double x = v->x * m_scale + m_offsetX;
        const double y = m_offsetY - v->y * m_scale;
        if (!std::isfinite(x) || !std::isfinite(y)) continue;  // a vertex the reprojection lost
        // NaN compares false, so the first vertex is always kept.
        if (std::fabs(x - lastX) < 1.0 && std::fabs(y - lastY) < 1.0 && v + 1 != last) continue;
        m_points.emplace_back(x, y);
        lastX = x;
        lastY = y;
        m_minX = std::min(m_minX, x);
        m_maxX = std::max(m_maxX, x);
        m_minY = std::min(m_minY, y);
        m_maxY = std::max(m_maxY, y);
    }
    return int(m_points.size() - start);
}

}  // namespace HXObjects
