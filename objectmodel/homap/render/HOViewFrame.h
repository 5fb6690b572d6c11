#pragma once
// HOViewFrame: a rendered picture and the transform it was drawn at. Drawn at another transform it is
// moved and scaled so that every map point lands where that transform puts it — the preview shown
// while a new picture renders. Copies share the pixels (QImage is implicitly shared).
#include <QColor>
#include <QImage>
#include <QRectF>

#include "HODisplayTransform.h"

class QPainter;

namespace HXObjects {

struct HOViewFrame {
    QImage image;
    HODisplayTransform transform;

    bool IsAt(const HODisplayTransform& target) const { return !image.isNull() && transform == target; }
    // The picture's rectangle in pixels of a surface drawn at `target`.
    QRectF PlacedIn(const HODisplayTransform& target) const;
    // Draws over what the painter holds (layer pictures are partly transparent).
    void DrawInto(QPainter& painter, const HODisplayTransform& target) const;
    // Replaces every pixel of `target` (the picture is opaque): the picture where it lands, the
    // background elsewhere. Several times faster than a painter's scaled draw; a preview needs no
    // smoothing.
    bool CanBlitInto(const QImage& target) const;
    void BlitInto(QImage& target, const HODisplayTransform& at, const QColor& background) const;
};

}  // namespace HXObjects
