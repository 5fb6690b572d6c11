// A page composed with the mouse on a canvas in page-layout mode: elements are selected, moved and
// resized by dragging, moved by the arrow keys, and the result saved and opened again is the same;
// the pan tool and the wheel move and zoom the page, the zoom-in tool by a click or to a dragged box;
// a double-clicked data frame takes the input, so the wheel then zooms its map, not the page, and the
// canvas re-emits the change of active element.
#include <QtTest>

#include "HODataFrame.h"
#include "HOFileFunc.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"
#include "HOTextElement.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

namespace {

class PageCanvas {
public:
    PageCanvas() : canvas(HXMapCanvas::PageLayoutMode, nullptr) {
        canvas.resize(800, 600);
        canvas.show();
        layout = canvas.GetPageLayoutView();
        frame = static_cast<HODataFrame*>(layout->get_operating_data_frame().get());
        frame->get_map_view()->SetMap(new HOMap);
        frame->get_map_view()->GetMap()->AddLayer(new HOTestRectLayer(HORect(0, 1000, 0, 1000), Qt::red));
        text = new HOTextElement;
        text->set_text("Title");
        text->set_bounds({100, 160, 150, 170});
        layout->get_graphicscontainer()->AddElement(text);
    }
    ~PageCanvas() { frame->get_map_view()->StopRender(true); }

    QPoint pixelOf(double x, double y) const {
        const HOPoint p = layout->GetDisplayTransform().ToDevice({x, y});
        return QPoint(qRound(p.x), qRound(p.y));
    }
    double unitsPerPixel() const { return layout->GetDisplayTransform().unitsPerPixel; }
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPoint pos) {
        QMouseEvent event(type, pos, canvas.mapToGlobal(pos), button, held, Qt::NoModifier);
        QApplication::sendEvent(&canvas, &event);
    }
    void drag(QPoint from, QPoint to) {
        mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, from);
        mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, (from + to) / 2);
        mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, to);
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, to);
    }
    void wheel(QPoint at, int delta) {
        QWheelEvent event(at, canvas.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&canvas, &event);
    }

    HXMapCanvas canvas;
    HOPageLayoutView* layout = nullptr;
    HODataFrame* frame = nullptr;
    HORefPtr<HOTextElement> text;
};

bool near(const HORect& a, const HORect& b, double tolerance) {
    return qAbs(a.minx - b.minx) <= tolerance && qAbs(a.maxx - b.maxx) <= tolerance &&
           qAbs(a.miny - b.miny) <= tolerance && qAbs(a.maxy - b.maxy) <= tolerance;
}

}  // namespace

class tst_CanvasPageLayout : public QObject {
    Q_OBJECT

private slots:
    void composeWithTheMouseSaveAndOpen() {
        PageCanvas page;
        QVERIFY(QTest::qWaitForWindowExposed(&page.canvas));
        const double upp = page.unitsPerPixel();
        // Drag the text by (40, -20) pixels: it moves right and up on the page.
        page.drag(page.pixelOf(130, 160), page.pixelOf(130, 160) + QPoint(40, -20));
        const auto selected = page.layout->get_graphicscontainer()->GetSelectedElements(true);
        QVERIFY(selected.size() == 1 && selected[0] == page.text.get());
        QVERIFY(near(page.text->get_bounds(),
                     HORect(100 + 40 * upp, 160 + 40 * upp, 150 + 20 * upp, 170 + 20 * upp), upp));
        // Its bottom-right handle drags it 30 pixels wider and 10 taller downwards.
        const HORect moved = page.text->get_bounds();
        page.drag(page.pixelOf(moved.maxx, moved.miny),
                  page.pixelOf(moved.maxx, moved.miny) + QPoint(30, 10));
        QVERIFY(near(page.text->get_bounds(),
                     HORect(moved.minx, moved.maxx + 30 * upp, moved.miny - 10 * upp, moved.maxy), upp));
        // The arrow keys move it one page unit per press.
        const HORect resized = page.text->get_bounds();
        QTest::keyClick(&page.canvas, Qt::Key_Left);
        QTest::keyClick(&page.canvas, Qt::Key_Up);
        QCOMPARE(page.text->get_bounds(),
                 HORect(resized.minx - 1, resized.maxx - 1, resized.miny + 1, resized.maxy + 1));
        // A press on bare desk clears the selection.
        page.drag(QPoint(2, 2), QPoint(3, 3));
        QVERIFY(page.layout->get_graphicscontainer()->GetSelectedElements(true).empty());

        QTemporaryDir dir;
        HOFileFunc out(dir.filePath("page.hxlayout"));
        QVERIFY2(page.layout->save(&out, 0), qPrintable(out.LastError()));
        HORefPtr<HOPageLayoutView> reopened(new HOPageLayoutView);
        HOFileFunc in(out.Path());
        QVERIFY2(reopened->open(&in, 0), qPrintable(in.LastError()));
        const auto elements = reopened->get_graphicscontainer()->GetElements();
        QCOMPARE(elements.size(), std::size_t(2));
        QCOMPARE(elements[1]->get_bounds(), page.text->get_bounds());
        QCOMPARE(static_cast<HOTextElement*>(elements[1].get())->get_text(), QString("Title"));
        QCOMPARE(elements[0]->get_bounds(), page.frame->get_bounds());
        static_cast<HODataFrame*>(elements[0].get())->get_map_view()->StopRender(true);
    }

