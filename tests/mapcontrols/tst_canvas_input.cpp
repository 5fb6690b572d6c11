// Input routing: which view gets each mouse and key event with which button code, the host signals
// around the hand-over and their order, the middle-button cursor, the map position under the mouse,
// and the canvas's own key bindings in each view mode.
#include <QApplication>
#include <QSignalSpy>
#include <QtTest>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HORecordingTool.h"
#include "HOTestPrinters.h"
#include "HOTrackCancel.h"
#include "HXInputCanvas.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)
Q_DECLARE_METATYPE(QEvent::Type)
Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(HXObjects::HOMap*)
Q_DECLARE_METATYPE(HXObjects::HOTool*)
Q_DECLARE_METATYPE(QMouseEvent*)
Q_DECLARE_METATYPE(QKeyEvent*)

namespace {

const char* const kBoundTools[] = {
    "HXObjects::HOToolDeleteFeature", "HXObjects::HOToolDeleteElement", "HXObjects::HOCmdDeleteElement",
    "HXObjects::HOToolCopyElement",   "HXObjects::HOCmdCopyElement",    "HXObjects::HOToolPasteElement",
    "HXObjects::HOCmdPasteElement",   "HXObjects::HOToolCutElement",
};

void Send(QWidget& widget, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons, QPoint pos) {
    QMouseEvent event(type, pos, widget.mapToGlobal(pos), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

// Host signals go into the view's call list, so their order against the view's calls shows.
void RecordSignals(HXInputCanvas& fixture) {
    QStringList* log = &fixture.viewCalls();
    HXMapCanvas* canvas = &fixture.canvas;
    auto point = [](QPoint p) { return QString("%1,%2").arg(p.x()).arg(p.y()); };
    QObject::connect(canvas, &HXMapCanvas::sendLeftButtonClicked,
                     [=](QPoint p) { *log << "clicked " + point(p); });
    QObject::connect(canvas, &HXMapCanvas::sendLeftButtonRelease,
                     [=](QPoint p) { *log << "released " + point(p); });
    QObject::connect(canvas, &HXMapCanvas::sendLeftButtonDoubleClicked,
                     [=](QPoint p) { *log << "double clicked " + point(p); });
    QObject::connect(canvas, &HXMapCanvas::mousePressed,
                     [=](QMouseEvent*, int type) { *log << QString("mousePressed %1").arg(type); });
    QObject::connect(canvas, &HXMapCanvas::keyPressed, [=](QKeyEvent*) { *log << "keyPressed"; });
    QObject::connect(canvas, &HXMapCanvas::keyReleased, [=](QKeyEvent*) { *log << "keyReleased"; });
}

bool SendKey(QWidget& widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
             bool autoRepeat = false) {
    QKeyEvent event(type, key, modifiers, QString(), autoRepeat);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

}  // namespace

class TestCanvasInput : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void buttons_data();
    void buttons();
    void moveButtonCodes_data();
    void moveButtonCodes();
    void middleButtonCursor();
    void coordinatesOverMap_data();
    void coordinatesOverMap();
    void coordinatesOverPage_data();
    void coordinatesOverPage();
    void keyPress_data();
    void keyPress();
    void keysWhileButtonHeld();
    void keyRelease_data();
    void keyRelease();
    void escapeCancelsDrawing_data();
    void escapeCancelsDrawing();
    void editFeatureAfterSelection();
    void unboundKeys_data();
    void unboundKeys();
    void reservedModeReachesNoView();

private:
    std::vector<HORefPtr<HORecordingTool>> mTools;
};

void TestCanvasInput::initTestCase() {
    qRegisterMetaType<HOMap*>();
    qRegisterMetaType<HOTool*>();
    qRegisterMetaType<QMouseEvent*>();
    qRegisterMetaType<QKeyEvent*>();
    for (const char* name : kBoundTools) {
        mTools.emplace_back(new HORecordingTool(name));
        HOCMDPool::GetInstance()->RegisterTool(mTools.back());
    }
}

void TestCanvasInput::cleanupTestCase() {
    for (const char* name : kBoundTools) HOCMDPool::GetInstance()->UnregisterTool(name);
}

void TestCanvasInput::init() {
    for (auto& tool : mTools) tool->calls.clear();
    HOTool::selectFeatureNum = 0;
}

void TestCanvasInput::buttons_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QStringList>("calls");
    const auto map = HXMapCanvas::MapViewMode, page = HXMapCanvas::PageLayoutMode;
    const auto press = QEvent::MouseButtonPress, release = QEvent::MouseButtonRelease,
               twice = QEvent::MouseButtonDblClick;
    QTest::newRow("left press") << map << press << Qt::LeftButton
                                << QStringList{"clicked 10,20", "MouseDown 1 10 20", "mousePressed 1"};
    QTest::newRow("right press") << map << press << Qt::RightButton
                                 << QStringList{"MouseDown 2 10 20", "mousePressed 1"};
    QTest::newRow("middle press") << map << press << Qt::MiddleButton
                                  << QStringList{"MouseDown 3 10 20", "mousePressed 1"};
    QTest::newRow("back button press") << map << press << Qt::BackButton << QStringList{"mousePressed 1"};
    QTest::newRow("left press on a page")
        << page << press << Qt::LeftButton << QStringList{"MouseDown 1 10 20", "mousePressed 1"};
    QTest::newRow("left release") << map << release << Qt::LeftButton
                                  << QStringList{"released 10,20", "MouseUp 1 10 20"};
    QTest::newRow("left release on a page")
        << page << release << Qt::LeftButton << QStringList{"MouseUp 1 10 20"};
    QTest::newRow("right release") << map << release << Qt::RightButton << QStringList{"MouseUp 2 10 20"};
    QTest::newRow("middle release") << map << release << Qt::MiddleButton << QStringList{"MouseUp 3 10 20"};
    QTest::newRow("left double click")
        << map << twice << Qt::LeftButton
        << QStringList{"double clicked 10,20", "DoubleClick 1 10 20", "mousePressed 2"};
    QTest::newRow("left double click on a page")
        << page << twice << Qt::LeftButton << QStringList{"DoubleClick 1 10 20", "mousePressed 2"};
    QTest::newRow("right double click")
        << map << twice << Qt::RightButton << QStringList{"DoubleClick 2 10 20", "mousePressed 2"};
    QTest::newRow("middle double click") << map << twice << Qt::MiddleButton << QStringList{"mousePressed 2"};
}

void TestCanvasInput::buttons() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(QEvent::Type, type);
    QFETCH(Qt::MouseButton, button);
    QFETCH(QStringList, calls);
    HXInputCanvas fixture(mode);
    RecordSignals(fixture);
    Send(fixture.canvas, type, button,
         type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button), QPoint(10, 20));
    QCOMPARE(fixture.viewCalls(), calls);
    QApplication::restoreOverrideCursor();
}

