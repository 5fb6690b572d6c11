// A canvas showing a real map view: what reaches the screen after the worker renders, after a resize,
// and after a wheel step, which must zoom about the cursor.
#include <QApplication>
#include <QStatusBar>
#include <QtTest>

#include "HOMap.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"
#include "HXCanvasProbe.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXScaleComboBox.h"

using namespace HXObjects;
using HXCanvasProbe::CountPixels;

namespace {

constexpr int kRenderTimeout = 20000;
const QColor kLand(200, 40, 40);
const QColor kSea(20, 60, 200);

}  // namespace

class TestCanvasMap : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsTheMap();
    void followsResizes();
    void wheelZoomsAboutTheCursor_data();
    void wheelZoomsAboutTheCursor();

private:
    // Waits until the worker has finished and the finished picture reached the widget.
    bool waitForPicture();
    QImage shown() const { return mWidget->grab().toImage(); }

    HXMapCanvas* mCanvas = nullptr;
    HXMapWidget* mWidget = nullptr;
    HORefPtr<HOMap> mMap;
};

// A 400 x 300 drawing area over the map square (0, 400) x (0, 300) of sea, with land in its lower
// left quarter (0, 200) x (0, 150): one map unit per pixel, y growing upwards.
void TestCanvasMap::init() {
    mCanvas = new HXMapCanvas(HXMapCanvas::MapViewMode, nullptr);
    mCanvas->enableWaterMask(false);
    mCanvas->setWindowState(Qt::WindowNoState);
    mCanvas->resize(400, 325);
    mCanvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(mCanvas));
    mWidget = mCanvas->findChild<HXMapWidget*>();
    QCOMPARE(mWidget->size(), QSize(400, 300));

    mMap = new HOMap();
    mMap->SetBackgroundColor(HOColor(kSea));
    mMap->AddLayer(new HOTestRectLayer(HORect(0, 200, 0, 150), kLand));
    mCanvas->GetMapView()->SetMap(mMap);
    mCanvas->setExtent(HORect(0, 400, 0, 300));
    QVERIFY(waitForPicture());
}

void TestCanvasMap::cleanup() {
    delete mCanvas;
    mCanvas = nullptr;
    mMap = nullptr;
}

bool TestCanvasMap::waitForPicture() {
    HOMapView* view = mCanvas->GetMapView();
    QTest::qWait(20);
    if (!QTest::qWaitFor([&] { return !view->IsRendering(); }, kRenderTimeout)) return false;
    // The last redraw of the finished render may still be on its way to the GUI thread.
    QTest::qWait(50);
    return true;
}

void TestCanvasMap::showsTheMap() {
    const QImage image = shown();
    QCOMPARE(image.pixelColor(100, 225), kLand);
    QCOMPARE(image.pixelColor(300, 225), kSea);
    QCOMPARE(image.pixelColor(100, 75), kSea);
    QCOMPARE(CountPixels(image, kLand), 200 * 150);
}

void TestCanvasMap::followsResizes() {
    QSignalSpy extents(mCanvas, &HXMapCanvas::extentsChanged);
    mCanvas->resize(500, 425);
    QTRY_COMPARE(mWidget->size(), QSize(500, 400));
    QVERIFY(waitForPicture());
    QVERIFY(extents.count() > 0);
    QCOMPARE(mCanvas->mapSettings().outputSize(), QSize(500, 400));
    const QImage image = shown();
    QCOMPARE(image.size(), QSize(500, 400));
    // The scale stays: the land keeps its size in pixels and the new area is drawn too.
    QCOMPARE(CountPixels(image, kLand), 200 * 150);
    QCOMPARE(CountPixels(image, kLand) + CountPixels(image, kSea), 500 * 400);
}

void TestCanvasMap::wheelZoomsAboutTheCursor_data() {
    QTest::addColumn<int>("delta");
    QTest::addColumn<double>("scaleFactor");
    QTest::newRow("one notch in") << 120 << 0.5;
    QTest::newRow("one notch out") << -120 << 2.0;
}

void TestCanvasMap::wheelZoomsAboutTheCursor() {
    QFETCH(int, delta);
    QFETCH(double, scaleFactor);
    HOMapView* view = mCanvas->GetMapView();
    const QPoint cursor(150, 200);
    const HOPoint under = view->GetDisplayTransform().ToMap(cursor.x(), cursor.y());
    const double before = mCanvas->scale();
    QSignalSpy extents(mCanvas, &HXMapCanvas::extentsChanged);

    // The drawing widget lets the wheel through to the canvas; their origins coincide.
    QWheelEvent event(QPointF(cursor), QPointF(mCanvas->mapToGlobal(cursor)), QPoint(), QPoint(0, delta),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(mCanvas, &event);
    QVERIFY(HXMapCanvas::wheelEventSt);
    QCOMPARE(mCanvas->scale(), before * scaleFactor);
    const HOPoint after = view->GetDisplayTransform().ToMap(cursor.x(), cursor.y());
    QVERIFY2(std::abs(after.x - under.x) < 1e-6 && std::abs(after.y - under.y) < 1e-6,
             qPrintable(QString("%1, %2").arg(after.x).arg(after.y)));
    // The status bar follows the view's scale (the box keeps whole denominators).
    const double boxDenominator = 1.0 / mCanvas->StatusBar()->findChild<HXScaleComboBox*>()->scale();
    QVERIFY2(std::abs(boxDenominator - mCanvas->scale()) <= 1.0, qPrintable(QString::number(boxDenominator)));
    QVERIFY(extents.count() > 0);

    // The land's corner at (200, 150) moves away from (or towards) the cursor by the zoom.
    QVERIFY(waitForPicture());
    const double corner = cursor.x() + (200 - under.x) / scaleFactor;
    const QImage image = shown();
    QCOMPARE(image.pixelColor(int(corner) - 2, cursor.y()), kLand);
    if (corner + 2 < image.width()) QCOMPARE(image.pixelColor(int(corner) + 2, cursor.y()), kSea);
}

QTEST_MAIN(TestCanvasMap)
#include "tst_canvas_map.moc"
