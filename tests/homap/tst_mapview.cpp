// Navigation of a map view: the display transform, fitting an extent, true scales in metres, feet and
// degrees, zooming about a point, the wheel, and the bound/scale signals firing only on real change.
#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOSignalCounter.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HOSize)

class tst_MapView : public QObject {
    Q_OBJECT

private:
    static HORefPtr<HOMapView> viewOf(const HOSize& size, const HORect& extent) {
        HORefPtr<HOMapView> view(new HOMapView("test"));
        view->SetSize(size);
        view->SetExtent(extent);
        return view;
    }

private slots:
    void displayTransform_data();
    void displayTransform();
    void extentIsExactToTheLastPixel();
    void scale_data();
    void scale();
    void setScaleKeepsCentre();
    void zoomAboutPoint_data();
    void zoomAboutPoint();
    void wheel_data();
    void wheel();
    void zoomInAndOutByTwo();
    void signalsOnlyOnRealChange();
    void extentBeforeSizeIsFittedLater();
    void badInputIsANoOp();
    void screenDisplayFollowsTheView();
};

void tst_MapView::displayTransform_data() {
    QTest::addColumn<HOSize>("size");
    QTest::addColumn<HORect>("extent");
    QTest::addColumn<HOPoint>("pixel");
    QTest::addColumn<HOPoint>("expected");
    // 200x100 showing 400x100: 2 units per pixel, the height grows to 200 about the centre (200, 50).
    QTest::newRow("wide extent, origin")
        << HOSize(200, 100) << HORect(0, 400, 0, 100) << HOPoint(0, 0) << HOPoint(0, 150);
    QTest::newRow("wide extent, corner")
        << HOSize(200, 100) << HORect(0, 400, 0, 100) << HOPoint(200, 100) << HOPoint(400, -50);
    QTest::newRow("wide extent, inside")
        << HOSize(200, 100) << HORect(0, 400, 0, 100) << HOPoint(50, 25) << HOPoint(100, 100);
    // 100x100 showing 10x40: 0.4 per pixel, the width grows to 40 about x = 5.
    QTest::newRow("tall extent, origin")
        << HOSize(100, 100) << HORect(0, 10, 0, 40) << HOPoint(0, 0) << HOPoint(-15, 40);
    QTest::newRow("tall extent, centre")
        << HOSize(100, 100) << HORect(0, 10, 0, 40) << HOPoint(50, 50) << HOPoint(5, 20);
    QTest::newRow("projected metres") << HOSize(1000, 500) << HORect(500000, 510000, 3000000, 3005000)
                                      << HOPoint(250, 125) << HOPoint(502500, 3003750);
}

void tst_MapView::displayTransform() {
    QFETCH(HOSize, size);
    QFETCH(HORect, extent);
    QFETCH(HOPoint, pixel);
    QFETCH(HOPoint, expected);
    const auto view = viewOf(size, extent);
    const HODisplayTransform t = view->GetDisplayTransform();
    QCOMPARE(t.deviceLeft, 0.0);
    QCOMPARE(t.deviceTop, 0.0);
    QCOMPARE(t.ToMap(pixel.x, pixel.y), expected);
    const HOPoint back = t.ToDevice(expected);
    QCOMPARE(back, pixel);
}

void tst_MapView::extentIsExactToTheLastPixel() {
    // Odd sizes and a fractional origin: the reported extent's corners are exactly pixel (0, 0) and
    // pixel (width, height) through the transform.
    for (const HOSize size : {HOSize(1921, 1081), HOSize(3, 7), HOSize(1, 1)}) {
        const auto view = viewOf(size, HORect(123.456, 789.012, -45.5, 300.25));
        const HODisplayTransform t = view->GetDisplayTransform();
        const HORect extent = view->GetExtent();
        QCOMPARE(t.ToMap(0, 0), HOPoint(extent.minx, extent.maxy));
        QCOMPARE(t.ToMap(size.width, size.height), HOPoint(extent.maxx, extent.miny));
        // The asked-for extent fits inside (up to rounding), filling one direction.
        const double e = 1e-9;
        QVERIFY(extent.minx <= 123.456 + e && extent.maxx >= 789.012 - e);
        QVERIFY(extent.miny <= -45.5 + e && extent.maxy >= 300.25 - e);
    }
}

