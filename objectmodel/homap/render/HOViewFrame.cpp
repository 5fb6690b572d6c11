#include "HOViewFrame.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace HXObjects {

QRectF HOViewFrame::PlacedIn(const HODisplayTransform& target) const {
    const HOPoint topLeft = target.ToDevice(transform.ToMap(0.0, 0.0));
    // Positions are in logical pixels; a picture made for a HiDPI screen holds more pixels than that.
    const double scale = transform.unitsPerPixel / target.unitsPerPixel / image.devicePixelRatio();
    return {topLeft.x, topLeft.y, image.width() * scale, image.height() * scale};
}

void HOViewFrame::DrawInto(QPainter& painter, const HODisplayTransform& target) const {
    if (image.isNull()) return;
    if (transform == target) {
        painter.drawImage(QPoint(0, 0), image);
        return;
    }
    const QRectF placed = PlacedIn(target);
    if (std::abs(placed.width() * image.devicePixelRatio() - image.width()) < 1e-6) {
        // A pure move: an unscaled blit is several times cheaper than a scaled one.
        painter.drawImage(QPoint(qRound(placed.x()), qRound(placed.y())), image);
        return;
    }
    // Edge antialiasing would send a scaled blit down a much slower path; the preview lasts a moment.
    const bool antialiased = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawImage(placed, image);
    painter.setRenderHint(QPainter::Antialiasing, antialiased);
}

bool HOViewFrame::CanBlitInto(const QImage& target) const {
    return !image.isNull() && image.format() == QImage::Format_ARGB32_Premultiplied &&
           target.format() == QImage::Format_ARGB32_Premultiplied;
}

void HOViewFrame::BlitInto(QImage& target, const HODisplayTransform& at, const QColor& background) const {
    // The loops walk the target's own pixels, which a HiDPI target has more of than logical ones.
    const qreal ratio = target.devicePixelRatio();
    const QRectF logical = PlacedIn(at);
    const QRectF placed(logical.topLeft() * ratio, logical.size() * ratio);
    const double step = image.width() / placed.width();  // picture pixels per target pixel
    const int width = target.width();
    const QRgb fill = qPremultiply(background.rgba());
    // Nearest neighbour: the picture column of each target column, -1 outside the picture.
    std::vector<int> columns(static_cast<std::size_t>(width));
    for (int x = 0; x < width; ++x) {
        const int source = static_cast<int>(std::floor((x + 0.5 - placed.left()) * step));
        columns[static_cast<std::size_t>(x)] = source >= 0 && source < image.width() ? source : -1;
    }
    uchar* bits = target.bits();
    const qsizetype stride = target.bytesPerLine();
    const QRgb* previous = nullptr;
    int previousRow = -1;
    for (int y = 0; y < target.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(bits + y * stride);
        const int row = static_cast<int>(std::floor((y + 0.5 - placed.top()) * step));
        if (row < 0 || row >= image.height()) {
            std::fill(line, line + width, fill);
        } else if (row == previousRow) {
            // Zoomed in, neighbouring lines repeat a picture row.
            std::memcpy(line, previous, static_cast<std::size_t>(width) * sizeof(QRgb));
        } else {
            const auto* source = reinterpret_cast<const QRgb*>(image.constScanLine(row));
            for (int x = 0; x < width; ++x) {
                const int column = columns[static_cast<std::size_t>(x)];
                line[x] = column >= 0 ? source[column] : fill;
            }
            previous = line;
            previousRow = row;
        }
    }
}

}  // namespace HXObjects
