// Feature layers opened through OpenLayer: kinds of source and geometry, bad input, selection,
// lookup by id and memory use. Fixtures are written with OGR into a temporary folder.
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(std::vector<HOLayerFixture::Feature>)
Q_DECLARE_METATYPE(std::vector<int>)

namespace {

const char* const squareWithHole = "POLYGON((0 0,100 0,100 100,0 100,0 0),(40 40,60 40,60 60,40 60,40 40))";
const char* const triangle = "POLYGON((200 0,300 0,200 100,200 0))";

}  // namespace

class TestFeatureLayer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void opensEachKindOfSource_data();
    void opensEachKindOfSource();
    void badSourceGivesNullAndReadableError_data();
    void badSourceGivesNullAndReadableError();
    void emptyLayerIsAHarmlessLayer();
    void nonFiniteVerticesAreDropped();
    void layerWithoutCoordinateSystem();
    void selectByRectMeetsGeometryNotJustBox_data();
    void selectByRectMeetsGeometryNotJustBox();
    void selectsWithRectangleInAnotherSystem();
    void lookupByIdGivesACopy();
    void lookupFollowsSourceIds();
    void identifyListsTopmostFirst();
    void geometryMemoryStaysCloseToRawCoordinates_data();
    void geometryMemoryStaysCloseToRawCoordinates();

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, const char* driver, int epsg, OGRwkbGeometryType type,
                                  const std::vector<HOLayerFixture::Feature>& features);
    QTemporaryDir m_dir;
};

void TestFeatureLayer::initTestCase() {
    QVERIFY(m_dir.isValid());
    CPLPushErrorHandler(CPLQuietErrorHandler);
}

HORefPtr<HOFeatureLayer> TestFeatureLayer::open(const QString& file, const char* driver, int epsg,
                                                OGRwkbGeometryType type,
                                                const std::vector<HOLayerFixture::Feature>& features) {
    const QString path = m_dir.filePath(file);
    if (!HOLayerFixture::WriteVector(path, driver, epsg, type, features)) return nullptr;
    HOString error;
    HORefPtr<HOLayer> layer = OpenLayer(HOString(path), &error);
    if (!layer) qWarning("%s", error.c_str());
    return HODynamicCast<HOFeatureLayer>(layer);
}

void TestFeatureLayer::opensEachKindOfSource_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("driver");
    QTest::addColumn<int>("geometry");
    QTest::addColumn<std::vector<HOLayerFixture::Feature>>("features");
    QTest::addColumn<int>("layerType");
    QTest::addColumn<int>("geoType");
    QTest::addColumn<HORect>("extent");

    using F = std::vector<HOLayerFixture::Feature>;
    QTest::newRow("GeoPackage points")
        << "points.gpkg"
        << "GPKG" << int(wkbPoint) << F{{"POINT(1 2)"}, {"POINT(5 -3)"}} << int(HOLayer::PointLayer)
        << int(HOGeometry::GeoPoint) << HORect(1, 5, -3, 2);
    QTest::newRow("GeoJSON lines") << "lines.geojson"
                                   << "GeoJSON" << int(wkbLineString)
                                   << F{{"LINESTRING(0 0,10 10)"}, {"LINESTRING(-5 1,2 3)"}}
                                   << int(HOLayer::PolylineLayer) << int(HOGeometry::GeoLineString)
                                   << HORect(-5, 10, 0, 10);
    QTest::newRow("Shapefile polygons")
        << "polygons.shp"
        << "ESRI Shapefile" << int(wkbPolygon) << F{{squareWithHole}, {triangle}}
        << int(HOLayer::PolygonLayer) << int(HOGeometry::GeoPolygon) << HORect(0, 300, 0, 100);
    QTest::newRow("multi-polygons") << "multi.gpkg"
                                    << "GPKG" << int(wkbMultiPolygon)
                                    << F{{"MULTIPOLYGON(((0 0,1 0,1 1,0 0)),((5 5,6 5,6 7,5 5)))"}}
                                    << int(HOLayer::PolygonLayer) << int(HOGeometry::GeoMultiPolygon)
                                    << HORect(0, 6, 0, 7);
    QTest::newRow("multi-points") << "mpoints.gpkg"
                                  << "GPKG" << int(wkbMultiPoint) << F{{"MULTIPOINT((0 0),(3 4))"}}
                                  << int(HOLayer::PointLayer) << int(HOGeometry::GeoMultiPoint)
                                  << HORect(0, 3, 0, 4);
    QTest::newRow("multi-lines") << "mlines.gpkg"
                                 << "GPKG" << int(wkbMultiLineString)
                                 << F{{"MULTILINESTRING((0 0,1 1),(2 2,3 9))"}} << int(HOLayer::PolylineLayer)
                                 << int(HOGeometry::GeoMultiLineString) << HORect(0, 3, 0, 9);
    QTest::newRow("curved polygon") << "curve.gpkg"
                                    << "GPKG" << int(wkbCurvePolygon)
                                    << F{{"CURVEPOLYGON(CIRCULARSTRING(0 0,1 1,2 0,1 -1,0 0))"}}
                                    << int(HOLayer::PolygonLayer) << int(HOGeometry::GeoPolygon)
                                    << HORect(0, 2, -1, 1);
    QTest::newRow("mixed, mostly points")
        << "mixed.geojson"
        << "GeoJSON" << int(wkbUnknown) << F{{"POINT(0 0)"}, {"LINESTRING(1 1,2 2)"}, {"POINT(3 3)"}}
        << int(HOLayer::PointLayer) << int(HOGeometry::GeoPoint) << HORect(0, 3, 0, 3);
}

