// The benchmark load: layer names, counts, vertices per feature, the extent and the rank field.

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QTemporaryDir>
#include <QtTest>

#include "SampleGenerator.h"
#include "SampleRegion.h"

namespace {
int vertexCount(const OGRGeometry* g) {
    switch (wkbFlatten(g->getGeometryType())) {
        case wkbPolygon:
            return g->toPolygon()->getExteriorRing()->getNumPoints();
        case wkbLineString:
            return g->toLineString()->getNumPoints();
        default:
            return 1;
    }
}
}  // namespace

class TestBenchDataset : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void layers_data();
    void layers();

private:
    QTemporaryDir m_dir;
    GDALDataset* m_bench = nullptr;
};

void TestBenchDataset::initTestCase() {
    BenchDataset::Counts counts;
    counts.polygons = 300;
    counts.lines = 200;
    counts.points = 3000;
    QStringList progress;
    SampleGenerator generator([&progress](const QString& message) { progress << message; });
    QVERIFY2(generator.writeBench(m_dir.path(), SampleOptions::kDefaultSeed, counts),
             qPrintable(generator.error()));
    QVERIFY(progress.filter("polygons: 300 features").size() == 1);
    m_bench = GDALDataset::Open(m_dir.filePath("bench.gpkg").toUtf8().constData(),
                                GDAL_OF_VECTOR | GDAL_OF_READONLY);
    QVERIFY(m_bench);
}

void TestBenchDataset::cleanupTestCase() {
    GDALClose(m_bench);
}

void TestBenchDataset::layers_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("vertices");  // per feature, a polygon's closing vertex included
    QTest::newRow("polygons") << "polygons" << int(wkbPolygon) << 300 << 25;
    QTest::newRow("lines") << "lines" << int(wkbLineString) << 200 << 110;
    QTest::newRow("points") << "points" << int(wkbPoint) << 3000 << 1;
}

void TestBenchDataset::layers() {
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(int, count);
    QFETCH(int, vertices);
    OGRLayer* layer = m_bench->GetLayerByName(name.toUtf8().constData());
    QVERIFY(layer);
    QCOMPARE(int(layer->GetGeomType()), type);
    QCOMPARE(QString(layer->GetSpatialRef()->GetAuthorityCode(nullptr)), QString("4509"));
    QCOMPARE(int(layer->GetFeatureCount()), count);
    const QRectF region = SampleRegion::extent();
    QSet<int> ranks;
    for (auto& feature : layer) {
        const OGRGeometry* g = feature->GetGeometryRef();
        QCOMPARE(vertexCount(g), vertices);
        OGREnvelope e;
        g->getEnvelope(&e);
        // Polygons may reach a little past the edge; tracks and points stay inside.
        const double slack = type == wkbPolygon ? 1000 : 0;
        QVERIFY(e.MinX >= region.left() - slack && e.MaxX <= region.right() + slack);
        QVERIFY(e.MinY >= region.top() - slack && e.MaxY <= region.bottom() + slack);
        ranks.insert(feature->GetFieldAsInteger("rank"));
    }
    QCOMPARE(ranks, (QSet<int>{1, 2, 3, 4}));
}

QTEST_GUILESS_MAIN(TestBenchDataset)
#include "tst_benchdataset.moc"
