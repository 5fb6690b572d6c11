#include "HOViewFrame.h"

#include <QPainter>
#include <cmath>

namespace HXObjects {

QRectF HOViewFrame::PlacedIn(const HODisplayTransform& target) const {
    const HOPoint topLeft = target.ToDevice(transform.ToMap(0.0, 0.0));
    const double scale = transform.unitsPerPixel / target.unitsPerPixel;
    return {topLeft.x, topLeft.y, image.width() * scale, image.height() * scale};
}

void HOViewFrame::DrawInto(QPainter& painter, const HODisplayTransform& target) const {
    if (image.isNull()) return;
    if (transform == target) {
        painter.drawImage(QPoint(0, 0), image);
        return;
    }
    const QRectF placed = PlacedIn(target);
    if (std::abs(placed.width() - image.width()) < 1e-6) {
        // A pure move: an unscaled blit is several times cheaper than a scaled one.
        painter.drawImage(QPoint(qRound(placed.x()), qRound(placed.y())), image);
        return;
    }
    painter.drawImage(placed, image);
}

}  // namespace HXObjects
