#include "render/private/HOGridLattice.h"

#include <algorithm>
#include <cmath>

#include "HOGridSpacing.h"
#include "render/private/HOGridProjection.h"

namespace HXObjects {

namespace {

constexpr int kBoundSamples = 24;         // per side of the frame, when finding the grid bounds
constexpr double kPointBudget = 12000.0;  // projected points per grid
constexpr int kMinSegments = 16;
constexpr int kMaxSegments = 160;

}  // namespace

HOGridLattice::HOGridLattice(const HOGridProjection& projection, const HODisplayTransform& transform,
                             const QRectF& frame)
    : m_projection(projection), m_transform(transform), m_frame(frame) {}

bool HOGridLattice::Bounds(bool geographic, HORect* bounds) const {
    std::vector<HOPoint> points;
    points.reserve((kBoundSamples + 1) * (kBoundSamples + 1));
    for (int i = 0; i <= kBoundSamples; ++i) {
        for (int j = 0; j <= kBoundSamples; ++j) {
            points.push_back(m_transform.ToMap(m_frame.left() + m_frame.width() * i / kBoundSamples,
                                               m_frame.top() + m_frame.height() * j / kBoundSamples));
        }
    }
    std::vector<char> ok;
    m_projection.ToGrid(points, ok);
    double x0 = HUGE_VAL, x1 = -HUGE_VAL, y0 = HUGE_VAL, y1 = -HUGE_VAL;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!ok[i]) continue;
        x0 = std::min(x0, points[i].x);
        x1 = std::max(x1, points[i].x);
        y0 = std::min(y0, points[i].y);
        y1 = std::max(y1, points[i].y);
    }
    if (x0 > x1) return false;
    if (geographic) {
        // A pole inside the frame: every meridian meets it.
        for (const double pole : {90.0, -90.0}) {
            std::vector<HOPoint> at{{0.0, pole}};
            m_projection.ToMap(at, ok);
            const HOPoint device = m_transform.ToDevice(at[0]);
            if (ok[0] && m_frame.contains(device.x, device.y)) {
                x0 = -180.0, x1 = 180.0;
                (pole > 0 ? y1 : y0) = pole;
            }
        }
    }
    *bounds = geographic ? onGlobe(HORect(x0, x1, y0, y1)) : HORect(x0, x1, y0, y1);
    return bounds->minx < bounds->maxx && bounds->miny < bounds->maxy;
}

std::vector<HOGridLine> HOGridLattice::Lines(const HORect& bounds, bool geographic, const HOPoint& start,
                                             double dx, double dy) const {
    std::vector<HOGridLine> lines;
    if (!(dx > 0.0) || !(dy > 0.0)) return lines;
    // The samples of Bounds miss the extremes of curved edges: widen by a sample cell.
    const double wx = bounds.Width() / kBoundSamples, wy = bounds.Height() / kBoundSamples;
    HORect wide(bounds.minx - wx, bounds.maxx + wx, bounds.miny - wy, bounds.maxy + wy);
    if (geographic) wide = onGlobe(wide);
    const double count = wide.Width() / dx + wide.Height() / dy + 2.0;
    if (!(count <= 2.0 * HOGridSpacing::kMaxLines + 2.0)) return lines;
    const int segments =
        m_projection.IsIdentity() ? 1 : std::clamp(int(kPointBudget / count), kMinSegments, kMaxSegments);
    addLines(true, start.x, dx, wide.minx, wide.maxx, wide.miny, wide.maxy, segments, lines);
    addLines(false, start.y, dy, wide.miny, wide.maxy, wide.minx, wide.maxx, segments, lines);
    return lines;
}

HORect HOGridLattice::onGlobe(const HORect& r) const {
    HORect domain(-180.0, 180.0, -90.0, 90.0);
    m_projection.Domain(&domain);
    return HORect(std::max(r.minx, domain.minx), std::min(r.maxx, domain.maxx), std::max(r.miny, domain.miny),
                  std::min(r.maxy, domain.maxy));
}

void HOGridLattice::addLines(bool alongY, double start, double step, double lo, double hi, double across0,
                             double across1, int segments, std::vector<HOGridLine>& out) const {
    // Counted, not accumulated: adding a small step to a large coordinate may not change it.
    const double first = std::ceil((lo - start) / step);
    const double last = std::floor((hi - start) / step);
    std::vector<HOPoint> grid;
    for (double k = first; k <= last; ++k) {
        const double value = start + k * step;
        grid.clear();
        for (int s = 0; s <= segments; ++s) {
            const double along = across0 + (across1 - across0) * s / segments;
            grid.push_back(alongY ? HOPoint(value, along) : HOPoint(along, value));
        }
        addPieces(alongY, value, grid, out);
    }
}

void HOGridLattice::addPieces(bool alongY, double value, const std::vector<HOPoint>& grid,
                              std::vector<HOGridLine>& out) const {
    std::vector<HOPoint> map = grid;
    std::vector<char> ok;
    m_projection.ToMap(map, ok);
    // A step longer than the frame's diagonal is a jump over a seam, not a line.
    const double seam = std::hypot(m_frame.width(), m_frame.height());
    HOGridLine piece;
    piece.value = value;
    piece.alongY = alongY;
    const auto flush = [&] {
        if (piece.points.size() >= 2) out.push_back(piece);
        piece.points.clear();
    };
    for (std::size_t i = 0; i < map.size(); ++i) {
        if (!ok[i]) {
            flush();
            continue;
        }
        const HOPoint d = m_transform.ToDevice(map[i]);
        const QPointF p(d.x, d.y);
        if (!piece.points.isEmpty() && !m_projection.IsIdentity()) {
            const QPointF jump = p - piece.points.last();
            if (std::hypot(jump.x(), jump.y()) > seam) flush();
        }
        piece.points.append(p);
    }
    flush();
}

}  // namespace HXObjects
