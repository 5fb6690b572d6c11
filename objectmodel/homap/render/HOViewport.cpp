#include "HOViewport.h"

#include <algorithm>
#include <cmath>

namespace HXObjects {

namespace {
bool usable(const HOSize& size) {
    return size.width > 0 && size.height > 0;
}
bool positiveFinite(double value) {
    return std::isfinite(value) && value > 0.0;
}
}  // namespace

double HOViewport::limitedUnitsPerPixel(double unitsPerPixel) const {
    return std::clamp(unitsPerPixel, m_limits.minUnitsPerPixel, m_limits.maxUnitsPerPixel);
}

HOPoint HOViewport::limitedCentre(const HOPoint& centre) const {
    return {std::clamp(centre.x, -m_limits.maxCentre, m_limits.maxCentre),
            std::clamp(centre.y, -m_limits.maxCentre, m_limits.maxCentre)};
}

void HOViewport::SetSize(const HOSize& size) {
    m_size = HOSize(std::max(size.width, 0), std::max(size.height, 0));
    if (usable(m_size) && !m_pendingFit.IsEmpty()) {
        const HORect pending = m_pendingFit;
        m_pendingFit = HORect();
        Fit(pending, m_pendingMargin);
    }
}

bool HOViewport::Fit(const HORect& rect, int marginPixels) {
    if (rect.IsEmpty() || !rect.IsFinite()) return false;
    if (!usable(m_size)) {
        m_pendingFit = rect;
        m_pendingMargin = marginPixels;
        return true;
    }
    // A margin never takes more than half of the view.
    const int margin = std::clamp(marginPixels, 0, std::min(m_size.width, m_size.height) / 4);
    const double unitsPerPixel =
        std::max(rect.Width() / (m_size.width - 2 * margin), rect.Height() / (m_size.height - 2 * margin));
    if (!positiveFinite(unitsPerPixel)) return false;
    m_unitsPerPixel = limitedUnitsPerPixel(unitsPerPixel);
    m_center = limitedCentre(rect.Center());
    m_hasExtent = true;
    return true;
}

bool HOViewport::SetUnitsPerPixel(double unitsPerPixel) {
    if (!m_hasExtent || !positiveFinite(unitsPerPixel)) return false;
    m_unitsPerPixel = limitedUnitsPerPixel(unitsPerPixel);
    return true;
}

bool HOViewport::ZoomByFactor(double factor, const HOPoint& fixed) {
    if (!m_hasExtent || !positiveFinite(factor) || !std::isfinite(fixed.x) || !std::isfinite(fixed.y))
        return false;
    const double unitsPerPixel = limitedUnitsPerPixel(m_unitsPerPixel * factor);
    if (!positiveFinite(unitsPerPixel)) return false;
    // The factor the limits leave, so that the fixed point stays put even at a limit.
    const double applied = unitsPerPixel / m_unitsPerPixel;
    m_center = limitedCentre(
        HOPoint(fixed.x + (m_center.x - fixed.x) * applied, fixed.y + (m_center.y - fixed.y) * applied));
    m_unitsPerPixel = unitsPerPixel;
    return true;
}

bool HOViewport::SetCenter(const HOPoint& centre) {
    if (!m_hasExtent || !std::isfinite(centre.x) || !std::isfinite(centre.y)) return false;
    m_center = limitedCentre(centre);
    return true;
}

bool HOViewport::SetMagnification(double magnification) {
    if (!positiveFinite(magnification)) return false;
    const double scaleUnitsPerPixel = ScaleUnitsPerPixel();
    m_magnification = magnification;
    if (m_hasExtent) m_unitsPerPixel = limitedUnitsPerPixel(scaleUnitsPerPixel / magnification);
    return true;
}

void HOViewport::Clear() {
    m_center = HOPoint();
    m_unitsPerPixel = 1.0;
    m_hasExtent = false;
    m_pendingFit = HORect();
    m_pendingMargin = 0;
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
