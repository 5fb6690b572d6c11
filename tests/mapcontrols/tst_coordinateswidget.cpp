// The coordinates widget: the position under the mouse in every display unit on projected,
// geographic and system-less maps, the Gauss–Krüger zone of geographic positions, extent mode and
// typed positions that recentre the canvas.
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"
#include "HXMapCanvas.h"
#include "HXStatusBarCoordinatesWidget.h"

using namespace HXObjects;

namespace {

// Longitude 116.51, latitude 39.9 (CGCS2000), and its easting and northing in the Gauss–Krüger zone
// with central meridian 117 (EPSG:4509), as PROJ gives them.
const QPointF kGeographic(116.51, 39.9);
const QPointF kProjected(458095.9446, 4418540.6022);

HORefPtr<HOMap> MakeMap(const QString& system, int displayUnit) {
    HORefPtr<HOMap> map(new HOMap);
    if (!system.isEmpty()) map->SetSpatialReference(HOCoordinateSystem::FromUserInput(qPrintable(system)));
    map->SetMapDisplayUnit(static_cast<HOUnitType>(displayUnit));
    return map;
}

// The two numbers of a "x , y" text with three decimals; empty when the text has another form.
QList<double> Pair(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^(-?\\d+\\.\\d{3}) , (-?\\d+\\.\\d{3})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return {};
    return {match.captured(1).toDouble(), match.captured(2).toDouble()};
}

// A map canvas and a coordinates widget of its own that follows it.
struct Fixture {
    Fixture() {
        canvas.resize(400, 300);
        widget.setMapCanvas(&canvas);
    }
    QString text() const { return widget.mLineEdit->text(); }
    void type(const QString& text) {
        widget.mLineEdit->setText(text);
        QTest::keyClick(widget.mLineEdit, Qt::Key_Return);
    }
    HXMapCanvas canvas{HXMapCanvas::MapViewMode, nullptr};
    HXStatusBarCoordinatesWidget widget{nullptr};
};

}  // namespace

class TestCoordinatesWidget : public QObject {
    Q_OBJECT

    QTemporaryDir mSettingsDir;

private slots:
    void unitShownBeforeTheMouseMoves_data() {
        HOAddColumns<QString, int, QString>({"system", "displayUnit", "label"});
        QTest::newRow("geographic") << "EPSG:4326" << int(HOUnitDegree) << "Degree";
        QTest::newRow("projected in metres") << "EPSG:3857" << int(HOUnitMeter) << "m";
        QTest::newRow("projected, shown in kilometres") << "EPSG:3857" << int(HOUnitKilometer) << "Kilometer";
        QTest::newRow("no system") << "" << int(HOUnitMeter) << "Unknown unit";
    }

    // As soon as a map is shown the canvas's own unit label names its display unit, before the
    // mouse has moved over it.
    void unitShownBeforeTheMouseMoves() {
        QFETCH(QString, system);
        QFETCH(int, displayUnit);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        HORefPtr<HOMap> map = MakeMap(system, displayUnit);
        map->AddLayer(new HOTestRectLayer(HORect(10, 20, 30, 40), Qt::red, map->GetSpatialReference()));
        QLabel* unit = canvas.StatusBar()->findChild<HXStatusBarCoordinatesWidget*>()->mLabelUnit;
        QCOMPARE(unit->text(), QStringLiteral("unknown unit"));
        canvas.GetMapView()->SetMap(map);
        QTEST(unit->text(), "label");
        canvas.GetMapView()->StopRender(true);
    }

    void initTestCase() {
        QVERIFY(mSettingsDir.isValid());
        qputenv("HXGIS_SETTINGS_FILE", mSettingsDir.filePath(QStringLiteral("hxgis.ini")).toLocal8Bit());
        QVERIFY2(
            HOCoordinateSystem::FromUserInput("EPSG:4509") && HOCoordinateSystem::FromUserInput("EPSG:4490"),
            "EPSG:4509 and EPSG:4490 must be readable");
    }

