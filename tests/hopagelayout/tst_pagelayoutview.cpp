// HOPageLayoutView: the page on its desk, page zoom (its own scale), putting a map view into a data
// frame, the frame's screen display, what DrawTo draws, and the element container's lookups.
#include <QtTest>

#include "HODataFrame.h"
#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HOSignalCounter.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

namespace {

const HORect kA4Landscape(0, 297, 0, 210);

// A plain element for container tests.
class Box : public HOPageLayoutBaseElement {
public:
    Box(double x, double y, double w, double h) : HOPageLayoutBaseElement(HOElementGraphic) {
        set_off_x(x);
        set_off_y(y);
        set_size(w, h);
    }
    void draw(QPainter&, const HODisplayTransform&) override {}
};

QPoint pixelOf(const HODisplayTransform& t, double x, double y) {
    const HOPoint p = t.ToDevice({x, y});
    return QPoint(int(std::floor(p.x)), int(std::floor(p.y)));
}

}  // namespace

class tst_PageLayoutView : public QObject {
    Q_OBJECT

private:
    static HORefPtr<HOPageLayoutView> layoutOf(int width = 800, int height = 600) {
        HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
        layout->SetSize(width, height);
        return layout;
    }
    static HORefPtr<HOMapView> mapViewOf(HOMap* map) {
        HORefPtr<HOMapView> view(new HOMapView("frame"));
        view->SetSize(400, 300);
        view->SetMap(map);
        return view;
    }

private slots:
    void firstSizeShowsTheWholePage();
    void pageScale_data();
    void pageScale();
    void zoomAndWheel();
    void switchToLayoutViewFillsTheMargins();
    void switchingAgainKeepsTheFrame();
    void frameViewFollowsThePageZoom();
    void frameScreenDisplayMapsScreenPixels();
    void drawToDrawsDeskPageAndMap();
    void operatingFrameSignal();
    void locateElements_data();
    void locateElements();
    void selection();
};

void tst_PageLayoutView::firstSizeShowsTheWholePage() {
    HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
    HOSignalCounter scale(layout->ScaleChangedSignal);
    layout->SetSize(800, 600);
    const HORect shown = layout->GetExtent();
    QVERIFY(shown.minx < 0 && shown.maxx > 297 && shown.miny < 0 && shown.maxy > 210);
    QCOMPARE(layout->GetCenter(), kA4Landscape.Center());
    QCOMPARE(scale.count.load(), 1);
    QCOMPARE(scale.nullEvents.load(), 0);
    layout->SetSize(800, 600);
    QCOMPARE(scale.count.load(), 1);
}

void tst_PageLayoutView::pageScale_data() {
    QTest::addColumn<double>("denominator");
    // 1 is the page at its true size on screen: 25.4 mm per inch over the screen's dots per inch.
    QTest::newRow("true size") << 1.0;
    QTest::newRow("half size") << 2.0;
    QTest::newRow("magnified four times") << 0.25;
}

void tst_PageLayoutView::pageScale() {
    QFETCH(double, denominator);
    const auto layout = layoutOf();
    layout->SetScale(denominator);
    QVERIFY(qFuzzyCompare(layout->GetScale(), denominator));
    const double mmPerPixel = denominator * 25.4 / HOMapScale::ScreenDpi();
    QVERIFY(qFuzzyCompare(layout->GetDisplayTransform().unitsPerPixel, mmPerPixel));
    QCOMPARE(layout->GetCenter(), kA4Landscape.Center());
}

void tst_PageLayoutView::zoomAndWheel() {
    const auto layout = layoutOf();
    HOSignalCounter scale(layout->ScaleChangedSignal);
    HOSignalCounter redraw(layout->RedrawSignal);
    const double start = layout->GetScale();
    layout->ZoomIn();
    QVERIFY(qFuzzyCompare(layout->GetScale(), start / 2));
    layout->ZoomOut();
    QVERIFY(qFuzzyCompare(layout->GetScale(), start));
    const HOPoint underCursor = layout->GetDisplayTransform().ToMap(100, 500);
    layout->Wheel(0, 120, 100, 500);
    QVERIFY(qFuzzyCompare(layout->GetScale(), start / 2));
    const HOPoint after = layout->GetDisplayTransform().ToDevice(underCursor);
    QVERIFY(std::abs(after.x - 100) < 1e-9 && std::abs(after.y - 500) < 1e-9);
    QCOMPARE(scale.count.load(), 3);
    QVERIFY(redraw.count >= 3);
    QCOMPARE(redraw.lastSender.load(), static_cast<void*>(layout.get()));
}

