// The built-in tools on the sample region, driven through a shown canvas the way a person drives
// them: pan by dragging, zoom by click and box, select by box with shift and control, identify a
// town, and the keyboard's select-all and arrow panning.
#include <QApplication>
#include <QtTest>
#include <algorithm>

#include "HOCMDPool.h"
#include "HOFeatureLayer.h"
#include "HOGraphics.h"
#include "HOIdentifyEvent.h"
#include "HOMap.h"
#include "HOTestPrinters.h"
#include "HOToolIdentify.h"
#include "HXMapCanvas.h"
#include "HXPopupAnswer.h"

using namespace HXObjects;

namespace {

QString SamplePath() {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/region.gpkg";
}

void Mouse(QWidget& widget, QEvent::Type type, Qt::MouseButtons buttons, QPoint pos) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pos, widget.mapToGlobal(pos), button, buttons, QApplication::keyboardModifiers());
    QApplication::sendEvent(&widget, &event);
}

void Drag(QWidget& widget, QPoint from, QPoint to) {
    Mouse(widget, QEvent::MouseButtonPress, Qt::LeftButton, from);
    Mouse(widget, QEvent::MouseMove, Qt::LeftButton, (from + to) / 2);
    Mouse(widget, QEvent::MouseMove, Qt::LeftButton, to);
    Mouse(widget, QEvent::MouseButtonRelease, Qt::NoButton, to);
}

bool Near(double a, double b, double tolerance) {
    return std::abs(a - b) <= tolerance;
}

// A canvas of 800 x 600 drawing pixels showing land, roads and towns of the sample region.
struct SampleCanvas {
    explicit SampleCanvas(HXMapCanvas::ViewMode mode = HXMapCanvas::MapViewMode) : canvas(mode, nullptr) {
        for (const char* name : {"land", "roads", "towns"}) {
            HOString error;
            HORefPtr<HOLayer> layer = OpenLayer(HOString(SamplePath() + "|layername=" + name), &error);
            if (!layer) qFatal("%s", error.c_str());
            map->AddLayer(layer);
        }
        towns = HODynamicCast<HOFeatureLayer>(map->GetLayers(true).back());
        canvas.resize(800, 625);
        canvas.show();
        view()->SetMap(map);
    }
    HOMapView* view() { return canvas.GetMapView(); }
    void waitForRender() {
        QTest::qWait(50);
        QTRY_VERIFY_WITH_TIMEOUT(!view()->IsRendering(), 20000);
    }
    QImage picture() {
        const HOSize size = view()->GetScreenDisplay()->GetDeviceSize();
        HORefPtr<HOGraphics> surface = new HOGraphics();
        surface->SetSize(size.width, size.height);
        view()->Draw(surface);
        surface->End();
        return surface->Image().copy();
    }
    HORect pixelBox(QPoint a, QPoint b) {
        const HODisplayTransform t = view()->GetDisplayTransform();
        const HOPoint p = t.ToMap(a.x(), a.y()), q = t.ToMap(b.x(), b.y());
        return HORect(std::min(p.x, q.x), std::max(p.x, q.x), std::min(p.y, q.y), std::max(p.y, q.y));
    }
    // Towns whose point lies in the box, read from the features themselves.
    std::vector<int> townsIn(const HORect& box) const {
        std::vector<int> ids;
        for (int id = 1; id <= towns->GetFeatureCount(); ++id) {
            HORefPtr<HOGeometry> g = towns->GetFeatureGeometry(id);
            if (g && box.Contains(g->Parts().at(0).at(0))) ids.push_back(id);
        }
        return ids;
    }

    HORefPtr<HOMap> map = new HOMap();
    HORefPtr<HOFeatureLayer> towns;
    HXMapCanvas canvas;
};

std::vector<int> Sorted(std::vector<int> ids) {
    std::sort(ids.begin(), ids.end());
    return ids;
}

}  // namespace

class TestCanvasToolsSample : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void panDrag_data();
    void panDrag();
    void zoomClickKeepsThePointUnderTheMouse_data();
    void zoomClickKeepsThePointUnderTheMouse();
    void zoomBoxShowsTheBox();
    void selectBox();
    void selectClickPicksOneTown();
    void identifyTown();
    void selectAllAndArrows();
    void selectAllOnAPage();
    void contextMenuOverSelectedFeatures();
};

void TestCanvasToolsSample::initTestCase() {
    QVERIFY2(QFile::exists(SamplePath()), qPrintable(SamplePath()));
}

void TestCanvasToolsSample::panDrag_data() {
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::newRow("right") << QPoint(400, 300) << QPoint(500, 300);
    QTest::newRow("up and left") << QPoint(400, 300) << QPoint(350, 220);
    QTest::newRow("out of the widget") << QPoint(100, 300) << QPoint(-250, 700);
}

