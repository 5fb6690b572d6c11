#include "HOLayerBlend.h"

namespace HXObjects {

QPainter::CompositionMode HOLayerBlend::ModeOf(HOLayer::Composition composition) {
    switch (composition) {
        case HOLayer::Multiply:
            return QPainter::CompositionMode_Multiply;
        case HOLayer::Screen:
            return QPainter::CompositionMode_Screen;
        case HOLayer::Overlay:
            return QPainter::CompositionMode_Overlay;
        case HOLayer::Darken:
            return QPainter::CompositionMode_Darken;
        case HOLayer::Lighten:
            return QPainter::CompositionMode_Lighten;
        case HOLayer::SourceOver:
            break;
    }
    return QPainter::CompositionMode_SourceOver;
}

bool HOLayerBlend::IsPlain(const HOLayer& layer) {
    return layer.GetOpacity() >= 1.0 && layer.GetComposition() == HOLayer::SourceOver;
}

}  // namespace HXObjects
