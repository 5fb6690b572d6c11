#include "source/private/HOFeatureLayerLoader.h"

#include <QCoreApplication>

#include "private/HOCoordinateSystemOgr.h"
#include "render/private/HOFeatureStyleSet.h"
#include "source/private/HOFeatureLayerPrivate.h"
#include "source/private/HOFeatureWriter.h"
#include "source/private/HOMemoryBudget.h"
#include "source/private/HOOgrGeometryReader.h"

namespace HXObjects {

HORefPtr<HOFeatureLayer> HOFeatureLayerLoader::Load(const std::shared_ptr<HOSharedDataset>& source, int index,
                                                    HOString* reason,
                                                    const HOOgrGeometryReader::Progress& progress) {
    std::lock_guard<std::mutex> lock(source->mutex);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRLayer* layer = source->dataset->GetLayer(index);
    if (!layer) {
        *reason = QCoreApplication::translate("HXObjects::HOFeatureLayerLoader", "it holds no vector layer");
        return nullptr;
    }
    const bool streamed = HOFeatureStream::Exceeds(layer, HOMemoryBudget::Bytes());
    HOOgrGeometryReader reader;
    CPLErrorReset();
    if (!streamed && !reader.ReadLayer(layer, *source, progress)) {
        *reason = QCoreApplication::translate("HXObjects::HOFeatureLayerLoader", "cancelled");
        return nullptr;
    }
    if (!streamed && reader.Topology().FeatureCount() == 0 && CPLGetLastErrorType() >= CE_Failure) {
        *reason = CPLGetLastErrorMsg();
        return nullptr;
    }
    const HOFeatureKind dominant = reader.DominantKind();
    const OGRwkbGeometryType declared = wkbFlatten(layer->GetGeomType());
    auto topology = std::make_shared<HOFeatureTopology>(std::move(reader.Topology()));
    auto store = std::make_shared<const HOFeatureStore>(topology, std::move(reader.Vertices()),
                                                        std::move(reader.Boxes()));

    HORefPtr<HOFeatureLayer> result(new HOFeatureLayer);
    auto system = HOCoordinateSystemOgr::FromOgr(layer->GetSpatialRef());
    result->d = std::make_unique<HOFeatureLayer::Private>(source, layer, system, store);
    result->d->type = layerTypeOf(declared, dominant);
    result->d->geometryType = geoTypeOf(declared, dominant);
    const HOFeatureKind kind = result->d->type == HOLayer::PointLayer      ? HOFeatureKind::Point
                               : result->d->type == HOLayer::PolylineLayer ? HOFeatureKind::Line
                                                                           : HOFeatureKind::Polygon;
    result->d->style = HOFeatureStyleSet::DefaultStyle(kind);
    result->SetName(layer->GetName());
    for (int i = 0; i < layer->GetLayerDefn()->GetFieldCount(); ++i) {
        const OGRFieldDefn* field = layer->GetLayerDefn()->GetFieldDefn(i);
        result->d->fields.emplace_back(field->GetNameRef(), OGRFieldDefn::GetFieldTypeName(field->GetType()));
    }
    if (streamed)
        streamFrom(*result->d, source->path, layer);
    else
        result->d->writer =
            HOFeatureWriter::For(source->path, source->dataset.get(), layer, &result->d->readOnlyReason);
    return result;
}

void HOFeatureLayerLoader::streamFrom(HOFeatureLayer::Private& d, const std::string& path, OGRLayer* layer) {
    OGREnvelope envelope;
    HOBox extent;
    if (layer->GetExtent(&envelope, TRUE) == OGRERR_NONE) {
        extent.min = {envelope.MinX, envelope.MinY};
        extent.max = {envelope.MaxX, envelope.MaxY};
    }
    d.stream = std::make_shared<const HOFeatureStream>(path, layer->GetName(), extent,
                                                       std::size_t(layer->GetFeatureCount(FALSE)));
    d.overview = std::make_unique<HOFeatureOverview>(d.stream, HOMemoryBudget::Bytes());
    d.readOnlyReason =
        QCoreApplication::translate("HXObjects::HOFeatureLayerLoader",
                                    "it is larger than the memory budget and is drawn from its source");
}

HOLayer::LayerType HOFeatureLayerLoader::layerTypeOf(OGRwkbGeometryType type, HOFeatureKind dominant) {
    switch (geoTypeOf(type, dominant)) {
        case HOGeometry::GeoPoint:
        case HOGeometry::GeoMultiPoint:
            return HOLayer::PointLayer;
        case HOGeometry::GeoLineString:
        case HOGeometry::GeoMultiLineString:
            return HOLayer::PolylineLayer;
        case HOGeometry::GeoPolygon:
        case HOGeometry::GeoMultiPolygon:
            return HOLayer::PolygonLayer;
        default:
            return HOLayer::UnknownLayer;
    }
}

HOGeometry::GeoType HOFeatureLayerLoader::geoTypeOf(OGRwkbGeometryType type, HOFeatureKind dominant) {
    switch (OGR_GT_GetLinear(type)) {
        case wkbPoint:
            return HOGeometry::GeoPoint;
        case wkbMultiPoint:
            return HOGeometry::GeoMultiPoint;
        case wkbLineString:
            return HOGeometry::GeoLineString;
        case wkbMultiLineString:
            return HOGeometry::GeoMultiLineString;
        case wkbPolygon:
            return HOGeometry::GeoPolygon;
        case wkbMultiPolygon:
            return HOGeometry::GeoMultiPolygon;
        default:
            break;
    }
    // A layer of mixed or undeclared type is named after what most of its features are.
    switch (dominant) {
        case HOFeatureKind::Point:
            return HOGeometry::GeoPoint;
        case HOFeatureKind::Line:
            return HOGeometry::GeoLineString;
        case HOFeatureKind::Polygon:
            return HOGeometry::GeoPolygon;
        case HOFeatureKind::Empty:
            break;
    }
    return HOGeometry::GeoUnknown;
}

}  // namespace HXObjects
