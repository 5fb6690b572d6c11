#pragma once

#include <QRectF>
#include <memory>
#include <vector>

class OGRGeometry;
class OGRPolygon;

// The mainland without its lakes, cut into overlapping tiles so that clipping a parcel to the shore
// only touches the few kilometres of coast near it. Needs GEOS; without it nothing can be clipped.
class DryLand {
public:
    // tileSize in metres; tiles overlap by margin so any shape smaller than margin fits in one tile.
    DryLand(const OGRPolygon& land, const std::vector<const OGRGeometry*>& lakes, const QRectF& region,
            double tileSize, double margin);
    ~DryLand();

    static bool canClip();
    // The polygons left of shape on dry land; empty when it lies wholly under water.
    std::vector<std::unique_ptr<OGRPolygon>> clip(const OGRGeometry& shape) const;

private:
    const OGRGeometry* tileFor(const OGRGeometry& shape) const;

    QRectF m_region;
    double m_tileSize;
    int m_columns = 0;
    std::vector<std::unique_ptr<OGRGeometry>> m_tiles;  // row-major; null where a tile has no land
};
