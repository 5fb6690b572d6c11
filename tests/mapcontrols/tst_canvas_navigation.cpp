// The canvas between its host and its views: which view operations magnifying, zooms, recentring,
// the wheel, resizing, the render toggle and the scale update reach in each mode, with the host's
// signals; and setting extents.
#include <QLineEdit>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>
#include <functional>

#include "HODataFrame.h"
#include "HOMap.h"
#include "HORecordingView.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarCoordinatesWidget.h"

using namespace HXObjects;
Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

namespace {

// A canvas of a given mode whose views record the calls made of them. In page-layout mode the
// recording layout shows the recording map view in its operating data frame.
struct RecordingCanvas {
    explicit RecordingCanvas(HXMapCanvas::ViewMode mode) : canvas(mode, nullptr) {
        if (mode == HXMapCanvas::PageLayoutMode) {
            HORefPtr<HODataFrame> frame = new HODataFrame();
            frame->set_map_view(map);
            layout->set_operating_data_frame(frame);
            canvas.SetPageLayoutView(layout);
        } else {
            canvas.SetMapView(map);
        }
        map->clearCalls();
        layout->clearCalls();
    }

    HORefPtr<HORecordingMapView> map = new HORecordingMapView();
    HORefPtr<HORecordingPageLayoutView> layout = new HORecordingPageLayoutView();
    HXMapCanvas canvas;
};

QString IconName(const QIcon& icon) {
    const QImage image = icon.pixmap(16, 16).toImage();
    if (image == QIcon(":/icon/res/main/stop.png").pixmap(16, 16).toImage()) return "stop icon";
    return image == QIcon(":/icon/res/main/refresh.png").pixmap(16, 16).toImage() ? "refresh icon"
                                                                                  : "other icon";
}

// Runs one step of a row on the canvas ("map scale 0": the name, then its numbers); the steps that
// read something write it to the log.
void Run(RecordingCanvas& f, const QString& step, QStringList& log) {
    HXMapCanvas& canvas = f.canvas;
    QStringList name = step.split(' ');
    const QStringList word = name;
    bool number = false;
    while (!name.isEmpty() && (name.last().toDouble(&number), number)) name.removeLast();
    const HOPoint at(10, 20);
    const auto shown = [&] {
        log << "shown " + QString::number(1.0 / canvas.StatusBar()->findChild<HXScaleComboBox*>()->scale());
    };
    QToolButton* toggle = nullptr;
    for (auto* button : canvas.StatusBar()->findChildren<QToolButton*>())
        if (button->toolTip() == "Toggles pause refresh and continue") toggle = button;
    const auto toggleTo = [&](bool on) {
        toggle->setChecked(on);
        log << IconName(toggle->icon());
    };
    const QHash<QString, std::function<void()>> steps{
        {"locked", [&] { canvas.setScaleLocked(true); }},
        {"magnify", [&] { canvas.setMagnificationFactor(word[1].toDouble()); }},
        {"factor", [&] { log << QString("factor %1").arg(canvas.magnificationFactor()); }},
        {"unframed", [&] { f.layout->set_operating_data_frame(nullptr); }},
        {"flag on", [] { HXMapCanvas::wheelEventSt = true; }},
        {"map scale", [&] { f.map->scale = word[2].toDouble(); }},
        {"layout scale", [&] { f.layout->scale = word[2].toDouble(); }},
        {"zoomByFactor", [&] { canvas.zoomByFactor(2.0); }},
        {"zoomByFactor at", [&] { canvas.zoomByFactor(2.0, &at); }},
        {"zoomScale", [&] { canvas.zoomScale(word.value(1, "100000").toDouble()); }},
        {"zoomIn", [&] { canvas.zoomIn(); }},
        {"zoomOut", [&] { canvas.zoomOut(); }},
        {"setCenter", [&] { canvas.setCenter(HOPoint(1000, 1000)); }},
        {"refresh", [&] { canvas.refresh(); }},
        {"updateScale", [&] { canvas.updateScale(), shown(); }},
        {"ScaleChanged", [&] { canvas.ScaleChanged(), shown(); }},
        {"toggle on", [&] { toggleTo(true); }},
        {"toggle off", [&] { toggleTo(false); }},
        {"getters",
         [&] {
             const HORect e = canvas.extent();
             log << QString("extent %1 %2 %3 %4").arg(e.minx).arg(e.maxx).arg(e.miny).arg(e.maxy)
                 << QString("scale %1").arg(canvas.scale()) << QString("centre x %1").arg(canvas.center().x);
         }},
        {"wheel",
         [&] {
             const QPoint pos(30, 40);
             QWheelEvent event(pos, canvas.mapToGlobal(pos), QPoint(), QPoint(0, -120), Qt::NoButton,
                               Qt::NoModifier, Qt::NoScrollPhase, false);
             QCoreApplication::sendEvent(&canvas, &event);
             log << QString("flag %1").arg(HXMapCanvas::wheelEventSt);
         }},
        {"resize",
         [&] {
             QResizeEvent event(QSize(word[1].toInt(), word[2].toInt()), QSize(640, 480));
             QCoreApplication::sendEvent(canvas.findChild<HXMapWidget*>(), &event);
             const QSize output = canvas.mapSettings().outputSize();
             log << QString("output %1 %2").arg(output.width()).arg(output.height());
         }},
    };
    const auto run = steps.value(name.join(' '));
    QVERIFY2(run, qPrintable("unknown step " + step));
    run();
}

// A shown canvas whose own map view shows (0, 400) x (0, 300) of a map with one layer.
struct RealCanvas {
    RealCanvas() : canvas(HXMapCanvas::MapViewMode, nullptr) {
        canvas.setWindowState(Qt::WindowNoState);
        canvas.resize(400, 325);
        canvas.show();
        map->AddLayer(new HOTestRectLayer(HORect(0, 200, 0, 150), Qt::red));
        canvas.GetMapView()->SetMap(map);
        canvas.setExtent(HORect(0, 400, 0, 300));
    }
    ~RealCanvas() { canvas.GetMapView()->StopRender(true); }
    QLineEdit* coordinates() {
        return canvas.StatusBar()->findChild<HXStatusBarCoordinatesWidget*>()->mLineEdit;
    }
    HXScaleComboBox* scaleBox() { return canvas.StatusBar()->findChild<HXScaleComboBox*>(); }
    // Types the text into a box over what it holds, and presses Return.
    static void type(QLineEdit* box, const QString& text) {
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
    }

