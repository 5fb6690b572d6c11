// The viewer's layout window on the sample region: it composes the default page, exports it on a
// worker while the page is locked (and the window answers), saves its document and opens it on a
// worker; the headless program writes the page and refuses bad options with a reason.
#include <QProcess>
#include <QUndoStack>
#include <QtTest>

#include "HOMap.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HXLayoutWindow.h"
#include "HXMapCanvas.h"
#include "HXViewerWindow.h"

using namespace HXObjects;

namespace {
QString samplePath(const QString& name) {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/" + name;
}
}  // namespace

class TestLayoutWindow : public QObject {
    Q_OBJECT

private slots:
    void exportsSavesAndOpensTheSampleLayout() {
        HXViewerWindow viewer;
        viewer.openFiles({samplePath("region.gpkg")});
        QVERIFY2(viewer.waitForOpened(120000), "the files were not read in time");
        QCOMPARE(viewer.openFailures(), 0);
        auto* window = new HXLayoutWindow(&viewer);
        window->compose(viewer.canvas()->GetMapView()->GetMap(), "Sample region");
        window->show();
        QTemporaryDir dir;
        QSignalSpy finished(window, &HXLayoutWindow::exportFinished);
        QVERIFY(window->startExport(dir.filePath("page.png"), 40));
        QVERIFY(!window->canvas()->isEnabled() && window->isExporting());
        QVERIFY(!window->startExport(dir.filePath("again.png"), 40));  // one at a time
        QVERIFY2(finished.wait(120000), "the export did not finish within two minutes");
        QCOMPARE(finished.at(0).at(0).toBool(), true);
        QVERIFY(window->canvas()->isEnabled());
        QCOMPARE(QImage(dir.filePath("page.png")).size(), QSize(468, 331));  // A4 landscape at 40 dpi

        QVERIFY(window->saveLayout(dir.filePath("sample.hxlayout")));
        auto* reopened = new HXLayoutWindow(&viewer);
        const auto elements = [](HXLayoutWindow* w) {
            return w->canvas()->GetPageLayoutView()->get_graphicscontainer()->GetElements().size();
        };
        const size_t blank = elements(reopened);
        QSignalSpy opened(reopened, &HXLayoutWindow::openFinished);
        QVERIFY(reopened->openLayout(dir.filePath("sample.hxlayout")));
        // The document is read and its sources opened on a worker: the page is still the blank one.
        QVERIFY(reopened->isOpening() && reopened->documentPath().isEmpty());
        QCOMPARE(elements(reopened), blank);
        QVERIFY(!reopened->openLayout(dir.filePath("sample.hxlayout")));  // one at a time
        QVERIFY2(opened.wait(120000), "the layout did not open within two minutes");
        QCOMPARE(opened.at(0).at(0).toBool(), true);
        QCOMPARE(elements(reopened), elements(window));
        HOMap* map = reopened->canvas()->GetMapView()->GetMap();
        QCOMPARE(map->GetLayerCount(), viewer.canvas()->GetMapView()->GetMap()->GetLayerCount());
        QCOMPARE(map->GetUndoStack()->thread(), QThread::currentThread());

        QVERIFY(reopened->openLayout(samplePath("region.gpkg")));
        QVERIFY2(opened.wait(120000), "the failed open did not end within two minutes");
        QCOMPARE(opened.at(1).at(0).toBool(), false);
        QVERIFY2(reopened->errors().last().contains("not a layout document"),
                 qPrintable(reopened->errors().last()));
        QCOMPARE(reopened->canvas()->GetMapView()->GetMap(), map);  // the open page stays
    }

    void headlessExport_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("message");
        const QString out = QDir::temp().filePath("hx_layout_test.pdf");
        QTest::newRow("A5 landscape")
            << QStringList{"--export-layout", out,   "--paper", "a5",     "--landscape",
                           "--dpi",           "100", "--title", "Region", samplePath("region.gpkg")}
            << 0 << "";
        QTest::newRow("too fine") << QStringList{"--export-layout", out, "--dpi", "2400",
                                                 samplePath("region.gpkg")}
                                  << 1 << "2400 dpi";
        QTest::newRow("unknown paper")
            << QStringList{"--export-layout", out, "--paper", "B4", samplePath("region.gpkg")} << 1
            << "unknown paper 'B4'";
        QTest::newRow("missing file")
            << QStringList{"--export-layout", out, samplePath("nothing.gpkg")} << 2 << "nothing.gpkg";
    }

    void headlessExport() {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, message);
        QFile::remove(arguments[1]);
        QProcess process;
        process.start(HX_VIEWER_BIN, arguments);
        QVERIFY2(process.waitForFinished(120000), "the viewer did not finish within two minutes");
        const QString errors = QString::fromUtf8(process.readAllStandardError());
        QCOMPARE(process.exitCode(), exitCode);
        QVERIFY2(errors.contains(message), qPrintable(errors));
        QCOMPARE(QFile::exists(arguments[1]), exitCode != 1);
    }
};

QTEST_MAIN(TestLayoutWindow)
#include "tst_layoutwindow.moc"
