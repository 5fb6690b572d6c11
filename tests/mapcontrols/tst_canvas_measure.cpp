// The measuring tools on a shown canvas: points clicked on a map in WGS 84 (or in plain units), the
// running figure on the command line and the final one in its notices, geodesic figures against
// PROJ's (1° of longitude at the equator is 111319.49 m on WGS 84), the display unit, and the
// measured points' layer id handed to the buddy.
#include <QtTest>

#include "HOCommandControl.h"
#include "HOTestColumns.h"
#include "HXEditCanvas.h"
#include "tools/HOMeasureTool.h"

using namespace HXObjects;

// A command line that keeps what it was told.
class HXRecordingCommandLine : public HOCommandControl {
public:
    void SetEditInfo(HOString text) override { edit = text.toQString(); }
    void AddNotice(HOString text) override { notices << text.toQString(); }
    void ShowView(HOString, HOTool*, bool) override {}
    void SetViewFocus(bool) override {}
    HOTool* GetCurrentTool() override { return nullptr; }
    QString edit;
    QStringList notices;
};

class TestCanvasMeasure : public QObject {
    Q_OBJECT

private slots:
    void measure_data() {
        // running: the command line's text before the end
        // end: the steps that end the measurement
        // result: the notice at the end
        HOAddColumns<QByteArray, int, QString, QString, QString, QString>(
            {"system", "unit", "script", "running", "end", "result"});
        const auto row = [](const char* tag, const char* system, HOUnitType unit, const char* script,
                            const char* running, const char* end, const char* result) {
            QTest::newRow(tag) << QByteArray(system) << int(unit) << script << running << end << result;
        };
        // The view shows map (-200, 200) x (-150, 150): pixel (200, 150) is the point (0, 0).
        row("1 degree of longitude at the equator", "EPSG:4326", HOUnitMeter,
            "t HOToolMeasureDistance; c 200 150; m 201 150", "Length: 111319.49 m", "d 201 150",
            "Length: 111319.49 m");
        row("kilometres, two legs", "EPSG:4326", HOUnitKilometer,
            "t HOToolMeasureDistance; c 200 150; c 201 150; m 201 149", "Length: 221.89 km",
            "c 201 149; k Return", "Length: 221.89 km");
        const char* square = "Area: 12308.78 km², perimeter: 443.77 km";
        row("a degree square at the equator", "EPSG:4326", HOUnitKilometer,
            "t HOToolMeasureArea; c 200 150; c 201 150; c 201 149; m 200 149", square, "d 200 149", square);
        row("no coordinate system: map units", "", HOUnitMeter,
            "t HOToolMeasureDistance; c 200 150; c 203 150; m 203 146", "Length: 7.00 m", "k Return",
            "Length: 3.00 m");
    }

    void measure() {
        QFETCH(QByteArray, system);
        QFETCH(int, unit);
        QFETCH(QString, script);
        QFETCH(QString, end);
        QFETCH(QString, result);
        HXEditCanvas f;
        QVERIFY(f.show(system.isEmpty() ? nullptr : system.constData()));
        HXRecordingCommandLine commandLine;
        f.canvas.SetCommandControl(&commandLine);
        f.map->SetMapDisplayUnit(HOUnitType(unit));
        f.canvas.setExtent(HORect(-200, 200, -150, 150));
        f.run(script);
        QTEST(commandLine.edit, "running");
        QVERIFY(commandLine.notices.isEmpty());
        f.run(end);
        QCOMPARE(commandLine.notices, QStringList{result});
        QVERIFY(dynamic_cast<HOMeasureTool*>(f.canvas.getMapTool()));
        QVERIFY(f.canvas.getMeasruePointLayerId() > 0);
        QVERIFY(f.elements().isEmpty());  // measuring adds no element to the map
        // The measured points stay marked over the map after the end.
        QTRY_VERIFY_WITH_TIMEOUT(f.widget->grab().toImage().pixelColor(200, 150) != kGround, 10000);
        f.canvas.SetCommandControl(nullptr);
    }
};

QTEST_MAIN(TestCanvasMeasure)
#include "tst_canvas_measure.moc"