void tst_PageLayoutView::switchToLayoutViewFillsTheMargins() {
    const auto layout = layoutOf();
    HOSignalCounter active(layout->ActiveElementChangedSignal);
    QVERIFY(!layout->get_operating_data_frame());
    HORefPtr<HOMap> map(new HOMap);
    const auto view = mapViewOf(map);
    layout->SwitchToLayoutView(view);

    const auto element = layout->get_operating_data_frame();
    QVERIFY(element);
    QCOMPARE(element->get_element_type(), HOElementDataFrame);
    QCOMPARE(element->get_bounds(), HORect(10, 287, 10, 200));
    auto* frame = dynamic_cast<HODataFrame*>(element.get());
    QVERIFY(frame);
    QCOMPARE(frame->get_map_view(), view.get());
    QCOMPARE(layout->get_graphicscontainer()->GetElements().size(), std::size_t(1));
    QCOMPARE(active.count.load(), 1);
    QCOMPARE(active.nullEvents.load(), 0);

    // The map view's redraws become the page's.
    HOSignalCounter redraw(layout->RedrawSignal);
    view->RefreshToolPaint();
    QCOMPARE(redraw.count.load(), 1);
    QCOMPARE(redraw.lastSender.load(), static_cast<void*>(layout.get()));
}

void tst_PageLayoutView::switchingAgainKeepsTheFrame() {
    const auto layout = layoutOf();
    HORefPtr<HOMap> map(new HOMap);
    const auto first = mapViewOf(map);
    const auto second = mapViewOf(map);
    layout->SwitchToLayoutView(first);
    const auto frame = layout->get_operating_data_frame();
    HOSignalCounter active(layout->ActiveElementChangedSignal);
    layout->SwitchToLayoutView(second);
    QCOMPARE(layout->get_operating_data_frame().get(), frame.get());
    QCOMPARE(static_cast<HODataFrame*>(frame.get())->get_map_view(), second.get());
    QCOMPARE(active.count.load(), 0);
    QCOMPARE(first->RedrawSignal.count(), 0);  // no longer forwarded
    QCOMPARE(second->RedrawSignal.count(), 1);
}

void tst_PageLayoutView::frameViewFollowsThePageZoom() {
    const auto layout = layoutOf();
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(new HOTestRectLayer(HORect(0, 1000, 0, 1000), Qt::red));
    const auto view = mapViewOf(map);
    layout->SwitchToLayoutView(view);
    auto* frame = static_cast<HODataFrame*>(layout->get_operating_data_frame().get());
    const QRectF pixels = frame->pixel_rect(layout->GetDisplayTransform());
    QCOMPARE(view->GetScreenDisplay()->GetDeviceSize(),
             HOSize(qRound(pixels.width()), qRound(pixels.height())));
    const HORect extent = view->GetExtent();

    layout->ZoomIn();
    const QRectF zoomed = frame->pixel_rect(layout->GetDisplayTransform());
    QVERIFY(qAbs(zoomed.width() - 2 * pixels.width()) < 1e-6);
    QCOMPARE(view->GetScreenDisplay()->GetDeviceSize(),
             HOSize(qRound(zoomed.width()), qRound(zoomed.height())));
    // The map still shows what it showed (up to the pixel rounding of the frame).
    const HORect now = view->GetExtent();
    const double pixel = view->GetDisplayTransform().unitsPerPixel;
    QVERIFY(qAbs(now.Center().x - extent.Center().x) < pixel &&
            qAbs(now.Center().y - extent.Center().y) < pixel);
    QVERIFY(qAbs(now.Width() - extent.Width()) < 2 * pixel);
    view->StopRender(true);
}

void tst_PageLayoutView::frameScreenDisplayMapsScreenPixels() {
    const auto layout = layoutOf();
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(new HOTestRectLayer(HORect(0, 1000, 0, 1000), Qt::red));
    const auto view = mapViewOf(map);
    layout->SwitchToLayoutView(view);
    auto* frame = static_cast<HODataFrame*>(layout->get_operating_data_frame().get());
    const QRectF pixels = frame->pixel_rect(layout->GetDisplayTransform());
    const HODisplayTransform screen = frame->get_screendisplay()->GetDisplayTransform();
    const HODisplayTransform own = view->GetDisplayTransform();
    // The frame's top-left screen pixel is the map view's pixel (0, 0); its centre is the map's centre.
    QCOMPARE(screen.ToMap(pixels.left(), pixels.top()), own.ToMap(0, 0));
    const HOPoint centre = screen.ToMap(pixels.center().x(), pixels.center().y());
    QVERIFY(qAbs(centre.x - view->GetCenter().x) < own.unitsPerPixel);
    QVERIFY(qAbs(centre.y - view->GetCenter().y) < own.unitsPerPixel);
    view->StopRender(true);
}

