// The data-source front door: one open file serves all its layers, any file name opens, files a
// raster driver claims by mistake still open as vector, empty layers have no extent, opening writes
// nothing beside the data, and PROJ prints nothing.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "HODataSource.h"
#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HORasterLayer.h"
#include "HOStderrCapture.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

namespace {

const char* const kinds[3] = {"POLYGON((0 0,1 0,1 1,0 0))", "LINESTRING(0 0,5 5)", "POINT(2 3)"};
const OGRwkbGeometryType types[3] = {wkbPolygon, wkbLineString, wkbPoint};
const HOLayer::LayerType layerTypes[3] = {HOLayer::PolygonLayer, HOLayer::PolylineLayer, HOLayer::PointLayer};

// The open descriptors of this process that refer to `path`.
int openDescriptorsOf(const QString& path) {
    const QString target = QFileInfo(path).canonicalFilePath();
    int count = 0;
    for (const QFileInfo& fd :
         QDir("/proc/self/fd").entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot))
        count += fd.symLinkTarget() == target;
    return count;
}

}  // namespace

class TestDataSource : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void allLayersComeFromOneOpenFile() {
        // A name that holds the old layer-selection syntax opens as the file it names.
        const QString path = m_dir.filePath("roads|layername=old.gpkg");
        const int count = 12;
        {
            GDALAllRegister();
            GDALDatasetUniquePtr ds(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
                path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
            QVERIFY(ds);
            for (int i = 0; i < count; ++i) {
                OGRLayer* layer = ds->CreateLayer(qPrintable(QStringLiteral("layer_%1").arg(i)), nullptr,
                                                  types[i % 3], nullptr);
                OGRFeature feature(layer->GetLayerDefn());
                OGRGeometry* geometry = nullptr;
                OGRGeometryFactory::createFromWkt(kinds[i % 3], nullptr, &geometry);
                feature.SetGeometryDirectly(geometry);
                QCOMPARE(layer->CreateFeature(&feature), OGRERR_NONE);
            }
        }
        HOString error;
        HORefPtr<HODataSource> source = HODataSource::Open(HOString(path), &error);
        QVERIFY2(source, error.c_str());
        const std::vector<HOString> names = source->GetLayerNames();
        QCOMPARE(int(names.size()), count);
        std::vector<HORefPtr<HOLayer>> layers = source->OpenLayers(&error);
        QVERIFY2(error.isEmpty(), error.c_str());
        QCOMPARE(int(layers.size()), count);
        for (int i = 0; i < count; ++i) {
            QCOMPARE(names[std::size_t(i)], HOString(QStringLiteral("layer_%1").arg(i)));
            QCOMPARE(layers[std::size_t(i)]->GetName(), names[std::size_t(i)]);
            QCOMPARE(layers[std::size_t(i)]->GetLayerType(), layerTypes[i % 3]);
        }
        source = nullptr;
        QCOMPARE(openDescriptorsOf(path), 1);  // every layer reads through the same dataset
        QVERIFY(HODynamicCast<HOFeatureLayer>(layers[4])->GetFeature(1));

        HORefPtr<HOLayer> first = OpenLayer(HOString(path), &error);
        QVERIFY2(first, error.c_str());
        QCOMPARE(first->GetName(), HOString("layer_0"));
        HORefPtr<HOLayer> named = OpenLayer(HOString(path + "|layername=layer_7"), &error);
        QVERIFY2(named, error.c_str());
        QCOMPARE(named->GetLayerType(), layerTypes[1]);
        QVERIFY(!HODataSource::Open(HOString(path))->OpenLayer(HOString("nothing"), &error));
        QCOMPARE(error,
                 HOString(QStringLiteral("cannot open '%1': it has no layer named 'nothing'").arg(path)));
    }

