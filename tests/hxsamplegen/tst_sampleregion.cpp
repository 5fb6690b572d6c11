// The generated region: layer schema, determinism, geometric validity, how the layers fit together, and
// the geographic copy.

#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <QSet>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

#include "SampleGenerator.h"

namespace {
constexpr double kScale = 0.5;  // half the default density keeps the sanitizer build quick

using Dataset = std::unique_ptr<GDALDataset, void (*)(GDALDataset*)>;

Dataset open(const QString& path) {
    return Dataset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY),
                   [](GDALDataset* d) { GDALClose(d); });
}

// Every vertex of a geometry, in order.
class VertexCollector : public OGRDefaultConstGeometryVisitor {
public:
    using OGRDefaultConstGeometryVisitor::visit;
    void visit(const OGRPoint* p) override { points.push_back({p->getX(), p->getY()}); }
    std::vector<QPointF> points;
};

std::vector<QPointF> verticesOf(const OGRGeometry* geometry) {
    VertexCollector collector;
    geometry->accept(&collector);
    return collector.points;
}

std::vector<std::unique_ptr<OGRFeature>> featuresOf(OGRLayer* layer) {
    std::vector<std::unique_ptr<OGRFeature>> features;
    layer->ResetReading();
    while (OGRFeature* f = layer->GetNextFeature()) features.emplace_back(f);
    return features;
}

QByteArray wkbOf(const OGRGeometry* geometry) {
    QByteArray bytes(int(geometry->WkbSize()), Qt::Uninitialized);
    geometry->exportToWkb(wkbNDR, reinterpret_cast<unsigned char*>(bytes.data()));
    return bytes;
}

// One feature as comparable bytes: geometry and every field.
QByteArray fingerprint(const OGRFeature& feature) {
    QByteArray bytes = wkbOf(feature.GetGeometryRef());
    for (int i = 0; i < feature.GetFieldCount(); ++i) bytes += '|' + QByteArray(feature.GetFieldAsString(i));
    return bytes;
}
}  // namespace

class TestSampleRegion : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void layerSchema_data();
    void layerSchema();
    void projectedCrsIsGaussKruger117();
    void sameSeedSameRegion();
    void otherSeedOtherRegion();
    void scaleMultipliesFeatures_data();
    void scaleMultipliesFeatures();
    void polygonsAreValid_data();
    void polygonsAreValid();
    void lakesLieOnLand();
    void parcelsDoNotOverlap();
    void riversEndInSeaOrRiver();
    void roadsRunBetweenTowns();
    void townsOnDryLandWithUniqueNames();
    void geographicMatchesProjected_data();
    void geographicMatchesProjected();
    void unwritableDirectoryIsReported();

private:
    QString generate(quint64 seed, double scale);
    OGRLayer* layer(const char* name) { return m_region->GetLayerByName(name); }
    std::unique_ptr<OGRGeometry> landGeometry();

    std::vector<std::unique_ptr<QTemporaryDir>> m_dirs;
    QString m_dir;
    Dataset m_region{nullptr, nullptr};
    Dataset m_sparse{nullptr, nullptr};  // the same region at half the scale
};

QString TestSampleRegion::generate(quint64 seed, double scale) {
    m_dirs.push_back(std::make_unique<QTemporaryDir>());
    SampleOptions options;
    options.outDir = m_dirs.back()->path();
    options.seed = seed;
    options.scale = scale;
    options.demPixelSize = 1000;
    SampleGenerator generator;
    if (generator.writeRegion(options)) return options.outDir;
    qWarning() << generator.error();
    return QString();  // opening the region then fails the case
}

void TestSampleRegion::initTestCase() {
    m_dir = generate(SampleOptions::kDefaultSeed, kScale);
    m_region = open(m_dir + "/region.gpkg");
    QVERIFY(m_region);
}

std::unique_ptr<OGRGeometry> TestSampleRegion::landGeometry() {
    auto land = featuresOf(layer("land"));
    return land.empty() ? nullptr : std::unique_ptr<OGRGeometry>(land.front()->StealGeometry());
}

