#include "HXDataSources.h"

#include <algorithm>

#include "HODataSource.h"

using namespace HXObjects;

std::vector<HORefPtr<HOLayer>> HXDataSources::openLayers(const QString& path, QStringList* errors) {
    HOString error;
    std::vector<HORefPtr<HOLayer>> layers;
    if (HORefPtr<HODataSource> source = HODataSource::Open(HOString(path), &error))
        layers = source->OpenLayers(&error);
    if (!error.isEmpty()) *errors << error.toQString().split('\n');
    sortForDrawing(layers);
    return layers;
}

void HXDataSources::sortForDrawing(std::vector<HORefPtr<HOLayer>>& layers) {
    std::stable_sort(layers.begin(), layers.end(),
                     [](const HORefPtr<HOLayer>& a, const HORefPtr<HOLayer>& b) {
                         return drawRank(a->GetLayerType()) < drawRank(b->GetLayerType());
                     });
}

int HXDataSources::drawRank(HOLayer::LayerType type) {
    switch (type) {
        case HOLayer::RasterLayer:
            return 0;
        case HOLayer::PolygonLayer:
            return 1;
        case HOLayer::PointLayer:
            return 3;
        default:
            return 2;
    }
}