    HORefPtr<HOMap> map = new HOMap();
    HXMapCanvas canvas;
};

}  // namespace

class TestCanvasNavigation : public QObject {
    Q_OBJECT

private slots:
    // Each row's steps run in order (", " between them). The map view's calls come first in the
    // expected list ("map …"), then the layout's ("layout …"), then the host signals and what the
    // steps read, in order. The map view has scale 50000, extent (0, 400, 0, 200) and centre (200,
    // 100); the layout scale 25, extent (0, 80, 0, 60).
    void viewCalls_data() {
        HOAddColumns<HXMapCanvas::ViewMode, QString, QStringList>({"mode", "steps", "expected"});
        const auto map = HXMapCanvas::MapViewMode, layout = HXMapCanvas::PageLayoutMode;
        const auto reserved = HXMapCanvas::ReservedMode;
        const auto row = [](const char* name, HXMapCanvas::ViewMode mode, const char* steps,
                            QStringList expected) {
            QTest::newRow(name) << mode << QString(steps) << expected;
        };
        // Magnification stays within 0.1 … 16 and ignores changes within a hundredth, lopsidedly: a
        // decrease of exactly a hundredth is applied, an increase is not.
        row("magnify: above the limit", map, "magnify 100, factor", {"magnification 16", "factor 16"});
        row("magnify: zero", map, "magnify 0, factor", {"magnification 0.1", "factor 0.1"});
        row("magnify: not a number", map, "magnify nan, factor", {"factor 1"});
        row("magnify: up by exactly a hundredth", map, "magnify 1.01, factor", {"factor 1"});
        row("magnify: down by exactly a hundredth", map, "magnify 0.99, factor",
            {"magnification 0.99", "factor 0.99"});
        row("magnify: up by just over a hundredth", map, "magnify 1.0101, factor",
            {"magnification 1.0101", "factor 1.0101"});
        row("magnify: down by just under a hundredth", map, "magnify 0.9901, factor", {"factor 1"});
        row("magnify: clamped into the tolerance", map, "magnify 15.995, magnify 20, factor",
            {"magnification 15.995", "factor 15.995"});
        row("magnify: a hundredth down from the bottom", map, "magnify 0.11, magnify 0.1, factor",
            {"magnification 0.11", "magnification 0.1", "factor 0.1"});
        row("magnify: a hundredth up from two", map, "magnify 2, magnify 2.01, factor",
            {"magnification 2", "factor 2"});
        row("map: by factor", map, "zoomByFactor", {"map ZoomByFactor 2"});
        row("map: by factor at a point", map, "zoomByFactor at", {"map ZoomByFactor 2 at 10,20"});
        row("map: by factor, locked", map, "locked, zoomByFactor", {"magnification 0.5"});
        row("map: to a scale", map, "zoomScale", {"map ZoomByFactor 2"});
        row("map: to a scale, locked", map, "locked, zoomScale", {"magnification 0.5"});
        row("map: in, locked", map, "locked, zoomIn", {"map ZoomIn"});
        row("map: out", map, "zoomOut", {"map ZoomOut"});
        // A zero scale, the view's or the target's, gives no ratio to zoom or magnify by.
        row("map: from scale zero", map, "map scale 0, zoomScale 5000", {});
        row("map: from scale zero, locked", map, "map scale 0, locked, zoomScale 5000", {});
        row("map: to scale zero, locked", map, "locked, zoomScale 0", {});
        row("layout: by factor", layout, "zoomByFactor", {"layout ZoomByFactor 2"});
        row("layout: to a scale, locked", layout, "locked, zoomScale", {"layout SetScale 100000"});
        row("layout: in", layout, "zoomIn", {"layout ZoomIn"});
        row("layout: out", layout, "zoomOut", {"layout ZoomOut"});
        row("reserved: by factor", reserved, "zoomByFactor", {});
        row("reserved: to a scale", reserved, "zoomScale", {});
        // extent() always asks the map, scale() and center() the view of the mode.
        row("map: getters", map, "getters", {"extent 0 400 0 200", "scale 50000", "centre x 200"});
        row("layout: getters", layout, "getters", {"extent 0 400 0 200", "scale 25", "centre x 200"});
        row("reserved: getters", reserved, "getters", {"extent 0 0 0 0", "scale 1", "centre x 0"});
        row("map: centre", map, "setCenter", {"map SetExtent 800 1200 900 1100", "extents"});
        // Recentred on the layout's own extent, handed to the layout.
        row("layout: centre", layout, "setCenter", {"layout SetExtent 960 1040 970 1030", "extents"});
        row("reserved: centre", reserved, "setCenter", {});
        row("map: wheel", map, "wheel", {"map Wheel 0 -120 30 40", "flag 1"});
        row("layout: wheel", layout, "wheel", {"layout Wheel 0 -120 30 40", "flag 1"});
        // With no map view the handler returns before it touches the flag.
        row("layout without a map: wheel", layout, "unframed, flag on, wheel", {"flag 1"});
        row("reserved: wheel", reserved, "flag on, wheel", {"flag 1"});
        row("map: resize", map, "resize 300 200",
            {"map SetSize 300x200", "map ResizeRefresh 200", "extents", "output 300 200"});
        row("map: resize, no width", map, "resize 0 200", {"output 0 200"});
        row("map: resize, no height", map, "resize 300 0", {"output 300 0"});
        row("layout: resize", layout, "resize 300 200",
            {"layout SetSize 300x200", "layout RefreshView 1", "extents", "output 300 200"});
        row("layout: resize, empty", layout, "resize 0 0", {"output 0 0"});
        row("reserved: resize", reserved, "resize 300 200", {"extents", "output 300 200"});
        row("map: toggle", map, "toggle on, toggle off",
            {"map PauseRender", "map ResumeRender", "map RefreshView 0", "stop icon", "refresh icon"});
        row("layout: toggle, refresh", layout, "toggle on, toggle off, refresh",
            {"layout RefreshView 1", "stop icon", "refresh icon"});
        row("reserved: toggle, refresh", reserved, "toggle on, toggle off, refresh",
            {"stop icon", "refresh icon"});
        row("map: scale update", map, "updateScale", {"extents", "shown 50000"});
        row("map: scale update at zero", map, "map scale 0, updateScale", {"shown 1"});
        // ScaleChanged() updates the box without telling the host, and leaves the signals working.
        row("map: scale changed", map, "map scale 2000, ScaleChanged, updateScale",
            {"shown 2000", "extents", "shown 2000"});
        row("layout: scale update", layout, "updateScale", {"extents", "shown 25"});
        row("layout: scale update at zero", layout, "layout scale 0, updateScale", {"shown 1"});
        row("reserved: scale update", reserved, "updateScale", {"shown 1"});
    }

