// Rasters: where odd georeferencing puts them (or why they are refused), how their values become
// colours, the window drawn, overviews and reprojection, transparency outside a warped footprint, and huge
// rasters that must neither block the GUI thread nor write beside the user's file.
#include <QDirIterator>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>
#include <atomic>
#include <functional>
#include <thread>

#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HORasterLayer.h"
#include "HOSignalCounter.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

// A pixel's value from (band, column, row).
using PixelValue = std::function<double(int, int, int)>;
Q_DECLARE_METATYPE(PixelValue)

namespace {

const QRgb red = qRgb(255, 0, 0), yellow = qRgb(255, 255, 0), cyan = qRgb(0, 255, 255),
           blue = qRgb(0, 0, 255), white = qRgb(255, 255, 255);

// Four quadrants of a 10 x 10 RGB raster: yellow, cyan / red, blue (top row first).
double quadrants(int band, int x, int y) {
    const bool left = x < 5, top = y < 5;
    return band == 1 ? (left ? 255 : 0) : band == 2 ? (top ? 255 : 0) : (left ? 0 : 255);
}

bool near(QRgb a, QRgb b, int tolerance) {
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

QImage render(HOLayer* layer, const HORect& extent, const HOCoordinateSystem* system = nullptr,
              QRgb background = qRgb(255, 255, 255), int side = 100) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter painter(&image);
    layer->Render(HOLayerFixture::Context(&painter, image.size(), extent, system));
    return image;
}

// A tiled GeoTIFF of which only the top-left `written` x `written` pixels exist; the rest is
// sparse (no bytes in the file), as in a huge mostly empty mosaic.
bool writeSparse(const QString& path, int width, int height, int bands, int written) {
    GDALAllRegister();
    const char* options[] = {"TILED=YES", "SPARSE_OK=TRUE", "BIGTIFF=YES", nullptr};
    GDALDatasetUniquePtr ds(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
        path.toUtf8().constData(), width, height, bands, GDT_Byte, const_cast<char**>(options)));
    if (!ds) return false;
    double geo[6] = {500000, 1, 0, 4000000, 0, -1};
    ds->SetGeoTransform(geo);
    OGRSpatialReference srs;
    srs.importFromEPSG(32650);
    ds->SetSpatialRef(&srs);
    for (int b = 1; b <= bands; ++b) {
        std::vector<GByte> block(std::size_t(written) * std::size_t(written), GByte(60 * b));
        if (ds->GetRasterBand(b)->RasterIO(GF_Write, 0, 0, written, written, block.data(), written, written,
                                           GDT_Byte, 0, 0) != CE_None)
            return false;
    }
    return true;
}

QStringList filesUnder(const QString& folder) {
    QStringList files;
    for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << it.next();
    return files;
}

}  // namespace