void TestSampleRegion::layerSchema_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("geometryType");
    QTest::addColumn<QStringList>("fields");  // name:type
    QTest::newRow("land") << "land" << int(wkbMultiPolygon) << QStringList();
    QTest::newRow("lakes") << "lakes" << int(wkbPolygon) << QStringList{"name:String"};
    QTest::newRow("landuse") << "landuse" << int(wkbPolygon) << QStringList{"class:String"};
    QTest::newRow("rivers") << "rivers" << int(wkbLineString) << QStringList{"name:String"};
    QTest::newRow("roads") << "roads" << int(wkbLineString) << QStringList{"class:String", "name:String"};
    QTest::newRow("towns") << "towns" << int(wkbPoint)
                           << QStringList{"name:String", "population:Integer", "kind:String"};
}

void TestSampleRegion::layerSchema() {
    QFETCH(QString, name);
    QFETCH(int, geometryType);
    QFETCH(QStringList, fields);
    OGRLayer* l = layer(name.toUtf8().constData());
    QVERIFY2(l, qPrintable(name));
    QCOMPARE(int(l->GetGeomType()), geometryType);
    QStringList actual;
    OGRFeatureDefn* definition = l->GetLayerDefn();
    for (int i = 0; i < definition->GetFieldCount(); ++i)
        actual << QString("%1:%2").arg(
            definition->GetFieldDefn(i)->GetNameRef(),
            OGRFieldDefn::GetFieldTypeName(definition->GetFieldDefn(i)->GetType()));
    QCOMPARE(actual, fields);
    QVERIFY(l->GetFeatureCount() > 0);
}

void TestSampleRegion::projectedCrsIsGaussKruger117() {
    const OGRSpatialReference* srs = layer("towns")->GetSpatialRef();
    QVERIFY(srs);
    QCOMPARE(QString(srs->GetAuthorityCode(nullptr)), QString("4509"));
    QCOMPARE(srs->GetProjParm(SRS_PP_CENTRAL_MERIDIAN), 117.0);
    QCOMPARE(srs->GetProjParm(SRS_PP_FALSE_EASTING), 500000.0);
    QCOMPARE(srs->GetProjParm(SRS_PP_SCALE_FACTOR), 1.0);
    QCOMPARE(QString(srs->GetAuthorityCode("GEOGCS")), QString("4490"));
    OGREnvelope extent;
    QCOMPARE(layer("land")->GetExtent(&extent), OGRERR_NONE);
    // No zone prefix: eastings near the false easting, northings of about 31 degrees north.
    QVERIFY(extent.MinX > 400000 && extent.MaxX < 700000);
    QVERIFY(extent.MinY > 3300000 && extent.MaxY < 3550000);
    QVERIFY(extent.MaxX - extent.MinX > 80000 && extent.MaxY - extent.MinY > 60000);
}

void TestSampleRegion::sameSeedSameRegion() {
    const Dataset again = open(generate(SampleOptions::kDefaultSeed, kScale) + "/region.gpkg");
    QVERIFY(again);
    QCOMPARE(again->GetLayerCount(), m_region->GetLayerCount());
    for (int i = 0; i < m_region->GetLayerCount(); ++i) {
        const auto first = featuresOf(m_region->GetLayer(i));
        const auto second = featuresOf(again->GetLayer(i));
        QCOMPARE(second.size(), first.size());
        for (size_t f = 0; f < first.size(); ++f)
            QVERIFY2(fingerprint(*first[f]) == fingerprint(*second[f]),
                     qPrintable(QString("%1 feature %2").arg(m_region->GetLayer(i)->GetName()).arg(f)));
    }
}

void TestSampleRegion::otherSeedOtherRegion() {
    const Dataset other = open(generate(SampleOptions::kDefaultSeed + 1, kScale) + "/region.gpkg");
    QVERIFY(other);
    const auto mine = featuresOf(layer("land")), theirs = featuresOf(other->GetLayerByName("land"));
    QVERIFY(wkbOf(mine.front()->GetGeometryRef()) != wkbOf(theirs.front()->GetGeometryRef()));
}