void TestCanvasInput::moveButtonCodes_data() {
    QTest::addColumn<int>("held");
    QTest::addColumn<bool>("middlePressedBefore");
    QTest::addColumn<int>("code");
    QTest::newRow("no button") << 0 << false << 0;
    QTest::newRow("left") << int(Qt::LeftButton) << false << 1;
    QTest::newRow("left and right") << int(Qt::LeftButton | Qt::RightButton) << false << 1;
    QTest::newRow("right") << int(Qt::RightButton) << false << 2;
    QTest::newRow("right and middle") << int(Qt::RightButton | Qt::MiddleButton) << true << 2;
    QTest::newRow("middle, pressed on the canvas") << int(Qt::MiddleButton) << true << 3;
    QTest::newRow("middle, pressed elsewhere") << int(Qt::MiddleButton) << false << 0;
}

void TestCanvasInput::moveButtonCodes() {
    QFETCH(int, held);
    QFETCH(bool, middlePressedBefore);
    QFETCH(int, code);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    if (middlePressedBefore)
        Send(fixture.canvas, QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, {});
    fixture.map->calls.clear();
    Send(fixture.canvas, QEvent::MouseMove, Qt::NoButton, Qt::MouseButtons(held), QPoint(7, 8));
    QCOMPARE(fixture.map->calls, QStringList{QString("MouseMove %1 7 8").arg(code)});
    if (middlePressedBefore)
        Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, {});
}

