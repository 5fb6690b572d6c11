// Opening data: each kind of feature source, empty layers, NaN vertices, no coordinate system,
// selection, lookup and memory use; reprojection checked against PROJ itself. Fixtures
// are written with OGR and GDAL into a temporary folder.
#include <proj.h>

#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOGeometryProject.h"
#include "HOLayerFixture.h"
#include "HOTestPrinters.h"

using namespace HXObjects;
using Features = std::vector<HOLayerFixture::Feature>;

Q_DECLARE_METATYPE(Features)
Q_DECLARE_METATYPE(std::vector<int>)

namespace {

const char* const squareWithHole = "POLYGON((0 0,100 0,100 100,0 100,0 0),(40 40,60 40,60 60,40 60,40 40))";
const char* const triangle = "POLYGON((200 0,300 0,200 100,200 0))";

// The reference: PROJ directly, with easting/longitude first.
HOPoint projTransform(int from, int to, const HOPoint& p) {
    PJ_CONTEXT* context = proj_context_create();
    PJ* raw = proj_create_crs_to_crs(context, qPrintable(QStringLiteral("EPSG:%1").arg(from)),
                                     qPrintable(QStringLiteral("EPSG:%1").arg(to)), nullptr);
    PJ* transform = proj_normalize_for_visualization(context, raw);
    const PJ_COORD out = proj_trans(transform, PJ_FWD, proj_coord(p.x, p.y, 0, 0));
    proj_destroy(transform);
    proj_destroy(raw);
    proj_context_destroy(context);
    return {out.xy.x, out.xy.y};
}

}  // namespace

