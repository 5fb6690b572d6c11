// HOPageLayoutView: the page on its desk, its own scale, the operating data frame holding a map view
// (its size, screen display and redraws), what DrawTo draws, and the element container's hit tests.
#include <QtTest>

#include "HODataFrame.h"
#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HOSignalCounter.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

namespace {

class Box : public HOPageLayoutBaseElement {
public:
    Box(double x, double y, double w, double h) : HOPageLayoutBaseElement(HOElementGraphic) {
        set_off_x(x);
        set_off_y(y);
        set_size(w, h);
    }
    void draw(QPainter&, const HOPageRenderContext&) override {}
};

// An 800x600 page layout whose operating frame shows a 400x300 view of one red layer.
struct Scene {
    Scene() : layout(new HOPageLayoutView), map(new HOMap), view(new HOMapView("frame")) {
        layout->SetSize(800, 600);
        map->AddLayer(new HOTestRectLayer(HORect(0, 1000, 0, 1000), Qt::red));
        view->SetSize(400, 300);
        view->SetMap(map);
        layout->SwitchToLayoutView(view);
        frame = static_cast<HODataFrame*>(layout->get_operating_data_frame().get());
    }
    ~Scene() { view->StopRender(true); }
    HORefPtr<HOPageLayoutView> layout;
    HORefPtr<HOMap> map;
    HORefPtr<HOMapView> view;
    HODataFrame* frame = nullptr;
};

}  // namespace

class tst_PageLayoutView : public QObject {
    Q_OBJECT

private slots:
    void pageScale_data() {
        QTest::addColumn<double>("denominator");  // 0: the first size only, which shows the whole page
        // 1 is the page at its true size on screen: 25.4 mm per inch over the screen's dots per inch.
        QTest::newRow("whole page") << 0.0;
        QTest::newRow("true size") << 1.0;
        QTest::newRow("half size") << 2.0;
        QTest::newRow("magnified four times") << 0.25;
    }

    void pageScale() {
        QFETCH(double, denominator);
        HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
        HOSignalCounter scale(layout->ScaleChangedSignal);
        QCOMPARE(layout->GetCenter(), HOPoint(148.5, 105));  // before a size too
        layout->SetSize(800, 600);
        layout->SetSize(800, 600);
        QCOMPARE(scale.count.load(), 1);
        QCOMPARE(layout->GetCenter(), HOPoint(148.5, 105));  // A4 landscape
        const HORect shown = layout->GetExtent();
        QVERIFY(shown.minx < 0 && shown.maxx > 297 && shown.miny < 0 && shown.maxy > 210);
        if (denominator == 0) return;
        layout->SetScale(denominator);
        QVERIFY(qFuzzyCompare(layout->GetScale(), denominator));
        QVERIFY(qFuzzyCompare(layout->GetDisplayTransform().unitsPerPixel,
                              denominator * 25.4 / HOMapScale::ScreenDpi()));
        QCOMPARE(layout->GetCenter(), HOPoint(148.5, 105));
        QCOMPARE(scale.count.load(), 2);
        QCOMPARE(scale.nullEvents.load(), 0);
    }

