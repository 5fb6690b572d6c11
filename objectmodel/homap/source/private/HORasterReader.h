#pragma once
// HORasterReader: reads the part of a north-up raster view that covers a map extent, at the
// resolution of the output, into an image: red, green and blue bands as they are, a paletted band
// through its colour table, any other band as grey stretched between two values (a constant band is
// mid-grey); no-data and alpha make pixels transparent. A window that would need more than a bounded
// read at full resolution (no overview fine enough) is read as a coarse preview instead, or not at
// all from a warped view, and the reader says overviews are wanted. All GDAL pixel reads happen here;
// a read stops when the render is cancelled.
#include <QImage>
#include <QRectF>
#include <vector>

#include "HODisplayTransform.h"
#include "HORect.h"
#include "HOTrackCancel.h"
#include "source/private/HORasterInfo.h"

class GDALDataset;

namespace HXObjects {

struct HORasterStretch {
    double minimum = 0.0;
    double maximum = 255.0;
};

// A north-up dataset to read: the raster itself or a warped view of it.
struct HORasterView {
    GDALDataset* dataset = nullptr;
    double geo[6] = {0, 1, 0, 0, 0, -1};
    int alphaBand = 0;
    bool warped = false;
};

class HORasterReader {
public:
    HORasterReader(const HORasterView& view, const HORasterInfo& info, const HORasterStretch& stretch,
                   const HOTrackCancel* cancel);

    // The pixels under `extent`, and the device rectangle to draw them into; a null image when the
    // raster does not meet the extent, cannot be read or the read was cancelled.
    QImage Read(const HORect& extent, const HODisplayTransform& transform, QRectF* target);
    // Whether the last Read found the window too large to read without overviews.
    bool NeedsOverviews() const { return m_needsOverviews; }

private:
    bool tooLargeToRead(const double window[4], int width, int height) const;
    bool readBand(int band, const double window[4], int width, int height, bool nearest,
                  std::vector<float>& values) const;
    // The premultiplied colour of pixel i; channels 0-2 hold the colour bands read, 3 the alpha band.
    QRgb colour(const std::vector<float> channels[4], std::size_t i) const;
    static uchar toByte(double value, double minimum, double scale);

    HORasterView m_view;
    const HORasterInfo& m_info;
    HORasterStretch m_stretch;
    const HOTrackCancel* m_cancel;
    bool m_hasNoData = false;
    double m_noData = 0;
    bool m_needsOverviews = false;
};

}  // namespace HXObjects