class TestRasterLayer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        QDir(m_dir.path()).mkpath("data");
        // Overviews go to the application's cache folder: this test's own.
        qputenv("XDG_CACHE_HOME", m_dir.filePath("cache").toUtf8());
    }

    void georeferencing_data() {
        QTest::addColumn<QVector<double>>("geo");  // empty: none written
        QTest::addColumn<QString>("reason");       // empty: opens
        QTest::addColumn<HORect>("extent");
        QTest::addColumn<QRgb>("topLeft");     // device pixel (25, 25)
        QTest::addColumn<QRgb>("bottomLeft");  // device pixel (25, 75)
        const HORect square(0, 10, 0, 10);
        QTest::newRow("north-up") << QVector<double>{0, 1, 0, 10, 0, -1} << "" << square << yellow << red;
        // Columns run north, rows east: the image's top-right corner is the map's top left.
        QTest::newRow("rotated a quarter turn")
            << QVector<double>{0, 0, 1, 0, 1, 0} << "" << square << cyan << yellow;
        QTest::newRow("none, pixel units upright")
            << QVector<double>() << "" << HORect(0, 10, -10, 0) << yellow << red;
        QTest::newRow("NaN origin") << QVector<double>{NAN, 1, 0, 10, 0, -1} << "not a finite number"
                                    << HORect() << QRgb() << QRgb();
        QTest::newRow("huge pixel size") << QVector<double>{0, 1e308, 0, 10, 0, -1e308}
                                         << "beyond any coordinate system" << HORect() << QRgb() << QRgb();
    }

    void georeferencing() {
        QFETCH(QVector<double>, geo);
        QFETCH(QString, reason);
        QFETCH(HORect, extent);
        const QString path = m_dir.filePath(QString(QTest::currentDataTag()).replace(' ', '_') + ".tif");
        QVERIFY(HOLayerFixture::WriteRaster(path, 10, 10, 3, GDT_Byte, geo.isEmpty() ? 0 : 4509,
                                            geo.isEmpty() ? nullptr : geo.constData(), quadrants));
        HOString error;
        HORefPtr<HORasterLayer> layer = HODynamicCast<HORasterLayer>(OpenLayer(HOString(path), &error));
        if (!reason.isEmpty()) {
            QVERIFY(!layer);
            QVERIFY2(QString(error.c_str()).contains(path) && QString(error.c_str()).contains(reason),
                     error.c_str());
            return;
        }
        QVERIFY2(layer, error.c_str());
        QCOMPARE(layer->GetExtent(), extent);
        const QImage image = render(layer, extent);
        QTEST(image.pixel(25, 25), "topLeft");
        QTEST(image.pixel(25, 75), "bottomLeft");
    }

    // Grey values stretch from black to white (2-98 %, no-data left out and drawn as the background), RGB(A)
    // bands are colours, a colour table is looked up.
    void valuesToColours_data() {
        QTest::addColumn<int>("bands");
        QTest::addColumn<int>("type");  // GDALDataType
        QTest::addColumn<PixelValue>("value");
        QTest::addColumn<double>("noData");
        QTest::addColumn<bool>("paletted");  // 1 -> (10, 200, 30), 2 -> (250, 120, 0)
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QRgb>("colour");
        QTest::addColumn<int>("tolerance");
        const auto row = [](const char* tag, int bands, GDALDataType type, PixelValue value, double noData,
                            bool paletted, QPoint pixel, QRgb colour, int tolerance) {
            QTest::newRow(tag) << bands << int(type) << value << noData << paletted << pixel << colour
                               << tolerance;
        };
        const double none = NAN;
        const PixelValue columns = [](int, int x, int) { return 10.0 * x; };  // 0 (black) to 90 (white)
        const PixelValue rgba = [](int band, int x, int) -> double {
            return band == 4 ? (x < 5 ? 0 : 255) : band == 1 ? 200 : band == 2 ? 100 : 50;  // left half clear
        };
        const QPoint middle(55, 50);
        row("grey minimum", 1, GDT_Float32, columns, none, false, {5, 50}, qRgb(0, 0, 0), 1);
        row("grey maximum", 1, GDT_Float32, columns, none, false, {95, 50}, white, 1);
        row("grey between", 1, GDT_Float32, columns, none, false, {45, 50}, qRgb(113, 113, 113), 1);
        row("no-data shows the background", 1, GDT_Float32, columns, 0.0, false, {5, 50}, white, 1);
        row("no-data stretch ignores it", 1, GDT_Float32, columns, 0.0, false, {15, 50}, qRgb(0, 0, 0), 1);
        row("RGB", 3, GDT_Byte, rgba, none, false, middle, qRgb(200, 100, 50), 1);
        row("RGBA transparent", 4, GDT_Byte, rgba, none, false, {5, 50}, white, 1);
        row("RGBA opaque", 4, GDT_Byte, rgba, none, false, middle, qRgb(200, 100, 50), 1);
        row(
            "colour table", 1, GDT_Byte, [](int, int x, int) { return x < 5 ? 1 : 2; }, none, true, middle,
            qRgb(250, 120, 0), 0);
        // Values 0..9 and one far outlier: the 2-98 % stretch puts 5 near the middle.
        row(
            "float with an outlier", 1, GDT_Float32,
            [](int, int x, int y) { return x == 9 && y == 9 ? 1e6 : x; }, none, false, middle,
            qRgb(141, 141, 141), 15);
        row(
            "constant float", 1, GDT_Float32, [](int, int, int) { return 7.5; }, none, false, middle,
            qRgb(128, 128, 128), 1);
        row(
            "constant byte", 1, GDT_Byte, [](int, int, int) { return 0; }, none, false, middle,
            qRgb(128, 128, 128), 1);
    }

    void valuesToColours() {
        QFETCH(int, bands);
        QFETCH(int, type);
        QFETCH(PixelValue, value);
        QFETCH(double, noData);
        QFETCH(bool, paletted);
        QFETCH(QPoint, pixel);
        QFETCH(QRgb, colour);
        QFETCH(int, tolerance);
        const QString path = m_dir.filePath("data/values.tif");
        const double geo[6] = {0, 1, 0, 10, 0, -1};
        QVERIFY(
            HOLayerFixture::WriteRaster(path, 10, 10, bands, GDALDataType(type), 4509, geo, value, noData));
        if (paletted) {
            GDALDatasetUniquePtr ds(
                GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_RASTER | GDAL_OF_UPDATE));
            GDALColorTable table;
            const GDALColorEntry green = {10, 200, 30, 255}, orange = {250, 120, 0, 255};
            table.SetColorEntry(1, &green);
            table.SetColorEntry(2, &orange);
            QCOMPARE(ds->GetRasterBand(1)->SetColorTable(&table), CE_None);
        }
        HORefPtr<HORasterLayer> layer = HODynamicCast<HORasterLayer>(OpenLayer(HOString(path)));
        QVERIFY(layer);
        QCOMPARE(layer->GetBandCount(), bands);
        const QRgb actual = render(layer, HORect(0, 10, 0, 10)).pixel(pixel);
        QVERIFY2(near(actual, colour, tolerance),
                 qPrintable(QColor(actual).name() + " vs " + QColor(colour).name()));
        layer = nullptr;
        QCOMPARE(QDir(m_dir.filePath("data")).entryList(QDir::Files), QStringList{"values.tif"});
    }

    void rasterWindowOverviewsAndReprojection() {
        const double unitPixels[6] = {0, 1, 0, 10, 0, -1};
        HORefPtr<HORasterLayer> layer =
            HOLayerFixture::OpenRaster(m_dir.filePath("window.tif"), 10, 10, 1, GDT_Float32, 4509, unitPixels,
                                       [](int, int x, int) { return 10.0 * x; });
        QVERIFY(layer);
        // The right half fills the view: its left edge is column 5 (value 50 of 0..90). Beyond, nothing.
        const QImage image = render(layer, HORect(5, 10, 2.5, 7.5));
        QCOMPARE(qRed(image.pixel(5, 50)), 50 * 255 / 90);
        QCOMPARE(image.pixel(95, 50), white);
        QCOMPARE(render(layer, HORect(20, 30, 20, 30)).pixel(50, 50), white);

        // Full resolution is light grey; every overview is made dark, so the colour tells which was read.
        const double fine[6] = {0, 0.01, 0, 10, 0, -0.01};
        const QString path = m_dir.filePath("overviews.tif");
        QVERIFY(HOLayerFixture::WriteRaster(path, 1000, 1000, 3, GDT_Byte, 4509, fine,
                                            [](int, int, int) { return 200.; }));
        {
            GDALDatasetUniquePtr ds(
                GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_RASTER | GDAL_OF_UPDATE));
            int levels[] = {2, 4, 8};
            QCOMPARE(ds->BuildOverviews("NEAREST", 3, levels, 0, nullptr, nullptr, nullptr, nullptr),
                     CE_None);
            for (int b = 1; b <= 3; ++b) {
                for (int o = 0; o < ds->GetRasterBand(b)->GetOverviewCount(); ++o) {
                    GDALRasterBand* overview = ds->GetRasterBand(b)->GetOverview(o);
                    const int w = overview->GetXSize(), h = overview->GetYSize();
                    std::vector<GByte> dark(std::size_t(w) * std::size_t(h), 40);
                    QCOMPARE(overview->RasterIO(GF_Write, 0, 0, w, h, dark.data(), w, h, GDT_Byte, 0, 0),
                             CE_None);
                }
            }
        }
        layer = HODynamicCast<HORasterLayer>(OpenLayer(HOString(path)));
        QVERIFY(layer);
        QCOMPARE(render(layer, HORect(0, 10, 0, 10)).pixel(50, 50),
                 qRgb(40, 40, 40));  // 10x smaller: overview
        QCOMPARE(render(layer, HORect(4, 5, 4, 5)).pixel(50, 50),
                 qRgb(200, 200, 200));  // 1:1: full resolution

        // A tenth of a degree around 117E 30N, drawn in Gauss-Kruger metres.
        const double degrees[6] = {116.95, 0.001, 0, 30.05, 0, -0.001};
        layer = HOLayerFixture::OpenRaster(m_dir.filePath("geographic.tif"), 100, 100, 3, GDT_Byte, 4490,
                                           degrees, [](int band, int, int) {
                                               return band == 1 ? 10.0 : band == 2 ? 120.0 : 30.0;
                                           });
        QVERIFY(layer);
        HORefPtr<HOCoordinateSystem> gk = HOCoordinateSystem::FromEpsg(4509);
        const HOPoint c = layer->GetExtentIn(gk).Center();
        QCOMPARE(render(layer, HORect(c.x - 1000, c.x + 1000, c.y - 1000, c.y + 1000), gk).pixel(50, 50),
                 qRgb(10, 120, 30));
        QCOMPARE(render(layer, HORect(c.x + 20000, c.x + 22000, c.y, c.y + 2000), gk).pixel(50, 50), white);
    }

    void warpedFootprintIsTransparent_data() {
        QTest::addColumn<int>("bands");
        QTest::addColumn<int>("type");
        QTest::addColumn<QRgb>("colour");
        QTest::newRow("RGB") << 3 << int(GDT_Byte) << qRgb(20, 160, 60);
        QTest::newRow("grey float") << 1 << int(GDT_Float32) << qRgb(128, 128, 128);
    }

    void warpedFootprintIsTransparent() {
        QFETCH(int, bands);
        QFETCH(int, type);
        QFETCH(QRgb, colour);
        // 100-120E, 20-40N, drawn in a polar system where that box is a slanted, curved wedge.
        const double degrees[6] = {100, 0.2, 0, 40, 0, -0.2};
        const QString path = m_dir.filePath(QString("wedge%1.tif").arg(bands));
        const auto value = [&](int band, int, int) {
            return bands == 1 ? 3.0 : band == 1 ? 20 : band == 2 ? 160 : 60;
        };
        QVERIFY(HOLayerFixture::WriteRaster(path, 100, 100, bands, GDALDataType(type), 4326, degrees, value));
        HORefPtr<HOLayer> layer = OpenLayer(HOString(path));
        QVERIFY(layer);
        HORefPtr<HOCoordinateSystem> polar =
            HOCoordinateSystem::FromUserInput("+proj=laea +lat_0=90 +lon_0=0 +datum=WGS84 +units=m");
        QVERIFY(polar);
        const HORect extent = layer->GetExtentIn(polar);
        const QImage image = render(layer, extent, polar, red);
        int background = 0, black = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                background += image.pixel(x, y) == red;
                black += near(image.pixel(x, y), qRgb(0, 0, 0), 40);
            }
        }
        QCOMPARE(black, 0);
        QVERIFY2(background > 1000, qPrintable(QString::number(background)));
        QVERIFY(near(image.pixel(50, 50), colour, 2));
    }

    void hugeRasterNeverBlocks_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("bands");
        QTest::newRow("sparse grey 200000 x 200000") << 200000 << 200000 << 1;
        QTest::newRow("sparse RGB 40000 x 20000") << 40000 << 20000 << 3;
    }

    // The render thread reads while the GUI thread asks for metadata: every answer comes at once,
    // the render ends in bounded time, and nothing is written beside the file.
    void hugeRasterNeverBlocks() {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, bands);
        QTemporaryDir folder;
        const QString path = folder.filePath("huge.tif");
        QVERIFY(writeSparse(path, width, height, bands, 512));
        HORefPtr<HORasterLayer> layer = HODynamicCast<HORasterLayer>(OpenLayer(HOString(path)));
        QVERIFY(layer);
        const HORect extent = layer->GetExtent();

        QImage image = HOLayerFixture::WhiteImage(QSize(400, 300));
        HOTrackCancel cancel;
        std::atomic<bool> finished{false};
        std::thread renderThread([&] {
            QPainter painter(&image);
            HORenderContext context = HOLayerFixture::Context(&painter, image.size(), extent);
            context.cancel = &cancel;
            layer->Render(context);
            finished.store(true);
        });
        QElapsedTimer elapsed;
        elapsed.start();
        qint64 slowest = 0;
        while (!finished.load() && elapsed.elapsed() < 60000) {
            QElapsedTimer call;
            call.start();
            QCOMPARE(layer->GetExtent(), extent);
            QVERIFY(layer->GetSpatialReference());
            QCOMPARE(layer->GetRasterWidth(), width);
            slowest = std::max(slowest, call.elapsed());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        const bool done = finished.load();
        cancel.Cancel();
        renderThread.join();
        QVERIFY2(done, "the render did not finish within 60 s");
        QVERIFY2(slowest < 1000, qPrintable(QString("metadata took %1 ms during a render").arg(slowest)));
        layer = nullptr;  // cancels the overview build the render started
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"huge.tif"});
    }

    void overviewsAreBuiltInTheCache() {
        QTemporaryDir folder;
        const QString path = folder.filePath("large.tif");
        QVERIFY(writeSparse(path, 8192, 8192, 3, 2048));
        HORefPtr<HORasterLayer> layer = HODynamicCast<HORasterLayer>(OpenLayer(HOString(path)));
        QVERIFY(layer);
        std::atomic<int> reports{0};
        layer->OverviewProgressSignal.bind("test", [&](void*, HOEvent*) { ++reports; });
        const HORect extent = layer->GetExtent();
        const QRgb written = qRgb(60, 120, 180);
        // A map view shows it: its first render starts the build and draws a coarse preview.
        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(layer);
        HORefPtr<HOMapView> view(new HOMapView);
        HOSignalCounter finished(view->RenderFinishedSignal);
        view->SetSize(200, 200);
        view->SetMap(map);
        QTRY_VERIFY2_WITH_TIMEOUT(finished.count > 0 && !view->IsRendering(), "the first render", 60000);
        finished.reset();
        QCOMPARE(render(layer, extent).pixel(10, 10), written);
        QTRY_VERIFY_WITH_TIMEOUT(layer->GetOverviewProgress() == 1, 120000);
        QVERIFY(reports.load() > 1);
        // The view draws the layer again from its overviews, untouched.
        QTRY_VERIFY2_WITH_TIMEOUT(finished.count > 0, "a render after the overviews were built", 60000);
        const QImage image = render(layer, extent, nullptr, qRgb(255, 255, 255), 400);
        QCOMPARE(image.pixel(10, 10), written);
        QCOMPARE(image.pixel(300, 300), qRgb(0, 0, 0));
        layer->OverviewProgressSignal.unbind("test");
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"large.tif"});
        const QStringList cached = filesUnder(m_dir.filePath("cache"));
        QVERIFY2(cached.filter(QRegularExpression("\\.ovr$")).size() == 1, qPrintable(cached.join(", ")));

        // Another session finds them and does not build again.
        layer = HODynamicCast<HORasterLayer>(OpenLayer(HOString(path)));
        QCOMPARE(render(layer, extent).pixel(10, 10), written);
        QCOMPARE(layer->GetOverviewProgress(), -1.0);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestRasterLayer)
#include "tst_rasterlayer.moc"
