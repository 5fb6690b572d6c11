#include "source/private/HORasterReader.h"

#include <gdal_priv.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace HXObjects {

HORasterReader::HORasterReader(GDALDataset* dataset, const HORasterStretch& stretch)
    : m_dataset(dataset), m_stretch(stretch) {
    m_hasGeo = dataset->GetGeoTransform(m_geo) == CE_None && m_geo[1] > 0 && m_geo[5] < 0;
}

HORect HORasterReader::Extent() const {
    if (!m_hasGeo) return HORect();
    const double w = m_dataset->GetRasterXSize(), h = m_dataset->GetRasterYSize();
    return HORect(m_geo[0], m_geo[0] + w * m_geo[1], m_geo[3] + h * m_geo[5], m_geo[3]);
}

QImage HORasterReader::Read(const HORect& extent, const HODisplayTransform& transform, QRectF* target) const {
    const HORect full = Extent();
    const HORect visible(std::max(extent.minx, full.minx), std::min(extent.maxx, full.maxx),
                         std::max(extent.miny, full.miny), std::min(extent.maxy, full.maxy));
    if (visible.IsEmpty()) return QImage();
    // The raster window in (fractional) pixels, and where it lands on the device.
    const double window[4] = {(visible.minx - m_geo[0]) / m_geo[1], (visible.maxy - m_geo[3]) / m_geo[5],
                              (visible.maxx - visible.minx) / m_geo[1],
                              (visible.miny - visible.maxy) / m_geo[5]};
    const HOPoint topLeft = transform.ToDevice({visible.minx, visible.maxy});
    const HOPoint bottomRight = transform.ToDevice({visible.maxx, visible.miny});
    *target = QRectF(QPointF(topLeft.x, topLeft.y), QPointF(bottomRight.x, bottomRight.y));
    const int width = std::max(1, int(std::ceil(target->width())));
    const int height = std::max(1, int(std::ceil(target->height())));

    const int bands = m_dataset->GetRasterCount();
    const bool rgb = bands >= 3;
    const bool alpha = bands >= 4;
    std::vector<float> channels[4];
    for (int b = 0; b < (rgb ? (alpha ? 4 : 3) : 1); ++b)
        if (!readBand(b + 1, window, width, height, channels[b])) return QImage();
    int hasNoData = 0;
    const double noData = m_dataset->GetRasterBand(1)->GetNoDataValue(&hasNoData);

    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    const double greyScale = 255.0 / std::max(1e-12, m_stretch.maximum - m_stretch.minimum);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const std::size_t i = std::size_t(y) * std::size_t(width) + std::size_t(x);
            const float first = channels[0][i];
            if ((hasNoData && first == float(noData)) || std::isnan(first)) {
                line[x] = 0;
                continue;
            }
            if (!rgb) {
                const uchar g = toByte(first, m_stretch.minimum, greyScale);
                line[x] = qRgb(g, g, g);
                continue;
            }
            const QRgb colour =
                qRgba(toByte(first, 0, 1), toByte(channels[1][i], 0, 1), toByte(channels[2][i], 0, 1),
                      alpha ? toByte(channels[3][i], 0, 1) : 255);
            line[x] = qPremultiply(colour);
        }
    }
    return image;
}

bool HORasterReader::readBand(int band, const double window[4], int width, int height,
                              std::vector<float>& values) const {
    values.resize(std::size_t(width) * std::size_t(height));
    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.bFloatingPointWindowValidity = TRUE;
    extra.dfXOff = window[0];
    extra.dfYOff = window[1];
    extra.dfXSize = window[2];
    extra.dfYSize = window[3];
    // Shrinking averages neighbours (and lets GDAL pick an overview); enlarging shows the pixels.
    extra.eResampleAlg = width < window[2] ? GRIORA_Bilinear : GRIORA_NearestNeighbour;
    const int xOff = std::clamp(int(std::floor(window[0])), 0, m_dataset->GetRasterXSize() - 1);
    const int yOff = std::clamp(int(std::floor(window[1])), 0, m_dataset->GetRasterYSize() - 1);
    const int xSize =
        std::clamp(int(std::ceil(window[0] + window[2])) - xOff, 1, m_dataset->GetRasterXSize() - xOff);
    const int ySize =
        std::clamp(int(std::ceil(window[1] + window[3])) - yOff, 1, m_dataset->GetRasterYSize() - yOff);
    return m_dataset->GetRasterBand(band)->RasterIO(GF_Read, xOff, yOff, xSize, ySize, values.data(), width,
                                                    height, GDT_Float32, 0, 0, &extra) == CE_None;
}

uchar HORasterReader::toByte(float value, double minimum, double scale) {
    return uchar(std::clamp((double(value) - minimum) * scale, 0.0, 255.0));
}

}  // namespace HXObjects
