// The canvas as tool host: installing, reinstalling and removing tools in each view mode, the
// digitising flags, the cursor table, the context menu a tool asks for, and what a tool says through
// the canvas: tips, notices, the host's command line and the file prompts.
#include <QAbstractItemView>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HXInputCanvas.h"
#include "HXModalAnswer.h"
#include "HXTooltip.h"

using namespace HXObjects;

namespace {

using ToolRef = HORefPtr<HORecordingTool>;
const auto kMap = HXMapCanvas::MapViewMode, kPage = HXMapCanvas::PageLayoutMode;

// The new-path options the canvas stores: polygon, line, add feature.
QString NewPathOptions(HXMapCanvas& canvas) {
    return QString("%1 %2 %3")
        .arg(canvas.getNewPathOption_Polygon())
        .arg(canvas.getNewPathOption_Line())
        .arg(canvas.getNewPathOption_AddFeature());
}

}  // namespace

class TestCanvasTools : public QObject {
    Q_OBJECT

    QTemporaryDir mDir;
    ToolRef mDeleteElement = new HORecordingTool("HXObjects::HOToolDeleteElement");

private slots:
    void initTestCase() {
        HOCMDPool::GetInstance()->RegisterTool(mDeleteElement);
        QVERIFY(mDir.isValid());
        qputenv("HXGIS_SETTINGS_FILE", mDir.filePath("hxgis.ini").toLocal8Bit());
        // A database connection entry that would, taken for a directory, open the prompt there.
        QDir().mkpath(mDir.filePath("HXSDE30_conn"));
        QDir::setCurrent(mDir.path());
    }
    void cleanupTestCase() { HOCMDPool::GetInstance()->UnregisterTool("HXObjects::HOToolDeleteElement"); }