void TestCanvasInput::middleButtonCursor() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    QVERIFY(!QApplication::overrideCursor());
    Send(fixture.canvas, QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, QPoint(5, 5));
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ClosedHandCursor);
    // A middle drag does not count as a held button: arrow keys still pan.
    const HORect before = fixture.map->extent;
    SendKey(fixture.canvas, QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QCOMPARE(fixture.map->extent.minx, before.minx + 100.0);
    Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, QPoint(5, 5));
    QVERIFY(!QApplication::overrideCursor());

    // Releasing Space also ends the closed hand; an auto-repeated release does not.
    Send(fixture.canvas, QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton, QPoint(5, 5));
    SendKey(fixture.canvas, QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, true);
    QVERIFY(QApplication::overrideCursor());
    SendKey(fixture.canvas, QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
    QVERIFY(!QApplication::overrideCursor());
    Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::MiddleButton, Qt::NoButton, QPoint(5, 5));
    QVERIFY(!QApplication::overrideCursor());
}

void TestCanvasInput::coordinatesOverMap_data() {
    QTest::addColumn<bool>("withMap");
    QTest::addColumn<bool>("withLayer");
    QTest::addColumn<QPointF>("expected");
    QTest::newRow("no map") << false << false << QPointF(30, 40);
    QTest::newRow("map without layers") << true << false << QPointF(30, 40);
    QTest::newRow("map with a layer") << true << true << QPointF(1000 + 30 * 2, 5000 - 40 * 2);
}

void TestCanvasInput::coordinatesOverMap() {
    QFETCH(bool, withMap);
    QFETCH(bool, withLayer);
    QFETCH(QPointF, expected);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    HORefPtr<HOMap> map = new HOMap();
    if (withLayer) map->AddLayer(HORefPtr<HOGraphicsLayer>(new HOGraphicsLayer()));
    if (withMap) fixture.map->SetMap(map);
    fixture.map->transform = HODisplayTransform{0, 0, 1000, 5000, 2};
    QSignalSpy spy(&fixture.canvas, &HXMapCanvas::xyCoordinates);
    Send(fixture.canvas, QEvent::MouseMove, Qt::NoButton, Qt::NoButton, QPoint(30, 40));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toPointF(), expected);
    QCOMPARE(spy.at(0).at(1).value<HOMap*>(), withMap ? map.get() : nullptr);
}

void TestCanvasInput::coordinatesOverPage_data() {
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QPointF>("expected");
    QTest::addColumn<int>("frame");
    // Page transform: page x = pixel x, page y = -pixel y. Frame 0 covers page x 0..100, frame 1
    // x 50..150, both y -100..0; frame 1 is listed last. A frame's pixels start at its left edge.
    QTest::newRow("empty paper") << QPoint(300, 50) << QPointF(300, 50) << -1;
    QTest::newRow("first frame only") << QPoint(20, 50) << QPointF(20 + 100, -50) << 0;
    QTest::newRow("overlap, last listed wins")
        << QPoint(70, 50) << QPointF((70 - 50) * 3 + 200, -50 * 3) << 1;
}

void TestCanvasInput::coordinatesOverPage() {
    QFETCH(QPoint, pixel);
    QFETCH(QPointF, expected);
    QFETCH(int, frame);
    HXInputCanvas fixture(HXMapCanvas::PageLayoutMode);
    fixture.layout->transform = HODisplayTransform{0, 0, 0, 0, 1};
    HOGraphicsContainer* container = fixture.layout->get_graphicscontainer();
    container->RemoveElement(fixture.frame);
    std::vector<HORefPtr<HOMap>> maps;
    const HODisplayTransform frameTransforms[] = {{0, 0, 100, 0, 1}, {0, 0, 200, 0, 3}};
    for (int i = 0; i < 2; ++i) {
        HORefPtr<HODataFrame> dataFrame = new HODataFrame();
        HORefPtr<HOInputRecordingMapView> view = new HOInputRecordingMapView();
        maps.emplace_back(new HOMap());
        view->SetMap(maps.back());
        view->transform = frameTransforms[i];
        dataFrame->set_off_x(50.0 * i);
        dataFrame->set_off_y(-100);
        dataFrame->set_map_view(view);
        container->AddElement(dataFrame);
    }
    QSignalSpy spy(&fixture.canvas, &HXMapCanvas::xyCoordinates);
    Send(fixture.canvas, QEvent::MouseMove, Qt::NoButton, Qt::NoButton, pixel);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toPointF(), expected);
    QCOMPARE(spy.at(0).at(1).value<HOMap*>(), frame < 0 ? nullptr : maps[frame].get());
}

