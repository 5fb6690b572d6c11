#pragma once
// HORenderRequest: what a map view asks its renderer for — the map, where to look, and which layers
// must be drawn again even where their cached picture is still at the right place.
#include <QImage>
#include <set>

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
    double devicePixelRatio = 1.0;  // device pixels per logical pixel of `size` and `transform`
    bool redrawAll = false;
    std::set<int> redrawLayers;  // layer ids
    bool dropCaches = false;     // the pictures belong to another map

    // Folds an older request that was not finished into this newer one: the newer place wins, the
    // layers either wanted drawn again are drawn again.
    void Absorb(const HORenderRequest& older);
    bool MustRedraw(int layerId) const { return redrawAll || redrawLayers.count(layerId) != 0; }
    // The context a layer draws in for this request (the painter is left to the caller).
    HORenderContext Context(const HOCoordinateSystem* system, const HOTrackCancel* cancel) const;
    // A picture for this request, uninitialised: `size` logical pixels at the device pixel ratio, so
    // that a painter opened on it draws in logical pixels and lines and text come out sharp.
    QImage Picture() const;
    QSize PictureSize() const;
};

}  // namespace HXObjects