    void panToolAndWheelMoveThePage() {
        PageCanvas page;
        QVERIFY(QTest::qWaitForWindowExposed(&page.canvas));
        page.canvas.setMapTool("HXObjects::HOToolPan");
        const HOPoint centre = page.layout->GetCenter();
        const double upp = page.unitsPerPixel();
        page.drag(QPoint(400, 300), QPoint(450, 280));
        QCOMPARE(page.layout->GetCenter(), HOPoint(centre.x - 50 * upp, centre.y - 20 * upp));
        QVERIFY(page.text->get_bounds() == HORect(100, 160, 150, 170));  // the pan tool moves no element
        const double pageScale = page.layout->GetScale(), mapScale = page.frame->get_map_scale();
        page.wheel(QPoint(400, 300), 120);
        QVERIFY(qFuzzyCompare(page.layout->GetScale(), pageScale / 2));
        QCOMPARE(page.frame->get_map_scale(), mapScale);  // the map's scale on paper is its own
    }

    void zoomInToolClickOrBox_data() {
        QTest::addColumn<QPoint>("offset");  // from the press to the release, pixels
        QTest::addColumn<double>("widthRatio");
        QTest::newRow("click") << QPoint(2, 2) << 0.5;
        QTest::newRow("box") << QPoint(200, 20) << 0.25;  // 200 of the canvas's 800 pixels
    }

    void zoomInToolClickOrBox() {
        QFETCH(QPoint, offset);
        QFETCH(double, widthRatio);
        PageCanvas page;
        QVERIFY(QTest::qWaitForWindowExposed(&page.canvas));
        page.canvas.setMapTool("HXObjects::HOToolZoomIn");
        const QPoint press(300, 250);
        const HOPoint pressed = page.layout->GetDisplayTransform().ToMap(press.x(), press.y());
        const double width = page.layout->GetExtent().Width();
        page.drag(press, press + offset);
        const HORect extent = page.layout->GetExtent();
        QVERIFY2(qAbs(extent.Width() / width - widthRatio) < 0.01,
                 qPrintable(QString::number(extent.Width() / width)));
        QVERIFY(extent.Contains(pressed));
        QVERIFY(page.text->get_bounds() == HORect(100, 160, 150, 170));  // the tool moves no element
    }

    void activatedFrameTakesTheWheel() {
        PageCanvas page;
        QVERIFY(QTest::qWaitForWindowExposed(&page.canvas));
        QSignalSpy active(&page.canvas, &HXMapCanvas::activeElementChanged);
        const QPoint inFrame = page.pixelOf(200, 60);
        page.mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, inFrame);
        QCOMPARE(active.count(), 1);
        QCOMPARE(active.at(0).at(0).value<void*>(), static_cast<void*>(page.layout));
        QVERIFY(page.layout->get_active_data_frame() == page.frame);

        const double pageScale = page.layout->GetScale(), mapScale = page.frame->get_map_scale();
        page.wheel(inFrame, 120);
        QCOMPARE(page.layout->GetScale(), pageScale);
        QVERIFY(qAbs(page.frame->get_map_scale() - mapScale / 2) < mapScale * 0.01);

        // A double click on the desk gives the input back to the page.
        page.mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, QPoint(2, 2));
        QCOMPARE(active.count(), 2);
        QVERIFY(!page.layout->get_active_data_frame());
        page.wheel(inFrame, 120);
        QVERIFY(qFuzzyCompare(page.layout->GetScale(), pageScale / 2));
    }
};

QTEST_MAIN(tst_CanvasPageLayout)
#include "tst_canvas_pagelayout.moc"
