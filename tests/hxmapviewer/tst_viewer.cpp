// The reference viewer on the generated sample region: what a person sees, and how it reports files
// it cannot open.
#include <QLineEdit>
#include <QMenuBar>
#include <QProcess>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolButton>
#include <QTranslator>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXApplication.h"
#include "HXCommandDock.h"
#include "HXFileOpening.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXMessageBar.h"
#include "HXViewerWindow.h"

using namespace HXObjects;

namespace {

QString samplePath(const QString& name) {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/" + name;
}

bool isSea(QRgb c) {
    return qAbs(qRed(c) - 168) < 12 && qAbs(qGreen(c) - 204) < 12 && qAbs(qBlue(c) - 238) < 12;
}
bool isReddish(QRgb c) {
    return qRed(c) > qGreen(c) + 50 && qRed(c) > qBlue(c) + 50;
}
bool isLand(QRgb c) {
    return !isSea(c) && qRed(c) > 150 && qGreen(c) > 150 && qBlue(c) < qRed(c);
}

HOFeatureLayer* layerNamed(HOMap* map, const char* name) {
    for (const HORefPtr<HOLayer>& layer : map->GetLayers(true)) {
        if (layer->GetName() == name) return dynamic_cast<HOFeatureLayer*>(layer.get());
    }
    return nullptr;
}

QImage mapImage(HXMapCanvas* canvas) {
    auto* widget = canvas->findChild<HXMapWidget*>();
    return widget ? widget->grab().toImage().convertToFormat(QImage::Format_RGB32) : QImage();
}

}  // namespace

class TestViewer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void sampleShowsSeaLandAndRoads();
    void unreadableFilesAreReportedAndLayersKept();
    void openingShowsProgressAndCancels();
    void screenshotProgramWritesThePicture();
    void screenshotProgramFailsOnAMissingFile();
    void badOptionsAreRefused_data();
    void badOptionsAreRefused();
    void opensAtThreeQuartersOfTheScreenThenAtTheSavedSize();
    void homeShowsTheFullExtentWhileTheCommandLineHasFocus();
    void firstRenderIsAtTheFinalSize();
    void waitEndsAtOnceForAPictureFinishedBefore();
    void menusAreInTheLocaleLanguage();

private:
    std::unique_ptr<HXViewerWindow> openSample();
};

void TestViewer::initTestCase() {
    QVERIFY2(QFile::exists(samplePath("region.gpkg")), "the sample region fixture is missing");
}

std::unique_ptr<HXViewerWindow> TestViewer::openSample() {
    auto window = std::make_unique<HXViewerWindow>();
    window->resize(1100, 750);
    if (window->showAndOpen({samplePath("region.gpkg")}) != 0) return nullptr;
    if (!window->waitForRender(120000)) return nullptr;
    return window;
}

void TestViewer::sampleShowsSeaLandAndRoads() {
    auto window = openSample();
    QVERIFY(window);
    HOMapView* view = window->canvas()->GetMapView();
    // Labels may cover the road vertex looked at below; this is about the layers.
    for (const HORefPtr<HOLayer>& layer : view->GetMap()->GetLayers(true))
        if (auto* features = dynamic_cast<HOFeatureLayer*>(layer.get())) features->SetLabelSettings({});
    view->RefreshMap(true, HORect());
    QVERIFY2(window->waitForRender(60000), "the unlabelled map did not finish rendering");
    const QImage image = mapImage(window->canvas());
    QVERIFY(!image.isNull());

    int sea = 0, land = 0;
    for (int y = 0; y < image.height(); y += 4) {
        for (int x = 0; x < image.width(); x += 4) {
            const QRgb c = image.pixel(x, y);
            sea += isSea(c);
            land += isLand(c);
        }
    }
    const int samples = (image.width() / 4) * (image.height() / 4);
    QVERIFY2(sea > samples / 50, qPrintable(QString("sea pixels %1 of %2").arg(sea).arg(samples)));
    QVERIFY2(land > samples / 5, qPrintable(QString("land pixels %1 of %2").arg(land).arg(samples)));

    // The middle vertex of a road is drawn in the road colour.
    HOFeatureLayer* roads = layerNamed(view->GetMap(), "roads");
    QVERIFY(roads);
    HORefPtr<HOFeature> road;
    for (int id = 0; !road && id < 10; ++id) road = roads->GetFeature(id);
    QVERIFY(road);
    const auto& path = road->GetGeometry()->Parts().front();
    const HOPoint pixel = view->GetDisplayTransform().ToDevice(path[path.size() / 2]);
    bool roadColour = false;
    for (int dy = -2; dy <= 2; ++dy) {
        for (int dx = -2; dx <= 2; ++dx) {
            const QPoint p(int(pixel.x) + dx, int(pixel.y) + dy);
            if (image.rect().contains(p)) roadColour = roadColour || isReddish(image.pixel(p));
        }
    }
    QVERIFY2(roadColour, "no road colour at a road vertex");

    QStatusBar* status = window->canvas()->StatusBar();
    QVERIFY(status->isVisible());
    QCOMPARE(status->geometry().bottom(), window->canvas()->height() - 1);
}