void TestCanvasToolsSample::panDrag() {
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool("HXObjects::HOToolPan");
    QCOMPARE(s.canvas.cursor().shape(), Qt::OpenHandCursor);
    const HORect before = s.view()->GetExtent();
    const double upp = s.view()->GetDisplayTransform().unitsPerPixel;
    Mouse(s.canvas, QEvent::MouseButtonPress, Qt::LeftButton, from);
    QCOMPARE(s.canvas.cursor().shape(), Qt::ClosedHandCursor);
    Mouse(s.canvas, QEvent::MouseMove, Qt::LeftButton, to);
    // The picture follows at once; the extent changes only on release.
    QCOMPARE(s.view()->GetExtent(), before);
    Mouse(s.canvas, QEvent::MouseButtonRelease, Qt::NoButton, to);
    const HORect after = s.view()->GetExtent();
    const QPoint moved = to - from;
    QVERIFY(Near(after.minx, before.minx - moved.x() * upp, upp * 1e-6));
    QVERIFY(Near(after.maxy, before.maxy + moved.y() * upp, upp * 1e-6));
    QVERIFY(Near(after.Width(), before.Width(), upp * 1e-6));
    QCOMPARE(s.canvas.cursor().shape(), Qt::OpenHandCursor);
}

void TestCanvasToolsSample::zoomClickKeepsThePointUnderTheMouse_data() {
    QTest::addColumn<QString>("tool");
    QTest::addColumn<double>("scaleFactor");
    QTest::newRow("zoom in") << "HXObjects::HOToolZoomIn" << 0.5;
    QTest::newRow("zoom out") << "HXObjects::HOToolZoomOut" << 2.0;
}

void TestCanvasToolsSample::zoomClickKeepsThePointUnderTheMouse() {
    QFETCH(QString, tool);
    QFETCH(double, scaleFactor);
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool(HOString(tool));
    QCOMPARE(s.canvas.cursor().shape(), Qt::BitmapCursor);
    const HODisplayTransform before = s.view()->GetDisplayTransform();
    const QPoint click(200, 150);
    const HOPoint under = before.ToMap(click.x(), click.y());
    // A wobble below the box size is still a click.
    Mouse(s.canvas, QEvent::MouseButtonPress, Qt::LeftButton, click);
    Mouse(s.canvas, QEvent::MouseMove, Qt::LeftButton, click + QPoint(2, 2));
    Mouse(s.canvas, QEvent::MouseButtonRelease, Qt::NoButton, click + QPoint(2, 2));
    const HODisplayTransform after = s.view()->GetDisplayTransform();
    QVERIFY(Near(after.unitsPerPixel, before.unitsPerPixel * scaleFactor, before.unitsPerPixel * 1e-9));
    const HOPoint stillUnder = after.ToMap(click.x(), click.y());
    QVERIFY(Near(stillUnder.x, under.x, after.unitsPerPixel));
    QVERIFY(Near(stillUnder.y, under.y, after.unitsPerPixel));
}

void TestCanvasToolsSample::zoomBoxShowsTheBox() {
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool("HXObjects::HOToolZoomIn");
    const QImage plain = s.picture();
    const QPoint a(200, 150), b(440, 330);
    const HORect box = s.pixelBox(a, b);
    Mouse(s.canvas, QEvent::MouseButtonPress, Qt::LeftButton, a);
    Mouse(s.canvas, QEvent::MouseMove, Qt::LeftButton, b);
    const QImage banded = s.picture();
    // Inside the box the map is tinted red; outside it is untouched.
    for (QPoint inside : {QPoint(260, 200), QPoint(400, 300)}) {
        const QColor was = plain.pixelColor(inside), is = banded.pixelColor(inside);
        QVERIFY2(is.red() >= was.red() && is.green() < was.green(),
                 qPrintable(QString("%1 -> %2").arg(was.name(), is.name())));
    }
    QCOMPARE(banded.pixelColor(600, 450), plain.pixelColor(600, 450));
    Mouse(s.canvas, QEvent::MouseButtonRelease, Qt::NoButton, b);
    // The box fills the view (the view keeps its aspect, so one side has room to spare).
    const HORect after = s.view()->GetExtent();
    const double slack = after.Width() * 1e-9;
    QVERIFY(after.minx <= box.minx + slack && after.maxx >= box.maxx - slack);
    QVERIFY(after.miny <= box.miny + slack && after.maxy >= box.maxy - slack);
    QVERIFY(Near(after.Center().x, box.Center().x, after.Width() * 1e-6));
    QVERIFY(Near(after.Center().y, box.Center().y, after.Height() * 1e-6));
    QVERIFY(Near(after.Width(), box.Width(), after.Width() * 1e-6) ||
            Near(after.Height(), box.Height(), after.Height() * 1e-6));
}