void TestSampleRegion::scaleMultipliesFeatures_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("lowest");  // ratio of counts at double the scale
    QTest::addColumn<double>("highest");
    QTest::newRow("landuse") << "landuse" << 1.6 << 2.4;
    QTest::newRow("towns") << "towns" << 1.6 << 2.4;
    QTest::newRow("roads") << "roads" << 1.5 << 2.5;
    QTest::newRow("lakes stay") << "lakes" << 1.0 << 1.0;
    QTest::newRow("land stays") << "land" << 1.0 << 1.0;
}

void TestSampleRegion::scaleMultipliesFeatures() {
    QFETCH(QString, name);
    QFETCH(double, lowest);
    QFETCH(double, highest);
    if (!m_sparse) m_sparse = open(generate(SampleOptions::kDefaultSeed, kScale / 2) + "/region.gpkg");
    QVERIFY(m_sparse);
    const double ratio = double(layer(name.toUtf8().constData())->GetFeatureCount()) /
                         m_sparse->GetLayerByName(name.toUtf8().constData())->GetFeatureCount();
    QVERIFY2(ratio >= lowest && ratio <= highest, qPrintable(QString::number(ratio)));
}

void TestSampleRegion::polygonsAreValid_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"land", "lakes", "landuse"}) QTest::newRow(name) << name;
}

void TestSampleRegion::polygonsAreValid() {
    QFETCH(QString, name);
    if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
    for (const auto& feature : featuresOf(layer(name.toUtf8().constData())))
        QVERIFY2(feature->GetGeometryRef()->IsValid(),
                 qPrintable(QString("feature %1").arg(feature->GetFID())));
}

void TestSampleRegion::lakesLieOnLand() {
    if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
    const auto land = landGeometry();
    for (const auto& lake : featuresOf(layer("lakes"))) QVERIFY(lake->GetGeometryRef()->Within(land.get()));
}

void TestSampleRegion::parcelsDoNotOverlap() {
    if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
    // Neighbours share edges exactly, so any two parcels meet in lines at most.
    const auto parcels = featuresOf(layer("landuse"));
    // A second connection, so that its spatial filter never leaks into the other cases.
    const Dataset probe = open(m_dir + "/region.gpkg");
    OGRLayer* l = probe->GetLayerByName("landuse");
    for (size_t i = 0; i < parcels.size(); i += 37) {
        OGRGeometry* parcel = parcels[i]->GetGeometryRef();
        l->SetSpatialFilter(parcel);
        for (const auto& other : featuresOf(l)) {
            if (other->GetFID() == parcels[i]->GetFID()) continue;
            std::unique_ptr<OGRGeometry> overlap(parcel->Intersection(other->GetGeometryRef()));
            const double area = overlap ? OGR_G_Area(OGRGeometry::ToHandle(overlap.get())) : 0;
            QVERIFY2(area < 1.0, qPrintable(QString("parcels %1 and %2 overlap by %3 m2")
                                                .arg(parcels[i]->GetFID())
                                                .arg(other->GetFID())
                                                .arg(area)));
        }
    }
}

void TestSampleRegion::riversEndInSeaOrRiver() {
    if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
    const auto land = landGeometry();
    const auto rivers = featuresOf(layer("rivers"));
    QVERIFY(rivers.size() >= 3);
    QSet<QPair<double, double>> riverVertices;
    for (const auto& river : rivers)
        for (const QPointF& p : verticesOf(river->GetGeometryRef())) riverVertices.insert({p.x(), p.y()});
    int toSea = 0;
    for (const auto& river : rivers) {
        const auto line = verticesOf(river->GetGeometryRef());
        const OGRPoint source(line.front().x(), line.front().y()), mouth(line.back().x(), line.back().y());
        QVERIFY2(source.Within(land.get()), river->GetFieldAsString("name"));
        const bool atSea = !mouth.Within(land.get());
        toSea += atSea;
        // A tributary ends on a vertex of the river it joins.
        QVERIFY2(atSea || riverVertices.contains({mouth.getX(), mouth.getY()}),
                 river->GetFieldAsString("name"));
    }
    QVERIFY(toSea >= 3);
}