void TestViewer::unreadableFilesAreReportedAndLayersKept() {
    auto window = openSample();
    QVERIFY(window);
    HOMap* map = window->canvas()->GetMapView()->GetMap();
    const int layers = map->GetLayerCount();

    QTemporaryDir dir;
    const QString missing = dir.filePath("nowhere.shp");
    const QString corrupt = dir.filePath("broken.gpkg");
    QFile file(corrupt);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("SQLite format 3\0 but nothing after it", 38);
    file.close();

    window->openFiles({missing, corrupt});
    QVERIFY2(window->waitForOpened(120000), "the files were not read in time");
    QCOMPARE(window->openFailures(), 2);
    QCOMPARE(map->GetLayerCount(), layers);
    QCOMPARE(window->errors().size(), 2);
    QVERIFY(window->errors()[0].contains("cannot open") && window->errors()[0].contains("nowhere.shp"));
    QVERIFY(window->errors()[1].contains("cannot open") && window->errors()[1].contains("broken.gpkg"));
    bool shown = false;
    for (QTextEdit* text : window->messageBar()->findChildren<QTextEdit*>("textEdit")) {
        shown = shown || text->toPlainText().contains("cannot open");
    }
    QVERIFY2(shown, "the message bar does not show the error");
}

// A large file is read with a progress bar in the status bar; its cancel button leaves the map as
// it was and hides the bar.
void TestViewer::openingShowsProgressAndCancels() {
    auto window = openSample();
    QVERIFY(window);
    HOMap* map = window->canvas()->GetMapView()->GetMap();
    const int layers = map->GetLayerCount();
    HXFileOpening* opening = window->fileOpening();
    QVERIFY(window->canvas()->StatusBar()->isAncestorOf(opening));
    window->openFiles({qEnvironmentVariable("HX_TEST_DATA") + "/large/region.gpkg"});
    QVERIFY(opening->isVisible() && opening->isBusy());
    QTRY_VERIFY2_WITH_TIMEOUT(opening->progressBar()->value() > 0, "the progress bar never moved", 60000);
    QTest::mouseClick(opening->cancelButton(), Qt::LeftButton);
    QVERIFY(!opening->isBusy() && !opening->isVisible());
    QVERIFY(window->waitForOpened(1000));
    QCOMPARE(map->GetLayerCount(), layers);
    QCOMPARE(window->openFailures(), 0);
}

void TestViewer::screenshotProgramWritesThePicture() {
    QTemporaryDir dir;
    const QString out = dir.filePath("viewer.png");
    QProcess viewer;
    viewer.start(HX_VIEWER_BIN, {"--screenshot", out, "--size", "900x600", samplePath("region.gpkg")});
    QVERIFY(viewer.waitForFinished(180000));
    QCOMPARE(viewer.exitCode(), 0);
    QImage image(out);
    QCOMPARE(image.size(), QSize(900, 600));
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 7) {
        for (int x = 0; x < image.width(); x += 7) colours.insert(image.pixel(x, y));
    }
    QVERIFY2(colours.size() > 50, "the screenshot is nearly uniform");
}

void TestViewer::screenshotProgramFailsOnAMissingFile() {
    QTemporaryDir dir;
    QProcess viewer;
    viewer.start(HX_VIEWER_BIN, {"--screenshot", dir.filePath("x.png"), dir.filePath("absent.geojson")});
    QVERIFY(viewer.waitForFinished(180000));
    QVERIFY(viewer.exitCode() != 0);
    QVERIFY(QString::fromUtf8(viewer.readAllStandardError()).contains("cannot open"));
}

