#pragma once

#include <QRectF>
#include <QString>

class Terrain;

// Writes the terrain as a single-band Float32 GeoTIFF in the region's projected CRS: tiled, compressed,
// with internal overviews, and the nodata value over the sea.
class DemWriter {
public:
    static constexpr double kNoData = -9999;

    // pixelSize in metres; the raster covers extent exactly when the size divides it.
    static bool write(const QString& path, const Terrain& terrain, const QRectF& extent, double pixelSize,
                      QString* error);
};
