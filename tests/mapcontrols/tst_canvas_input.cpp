// Input routing: which view gets each mouse and key event with which button code, the host signals
// around the hand-over and their order, the middle-button cursor, the map position under the mouse,
// and the canvas's own key bindings in each view mode.
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStatusBar>
#include <QtTest>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTrackCancel.h"
#include "HXInputCanvas.h"
#include "HXStatusBarCoordinatesWidget.h"
#include "HXStatusBarScaleWidget.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HXObjects::HOMap*)
Q_DECLARE_METATYPE(QEvent::Type)
Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

const auto kMap = HXMapCanvas::MapViewMode, kPage = HXMapCanvas::PageLayoutMode;
const auto kPress = QEvent::KeyPress, kRelease = QEvent::KeyRelease;
const HORect kStart(0, 400, 0, 200);  // the recording view's extent

// Host signals go into the view's call list, so their order against the view's calls shows.
void RecordSignals(HXInputCanvas& fixture) {
    QStringList* log = &fixture.viewCalls();
    HXMapCanvas* canvas = &fixture.canvas;
    auto at = [](QPoint p) { return QString(" %1,%2").arg(p.x()).arg(p.y()); };
    QObject::connect(canvas, &HXMapCanvas::sendLeftButtonClicked,
                     [=](QPoint p) { *log << "clicked" + at(p); });
    QObject::connect(canvas, &HXMapCanvas::sendLeftButtonRelease,
                     [=](QPoint p) { *log << "released" + at(p); });
    QObject::connect(canvas, &HXMapCanvas::sendLeftButtonDoubleClicked,
                     [=](QPoint p) { *log << "double clicked" + at(p); });
    QObject::connect(canvas, &HXMapCanvas::mousePressed,
                     [=](QMouseEvent*, int type) { *log << QString("mousePressed %1").arg(type); });
    QObject::connect(canvas, &HXMapCanvas::xyCoordinates, [=](QPointF p) { *log << "xy" + at(p.toPoint()); });
    QObject::connect(canvas, &HXMapCanvas::keyPressed, [=](QKeyEvent*) { *log << "keyPressed"; });
    QObject::connect(canvas, &HXMapCanvas::keyReleased, [=](QKeyEvent*) { *log << "keyReleased"; });
}

bool SendKey(QWidget& widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {},
             bool autoRepeat = false) {
    QKeyEvent event(type, key, modifiers, QString(), autoRepeat);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

}  // namespace

class TestCanvasInput : public QObject {
    Q_OBJECT

    std::vector<HORefPtr<HORecordingTool>> mTools;

private slots:
    void initTestCase() {
        qRegisterMetaType<HOMap*>();
        for (const char* name :
             {"HOToolDeleteFeature", "HOToolDeleteElement", "HOCmdDeleteElement", "HOToolCopyElement",
              "HOCmdCopyElement", "HOToolPasteElement", "HOCmdPasteElement", "HOToolCutElement"}) {
            mTools.emplace_back(new HORecordingTool(qPrintable(QString("HXObjects::") + name)));
            HOCMDPool::GetInstance()->RegisterTool(mTools.back());
        }
    }
    void cleanupTestCase() {
        for (auto& tool : mTools) HOCMDPool::GetInstance()->UnregisterTool(tool->GetClassName());
    }

