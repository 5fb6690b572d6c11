// The canvas on a HiDPI screen (this test runs with QT_SCALE_FACTOR=2): the map is drawn at device
// resolution, so a one-pixel line is one device pixel wide, while mouse positions, extent and scale
// are the same as on an ordinary screen.
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOStyle.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"

using namespace HXObjects;

namespace {

// How many device pixels' worth of black a column of the picture holds: about 1 for a line one device
// pixel wide (antialiasing may spread it over two rows), 2 for one drawn in logical pixels and scaled up.
double InkAt(const QImage& image, int column) {
    double ink = 0;
    for (int y = 0; y < image.height(); ++y) ink += (255 - qRed(image.pixel(column, y))) / 255.0;
    return ink;
}

}  // namespace

class TestCanvasHiDpi : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(qApp->devicePixelRatio() == 2, "run with QT_SCALE_FACTOR=2"); }

    void sharpAndSamePlace() {
        // A 400 x 300 drawing area over the map square (0, 400) x (0, 300) in metres, one map unit per
        // logical pixel, with a black one-pixel line across it. The line's y puts it in the middle of
        // a device pixel row, where a sharp line covers that row alone.
        QTemporaryDir dir;
        const QString path = dir.filePath("line.gpkg");
        QVERIFY(HOLayerFixture::WriteVector(path, "GPKG", 32650, wkbLineString,
                                            {{"LINESTRING (0 149.75, 400 149.75)"}}));
        HORefPtr<HOLayer> layer = OpenLayer(HOString(path));
        auto* lines = dynamic_cast<HOFeatureLayer*>(layer.get());
        QVERIFY(lines);
        lines->SetStyle(HOStyle::NewLine(1, HOColor(0, 0, 0)));
        HORefPtr<HOMap> map = new HOMap();
        map->SetBackgroundColor(HOColor(255, 255, 255));
        map->AddLayer(lines);

        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        canvas.enableWaterMask(false);
        canvas.setWindowState(Qt::WindowNoState);
        canvas.resize(400, 325);  // the status bar takes 25 px
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
        auto* widget = canvas.findChild<HXMapWidget*>();
        QCOMPARE(widget->size(), QSize(400, 300));
        HOMapView* view = canvas.GetMapView();
        view->SetMap(map);
        canvas.setExtent(HORect(0, 400, 0, 300));
        QVERIFY2(
            QTest::qWaitFor(
                [&] { return !view->IsRendering() && InkAt(widget->grab().toImage(), 400) > 0.5; }, 20000),
            "the line drawn");

        const QImage picture = widget->grab().toImage();
        QCOMPARE(picture.size(), QSize(800, 600));
        QVERIFY2(InkAt(picture, 400) < 1.6, qPrintable(QString("ink %1").arg(InkAt(picture, 400))));
        QVERIFY2(qRed(picture.pixel(400, 300)) < 160, "the line at logical y 150.25");

        // Positions and the scale in logical pixels, as at a ratio of 1.
        QSignalSpy moved(&canvas, &HXMapCanvas::xyCoordinates);
        QMouseEvent move(QEvent::MouseMove, QPointF(100, 50), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&canvas, &move);
        QCOMPARE(moved.count(), 1);
        const QPointF point = moved.last().at(0).toPointF();
        QVERIFY2(qAbs(point.x() - 100) < 1e-6 && qAbs(point.y() - 250) < 1e-6,
                 qPrintable(QString("%1, %2").arg(point.x()).arg(point.y())));
        // One metre per logical pixel of the offscreen platform's 100 dpi screen.
        QVERIFY2(qAbs(canvas.scale() - 100 / 0.0254) < 1e-3,
                 qPrintable(QString::number(canvas.scale(), 'f', 6)));
    }
};

QTEST_MAIN(TestCanvasHiDpi)
#include "tst_canvas_hidpi.moc"
