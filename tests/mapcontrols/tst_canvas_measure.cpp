// The measuring tools on a shown canvas: points clicked on a map in WGS 84 (or in plain units), the
// running figure on the command line and the final one in its notices, geodesic figures against
// PROJ's (1° of longitude at the equator is 111319.49 m on WGS 84), the display unit, and the
// measured points' layer id handed to the buddy.
#include <QtTest>

#include "HXEditCanvas.h"
#include "HOCommandControl.h"
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
        QTest::addColumn<QByteArray>("system");
        QTest::addColumn<int>("unit");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("running");  // the command line's text before the end
        QTest::addColumn<QString>("end");      // the steps that end the measurement
        QTest::addColumn<QString>("result");   // the notice at the end
        // The view shows map (-200, 200) x (-150, 150): pixel (200, 150) is the point (0, 0).
        QTest::newRow("1 degree of longitude at the equator")
            << QByteArray("EPSG:4326") << int(HOUnitMeter) << "t HOToolMeasureDistance; c 200 150; m 201 150"
            << "Length: 111319.49 m" << "d 201 150" << "Length: 111319.49 m";
        QTest::newRow("kilometres, two legs")
            << QByteArray("EPSG:4326") << int(HOUnitKilometer)
            << "t HOToolMeasureDistance; c 200 150; c 201 150; m 201 149"
            << "Length: 221.89 km" << "c 201 149; k Return" << "Length: 221.89 km";
        QTest::newRow("a degree square at the equator")
            << QByteArray("EPSG:4326") << int(HOUnitKilometer)
            << "t HOToolMeasureArea; c 200 150; c 201 150; c 201 149; m 200 149"
            << "Area: 12308.78 km², perimeter: 443.77 km" << "d 200 149"
            << "Area: 12308.78 km², perimeter: 443.77 km";
        QTest::newRow("no coordinate system: map units")
            << QByteArray() << int(HOUnitMeter) << "t HOToolMeasureDistance; c 200 150; c 203 150; m 203 146"
            << "Length: 7.00 m" << "k Return" << "Length: 3.00 m";
    }

    void measure() {
        QFETCH(QByteArray, system);
        QFETCH(int, unit);
        QFETCH(QString, script);
        QFETCH(QString, running);
        QFETCH(QString, end);
        QFETCH(QString, result);
        HXEditCanvas f;
        QVERIFY(f.show(system.isEmpty() ? nullptr : system.constData()));
        HXRecordingCommandLine commandLine;
        f.canvas.SetCommandControl(&commandLine);
        f.map->SetMapDisplayUnit(HOUnitType(unit));
        f.canvas.setExtent(HORect(-200, 200, -150, 150));
        f.run(script);
        QCOMPARE(commandLine.edit, running);
        QVERIFY(commandLine.notices.isEmpty());
        f.run(end);
        QCOMPARE(commandLine.notices, QStringList{result});
        auto* tool = dynamic_cast<HOMeasureTool*>(f.canvas.getMapTool());
        QVERIFY(tool);
        QCOMPARE(f.canvas.getMeasruePointLayerId() > 0, true);
        QVERIFY(f.elements().isEmpty());  // measuring adds no element to the map
        // The measured points stay marked over the map after the end.
        QTRY_VERIFY_WITH_TIMEOUT(f.widget->grab().toImage().pixelColor(200, 150) != kGround, 10000);
        f.canvas.SetCommandControl(nullptr);
    }
};

QTEST_MAIN(TestCanvasMeasure)
#include "tst_canvas_measure.moc"
