// Navigation: magnification limits and tolerance, the scale lock, zoom and extent forwarding by mode,
// the scale widget update and its signals, and the wheel.
#include <QStatusBar>
#include <QtTest>

#include "HOTestPrinters.h"
#include "HXRecordingCanvas.h"
#include "HXScaleComboBox.h"

using namespace HXObjects;
Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

namespace {

double ShownScale(HXMapCanvas& canvas) {
    return canvas.StatusBar()->findChild<HXScaleComboBox*>()->scale();
}

}  // namespace

class TestCanvasNavigation : public QObject {
    Q_OBJECT

private slots:
    void magnification_data() {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("requested");
        QTest::addColumn<double>("result");
        QTest::newRow("above the limit") << 1.0 << 100.0 << 16.0;
        QTest::newRow("zero") << 1.0 << 0.0 << 0.1;
        QTest::newRow("not a number") << 1.0 << qQNaN() << 1.0;
        QTest::newRow("up by exactly a hundredth") << 1.0 << 1.01 << 1.0;
        QTest::newRow("down by exactly a hundredth") << 1.0 << 0.99 << 0.99;
        QTest::newRow("up by just over a hundredth") << 1.0 << 1.0101 << 1.0101;
        QTest::newRow("down by just under a hundredth") << 1.0 << 0.9901 << 1.0;
        QTest::newRow("clamped into the tolerance") << 15.995 << 20.0 << 15.995;
        QTest::newRow("a hundredth down from the bottom") << 0.11 << 0.1 << 0.1;
        QTest::newRow("a hundredth up from two") << 2.0 << 2.01 << 2.0;
    }

    void magnification() {
        QFETCH(double, from);
        QFETCH(double, requested);
        QFETCH(double, result);
        HXRecordingCanvas fixture(HXMapCanvas::MapViewMode);
        HXMapCanvas& canvas = fixture.canvas;
        if (from != 1.0) canvas.setMagnificationFactor(from);
        QCOMPARE(canvas.magnificationFactor(), from);
        QSignalSpy changed(&canvas, &HXMapCanvas::magnificationChanged);
        canvas.setMagnificationFactor(requested);
        QCOMPARE(canvas.magnificationFactor(), result);
        QCOMPARE(changed.count(), result == from ? 0 : 1);
        if (result != from) QCOMPARE(changed.at(0).at(0).toDouble(), result);
    }

    void zoom_data() {
        QTest::addColumn<HXMapCanvas::ViewMode>("mode");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QStringList>("mapCalls");
        QTest::addColumn<QStringList>("layoutCalls");
        QTest::addColumn<double>("magnification");
        const QStringList none, byTwo{"ZoomByFactor 2"};
        const auto map = HXMapCanvas::MapViewMode, layout = HXMapCanvas::PageLayoutMode;
        QTest::newRow("map: by factor") << map << false << "factor" << byTwo << none << 1.0;
        QTest::newRow("map: by factor at a point")
            << map << false << "factor at" << QStringList{"ZoomByFactor 2 at 10,20"} << none << 1.0;
        QTest::newRow("map: by factor, locked") << map << true << "factor" << none << none << 0.5;
        QTest::newRow("map: to a scale") << map << false << "scale" << byTwo << none << 1.0;
        QTest::newRow("map: to a scale, locked") << map << true << "scale" << none << none << 0.5;
        QTest::newRow("map: in, locked") << map << true << "in" << QStringList{"ZoomIn"} << none << 1.0;
        QTest::newRow("map: out") << map << false << "out" << QStringList{"ZoomOut"} << none << 1.0;
        QTest::newRow("layout: by factor") << layout << false << "factor" << none << byTwo << 1.0;
        QTest::newRow("layout: to a scale, locked")
            << layout << true << "scale" << none << QStringList{"SetScale 100000"} << 1.0;
        QTest::newRow("layout: in") << layout << false << "in" << none << QStringList{"ZoomIn"} << 1.0;
        QTest::newRow("layout: out") << layout << false << "out" << none << QStringList{"ZoomOut"} << 1.0;
        QTest::newRow("reserved: by factor")
            << HXMapCanvas::ReservedMode << false << "factor" << none << none << 1.0;
        QTest::newRow("reserved: to a scale")
            << HXMapCanvas::ReservedMode << false << "scale" << none << none << 1.0;
    }

