#pragma once
// HORasterReader: reads the part of a raster dataset that covers a map extent, at the resolution of
// the output, into an image: three or four bands as RGB(A), otherwise the first band as grey stretched
// between the given minimum and maximum; no-data pixels are transparent. All GDAL raster reads happen
// here. Not thread-safe: the caller serialises use of the dataset.
#include <QImage>
#include <QRectF>

#include "HODisplayTransform.h"
#include "HORect.h"

class GDALDataset;

namespace HXObjects {

struct HORasterStretch {
    double minimum = 0.0;
    double maximum = 255.0;
};

class HORasterReader {
public:
    HORasterReader(GDALDataset* dataset, const HORasterStretch& stretch);

    // The dataset's extent from its geotransform (north-up); empty when it has none.
    HORect Extent() const;
    // The pixels under `extent`, and the device rectangle to draw them into; a null image when the
    // raster does not meet the extent or cannot be read.
    QImage Read(const HORect& extent, const HODisplayTransform& transform, QRectF* target) const;

private:
    bool readBand(int band, const double window[4], int width, int height, std::vector<float>& values) const;
    static uchar toByte(float value, double minimum, double scale);

    GDALDataset* m_dataset;
    HORasterStretch m_stretch;
    double m_geo[6] = {0, 1, 0, 0, 0, -1};
    bool m_hasGeo = false;
};

}  // namespace HXObjects