    void mouseCoordinates_data() {
        // system: "-": no map at all
        // shown: (0, 0): no text
        HOAddColumns<QString, int, QPointF, QPointF, QString>({"system", "unit", "mouse", "shown", "label"});
        struct Unit {
            int unit;
            const char* name;
            const char* label;
            QPointF value;
        };
        // Degrees as shown: 116.51 is 116°30'36" (packed 116.3036) and 116°30.6' (packed 116.306).
        const Unit units[] = {
            {0, "metre", "m", kProjected},
            {1, "foot", "Feet", {1502939.451, 14496524.285}},
            {7, "nautical mile", "Nautical mile", {247.352, 2385.821}},
            {8, "kilometre", "Kilometer", {458.096, 4418.541}},
            {9, "yard", "Yard", {500979.817, 4832174.762}},
            {10, "mile", "Mile", {284.648, 2745.554}},
            {2, "degree", "Degree", kGeographic},
            {21, "decimal degrees", "Degree", kGeographic},
            {22, "degrees minutes seconds", "Degree", {116.3036, 39.54}},
            {23, "degrees decimal minutes", "Degree", {116.306, 39.54}},
            {3, "unknown unit", "Unknown unit", {}},
            {5, "unlisted unit", "", {}},
        };
        for (const Unit& u : units) {
            const bool unknown = u.unit == 3;
            QTest::addRow("projected, %s", u.name)
                << "EPSG:4509" << u.unit << kProjected << (unknown ? kProjected : u.value) << u.label;
            QTest::addRow("geographic, %s", u.name)
                << "EPSG:4490" << u.unit << kGeographic << (unknown ? kGeographic : u.value) << u.label;
        }
        // Without a system nothing is converted, whatever the display unit says.
        for (int unit : {0, 1, 2, 3, 5, 7, 8, 9, 10, 21, 22, 23})
            QTest::addRow("no system, unit %d", unit)
                << QString() << unit << kProjected << kProjected << "Unknown unit";
        QTest::newRow("no map") << "-" << 0 << kProjected << QPointF() << "Unknown unit";
        // Metres of a geographic position: its zone's central meridian (zone truncates towards zero).
        const QString geo("EPSG:4490");
        QTest::newRow("116.5: zone 20, meridian 117")
            << geo << 0 << QPointF(116.5, 39.9) << QPointF(457240.756, 4418545.342) << "m";
        QTest::newRow("-0.5: zone 0, meridian -3")
            << geo << 0 << QPointF(-0.5, 39.9) << QPointF(713807.889, 4421418.788) << "m";
        QTest::newRow("-6.5: truncated to zone 0")
            << geo << 0 << QPointF(-6.5, 39.9) << QPointF(200652.661, 4424294.469) << "m";
    }

    void mouseCoordinates() {
        QFETCH(QString, system);
        QFETCH(int, unit);
        QFETCH(QPointF, mouse);
        QFETCH(QPointF, shown);
        Fixture f;
        f.widget.showMouseCoordinates(kProjected, MakeMap(QString(), 0));  // an earlier text to replace
        f.widget.showMouseCoordinates(mouse, system == "-" ? nullptr : MakeMap(system, unit));
        const QString text = f.text();
        QCOMPARE(f.widget.mLineEdit->toolTip(), text);
        QTEST(f.widget.mLabelUnit->text(), "label");
        QCOMPARE(text.isEmpty(), shown.isNull());
        if (shown.isNull()) return;
        // A millimetre in the projections, and the last of the three decimals elsewhere.
        const QList<double> numbers = Pair(text);
        QVERIFY2(numbers.size() == 2 && qAbs(numbers.at(0) - shown.x()) <= 0.0015 &&
                     qAbs(numbers.at(1) - shown.y()) <= 0.0015,
                 qPrintable(text));
    }

    void typedCoordinates_data() {
        HOAddColumns<QString, bool>({"typed", "accepted"});
        QTest::newRow("comma") << "12.5,40" << true;
        QTest::newRow("comma between spaces") << "12.5 , 40" << true;
        QTest::newRow("one space") << "12.5 40" << true;
        QTest::newRow("several spaces") << "12.5     40" << true;
        QTest::newRow("padded comma pair") << "  12.5,40  " << true;
        QTest::newRow("semicolon") << "12.5;40" << false;
        QTest::newRow("words") << "east,north" << false;
        QTest::newRow("three numbers") << "12.5,40,7" << false;
        QTest::newRow("missing second number") << "12.5," << false;
        QTest::newRow("decimal comma") << "12,5 40" << false;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("not finite") << "inf,40" << false;
        QTest::newRow("not a number") << "12.5 nan" << false;
    }

