// The built-in tools on the sample region, driven through a shown canvas the way a person drives
// them: pan by dragging, zoom by click and box, select by box and click, identify a town, select all.
#include <QtTest>
#include <algorithm>
#include <set>

#include "HOCMDPool.h"
#include "HOFeatureLayer.h"
#include "HOGraphics.h"
#include "HOIdentifyEvent.h"
#include "HOMap.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOToolIdentify.h"
#include "HXInputCanvas.h"
#include "HXMapWidget.h"

using namespace HXObjects;

namespace {

QString SamplePath() {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/region.gpkg";
}

bool Near(double a, double b, double tolerance) {
    return std::abs(a - b) <= tolerance;
}

// A shown canvas of 800 x 600 drawing pixels with land, roads and towns of the sample region.
struct SampleCanvas {
    explicit SampleCanvas(HXMapCanvas::ViewMode mode = HXMapCanvas::MapViewMode, const char* tool = nullptr)
        : canvas(mode, nullptr) {
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
        // Sized (a map view to the drawing widget) with nothing left to render.
        const auto* widget = canvas.findChild<HXMapWidget*>();
        const auto settled = [&] {
            const HOSize size = view()->GetScreenDisplay()->GetDeviceSize();
            const bool sized =
                canvas.IsMapView() ? QSize(size.width, size.height) == widget->size() : size.width > 0;
            return sized && !view()->IsRendering();
        };
        QTRY_VERIFY_WITH_TIMEOUT(settled(), 20000);
        if (tool) canvas.setMapTool(tool);
    }
    HOMapView* view() { return canvas.GetMapView(); }
    void mouse(QEvent::Type type, QPoint pos) {
        const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, pos, canvas.mapToGlobal(pos),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                          QApplication::keyboardModifiers());
        QApplication::sendEvent(&canvas, &event);
    }
    // The tool reads the application's modifiers when the button goes up; the modifier key is pressed
    // right before that, so no event the platform queues in between (an enter or a synthetic move
    // with no modifiers) can take it back.
    void drag(QPoint from, QPoint to, Qt::Key modifierKey = Qt::Key_unknown,
              Qt::KeyboardModifier modifier = Qt::NoModifier) {
        mouse(QEvent::MouseButtonPress, from);
        mouse(QEvent::MouseMove, (from + to) / 2);
        mouse(QEvent::MouseMove, to);
        if (modifierKey != Qt::Key_unknown) {
            // An event the platform queued earlier (with no modifiers) is delivered after the key and
            // takes it back: drained first, and the key pressed again should one still come between.
            QCoreApplication::processEvents();
            for (int tries = 0; tries < 5 && QApplication::queryKeyboardModifiers() != modifier; ++tries)
                QTest::keyPress(canvas.windowHandle(), modifierKey, modifier);
        }
        mouse(QEvent::MouseButtonRelease, to);
        if (modifierKey != Qt::Key_unknown)
            QTest::keyRelease(canvas.windowHandle(), modifierKey, Qt::NoModifier);
    }
    QPoint pixelOf(int town) {
        const HOPoint p =
            view()->GetDisplayTransform().ToDevice(towns->GetFeatureGeometry(town)->Parts()[0][0]);
        return QPoint(qRound(p.x), qRound(p.y));
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
        const HOPoint p = view()->GetDisplayTransform().ToMap(a.x(), a.y());
        const HOPoint q = view()->GetDisplayTransform().ToMap(b.x(), b.y());
        return HORect(std::min(p.x, q.x), std::max(p.x, q.x), std::min(p.y, q.y), std::max(p.y, q.y));
    }
    // The towns whose point lies in the pixel box, read from the features themselves.
    std::set<int> townsIn(QPoint a, QPoint b) {
        std::set<int> ids;
        for (int id = 1; id <= towns->GetFeatureCount(); ++id)
            if (pixelBox(a, b).Contains(towns->GetFeatureGeometry(id)->Parts()[0][0])) ids.insert(id);
        return ids;
    }
    std::set<int> selected() {
        const std::vector<int> ids = towns->GetSelectedIds();
        return std::set<int>(ids.begin(), ids.end());
    }

    HORefPtr<HOMap> map = new HOMap();
    HORefPtr<HOFeatureLayer> towns;
    HXMapCanvas canvas;
};

}  // namespace

