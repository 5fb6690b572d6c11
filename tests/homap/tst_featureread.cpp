// Reading a large layer in two halves at once (two connections to a GeoPackage or a shapefile) gives
// exactly what one read from start to end gives: the same features in the same order, with their
// ids, parts, kinds, vertices and boxes.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QTemporaryDir>
#include <QtTest>

#include "source/private/HOOgrGeometryReader.h"
#include "source/private/HOSharedDataset.h"

using namespace HXObjects;

namespace {

// 30000 features: lines of one to four parts and varied lengths, FIDs with gaps where the format
// keeps them.
bool writeLayer(const QString& path, const char* driverName) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driverName);
    GDALDatasetUniquePtr dataset(
        driver ? driver->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr) : nullptr);
    OGRLayer* layer =
        dataset ? dataset->CreateLayer("tracks", nullptr, wkbMultiLineString, nullptr) : nullptr;
    if (!layer || layer->StartTransaction() != OGRERR_NONE) return false;
    for (int i = 0; i < 30000; ++i) {
        OGRMultiLineString lines;
        for (int part = 0; part <= i % 4; ++part) {
            OGRLineString line;
            for (int v = 0; v < 2 + (i * 7 + part) % 9; ++v)
                line.addPoint(i * 0.5 + v, part * 3.0 - v * 0.25);
            lines.addGeometry(&line);
        }
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetFID(1 + i + i / 1000);  // a shapefile numbers its records itself
        feature.SetGeometry(&lines);
        if (layer->CreateFeature(&feature) != OGRERR_NONE) return false;
    }
    return layer->CommitTransaction() == OGRERR_NONE;
}

}  // namespace

class TestFeatureRead : public QObject {
    Q_OBJECT

private slots:
    void halvesReadAsOne_data() {
        QTest::addColumn<QString>("driver");
        QTest::addColumn<QString>("file");
        QTest::newRow("GeoPackage") << "GPKG"
                                    << "tracks.gpkg";
        QTest::newRow("shapefile") << "ESRI Shapefile"
                                   << "tracks.shp";
    }

    void halvesReadAsOne() {
        QFETCH(QString, driver);
        QFETCH(QString, file);
        GDALAllRegister();
        QTemporaryDir dir;
        const QString path = dir.filePath(file);
        QVERIFY(writeLayer(path, driver.toUtf8().constData()));
        HOSharedDataset source(GDALDatasetUniquePtr(GDALDataset::Open(path.toUtf8().constData(),
                                                                      GDAL_OF_VECTOR | GDAL_OF_READONLY)),
                               path.toStdString());
        QVERIFY(source.dataset);
        OGRLayer* layer = source.dataset->GetLayer(0);
        HOOgrGeometryReader halves, whole;
        QVERIFY(halves.ReadLayer(layer, source));
        QVERIFY(whole.Read(layer));
        whole.Finish();

        const HOFeatureTopology &a = halves.Topology(), &b = whole.Topology();
        QCOMPARE(a.FeatureCount(), std::size_t(30000));
        QCOMPARE(a.FeatureCount(), b.FeatureCount());
        for (std::size_t f = 0; f < a.FeatureCount(); ++f) {
            QVERIFY2(a.Id(f) == b.Id(f) && a.Kind(f) == b.Kind(f) && a.PartBegin(f) == b.PartBegin(f) &&
                         a.PartEnd(f) == b.PartEnd(f) &&
                         a.VertexBegin(a.PartBegin(f)) == b.VertexBegin(b.PartBegin(f)),
                     qPrintable(QString::number(f)));
        }
        QVERIFY(halves.Vertices().size() == whole.Vertices().size() &&
                std::equal(halves.Vertices().begin(), halves.Vertices().end(), whole.Vertices().begin(),
                           [](const HOVertex& p, const HOVertex& q) { return p.x == q.x && p.y == q.y; }));
        QVERIFY(std::equal(halves.Boxes().begin(), halves.Boxes().end(), whole.Boxes().begin(),
                           whole.Boxes().end(), [](const HOBox& p, const HOBox& q) {
                               return p.min.x == q.min.x && p.min.y == q.min.y && p.max.x == q.max.x &&
                                      p.max.y == q.max.y;
                           }));
    }
};

QTEST_MAIN(TestFeatureRead)
#include "tst_featureread.moc"
