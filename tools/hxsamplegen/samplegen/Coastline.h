#pragma once

#include <QRectF>
#include <memory>

#include "StarShape.h"

class OGRPolygon;

// The mainland: a large star-shaped landmass whose noisy rim is the coast, cut by the region's
// rectangle. Inside the rectangle and outside the rim is sea.
class Coastline {
public:
    // broadOutline is the mainland without its small-scale shore detail: the terrain rises from it, so
    // that hills inland do not inherit the coast's jaggedness.
    Coastline(const QRectF& region, StarShape mainland, StarShape broadOutline);

    const QRectF& region() const { return m_region; }
    const StarShape& shape() const { return m_shape; }

    bool isLand(const QPointF& p, double margin = 0) const;
    // How far inland p lies along the ray from the centre; negative at sea. Ignores the rectangle, so
    // it stays smooth where the land runs out of the region.
    double inlandDistance(const QPointF& p) const { return m_shape.edgeDistance(p); }
    double broadInlandDistance(const QPointF& p) const { return m_broad.edgeDistance(p); }
    // Whether the ray through this angle reaches the sea inside the region (rather than the region's edge).
    bool facesSea(double angle) const;

    std::unique_ptr<OGRPolygon> polygon() const;

private:
    double rayToRegionEdge(double angle) const;
    QPointF pointAt(double angle, double radius) const;

    QRectF m_region;
    StarShape m_shape;
    StarShape m_broad;
};
