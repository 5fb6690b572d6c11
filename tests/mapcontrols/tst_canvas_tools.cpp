// The canvas as tool host: installing, reinstalling and removing tools in each view mode, the
// digitising flags, the cursor table, and the queries tools make of their buddy.
#include <QAction>
#include <QBitmap>
#include <QSignalSpy>
#include <QtTest>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HORecordingCommandControl.h"
#include "HORecordingTool.h"
#include "HOTestPrinters.h"
#include "HXInputCanvas.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)
Q_DECLARE_METATYPE(HXObjects::HOTool*)
Q_DECLARE_METATYPE(HXObjects::HOLayer*)

namespace {

using ToolRef = HORefPtr<HORecordingTool>;

// The new-path option the canvas stores for a StartNewPath request, by digitising kind.
QString NewPathOptions(HXMapCanvas& canvas) {
    return QString("polygon %1 line %2 feature %3")
        .arg(canvas.getNewPathOption_Polygon())
        .arg(canvas.getNewPathOption_Line())
        .arg(canvas.getNewPathOption_AddFeature());
}

}  // namespace

class TestCanvasTools : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void installCalls_data();
    void installCalls();
    void oneShotStaysOutOfTheView();
    void removal_data();
    void removal();
    void installByName_data();
    void installByName();
    void layoutGetsTheTool();
    void installFocusesCommandLine();
    void digitisingFlags_data();
    void digitisingFlags();
    void cursorTable_data();
    void cursorTable();
    void cursorPositionOutsideTheCanvas();
    void keyboardModifiers_data();
    void keyboardModifiers();
    void buddyNotifications();
    void builtInToolsOnAPage_data();
    void builtInToolsOnAPage();
};

void TestCanvasTools::initTestCase() {
    qRegisterMetaType<HOTool*>();
    qRegisterMetaType<HOLayer*>();
}

void TestCanvasTools::installCalls_data() {
    QTest::addColumn<QString>("secondName");
    QTest::addColumn<bool>("sameObject");
    QTest::addColumn<QStringList>("firstToolCalls");
    const QStringList install{"SetToolBuddy", "SetToolBuddy", "Activate"};
    QTest::newRow("same tool again") << "A" << true << install + install;
    QTest::newRow("another tool of the same class") << "A" << false << install;
    QTest::newRow("a tool of another class") << "B" << false << install + QStringList{"Deactivate"};
}

void TestCanvasTools::installCalls() {
    QFETCH(QString, secondName);
    QFETCH(bool, sameObject);
    QFETCH(QStringList, firstToolCalls);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    ToolRef first = new HORecordingTool("A");
    ToolRef second = sameObject ? first : ToolRef(new HORecordingTool(qPrintable(secondName)));
    fixture.canvas.setMapTool(first);
    fixture.canvas.setMapTool(second);
    QCOMPARE(first->calls, firstToolCalls);
    QCOMPARE(fixture.canvas.getMapTool(), second.get());
    QCOMPARE(fixture.map->calls, (QStringList{"SetCurrentTool A", "SetCurrentTool " + secondName}));
    QCOMPARE(second->GetToolBuddy(), static_cast<HOToolBuddy*>(&fixture.canvas));
}

void TestCanvasTools::oneShotStaysOutOfTheView() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    ToolRef current = new HORecordingTool("HXObjects::HOCmdDigitizeLine");
    ToolRef command = new HORecordingTool("HXObjects::HOToolPan", true);
    fixture.canvas.setMapTool(current);
    fixture.map->calls.clear();
    fixture.canvas.setMapTool(command);
    QCOMPARE(command->calls, (QStringList{"SetToolBuddy", "Activate", "Deactivate"}));
    QCOMPARE(fixture.canvas.getMapTool(), current.get());
    QVERIFY(fixture.map->calls.isEmpty());
    QVERIFY(!current->calls.contains("Deactivate"));
    // The one-shot's class name would have cleared the line flag, had it been installed.
    QAction action("New path", nullptr);
    action.setData(3);
    fixture.canvas.StartNewPath(&action);
    QCOMPARE(fixture.canvas.getNewPathOption_Line(), 3);
}

