#include "HOViewport.h"

#include <algorithm>
#include <cmath>

namespace HXObjects {

namespace {
bool usable(const HOSize& size) {
    return size.width > 0 && size.height > 0;
}
bool finite(const HORect& r) {
    return std::isfinite(r.minx) && std::isfinite(r.maxx) && std::isfinite(r.miny) && std::isfinite(r.maxy);
}
}  // namespace

void HOViewport::SetSize(const HOSize& size) {
    m_size = HOSize(std::max(size.width, 0), std::max(size.height, 0));
    if (usable(m_size) && !m_pendingFit.IsEmpty()) {
        const HORect pending = m_pendingFit;
        m_pendingFit = HORect();
        Fit(pending);
    }
}

bool HOViewport::Fit(const HORect& rect) {
    if (rect.IsEmpty() || !finite(rect)) return false;
    if (!usable(m_size)) {
        m_pendingFit = rect;
        return true;
    }
    const double unitsPerPixel = std::max(rect.Width() / m_size.width, rect.Height() / m_size.height);
    if (!std::isfinite(unitsPerPixel) || unitsPerPixel <= 0.0) return false;
    m_unitsPerPixel = unitsPerPixel;
    m_center = rect.Center();
    m_hasExtent = true;
    return true;
}

bool HOViewport::SetUnitsPerPixel(double unitsPerPixel) {
    if (!m_hasExtent || !std::isfinite(unitsPerPixel) || unitsPerPixel <= 0.0) return false;
    m_unitsPerPixel = unitsPerPixel;
    return true;
}

bool HOViewport::ZoomByFactor(double factor, const HOPoint& fixed) {
    if (!std::isfinite(factor) || factor <= 0.0 || !std::isfinite(fixed.x) || !std::isfinite(fixed.y))
        return false;
    const HOPoint centre(fixed.x + (m_center.x - fixed.x) * factor,
                         fixed.y + (m_center.y - fixed.y) * factor);
    if (!SetUnitsPerPixel(m_unitsPerPixel * factor)) return false;
    m_center = centre;
    return true;
}

bool HOViewport::SetCenter(const HOPoint& centre) {
    if (!m_hasExtent || !std::isfinite(centre.x) || !std::isfinite(centre.y)) return false;
    m_center = centre;
    return true;
}

HODisplayTransform HOViewport::Transform() const {
    HODisplayTransform t;
    t.extentLeft = m_center.x - m_size.width * m_unitsPerPixel / 2.0;
    t.extentTop = m_center.y + m_size.height * m_unitsPerPixel / 2.0;
    t.unitsPerPixel = m_unitsPerPixel;
    return t;
}

HORect HOViewport::Extent() const {
    if (!IsDrawable()) return m_pendingFit;
    // The same arithmetic as HODisplayTransform::ToMap, so the corners are exactly pixels (0, 0) and
    // (width, height).
    const HODisplayTransform t = Transform();
    const HOPoint bottomRight = t.ToMap(m_size.width, m_size.height);
    return {t.extentLeft, bottomRight.x, bottomRight.y, t.extentTop};
}

}  // namespace HXObjects
