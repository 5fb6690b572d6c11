#pragma once
// HOLayerBlend: how a layer's picture is laid over the layers below it — the painter's composition
// mode for the layer's composition, and whether the layer needs a picture of its own at all.
#include <QPainter>

#include "HOLayer.h"

namespace HXObjects {

class HOLayerBlend {
public:
    static QPainter::CompositionMode ModeOf(HOLayer::Composition composition);
    // Fully opaque and laid plainly over: the layer may draw straight onto the surface below.
    static bool IsPlain(const HOLayer& layer);
};

}  // namespace HXObjects