class TestCanvasToolsSample : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(QFile::exists(SamplePath()), qPrintable(SamplePath())); }

    void panDrag_data() {
        HOAddColumns<QPoint, QPoint>({"from", "to"});
        QTest::newRow("right") << QPoint(400, 300) << QPoint(500, 300);
        QTest::newRow("up and left") << QPoint(400, 300) << QPoint(350, 220);
        QTest::newRow("out of the widget") << QPoint(100, 300) << QPoint(-250, 700);
    }
    void panDrag() {
        QFETCH(QPoint, from);
        QFETCH(QPoint, to);
        SampleCanvas s(HXMapCanvas::MapViewMode, "HXObjects::HOToolPan");
        QCOMPARE(s.canvas.cursor().shape(), Qt::OpenHandCursor);
        const HORect before = s.view()->GetExtent();
        const double upp = s.view()->GetDisplayTransform().unitsPerPixel;
        s.mouse(QEvent::MouseButtonPress, from);
        QCOMPARE(s.canvas.cursor().shape(), Qt::ClosedHandCursor);
        s.mouse(QEvent::MouseMove, to);
        QCOMPARE(s.view()->GetExtent(), before);  // the picture follows at once, the extent on release
        s.mouse(QEvent::MouseButtonRelease, to);
        const HORect after = s.view()->GetExtent();
        QVERIFY(Near(after.minx, before.minx - (to - from).x() * upp, upp * 1e-6));
        QVERIFY(Near(after.maxy, before.maxy + (to - from).y() * upp, upp * 1e-6));
        QVERIFY(Near(after.Width(), before.Width(), upp * 1e-6));
        QCOMPARE(s.canvas.cursor().shape(), Qt::OpenHandCursor);
    }

    void zoomClickKeepsThePointUnderTheMouse_data() {
        HOAddColumns<QString, double>({"tool", "scaleFactor"});
        QTest::newRow("zoom in") << "HXObjects::HOToolZoomIn" << 0.5;
        QTest::newRow("zoom out") << "HXObjects::HOToolZoomOut" << 2.0;
    }
    void zoomClickKeepsThePointUnderTheMouse() {
        QFETCH(QString, tool);
        QFETCH(double, scaleFactor);
        SampleCanvas s(HXMapCanvas::MapViewMode, qPrintable(tool));
        QCOMPARE(s.canvas.cursor().shape(), Qt::BitmapCursor);
        const HODisplayTransform before = s.view()->GetDisplayTransform();
        const HOPoint under = before.ToMap(200, 150);
        s.drag(QPoint(200, 150), QPoint(202, 152));  // a wobble below the box size is still a click
        const HODisplayTransform after = s.view()->GetDisplayTransform();
        QVERIFY(Near(after.unitsPerPixel, before.unitsPerPixel * scaleFactor, before.unitsPerPixel * 1e-9));
        QVERIFY(Near(after.ToMap(200, 150).x, under.x, after.unitsPerPixel));
        QVERIFY(Near(after.ToMap(200, 150).y, under.y, after.unitsPerPixel));
    }

    void zoomBoxShowsTheBox() {
        SampleCanvas s(HXMapCanvas::MapViewMode, "HXObjects::HOToolZoomIn");
        const QImage plain = s.picture();
        const QPoint a(200, 150), b(440, 330);
        const HORect box = s.pixelBox(a, b);
        s.mouse(QEvent::MouseButtonPress, a);
        s.mouse(QEvent::MouseMove, b);
        const QImage banded = s.picture();
        // Inside the box the map is tinted red; outside it is untouched.
        for (QPoint inside : {QPoint(260, 200), QPoint(400, 300)}) {
            const QColor was = plain.pixelColor(inside), is = banded.pixelColor(inside);
            QVERIFY2(is.red() >= was.red() && is.green() < was.green(),
                     qPrintable(was.name() + " " + is.name()));
        }
        QCOMPARE(banded.pixelColor(600, 450), plain.pixelColor(600, 450));
        s.mouse(QEvent::MouseButtonRelease, b);
        // The box fills the view (which keeps its width to height ratio, so one side has room to spare).
        const HORect after = s.view()->GetExtent();
        const double slack = after.Width() * 1e-9;
        QVERIFY(after.minx <= box.minx + slack && after.maxx >= box.maxx - slack);
        QVERIFY(after.miny <= box.miny + slack && after.maxy >= box.maxy - slack);
        QVERIFY(Near(after.Center().x, box.Center().x, after.Width() * 1e-6));
        QVERIFY(Near(after.Center().y, box.Center().y, after.Height() * 1e-6));
        QVERIFY(Near(after.Width(), box.Width(), after.Width() * 1e-6) ||
                Near(after.Height(), box.Height(), after.Height() * 1e-6));
    }

    void selectBoxAndClick() {
        SampleCanvas s(HXMapCanvas::MapViewMode, "HXObjects::HOToolSingleSelect");
        const QPoint a(150, 100), b(450, 400), c(420, 200), d(700, 550);
        s.drag(a, b);
        const std::set<int> first = s.townsIn(a, b);
        QVERIFY(first.size() >= 3);
        QCOMPARE(s.selected(), first);
        int selectedEverywhere = 0;
        for (const auto& layer : s.map->GetLayers(true))
            selectedEverywhere += int(HODynamicCast<HOFeatureLayer>(layer)->GetSelectedIds().size());
        QCOMPARE(HOTool::selectFeatureNum, selectedEverywhere);

        // Shift adds the second box; control then takes the first box out again.
        s.drag(c, d, Qt::Key_Shift, Qt::ShiftModifier);
        std::set<int> both = first, second = s.townsIn(c, d);
        both.insert(second.begin(), second.end());
        QCOMPARE(s.selected(), both);
        s.drag(a, b, Qt::Key_Control, Qt::ControlModifier);
        std::set<int> rest;
        std::set_difference(both.begin(), both.end(), first.begin(), first.end(),
                            std::inserter(rest, rest.end()));
        QCOMPARE(s.selected(), rest);

        // A click selects the one town under it, the topmost feature there.
        s.mouse(QEvent::MouseButtonPress, s.pixelOf(5));
        s.mouse(QEvent::MouseButtonRelease, s.pixelOf(5));
        QCOMPARE(s.selected(), std::set<int>{5});
        QCOMPARE(HOTool::selectFeatureNum, 1);
        // Last: the popup's keyboard grab and its closing must not meet the modifier drags above.
        HXPopupAnswer menu;
        s.canvas.OnContextMenu(600, 500);
        QCOMPARE(menu.entries, (QStringList{"Custom symbol", "-", "Set map ruler and grid"}));
    }

    void identifyTown() {
        SampleCanvas s(HXMapCanvas::MapViewMode, "HXObjects::HOToolIdentify");
        QCOMPARE(s.canvas.cursor().shape(), Qt::BitmapCursor);
        auto* identify = dynamic_cast<HOToolIdentify*>(s.canvas.getMapTool());
        QVERIFY(identify);
        HOIdentifyEvent found;
        int reports = 0;
        identify->IdentifiedSignal.bind("test", [&](void*, HOEvent* event) {
            found = *static_cast<HOIdentifyEvent*>(event);
            ++reports;
        });
        s.mouse(QEvent::MouseButtonPress, s.pixelOf(7));
        s.mouse(QEvent::MouseButtonRelease, s.pixelOf(7));
        identify->IdentifiedSignal.unbind("test");
        QCOMPARE(reports, 1);
        QCOMPARE(found.layerName.toQString(), QString("towns"));
        QCOMPARE(found.featureId, 7);
        QCOMPARE(found.attributes.size(), s.towns->GetFeature(7)->GetAttributes().size());
        QVERIFY(!found.attributes.empty());
    }

    void selectAll_data() {
        QTest::addColumn<HXMapCanvas::ViewMode>("mode");
        QTest::newRow("map view") << HXMapCanvas::MapViewMode;
        QTest::newRow("page: the operating frame's map") << HXMapCanvas::PageLayoutMode;
    }
    void selectAll() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        SampleCanvas s(mode);
        QTest::keyClick(&s.canvas, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(int(s.towns->GetSelectedIds().size()), s.towns->GetFeatureCount());
    }
};

QTEST_MAIN(TestCanvasToolsSample)
#include "tst_canvas_tools_sample.moc"