    void filesARasterDriverClaimsOpenAsVector_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("CSV of numbers") << "table.csv" << QByteArray("x,y,z\n1,2,3\n5,7,3\n2,9,1\n");
        QTest::newRow("STAC item")
            << "item.json"
            << QByteArray(
                   "{\"type\":\"Feature\",\"stac_version\":\"1.0.0\",\"id\":\"scene\","
                   "\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[[[0,0],[4,0],[4,3],[0,0]]]},"
                   "\"properties\":{\"datetime\":\"2020-01-01T00:00:00Z\",\"proj:epsg\":4326},"
                   "\"assets\":{\"image\":{\"href\":\"scene.tif\",\"proj:transform\":[1,0,0,0,-1,3]}},"
                   "\"links\":[]}");
    }

    void filesARasterDriverClaimsOpenAsVector() {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        const QString path = write(file, content);
        HOString error;
        HORefPtr<HOLayer> layer = OpenLayer(HOString(path), &error);
        QVERIFY2(HODynamicCast<HOFeatureLayer>(layer), error.c_str());
    }

    void emptyLayersHaveAnEmptyExtent_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("no features") << "none.geojson"
                                     << QByteArray("{\"type\":\"FeatureCollection\",\"features\":[]}");
        QTest::newRow("no geometry")
            << "nogeometry.geojson"
            << QByteArray(
                   "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\","
                   "\"properties\":{\"a\":1},\"geometry\":null}]}");
        QTest::newRow("empty geometries")
            << "emptygeometry.csv" << QByteArray("WKT,a\n\"POINT EMPTY\",1\n\"POLYGON EMPTY\",2\n");
        QTest::newRow("attributes only") << "attributes.csv" << QByteArray("name,a\nx,1\ny,2\n");
    }

    void emptyLayersHaveAnEmptyExtent() {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        HOString error;
        HORefPtr<HOLayer> layer = OpenLayer(HOString(write(file, content)), &error);
        QVERIFY2(layer, error.c_str());
        QCOMPARE(layer->GetExtent(), HORect());
        // Not the origin, which lies far out in another system.
        HORefPtr<HOCoordinateSystem> utm = HOCoordinateSystem::FromEpsg(32650);
        QCOMPARE(layer->GetExtentIn(utm.get()), HORect());
    }

    // GML writes its schema (.gfs) beside the file when it reads one, GDAL its statistics (.aux.xml).
    void openingWritesNothingBesideTheData() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString gml = HOLayerFixture::WriteFile(
            dir.filePath("places.gml"),
            "<?xml version=\"1.0\"?><ogr:FeatureCollection xmlns:ogr=\"http://ogr.maptools.org/\" "
            "xmlns:gml=\"http://www.opengis.net/gml\"><gml:featureMember><ogr:places fid=\"places.0\">"
            "<ogr:geometryProperty><gml:Point><gml:coordinates>1,2</gml:coordinates></gml:Point>"
            "</ogr:geometryProperty><ogr:name>a</ogr:name></ogr:places></gml:featureMember>"
            "</ogr:FeatureCollection>");
        const double geo[6] = {0, 1, 0, 20, 0, -1};
        QVERIFY(HOLayerFixture::WriteRaster(dir.filePath("grey.tif"), 20, 20, 1, GDT_Float32, 4326, geo,
                                            [](int, int x, int y) { return double(x * y); }));
        const QStringList before = QDir(dir.path()).entryList(QDir::Files | QDir::Hidden);
        {
            HOString error;
            HORefPtr<HOLayer> vector = OpenLayer(HOString(gml), &error);
            QVERIFY2(vector, error.c_str());
            HORefPtr<HOLayer> raster = OpenLayer(HOString(dir.filePath("grey.tif")), &error);
            QVERIFY2(raster, error.c_str());
            QImage image = HOLayerFixture::WhiteImage(QSize(40, 40));
            QPainter painter(&image);
            raster->Render(HOLayerFixture::Context(&painter, image.size(), raster->GetExtent()));
        }
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), before);
    }

    // Far beyond the visible hemisphere no longitude or latitude exists; PROJ must fail quietly. (The
    // corrupt-file corpus checks that GDAL prints nothing.)
    void projPrintsNothing() {
        HORefPtr<HOCoordinateSystem> ortho =
            HOCoordinateSystem::FromUserInput(HOString("+proj=ortho +lat_0=0 +lon_0=0"));
        QVERIFY(ortho);
        HOStderrCapture capture;
        const bool outside = !ortho->ToGeographic(2e7, 2e7, nullptr, nullptr);
        const QByteArray printed = capture.Finish();
        QVERIFY(outside);
        QVERIFY2(printed.isEmpty(), printed.constData());
    }

private:
    QString write(const QString& name, const QByteArray& bytes) const {
        return HOLayerFixture::WriteFile(m_dir.filePath(name), bytes);
    }

    QTemporaryDir m_dir;
};

QTEST_MAIN(TestDataSource)
#include "tst_datasource.moc"
