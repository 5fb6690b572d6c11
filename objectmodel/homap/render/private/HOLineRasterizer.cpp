#include "render/private/HOLineRasterizer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace HXObjects {

namespace {
// Drawn once this many segments wait, which bounds the queue's memory.
constexpr std::size_t queueLimit = 1 << 20;
}  // namespace

HOLineRasterizer::HOLineRasterizer(const HODirectTarget& target, bool antialias)
    : m_target(target), m_antialias(antialias), m_bands(std::size_t((target.height >> bandShift) + 1)) {}

HOLineRasterizer::~HOLineRasterizer() {
    Flush();
}

bool HOLineRasterizer::Handles(const QPen& pen) {
    return pen.style() == Qt::SolidLine && pen.widthF() <= 1.0 && pen.brush().style() == Qt::SolidPattern;
}

void HOLineRasterizer::SetColor(const QColor& color) {
    const uint32_t premultiplied = qPremultiply(color.rgba());
    if (premultiplied == m_color) return;
    Flush();
    m_color = premultiplied;
}

void HOLineRasterizer::DrawPolyline(const QPointF* points, int count, bool queued) {
    Segment s;
    for (int i = 0; i + 1 < count; ++i) {
        if (!segment(points[i], points[i + 1], i + 2 == count, &s)) continue;
        if (queued) {
            queue(s);
            continue;
        }
        m_top = m_target.top;
        m_bottom = m_target.bottom;
        drawSegment(s, m_top, m_bottom);
    }
    if (m_queued > queueLimit) Flush();
}

// Pixel centres at integer coordinates from here on.
bool HOLineRasterizer::segment(const QPointF& a, const QPointF& b, bool last, Segment* s) const {
    const double x0 = a.x() - 0.5, y0 = a.y() - 0.5, x1 = b.x() - 0.5, y1 = b.y() - 0.5;
    if ((x0 < -1 && x1 < -1) || (y0 < m_target.top - 1 && y1 < m_target.top - 1) ||
        (x0 > m_target.width && x1 > m_target.width) || (y0 > m_target.bottom && y1 > m_target.bottom))
        return false;
    *s = {float(x0), float(y0), float(x1), float(y1), last};
    return true;
}

void HOLineRasterizer::queue(const Segment& s) {
    const int maxBand = int(m_bands.size()) - 1;
    const double top = std::max(float(m_target.top - 1), std::min(s.y0, s.y1)),
                 bottom = std::min(float(m_target.bottom), std::max(s.y0, s.y1));
    const int first = std::clamp(int(std::floor(top)) >> bandShift, 0, maxBand);
    const int last = std::clamp((int(std::floor(bottom)) + 1) >> bandShift, 0, maxBand);
    for (int band = first; band <= last; ++band) m_bands[std::size_t(band)].push_back(s);
    m_queued += std::size_t(last - first + 1);
}

void HOLineRasterizer::Flush() {
    if (!m_queued) return;
    for (std::size_t band = 0; band < m_bands.size(); ++band) {
        m_top = int(band) << bandShift;
        m_bottom = m_top + (1 << bandShift);
        for (const Segment& s : m_bands[band]) drawSegment(s, m_top, m_bottom);
        m_bands[band].clear();
    }
    m_queued = 0;
}

// Steps along the major axis one pixel at a time and shares each step's coverage between the two
// pixels the line passes between. A segment leaves out its end pixel, which the next one draws, so
// joins are not drawn twice. The major axis is cut to the rows (steep) or columns that may be
// written, so only the minor axis is checked pixel by pixel.
void HOLineRasterizer::drawSegment(const Segment& s, int top, int bottom) {
    double x0 = s.x0, y0 = s.y0, x1 = s.x1, y1 = s.y1;
    const bool steep = std::abs(y1 - y0) > std::abs(x1 - x0);
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    top = std::max(top, m_target.top);
    bottom = std::min(bottom, m_target.bottom);
    if (top >= bottom) return;
    const int low = steep ? top - 1 : -1;
    const int high = steep ? bottom : m_target.width;
    const double dx = x1 - x0;
    const double gradient = dx == 0.0 ? 0.0 : (y1 - y0) / dx;
    const int step = x1 >= x0 ? 1 : -1;
    int first = int(std::floor(std::clamp(x0, low - 1.0, high + 1.0) + 0.5));
    int end = int(std::floor(std::clamp(x1, low - 1.0, high + 1.0) + 0.5));
    if (s.last) end += step;
    if (step > 0) {
        first = std::max(first, low + 1);
        end = std::min(end, high);
    } else {
        first = std::min(first, high - 1);
        end = std::max(end, low);
    }
    // The pixels of the minor axis that may be written: [minorFirst, minorEnd).
    const int minorFirst = steep ? 0 : top;
    const int minorEnd = steep ? m_target.width : bottom;
    const double minorLimit = minorEnd + 1.0;
    const double minorLow = minorFirst - 2.0;
    uint32_t* const bits = m_target.bits;
    const std::ptrdiff_t stride = m_target.stride;
    const uint32_t color = m_color;
    const auto put = [&](int major, int minor, uint32_t coverage) {
        if (minor < minorFirst || minor >= minorEnd || !coverage) return;
        uint32_t& pixel = steep ? bits[major * stride + minor] : bits[minor * stride + major];
        HODirectTarget::Blend(pixel, coverage == 255 ? color : HODirectTarget::ByteMul(color, coverage));
    };
    for (int x = first; step > 0 ? x < end : x > end; x += step) {
        const double y = y0 + gradient * (x - x0);
        if (!(y > minorLow && y < minorLimit)) continue;  // outside the band (or not a number)
        if (!m_antialias) {
            put(x, int(std::floor(y + 0.5)), 255);
            continue;
        }
        const double floorY = std::floor(y);
        const int iy = int(floorY);
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): the fraction is never negative
        const uint32_t lower = uint32_t((y - floorY) * 255.0 + 0.5);
        put(x, iy, 255 - lower);
        put(x, iy + 1, lower);
    }
}

}  // namespace HXObjects