void tst_MapView::scale_data() {
    QTest::addColumn<QString>("system");
    QTest::addColumn<double>("unitsPerPixel");
    QTest::addColumn<double>("denominatorAt96");
    // A 96 dpi pixel is 0.0254 / 96 m: 1 m per pixel is 1:3779.53.
    QTest::newRow("metres") << "EPSG:3857" << 1.0 << 3779.527559055118;
    QTest::newRow("metres, 2.5 per pixel") << "EPSG:3857" << 2.5 << 9448.818897637795;
    // 1 ft = 0.3048 m: 0.3048 * 96 / 0.0254 = 1152 exactly.
    QTest::newRow("international feet")
        << "+proj=tmerc +lat_0=0 +lon_0=0 +k=1 +x_0=0 +y_0=0 +ellps=WGS84 +units=ft +no_defs" << 1.0
        << 1152.0;
    // A degree is 2 * pi * 6378137 / 360 m along the equator.
    QTest::newRow("degrees") << "EPSG:4326" << 0.001 << 420735.08331316005;
}

void tst_MapView::scale() {
    QFETCH(QString, system);
    QFETCH(double, unitsPerPixel);
    QFETCH(double, denominatorAt96);
    const auto crs = HOCoordinateSystem::FromUserInput(system);
    QVERIFY(crs);
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red, crs));
    HORefPtr<HOMapView> view(new HOMapView);
    view->SetMap(map);
    view->SetSize(1000, 500);
    view->SetExtent(HORect(0, 1000 * unitsPerPixel, 0, 500 * unitsPerPixel));
    const double dpi = HOMapScale::ScreenDpi();
    QVERIFY(qFuzzyCompare(view->GetScale(), denominatorAt96 * dpi / 96.0));
    view->StopRender(true);
}

void tst_MapView::setScaleKeepsCentre() {
    const auto view = viewOf(HOSize(400, 300), HORect(1000, 2000, 5000, 6000));
    const HOPoint centre = view->GetCenter();
    view->SetScale(25000);
    QVERIFY(qFuzzyCompare(view->GetScale(), 25000.0));
    QCOMPARE(view->GetCenter(), centre);
    const double metresPerPixel = 25000 * 0.0254 / HOMapScale::ScreenDpi();
    QVERIFY(qFuzzyCompare(view->GetDisplayTransform().unitsPerPixel, metresPerPixel));
}

void tst_MapView::zoomAboutPoint_data() {
    QTest::addColumn<double>("factor");
    QTest::addColumn<HOPoint>("pixel");
    QTest::newRow("in about the top-left quarter") << 0.5 << HOPoint(100, 75);
    QTest::newRow("out about a corner") << 2.0 << HOPoint(400, 300);
    QTest::newRow("slightly in off-centre") << 0.9 << HOPoint(13, 287);
    QTest::newRow("far out about the origin") << 16.0 << HOPoint(0, 0);
}

void tst_MapView::zoomAboutPoint() {
    QFETCH(double, factor);
    QFETCH(HOPoint, pixel);
    const auto view = viewOf(HOSize(400, 300), HORect(0, 4000, 0, 3000));
    const double before = view->GetDisplayTransform().unitsPerPixel;
    const HOPoint fixed = view->GetDisplayTransform().ToMap(pixel.x, pixel.y);
    view->ZoomByFactor(factor, &fixed);
    const HODisplayTransform t = view->GetDisplayTransform();
    QVERIFY(qFuzzyCompare(t.unitsPerPixel, before * factor));
    const HOPoint after = t.ToDevice(fixed);
    QVERIFY2(std::abs(after.x - pixel.x) < 1e-6 && std::abs(after.y - pixel.y) < 1e-6,
             QTest::toString(after));
}

void tst_MapView::wheel_data() {
    QTest::addColumn<int>("delta");
    QTest::addColumn<double>("factor");
    QTest::newRow("one notch forward zooms in") << 120 << 0.5;
    QTest::newRow("one notch back zooms out") << -120 << 2.0;
    QTest::newRow("two notches") << 240 << 0.25;
    QTest::newRow("touchpad step of 30") << 30 << 0.8408964152537145;         // 2^-0.25
    QTest::newRow("high-resolution step of -8") << -8 << 1.0472941228206267;  // 2^(8/120)
}

void tst_MapView::wheel() {
    QFETCH(int, delta);
    QFETCH(double, factor);
    const auto view = viewOf(HOSize(400, 300), HORect(0, 4000, 0, 3000));
    const double before = view->GetDisplayTransform().unitsPerPixel;
    const HOPoint underCursor = view->GetDisplayTransform().ToMap(321, 45);
    view->Wheel(0, delta, 321, 45);
    const HODisplayTransform t = view->GetDisplayTransform();
    QVERIFY(qFuzzyCompare(t.unitsPerPixel, before * factor));
    const HOPoint after = t.ToDevice(underCursor);
    QVERIFY(std::abs(after.x - 321) < 1e-6 && std::abs(after.y - 45) < 1e-6);
}