void tst_PageLayoutView::drawToDrawsDeskPageAndMap() {
    const auto layout = layoutOf();
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(new HOTestRectLayer(HORect(0, 1000, 0, 1000), Qt::red));
    const auto view = mapViewOf(map);
    layout->SwitchToLayoutView(view);
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), 5000);
    // A map picture finished on its render thread is announced on ours.
    HOSignalCounter redraws(layout->RedrawSignal);
    view->RefreshMap(false, HORect());
    QTRY_VERIFY_WITH_TIMEOUT(redraws.count > 0 && !view->IsRendering(), 5000);
    QVERIFY(!redraws.offThread);

    HORefPtr<HOGraphics> surface(new HOGraphics);
    surface->SetSize(800, 600);
    surface->Clear(HOColor(255, 255, 255));
    layout->DrawTo(surface, 0);
    const QImage& image = surface->Image();
    const HODisplayTransform t = layout->GetDisplayTransform();
    QCOMPARE(image.pixel(2, 2), qRgb(160, 160, 160));                // desk
    QCOMPARE(image.pixel(pixelOf(t, 5, 105)), qRgb(255, 255, 255));  // page margin
    QCOMPARE(image.pixel(pixelOf(t, 148.5, 105)), qRgb(255, 0, 0));  // the map
    const QPoint corner = pixelOf(t, 297, 0);
    QCOMPARE(image.pixel(corner + QPoint(2, 2)), qRgb(90, 90, 90));  // shadow
    const QRgb border = image.pixel(pixelOf(t, 10, 105));            // the frame's outline,
    QVERIFY2(qRed(border) < 128 && qGreen(border) < 128,
             qPrintable(QString::number(border, 16)));  // antialiased
}

void tst_PageLayoutView::operatingFrameSignal() {
    const auto layout = layoutOf();
    HOSignalCounter active(layout->ActiveElementChangedSignal);
    HORefPtr<HODataFrame> frame(new HODataFrame);
    layout->set_operating_data_frame(frame);
    layout->set_operating_data_frame(frame);
    QCOMPARE(active.count.load(), 1);
    QCOMPARE(layout->get_graphicscontainer()->GetElements().size(), std::size_t(1));
    layout->set_operating_data_frame(nullptr);
    QCOMPARE(active.count.load(), 2);
    QVERIFY(!layout->get_operating_data_frame());
}

void tst_PageLayoutView::locateElements_data() {
    QTest::addColumn<HOPoint>("point");
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<QString>("expected");  // element names in drawing order
    // A covers (0..10, 0..10), B covers (5..15, 5..15), drawn after A.
    QTest::newRow("in both") << HOPoint(7, 7) << 0.0 << "AB";
    QTest::newRow("in B only") << HOPoint(12, 12) << 0.0 << "B";
    QTest::newRow("on A's edge") << HOPoint(10, 2) << 0.0 << "A";
    QTest::newRow("just off A") << HOPoint(10.5, 2) << 0.0 << "";
    QTest::newRow("just off A, within tolerance") << HOPoint(10.5, 2) << 1.0 << "A";
    QTest::newRow("far away") << HOPoint(30, 30) << 1.0 << "";
}

void tst_PageLayoutView::locateElements() {
    QFETCH(HOPoint, point);
    QFETCH(double, tolerance);
    QFETCH(QString, expected);
    HOGraphicsContainer container;
    HORefPtr<Box> a(new Box(0, 0, 10, 10));
    HORefPtr<Box> b(new Box(5, 5, 10, 10));
    container.AddElement(a);
    container.AddElement(b);
    QString found;
    for (const auto& element : container.LocateElements(point, tolerance))
        found += element.get() == a.get() ? "A" : "B";
    QCOMPARE(found, expected);
}

void tst_PageLayoutView::selection() {
    HOGraphicsContainer container;
    HORefPtr<Box> a(new Box(0, 0, 1, 1));
    HORefPtr<Box> b(new Box(2, 0, 1, 1));
    HORefPtr<Box> stranger(new Box(4, 0, 1, 1));
    container.AddElement(a);
    container.AddElement(b);
    container.SelectElement(b, true);
    container.SelectElement(a, true);
    container.SelectElement(stranger, true);  // not on the page
    auto selected = container.GetSelectedElements(true);
    QCOMPARE(selected.size(), std::size_t(2));
    QCOMPARE(selected[0].get(), static_cast<HOPageLayoutBaseElement*>(a.get()));  // drawing order
    container.RemoveElement(a);
    selected = container.GetSelectedElements(false);
    QCOMPARE(selected.size(), std::size_t(1));
    QCOMPARE(selected[0].get(), static_cast<HOPageLayoutBaseElement*>(b.get()));
    container.ClearSelection();
    QVERIFY(container.GetSelectedElements(true).empty());
    QCOMPARE(a->RefCount(), 1);
}

QTEST_MAIN(tst_PageLayoutView)
#include "tst_pagelayoutview.moc"