void TestFeatureLayer::opensEachKindOfSource() {
    QFETCH(QString, file);
    QFETCH(QString, driver);
    QFETCH(int, geometry);
    QFETCH(std::vector<HOLayerFixture::Feature>, features);
    HORefPtr<HOFeatureLayer> layer =
        open(file, qPrintable(driver), 4326, OGRwkbGeometryType(geometry), features);
    QVERIFY(layer);
    QVERIFY(layer->IsValid());
    QTEST(int(layer->GetLayerType()), "layerType");
    QTEST(int(layer->GetGeometryType()), "geoType");
    QCOMPARE(layer->GetFeatureCount(), int(features.size()));
    QFETCH(HORect, extent);
    const HORect e = layer->GetExtent();
    // Curves are drawn as short chords, so their extent may fall a little inside.
    const double tolerance = 0.01;
    QVERIFY2(std::abs(e.minx - extent.minx) < tolerance && std::abs(e.maxx - extent.maxx) < tolerance &&
                 std::abs(e.miny - extent.miny) < tolerance && std::abs(e.maxy - extent.maxy) < tolerance,
             qPrintable(QStringLiteral("%1 %2 %3 %4").arg(e.minx).arg(e.maxx).arg(e.miny).arg(e.maxy)));
    QCOMPARE(layer->GetSpatialReference()->GetEpsgCode(), 4326);
    QCOMPARE(layer->GetSource(), HOString(m_dir.filePath(file)));
}

void TestFeatureLayer::badSourceGivesNullAndReadableError_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");  // written as is; a null array writes nothing
    QTest::addColumn<QString>("suffix");      // appended to the path when opening
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << "missing.shp" << QByteArray() << ""
                             << "no such file";
    QTest::newRow("corrupt GeoPackage") << "corrupt.gpkg" << QByteArray(4096, '\x5a') << ""
                                        << "";
    QTest::newRow("truncated GeoJSON")
        << "truncated.geojson" << QByteArray(R"({"type":"FeatureCollection","features":[{"type":"Fea)") << ""
        << "";
    QTest::newRow("empty file") << "empty.geojson" << QByteArray("") << ""
                                << "";
    QTest::newRow("truncated GeoTIFF") << "truncated.tif" << QByteArray("II*\0\x08\0\0\0\x10\0", 10) << ""
                                       << "";
    QTest::newRow("unknown layer name")
        << "named.geojson" << QByteArray(R"({"type":"FeatureCollection","features":[]})")
        << "|layername=roads"
        << "no layer named 'roads'";
}

