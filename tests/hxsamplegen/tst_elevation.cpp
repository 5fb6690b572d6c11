// The DEM written beside the region: georeferencing, overviews, nodata at sea and a coast at sea level.

#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <vector>

#include "DemWriter.h"
#include "SampleGenerator.h"
#include "SampleRegion.h"

class TestElevation : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void georeferencedInGaussKruger117();
    void hasOverviews();
    void seaIsNoData();
    void coastIsAtSeaLevelAndHillsRiseInland();

private:
    static constexpr double kPixel = 250;

    QTemporaryDir m_dir;
    GDALDataset* m_dem = nullptr;
    std::vector<float> m_values;
    int m_columns = 0, m_rows = 0;
    bool isSea(int column, int row) const { return value(column, row) == float(DemWriter::kNoData); }
    float value(int column, int row) const { return m_values[size_t(row) * m_columns + column]; }
};

void TestElevation::initTestCase() {
    SampleOptions options;
    options.outDir = m_dir.path();
    options.scale = 0.1;
    options.demPixelSize = kPixel;
    SampleGenerator generator;
    QVERIFY2(generator.writeRegion(options), qPrintable(generator.error()));
    m_dem = GDALDataset::Open(m_dir.filePath("elevation.tif").toUtf8().constData(),
                              GDAL_OF_RASTER | GDAL_OF_READONLY);
    QVERIFY(m_dem);
    m_columns = m_dem->GetRasterXSize();
    m_rows = m_dem->GetRasterYSize();
    m_values.resize(size_t(m_columns) * m_rows);
    QCOMPARE(m_dem->GetRasterBand(1)->RasterIO(GF_Read, 0, 0, m_columns, m_rows, m_values.data(), m_columns,
                                               m_rows, GDT_Float32, 0, 0),
             CE_None);
}

void TestElevation::cleanupTestCase() {
    GDALClose(m_dem);
}

void TestElevation::georeferencedInGaussKruger117() {
    const OGRSpatialReference* srs = m_dem->GetSpatialRef();
    QVERIFY(srs);
    QCOMPARE(QString(srs->GetAuthorityCode(nullptr)), QString("4509"));
    double transform[6];
    QCOMPARE(m_dem->GetGeoTransform(transform), CE_None);
    const QRectF extent = SampleRegion::extent();
    // North-up: the origin is the north-west corner.
    QCOMPARE(transform[0], extent.left());
    QCOMPARE(transform[3], extent.bottom());
    QCOMPARE(transform[1], kPixel);
    QCOMPARE(transform[5], -kPixel);
    QCOMPARE(m_columns, int(extent.width() / kPixel));
    QCOMPARE(m_rows, int(extent.height() / kPixel));
    QCOMPARE(m_dem->GetRasterBand(1)->GetRasterDataType(), GDT_Float32);
}

void TestElevation::hasOverviews() {
    GDALRasterBand* band = m_dem->GetRasterBand(1);
    QVERIFY(band->GetOverviewCount() >= 3);
    QCOMPARE(band->GetOverview(0)->GetXSize(), (m_columns + 1) / 2);
    // Internal: no side-car .ovr file.
    QVERIFY(!QFile::exists(m_dir.filePath("elevation.tif.ovr")));
}

void TestElevation::seaIsNoData() {
    int hasNoData = 0;
    QCOMPARE(m_dem->GetRasterBand(1)->GetNoDataValue(&hasNoData), DemWriter::kNoData);
    QVERIFY(hasNoData);
    const auto sea = std::count(m_values.begin(), m_values.end(), float(DemWriter::kNoData));
    const double share = double(sea) / m_values.size();
    QVERIFY2(share > 0.1 && share < 0.6, qPrintable(QString::number(share)));
    for (float v : m_values) QVERIFY(v == float(DemWriter::kNoData) || (v >= 0 && v < 3000));
}

void TestElevation::coastIsAtSeaLevelAndHillsRiseInland() {
    float highest = 0;
    double coastSum = 0;
    int coastPixels = 0;
    for (int row = 1; row + 1 < m_rows; ++row) {
        for (int column = 1; column + 1 < m_columns; ++column) {
            if (isSea(column, row)) continue;
            highest = std::max(highest, value(column, row));
            if (isSea(column - 1, row) || isSea(column + 1, row) || isSea(column, row - 1) ||
                isSea(column, row + 1)) {
                coastSum += value(column, row);
                ++coastPixels;
            }
        }
    }
    // A coastal pixel's centre lies up to a pixel inland, where cliffs may already have risen a little.
    QVERIFY(coastPixels > 100);
    QVERIFY2(coastSum / coastPixels < 30, qPrintable(QString::number(coastSum / coastPixels)));
    QVERIFY2(highest > 300, qPrintable(QString::number(highest)));
}

QTEST_GUILESS_MAIN(TestElevation)
#include "tst_elevation.moc"