void TestCanvasToolsSample::selectBox() {
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool("HXObjects::HOToolSingleSelect");
    const QPoint a(150, 100), b(450, 400), c(420, 200), d(700, 550);
    Drag(s.canvas, a, b);
    const std::vector<int> first = s.townsIn(s.pixelBox(a, b));
    QVERIFY(first.size() >= 3);
    QCOMPARE(Sorted(s.towns->GetSelectedIds()), first);
    int selected = 0;
    for (const auto& layer : s.map->GetLayers(true))
        selected += int(HODynamicCast<HOFeatureLayer>(layer)->GetSelectedIds().size());
    QCOMPARE(HOTool::selectFeatureNum, selected);

    // Shift adds the second box; control then takes the first box out again.
    QTest::keyPress(s.canvas.windowHandle(), Qt::Key_Shift, Qt::ShiftModifier);
    Drag(s.canvas, c, d);
    QTest::keyRelease(s.canvas.windowHandle(), Qt::Key_Shift, Qt::NoModifier);
    std::vector<int> both = first, second = s.townsIn(s.pixelBox(c, d));
    both.insert(both.end(), second.begin(), second.end());
    both.erase(std::unique(both.begin(), (std::sort(both.begin(), both.end()), both.end())), both.end());
    QCOMPARE(Sorted(s.towns->GetSelectedIds()), both);

    QTest::keyPress(s.canvas.windowHandle(), Qt::Key_Control, Qt::ControlModifier);
    Drag(s.canvas, a, b);
    QTest::keyRelease(s.canvas.windowHandle(), Qt::Key_Control, Qt::NoModifier);
    // Everything of the first box was selected, so toggling it takes all of it out.
    std::vector<int> rest;
    std::set_difference(both.begin(), both.end(), first.begin(), first.end(), std::back_inserter(rest));
    QCOMPARE(Sorted(s.towns->GetSelectedIds()), rest);
}

void TestCanvasToolsSample::selectClickPicksOneTown() {
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool("HXObjects::HOToolSingleSelect");
    const HOPoint town = s.towns->GetFeatureGeometry(5)->Parts().at(0).at(0);
    const HOPoint pixel = s.view()->GetDisplayTransform().ToDevice(town);
    const QPoint at(qRound(pixel.x), qRound(pixel.y));
    Mouse(s.canvas, QEvent::MouseButtonPress, Qt::LeftButton, at);
    Mouse(s.canvas, QEvent::MouseButtonRelease, Qt::NoButton, at);
    // Towns are drawn last, so the town is the topmost feature: nothing else is selected.
    QCOMPARE(s.towns->GetSelectedIds().size(), std::size_t(1));
    QCOMPARE(HOTool::selectFeatureNum, 1);
}

void TestCanvasToolsSample::identifyTown() {
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool("HXObjects::HOToolIdentify");
    QCOMPARE(s.canvas.cursor().shape(), Qt::BitmapCursor);
    auto* identify =
        dynamic_cast<HOToolIdentify*>(HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolIdentify"));
    QVERIFY(identify);
    HOIdentifyEvent found;
    int reports = 0;
    identify->IdentifiedSignal.bind("test", [&](void* sender, HOEvent* event) {
        QCOMPARE(sender, static_cast<void*>(identify));
        found = *static_cast<HOIdentifyEvent*>(event);
        ++reports;
    });
    const HORefPtr<HOFeature> town = s.towns->GetFeature(7);
    const HOPoint pixel = s.view()->GetDisplayTransform().ToDevice(town->GetGeometry()->Parts().at(0).at(0));
    const QPoint at(qRound(pixel.x), qRound(pixel.y));
    Mouse(s.canvas, QEvent::MouseButtonPress, Qt::LeftButton, at);
    Mouse(s.canvas, QEvent::MouseButtonRelease, Qt::NoButton, at);
    identify->IdentifiedSignal.unbind("test");
    QCOMPARE(reports, 1);
    QCOMPARE(found.layerName.toQString(), QString("towns"));
    QCOMPARE(found.featureId, 7);
    QCOMPARE(found.attributes.size(), town->GetAttributes().size());
    QVERIFY(!found.attributes.empty());
}

void TestCanvasToolsSample::selectAllAndArrows() {
    SampleCanvas s;
    s.waitForRender();
    QTest::keyClick(&s.canvas, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(int(s.towns->GetSelectedIds().size()), s.towns->GetFeatureCount());
    const HORect before = s.view()->GetExtent();
    QTest::keyClick(&s.canvas, Qt::Key_Left);
    const HORect after = s.view()->GetExtent();
    QVERIFY(Near(after.Center().x, before.Center().x - before.Width() / 4, before.Width() * 1e-6));
    QVERIFY(Near(after.Center().y, before.Center().y, before.Height() * 1e-6));
}

void TestCanvasToolsSample::selectAllOnAPage() {
    // On a page, control A selects in the map of the operating data frame.
    SampleCanvas s(HXMapCanvas::PageLayoutMode);
    QTest::keyClick(&s.canvas, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(int(s.towns->GetSelectedIds().size()), s.towns->GetFeatureCount());
}

void TestCanvasToolsSample::contextMenuOverSelectedFeatures() {
    SampleCanvas s;
    s.waitForRender();
    s.canvas.setMapTool("HXObjects::HOToolSingleSelect");
    Drag(s.canvas, QPoint(150, 100), QPoint(450, 400));
    HXPopupAnswer answer;
    s.canvas.OnContextMenu(600, 500);
    QCOMPARE(answer.entries, (QStringList{"Custom symbol", "-", "Set map ruler and grid"}));
}

QTEST_MAIN(TestCanvasToolsSample)
#include "tst_canvas_tools_sample.moc"