void TestFeatureLayer::badSourceGivesNullAndReadableError() {
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, suffix);
    QFETCH(QString, reason);
    const QString path = m_dir.filePath(file);
    if (!content.isNull()) {
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(content);
    }
    HOString error;
    const HOString source(path + suffix);
    QVERIFY(!OpenLayer(source, &error));
    const QString text = error.toQString();
    QVERIFY2(text.startsWith(QStringLiteral("cannot open '%1': ").arg(source.toQString())), qPrintable(text));
    QVERIFY2(text.size() > source.toQString().size() + 16, qPrintable(text));  // a reason follows
    QVERIFY2(text.contains(reason), qPrintable(text));
    QVERIFY(!OpenLayer(source));  // the error text is optional
}

void TestFeatureLayer::emptyLayerIsAHarmlessLayer() {
    HORefPtr<HOFeatureLayer> layer = open("nothing.gpkg", "GPKG", 4509, wkbPolygon, {});
    QVERIFY(layer);
    QCOMPARE(layer->GetFeatureCount(), 0);
    QVERIFY(layer->GetExtent().IsEmpty());
    QCOMPARE(layer->SelectByRect(HORect(-1e9, 1e9, -1e9, 1e9), false), 0);
    QVERIFY(!layer->HasSelectedFeatures());
    QVERIFY(!layer->GetFeature(1));
    QImage image = HOLayerFixture::WhiteImage(QSize(20, 20));
    QPainter painter(&image);
    layer->Render(HOLayerFixture::Context(&painter, image.size(), HORect(0, 10, 0, 10)));
    painter.end();
    QCOMPARE(image.pixel(10, 10), qRgb(255, 255, 255));
}

void TestFeatureLayer::nonFiniteVerticesAreDropped() {
    const QString path = m_dir.filePath("nan.gpkg");
    QVERIFY(HOLayerFixture::WriteVector(path, "GPKG", 4509, wkbLineString, {}));
    {
        GDALDatasetUniquePtr ds(
            GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
        OGRLayer* layer = ds->GetLayer(0);
        OGRFeature feature(layer->GetLayerDefn());
        OGRLineString line;
        line.addPoint(0, 0);
        line.addPoint(NAN, 5);
        line.addPoint(10, INFINITY);
        line.addPoint(10, 10);
        feature.SetGeometry(&line);
        QCOMPARE(layer->CreateFeature(&feature), OGRERR_NONE);
    }
    HORefPtr<HOFeatureLayer> layer = HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(path)));
    QVERIFY(layer);
    QCOMPARE(layer->GetExtent(), HORect(0, 10, 0, 10));
    HORefPtr<HOGeometry> geometry = layer->GetFeatureGeometry(1);
    QVERIFY(geometry);
    QCOMPARE(geometry->Parts().size(), std::size_t(1));
    QCOMPARE(geometry->Parts()[0], (HOGeometry::Part{HOPoint(0, 0), HOPoint(10, 10)}));
}

void TestFeatureLayer::layerWithoutCoordinateSystem() {
    HORefPtr<HOFeatureLayer> layer = open("nosystem.shp", "ESRI Shapefile", 0, wkbPoint, {{"POINT(3 4)"}});
    QVERIFY(layer);
    QVERIFY(!layer->GetSpatialReference());
    QVERIFY(layer->IsSameCoordinateSystem(nullptr));
    QVERIFY(!layer->IsSameCoordinateSystem(HOCoordinateSystem::FromEpsg(4509)));
    // Nothing to transform from: the layer's own coordinates are used as they are.
    QCOMPARE(layer->GetExtentIn(HOCoordinateSystem::FromEpsg(4490)), layer->GetExtent());
    QCOMPARE(layer->SelectByRect(HORect(2, 4, 3, 5), false, HOCoordinateSystem::FromEpsg(4490)), 1);
}