    void viewCalls() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(QString, steps);
        RecordingCanvas fixture(mode);
        fixture.layout->extent = HORect(0, 80, 0, 60);
        fixture.layout->scale = 25.0;
        HXMapCanvas::wheelEventSt = false;
        QStringList log;
        connect(&fixture.canvas, &HXMapCanvas::extentsChanged, this, [&] { log << "extents"; });
        connect(&fixture.canvas, &HXMapCanvas::magnificationChanged, this,
                [&](double m) { log << QString("magnification %1").arg(m); });
        connect(&fixture.canvas, &HXMapCanvas::mapCanvasRefreshed, this, [&] { log << "refreshed"; });
        for (const QString& step : steps.split(", ")) Run(fixture, step, log);
        QStringList calls;
        for (const QString& call : fixture.map->calls()) calls << "map " + call;
        for (const QString& call : fixture.layout->calls()) calls << "layout " + call;
        QTEST(calls + log, "expected");
    }

    void refusedNavigation_data() {
        QTest::addColumn<QString>("step");
        // Typed after an accepted centre: far out the extent's size is lost in rounding, and
        // infinities and NaN have no place at all.
        for (const char* text : {"1e308, 1e308", "-1e308, 1e308", "1e300, 5", "inf, 0", "nan, nan"})
            QTest::newRow(qPrintable(QString("centre %1").arg(text))) << QString("centre ") + text;
        QTest::newRow("scale box 0") << "scale 0";
        QTest::newRow("extent with NaN") << "extent nan";
        QTest::newRow("infinite extent") << "extent inf";
        QTest::newRow("factor 0") << "factor 0";
        QTest::newRow("negative factor") << "factor -2";
        QTest::newRow("infinite factor") << "factor inf";
        QTest::newRow("NaN factor") << "factor nan";
        QTest::newRow("factor about a NaN point") << "factor about nan";
        QTest::newRow("scale NaN") << "zoomScale nan";
    }

    // Nothing moves, the host hears of no change and the scale box shows the scale the map has.
    void refusedNavigation() {
        QFETCH(QString, step);
        RealCanvas f;
        RealCanvas::type(f.coordinates(), "1000, 1000");
        const HORect accepted = f.canvas.extent();
        QCOMPARE(accepted.Center(), HOPoint(1000, 1000));
        QSignalSpy extents(&f.canvas, &HXMapCanvas::extentsChanged);
        const double nan = qQNaN(), inf = qInf();
        const HOPoint nowhere(nan, 0);
        const QString argument = step.section(' ', 1);
        if (step.startsWith("centre")) RealCanvas::type(f.coordinates(), argument);
        if (step == "scale 0") RealCanvas::type(f.scaleBox()->lineEdit(), "0");
        if (step == "extent nan") f.canvas.setExtent(HORect(0, nan, 0, 10), true);
        if (step == "extent inf") f.canvas.setExtent(HORect(-inf, inf, -inf, inf), true);
        if (step.startsWith("factor ") && step != "factor about nan")
            f.canvas.zoomByFactor(argument.toDouble());
        if (step == "factor about nan") f.canvas.zoomByFactor(0.5, &nowhere);
        if (step == "zoomScale nan") f.canvas.zoomScale(nan);
        QVERIFY(f.canvas.extent() == accepted && extents.count() == 0);
        QCOMPARE(f.scaleBox()->currentText(), HXScaleComboBox::toString(1.0 / f.canvas.scale()));
    }

    // A view given by SetMapView tells the canvas of its scale through the tool buddy.
    void replacedViewReachesTheScaleBox() {
        RealCanvas f;
        HORefPtr<HOMapView> second = new HOMapView();
        second->SetMap(f.map);
        f.canvas.SetMapView(second);
        second->ZoomByFactor(0.25, nullptr);
        second->StopRender(true);
        QCOMPARE(qRound(1.0 / f.scaleBox()->scale()), qRound(second->GetScale()));
        QCOMPARE(f.scaleBox()->currentText(), HXScaleComboBox::toString(1.0 / second->GetScale()));
    }

    void setExtent() {
        RecordingCanvas fixture(HXMapCanvas::MapViewMode);
        QSignalSpy extents(&fixture.canvas, &HXMapCanvas::extentsChanged);
        fixture.canvas.setExtent(fixture.map->extent, false);
        // Without valid settings an empty extent is dropped.
        fixture.canvas.setExtent(HORect(), false);
        QVERIFY(extents.count() == 0 && fixture.map->calls().isEmpty());
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
};

QTEST_MAIN(TestCanvasNavigation)
#include "tst_canvas_navigation.moc"