void TestCanvasTools::removal_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<bool>("activeBefore");
    QTest::addColumn<bool>("removed");
    QTest::addColumn<QStringList>("toolCallsAfterRemoval");
    QTest::newRow("map view, active tool")
        << HXMapCanvas::MapViewMode << true << true << QStringList{"Deactivate"};
    QTest::newRow("map view, inactive tool") << HXMapCanvas::MapViewMode << false << true << QStringList{};
    QTest::newRow("page layout keeps its tool")
        << HXMapCanvas::PageLayoutMode << true << false << QStringList{};
}

void TestCanvasTools::removal() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(bool, activeBefore);
    QFETCH(bool, removed);
    QFETCH(QStringList, toolCallsAfterRemoval);
    HXInputCanvas fixture(mode);
    ToolRef tool = new HORecordingTool("A");
    fixture.canvas.setMapTool(tool);
    if (!activeBefore) tool->HOTool::Deactivate();
    fixture.canvas.setCursor(Qt::CrossCursor);
    tool->calls.clear();
    fixture.map->calls.clear();

    fixture.canvas.setMapTool(static_cast<HOTool*>(nullptr));
    QCOMPARE(tool->calls, toolCallsAfterRemoval);
    QCOMPARE(fixture.canvas.getMapTool(), removed ? nullptr : tool.get());
    QCOMPARE(fixture.map->calls, removed ? QStringList{"SetCurrentTool null"} : QStringList{});
    QCOMPARE(fixture.canvas.cursor().shape(), removed ? Qt::ArrowCursor : Qt::CrossCursor);
}

void TestCanvasTools::installByName_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("withBuddy");
    QTest::addColumn<bool>("installed");
    QTest::newRow("registered name") << "HXTest::Registered" << true << true;
    QTest::newRow("unknown name") << "HXTest::Unknown" << true << false;
    QTest::newRow("name differs in case") << "hxtest::registered" << true << false;
    QTest::newRow("no tool buddy") << "HXTest::Registered" << false << false;
}

void TestCanvasTools::installByName() {
    QFETCH(QString, name);
    QFETCH(bool, withBuddy);
    QFETCH(bool, installed);
    ToolRef registered = new HORecordingTool("HXTest::Registered");
    HOCMDPool::GetInstance()->RegisterTool(registered);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    ToolRef before = new HORecordingTool("Before");
    fixture.canvas.setMapTool(before);
    if (!withBuddy) fixture.canvas.SetToolBuddy(nullptr);
    fixture.canvas.setMapTool(HOString(name));
    HOCMDPool::GetInstance()->UnregisterTool("HXTest::Registered");
    QCOMPARE(fixture.canvas.getMapTool(), installed ? static_cast<HOTool*>(registered) : before.get());
}

void TestCanvasTools::layoutGetsTheTool() {
    HXInputCanvas fixture(HXMapCanvas::PageLayoutMode);
    ToolRef tool = new HORecordingTool("A");
    fixture.canvas.setMapTool(tool);
    QCOMPARE(fixture.layout->calls, QStringList{"SetCurrentTool A"});
    QVERIFY(fixture.map->calls.isEmpty());
}

void TestCanvasTools::installFocusesCommandLine() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    HORecordingCommandControl control;
    fixture.canvas.SetCommandControl(&control);
    ToolRef tool = new HORecordingTool("A");
    ToolRef command = new HORecordingTool("B", true);
    fixture.canvas.setMapTool(command);
    QVERIFY(control.calls.isEmpty());
    fixture.canvas.setMapTool(tool);
    QCOMPARE(control.calls, QStringList{"SetViewFocus 1"});
}