void TestCanvasInput::keyPress_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("viewUsesKey");
    QTest::addColumn<HORect>("extent");        // of the map view afterwards
    QTest::addColumn<QPointF>("elementMove");  // of the selected page element
    QTest::addColumn<QString>("tool");         // installed afterwards
    QTest::addColumn<QStringList>("viewCalls");
    const auto map = HXMapCanvas::MapViewMode, page = HXMapCanvas::PageLayoutMode;
    const HORect start(0, 400, 0, 200);
    const QStringList none;
    QTest::newRow("left pans by a quarter")
        << map << int(Qt::Key_Left) << 0 << true << HORect(-100, 300, 0, 200) << QPointF() << "" << none;
    QTest::newRow("up") << map << int(Qt::Key_Up) << 0 << true << HORect(0, 400, 50, 250) << QPointF() << ""
                        << none;
    QTest::newRow("right, whatever the modifiers")
        << map << int(Qt::Key_Right) << int(Qt::ShiftModifier | Qt::AltModifier) << true
        << HORect(100, 500, 0, 200) << QPointF() << "" << none;
    QTest::newRow("down") << map << int(Qt::Key_Down) << 0 << false << HORect(0, 400, -50, 150) << QPointF()
                          << "" << none;
    QTest::newRow("left on a page moves elements")
        << page << int(Qt::Key_Left) << 0 << true << start << QPointF(-1, 0) << "" << none;
    QTest::newRow("up on a page") << page << int(Qt::Key_Up) << 0 << true << start << QPointF(0, 1) << ""
                                  << none;
    QTest::newRow("down on a page") << page << int(Qt::Key_Down) << 0 << true << start << QPointF(0, -1) << ""
                                    << none;
    QTest::newRow("right on a page") << page << int(Qt::Key_Right) << 0 << true << start << QPointF(1, 0)
                                     << "" << none;
    QTest::newRow("page up on a page")
        << page << int(Qt::Key_PageUp) << 0 << true << start << QPointF() << "" << QStringList{"ZoomIn"};
    QTest::newRow("page down zooms out")
        << map << int(Qt::Key_PageDown) << 0 << true << start << QPointF() << "" << QStringList{"ZoomOut"};
    QTest::newRow("page up zooms in")
        << map << int(Qt::Key_PageUp) << 0 << true << start << QPointF() << "" << QStringList{"ZoomIn"};
    QTest::newRow("page down on a page")
        << page << int(Qt::Key_PageDown) << 0 << true << start << QPointF() << "" << QStringList{"ZoomOut"};
    QTest::newRow("delete installs element deletion")
        << map << int(Qt::Key_Delete) << 0 << true << start << QPointF() << "HXObjects::HOToolDeleteElement"
        << QStringList{"SetCurrentTool HXObjects::HOToolDeleteFeature",
                       "SetCurrentTool HXObjects::HOToolDeleteElement"};
    QTest::newRow("delete the view used")
        << map << int(Qt::Key_Delete) << 0 << false << start << QPointF() << "" << none;
    QTest::newRow("delete on a page")
        << page << int(Qt::Key_Delete) << 0 << true << start << QPointF() << "HXObjects::HOCmdDeleteElement"
        << QStringList{"SetCurrentTool HXObjects::HOCmdDeleteElement"};
    QTest::newRow("space") << map << int(Qt::Key_Space) << 0 << true << start << QPointF() << "" << none;
}