void TestFeatureLayer::selectByRectMeetsGeometryNotJustBox_data() {
    QTest::addColumn<HORect>("first");
    QTest::addColumn<HORect>("second");  // added to the first selection
    QTest::addColumn<std::vector<int>>("selected");

    const HORect none(1000, 1001, 1000, 1001);
    QTest::newRow("inside the hole") << HORect(45, 55, 45, 55) << none << std::vector<int>{};
    QTest::newRow("triangle's empty corner") << HORect(280, 295, 80, 95) << none << std::vector<int>{};
    QTest::newRow("across the hole's edge") << HORect(55, 65, 45, 55) << none << std::vector<int>{1};
    QTest::newRow("within the square's body") << HORect(10, 20, 10, 20) << none << std::vector<int>{1};
    QTest::newRow("holding the triangle") << HORect(150, 400, -50, 150) << none << std::vector<int>{2};
    QTest::newRow("added to") << HORect(10, 20, 10, 20) << HORect(210, 220, 10, 20) << std::vector<int>{1, 2};
    QTest::newRow("added twice") << HORect(10, 20, 10, 20) << HORect(10, 20, 10, 20) << std::vector<int>{1};
}

void TestFeatureLayer::selectByRectMeetsGeometryNotJustBox() {
    QFETCH(HORect, first);
    QFETCH(HORect, second);
    HORefPtr<HOFeatureLayer> layer =
        open("select.gpkg", "GPKG", 4509, wkbPolygon, {{squareWithHole}, {triangle}});
    QVERIFY(layer);
    layer->SetSelectedIds({2});
    layer->SelectByRect(first, false);  // replaces
    layer->SelectByRect(second, true);
    QTEST(layer->GetSelectedIds(), "selected");
    QCOMPARE(layer->HasSelectedFeatures(), !layer->GetSelectedIds().empty());
    layer->ClearSelection();
    QVERIFY(!layer->HasSelectedFeatures());
}

void TestFeatureLayer::selectsWithRectangleInAnotherSystem() {
    // A square kilometre around 117E 30N, in Gauss-Kruger metres.
    HORefPtr<HOCoordinateSystem> geographic = HOCoordinateSystem::FromEpsg(4490);
    double x = 117.0, y = 30.0;
    OGRSpatialReference from, to;
    from.importFromEPSG(4490);
    to.importFromEPSG(4509);
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    to.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    std::unique_ptr<OGRCoordinateTransformation> t(OGRCreateCoordinateTransformation(&from, &to));
    QVERIFY(t->Transform(1, &x, &y));
    const std::string square = QStringLiteral("POLYGON((%1 %2,%3 %2,%3 %4,%1 %4,%1 %2))")
                                   .arg(x - 500, 0, 'f', 3)
                                   .arg(y - 500, 0, 'f', 3)
                                   .arg(x + 500, 0, 'f', 3)
                                   .arg(y + 500, 0, 'f', 3)
                                   .toStdString();
    HORefPtr<HOFeatureLayer> layer = open("gk.gpkg", "GPKG", 4509, wkbPolygon, {{square}});
    QVERIFY(layer);
    QCOMPARE(layer->SelectByRect(HORect(116.999, 117.001, 29.999, 30.001), false, geographic), 1);
    QCOMPARE(layer->SelectByRect(HORect(117.01, 117.02, 30.0, 30.01), false, geographic), 0);
    const HORect inGeographic = layer->GetExtentIn(geographic);
    QVERIFY(inGeographic.Contains(HOPoint(117.0, 30.0)));
    QVERIFY(inGeographic.Width() < 0.02);
}

void TestFeatureLayer::lookupByIdGivesACopy() {
    HORefPtr<HOFeatureLayer> layer =
        open("lookup.gpkg", "GPKG", 4509, wkbPolygon,
             {{squareWithHole, OGRNullFID, "square"}, {triangle, OGRNullFID, "tri"}});
    QVERIFY(layer);
    HORefPtr<HOFeature> feature = layer->GetFeature(2);
    QVERIFY(feature);
    QCOMPARE(feature->GetID(), 2);
    const auto& attributes = feature->GetAttributes();
    QVERIFY(std::find(attributes.begin(), attributes.end(), HOFeature::Attribute("name", "tri")) !=
            attributes.end());
    HORefPtr<HOGeometry> geometry = feature->GetGeometry();
    QCOMPARE(geometry->GetType(), HOGeometry::GeoPolygon);
    QCOMPARE(geometry->Parts(), (std::vector<HOGeometry::Part>{
                                    {HOPoint(200, 0), HOPoint(300, 0), HOPoint(200, 100), HOPoint(200, 0)}}));
    geometry->Parts()[0][0] = HOPoint(-1, -1);
    QCOMPARE(layer->GetFeatureGeometry(2)->Parts()[0][0], HOPoint(200, 0));
    QCOMPARE(layer->GetFeatureGeometry(1)->Parts().size(), std::size_t(2));  // ring and hole
    QVERIFY(!layer->GetFeature(3));
    QVERIFY(!layer->GetFeatureGeometry(0));
}

