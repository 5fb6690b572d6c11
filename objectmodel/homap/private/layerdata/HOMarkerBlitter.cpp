#include "HOMarkerBlitter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace HXObjects {

namespace {

// x * a / 255 on all four premultiplied channels at once.
inline uint32_t byteMul(uint32_t x, uint32_t a) {
    uint32_t t = (x & 0xff00ff) * a;
    t = ((t + ((t >> 8) & 0xff00ff) + 0x800080) >> 8) & 0xff00ff;
    x = ((x >> 8) & 0xff00ff) * a;
    x = (x + ((x >> 8) & 0xff00ff) + 0x800080) & 0xff00ff00;
    return x | t;
}

bool drawsDirectly(const QPainter& painter) {
    const QPaintDevice* device = painter.device();
    if (!device || device->devType() != QInternal::Image) return false;
    const auto* image = static_cast<const QImage*>(device);
    const bool format =
        image->format() == QImage::Format_ARGB32_Premultiplied || image->format() == QImage::Format_RGB32;
    return format && painter.transform().isIdentity() && !painter.hasClipping() && painter.opacity() == 1.0 &&
           painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

}  // namespace

HOMarkerBlitter::HOMarkerBlitter(QPainter& painter) : m_painter(painter) {
    if (drawsDirectly(painter)) m_target = static_cast<QImage*>(painter.device());
}

void HOMarkerBlitter::SetMarker(const QImage* marker, bool skipRepeats) {
    m_marker = marker;
    m_skipRepeats = skipRepeats && m_target;
    if (m_skipRepeats && m_stamped.empty())
        m_stamped.assign((std::size_t(m_target->width()) * std::size_t(m_target->height()) + 63) / 64, 0);
}

void HOMarkerBlitter::Stamp(const QPointF& centre) {
    if (!m_marker) return;
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y())) return;
    const int w = m_marker->width(), h = m_marker->height();
    if (!m_target) {
        m_painter.drawImage(QPointF(centre.x() - w / 2.0, centre.y() - h / 2.0), *m_marker);
        return;
    }
    // Far outside the image: nothing to stamp (and no integer overflow below).
    if (centre.x() < -w || centre.y() < -h || centre.x() > m_target->width() + w ||
        centre.y() > m_target->height() + h)
        return;
    const int x = int(std::floor(centre.x())), y = int(std::floor(centre.y()));
    if (m_skipRepeats && alreadyStamped(x, y)) return;
    composite(x - w / 2, y - h / 2);
}

bool HOMarkerBlitter::alreadyStamped(int x, int y) {
    if (x < 0 || y < 0 || x >= m_target->width() || y >= m_target->height()) return false;
    const std::size_t bit = std::size_t(y) * std::size_t(m_target->width()) + std::size_t(x);
    uint64_t& word = m_stamped[bit / 64];
    const uint64_t mask = uint64_t(1) << (bit % 64);
    const bool seen = word & mask;
    word |= mask;
    return seen;
}

void HOMarkerBlitter::composite(int left, int top) {
    const int x0 = std::max(0, left), x1 = std::min(m_target->width(), left + m_marker->width());
    const int y0 = std::max(0, top), y1 = std::min(m_target->height(), top + m_marker->height());
    for (int y = y0; y < y1; ++y) {
        auto* dst = reinterpret_cast<uint32_t*>(m_target->scanLine(y));
        const auto* src = reinterpret_cast<const uint32_t*>(m_marker->constScanLine(y - top));
        for (int x = x0; x < x1; ++x) {
            const uint32_t s = src[x - left];
            const uint32_t alpha = s >> 24;
            if (alpha == 255)
                dst[x] = s;
            else if (alpha)
                dst[x] = s + byteMul(dst[x], 255 - alpha);
        }
    }
}

}  // namespace HXObjects
