#pragma once

#include <QString>

// Writes the shaded relief of a DEM beside it: GDAL's hillshade, lit from several directions so no
// slope is lost in shadow, as a tiled single-band Byte GeoTIFF with overviews (nodata over the sea,
// where the DEM has none). A map lays it over the land colours with a multiply.
class HillshadeWriter {
public:
    static bool write(const QString& demPath, const QString& path, QString* error);
};
