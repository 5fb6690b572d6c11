// View > Grid in the viewer: the grid that suits the map's coordinate system, drawn round the map
// in the canvas, and gone again when unticked.
#include <QMenuBar>
#include <QtTest>

#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXViewerWindow.h"

using namespace HXObjects;

namespace {

QString samplePath(const QString& name) {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/" + name;
}

QAction* gridAction(HXViewerWindow& window) {
    for (QAction* menu : window.menuBar()->actions()) {
        if (!menu->menu()) continue;
        for (QAction* action : menu->menu()->actions())
            if (action->text() == QObject::tr("&Grid")) return action;
    }
    return nullptr;
}

// White paper along the canvas's top edge: the ruler's band.
bool rulerShown(HXMapCanvas* canvas) {
    const QImage image = canvas->findChild<HXMapWidget*>()->grab().toImage();
    int white = 0;
    for (int x = 0; x < image.width(); ++x) white += image.pixel(x, 10) == qRgb(255, 255, 255);
    return white > image.width() * 3 / 4;
}

}  // namespace

class TestViewerGrid : public QObject {
    Q_OBJECT

private slots:
    void gridSuitsTheCoordinateSystem_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("kilometres");
        QTest::newRow("gauss-krueger") << "region.gpkg" << true;
        QTest::newRow("geographic") << "region_4490.gpkg" << false;
    }
    void gridSuitsTheCoordinateSystem() {
        QFETCH(QString, file);
        QFETCH(bool, kilometres);
        HXViewerWindow window;
        window.resize(900, 600);
        window.show();
        window.openFiles({samplePath(file)});
        QVERIFY2(window.waitForOpened(120000), "the files were not read in time");
        QCOMPARE(window.openFailures(), 0);
        QVERIFY2(window.waitForRender(60000), "the sample did not render");
        QVERIFY(!rulerShown(window.canvas()));

        QAction* grid = gridAction(window);
        QVERIFY(grid && grid->isCheckable());
        grid->trigger();
        const HOMapRulerAndGrid* settings = window.canvas()->GetMapView()->GetRulerAndGridSetting();
        QCOMPARE(settings->get_draw_km_grid(), kilometres);
        QCOMPARE(settings->get_draw_bl_grid(), !kilometres);
        QVERIFY(settings->get_draw_bl_grid_ruler());
        QTRY_VERIFY2_WITH_TIMEOUT(rulerShown(window.canvas()), "no ruler round the map", 5000);

        grid->trigger();
        QVERIFY(!settings->get_draw_km_grid() && !settings->get_draw_bl_grid() &&
                !settings->get_draw_bl_grid_ruler());
        QTRY_VERIFY2_WITH_TIMEOUT(!rulerShown(window.canvas()), "the ruler stayed", 5000);
    }
};

QTEST_MAIN(TestViewerGrid)
#include "tst_viewergrid.moc"
