#include "LayerBench.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QPainter>

#include "BenchClock.h"
#include "HOCoordinateSystem.h"
#include "HORenderContext.h"

using namespace HXObjects;

namespace {

long long vertexCount(const OGRGeometry* g) {
    const OGRwkbGeometryType type = wkbFlatten(g->getGeometryType());
    if (type == wkbPoint) return g->IsEmpty() ? 0 : 1;
    if (OGR_GT_IsSubClassOf(type, wkbCurve)) return g->toCurve()->getNumPoints();
    long long n = 0;
    if (type == wkbPolygon)
        for (const OGRLinearRing* ring : *g->toPolygon()) n += ring->getNumPoints();
    else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection))
        for (const OGRGeometry* member : *g->toGeometryCollection()) n += vertexCount(member);
    return n;
}

}  // namespace

void LayerBench::UseThePeersStyle(HOFeatureLayer* layer) {
    switch (layer->GetLayerType()) {
        case HOLayer::PointLayer: {
            HORefPtr<HOStyle> dot = HOStyle::NewMarker(HOStyle::Circle, 3, HOColor(200, 50, 40));
            dot->SetOutlineColor(HOColor(200, 50, 40));
            layer->SetStyle(dot);
            break;
        }
        case HOLayer::PolylineLayer:
            layer->SetStyle(HOStyle::NewLine(1, HOColor(40, 80, 160)));
            break;
        default:
            layer->SetStyle(HOStyle::NewFill(HOColor(170, 200, 150), HOColor(60, 90, 60), 1));
            break;
    }
}

LayerBench::LayerBench(const QString& gpkg, const QString& layer, const QSize& size, const QString& outDir)
    : m_gpkg(gpkg), m_layer(layer), m_size(size), m_outDir(outDir) {}

HORect LayerBench::Widened(const HORect& e, const QSize& size) {
    const double aspect = double(size.width()) / size.height();
    double halfW = e.Width() / 2, halfH = e.Height() / 2;
    if (halfW / halfH < aspect)
        halfW = halfH * aspect;
    else
        halfH = halfW / aspect;
    const HOPoint c = e.Center();
    return HORect(c.x - halfW, c.x + halfW, c.y - halfH, c.y + halfH);
}

LayerFigures LayerBench::Run() {
    LayerFigures f;
    // Alternate the two reads and keep the better of each, so the file cache favours neither.
    f.plainRead = plainRead(&f.features, &f.vertices);
    HORefPtr<HOFeatureLayer> layer;
    const HOString source(m_gpkg + QStringLiteral("|layername=") + m_layer);
    f.open = BenchClock::Seconds([&] { layer = HODynamicCast<HOFeatureLayer>(OpenLayer(source)); });
    if (!layer) return f;
    UseThePeersStyle(layer);
    const HORect full = Widened(layer->GetExtent(), m_size);
    const HOPoint c = full.Center();
    const HORect zoom(c.x - full.Width() / 20, c.x + full.Width() / 20, c.y - full.Height() / 20,
                      c.y + full.Height() / 20);
    QImage image;
    // The first zoomed render waits for the index, which is packed in the background after opening.
    f.indexReady = f.open + BenchClock::Seconds([&] { Render(layer, zoom, m_size, 1, &image); });
    f.plainRead = std::min(f.plainRead, plainRead(nullptr, nullptr));
    layer = nullptr;
    f.open = std::min(f.open,
                      BenchClock::Seconds([&] { layer = HODynamicCast<HOFeatureLayer>(OpenLayer(source)); }));
    UseThePeersStyle(layer);
    f.memoryRatio = double(layer->GetGeometryBytes()) / (16.0 * double(f.vertices));

    f.zoomRender = Render(layer, zoom, m_size, 7, &image);
    image.save(m_outDir + QStringLiteral("/hxbench-%1-zoom.png").arg(m_layer));
    f.fullRender = Render(layer, full, m_size, 5, &image);
    image.save(m_outDir + QStringLiteral("/hxbench-%1.png").arg(m_layer));
    return f;
}

double LayerBench::plainRead(long long* features, long long* vertices) const {
    return BenchClock::Seconds([&] {
        GDALDatasetUniquePtr ds(
            GDALDataset::Open(m_gpkg.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
        OGRLayer* layer = ds ? ds->GetLayerByName(m_layer.toUtf8().constData()) : nullptr;
        if (!layer) return;
        // Geometry only, as the layer reads it.
        CPLStringList ignored;
        for (int i = 0; i < layer->GetLayerDefn()->GetFieldCount(); ++i)
            ignored.AddString(layer->GetLayerDefn()->GetFieldDefn(i)->GetNameRef());
        layer->SetIgnoredFields(const_cast<const char**>(ignored.List()));
        long long n = 0, v = 0;
        for (auto& feature : *layer) {
            const OGRGeometry* g = feature->GetGeometryRef();
            ++n;
            if (g) v += vertexCount(g);
        }
        if (features) *features = n;
        if (vertices) *vertices = v;
    });
}

double LayerBench::Render(HOFeatureLayer* layer, const HORect& extent, const QSize& size, int runs,
                          QImage* image) {
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        *image = QImage(size, QImage::Format_ARGB32_Premultiplied);
        image->fill(Qt::white);
        QPainter painter(image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        HORenderContext context;
        context.painter = &painter;
        context.size = {size.width(), size.height()};
        context.extent = extent;
        context.transform.extentLeft = extent.minx;
        context.transform.extentTop = extent.maxy;
        context.transform.unitsPerPixel = extent.Width() / size.width();
        context.mapSystem = layer->GetSpatialReference();
        best = std::min(best, BenchClock::Seconds([&] { layer->Render(context); }));
    }
    return best;
}