void TestCanvasInput::keyPress() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, viewUsesKey);
    QFETCH(HORect, extent);
    QFETCH(QPointF, elementMove);
    QFETCH(QString, tool);
    QFETCH(QStringList, viewCalls);
    HXInputCanvas fixture(mode);
    RecordSignals(fixture);
    fixture.map->keyAnswer = viewUsesKey;
    fixture.layout->get_graphicscontainer()->SelectElement(fixture.frame, true);
    SendKey(fixture.canvas, QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));

    QCOMPARE(fixture.map->calls.first(), QString("KeyDown %1").arg(key, 0, 16));
    QCOMPARE(fixture.viewCalls().last(), QString("keyPressed"));
    QCOMPARE(fixture.viewCalls().filter(QRegExp("^(SetCurrentTool|Zoom)")), viewCalls);
    QCOMPARE(fixture.map->extent, extent);
    QCOMPARE(QPointF(fixture.frame->get_off_x(), fixture.frame->get_off_y()), elementMove);
    HOTool* installed = fixture.canvas.getMapTool();
    QCOMPARE(installed ? installed->GetClassName().toQString() : QString(), tool);
}

void TestCanvasInput::keysWhileButtonHeld() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    RecordSignals(fixture);
    Send(fixture.canvas, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, QPoint(1, 1));
    fixture.map->calls.clear();
    for (int key : {int(Qt::Key_Left), int(Qt::Key_Delete), int(Qt::Key_PageUp)})
        QVERIFY(SendKey(fixture.canvas, QEvent::KeyPress, key, Qt::NoModifier));
    QCOMPARE(fixture.map->calls, (QStringList{"KeyDown 1000012", "keyPressed", "KeyDown 1000007",
                                              "keyPressed", "KeyDown 1000016", "keyPressed"}));
    QCOMPARE(fixture.map->extent, HORect(0, 400, 0, 200));
    QVERIFY(!fixture.canvas.getMapTool());
    // Any release ends the hold.
    Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, QPoint(1, 1));
    SendKey(fixture.canvas, QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    QCOMPARE(fixture.map->extent, HORect(-100, 300, 0, 200));
}

void TestCanvasInput::keyRelease_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("tool");
    const auto map = HXMapCanvas::MapViewMode, page = HXMapCanvas::PageLayoutMode;
    const int control = Qt::ControlModifier;
    QTest::newRow("control C") << map << int(Qt::Key_C) << control << "HXObjects::HOToolCopyElement";
    QTest::newRow("control C on a page")
        << page << int(Qt::Key_C) << control << "HXObjects::HOCmdCopyElement";
    QTest::newRow("control shift C") << map << int(Qt::Key_C) << int(control | Qt::ShiftModifier) << "";
    QTest::newRow("control C from the keypad")
        << map << int(Qt::Key_C) << int(control | Qt::KeypadModifier) << "";
    QTest::newRow("C alone") << map << int(Qt::Key_C) << 0 << "";
    QTest::newRow("control V") << map << int(Qt::Key_V) << control << "HXObjects::HOToolPasteElement";
    QTest::newRow("control V on a page")
        << page << int(Qt::Key_V) << control << "HXObjects::HOCmdPasteElement";
    QTest::newRow("control alt V") << page << int(Qt::Key_V) << int(control | Qt::AltModifier) << "";
    QTest::newRow("control X") << map << int(Qt::Key_X) << control << "HXObjects::HOToolCutElement";
    QTest::newRow("control X on a page") << page << int(Qt::Key_X) << control << "";
}

void TestCanvasInput::keyRelease() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, tool);
    HXInputCanvas fixture(mode);
    RecordSignals(fixture);
    const bool accepted = SendKey(fixture.canvas, QEvent::KeyRelease, key, Qt::KeyboardModifiers(modifiers));
    HOTool* installed = fixture.canvas.getMapTool();
    QCOMPARE(installed ? installed->GetClassName().toQString() : QString(), tool);
    QCOMPARE(fixture.viewCalls().last(), QString("keyReleased"));
    // Keys without a binding are left to the parent while no tool is installed.
    QCOMPARE(accepted, !tool.isEmpty());
}

void TestCanvasInput::escapeCancelsDrawing_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::newRow("map view") << HXMapCanvas::MapViewMode;
    QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode;
}

