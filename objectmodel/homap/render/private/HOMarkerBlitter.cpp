#include "render/private/HOMarkerBlitter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace HXObjects {

HOMarkerBlitter::HOMarkerBlitter(QPainter& painter)
    : m_painter(painter), m_target(HODirectTarget::Of(painter)) {}

HOMarkerBlitter::~HOMarkerBlitter() {
    Flush();
}

void HOMarkerBlitter::SetMarker(const QImage* marker, bool skipRepeats) {
    Flush();
    m_marker = marker;
    m_markerWidth = marker ? marker->width() : 0;
    m_markerHeight = marker ? marker->height() : 0;
    m_skipRepeats = skipRepeats && m_target.IsValid();
    if (m_skipRepeats && m_stamped.empty())
        m_stamped.assign((std::size_t(m_target.width) * std::size_t(m_target.height) + 63) / 64, 0);
}

void HOMarkerBlitter::Stamp(const QPointF& centre) {
    if (!m_marker) return;
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y())) return;
    const int w = m_markerWidth, h = m_markerHeight;
    if (!m_target.IsValid()) {
        m_painter.drawImage(QPointF(centre.x() - w / 2.0, centre.y() - h / 2.0), *m_marker);
        return;
    }
    // Far outside the image: nothing to stamp (and no integer overflow below).
    if (centre.x() < -w || centre.y() < m_target.top - h || centre.x() > m_target.width + w ||
        centre.y() > m_target.bottom + h)
        return;
    const int x = int(std::floor(centre.x())), y = int(std::floor(centre.y()));
    if (m_skipRepeats)
        m_queue.emplace_back(x, y);
    else
        composite(x - w / 2, y - h / 2);
}

void HOMarkerBlitter::Flush() {
    if (m_queue.empty()) return;
    // A counting sort by bands of 16 rows; a stamp may start up to a marker above the image.
    constexpr int bandShift = 4;
    const auto band = [&](const QPoint& p) { return std::size_t((p.y() + m_markerHeight) >> bandShift); };
    std::vector<uint32_t> starts(std::size_t((m_target.height + 2 * m_markerHeight) >> bandShift) + 2, 0);
    for (const QPoint& p : m_queue) ++starts[band(p) + 1];
    for (std::size_t i = 1; i < starts.size(); ++i) starts[i] += starts[i - 1];
    std::vector<QPoint> sorted(m_queue.size());
    for (const QPoint& p : m_queue) sorted[starts[band(p)]++] = p;
    m_queue.clear();
    for (const QPoint& p : sorted)
        if (!alreadyStamped(p.x(), p.y())) composite(p.x() - m_markerWidth / 2, p.y() - m_markerHeight / 2);
}

bool HOMarkerBlitter::alreadyStamped(int x, int y) {
    if (x < 0 || y < 0 || x >= m_target.width || y >= m_target.height) return false;
    const std::size_t bit = std::size_t(y) * std::size_t(m_target.width) + std::size_t(x);
    uint64_t& word = m_stamped[bit / 64];
    const uint64_t mask = uint64_t(1) << (bit % 64);
    const bool seen = word & mask;
    word |= mask;
    return seen;
}

void HOMarkerBlitter::composite(int left, int top) {
    const int x0 = std::max(0, left), x1 = std::min(m_target.width, left + m_markerWidth);
    const int y0 = std::max(m_target.top, top), y1 = std::min(m_target.bottom, top + m_markerHeight);
    const auto* markerBits = reinterpret_cast<const uint32_t*>(m_marker->constBits());
    const std::ptrdiff_t markerStride = m_marker->bytesPerLine() / 4;
    for (int y = y0; y < y1; ++y) {
        uint32_t* dst = m_target.bits + y * m_target.stride;
        const uint32_t* src = markerBits + (y - top) * markerStride;
        for (int x = x0; x < x1; ++x) HODirectTarget::Blend(dst[x], src[x - left]);
    }
}

}  // namespace HXObjects
