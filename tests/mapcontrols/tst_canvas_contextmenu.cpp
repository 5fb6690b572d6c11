// The context menu a tool asks the canvas for: its entries by current tool and by what lies under
// the mouse, and what each entry does.
#include <QInputDialog>
#include <QtTest>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HORecordingTool.h"
#include "HXInputCanvas.h"
#include "HXPopupAnswer.h"

using namespace HXObjects;

namespace {

// Answers the line-width prompt with a value, or cancels it when the value is negative.
void AnswerLineWidth(double value, double* shownValue) {
    QTimer::singleShot(10, [=] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (!dialog) return AnswerLineWidth(value, shownValue);
        *shownValue = dialog->doubleValue();
        if (value < 0) return dialog->reject();
        dialog->setDoubleValue(value);
        dialog->accept();
    });
}

}  // namespace

class TestCanvasContextMenu : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void entriesByTool_data();
    void entriesByTool();
    void nothingOnAPage();
    void lineWidthPrompt_data();
    void lineWidthPrompt();
    void selectedGraphicElement();
    void triggerOnlyNotifies();

private:
    HORefPtr<HORecordingTool> mDeleteElement = new HORecordingTool("HXObjects::HOToolDeleteElement");
};

void TestCanvasContextMenu::initTestCase() {
    HOCMDPool::GetInstance()->RegisterTool(mDeleteElement);
}

void TestCanvasContextMenu::cleanupTestCase() {
    HOCMDPool::GetInstance()->UnregisterTool("HXObjects::HOToolDeleteElement");
}

void TestCanvasContextMenu::entriesByTool_data() {
    QTest::addColumn<QString>("tool");
    QTest::addColumn<bool>("acceptsPoints");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QString>("options");  // new-path options afterwards: polygon line feature
    QTest::addColumn<QStringList>("toolCalls");
    const QStringList points{"Input X and Y", "Input DMS data", "Cancel point"};
    QTest::newRow("line digitising") << "HXObjects::HOCmdDigitizeLine" << true << "New path"
                                     << QStringList{"New path"} << "-1 0 -1" << QStringList{};
    QTest::newRow("polygon digitising, not chosen") << "HXObjects::HOCmdDigitizePolygon" << true << ""
                                                    << QStringList{"New path"} << "-1 -1 -1" << QStringList{};
    QTest::newRow("add feature") << "HXObjects::HOToolAddFeature" << true << "New path"
                                 << QStringList{"New path"} << "-1 -1 0" << QStringList{"OnCommand new path"};
    QTest::newRow("control point, cancel point")
        << "HXObjects::HOToolAddControlPoint" << true << "Cancel point" << points << "-1 -1 -1"
        << QStringList{"CancelPoint"};
    QTest::newRow("control point refusing input")
        << "HXObjects::HOToolAddControlPoint" << false << "" << QStringList{} << "-1 -1 -1" << QStringList{};
    QTest::newRow("double line, any case")
        << "hxobjects::HOTOOLDOUBLELINE" << true << "" << QStringList{"Please input line width"} << "-1 -1 -1"
        << QStringList{};
    QTest::newRow("other tool, nothing selected")
        << "HXObjects::HOToolPan" << true << "" << QStringList{"Set map ruler and grid"} << "-1 -1 -1"
        << QStringList{};
}

void TestCanvasContextMenu::entriesByTool() {
    QFETCH(QString, tool);
    QFETCH(bool, acceptsPoints);
    QFETCH(QString, choice);
    QFETCH(QStringList, entries);
    QFETCH(QString, options);
    QFETCH(QStringList, toolCalls);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    HORefPtr<HOMap> map = new HOMap();
    fixture.map->SetMap(map);
    HORefPtr<HORecordingTool> current = new HORecordingTool(qPrintable(tool));
    current->acceptsPoints = acceptsPoints;
    fixture.canvas.setMapTool(current);
    current->calls.clear();

    HXPopupAnswer answer(choice);
    fixture.canvas.OnContextMenu(30, 40);
    QCOMPARE(answer.entries, entries);
    QCOMPARE(answer.shown, !entries.isEmpty());
    QCOMPARE(QString("%1 %2 %3")
                 .arg(fixture.canvas.getNewPathOption_Polygon())
                 .arg(fixture.canvas.getNewPathOption_Line())
                 .arg(fixture.canvas.getNewPathOption_AddFeature()),
             options);
    QCOMPARE(current->calls, toolCalls);
}

void TestCanvasContextMenu::nothingOnAPage() {
    HXInputCanvas fixture(HXMapCanvas::PageLayoutMode);
    HORefPtr<HORecordingTool> line = new HORecordingTool("HXObjects::HOCmdDigitizeLine");
    fixture.canvas.setMapTool(line);
    HXPopupAnswer answer;
    fixture.canvas.OnContextMenu(30, 40);
    QTest::qWait(50);
    QVERIFY(!answer.shown);
}

void TestCanvasContextMenu::lineWidthPrompt_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<double>("answer");
    QTest::addColumn<double>("shown");
    QTest::addColumn<QString>("after");
    QTest::newRow("new width") << "3" << 12.25 << 3.0 << "12.3";
    QTest::newRow("many digits") << "1" << 1234567.8 << 1.0 << "1.23457e+06";
    QTest::newRow("text that is no number starts at the minimum") << "wide" << 2.0 << 0.1 << "2";
    QTest::newRow("cancelled") << "5" << -1.0 << 5.0 << "5";
}

void TestCanvasContextMenu::lineWidthPrompt() {
    QFETCH(QString, before);
    QFETCH(double, answer);
    QFETCH(double, shown);
    QFETCH(QString, after);
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    HORefPtr<HORecordingTool> doubleLine = new HORecordingTool("HXObjects::HOToolDoubleLine");
    doubleLine->SetParameter("LineWidth", HOString(before));
    fixture.canvas.setMapTool(doubleLine);
    double shownValue = -100;
    HXPopupAnswer menu("Please input line width");
    AnswerLineWidth(answer, &shownValue);
    fixture.canvas.OnContextMenu(30, 40);
    QTRY_VERIFY(shownValue != -100);
    QCOMPARE(shownValue, shown);
    QCOMPARE(doubleLine->GetParameters()["LineWidth"].toQString(), after);
}

void TestCanvasContextMenu::selectedGraphicElement() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
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

void TestCanvasContextMenu::triggerOnlyNotifies() {
    HXInputCanvas fixture(HXMapCanvas::MapViewMode);
    fixture.canvas.show();
    QSignalSpy spy(&fixture.canvas, &HXMapCanvas::contextMenuTrigger);
    HXPopupAnswer answer;
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5));
    QApplication::sendEvent(&fixture.canvas, &event);
    QTest::qWait(50);
    QVERIFY(!answer.shown);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<void*>(), static_cast<void*>(&fixture.canvas));
}

QTEST_MAIN(TestCanvasContextMenu)
#include "tst_canvas_contextmenu.moc"