    void switchingSetsTheOperatingFrame() {
        HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
        layout->SetSize(800, 600);
        HOSignalCounter active(layout->ActiveElementChangedSignal);
        HORefPtr<HOMap> map(new HOMap);
        HORefPtr<HOMapView> first(new HOMapView), second(new HOMapView);
        first->SetMap(map);
        second->SetMap(map);
        QVERIFY(!layout->get_operating_data_frame());
        layout->SwitchToLayoutView(first);
        const HORefPtr<HODataFrame> frame(
            dynamic_cast<HODataFrame*>(layout->get_operating_data_frame().get()));
        QVERIFY(frame && frame->get_map_view() == first.get());
        QCOMPARE(frame->get_bounds(), HORect(10, 287, 10, 200));  // the page less its margins
        QCOMPARE(active.count.load(), 1);
        HOSignalCounter redraw(layout->RedrawSignal);
        first->RefreshToolPaint();  // the map view's redraws become the page's
        QCOMPARE(redraw.lastSender.load(), static_cast<void*>(layout.get()));

        // Switching again reuses the frame and forwards only the new view.
        layout->SwitchToLayoutView(second);
        layout->set_operating_data_frame(frame);
        QVERIFY(layout->get_operating_data_frame() == frame.get() && frame->get_map_view() == second.get());
        QVERIFY(first->RedrawSignal.count() == 0 && second->RedrawSignal.count() == 1);
        QCOMPARE(active.count.load(), 1);

        HORefPtr<HODataFrame> other(new HODataFrame);
        layout->set_operating_data_frame(other);
        QCOMPARE(active.count.load(), 2);
        QCOMPARE(layout->get_graphicscontainer()->GetElements().size(), std::size_t(2));  // put on the page
        layout->set_operating_data_frame(nullptr);
        QCOMPARE(active.count.load(), 3);
        QVERIFY(!layout->get_operating_data_frame());
        QCOMPARE(active.nullEvents.load(), 0);
    }

    void frameViewFollowsThePageZoom() {
        Scene s;
        QRectF pixels;
        const auto check = [&] {
            pixels = s.frame->pixel_rect(s.layout->GetDisplayTransform());
            QCOMPARE(s.view->GetScreenDisplay()->GetDeviceSize(),
                     HOSize(qRound(pixels.width()), qRound(pixels.height())));
            // The frame's top-left screen pixel is the map view's pixel (0, 0); its centre is the map's
            // centre.
            const HODisplayTransform screen = s.frame->get_screendisplay()->GetDisplayTransform();
            const HODisplayTransform own = s.view->GetDisplayTransform();
            QCOMPARE(screen.ToMap(pixels.left(), pixels.top()), own.ToMap(0, 0));
            const HOPoint centre = screen.ToMap(pixels.center().x(), pixels.center().y());
            QVERIFY(qAbs(centre.x - s.view->GetCenter().x) < own.unitsPerPixel);
            QVERIFY(qAbs(centre.y - s.view->GetCenter().y) < own.unitsPerPixel);
        };
        check();
        const QRectF before = pixels;
        const HORect extent = s.view->GetExtent();
        s.layout->ZoomIn();
        check();
        QVERIFY(!QTest::currentTestFailed() && qAbs(pixels.width() - 2 * before.width()) < 1e-6);
        // The map still shows what it showed (up to the pixel rounding of the frame).
        const HORect now = s.view->GetExtent();
        const double pixel = s.view->GetDisplayTransform().unitsPerPixel;
        QVERIFY(qAbs(now.Center().x - extent.Center().x) < pixel &&
                qAbs(now.Center().y - extent.Center().y) < pixel);
        QVERIFY(qAbs(now.Width() - extent.Width()) < 2 * pixel);
    }

    void middleButtonDragMovesThePage() {
        HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
        layout->SetSize(800, 600);
        HOSignalCounter scale(layout->ScaleChangedSignal);
        const HOPoint start = layout->GetCenter();
        const double upp = layout->GetDisplayTransform().unitsPerPixel;
        layout->MouseUp(3, 40, 40);  // pressed elsewhere: nothing to finish
        QCOMPARE(layout->GetCenter(), start);
        layout->MouseDown(3, 10, 10);
        layout->MouseMove(3, 30, 5);  // the page itself follows the mouse
        QCOMPARE(layout->GetCenter(), HOPoint(start.x - 20 * upp, start.y - 5 * upp));
        layout->MouseUp(3, 40, 10);
        QCOMPARE(layout->GetCenter(), HOPoint(start.x - 30 * upp, start.y));
        layout->MouseMove(3, 90, 90);  // released: no drag any more
        QCOMPARE(layout->GetCenter(), HOPoint(start.x - 30 * upp, start.y));
        QCOMPARE(scale.count.load(), 0);
    }

