#include "source/private/HORasterReader.h"

#include <gdal_priv.h>

#include <algorithm>
#include <cmath>

#include "source/private/HOGdalCancel.h"

namespace HXObjects {

namespace {

// At most this many raster pixels are read for one picture at full resolution (or sixteen per
// output pixel, if more); beyond it the raster needs overviews.
constexpr double readBudget = 1 << 24;
// The longest side of a preview read while overviews are missing: few enough blocks to touch.
constexpr int previewSide = 128;

// The largest overview reduction GDAL would read for a window shrunk `decimation` times.
double overviewFactor(GDALRasterBand* band, double decimation) {
    double best = 1;
    for (int o = 0; o < band->GetOverviewCount(); ++o) {
        GDALRasterBand* overview = band->GetOverview(o);
        if (!overview) continue;
        const double factor = double(band->GetXSize()) / std::max(1, overview->GetXSize());
        if (factor <= decimation * 1.2) best = std::max(best, factor);
    }
    return best;
}

}  // namespace

HORasterReader::HORasterReader(const HORasterView& view, const HORasterInfo& info,
                               const HORasterStretch& stretch, const HOTrackCancel* cancel)
    : m_view(view), m_info(info), m_stretch(stretch), m_cancel(cancel) {
    int hasNoData = 0;
    m_noData = view.dataset->GetRasterBand(1)->GetNoDataValue(&hasNoData);
    m_hasNoData = hasNoData != 0;
}

QImage HORasterReader::Read(const HORect& extent, const HODisplayTransform& transform, QRectF* target) {
    const double* geo = m_view.geo;
    const double w = m_view.dataset->GetRasterXSize(), h = m_view.dataset->GetRasterYSize();
    const HORect visible(std::max(extent.minx, geo[0]), std::min(extent.maxx, geo[0] + w * geo[1]),
                         std::max(extent.miny, geo[3] + h * geo[5]), std::min(extent.maxy, geo[3]));
    if (visible.IsEmpty()) return QImage();
    // The raster window in (fractional) pixels, and where it lands on the device.
    const double window[4] = {(visible.minx - geo[0]) / geo[1], (visible.maxy - geo[3]) / geo[5],
                              (visible.maxx - visible.minx) / geo[1], (visible.miny - visible.maxy) / geo[5]};
    const HOPoint topLeft = transform.ToDevice({visible.minx, visible.maxy});
    const HOPoint bottomRight = transform.ToDevice({visible.maxx, visible.miny});
    *target = QRectF(QPointF(topLeft.x, topLeft.y), QPointF(bottomRight.x, bottomRight.y));
    int width = std::max(1, int(std::ceil(target->width())));
    int height = std::max(1, int(std::ceil(target->height())));

    m_needsOverviews = tooLargeToRead(window, width, height);
    // Enlarging shows the pixels; palette indices are never blended.
    bool nearest = width >= window[2] || !m_info.palette.empty();
    if (m_needsOverviews) {
        // A warped view would warp every source pixel behind each sample: nothing until overviews.
        if (m_view.warped) return QImage();
        const double shrink = std::min(1.0, double(previewSide) / std::max(width, height));
        width = std::max(1, int(width * shrink));
        height = std::max(1, int(height * shrink));
        nearest = true;
    }

    std::vector<float> channels[4];
    const int colourBands = m_info.rgb ? 3 : 1;
    for (int b = 0; b < colourBands; ++b)
        if (!readBand(b + 1, window, width, height, nearest, channels[b])) return QImage();
    if (m_view.alphaBand && !readBand(m_view.alphaBand, window, width, height, nearest, channels[3]))
        return QImage();

    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = colour(channels, std::size_t(y) * std::size_t(width) + std::size_t(x));
    }
    return image;
}

bool HORasterReader::tooLargeToRead(const double window[4], int width, int height) const {
    const double decimation = std::min(window[2] / width, window[3] / height);
    const double factor = overviewFactor(m_view.dataset->GetRasterBand(1), decimation);
    const double pixels = window[2] * window[3] / (factor * factor);
    return pixels > std::max(readBudget, 16.0 * width * height);
}

QRgb HORasterReader::colour(const std::vector<float> channels[4], std::size_t i) const {
    const float first = channels[0][i];
    if ((m_hasNoData && first == float(m_noData)) || std::isnan(first)) return 0;
    const uchar alpha = m_view.alphaBand ? toByte(channels[3][i], 0, 1) : 255;
    QRgb rgba;
    if (m_info.rgb) {
        rgba = qRgba(toByte(first, 0, 1), toByte(channels[1][i], 0, 1), toByte(channels[2][i], 0, 1), alpha);
    } else if (!m_info.palette.empty()) {
        const double index = std::floor(first);
        if (index < 0 || index >= double(m_info.palette.size())) return 0;
        const QRgb entry = m_info.palette[std::size_t(index)];
        rgba = qRgba(qRed(entry), qGreen(entry), qBlue(entry), qAlpha(entry) * alpha / 255);
    } else {
        const double range = m_stretch.maximum - m_stretch.minimum;
        const uchar g = range > 0 ? toByte(first, m_stretch.minimum, 255.0 / range) : 128;
        rgba = qRgba(g, g, g, alpha);
    }
    return qPremultiply(rgba);
}

bool HORasterReader::readBand(int band, const double window[4], int width, int height, bool nearest,
                              std::vector<float>& values) const {
    values.resize(std::size_t(width) * std::size_t(height));
    GDALRasterIOExtraArg extra;
    INIT_RASTERIO_EXTRA_ARG(extra);
    extra.bFloatingPointWindowValidity = TRUE;
    extra.dfXOff = window[0];
    extra.dfYOff = window[1];
    extra.dfXSize = window[2];
    extra.dfYSize = window[3];
    // Shrinking averages neighbours (and lets GDAL pick an overview).
    extra.eResampleAlg = nearest ? GRIORA_NearestNeighbour : GRIORA_Bilinear;
    extra.pfnProgress = HOGdalCancel;
    extra.pProgressData = HOGdalCancelData(m_cancel);
    GDALDataset* dataset = m_view.dataset;
    const int xOff = std::clamp(int(std::floor(window[0])), 0, dataset->GetRasterXSize() - 1);
    const int yOff = std::clamp(int(std::floor(window[1])), 0, dataset->GetRasterYSize() - 1);
    const int xSize =
        std::clamp(int(std::ceil(window[0] + window[2])) - xOff, 1, dataset->GetRasterXSize() - xOff);
    const int ySize =
        std::clamp(int(std::ceil(window[1] + window[3])) - yOff, 1, dataset->GetRasterYSize() - yOff);
    return dataset->GetRasterBand(band)->RasterIO(GF_Read, xOff, yOff, xSize, ySize, values.data(), width,
                                                  height, GDT_Float32, 0, 0, &extra) == CE_None;
}

uchar HORasterReader::toByte(double value, double minimum, double scale) {
    return uchar(std::clamp((value - minimum) * scale, 0.0, 255.0));
}

}  // namespace HXObjects
