#pragma once
// HORenderRequest: what a map view asks its renderer for — the map, where to look, and which layers
// must be drawn again, and where (in pixels), even where their cached picture is still at the right
// place.
#include <QImage>
#include <QRect>
#include <QRegion>
#include <map>

#include "HOColor.h"
#include "HODisplayTransform.h"
#include "HOMap.h"
#include "HORefPtr.h"
#include "HORenderContext.h"
#include "HOSize.h"

namespace HXObjects {

struct HORenderRequest {
    HORefPtr<HOMap> map;
    HODisplayTransform transform;
    HOSize size;
    double dpi = 96.0;
    double devicePixelRatio = 1.0;        // device pixels per logical pixel of `size` and `transform`
    QRegion redrawEverywhere;             // every layer, within this area
    std::map<int, QRegion> redrawLayers;  // layer id -> the area of that layer
    bool dropCaches = false;              // the pictures belong to another map

    QRect Whole() const { return QRect(0, 0, size.width, size.height); }
    // The pixels of `area` (map coordinates; an empty rectangle: the whole picture), grown to whole
    // pixels.
    QRect PixelsOf(const HORect& area) const;
    // Folds an older request that was not finished into this newer one: the newer place wins, the
    // areas either wanted drawn again are drawn again (all of the picture where the older one looked
    // elsewhere).
    void Absorb(const HORenderRequest& older);
    // What of the layer's current picture must be drawn again (empty: nothing).
    QRegion RedrawArea(int layerId) const;
    // The context a layer draws in for this request (the painter is left to the caller).
    HORenderContext Context(const HOCoordinateSystem* system, const HOTrackCancel* cancel) const;
    // A picture for this request, uninitialised: `size` logical pixels at the device pixel ratio, so
    // that a painter opened on it draws in logical pixels and lines and text come out sharp.
    QImage Picture() const;
    QSize PictureSize() const;
    // The same for any `logical` size at a pixel ratio (a part of the picture, say).
    static QImage PictureOf(const QSize& logical, double ratio);
    static QSize PictureSizeOf(const QSize& logical, double ratio);
};

}  // namespace HXObjects
