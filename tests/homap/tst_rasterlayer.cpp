// Raster layers: grey stretch, RGB(A), no-data, reading only the visible window, overviews, and a
// raster drawn in another coordinate system. Fixtures are GeoTIFFs written with GDAL.
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "HOLayerFixture.h"
#include "HORasterLayer.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

namespace {

const double unitPixels[6] = {0, 1, 0, 10, 0, -1};  // 10 x 10 units, origin top left at (0, 10)

}  // namespace

class TestRasterLayer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void drawsBandsAsColours_data();
    void drawsBandsAsColours();
    void readsOnlyTheVisibleWindow();
    void shrunkViewUsesOverviews();
    void drawsInAnotherCoordinateSystem();
    void truncatedPixelsGiveNullAndReadableError();

private:
    HORefPtr<HORasterLayer> open(const QString& file);
    QImage render(HORasterLayer* layer, const HORect& extent, const HOCoordinateSystem* system = nullptr);

    QTemporaryDir m_dir;
};

void TestRasterLayer::initTestCase() {
    QVERIFY(m_dir.isValid());
}

HORefPtr<HORasterLayer> TestRasterLayer::open(const QString& file) {
    HOString error;
    HORefPtr<HOLayer> layer = OpenLayer(HOString(m_dir.filePath(file)), &error);
    if (!layer) qWarning("%s", error.c_str());
    return HODynamicCast<HORasterLayer>(layer);
}

QImage TestRasterLayer::render(HORasterLayer* layer, const HORect& extent, const HOCoordinateSystem* system) {
    QImage image = HOLayerFixture::WhiteImage(QSize(100, 100));
    QPainter painter(&image);
    layer->Render(HOLayerFixture::Context(&painter, image.size(), extent, system));
    return image;
}

void TestRasterLayer::drawsBandsAsColours_data() {
    QTest::addColumn<int>("bands");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("noData");
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QRgb>("colour");

    // Grey: value = 10 * column, stretched from 0 (black) to 90 (white); column 0 is no-data in one row.
    QTest::newRow("grey minimum") << 1 << int(GDT_Float32) << double(NAN) << QPoint(5, 50) << qRgb(0, 0, 0);
    QTest::newRow("grey maximum") << 1 << int(GDT_Float32) << double(NAN) << QPoint(95, 50)
                                  << qRgb(255, 255, 255);
    QTest::newRow("grey between") << 1 << int(GDT_Float32) << double(NAN) << QPoint(45, 50)
                                  << qRgb(113, 113, 113);
    QTest::newRow("no-data shows the background")
        << 1 << int(GDT_Float32) << 0.0 << QPoint(5, 50) << qRgb(255, 255, 255);
    QTest::newRow("no-data stretch ignores it")
        << 1 << int(GDT_Float32) << 0.0 << QPoint(15, 50) << qRgb(0, 0, 0);
    QTest::newRow("RGB") << 3 << int(GDT_Byte) << double(NAN) << QPoint(50, 50) << qRgb(200, 100, 50);
    QTest::newRow("RGBA transparent")
        << 4 << int(GDT_Byte) << double(NAN) << QPoint(5, 50) << qRgb(255, 255, 255);
    QTest::newRow("RGBA opaque") << 4 << int(GDT_Byte) << double(NAN) << QPoint(95, 50) << qRgb(200, 100, 50);
}

void TestRasterLayer::drawsBandsAsColours() {
    QFETCH(int, bands);
    QFETCH(int, type);
    QFETCH(double, noData);
    const QString file = QStringLiteral("%1.tif").arg(QTest::currentDataTag()).replace(' ', '_');
    const auto value = [&](int band, int x, int) -> double {
        if (bands == 1) return 10.0 * x;
        if (band == 4) return x < 5 ? 0 : 255;  // alpha: left half transparent
        return band == 1 ? 200 : band == 2 ? 100 : 50;
    };
    QVERIFY(HOLayerFixture::WriteRaster(m_dir.filePath(file), 10, 10, bands, GDALDataType(type), 4509,
                                        unitPixels, value, noData));
    HORefPtr<HORasterLayer> layer = open(file);
    QVERIFY(layer);
    QCOMPARE(layer->GetLayerType(), HOLayer::RasterLayer);
    QCOMPARE(layer->GetExtent(), HORect(0, 10, 0, 10));
    QCOMPARE(layer->GetBandCount(), bands);
    QFETCH(QPoint, pixel);
    const QImage image = render(layer, HORect(0, 10, 0, 10));
    const QRgb actual = image.pixel(pixel);
    QFETCH(QRgb, colour);
    // Grey levels may round either way.
    QVERIFY2(std::abs(qRed(actual) - qRed(colour)) <= 1 && std::abs(qGreen(actual) - qGreen(colour)) <= 1 &&
                 std::abs(qBlue(actual) - qBlue(colour)) <= 1,
             qPrintable(QColor(actual).name() + " vs " + QColor(colour).name()));
}