void TestCanvasTools::digitisingFlags_data() {
    // StartNewPath stores the option for the first set flag of polygon, line, feature; which option
    // changes shows which flags the installed tools left set.
    QTest::addColumn<QStringList>("tools");
    QTest::addColumn<QString>("options");
    QTest::newRow("polygon") << QStringList{"HXObjects::HOCmdDigitizePolygon"}
                             << "polygon 5 line -1 feature -1";
    QTest::newRow("line") << QStringList{"HXObjects::HOCmdDigitizeLine"} << "polygon -1 line 5 feature -1";
    QTest::newRow("line then add feature")
        << QStringList{"HXObjects::HOCmdDigitizeLine", "HXObjects::HOToolAddFeature"}
        << "polygon -1 line 5 feature -1";
    QTest::newRow("polygon then line keeps polygon")
        << QStringList{"HXObjects::HOCmdDigitizePolygon", "HXObjects::HOCmdDigitizeLine"}
        << "polygon 5 line -1 feature -1";
    QTest::newRow("pan clears them all")
        << QStringList{"HXObjects::HOCmdDigitizePolygon", "HXObjects::HOCmdDigitizeLine",
                       "HXObjects::HOToolPan"}
        << "polygon -1 line -1 feature -1";
    QTest::newRow("control point clears none")
        << QStringList{"HXObjects::HOCmdDigitizeLine", "HXObjects::HOToolAddControlPoint"}
        << "polygon -1 line 5 feature -1";
    QTest::newRow("names compare exactly")
        << QStringList{"hxobjects::hocmddigitizeline"} << "polygon -1 line -1 feature -1";
}

void TestCanvasTools::digitisingFlags() {
    QFETCH(QStringList, tools);
    QFETCH(QString, options);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    std::vector<ToolRef> kept;
    for (const QString& name : tools) {
        kept.emplace_back(new HORecordingTool(qPrintable(name)));
        fixture.canvas.setMapTool(kept.back());
    }
    QAction action("New path", nullptr);
    action.setData(5);
    fixture.canvas.StartNewPath(&action);
    QCOMPARE(NewPathOptions(fixture.canvas), options);
    // Only the add-feature tool is told to start its path.
    QCOMPARE(kept.back()->calls.contains("OnCommand new path"),
             tools.last() == "HXObjects::HOToolAddFeature");
}

void TestCanvasTools::cursorTable_data() {
    QTest::addColumn<int>("shape");
    QTest::addColumn<Qt::CursorShape>("widgetShape");
    QTest::addColumn<Qt::CursorShape>("reportedShape");
    QTest::newRow("cross") << 2 << Qt::CrossCursor << Qt::CrossCursor;
    QTest::newRow("open hand") << 17 << Qt::OpenHandCursor << Qt::OpenHandCursor;
    QTest::newRow("negative is the arrow") << -1 << Qt::ArrowCursor << Qt::ArrowCursor;
    QTest::newRow("24 still reaches the widget") << 24 << Qt::ArrowCursor << Qt::ArrowCursor;
    QTest::newRow("25 leaves the widget") << 25 << Qt::WaitCursor << Qt::ArrowCursor;
    QTest::newRow("zoom in image") << 26 << Qt::BitmapCursor << Qt::BitmapCursor;
    QTest::newRow("identify image") << 29 << Qt::BitmapCursor << Qt::BitmapCursor;
    QTest::newRow("30 leaves the widget") << 30 << Qt::WaitCursor << Qt::ArrowCursor;
}