    void zoom() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(bool, locked);
        QFETCH(QString, member);
        QFETCH(QStringList, mapCalls);
        QFETCH(QStringList, layoutCalls);
        QFETCH(double, magnification);
        HXRecordingCanvas fixture(mode);
        fixture.canvas.setScaleLocked(locked);
        const HOPoint at(10, 20);
        if (member == "factor") fixture.canvas.zoomByFactor(2.0);
        if (member == "factor at") fixture.canvas.zoomByFactor(2.0, &at);
        if (member == "scale") fixture.canvas.zoomScale(2.0 * fixture.map->scale);
        if (member == "in") fixture.canvas.zoomIn();
        if (member == "out") fixture.canvas.zoomOut();
        QCOMPARE(fixture.map->calls(), mapCalls);
        QCOMPARE(fixture.layout->calls(), layoutCalls);
        QCOMPARE(fixture.canvas.magnificationFactor(), magnification);
    }

    // A zero scale, the view's or the target's, gives no ratio to zoom or magnify by.
    void zoomScaleZero() {
        HXRecordingCanvas fixture(HXMapCanvas::MapViewMode);
        fixture.map->scale = 0.0;
        fixture.canvas.zoomScale(5000.0);
        fixture.canvas.setScaleLocked(true);
        fixture.canvas.zoomScale(5000.0);
        fixture.map->scale = 50000.0;
        fixture.canvas.zoomScale(0.0);
        QCOMPARE(fixture.map->calls(), QStringList());
        QCOMPARE(fixture.canvas.magnificationFactor(), 1.0);
    }

    void extentAndCentre_data() {
        QTest::addColumn<HXMapCanvas::ViewMode>("mode");
        QTest::addColumn<double>("scale");
        QTest::addColumn<QStringList>("mapCalls");
        QTest::addColumn<QStringList>("layoutCalls");
        QTest::newRow("map") << HXMapCanvas::MapViewMode << 50000.0
                             << QStringList{"SetExtent 800 1200 900 1100"} << QStringList();
        // Recentred on the layout's own extent, handed to the layout.
        QTest::newRow("layout") << HXMapCanvas::PageLayoutMode << 25.0 << QStringList()
                                << QStringList{"SetExtent 960 1040 970 1030"};
        QTest::newRow("reserved") << HXMapCanvas::ReservedMode << 1.0 << QStringList() << QStringList();
    }

    void extentAndCentre() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(double, scale);
        QFETCH(QStringList, mapCalls);
        QFETCH(QStringList, layoutCalls);
        HXRecordingCanvas fixture(mode);
        fixture.layout->extent = HORect(0, 80, 0, 60);
        fixture.layout->scale = 25.0;
        // extent() always asks the map, scale() and center() the view of the mode.
        const bool reserved = mode == HXMapCanvas::ReservedMode;
        QCOMPARE(fixture.canvas.extent(), reserved ? HORect() : fixture.map->extent);
        QCOMPARE(fixture.canvas.scale(), scale);
        QCOMPARE(fixture.canvas.center().x, reserved ? 0.0 : 200.0);
        QSignalSpy extents(&fixture.canvas, &HXMapCanvas::extentsChanged);
        fixture.canvas.setCenter(HOPoint(1000, 1000));
        QCOMPARE(fixture.map->calls(), mapCalls);
        QCOMPARE(fixture.layout->calls(), layoutCalls);
        QCOMPARE(extents.count(), reserved ? 0 : 1);
    }

    void setExtent() {
        HXRecordingCanvas fixture(HXMapCanvas::MapViewMode);
        QSignalSpy extents(&fixture.canvas, &HXMapCanvas::extentsChanged);
        fixture.canvas.setExtent(fixture.map->extent, false);
        // Without valid settings an empty extent is dropped.
        fixture.canvas.setExtent(HORect(), false);
        QCOMPARE(extents.count(), 0);
        QCOMPARE(fixture.map->calls(), QStringList());
        // Asked for as magnified, the current extent is applied.
        fixture.canvas.setExtent(fixture.map->extent, true);
        QCOMPARE(extents.count(), 1);
        QCOMPARE(fixture.map->calls(), QStringList{"SetExtent 0 400 0 200"});
        QCOMPARE(fixture.canvas.mapSettings().extent(), fixture.map->extent);

        QResizeEvent event(QSize(400, 200), QSize());
        fixture.canvas.onResize(&event);
        fixture.canvas.setExtent(HORect(10, 20, 10, 20), true);
        fixture.map->extent = HORect();
        extents.clear();
        fixture.map->clearCalls();
        // A view with an empty extent gives the recentring nothing to keep: no endless recursion.
        fixture.canvas.setExtent(HORect(5, 5, 5, 5), false);
        QCOMPARE(extents.count(), 1);
        QCOMPARE(fixture.map->calls(), QStringList{"SetExtent 5 5 5 5"});
    }

    void updateScale_data() {
        QTest::addColumn<HXMapCanvas::ViewMode>("mode");
        QTest::addColumn<double>("mapScale");
        QTest::addColumn<double>("layoutScale");
        QTest::addColumn<bool>("quietly");  // through ScaleChanged()
        QTest::addColumn<double>("shown");
        QTest::addColumn<int>("extentSignals");
        const auto map = HXMapCanvas::MapViewMode, layout = HXMapCanvas::PageLayoutMode;
        QTest::newRow("map") << map << 50000.0 << 25.0 << false << 1.0 / 50000.0 << 1;
        QTest::newRow("map, quietly") << map << 2000.0 << 25.0 << true << 1.0 / 2000.0 << 0;
        QTest::newRow("map at scale zero") << map << 0.0 << 25.0 << false << 1.0 << 0;
        QTest::newRow("layout") << layout << 50000.0 << 25.0 << false << 1.0 / 25.0 << 1;
        QTest::newRow("layout at scale zero") << layout << 50000.0 << 0.0 << false << 1.0 << 0;
        QTest::newRow("reserved") << HXMapCanvas::ReservedMode << 50000.0 << 25.0 << false << 1.0 << 0;
    }

    void updateScale() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(double, mapScale);
        QFETCH(double, layoutScale);
        QFETCH(bool, quietly);
        QFETCH(double, shown);
        QFETCH(int, extentSignals);
        HXRecordingCanvas fixture(mode);
        fixture.map->scale = mapScale;
        fixture.layout->scale = layoutScale;
        QSignalSpy extents(&fixture.canvas, &HXMapCanvas::extentsChanged);
        if (quietly)
            fixture.canvas.ScaleChanged();
        else
            fixture.canvas.updateScale();
        QCOMPARE(ShownScale(fixture.canvas), shown);
        QCOMPARE(extents.count(), extentSignals);
        if (!quietly) return;
        // The canvas's signals work again afterwards.
        fixture.canvas.updateScale();
        QCOMPARE(extents.count(), 1);
    }

    void wheel_data() {
        QTest::addColumn<HXMapCanvas::ViewMode>("mode");
        QTest::addColumn<bool>("framed");
        QTest::addColumn<QStringList>("mapCalls");
        QTest::addColumn<QStringList>("layoutCalls");
        QTest::addColumn<bool>("flagBefore");  // the flag ends up set in every case
        const QStringList wheel{"Wheel 0 -120 30 40"}, none;
        QTest::newRow("map") << HXMapCanvas::MapViewMode << true << wheel << none << false;
        QTest::newRow("layout") << HXMapCanvas::PageLayoutMode << true << none << wheel << false;
        // With no map view the handler returns before it touches the flag.
        QTest::newRow("layout without a map") << HXMapCanvas::PageLayoutMode << false << none << none << true;
        QTest::newRow("reserved") << HXMapCanvas::ReservedMode << true << none << none << true;
    }

    void wheel() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(bool, framed);
        QFETCH(QStringList, mapCalls);
        QFETCH(QStringList, layoutCalls);
        QFETCH(bool, flagBefore);
        HXRecordingCanvas fixture(mode);
        if (!framed) fixture.layout->set_operating_data_frame(nullptr);
        HXMapCanvas::wheelEventSt = flagBefore;
        const QPoint pos(30, 40);
        QWheelEvent event(pos, fixture.canvas.mapToGlobal(pos), QPoint(), QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&fixture.canvas, &event);
        QCOMPARE(fixture.map->calls(), mapCalls);
        QCOMPARE(fixture.layout->calls(), layoutCalls);
        QVERIFY(HXMapCanvas::wheelEventSt);
    }
};

QTEST_MAIN(TestCanvasNavigation)
#include "tst_canvas_navigation.moc"