void TestFeatureLayer::lookupFollowsSourceIds() {
    HORefPtr<HOFeatureLayer> layer =
        open("ids.gpkg", "GPKG", 4509, wkbPoint, {{"POINT(1 1)", 10}, {"POINT(2 2)", 20}, {"POINT(3 3)", 7}});
    QVERIFY(layer);
    QCOMPARE(layer->GetFeatureGeometry(20)->Parts()[0][0], HOPoint(2, 2));
    QCOMPARE(layer->GetFeatureGeometry(7)->Parts()[0][0], HOPoint(3, 3));
    QVERIFY(!layer->GetFeatureGeometry(11));
    QCOMPARE(layer->SelectByRect(HORect(0, 2.5, 0, 2.5), false), 2);
    QCOMPARE(layer->GetSelectedIds(), (std::vector<int>{10, 20}));
}

void TestFeatureLayer::identifyListsTopmostFirst() {
    HORefPtr<HOFeatureLayer> layer =
        open("stack.gpkg", "GPKG", 4509, wkbPolygon,
             {{"POLYGON((0 0,10 0,10 10,0 10,0 0))"}, {"POLYGON((5 5,15 5,15 15,5 15,5 5))"}});
    QVERIFY(layer);
    QCOMPARE(layer->IdentifyAt(HOPoint(7, 7), 0.5), (std::vector<int>{2, 1}));
    QCOMPARE(layer->IdentifyAt(HOPoint(2, 2), 0.5), (std::vector<int>{1}));
    QCOMPARE(layer->IdentifyAt(HOPoint(20, 20), 0.5), (std::vector<int>{}));
}

void TestFeatureLayer::geometryMemoryStaysCloseToRawCoordinates_data() {
    QTest::addColumn<int>("geometry");
    QTest::addColumn<int>("verticesPerFeature");
    QTest::newRow("points") << int(wkbPoint) << 1;
    QTest::newRow("lines") << int(wkbLineString) << 12;
    QTest::newRow("polygons") << int(wkbPolygon) << 25;
}

void TestFeatureLayer::geometryMemoryStaysCloseToRawCoordinates() {
    QFETCH(int, geometry);
    QFETCH(int, verticesPerFeature);
    std::vector<HOLayerFixture::Feature> features;
    for (int i = 0; i < 2000; ++i) {
        QString wkt;
        for (int v = 0; v < verticesPerFeature; ++v) {
            const int last = geometry == wkbPolygon ? verticesPerFeature - 1 : verticesPerFeature;
            const double a = 2 * M_PI * (v % last) / last;
            wkt += QStringLiteral("%1%2 %3").arg(v ? "," : "").arg(i + std::cos(a)).arg(std::sin(a));
        }
        const char* pattern = geometry == wkbPoint        ? "POINT(%1)"
                              : geometry == wkbLineString ? "LINESTRING(%1)"
                                                          : "POLYGON((%1))";
        features.push_back({QString::fromLatin1(pattern).arg(wkt).toStdString()});
    }
    HORefPtr<HOFeatureLayer> layer = open(QStringLiteral("memory%1.gpkg").arg(geometry), "GPKG", 4509,
                                          OGRwkbGeometryType(geometry), features);
    QVERIFY(layer);
    const double raw = 16.0 * verticesPerFeature * features.size();
    QVERIFY2(layer->GetGeometryBytes() <= 1.25 * raw,
             qPrintable(QString::number(layer->GetGeometryBytes() / raw)));
}

QTEST_MAIN(TestFeatureLayer)
#include "tst_featurelayer.moc"