    void buttons_data() {
        // calls: the view's calls and the host signals, in order
        HOAddColumns<HXMapCanvas::ViewMode, QEvent::Type, Qt::MouseButton, QString>(
            {"mode", "type", "button", "calls"});
        const auto press = QEvent::MouseButtonPress, release = QEvent::MouseButtonRelease,
                   twice = QEvent::MouseButtonDblClick;
        const auto left = Qt::LeftButton, right = Qt::RightButton, middle = Qt::MiddleButton;
        QTest::newRow("left press") << kMap << press << left
                                    << "clicked 3,4; MouseDown 1 3 4; mousePressed 1";
        QTest::newRow("right press") << kMap << press << right << "MouseDown 2 3 4; mousePressed 1";
        QTest::newRow("middle press") << kMap << press << middle << "MouseDown 3 3 4; mousePressed 1";
        QTest::newRow("back button press") << kMap << press << Qt::BackButton << "mousePressed 1";
        QTest::newRow("left press on a page") << kPage << press << left << "MouseDown 1 3 4; mousePressed 1";
        QTest::newRow("left press, reserved mode")
            << HXMapCanvas::ReservedMode << press << left << "mousePressed 1";
        QTest::newRow("left release") << kMap << release << left << "released 3,4; MouseUp 1 3 4";
        QTest::newRow("left release on a page") << kPage << release << left << "MouseUp 1 3 4";
        QTest::newRow("right release") << kMap << release << right << "MouseUp 2 3 4";
        QTest::newRow("middle release") << kMap << release << middle << "MouseUp 3 3 4";
        QTest::newRow("left double click")
            << kMap << twice << left << "double clicked 3,4; DoubleClick 1 3 4; mousePressed 2";
        QTest::newRow("left double click on a page")
            << kPage << twice << left << "DoubleClick 1 3 4; mousePressed 2";
        QTest::newRow("right double click") << kMap << twice << right << "DoubleClick 2 3 4; mousePressed 2";
        QTest::newRow("middle double click") << kMap << twice << middle << "mousePressed 2";
        QTest::newRow("move") << kMap << QEvent::MouseMove << Qt::NoButton << "xy 3,4; MouseMove 0 3 4";
        QTest::newRow("move, reserved mode")
            << HXMapCanvas::ReservedMode << QEvent::MouseMove << Qt::NoButton << "";
    }
    void buttons() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(QEvent::Type, type);
        QFETCH(Qt::MouseButton, button);
        HXInputCanvas fixture(mode);
        RecordSignals(fixture);
        fixture.mouse(type, button, type == QEvent::MouseButtonRelease ? Qt::NoButton : button, QPoint(3, 4));
        QTEST(fixture.viewCalls().join("; "), "calls");
        QApplication::restoreOverrideCursor();
    }

    void moveButtonCodes_data() {
        HOAddColumns<int, bool, int>({"held", "middlePressedBefore", "code"});
        QTest::newRow("no button") << 0 << false << 0;
        QTest::newRow("left") << int(Qt::LeftButton) << false << 1;
        QTest::newRow("left and right") << int(Qt::LeftButton | Qt::RightButton) << false << 1;
        QTest::newRow("right") << int(Qt::RightButton) << false << 2;
        QTest::newRow("right and middle") << int(Qt::RightButton | Qt::MiddleButton) << true << 2;
        QTest::newRow("middle, pressed on the canvas") << int(Qt::MiddleButton) << true << 3;
        QTest::newRow("middle, pressed elsewhere") << int(Qt::MiddleButton) << false << 0;
    }
    void moveButtonCodes() {
        QFETCH(int, held);
        QFETCH(bool, middlePressedBefore);
        QFETCH(int, code);
        HXInputCanvas fixture(kMap);
        if (middlePressedBefore)
            fixture.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, {});
        fixture.map->calls.clear();
        fixture.mouse(QEvent::MouseMove, Qt::NoButton, Qt::MouseButtons(held), QPoint(7, 8));
        QCOMPARE(fixture.map->calls, QStringList{QString("MouseMove %1 7 8").arg(code)});
        if (middlePressedBefore)
            fixture.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, {});
    }

    void middleButtonCursor() {
        HXInputCanvas fixture(kMap);
        QVERIFY(!QApplication::overrideCursor());
        fixture.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, {});
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ClosedHandCursor);
        // A middle drag does not count as a held button: arrow keys still pan.
        SendKey(fixture.canvas, kPress, Qt::Key_Right);
        QCOMPARE(fixture.map->extent.minx, kStart.minx + 100.0);
        fixture.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, {});
        QVERIFY(!QApplication::overrideCursor());
        // Releasing Space also ends the closed hand; an auto-repeated release does not.
        fixture.mouse(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, {});
        SendKey(fixture.canvas, kRelease, Qt::Key_Space, {}, true);
        QVERIFY(QApplication::overrideCursor());
        SendKey(fixture.canvas, kRelease, Qt::Key_Space);
        QVERIFY(!QApplication::overrideCursor());
        fixture.mouse(QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, {});
        QVERIFY(!QApplication::overrideCursor());
        // A double click's second release has no press of its own: the host's cursor stays.
        QApplication::setOverrideCursor(Qt::WaitCursor);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            const bool held = type != QEvent::MouseButtonRelease;
            fixture.mouse(type, Qt::MiddleButton, held ? Qt::MiddleButton : Qt::NoButton, {});
        }
        QVERIFY(QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor);
        QApplication::restoreOverrideCursor();
        QVERIFY(!QApplication::overrideCursor());
    }

    void statusBarInputStaysThere_data() {
        HOAddColumns<QString, QString>({"target", "input"});
        const auto row = [](const char* name, const char* target, const char* input) {
            QTest::newRow(name) << QString(target) << QString(input);
        };
        row("click on the scale label", "scale label", "click");
        row("double click on the unit label", "unit label", "double click");
        row("click on the bar", "bar", "click");
        row("wheel over the unit label", "unit label", "wheel");
        row("Up in the coordinates box", "coordinates", "Up");
        row("PageUp in the coordinates box", "coordinates", "PageUp");
        row("PageDown in the coordinates box", "coordinates", "PageDown");
        row("Ctrl+C in the coordinates box", "coordinates", "Ctrl+C");
    }

    // Input that the status bar's widgets leave unused reaches neither the view, nor the tool, nor
    // the canvas's key bindings and host signals.
    void statusBarInputStaysThere() {
        QFETCH(QString, target);
        QFETCH(QString, input);
        HXInputCanvas fixture(kMap);
        fixture.canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.canvas));
        HORefPtr<HORecordingTool> tool = new HORecordingTool("A");
        fixture.canvas.setMapTool(tool);
        fixture.map->calls.clear();
        RecordSignals(fixture);
        QStatusBar* bar = fixture.canvas.StatusBar();
        auto* coords = bar->findChild<HXStatusBarCoordinatesWidget*>();
        const QHash<QString, QWidget*> targets{
            {"scale label", bar->findChild<HXStatusBarScaleWidget*>()->mScaleLabel},
            {"unit label", coords->mLabelUnit},
            {"bar", bar},
            {"coordinates", coords->mLineEdit}};
        QWidget* widget = targets.value(target);
        HXMapCanvas::wheelEventSt = false;
        const QPoint middle = widget->rect().center();
        if (input == "click") QTest::mouseClick(widget, Qt::LeftButton, {}, middle);
        if (input == "double click") QTest::mouseDClick(widget, Qt::LeftButton, {}, middle);
        if (input == "wheel") {
            QWheelEvent wheel(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, 120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(widget, &wheel);
        }
        if (input == "Up") QTest::keyClick(widget, Qt::Key_Up);
        if (input == "PageUp") QTest::keyClick(widget, Qt::Key_PageUp);
        if (input == "PageDown") QTest::keyClick(widget, Qt::Key_PageDown);
        if (input == "Ctrl+C") QTest::keyClick(widget, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(fixture.map->calls, QStringList());
        QVERIFY(!HXMapCanvas::wheelEventSt);
        QCOMPARE(fixture.map->extent, kStart);
        QCOMPARE(fixture.canvas.getMapTool(), static_cast<HOTool*>(tool.get()));
        QCOMPARE(tool->calls, (QStringList{"SetToolBuddy", "SetToolBuddy", "Activate"}));
    }

    // The map position under the mouse and the map it lies in. On the map view the transform maps
    // pixel (x, y) to (1000 + 2x, 5000 - 2y). On a page, page x = pixel x and page y = -pixel y; frame 0
    // covers page x 0..100, frame 1 (listed last) x 50..150, both y -100..0, each with its own transform.
    void coordinates_data() {
        // layers: of the map view's map; -1: no map
        // map: which map is reported; -1: none
        HOAddColumns<HXMapCanvas::ViewMode, int, QPoint, QPointF, int>(
            {"mode", "layers", "pixel", "expected", "map"});
        QTest::newRow("no map") << kMap << -1 << QPoint(30, 40) << QPointF(30, 40) << -1;
        QTest::newRow("map without layers") << kMap << 0 << QPoint(30, 40) << QPointF(30, 40) << 0;
        QTest::newRow("map with a layer") << kMap << 1 << QPoint(30, 40) << QPointF(1060, 4920) << 0;
        QTest::newRow("empty paper") << kPage << 0 << QPoint(300, 50) << QPointF(300, 50) << -1;
        QTest::newRow("first frame only") << kPage << 0 << QPoint(20, 50) << QPointF(20 + 100, -50) << 0;
        QTest::newRow("overlap, last listed wins")
            << kPage << 0 << QPoint(70, 50) << QPointF(20 * 3 + 200, -150) << 1;
    }
    void coordinates() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(int, layers);
        QFETCH(QPoint, pixel);
        QFETCH(int, map);
        HXInputCanvas fixture(mode);
        std::vector<HORefPtr<HOMap>> maps{new HOMap(), new HOMap()};
        if (layers > 0) maps[0]->AddLayer(HORefPtr<HOGraphicsLayer>(new HOGraphicsLayer()));
        if (mode == kMap && layers >= 0) fixture.map->SetMap(maps[0]);
        fixture.map->transform = HODisplayTransform{0, 0, 1000, 5000, 2};
        fixture.layout->transform = HODisplayTransform{0, 0, 0, 0, 1};
        HOGraphicsContainer* container = fixture.layout->get_graphicscontainer();
        container->RemoveElement(fixture.frame);
        const HODisplayTransform frameTransforms[] = {{0, 0, 100, 0, 1}, {0, 0, 200, 0, 3}};
        for (int i = 0; i < 2 && mode == kPage; ++i) {
            HORefPtr<HODataFrame> dataFrame = new HODataFrame();
            HORefPtr<HOInputRecordingMapView> view = new HOInputRecordingMapView();
            view->SetMap(maps[i]);
            view->transform = frameTransforms[i];
            dataFrame->set_off_x(50.0 * i);
            dataFrame->set_off_y(-100);
            dataFrame->set_map_view(view);
            container->AddElement(dataFrame);
        }
        QSignalSpy spy(&fixture.canvas, &HXMapCanvas::xyCoordinates);
        fixture.mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, pixel);
        QCOMPARE(spy.count(), 1);
        QTEST(spy.at(0).at(0).toPointF(), "expected");
        QCOMPARE(spy.at(0).at(1).value<HOMap*>(), map < 0 ? nullptr : maps[map].get());
    }

    // Each key's effect, in each mode: tools installed, zooms, the map's new extent, the selected page
    // element's move, whether the event was left to the parent, and the Escape cancelling the drawing.
    void keys_data() {
        HOAddColumns<HXMapCanvas::ViewMode, QEvent::Type, int, int, QString, bool, bool>(
            {"mode", "type", "key", "modifiers", "effects", "viewUsesKey", "withTool"});
        auto row = [](const char* name, HXMapCanvas::ViewMode mode, QEvent::Type type, int key, int modifiers,
                      const char* effects, bool viewUsesKey = true, bool withTool = false) {
            QTest::newRow(name) << mode << type << key << modifiers << effects << viewUsesKey << withTool;
        };
        const int ctrl = Qt::ControlModifier;
        row("left pans by a quarter", kMap, kPress, Qt::Key_Left, 0, "extent -100 300 0 200");
        row("up", kMap, kPress, Qt::Key_Up, 0, "extent 0 400 50 250");
        row("right, whatever the modifiers", kMap, kPress, Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier,
            "extent 100 500 0 200");
        row("down, though the view used the key", kMap, kPress, Qt::Key_Down, 0, "extent 0 400 -50 150",
            false);
        row("left on a page moves elements", kPage, kPress, Qt::Key_Left, 0, "element -1 0");
        row("up on a page", kPage, kPress, Qt::Key_Up, 0, "element 0 1");
        row("down on a page", kPage, kPress, Qt::Key_Down, 0, "element 0 -1");
        row("right on a page", kPage, kPress, Qt::Key_Right, 0, "element 1 0");
        row("arrow in reserved mode", HXMapCanvas::ReservedMode, kPress, Qt::Key_Left, 0, "");
        row("page up zooms in", kMap, kPress, Qt::Key_PageUp, 0, "ZoomIn");
        row("page down zooms out", kMap, kPress, Qt::Key_PageDown, 0, "ZoomOut");
        row("page up on a page", kPage, kPress, Qt::Key_PageUp, 0, "ZoomIn");
        row("page down on a page", kPage, kPress, Qt::Key_PageDown, 0, "ZoomOut");
        row("delete installs element deletion", kMap, kPress, Qt::Key_Delete, 0,
            "SetCurrentTool HOToolDeleteFeature; SetCurrentTool HOToolDeleteElement");
        row("delete the view used", kMap, kPress, Qt::Key_Delete, 0, "", false);
        row("delete on a page", kPage, kPress, Qt::Key_Delete, 0, "SetCurrentTool HOCmdDeleteElement");
        row("space", kMap, kPress, Qt::Key_Space, 0, "");
        row("unbound key without a tool", kMap, kPress, Qt::Key_F, 0, "ignored");
        row("unbound key with a tool", kMap, kPress, Qt::Key_F, 0, "", true, true);
        row("control A", kMap, kPress, Qt::Key_A, ctrl, "");
        row("A without control", kMap, kPress, Qt::Key_A, Qt::ShiftModifier, "ignored");
        row("every modifier", kMap, kPress, Qt::Key_Z, Qt::KeyboardModifierMask, "ignored");
        row("control C", kMap, kRelease, Qt::Key_C, ctrl, "SetCurrentTool HOToolCopyElement");
        row("control C on a page", kPage, kRelease, Qt::Key_C, ctrl, "SetCurrentTool HOCmdCopyElement");
        row("control shift C", kMap, kRelease, Qt::Key_C, ctrl | Qt::ShiftModifier, "ignored");
        row("control C from the keypad", kMap, kRelease, Qt::Key_C, ctrl | Qt::KeypadModifier, "ignored");
        row("C alone", kMap, kRelease, Qt::Key_C, 0, "ignored");
        row("control V", kMap, kRelease, Qt::Key_V, ctrl, "SetCurrentTool HOToolPasteElement");
        row("control V on a page", kPage, kRelease, Qt::Key_V, ctrl, "SetCurrentTool HOCmdPasteElement");
        row("control alt V", kPage, kRelease, Qt::Key_V, ctrl | Qt::AltModifier, "ignored");
        row("control C in reserved mode", HXMapCanvas::ReservedMode, kRelease, Qt::Key_C, ctrl, "");
        row("control X", kMap, kRelease, Qt::Key_X, ctrl, "SetCurrentTool HOToolCutElement");
        row("control X on a page does nothing", kPage, kRelease, Qt::Key_X, ctrl, "ignored");
        row("release without a tool", kMap, kRelease, Qt::Key_F, 0, "ignored");
        row("release with a tool", kMap, kRelease, Qt::Key_F, 0, "", true, true);
        row("space release without a hand", kMap, kRelease, Qt::Key_Space, 0, "ignored");
        row("escape cancels the drawing", kMap, kRelease, Qt::Key_Escape, 0, "cancelled");
    }
    void keys() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(QEvent::Type, type);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(bool, viewUsesKey);
        QFETCH(bool, withTool);
        HXInputCanvas fixture(mode);
        HORefPtr<HORecordingTool> tool = new HORecordingTool("A");
        if (withTool) fixture.canvas.setMapTool(tool);
        fixture.viewCalls().clear();
        RecordSignals(fixture);
        fixture.map->keyAnswer = viewUsesKey;
        fixture.layout->get_graphicscontainer()->SelectElement(fixture.frame, true);
        const bool accepted = SendKey(fixture.canvas, type, key, Qt::KeyboardModifiers(modifiers));

        // The view (its tool) sees a pressed key first; the host hears of it last.
        const bool viewSees = type == kPress && mode != HXMapCanvas::ReservedMode;
        QCOMPARE(fixture.map->calls.indexOf(QString("KeyDown %1").arg(key, 0, 16)), viewSees ? 0 : -1);
        QCOMPARE(fixture.viewCalls().last(), QString(type == kPress ? "keyPressed" : "keyReleased"));
        QStringList seen = fixture.viewCalls().filter(QRegExp("^(SetCurrentTool|Zoom)"));
        seen.replaceInStrings("HXObjects::", "");
        const HORect& e = fixture.map->extent;
        if (!(e == kStart))
            seen << QString("extent %1 %2 %3 %4").arg(e.minx).arg(e.maxx).arg(e.miny).arg(e.maxy);
        if (fixture.frame->get_off_x() != 0 || fixture.frame->get_off_y() != 0)
            seen << QString("element %1 %2").arg(fixture.frame->get_off_x()).arg(fixture.frame->get_off_y());
        if (!accepted) seen << "ignored";
        if (fixture.map->GetTrackCancel()->IsCancelled()) seen << "cancelled";
        QTEST(seen.join("; "), "effects");
    }

    void keysWhileButtonHeld() {
        HXInputCanvas fixture(kMap);
        RecordSignals(fixture);
        fixture.mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, {});
        fixture.map->calls.clear();
        for (int key : {int(Qt::Key_Left), int(Qt::Key_Delete), int(Qt::Key_PageUp)})
            QVERIFY(SendKey(fixture.canvas, kPress, key));
        QCOMPARE(fixture.map->calls.join("; "),
                 "KeyDown 1000012; keyPressed; KeyDown 1000007; keyPressed; KeyDown 1000016; keyPressed");
        QCOMPARE(fixture.map->extent, kStart);
        // Any release ends the hold.
        fixture.mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, {});
        SendKey(fixture.canvas, kPress, Qt::Key_Left);
        QCOMPARE(fixture.map->extent, HORect(-100, 300, 0, 200));
    }

    void editFeatureAfterSelection() {
        HXInputCanvas fixture(kMap);
        HORefPtr<HORecordingTool> editor = new HORecordingTool("CLASS hxobjects::HOToolEditAttributes");
        HORefPtr<HORecordingTool> plain = new HORecordingTool("HXObjects::HOToolEditAttributes");
        QSignalSpy spy(&fixture.canvas, &HXMapCanvas::EditFeature);
        fixture.canvas.setMapTool(editor);
        HOTool::selectFeatureNum = 0;
        fixture.mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {});
        QCOMPARE(spy.count(), 0);  // nothing selected yet
        HOTool::selectFeatureNum = 3;
        fixture.mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {});
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(1).toBool(), true);
        QCOMPARE(spy.at(0).at(2).toInt(), 3);
        fixture.canvas.setMapTool(plain);  // without "class " in front it is not the attribute editor
        fixture.mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {});
        QCOMPARE(spy.count(), 1);
        HOTool::selectFeatureNum = 0;
    }
};

QTEST_MAIN(TestCanvasInput)
#include "tst_canvas_input.moc"