void TestCanvasInput::escapeCancelsDrawing() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    HXInputCanvas fixture(mode);
    // In a page layout the canvas's own map view is the one cancelled.
    HOMapView* cancelled = mode == HXMapCanvas::MapViewMode ? fixture.map.get() : fixture.canvas.GetMapView();
    HOMapView* ownView = mode == HXMapCanvas::MapViewMode ? fixture.map.get() : nullptr;
    if (ownView) QVERIFY(!ownView->GetTrackCancel()->IsCancelled());
    QSignalSpy released(&fixture.canvas, &HXMapCanvas::keyReleased);
    SendKey(fixture.canvas, QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier);
    QCOMPARE(released.count(), 1);
    if (ownView) QVERIFY(cancelled->GetTrackCancel()->IsCancelled());
}

void TestCanvasInput::editFeatureAfterSelection() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    HORefPtr<HORecordingTool> editor = new HORecordingTool("CLASS hxobjects::HOToolEditAttributes");
    HORefPtr<HORecordingTool> plain = new HORecordingTool("HXObjects::HOToolEditAttributes");
    QSignalSpy spy(&fixture.canvas, &HXMapCanvas::EditFeature);
    fixture.canvas.setMapTool(editor);
    Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {});
    QCOMPARE(spy.count(), 0);  // nothing selected yet
    HOTool::selectFeatureNum = 3;
    Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {});
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(1).toBool(), true);
    QCOMPARE(spy.at(0).at(2).toInt(), 3);
    fixture.canvas.setMapTool(plain);
    Send(fixture.canvas, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {});
    QCOMPARE(spy.count(), 1);  // without "class " in front it is not the attribute editor
}

void TestCanvasInput::unboundKeys_data() {
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("withTool");
    QTest::addColumn<bool>("accepted");
    const auto press = QEvent::KeyPress, release = QEvent::KeyRelease;
    QTest::newRow("press F") << press << int(Qt::Key_F) << 0 << false << false;
    QTest::newRow("press F with a tool") << press << int(Qt::Key_F) << 0 << true << true;
    QTest::newRow("press A without control")
        << press << int(Qt::Key_A) << int(Qt::ShiftModifier) << false << false;
    QTest::newRow("press control A") << press << int(Qt::Key_A) << int(Qt::ControlModifier) << false << true;
    QTest::newRow("press every modifier")
        << press << int(Qt::Key_Z) << int(Qt::KeyboardModifierMask) << false << false;
    QTest::newRow("release F") << release << int(Qt::Key_F) << 0 << false << false;
    QTest::newRow("release F with a tool") << release << int(Qt::Key_F) << 0 << true << true;
    QTest::newRow("release space without a hand") << release << int(Qt::Key_Space) << 0 << false << false;
}

void TestCanvasInput::unboundKeys() {
    QFETCH(QEvent::Type, type);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, withTool);
    QFETCH(bool, accepted);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    HORefPtr<HORecordingTool> tool = new HORecordingTool("A");
    if (withTool) fixture.canvas.setMapTool(tool);
    QCOMPARE(SendKey(fixture.canvas, type, key, Qt::KeyboardModifiers(modifiers)), accepted);
    QCOMPARE(fixture.map->extent, HORect(0, 400, 0, 200));
}

void TestCanvasInput::reservedModeReachesNoView() {
    HXMapCanvas canvas(HXMapCanvas::ReservedMode, nullptr);
    HORefPtr<HOInputRecordingMapView> view = new HOInputRecordingMapView();
    canvas.SetMapView(view);
    view->calls.clear();
    QSignalSpy pressed(&canvas, &HXMapCanvas::mousePressed);
    QSignalSpy moved(&canvas, &HXMapCanvas::xyCoordinates);
    QSignalSpy keys(&canvas, &HXMapCanvas::keyPressed);
    Send(canvas, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, QPoint(3, 4));
    Send(canvas, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, QPoint(5, 6));
    Send(canvas, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, QPoint(5, 6));
    Send(canvas, QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, QPoint(5, 6));
    for (int key : {int(Qt::Key_Left), int(Qt::Key_PageUp), int(Qt::Key_Delete)})
        SendKey(canvas, QEvent::KeyPress, key, Qt::NoModifier);
    SendKey(canvas, QEvent::KeyRelease, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(view->calls.isEmpty());
    QCOMPARE(pressed.count(), 2);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(keys.count(), 3);
    QVERIFY(!canvas.getMapTool());
}

QTEST_MAIN(TestCanvasInput)
#include "tst_canvas_input.moc"