void TestViewer::badOptionsAreRefused_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("reason");
    QTest::newRow("size 0x0") << QStringList{"--size", "0x0"} << "--size '0x0'";
    QTest::newRow("size 1x1") << QStringList{"--size", "1x1"} << "--size '1x1'";
    QTest::newRow("size too tall") << QStringList{"--size", "800x16385"} << "--size '800x16385'";
    QTest::newRow("size 100000x100000") << QStringList{"--size", "100000x100000"} << "--size '100000x100000'";
    QTest::newRow("size not WxH") << QStringList{"--size", "wide"} << "--size 'wide'";
    QTest::newRow("crs unreadable") << QStringList{"--crs", "EPSG:nonsense"} << "cannot read 'EPSG:nonsense'";
    QTest::newRow("crs geocentric") << QStringList{"--crs", "EPSG:4978"}
                                    << "neither geographic nor projected";
    QTest::newRow("crs vertical") << QStringList{"--crs", "EPSG:5773"} << "neither geographic nor projected";
}

void TestViewer::badOptionsAreRefused() {
    QFETCH(QStringList, options);
    QFETCH(QString, reason);
    QTemporaryDir dir;
    const QString out = dir.filePath("x.png");
    QProcess viewer;
    viewer.start(HX_VIEWER_BIN,
                 QStringList{"--screenshot", out} + options + QStringList{samplePath("region.gpkg")});
    QVERIFY2(viewer.waitForFinished(60000), "the viewer did not exit within 60 s");
    QCOMPARE(viewer.exitCode(), 2);
    const QString error = QString::fromUtf8(viewer.readAllStandardError());
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY(!QFile::exists(out));
}

void TestViewer::opensAtThreeQuartersOfTheScreenThenAtTheSavedSize() {
    QFile::remove(HXApplication::hxgisSettingsFilePath());
    const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    const QSize chosen = screen * 2 / 3;
    {
        HXViewerWindow first;
        QCOMPARE(first.size(), screen * 3 / 4);
        first.show();
        first.resize(chosen);
        QTRY_COMPARE_WITH_TIMEOUT(first.size(), chosen, 5000);
        first.close();
    }
    HXViewerWindow second;
    QCOMPARE(second.size(), chosen);
    QFile::remove(HXApplication::hxgisSettingsFilePath());
}

void TestViewer::homeShowsTheFullExtentWhileTheCommandLineHasFocus() {
    auto window = openSample();
    QVERIFY(window);
    const HORect full = window->canvas()->extent();
    window->canvas()->zoomIn();
    QVERIFY(window->canvas()->extent().Width() < full.Width() * 0.9);

    QVERIFY(QTest::qWaitForWindowActive(window.get(), 5000));
    auto* command = window->commandDock()->findChild<QLineEdit*>();
    command->setFocus();
    QTRY_VERIFY_WITH_TIMEOUT(command->hasFocus(), 5000);
    QTest::keyClicks(command, "pan");
    QTest::keyClick(command, Qt::Key_Home);
    QCOMPARE(window->canvas()->extent().Width(), full.Width());
    QCOMPARE(window->canvas()->extent().Height(), full.Height());
    QCOMPARE(command->text(), QString("pan"));  // typing is left alone
}

// The message bar takes its room before the first render: the view is asked for a picture at the
// drawing widget's final size, with nothing left to lay out.
void TestViewer::firstRenderIsAtTheFinalSize() {
    HXViewerWindow window;
    window.resize(900, 600);
    QCOMPARE(window.showAndOpen({samplePath("region.gpkg")}), 0);
    auto* widget = window.canvas()->findChild<HXMapWidget*>();
    const QSize shown = widget->size();
    const HOSize asked = window.canvas()->GetMapView()->GetScreenDisplay()->GetDeviceSize();
    QCOMPARE(QSize(asked.width, asked.height), shown);
    QVERIFY(window.messageBar()->isVisible());
    QVERIFY2(window.waitForRender(120000), "no finished map within 120 s");
    QCOMPARE(widget->size(), shown);
}

// A render that finished before the wait began is the picture; nothing else will come to end the
// wait (the message bar has nothing left to show or hide).
void TestViewer::waitEndsAtOnceForAPictureFinishedBefore() {
    auto window = openSample();
    QVERIFY(window);
    window->messageBar()->clearWidgets();
    QVERIFY2(window->waitForRender(120000), "no finished map within 120 s after the message bar went");
    QVERIFY2(window->waitForRender(2000), "waited for a picture that was already there");
}

// The viewer's translations are embedded: a Chinese locale finds them without files beside the program.
void TestViewer::menusAreInTheLocaleLanguage() {
    QTranslator translator;
    QVERIFY(translator.load(QLocale(QLocale::Chinese, QLocale::China), "hxmapviewer", "_", ":/i18n"));
    QCoreApplication::installTranslator(&translator);
    HXViewerWindow window;
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(window.menuBar()->actions().value(0)->text(), QString("文件(&F)"));
}

QTEST_MAIN(TestViewer)
#include "tst_viewer.moc"