class TestFeatureLayer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        CPLPushErrorHandler(CPLQuietErrorHandler);
    }

    void opensEachKindOfSource_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("geometry");
        QTest::addColumn<Features>("features");
        QTest::addColumn<int>("layerType");
        QTest::addColumn<int>("geoType");
        QTest::addColumn<HORect>("extent");
        const auto row = [](const char* name, const char* file, OGRwkbGeometryType geometry,
                            Features features, HOLayer::LayerType layerType, HOGeometry::GeoType geoType,
                            HORect extent) {
            QTest::newRow(name) << file << int(geometry) << features << int(layerType) << int(geoType)
                                << extent;
        };
        row("GeoPackage points", "points.gpkg", wkbPoint, {{"POINT(1 2)"}, {"POINT(5 -3)"}},
            HOLayer::PointLayer, HOGeometry::GeoPoint, HORect(1, 5, -3, 2));
        row("GeoJSON lines", "lines.geojson", wkbLineString,
            {{"LINESTRING(0 0,10 10)"}, {"LINESTRING(-5 1,2 3)"}}, HOLayer::PolylineLayer,
            HOGeometry::GeoLineString, HORect(-5, 10, 0, 10));
        row("Shapefile polygons", "polygons.shp", wkbPolygon, {{squareWithHole}, {triangle}},
            HOLayer::PolygonLayer, HOGeometry::GeoPolygon, HORect(0, 300, 0, 100));
        row("multi-polygons", "multi.gpkg", wkbMultiPolygon,
            {{"MULTIPOLYGON(((0 0,1 0,1 1,0 0)),((5 5,6 5,6 7,5 5)))"}}, HOLayer::PolygonLayer,
            HOGeometry::GeoMultiPolygon, HORect(0, 6, 0, 7));
        row("multi-points", "mpoints.gpkg", wkbMultiPoint, {{"MULTIPOINT((0 0),(3 4))"}}, HOLayer::PointLayer,
            HOGeometry::GeoMultiPoint, HORect(0, 3, 0, 4));
        row("multi-lines", "mlines.gpkg", wkbMultiLineString, {{"MULTILINESTRING((0 0,1 1),(2 2,3 9))"}},
            HOLayer::PolylineLayer, HOGeometry::GeoMultiLineString, HORect(0, 3, 0, 9));
        row("curved polygon", "curve.gpkg", wkbCurvePolygon,
            {{"CURVEPOLYGON(CIRCULARSTRING(0 0,1 1,2 0,1 -1,0 0))"}}, HOLayer::PolygonLayer,
            HOGeometry::GeoPolygon, HORect(0, 2, -1, 1));
        row("mixed, mostly points", "mixed.geojson", wkbUnknown,
            {{"POINT(0 0)"}, {"LINESTRING(1 1,2 2)"}, {"POINT(3 3)"}}, HOLayer::PointLayer,
            HOGeometry::GeoPoint, HORect(0, 3, 0, 3));
    }

    void opensEachKindOfSource() {
        QFETCH(QString, file);
        QFETCH(int, geometry);
        QFETCH(Features, features);
        QFETCH(HORect, extent);
        HORefPtr<HOFeatureLayer> layer = open(file, 4326, OGRwkbGeometryType(geometry), features);
        QVERIFY(layer && layer->IsValid());
        QTEST(int(layer->GetLayerType()), "layerType");
        QTEST(int(layer->GetGeometryType()), "geoType");
        QCOMPARE(layer->GetFeatureCount(), int(features.size()));
        const HORect e = layer->GetExtent();
        // Curves are drawn as short chords, so their extent may fall a little inside.
        QVERIFY2(std::abs(e.minx - extent.minx) < 0.01 && std::abs(e.maxx - extent.maxx) < 0.01 &&
                     std::abs(e.miny - extent.miny) < 0.01 && std::abs(e.maxy - extent.maxy) < 0.01,
                 QTest::toString(e));
        QCOMPARE(layer->GetSpatialReference()->GetEpsgCode(), 4326);
        QCOMPARE(layer->GetSource(), HOString(m_dir.filePath(file)));
    }

    void emptyLayerIsAHarmlessLayer() {
        HORefPtr<HOFeatureLayer> layer = open("nothing.gpkg", 4509, wkbPolygon, {});
        QVERIFY(layer);
        QCOMPARE(layer->GetFeatureCount(), 0);
        QVERIFY(layer->GetExtent().IsEmpty());
        QCOMPARE(layer->SelectByRect(HORect(-1e9, 1e9, -1e9, 1e9), false), 0);
        QVERIFY(!layer->HasSelectedFeatures() && !layer->GetFeature(1));
        QCOMPARE(HOLayerFixture::Render({layer.get()}, HORect(0, 10, 0, 10)).pixel(10, 10),
                 qRgb(255, 255, 255));
    }

    void nonFiniteVerticesAreDropped() {
        const QString path = m_dir.filePath("nan.gpkg");
        QVERIFY(HOLayerFixture::WriteVector(path, "GPKG", 4509, wkbLineString, {}));
        {
            GDALDatasetUniquePtr ds(
                GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
            OGRFeature feature(ds->GetLayer(0)->GetLayerDefn());
            OGRLineString line;
            line.addPoint(0, 0);
            line.addPoint(NAN, 5);
            line.addPoint(10, INFINITY);
            line.addPoint(10, 10);
            feature.SetGeometry(&line);
            QCOMPARE(ds->GetLayer(0)->CreateFeature(&feature), OGRERR_NONE);
        }
        HORefPtr<HOFeatureLayer> layer = HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(path)));
        QVERIFY(layer);
        QCOMPARE(layer->GetExtent(), HORect(0, 10, 0, 10));
        HORefPtr<HOGeometry> geometry = layer->GetFeatureGeometry(1);
        QVERIFY(geometry);
        QCOMPARE(geometry->Parts(), (std::vector<HOGeometry::Part>{{HOPoint(0, 0), HOPoint(10, 10)}}));
    }

    void layerWithoutCoordinateSystem() {
        HORefPtr<HOFeatureLayer> layer = open("nosystem.shp", 0, wkbPoint, {{"POINT(3 4)"}});
        QVERIFY(layer);
        QVERIFY(!layer->GetSpatialReference());
        QVERIFY(layer->IsSameCoordinateSystem(nullptr));
        QVERIFY(!layer->IsSameCoordinateSystem(HOCoordinateSystem::FromEpsg(4509)));
        // Nothing to transform from: the layer's own coordinates are used as they are.
        QCOMPARE(layer->GetExtentIn(HOCoordinateSystem::FromEpsg(4490)), layer->GetExtent());
        QCOMPARE(layer->SelectByRect(HORect(2, 4, 3, 5), false, HOCoordinateSystem::FromEpsg(4490)), 1);
    }

    void selectByRectMeetsGeometryNotJustBox_data() {
        QTest::addColumn<HORect>("first");
        QTest::addColumn<HORect>("second");  // added to the first selection
        QTest::addColumn<std::vector<int>>("selected");
        const HORect none(1000, 1001, 1000, 1001), body(10, 20, 10, 20);
        QTest::newRow("inside the hole") << HORect(45, 55, 45, 55) << none << std::vector<int>{};
        QTest::newRow("triangle's empty corner") << HORect(280, 295, 80, 95) << none << std::vector<int>{};
        QTest::newRow("across the hole's edge") << HORect(55, 65, 45, 55) << none << std::vector<int>{1};
        QTest::newRow("within the square's body") << body << none << std::vector<int>{1};
        QTest::newRow("holding the triangle") << HORect(150, 400, -50, 150) << none << std::vector<int>{2};
        QTest::newRow("added to") << body << HORect(210, 220, 10, 20) << std::vector<int>{1, 2};
        QTest::newRow("added twice") << body << body << std::vector<int>{1};
    }

    void selectByRectMeetsGeometryNotJustBox() {
        QFETCH(HORect, first);
        QFETCH(HORect, second);
        HORefPtr<HOFeatureLayer> layer =
            open("select.gpkg", 4509, wkbPolygon, {{squareWithHole}, {triangle}});
        QVERIFY(layer);
        layer->SetSelectedIds({2});
        layer->SelectByRect(first, false);  // replaces
        layer->SelectByRect(second, true);
        QTEST(layer->GetSelectedIds(), "selected");
        QCOMPARE(layer->HasSelectedFeatures(), !layer->GetSelectedIds().empty());
        layer->ClearSelection();
        QVERIFY(!layer->HasSelectedFeatures());
    }

    void selectsWithRectangleInAnotherSystem() {
        // A square kilometre around 117E 30N, in Gauss-Kruger metres.
        const HOPoint c = projTransform(4490, 4509, HOPoint(117.0, 30.0));
        const double x0 = c.x - 500, y0 = c.y - 500, x1 = c.x + 500, y1 = c.y + 500;
        const std::string square =
            QString::asprintf("POLYGON((%.3f %.3f,%.3f %.3f,%.3f %.3f,%.3f %.3f,%.3f %.3f))", x0, y0, x1, y0,
                              x1, y1, x0, y1, x0, y0)
                .toStdString();
        HORefPtr<HOFeatureLayer> layer = open("gk.gpkg", 4509, wkbPolygon, {{square}});
        QVERIFY(layer);
        HORefPtr<HOCoordinateSystem> geographic = HOCoordinateSystem::FromEpsg(4490);
        QCOMPARE(layer->SelectByRect(HORect(116.999, 117.001, 29.999, 30.001), false, geographic), 1);
        QCOMPARE(layer->SelectByRect(HORect(117.01, 117.02, 30.0, 30.01), false, geographic), 0);
        const HORect inGeographic = layer->GetExtentIn(geographic);
        QVERIFY(inGeographic.Contains(HOPoint(117.0, 30.0)) && inGeographic.Width() < 0.02);
    }

    void lookupAndIdentify() {
        HORefPtr<HOFeatureLayer> layer = open("lookup.gpkg", 4509, wkbPolygon,
                                              {{squareWithHole, 10, "square"},
                                               {triangle, 20, "tri"},
                                               {"POLYGON((50 50,150 50,150 150,50 50))", 30}});
        QVERIFY(layer);
        HORefPtr<HOFeature> feature = layer->GetFeature(20);
        QVERIFY(feature && feature->GetID() == 20);
        const auto& attributes = feature->GetAttributes();
        QVERIFY(std::find(attributes.begin(), attributes.end(), HOFeature::Attribute("name", "tri")) !=
                attributes.end());
        HORefPtr<HOGeometry> geometry = feature->GetGeometry();
        QCOMPARE(geometry->Parts(), (std::vector<HOGeometry::Part>{{HOPoint(200, 0), HOPoint(300, 0),
                                                                    HOPoint(200, 100), HOPoint(200, 0)}}));
        geometry->Parts()[0][0] = HOPoint(-1, -1);  // a copy: the layer keeps its own
        QCOMPARE(layer->GetFeatureGeometry(20)->Parts()[0][0], HOPoint(200, 0));
        QCOMPARE(layer->GetFeatureGeometry(10)->Parts().size(), std::size_t(2));  // ring and hole
        QVERIFY(!layer->GetFeature(1) && !layer->GetFeatureGeometry(11) && !layer->GetFeatureGeometry(0));
        QCOMPARE(layer->SelectByRect(HORect(5, 250, 5, 10), false), 2);
        QCOMPARE(layer->GetSelectedIds(), (std::vector<int>{10, 20}));
        // Topmost (drawn last) first.
        QCOMPARE(layer->IdentifyAt(HOPoint(90, 70), 0.5), (std::vector<int>{30, 10}));
        QCOMPARE(layer->IdentifyAt(HOPoint(45, 55), 0.5), (std::vector<int>{}));  // in the hole
    }

    void geometryMemoryStaysCloseToRawCoordinates_data() {
        QTest::addColumn<int>("geometry");
        QTest::addColumn<int>("verticesPerFeature");
        QTest::newRow("points") << int(wkbPoint) << 1;
        QTest::newRow("lines") << int(wkbLineString) << 12;
        QTest::newRow("polygons") << int(wkbPolygon) << 25;
    }

    void geometryMemoryStaysCloseToRawCoordinates() {
        QFETCH(int, geometry);
        QFETCH(int, verticesPerFeature);
        Features features;
        const int last = geometry == wkbPolygon ? verticesPerFeature - 1 : verticesPerFeature;
        for (int i = 0; i < 2000; ++i) {
            QString wkt;
            for (int v = 0; v < verticesPerFeature; ++v) {
                const double a = 2 * M_PI * (v % last) / last;
                wkt += QStringLiteral("%1%2 %3").arg(v ? "," : "").arg(i + std::cos(a)).arg(std::sin(a));
            }
            const char* pattern = geometry == wkbPoint        ? "POINT(%1)"
                                  : geometry == wkbLineString ? "LINESTRING(%1)"
                                                              : "POLYGON((%1))";
            features.push_back({QString::fromLatin1(pattern).arg(wkt).toStdString()});
        }
        HORefPtr<HOFeatureLayer> layer =
            open(QStringLiteral("memory%1.gpkg").arg(geometry), 4509, OGRwkbGeometryType(geometry), features);
        QVERIFY(layer);
        const double raw = 16.0 * verticesPerFeature * features.size();
        QVERIFY2(layer->GetGeometryBytes() <= 1.25 * raw,
                 qPrintable(QString::number(layer->GetGeometryBytes() / raw)));
    }

    void reprojectsKnownPointLikeProj_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<HOPoint>("point");
        QTest::addColumn<double>("tolerance");
        QTest::newRow("4490 to 4509 on the meridian") << 4490 << 4509 << HOPoint(117.0, 35.0) << 1e-6;
        QTest::newRow("4490 to 4509 east of it") << 4490 << 4509 << HOPoint(118.25, 39.5) << 1e-6;
        QTest::newRow("4490 to 4509 west of it") << 4490 << 4509 << HOPoint(115.6, 24.1) << 1e-6;
        QTest::newRow("4509 to 4490") << 4509 << 4490 << HOPoint(523456.78, 3876543.21) << 1e-10;
        QTest::newRow("4509 to 4490 west of the meridian")
            << 4509 << 4490 << HOPoint(480000.0, 3300000.0) << 1e-10;
        QTest::newRow("no source system: untouched") << 0 << 4490 << HOPoint(1.0, 2.0) << 0.0;
    }

    void reprojectsKnownPointLikeProj() {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(HOPoint, point);
        QFETCH(double, tolerance);
        HOGeometryProject project;
        HORefPtr<HOGeometry> line(new HOGeometry(HOGeometry::GeoLineString));
        line->AddPart({point, point});
        if (!from) {
            QVERIFY(!project.ProjHxGeometry(line, HOGeometry::GeoLineString));
            QVERIFY(!project.SetPrj(nullptr, HOCoordinateSystem::FromEpsg(to), nullptr));
            QVERIFY(!project.ProjHxGeometry(line, HOGeometry::GeoLineString));
            QCOMPARE(line->Parts()[0][0], point);
            return;
        }
        const HOPoint expected = projTransform(from, to, point);
        const auto near = [&](double x, double y) {
            return std::abs(x - expected.x) < tolerance && std::abs(y - expected.y) < tolerance;
        };
        QVERIFY(
            project.SetPrj(HOCoordinateSystem::FromEpsg(from), HOCoordinateSystem::FromEpsg(to), nullptr));
        double x = point.x, y = point.y;
        QVERIFY(project.ProjPoint(x, y));
        QVERIFY2(near(x, y), QTest::toString(HOPoint(x, y)));
        QVERIFY(project.ProjHxGeometry(line, HOGeometry::GeoLineString));
        for (const HOPoint& p : line->Parts()[0]) QVERIFY(near(p.x, p.y));
        // To the system's own geographic base, longitude first even where the official order is not.
        const HOPoint base = from == 4490 ? point : expected;
        QVERIFY(HOCoordinateSystem::FromEpsg(from)->ToGeographic(point.x, point.y, &x, &y));
        QVERIFY(std::abs(x - base.x) < 1e-10 && std::abs(y - base.y) < 1e-10);
    }

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, int epsg, OGRwkbGeometryType type,
                                  const Features& features) {
        return HOLayerFixture::OpenVector(m_dir.filePath(file), epsg, type, features);
    }
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestFeatureLayer)
#include "tst_featurelayer.moc"
