// The generated region (layer schema, coordinate systems, determinism, geometric validity, how the
// layers fit together, the geographic copy), its DEM, and the benchmark load.
#include <gdal_priv.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <QSet>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

#include "DemWriter.h"
#include "HOTestColumns.h"
#include "SampleGenerator.h"
#include "SampleRegion.h"

namespace {

// Two to four Han characters: a generated name and what it names (镇, 河…).
bool isChineseName(const char* utf8) {
    const QString name = QString::fromUtf8(utf8);
    return name.size() >= 3 && name.size() <= 4 &&
           std::all_of(name.begin(), name.end(), [](QChar c) { return c.script() == QChar::Script_Han; });
}

constexpr double kScale = 0.5;  // half the default density keeps the sanitizer build quick
constexpr double kPixel = 250;  // DEM metres

using Dataset = std::unique_ptr<GDALDataset, void (*)(GDALDataset*)>;
using Features = std::vector<std::unique_ptr<OGRFeature>>;

Dataset open(const QString& path, unsigned kind = GDAL_OF_VECTOR) {
    return Dataset(GDALDataset::Open(path.toUtf8().constData(), kind | GDAL_OF_READONLY),
                   [](GDALDataset* d) { GDALClose(d); });
}

QString authority(const OGRSpatialReference* srs) {
    return srs ? srs->GetAuthorityCode(nullptr) : "none";
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

Features featuresOf(OGRLayer* layer) {
    Features features;
    layer->ResetReading();
    while (OGRFeature* f = layer->GetNextFeature()) features.emplace_back(f);
    return features;
}

// One feature as comparable bytes: geometry and every field.
QByteArray fingerprint(const OGRFeature& feature) {
    QByteArray bytes(int(feature.GetGeometryRef()->WkbSize()), Qt::Uninitialized);
    feature.GetGeometryRef()->exportToWkb(wkbNDR, reinterpret_cast<unsigned char*>(bytes.data()));
    for (int i = 0; i < feature.GetFieldCount(); ++i) bytes += '|' + QByteArray(feature.GetFieldAsString(i));
    return bytes;
}

}  // namespace

class TestSampleGen : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_dir = generate(SampleOptions::kDefaultSeed, kScale, kPixel);
        m_region = open(m_dir + "/region.gpkg");
        QVERIFY(m_region);
        std::unique_ptr<OGRFeature> land(layer("land")->GetNextFeature());
        QVERIFY(land);
        m_land.reset(land->StealGeometry());
    }

    void layers_data() {
        // fields: name:type
        HOAddColumns<QString, int, QStringList>({"name", "geometryType", "fields"});
        QTest::newRow("land") << "land" << int(wkbMultiPolygon) << QStringList();
        QTest::newRow("sea") << "sea" << int(wkbMultiPolygon) << QStringList();
        QTest::newRow("lakes") << "lakes" << int(wkbPolygon) << QStringList{"name:String", "name_zh:String"};
        QTest::newRow("landuse") << "landuse" << int(wkbPolygon) << QStringList{"class:String"};
        QTest::newRow("rivers") << "rivers" << int(wkbLineString)
                                << QStringList{"name:String", "name_zh:String"};
        QTest::newRow("roads") << "roads" << int(wkbLineString) << QStringList{"class:String", "name:String"};
        QTest::newRow("towns") << "towns" << int(wkbPoint)
                               << QStringList{"name:String", "name_zh:String", "population:Integer",
                                              "kind:String"};
    }
    // Each layer in both files; the 4490 copy holds what OGR's own transformation makes of the projected one.
    void layers() {
        QFETCH(QString, name);
        const Dataset geographic = open(m_dir + "/region_4490.gpkg");
        OGRLayer* const projected = layer(name);
        OGRLayer* const degrees = geographic->GetLayerByName(qPrintable(name));
        for (const auto& [l, crs] : {std::pair(projected, "4509"), std::pair(degrees, "4490")}) {
            QVERIFY2(l, qPrintable(name));
            QTEST(int(l->GetGeomType()), "geometryType");
            QCOMPARE(authority(l->GetSpatialRef()), QString(crs));
            QStringList actual;
            OGRFeatureDefn* definition = l->GetLayerDefn();
            for (int i = 0; i < definition->GetFieldCount(); ++i)
                actual << QString("%1:%2").arg(
                    definition->GetFieldDefn(i)->GetNameRef(),
                    OGRFieldDefn::GetFieldTypeName(definition->GetFieldDefn(i)->GetType()));
            QTEST(actual, "fields");
            QVERIFY(l->GetFeatureCount() > 0);
        }
        OGRSpatialReference from, to;
        from.importFromEPSG(4509);
        to.importFromEPSG(4490);
        from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        to.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        std::unique_ptr<OGRCoordinateTransformation> transform(OGRCreateCoordinateTransformation(&from, &to));
        const Features metres = featuresOf(projected), lonLat = featuresOf(degrees);
        QCOMPARE(lonLat.size(), metres.size());
        for (size_t f = 0; f < metres.size(); f += 1 + metres.size() / 200) {
            const auto vertices = verticesOf(metres[f]->GetGeometryRef());
            const auto expected = verticesOf(lonLat[f]->GetGeometryRef());
            QCOMPARE(expected.size(), vertices.size());
            for (size_t v = 0; v < vertices.size(); ++v) {
                double x = vertices[v].x(), y = vertices[v].y();
                QVERIFY(transform->Transform(1, &x, &y));
                QVERIFY2(std::abs(x - expected[v].x()) < 1e-6 && std::abs(y - expected[v].y()) < 1e-6,
                         qPrintable(QString("feature %1 vertex %2").arg(f).arg(v)));
                // Gauss-Kruger CM 117E without a zone prefix: east of 116 degrees, around 31 degrees north.
                QVERIFY(x > 116 && x < 119 && y > 30 && y < 32);
            }
        }
    }

    void seedDecidesRegion() {
        const Dataset again = open(generate(SampleOptions::kDefaultSeed, kScale) + "/region.gpkg");
        QVERIFY(again);
        QCOMPARE(again->GetLayerCount(), m_region->GetLayerCount());
        for (int i = 0; i < m_region->GetLayerCount(); ++i) {
            const Features first = featuresOf(m_region->GetLayer(i)), second = featuresOf(again->GetLayer(i));
            QCOMPARE(second.size(), first.size());
            for (size_t f = 0; f < first.size(); ++f)
                QVERIFY2(fingerprint(*first[f]) == fingerprint(*second[f]),
                         qPrintable(QString("%1 feature %2").arg(m_region->GetLayer(i)->GetName()).arg(f)));
        }
        const Dataset other = open(generate(SampleOptions::kDefaultSeed + 1, kScale) + "/region.gpkg");
        QVERIFY(other);
        const Features mine = featuresOf(layer("land")), theirs = featuresOf(other->GetLayerByName("land"));
        QVERIFY(fingerprint(*mine.front()) != fingerprint(*theirs.front()));
    }

    void scaleMultipliesFeatures_data() {
        // lowest: ratio of counts at double the scale
        HOAddColumns<QString, double, double>({"name", "lowest", "highest"});
        QTest::newRow("landuse") << "landuse" << 1.6 << 2.4;
        QTest::newRow("towns") << "towns" << 1.6 << 2.4;
        QTest::newRow("roads") << "roads" << 1.5 << 2.5;
        QTest::newRow("lakes stay") << "lakes" << 1.0 << 1.0;
    }
    void scaleMultipliesFeatures() {
        QFETCH(QString, name);
        QFETCH(double, lowest);
        QFETCH(double, highest);
        if (!m_sparse) m_sparse = open(generate(SampleOptions::kDefaultSeed, kScale / 2) + "/region.gpkg");
        QVERIFY(m_sparse);
        const double ratio = double(layer(name)->GetFeatureCount()) /
                             m_sparse->GetLayerByName(qPrintable(name))->GetFeatureCount();
        QVERIFY2(ratio >= lowest && ratio <= highest, qPrintable(QString::number(ratio)));
    }

    void polygonsAreValid_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"land", "lakes", "landuse"}) QTest::newRow(name) << name;
    }
    void polygonsAreValid() {
        QFETCH(QString, name);
        if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
        for (const auto& feature : featuresOf(layer(name)))
            QVERIFY2(feature->GetGeometryRef()->IsValid(),
                     qPrintable(QString("feature %1").arg(feature->GetFID())));
    }

    // Lakes on land; towns on dry land with unique names; rivers rising on land and ending in the sea or
    // on a vertex of the river they join; roads from town to town.
    void layersFitTogether() {
        if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
        const Features lakes = featuresOf(layer("lakes")), towns = featuresOf(layer("towns"));
        for (const auto& lake : lakes) QVERIFY(lake->GetGeometryRef()->Within(m_land.get()));
        QSet<QString> names, kinds, classes;
        QSet<QPair<double, double>> townPoints, riverVertices;
        for (const auto& town : towns) {
            const OGRGeometry* p = town->GetGeometryRef();
            QVERIFY(p->Within(m_land.get()));
            for (const auto& lake : lakes) QVERIFY(!p->Within(lake->GetGeometryRef()));
            QVERIFY(town->GetFieldAsInteger("population") > 0);
            names.insert(town->GetFieldAsString("name"));
            QVERIFY(isChineseName(town->GetFieldAsString("name_zh")));
            kinds.insert(town->GetFieldAsString("kind"));
            townPoints.insert({p->toPoint()->getX(), p->toPoint()->getY()});
        }
        QCOMPARE(names.size(), int(towns.size()));
        QCOMPARE(kinds, (QSet<QString>{"city", "town", "village"}));
        const Features rivers = featuresOf(layer("rivers"));
        QVERIFY(rivers.size() >= 3);
        for (const auto& river : rivers) {
            QVERIFY(isChineseName(river->GetFieldAsString("name_zh")));
            for (const QPointF& p : verticesOf(river->GetGeometryRef())) riverVertices.insert({p.x(), p.y()});
        }
        int toSea = 0;
        for (const auto& river : rivers) {
            const auto line = verticesOf(river->GetGeometryRef());
            const OGRPoint source(line.front().x(), line.front().y()),
                mouth(line.back().x(), line.back().y());
            QVERIFY2(source.Within(m_land.get()), river->GetFieldAsString("name"));
            const bool atSea = !mouth.Within(m_land.get());
            toSea += atSea;
            QVERIFY2(atSea || riverVertices.contains({mouth.getX(), mouth.getY()}),
                     river->GetFieldAsString("name"));
        }
        QVERIFY(toSea >= 3);
        for (const auto& road : featuresOf(layer("roads"))) {
            const auto line = verticesOf(road->GetGeometryRef());
            QVERIFY(line.size() >= 3 && QString(road->GetFieldAsString("name")).size() > 1);
            QVERIFY2(townPoints.contains({line.front().x(), line.front().y()}) &&
                         townPoints.contains({line.back().x(), line.back().y()}),
                     road->GetFieldAsString("name"));
            classes.insert(road->GetFieldAsString("class"));
        }
        QCOMPARE(classes, (QSet<QString>{"motorway", "primary", "secondary", "minor"}));
    }

    // Neighbours share edges exactly, so any two parcels meet in lines at most.
    void parcelsDoNotOverlap() {
        if (!OGRGeometryFactory::haveGEOS()) QSKIP("GDAL was built without GEOS");
        const Features parcels = featuresOf(layer("landuse"));
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

    void unwritableDirectoryIsReported() {
        QTemporaryDir dir;
        QFile blocker(dir.filePath("file"));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        SampleOptions options;
        options.outDir = dir.filePath("file/region");
        SampleGenerator generator;
        QVERIFY(!generator.writeRegion(options));
        QVERIFY2(generator.error().contains("file/region"), qPrintable(generator.error()));
    }

    // North-up in Gauss-Kruger CM 117E with internal overviews; the sea is nodata, the coast is at sea level
    // and hills rise inland.
    void dem() {
        const Dataset dem = open(m_dir + "/elevation.tif", GDAL_OF_RASTER);
        QVERIFY(dem);
        QCOMPARE(authority(dem->GetSpatialRef()), QString("4509"));
        double transform[6];
        QCOMPARE(dem->GetGeoTransform(transform), CE_None);
        const QRectF extent = SampleRegion::extent();
        QCOMPARE(QRectF(transform[0], transform[3], transform[1], transform[5]),
                 QRectF(extent.left(), extent.bottom(), kPixel, -kPixel));
        const int columns = dem->GetRasterXSize(), rows = dem->GetRasterYSize();
        QCOMPARE(QSize(columns, rows), QSize(extent.width() / kPixel, extent.height() / kPixel));
        GDALRasterBand* band = dem->GetRasterBand(1);
        QCOMPARE(band->GetRasterDataType(), GDT_Float32);
        QVERIFY(band->GetOverviewCount() >= 3);
        QCOMPARE(band->GetOverview(0)->GetXSize(), (columns + 1) / 2);
        QVERIFY(!QFile::exists(m_dir + "/elevation.tif.ovr"));
        int hasNoData = 0;
        QCOMPARE(band->GetNoDataValue(&hasNoData), DemWriter::kNoData);
        QVERIFY(hasNoData);
        std::vector<float> values(size_t(columns) * rows);
        QCOMPARE(
            band->RasterIO(GF_Read, 0, 0, columns, rows, values.data(), columns, rows, GDT_Float32, 0, 0),
            CE_None);
        const auto sea = [&](int c, int r) {
            return values[size_t(r) * columns + c] == float(DemWriter::kNoData);
        };
        const double seaShare =
            double(std::count(values.begin(), values.end(), float(DemWriter::kNoData))) / values.size();
        QVERIFY2(seaShare > 0.1 && seaShare < 0.6, qPrintable(QString::number(seaShare)));
        float highest = 0;
        double coastSum = 0;
        int coastPixels = 0;
        for (int r = 1; r + 1 < rows; ++r) {
            for (int c = 1; c + 1 < columns; ++c) {
                const float v = values[size_t(r) * columns + c];
                if (sea(c, r)) continue;
                QVERIFY(v >= 0 && v < 3000);
                highest = std::max(highest, v);
                if (sea(c - 1, r) || sea(c + 1, r) || sea(c, r - 1) || sea(c, r + 1)) {
                    coastSum += v;
                    ++coastPixels;
                }
            }
        }
        // A coastal pixel's centre lies up to a pixel inland, where cliffs may already have risen a little.
        QVERIFY(coastPixels > 100);
        QVERIFY2(coastSum / coastPixels < 30, qPrintable(QString::number(coastSum / coastPixels)));
        QVERIFY2(highest > 300, qPrintable(QString::number(highest)));
    }

    void benchLayers_data() {
        // vertices: per feature, a polygon's closing vertex included
        HOAddColumns<QString, int, int, int>({"name", "type", "count", "vertices"});
        QTest::newRow("polygons") << "polygons" << int(wkbPolygon) << 300 << 25;
        QTest::newRow("lines") << "lines" << int(wkbLineString) << 200 << 110;
        QTest::newRow("points") << "points" << int(wkbPoint) << 3000 << 1;
    }
    void benchLayers() {
        QFETCH(QString, name);
        QFETCH(int, type);
        if (!m_bench) {
            m_dirs.push_back(std::make_unique<QTemporaryDir>());
            SampleGenerator generator;
            QVERIFY2(generator.writeBench(m_dirs.back()->path(), SampleOptions::kDefaultSeed,
                                          {300, 25, 200, 110, 3000}),
                     qPrintable(generator.error()));
            m_bench = open(m_dirs.back()->filePath("bench.gpkg"));
        }
        OGRLayer* l = m_bench->GetLayerByName(qPrintable(name));
        QVERIFY(l);
        QCOMPARE(int(l->GetGeomType()), type);
        QCOMPARE(authority(l->GetSpatialRef()), QString("4509"));
        QTEST(int(l->GetFeatureCount()), "count");
        const QRectF region = SampleRegion::extent();
        const double slack = type == wkbPolygon ? 1000 : 0;  // polygons may reach a little past the edge
        QSet<int> ranks;
        for (const auto& feature : featuresOf(l)) {
            const auto points = verticesOf(feature->GetGeometryRef());
            QTEST(int(points.size()), "vertices");
            for (const QPointF& p : points)
                QVERIFY(region.adjusted(-slack, -slack, slack, slack).contains(p));
            ranks.insert(feature->GetFieldAsInteger("rank"));
        }
        QCOMPARE(ranks, (QSet<int>{1, 2, 3, 4}));
    }

private:
    OGRLayer* layer(const QString& name) { return m_region->GetLayerByName(qPrintable(name)); }
    // Only the first region's DEM is looked at; the others get a coarse one.
    QString generate(quint64 seed, double scale, double demPixel = 4000) {
        m_dirs.push_back(std::make_unique<QTemporaryDir>());
        const SampleOptions options{m_dirs.back()->path(), scale, seed, demPixel};
        SampleGenerator generator;
        if (!generator.writeRegion(options)) qWarning() << generator.error();  // opening it then fails
        return options.outDir;
    }

    std::vector<std::unique_ptr<QTemporaryDir>> m_dirs;
    QString m_dir;
    Dataset m_region{nullptr, nullptr};
    Dataset m_sparse{nullptr, nullptr};  // the same region at half the scale
    Dataset m_bench{nullptr, nullptr};
    std::unique_ptr<OGRGeometry> m_land;
};

QTEST_GUILESS_MAIN(TestSampleGen)
#include "tst_samplegen.moc"
