#include "DryLand.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <cmath>

namespace {
std::unique_ptr<OGRPolygon> rectangle(const QRectF& r) {
    auto ring = new OGRLinearRing;
    for (const QPointF& p : {r.topLeft(), r.topRight(), r.bottomRight(), r.bottomLeft(), r.topLeft()})
        ring->addPoint(p.x(), p.y());
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRingDirectly(ring);
    return polygon;
}

void collectPolygons(const OGRGeometry* geometry, std::vector<std::unique_ptr<OGRPolygon>>& out) {
    if (!geometry) return;
    const OGRwkbGeometryType type = wkbFlatten(geometry->getGeometryType());
    if (type == wkbPolygon) {
        out.emplace_back(geometry->toPolygon()->clone());
    } else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) {
        for (const OGRGeometry* part : *geometry->toGeometryCollection()) collectPolygons(part, out);
    }
}
}  // namespace

DryLand::DryLand(const OGRPolygon& land, const std::vector<const OGRGeometry*>& lakes, const QRectF& region,
                 double tileSize, double margin)
    : m_region(region), m_tileSize(tileSize) {
    if (!canClip()) return;
    std::unique_ptr<OGRGeometry> dry(land.clone());
    for (const OGRGeometry* lake : lakes) dry.reset(dry->Difference(lake));
    m_columns = int(std::ceil(region.width() / tileSize));
    const int rows = int(std::ceil(region.height() / tileSize));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            const QRectF tile(region.left() + column * tileSize, region.top() + row * tileSize, tileSize,
                              tileSize);
            const auto box = rectangle(tile.adjusted(-margin, -margin, margin, margin));
            std::unique_ptr<OGRGeometry> piece(dry->Intersection(box.get()));
            m_tiles.push_back(piece && !piece->IsEmpty() ? std::move(piece) : nullptr);
        }
    }
}

DryLand::~DryLand() = default;

bool DryLand::canClip() {
    return OGRGeometryFactory::haveGEOS();
}

const OGRGeometry* DryLand::tileFor(const OGRGeometry& shape) const {
    OGREnvelope envelope;
    shape.getEnvelope(&envelope);
    if (m_tiles.empty()) return nullptr;
    const int rows = int(m_tiles.size()) / m_columns;
    // Shapes hanging over the region's edge belong to the edge tile, whose margin reaches out to them.
    const int column =
        std::clamp(int(std::floor((envelope.MinX - m_region.left()) / m_tileSize)), 0, m_columns - 1);
    const int row = std::clamp(int(std::floor((envelope.MinY - m_region.top()) / m_tileSize)), 0, rows - 1);
    return m_tiles[size_t(row) * m_columns + column].get();
}

std::vector<std::unique_ptr<OGRPolygon>> DryLand::clip(const OGRGeometry& shape) const {
    std::vector<std::unique_ptr<OGRPolygon>> parts;
    const OGRGeometry* tile = tileFor(shape);
    if (!tile) return parts;
    std::unique_ptr<OGRGeometry> clipped(shape.Intersection(tile));
    collectPolygons(clipped.get(), parts);
    return parts;
}