void TestRasterLayer::readsOnlyTheVisibleWindow() {
    QVERIFY(HOLayerFixture::WriteRaster(m_dir.filePath("window.tif"), 10, 10, 1, GDT_Float32, 4509,
                                        unitPixels, [](int, int x, int) { return 10.0 * x; }));
    HORefPtr<HORasterLayer> layer = open("window.tif");
    QVERIFY(layer);
    // The right half fills the view: its left edge is column 5 (value 50 of 0..90).
    const QImage image = render(layer, HORect(5, 10, 2.5, 7.5));
    QCOMPARE(qRed(image.pixel(5, 50)), 50 * 255 / 90);
    QCOMPARE(image.pixel(95, 50), qRgb(255, 255, 255));
    // Beyond the raster nothing is drawn.
    const QImage outside = render(layer, HORect(20, 30, 20, 30));
    QCOMPARE(outside.pixel(50, 50), qRgb(255, 255, 255));
}

void TestRasterLayer::shrunkViewUsesOverviews() {
    // Full resolution is light grey; every overview is made dark, so the colour tells which was read.
    const double geo[6] = {0, 0.01, 0, 10, 0, -0.01};
    const QString path = m_dir.filePath("overviews.tif");
    QVERIFY(HOLayerFixture::WriteRaster(path, 1000, 1000, 3, GDT_Byte, 4509, geo,
                                        [](int, int, int) { return 200.0; }));
    {
        GDALDatasetUniquePtr ds(
            GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_RASTER | GDAL_OF_UPDATE));
        int levels[] = {2, 4, 8};
        QCOMPARE(ds->BuildOverviews("NEAREST", 3, levels, 0, nullptr, nullptr, nullptr, nullptr), CE_None);
        for (int b = 1; b <= 3; ++b) {
            for (int o = 0; o < ds->GetRasterBand(b)->GetOverviewCount(); ++o) {
                GDALRasterBand* overview = ds->GetRasterBand(b)->GetOverview(o);
                std::vector<GByte> dark(std::size_t(overview->GetXSize()) * std::size_t(overview->GetYSize()),
                                        40);
                QCOMPARE(overview->RasterIO(GF_Write, 0, 0, overview->GetXSize(), overview->GetYSize(),
                                            dark.data(), overview->GetXSize(), overview->GetYSize(), GDT_Byte,
                                            0, 0),
                         CE_None);
            }
        }
    }
    HORefPtr<HORasterLayer> layer = open("overviews.tif");
    QVERIFY(layer);
    QCOMPARE(render(layer, HORect(0, 10, 0, 10)).pixel(50, 50), qRgb(40, 40, 40));   // 10x smaller: overview
    QCOMPARE(render(layer, HORect(4, 5, 4, 5)).pixel(50, 50), qRgb(200, 200, 200));  // 1:1: full resolution
}

void TestRasterLayer::drawsInAnotherCoordinateSystem() {
    // A tenth of a degree around 117E 30N, drawn in Gauss-Kruger metres.
    const double geo[6] = {116.95, 0.001, 0, 30.05, 0, -0.001};
    QVERIFY(HOLayerFixture::WriteRaster(m_dir.filePath("geographic.tif"), 100, 100, 3, GDT_Byte, 4490, geo,
                                        [](int band, int, int) {
                                            return band == 1 ? 10.0 : band == 2 ? 120.0 : 30.0;
                                        }));
    HORefPtr<HORasterLayer> layer = open("geographic.tif");
    QVERIFY(layer);
    HORefPtr<HOCoordinateSystem> gk = HOCoordinateSystem::FromEpsg(4509);
    const HORect inGk = layer->GetExtentIn(gk);
    QVERIFY(inGk.Contains(HOPoint(500000.0, inGk.Center().y)));
    const HOPoint c = inGk.Center();
    const QImage image = render(layer, HORect(c.x - 1000, c.x + 1000, c.y - 1000, c.y + 1000), gk);
    QCOMPARE(image.pixel(50, 50), qRgb(10, 120, 30));
    const QImage far = render(layer, HORect(c.x + 20000, c.x + 22000, c.y, c.y + 2000), gk);
    QCOMPARE(far.pixel(50, 50), qRgb(255, 255, 255));
}

void TestRasterLayer::truncatedPixelsGiveNullAndReadableError() {
    const QString path = m_dir.filePath("cut.tif");
    QVERIFY(HOLayerFixture::WriteRaster(path, 300, 300, 1, GDT_Float32, 4509, unitPixels,
                                        [](int, int x, int y) { return double(x + y); }));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    // The header (and the strip offsets after it) stays; most of the pixels go.
    QVERIFY(file.resize(file.size() / 3));
    file.close();
    HOString error;
    QVERIFY(!OpenLayer(HOString(path), &error));
    QVERIFY2(error.toQString().startsWith(QStringLiteral("cannot open '%1': ").arg(path)), error.c_str());
}

QTEST_MAIN(TestRasterLayer)
#include "tst_rasterlayer.moc"