void tst_MapView::zoomInAndOutByTwo() {
    const auto view = viewOf(HOSize(400, 300), HORect(0, 4000, 0, 3000));
    const double scale = view->GetScale();
    const HOPoint centre = view->GetCenter();
    view->ZoomIn();
    QVERIFY(qFuzzyCompare(view->GetScale(), scale / 2));
    view->ZoomOut();
    view->ZoomOut();
    QVERIFY(qFuzzyCompare(view->GetScale(), scale * 2));
    QCOMPARE(view->GetCenter(), centre);
}

void tst_MapView::signalsOnlyOnRealChange() {
    const auto view = viewOf(HOSize(400, 300), HORect(0, 400, 0, 300));
    HOSignalCounter bound(view->BoundChangedSignal);
    HOSignalCounter scale(view->ScaleChangedSignal);

    view->SetExtent(HORect(0, 400, 0, 300));  // the same place
    view->SetScale(view->GetScale());
    QCOMPARE(bound.count.load(), 0);
    QCOMPARE(scale.count.load(), 0);

    view->BeginPan();
    view->PanTo(10, 0);
    QCOMPARE(bound.count.load(), 0);  // a pan in progress moves only the picture
    view->EndPan(10, 0);
    QCOMPARE(bound.count.load(), 1);
    QCOMPARE(scale.count.load(), 0);

    view->ZoomIn();
    QCOMPARE(bound.count.load(), 2);
    QCOMPARE(scale.count.load(), 1);

    view->SetSize(800, 300);  // more of the map shows at the same scale
    QCOMPARE(bound.count.load(), 3);
    QCOMPARE(scale.count.load(), 1);

    QCOMPARE(bound.nullEvents.load(), 0);
    QCOMPARE(scale.nullEvents.load(), 0);
    QCOMPARE(bound.lastSender.load(), static_cast<void*>(view.get()));
}

void tst_MapView::extentBeforeSizeIsFittedLater() {
    HORefPtr<HOMapView> view(new HOMapView);
    view->SetExtent(HORect(0, 100, 0, 50));
    QCOMPARE(view->GetExtent(), HORect(0, 100, 0, 50));
    QCOMPARE(view->GetScale(), 0.0);  // no pixels yet: no scale
    view->SetSize(200, 100);
    QCOMPARE(view->GetExtent(), HORect(0, 100, 0, 50));
    QCOMPARE(view->GetDisplayTransform().unitsPerPixel, 0.5);
}

void tst_MapView::badInputIsANoOp() {
    const auto view = viewOf(HOSize(400, 300), HORect(0, 400, 0, 300));
    HOSignalCounter bound(view->BoundChangedSignal);
    const HORect before = view->GetExtent();

    view->SetExtent(HORect(5, 5, 0, 10));  // zero width
    view->SetExtent(HORect(0, 10, 3, 3));  // zero height
    view->SetExtent(HORect(0, qQNaN(), 0, 10));
    view->SetScale(0);
    view->SetScale(-5);
    view->ZoomByFactor(0, nullptr);
    view->ZoomByFactor(qInf(), nullptr);
    view->Wheel(0, 0, 10, 10);
    QCOMPARE(view->GetExtent(), before);
    QCOMPARE(bound.count.load(), 0);

    // A view of no size draws nothing and reports no scale.
    view->SetSize(0, 0);
    QCOMPARE(view->GetScale(), 0.0);
    HORefPtr<HOGraphics> surface(new HOGraphics);
    surface->SetSize(10, 10);
    surface->Clear(HOColor(1, 2, 3));
    view->Draw(surface);
    QCOMPARE(surface->Image().pixel(5, 5), qRgb(1, 2, 3));
    view->Draw(nullptr);

    // No map: nothing renders, nothing hangs.
    view->SetSize(400, 300);
    view->RefreshMap(false, HORect());
    view->ZoomToFullExtent();
    QVERIFY(!view->IsRendering());
}

void tst_MapView::screenDisplayFollowsTheView() {
    const auto view = viewOf(HOSize(400, 300), HORect(0, 400, 0, 300));
    view->ZoomIn();
    HODisplay* display = view->GetScreenDisplay();
    QVERIFY(display);
    QVERIFY(display->GetDisplayTransform() == view->GetDisplayTransform());
    QCOMPARE(display->GetDeviceSize(), HOSize(400, 300));
}

QTEST_MAIN(tst_MapView)
#include "tst_mapview.moc"
