#include "HXDataSources.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

int drawRank(OGRwkbGeometryType type) {
    switch (wkbFlatten(type)) {
        case wkbPolygon:
        case wkbMultiPolygon: return 0;
        case wkbLineString:
        case wkbMultiLineString: return 1;
        case wkbPoint:
        case wkbMultiPoint: return 2;
        default: return 1;
    }
}

}  // namespace

QStringList HXDataSources::layerSources(const QString& path) {
    GDALAllRegister();
    std::unique_ptr<GDALDataset> dataset(static_cast<GDALDataset*>(
        GDALOpenEx(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr)));
    if (!dataset || dataset->GetLayerCount() < 2) return {path};
    std::vector<std::pair<int, QString>> ranked;
    for (int i = 0; i < dataset->GetLayerCount(); ++i) {
        OGRLayer* layer = dataset->GetLayer(i);
        ranked.emplace_back(drawRank(layer->GetGeomType()),
                            path + "|layername=" + QString::fromUtf8(layer->GetName()));
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList sources;
    for (const auto& entry : ranked) sources << entry.second;
    return sources;
}