void TestCanvasTools::cursorTable() {
    QFETCH(int, shape);
    QFETCH(Qt::CursorShape, widgetShape);
    QFETCH(Qt::CursorShape, reportedShape);
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    canvas.setCursor(Qt::WaitCursor);
    QSignalSpy changed(&canvas, &HXMapCanvas::signal_cursorChanged);
    canvas.SetCursor(static_cast<HOToolBuddy::HOCursor>(shape));
    QCOMPARE(canvas.cursor().shape(), widgetShape);
    QCOMPARE(changed.count(), 1);
    const QCursor reported = changed.at(0).at(0).value<QCursor>();
    QCOMPARE(reported.shape(), reportedShape);
    if (reportedShape == Qt::BitmapCursor) QVERIFY(!reported.pixmap().isNull());
}

void TestCanvasTools::cursorPositionOutsideTheCanvas() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    canvas.setGeometry(200, 150, 300, 200);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    QCursor::setPos(canvas.mapToGlobal(QPoint(-30, 250)));
    QCOMPARE(canvas.GetCursorPos(), HOPoint(-30, 250));
}

void TestCanvasTools::keyboardModifiers_data() {
    QTest::addColumn<int>("modifiers");
    QTest::newRow("none") << 0;
    QTest::newRow("control") << int(Qt::ControlModifier);
    QTest::newRow("shift and alt") << int(Qt::ShiftModifier | Qt::AltModifier);
    QTest::newRow("keypad and meta") << int(Qt::KeypadModifier | Qt::MetaModifier);
}

void TestCanvasTools::keyboardModifiers() {
    QFETCH(int, modifiers);
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    QTest::keyPress(canvas.windowHandle(), Qt::Key_Q, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(int(canvas.GetKeyboardModifiers()), modifiers);
    QTest::keyRelease(canvas.windowHandle(), Qt::Key_Q, Qt::NoModifier);
}

void TestCanvasTools::buddyNotifications() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    QSignalSpy layerChanged(&canvas, &HXMapCanvas::currentLayerChanged);
    QSignalSpy enabled(&canvas, &HXMapCanvas::actionEnabled);
    HORefPtr<HOMap> map = new HOMap();
    HOLayer* layer = map->GetGraphicsLayer();
    canvas.setCurrentLayer(layer);
    canvas.setCurrentLayer(layer);
    QCOMPARE(layerChanged.count(), 2);
    ToolRef tool = new HORecordingTool("A");
    canvas.SetHOToolEnabled(tool, false);
    QCOMPARE(enabled.count(), 1);
    QCOMPARE(enabled.at(0).at(0).value<HOTool*>(), static_cast<HOTool*>(tool));
    QCOMPARE(enabled.at(0).at(1).toBool(), false);
    canvas.clearToolpaint();
    canvas.setMapTool(tool);
    tool->calls.clear();
    canvas.clearToolpaint();
    QCOMPARE(tool->calls, QStringList{"ClearToolPaint"});
}

void TestCanvasTools::builtInToolsOnAPage_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"HXObjects::HOToolPan", "HXObjects::HOToolZoomIn", "HXObjects::HOToolZoomOut",
                             "HXObjects::HOToolSingleSelect", "HXObjects::HOToolIdentify"})
        QTest::newRow(name) << name;
}

void TestCanvasTools::builtInToolsOnAPage() {
    // The built-in tools work on map views; on the page itself a drag changes nothing.
    QFETCH(QString, name);
    HXMapCanvas canvas(HXMapCanvas::PageLayoutMode, nullptr);
    canvas.resize(400, 300);
    HOView* page = canvas.GetPageLayoutView();
    canvas.setMapTool(HOString(name));
    QCOMPARE(canvas.getMapTool()->GetClassName().toQString(), name);
    const HORect extent = page->GetExtent();
    QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseMove(&canvas, QPoint(200, 150));
    QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(200, 150));
    QCOMPARE(page->GetExtent(), extent);
    canvas.setMapTool(HOString("HXTest::NotInThePool"));
    page->SetCurrentTool(nullptr);
    QVERIFY(!canvas.GetPageLayoutView()->GetCurrentTool());
}

QTEST_MAIN(TestCanvasTools)
#include "tst_canvas_tools.moc"