    void drawToDrawsDeskPageAndMap() {
        Scene s;
        QTRY_VERIFY_WITH_TIMEOUT(!s.view->IsRendering(), 5000);
        // A map picture finished on its render thread is announced on ours.
        HOSignalCounter redraws(s.layout->RedrawSignal);
        s.view->RefreshMap(false, HORect());
        QTRY_VERIFY_WITH_TIMEOUT(redraws.count > 0 && !s.view->IsRendering(), 5000);
        QVERIFY(!redraws.offThread);

        HORefPtr<HOGraphics> surface(new HOGraphics);
        surface->SetSize(800, 600);
        surface->Clear(HOColor(255, 255, 255));
        s.layout->DrawTo(surface, 0);
        const QImage& image = surface->Image();
        const auto pixelOf = [t = s.layout->GetDisplayTransform()](double x, double y) {
            const HOPoint p = t.ToDevice({x, y});
            return QPoint(int(std::floor(p.x)), int(std::floor(p.y)));
        };
        QCOMPARE(image.pixel(2, 2), qRgb(160, 160, 160));                         // desk
        QCOMPARE(image.pixel(pixelOf(5, 105)), qRgb(255, 255, 255));              // page margin
        QCOMPARE(image.pixel(pixelOf(148.5, 105)), qRgb(255, 0, 0));              // the map
        QCOMPARE(image.pixel(pixelOf(297, 0) + QPoint(2, 2)), qRgb(90, 90, 90));  // shadow
        const QRgb border = image.pixel(pixelOf(10, 105));  // the frame's antialiased outline
        QVERIFY2(qRed(border) < 128 && qGreen(border) < 128, qPrintable(QString::number(border, 16)));
    }

    void locateElements_data() {
        // expected: element names in drawing order
        HOAddColumns<HOPoint, double, QString>({"point", "tolerance", "expected"});
        // A covers (0..10, 0..10), B covers (5..15, 5..15), drawn after A.
        QTest::newRow("in both") << HOPoint(7, 7) << 0.0 << "AB";
        QTest::newRow("in B only") << HOPoint(12, 12) << 0.0 << "B";
        QTest::newRow("on A's edge") << HOPoint(10, 2) << 0.0 << "A";
        QTest::newRow("just off A") << HOPoint(10.5, 2) << 0.0 << "";
        QTest::newRow("just off A, within tolerance") << HOPoint(10.5, 2) << 1.0 << "A";
        QTest::newRow("far away") << HOPoint(30, 30) << 1.0 << "";
    }

    void locateElements() {
        QFETCH(HOPoint, point);
        QFETCH(double, tolerance);
        HOGraphicsContainer container;
        HORefPtr<Box> a(new Box(0, 0, 10, 10));
        container.AddElement(a);
        container.AddElement(new Box(5, 5, 10, 10));
        QString found;
        for (const auto& element : container.LocateElements(point, tolerance))
            found += element.get() == a.get() ? "A" : "B";
        QTEST(found, "expected");
    }

    void selection() {
        HOGraphicsContainer container;
        HORefPtr<Box> a(new Box(0, 0, 1, 1)), b(new Box(2, 0, 1, 1)), stranger(new Box(4, 0, 1, 1));
        container.AddElement(a);
        container.AddElement(b);
        container.SelectElement(b, true);
        container.SelectElement(a, true);
        container.SelectElement(stranger, true);  // not on the page
        auto selected = container.GetSelectedElements(true);
        QVERIFY(selected.size() == 2 && selected[0] == a.get());  // drawing order
        container.RemoveElement(a);
        selected = container.GetSelectedElements(false);
        QVERIFY(selected.size() == 1 && selected[0] == b.get());
        container.ClearSelection();
        QVERIFY(container.GetSelectedElements(true).empty());
        QCOMPARE(a->RefCount(), 1);
    }
};

QTEST_MAIN(tst_PageLayoutView)
#include "tst_pagelayoutview.moc"
