#pragma once
// HOGridLattice: the lines of one grid over a view: x = x0 + i * dx and y = y0 + j * dy in grid
// coordinates, for every whole i and j, carried into the map by a HOGridProjection and drawn in
// device pixels. Curved lines are densified; a line is cut where the projection cannot carry it
// and where it would jump across the view (a projection's seam), so nothing is drawn where the
// projection is undefined. The start (x0, y0) only anchors the lattice: it may lie anywhere.
#include <QRectF>
#include <vector>

#include "HODisplayTransform.h"
#include "HOPoint.h"
#include "HORect.h"
#include "render/private/HOGridLine.h"

namespace HXObjects {

class HOGridProjection;

class HOGridLattice {
public:
    HOGridLattice(const HOGridProjection& projection, const HODisplayTransform& transform,
                  const QRectF& frame);

    // The grid coordinates the frame covers; false when no point of it can be carried. `geographic`
    // clamps them to the globe and takes in a pole seen in the frame.
    bool Bounds(bool geographic, HORect* bounds) const;
    // The lines of the lattice across `bounds` (a little widened); steps must be positive
    // (HOGridSpacing::Thinned).
    std::vector<HOGridLine> Lines(const HORect& bounds, bool geographic, const HOPoint& start, double dx,
                                  double dy) const;

private:
    // Longitudes and latitudes clamped to the globe, or to the projection's domain.
    HORect onGlobe(const HORect& r) const;
    // Lines at every value `from + k * step` inside [lo, hi], sampled across [across0, across1].
    void addLines(bool alongY, double start, double step, double lo, double hi, double across0,
                  double across1, int segments, std::vector<HOGridLine>& out) const;
    void addPieces(bool alongY, double value, const std::vector<HOPoint>& grid,
                   std::vector<HOGridLine>& out) const;

    const HOGridProjection& m_projection;
    HODisplayTransform m_transform;
    QRectF m_frame;
};

}  // namespace HXObjects