void TestSampleRegion::roadsRunBetweenTowns() {
    QSet<QPair<double, double>> towns;
    for (const auto& town : featuresOf(layer("towns"))) {
        const OGRPoint* p = town->GetGeometryRef()->toPoint();
        towns.insert({p->getX(), p->getY()});
    }
    QSet<QString> classes;
    for (const auto& road : featuresOf(layer("roads"))) {
        const auto line = verticesOf(road->GetGeometryRef());
        QVERIFY(line.size() >= 3);
        QVERIFY2(towns.contains({line.front().x(), line.front().y()}), road->GetFieldAsString("name"));
        QVERIFY2(towns.contains({line.back().x(), line.back().y()}), road->GetFieldAsString("name"));
        QVERIFY(QString(road->GetFieldAsString("name")).size() > 1);
        classes.insert(road->GetFieldAsString("class"));
    }
    QCOMPARE(classes, (QSet<QString>{"motorway", "primary", "secondary", "minor"}));
}

void TestSampleRegion::townsOnDryLandWithUniqueNames() {
    if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
    const auto land = landGeometry();
    const auto lakes = featuresOf(layer("lakes"));
    QSet<QString> names, kinds;
    const auto towns = featuresOf(layer("towns"));
    for (const auto& town : towns) {
        const OGRGeometry* p = town->GetGeometryRef();
        QVERIFY(p->Within(land.get()));
        for (const auto& lake : lakes) QVERIFY(!p->Within(lake->GetGeometryRef()));
        QVERIFY(town->GetFieldAsInteger("population") > 0);
        names.insert(town->GetFieldAsString("name"));
        kinds.insert(town->GetFieldAsString("kind"));
    }
    QCOMPARE(names.size(), int(towns.size()));
    QCOMPARE(kinds, (QSet<QString>{"city", "town", "village"}));
}

void TestSampleRegion::geographicMatchesProjected_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"land", "lakes", "landuse", "rivers", "roads", "towns"})
        QTest::newRow(name) << name;
}

void TestSampleRegion::geographicMatchesProjected() {
    QFETCH(QString, name);
    const Dataset geographic = open(m_dir + "/region_4490.gpkg");
    QVERIFY(geographic);
    OGRLayer* target = geographic->GetLayerByName(name.toUtf8().constData());
    QVERIFY(target);
    QCOMPARE(QString(target->GetSpatialRef()->GetAuthorityCode(nullptr)), QString("4490"));
    OGRSpatialReference from, to;
    from.importFromEPSG(4509);
    to.importFromEPSG(4490);
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    to.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    std::unique_ptr<OGRCoordinateTransformation> transform(OGRCreateCoordinateTransformation(&from, &to));
    const auto projected = featuresOf(layer(name.toUtf8().constData()));
    const auto degrees = featuresOf(target);
    QCOMPARE(degrees.size(), projected.size());
    for (size_t f = 0; f < projected.size(); f += 1 + projected.size() / 200) {
        auto vertices = verticesOf(projected[f]->GetGeometryRef());
        const auto expected = verticesOf(degrees[f]->GetGeometryRef());
        QCOMPARE(expected.size(), vertices.size());
        for (size_t v = 0; v < vertices.size(); ++v) {
            double x = vertices[v].x(), y = vertices[v].y();
            QVERIFY(transform->Transform(1, &x, &y));
            QVERIFY2(std::abs(x - expected[v].x()) < 1e-6 && std::abs(y - expected[v].y()) < 1e-6,
                     qPrintable(QString("feature %1 vertex %2").arg(f).arg(v)));
            // x is the longitude: the region lies east of 116 degrees and around 31 degrees north.
            QVERIFY(expected[v].x() > 116 && expected[v].x() < 119 && expected[v].y() > 30 &&
                    expected[v].y() < 32);
        }
    }
}

void TestSampleRegion::unwritableDirectoryIsReported() {
    QTemporaryDir dir;
    QFile blocker(dir.filePath("file"));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    SampleOptions options;
    options.outDir = dir.filePath("file/region");
    SampleGenerator generator;
    QVERIFY(!generator.writeRegion(options));
    QVERIFY2(generator.error().contains("file/region"), qPrintable(generator.error()));
}

QTEST_GUILESS_MAIN(TestSampleRegion)
#include "tst_sampleregion.moc"