    void typedCoordinates() {
        QFETCH(QString, typed);
        QFETCH(bool, accepted);
        Fixture f;
        f.canvas.GetMapView()->SetMap(MakeMap(QString(), 0));
        f.canvas.setExtent(HORect(0.0, 100.0, 0.0, 100.0));
        const HOPoint expected = accepted ? HOPoint(12.5, 40.0) : f.canvas.center();
        f.type(typed);
        const HOPoint after = f.canvas.center();
        QVERIFY2(qAbs(after.x - expected.x) < 1e-6 && qAbs(after.y - expected.y) < 1e-6,
                 QTest::toString(after));
        QCOMPARE(f.text(), typed);
    }

    void extentMode_data() {
        HOAddColumns<QString, QString>({"system", "label"});
        QTest::newRow("no system") << QString() << "Pixel";
        // The extent is in raw map coordinates, so a kilometre display still reads metres.
        QTest::newRow("kilometres shown on a metre system") << "EPSG:4509"
                                                            << "m";
    }

    void extentMode() {
        QFETCH(QString, system);
        Fixture f;
        const HORefPtr<HOMap> map = MakeMap(system, HOUnitKilometer);
        f.canvas.GetMapView()->SetMap(map);
        f.widget.showMouseCoordinates(QPointF(1.0, 2.0), MakeMap(QString(), 0));
        f.widget.mToggleExtentsViewButton->click();
        const HORect e = f.canvas.extent();
        const QString extentText = QString("%1,%2 ; %3,%4")
                                       .arg(e.minx, 0, 'f', 3)
                                       .arg(e.miny, 0, 'f', 3)
                                       .arg(e.maxx, 0, 'f', 3)
                                       .arg(e.maxy, 0, 'f', 3);
        QCOMPARE(f.text(), extentText);
        QTEST(f.widget.mLabelUnit->text(), "label");
        QVERIFY(f.widget.mLineEdit->isReadOnly());
        // The mouse no longer writes; the canvas's extent changes do.
        emit f.canvas.xyCoordinates(QPointF(5.0, 6.0), map);
        QCOMPARE(f.text(), extentText);
        f.widget.mLineEdit->setText(QString());
        emit f.canvas.extentsChanged();
        QCOMPARE(f.text(), extentText);

        f.widget.mToggleExtentsViewButton->click();
        QCOMPARE(f.text(), QStringLiteral("1.000 , 2.000"));
        QCOMPARE(f.widget.mLineEdit->toolTip(), QStringLiteral("1.000 , 2.000"));
        QVERIFY(!f.widget.mLineEdit->isReadOnly());
        // Back in mouse mode the canvas's extent changes no longer reach the text.
        emit f.canvas.extentsChanged();
        QCOMPARE(f.text(), QStringLiteral("1.000 , 2.000"));
    }

    // A replaced canvas is disconnected; with none at all the widget does nothing.
    void replacedAndNullCanvas() {
        Fixture f;
        HXMapCanvas other(HXMapCanvas::MapViewMode, nullptr);
        f.widget.setMapCanvas(&other);
        const HORefPtr<HOMap> map = MakeMap(QString(), 0);
        emit f.canvas.xyCoordinates(QPointF(5.0, 6.0), map);
        QCOMPARE(f.text(), QString());
        emit other.xyCoordinates(QPointF(1.0, 2.0), map);
        QCOMPARE(f.text(), QStringLiteral("1.000 , 2.000"));

        const HOPoint centre = other.center();
        f.widget.setMapCanvas(nullptr);
        emit other.xyCoordinates(QPointF(5.0, 6.0), map);
        f.widget.showMouseCoordinates(QPointF(7.0, 8.0), map);
        QCOMPARE(f.text(), QStringLiteral("1.000 , 2.000"));
        f.type(QStringLiteral("12.5,40"));
        QCOMPARE(other.center(), centre);
        f.widget.mToggleExtentsViewButton->click();
        emit other.extentsChanged();
        QCOMPARE(f.text(), QStringLiteral("12.5,40"));
    }
};

QTEST_MAIN(TestCoordinatesWidget)
#include "tst_coordinateswidget.moc"