    void installCalls_data() {
        HOAddColumns<HXMapCanvas::ViewMode, QString, bool, QStringList>(
            {"mode", "secondName", "sameObject", "firstToolCalls"});
        const QStringList install{"SetToolBuddy", "SetToolBuddy", "Activate"};
        QTest::newRow("same tool again") << kMap << "A" << true << install + install;
        QTest::newRow("another tool of the same class") << kMap << "A" << false << install;
        QTest::newRow("a tool of another class")
            << kMap << "B" << false << install + QStringList{"Deactivate"};
        QTest::newRow("on a page") << kPage << "B" << false << install + QStringList{"Deactivate"};
    }
    void installCalls() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(QString, secondName);
        QFETCH(bool, sameObject);
        HXInputCanvas fixture(mode);
        ToolRef first = new HORecordingTool("A");
        ToolRef second = sameObject ? first : ToolRef(new HORecordingTool(qPrintable(secondName)));
        fixture.canvas.setMapTool(first);
        fixture.canvas.setMapTool(second);
        QTEST(first->calls, "firstToolCalls");
        QCOMPARE(fixture.canvas.getMapTool(), second.get());
        QCOMPARE(fixture.viewCalls(), (QStringList{"SetCurrentTool A", "SetCurrentTool " + secondName}));
        if (mode == kPage) QVERIFY(fixture.map->calls.isEmpty());
        QCOMPARE(second->GetToolBuddy(), static_cast<HOToolBuddy*>(&fixture.canvas));
    }

    void oneShotStaysOutOfTheView() {
        HXInputCanvas fixture(kMap);
        HORecordingCommandControl control;
        fixture.canvas.SetCommandControl(&control);
        ToolRef current = new HORecordingTool("HXObjects::HOCmdDigitizeLine");
        ToolRef command = new HORecordingTool("HXObjects::HOToolPan", true);
        fixture.canvas.setMapTool(current);
        fixture.map->calls.clear();
        fixture.canvas.setMapTool(command);
        QCOMPARE(command->calls, (QStringList{"SetToolBuddy", "Activate", "Deactivate"}));
        QCOMPARE(fixture.canvas.getMapTool(), current.get());
        QVERIFY(fixture.map->calls.isEmpty() && !current->calls.contains("Deactivate"));
        QCOMPARE(control.calls, QStringList{"SetViewFocus 1"});  // for the installed tool only
        // The one-shot's class name would have cleared the line flag, had it been installed.
        QAction action("New path", nullptr);
        action.setData(3);
        fixture.canvas.StartNewPath(&action);
        QCOMPARE(fixture.canvas.getNewPathOption_Line(), 3);
    }

    void removal_data() {
        // toolCalls: on removal, then on clearing the tool paint
        HOAddColumns<HXMapCanvas::ViewMode, bool, bool, QStringList>(
            {"mode", "activeBefore", "removed", "toolCalls"});
        QTest::newRow("map view, active tool") << kMap << true << true << QStringList{"Deactivate"};
        QTest::newRow("map view, inactive tool") << kMap << false << true << QStringList{};
        QTest::newRow("page layout keeps its tool")
            << kPage << true << false << QStringList{"ClearToolPaint"};
    }
    void removal() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(bool, activeBefore);
        QFETCH(bool, removed);
        HXInputCanvas fixture(mode);
        ToolRef tool = new HORecordingTool("A");
        fixture.canvas.setMapTool(tool);
        if (!activeBefore) tool->HOTool::Deactivate();
        fixture.canvas.setCursor(Qt::CrossCursor);
        tool->calls.clear();
        fixture.map->calls.clear();
        fixture.canvas.setMapTool(static_cast<HOTool*>(nullptr));
        fixture.canvas.clearToolpaint();
        QTEST(tool->calls, "toolCalls");
        QCOMPARE(fixture.canvas.getMapTool(), removed ? nullptr : tool.get());
        QCOMPARE(fixture.map->calls, removed ? QStringList{"SetCurrentTool null"} : QStringList{});
        QCOMPARE(fixture.canvas.cursor().shape(), removed ? Qt::ArrowCursor : Qt::CrossCursor);
    }

    void installByName_data() {
        HOAddColumns<QString, bool, bool>({"name", "withBuddy", "installed"});
        QTest::newRow("registered name") << "HXTest::Registered" << true << true;
        QTest::newRow("unknown name") << "HXTest::Unknown" << true << false;
        QTest::newRow("name differs in case") << "hxtest::registered" << true << false;
        QTest::newRow("no tool buddy") << "HXTest::Registered" << false << false;
    }
    void installByName() {
        QFETCH(QString, name);
        QFETCH(bool, withBuddy);
        QFETCH(bool, installed);
        ToolRef registered = new HORecordingTool("HXTest::Registered");
        HOCMDPool::GetInstance()->RegisterTool(registered);
        HXInputCanvas fixture(kMap);
        ToolRef before = new HORecordingTool("Before");
        fixture.canvas.setMapTool(before);
        if (!withBuddy) fixture.canvas.SetToolBuddy(nullptr);
        fixture.canvas.setMapTool(HOString(name));
        HOCMDPool::GetInstance()->UnregisterTool("HXTest::Registered");
        QCOMPARE(fixture.canvas.getMapTool(), installed ? static_cast<HOTool*>(registered) : before.get());
    }

    // StartNewPath stores the option for the first set flag of polygon, line, add feature; which
    // option changes shows which flags the installed tools left set.
    void digitisingFlags_data() {
        HOAddColumns<QStringList, QString>({"tools", "options"});
        const QString polygon = "HXObjects::HOCmdDigitizePolygon", line = "HXObjects::HOCmdDigitizeLine";
        QTest::newRow("polygon") << QStringList{polygon} << "5 -1 -1";
        QTest::newRow("line") << QStringList{line} << "-1 5 -1";
        QTest::newRow("line then add feature")
            << QStringList{line, "HXObjects::HOToolAddFeature"} << "-1 5 -1";
        QTest::newRow("polygon then line keeps polygon") << QStringList{polygon, line} << "5 -1 -1";
        QTest::newRow("pan clears them all")
            << QStringList{polygon, line, "HXObjects::HOToolPan"} << "-1 -1 -1";
        QTest::newRow("control point clears none")
            << QStringList{line, "HXObjects::HOToolAddControlPoint"} << "-1 5 -1";
        QTest::newRow("names compare exactly") << QStringList{line.toLower()} << "-1 -1 -1";
    }
    void digitisingFlags() {
        QFETCH(QStringList, tools);
        HXInputCanvas fixture(kMap);
        std::vector<ToolRef> kept;
        for (const QString& name : tools) {
            kept.emplace_back(new HORecordingTool(qPrintable(name)));
            fixture.canvas.setMapTool(kept.back());
        }
        QAction action("New path", nullptr);
        action.setData(5);
        fixture.canvas.StartNewPath(&action);
        QTEST(NewPathOptions(fixture.canvas), "options");
        // Only the add-feature tool is told to start its path.
        QCOMPARE(kept.back()->calls.contains("OnCommand new path"),
                 tools.last() == "HXObjects::HOToolAddFeature");
    }

    void cursorTable_data() {
        HOAddColumns<int, Qt::CursorShape, Qt::CursorShape>({"shape", "widgetShape", "reportedShape"});
        QTest::newRow("cross") << 2 << Qt::CrossCursor << Qt::CrossCursor;
        QTest::newRow("open hand") << 17 << Qt::OpenHandCursor << Qt::OpenHandCursor;
        QTest::newRow("negative is the arrow") << -1 << Qt::ArrowCursor << Qt::ArrowCursor;
        QTest::newRow("24 still reaches the widget") << 24 << Qt::ArrowCursor << Qt::ArrowCursor;
        QTest::newRow("25 leaves the widget") << 25 << Qt::WaitCursor << Qt::ArrowCursor;
        QTest::newRow("zoom in image") << 26 << Qt::BitmapCursor << Qt::BitmapCursor;
        QTest::newRow("identify image") << 29 << Qt::BitmapCursor << Qt::BitmapCursor;
        QTest::newRow("30 leaves the widget") << 30 << Qt::WaitCursor << Qt::ArrowCursor;
    }
    void cursorTable() {
        QFETCH(int, shape);
        QFETCH(Qt::CursorShape, reportedShape);
        HXMapCanvas canvas(kMap, nullptr);
        canvas.setCursor(Qt::WaitCursor);
        QSignalSpy changed(&canvas, &HXMapCanvas::signal_cursorChanged);
        canvas.SetCursor(static_cast<HOToolBuddy::HOCursor>(shape));
        QTEST(canvas.cursor().shape(), "widgetShape");
        QCOMPARE(changed.count(), 1);
        const QCursor reported = changed.at(0).at(0).value<QCursor>();
        QCOMPARE(reported.shape(), reportedShape);
        if (reportedShape == Qt::BitmapCursor) QVERIFY(!reported.pixmap().isNull());
    }

    void builtInToolsOnAPage_data() {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"HXObjects::HOToolPan", "HXObjects::HOToolZoomIn", "HXObjects::HOToolZoomOut",
              "HXObjects::HOToolSingleSelect", "HXObjects::HOToolIdentify"})
            QTest::newRow(name) << name;
    }
    void builtInToolsOnAPage() {
        // The pool's tools work on map views; on the page itself a drag changes nothing.
        QFETCH(QString, name);
        HXMapCanvas canvas(kPage, nullptr);
        canvas.resize(400, 300);
        canvas.setMapTool(HOString(name));
        QCOMPARE(canvas.getMapTool()->GetClassName().toQString(), name);
        const HORect extent = canvas.GetPageLayoutView()->GetExtent();
        QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(20, 20));
        QTest::mouseMove(&canvas, QPoint(200, 150));
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(200, 150));
        QCOMPARE(canvas.GetPageLayoutView()->GetExtent(), extent);
    }

    void contextMenu_data() {
        HOAddColumns<HXMapCanvas::ViewMode, QString, bool, QString, QStringList, QStringList>(
            {"mode", "tool", "acceptsPoints", "choice", "entries", "toolCalls"});
        const QStringList path{"New path"}, points{"Input X and Y", "Input DMS data", "Cancel point"}, none;
        for (const char* digitising : {"HXObjects::HOCmdDigitizeLine", "HXObjects::HOCmdDigitizePolygon"})
            QTest::newRow(digitising) << kMap << digitising << true << "" << path << none;
        QTest::newRow("add feature, new path") << kMap << "HXObjects::HOToolAddFeature" << true << "New path"
                                               << path << QStringList{"OnCommand new path"};
        QTest::newRow("control point, cancel point")
            << kMap << "HXObjects::HOToolAddControlPoint" << true << "Cancel point" << points
            << QStringList{"CancelPoint"};
        QTest::newRow("control point refusing input")
            << kMap << "HXObjects::HOToolAddControlPoint" << false << "" << none << none;
        QTest::newRow("double line, any case") << kMap << "hxobjects::HOTOOLDOUBLELINE" << true << ""
                                               << QStringList{"Please input line width"} << none;
        QTest::newRow("other tool, nothing selected")
            << kMap << "HXObjects::HOToolPan" << true << "" << QStringList{"Set map ruler and grid"} << none;
        QTest::newRow("nothing on a page")
            << kPage << "HXObjects::HOCmdDigitizeLine" << true << "" << none << none;
    }
    void contextMenu() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(QString, tool);
        QFETCH(bool, acceptsPoints);
        QFETCH(QString, choice);
        HXInputCanvas fixture(mode);
        HORefPtr<HOMap> map = new HOMap();
        fixture.map->SetMap(map);
        ToolRef current = new HORecordingTool(qPrintable(tool));
        current->acceptsPoints = acceptsPoints;
        fixture.canvas.setMapTool(current);
        current->calls.clear();
        HXPopupAnswer answer(choice);
        fixture.canvas.OnContextMenu(30, 40);
        QTEST(answer.entries, "entries");
        QTEST(current->calls, "toolCalls");
    }

    void lineWidthPrompt_data() {
        HOAddColumns<QString, double, double, QString>({"before", "answer", "shown", "after"});
        QTest::newRow("new width") << "3" << 12.25 << 3.0 << "12.3";
        QTest::newRow("many digits") << "1" << 1234567.8 << 1.0 << "1.23457e+06";
        QTest::newRow("text that is no number starts at the minimum") << "wide" << 2.0 << 0.1 << "2";
        QTest::newRow("cancelled") << "5" << -1.0 << 5.0 << "5";
    }
    void lineWidthPrompt() {
        QFETCH(QString, before);
        QFETCH(double, answer);
        HXInputCanvas fixture(kMap);
        ToolRef doubleLine = new HORecordingTool("HXObjects::HOToolDoubleLine");
        doubleLine->SetParameter("LineWidth", HOString(before));
        fixture.canvas.setMapTool(doubleLine);
        double shownValue = -100;
        HXPopupAnswer menu("Please input line width");
        HXModalAnswer<QInputDialog> dialogAnswer([&](QInputDialog* dialog) {
            shownValue = dialog->doubleValue();
            if (answer < 0) return dialog->reject();
            dialog->setDoubleValue(answer);
            dialog->accept();
        });
        fixture.canvas.OnContextMenu(30, 40);
        QVERIFY2(dialogAnswer.answered, "no line width dialog came");
        QTEST(shownValue, "shown");
        QTEST(doubleLine->GetParameters()["LineWidth"].toQString(), "after");
    }

    void contextMenuOverSelectedGraphic() {
        HXInputCanvas fixture(kMap);
        HORefPtr<HOMap> map = new HOMap();
        fixture.map->SetMap(map);
        // A mark at pixel (50, 40); the menu looks 4 pixels around the click.
        const HODisplayTransform transform = fixture.map->GetScreenDisplay()->GetDisplayTransform();
        HORefPtr<HOGeometry> mark = new HOGeometry(HOGeometry::GeoPoint);
        mark->AddPart({transform.ToMap(50, 40)});
        HORefPtr<HOGraphicsLayer> graphics = map->GetGraphicsLayer();
        const int id = graphics->AddElement(mark, HOStyle::NewMarker(HOStyle::Circle, 6, HOColor(0, 0, 0)));
        HXPopupAnswer unselected;
        fixture.canvas.OnContextMenu(52, 42);
        QCOMPARE(unselected.entries, QStringList{"Set map ruler and grid"});
        graphics->SelectElement(id, true);
        HXPopupAnswer farAway;
        fixture.canvas.OnContextMenu(60, 40);
        QCOMPARE(farAway.entries, QStringList{"Set map ruler and grid"});
        HXPopupAnswer over("Delete Element");
        fixture.canvas.OnContextMenu(52, 42);
        QCOMPARE(over.entries, QStringList{"Delete Element"});
        QCOMPARE(fixture.canvas.getMapTool(), static_cast<HOTool*>(mDeleteElement));
    }

    void contextMenuEventOnlyNotifies() {
        HXInputCanvas fixture(kMap);
        fixture.canvas.show();
        QSignalSpy spy(&fixture.canvas, &HXMapCanvas::contextMenuTrigger);
        HXPopupAnswer answer;
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5));
        // A menu would run (and be answered) inside the handler.
        QApplication::sendEvent(&fixture.canvas, &event);
        QVERIFY(!answer.shown && spy.count() == 1);
        QCOMPARE(spy.at(0).at(0).value<void*>(), static_cast<void*>(&fixture.canvas));
    }

    void tipWindow() {
        HXMapCanvas canvas(kMap, nullptr);
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
        canvas.ShowTip(5, 5, "");
        QVERIFY(!canvas.findChild<HXTooltip*>());
        canvas.ShowTip(10, 20, "Click the first corner");
        auto* tip = canvas.findChild<HXTooltip*>();
        QVERIFY(tip && tip->isVisible() && tip->text() == "Click the first corner");
        canvas.ShowTip(10, 20, "");
        QVERIFY(tip->isHidden());
        canvas.ShowTip(30, 40, "Click the second corner");
        QVERIFY(tip->isVisible() && canvas.findChildren<HXTooltip*>().size() == 1);  // the same tip again
    }

    void commandLine() {
        HXMapCanvas canvas(kMap, nullptr);
        HORecordingCommandControl control;
        for (HOCommandControl* set : std::initializer_list<HOCommandControl*>{nullptr, &control}) {
            canvas.SetCommandControl(set);  // none at first: nothing happens
            canvas.AddNoticeInfo("a");
            canvas.SetCmdEditInfo("b");
            canvas.ShowCommandView("c", nullptr, true);
            canvas.SetCommandViewFocus();
        }
        QCOMPARE(control.calls.join("; "), "AddNotice a; SetEditInfo b; ShowView c 1; SetViewFocus 1");
    }

    void filePrompts_data() {
        // remembered: "directory": a directory of the row's own
        HOAddColumns<bool, QString, QString, bool, QStringList>(
            {"multi", "remembered", "dirArgument", "opensAtRemembered", "choice"});
        const QString dir = "directory", conn = "HXSDE30_conn", elsewhere = "/elsewhere";
        const QStringList one{"a"}, two{"a", "b"}, none;
        QTest::newRow("one file") << false << dir << elsewhere << true << one;
        QTest::newRow("one file, empty dir argument") << false << dir << "" << false << one;
        QTest::newRow("one file, connection entry") << false << conn << elsewhere << false << one;
        QTest::newRow("one file, cancelled") << false << dir << elsewhere << true << none;
        QTest::newRow("two files") << true << dir << elsewhere << true << two;
        QTest::newRow("two files, connection entry") << true << conn << elsewhere << false << two;
        QTest::newRow("two files, cancelled") << true << dir << elsewhere << true << none;
    }
    void filePrompts() {
        QFETCH(bool, multi);
        QFETCH(QString, remembered);
        QFETCH(QString, dirArgument);
        QFETCH(QStringList, choice);
        // Directories of the row's own: no earlier prompt can have left the dialog there.
        const QDir rowDir(mDir.filePath(QTest::currentDataTag()));
        QDir().mkpath(rowDir.filePath("chosen"));
        if (remembered == "directory") remembered = rowDir.path();
        QSettings settings(mDir.filePath("hxgis.ini"), QSettings::IniFormat);
        settings.setValue("history/lastOpenFilePath", remembered);
        settings.sync();
        QStringList expected, quoted;
        for (const QString& name : choice) {
            expected << rowDir.filePath("chosen/" + name);
            QFile(expected.last()).open(QIODevice::WriteOnly);
            quoted << '"' + name + '"';
        }
        QString shown;
        HXModalAnswer<QFileDialog> answer([&](QFileDialog* dialog) {
            shown = dialog->directory().absolutePath();
            if (choice.isEmpty()) return dialog->reject();
            // Typed as a person types them, in the directory of the files: selectFile leaves the name
            // box alone once it has the focus, and a directory selected in the list would be opened.
            dialog->setDirectory(rowDir.filePath("chosen"));
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(multi ? quoted.join(' ') : choice.first());
            for (auto* view : dialog->findChildren<QAbstractItemView*>())
                if (view->selectionModel()) view->selectionModel()->clearSelection();
            static_cast<QDialog*>(dialog)->done(QDialog::Accepted);  // past the checks of accept()
        });
        HXMapCanvas canvas(kMap, nullptr);
        QStringList paths;
        if (multi) {
            for (const HOString& path : canvas.getOpenFileNames("Open", HOString(dirArgument), "All (*)"))
                paths << path.toQString();
        } else {
            paths << canvas.getOpenFileName("Open", HOString(dirArgument), "All (*)").toQString();
            paths.removeAll(QString());
        }
        QVERIFY2(answer.answered, "no file dialog came");
        QCOMPARE(paths, expected);
        QTEST(shown == QFileInfo(remembered).absoluteFilePath(), "opensAtRemembered");
        // One file: its directory is remembered; several: the directory the prompt started in.
        settings.sync();
        QCOMPARE(settings.value("history/lastOpenFilePath").toString(),
                 choice.isEmpty() || multi ? remembered : rowDir.filePath("chosen"));
    }
};

QTEST_MAIN(TestCanvasTools)
#include "tst_canvas_tools.moc"
