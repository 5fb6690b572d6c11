// The coordinates widget: the position under the mouse in every display unit on projected,
// geographic and system-less maps, the Gauss–Krüger zone of geographic positions, extent mode and
// typed positions that recentre the canvas.
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>
#include <memory>

#include "HOCoordinateSystem.h"
#include "HOLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTestPrinters.h"
#include "HXMapCanvas.h"
#include "HXStatusBarCoordinatesWidget.h"

using namespace HXObjects;

namespace {

// Test point: longitude 116.51, latitude 39.9 (CGCS2000), and its easting and northing in the
// Gauss–Krüger zone with central meridian 117 (EPSG:4509), as PROJ gives them.
const QPointF kGeographic(116.51, 39.9);
const QPointF kProjected(458095.9446, 4418540.6022);

HORefPtr<HOMap> makeMap(const char* system, int displayUnit) {
    HORefPtr<HOMap> map(new HOMap);
    if (system) map->SetSpatialReference(HOCoordinateSystem::FromUserInput(system));
    map->SetMapDisplayUnit(static_cast<HOUnitType>(displayUnit));
    return map;
}

// The two numbers of a "x , y" text; empty when the text has another form.
QList<double> pair(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^(-?\\d+\\.\\d{3}) , (-?\\d+\\.\\d{3})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return {};
    return {match.captured(1).toDouble(), match.captured(2).toDouble()};
}

}  // namespace

class TestCoordinatesWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void mouseCoordinates_data();
    void mouseCoordinates();
    void gaussKrugerZone_data();
    void gaussKrugerZone();
    void unlistedUnitShowsNothing_data();
    void unlistedUnitShowsNothing();
    void noMap();
    void typedCoordinates_data();
    void typedCoordinates();
    void extentMode();
    void extentLabelFollowsTheSystemUnit();
    void nullCanvasLeavesTheWidgetInert();
    void replacedCanvasIsDisconnected();
    void canvasStatusBarShowsMouseCoordinates();

private:
    void showAt(const QPointF& p, HOMap* map) { mWidget->showMouseCoordinates(p, map); }

    QTemporaryDir mSettingsDir;
    std::unique_ptr<HXMapCanvas> mCanvas;
    std::unique_ptr<HXStatusBarCoordinatesWidget> mWidget;
};

void TestCoordinatesWidget::initTestCase() {
    QVERIFY(mSettingsDir.isValid());
    qputenv("HXGIS_SETTINGS_FILE", mSettingsDir.filePath(QStringLiteral("hxgis.ini")).toLocal8Bit());
    QVERIFY2(HOCoordinateSystem::FromUserInput("EPSG:4509"), "EPSG:4509 must be readable");
    QVERIFY2(HOCoordinateSystem::FromUserInput("EPSG:4490"), "EPSG:4490 must be readable");
}

void TestCoordinatesWidget::init() {
    mCanvas = std::make_unique<HXMapCanvas>(HXMapCanvas::MapViewMode, nullptr);
    mCanvas->resize(400, 300);
    mWidget = std::make_unique<HXStatusBarCoordinatesWidget>(nullptr);
    mWidget->setMapCanvas(mCanvas.get());
}

void TestCoordinatesWidget::cleanup() {
    mWidget.reset();
    mCanvas.reset();
}

void TestCoordinatesWidget::mouseCoordinates_data() {
    QTest::addColumn<QString>("system");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QPointF>("mouse");
    QTest::addColumn<QPointF>("shown");
    QTest::addColumn<QString>("label");

    const QPointF gk(458095.9446, 4418540.6022);
    struct Linear {
        int unit;
        const char* name;
        const char* label;
        QPointF value;
    };
    const Linear linear[] = {
        {0, "metre", "m", gk},
        {1, "foot", "Feet", {1502939.451, 14496524.285}},
        {7, "nautical mile", "Nautical mile", {247.352, 2385.821}},
        {8, "kilometre", "Kilometer", {458.096, 4418.541}},
        {9, "yard", "Yard", {500979.817, 4832174.762}},
        {10, "mile", "Mile", {284.648, 2745.554}},
    };
    // Degrees as shown: 116.51 is 116°30'36" (packed 116.3036) and 116°30.6' (packed 116.306).
    struct Angular {
        int unit;
        const char* name;
        QPointF value;
    };
    const Angular angular[] = {
        {2, "degree", kGeographic},
        {21, "decimal degrees", kGeographic},
        {22, "degrees minutes seconds", {116.3036, 39.54}},
        {23, "degrees decimal minutes", {116.306, 39.54}},
    };

    for (const Linear& u : linear) {
        QTest::addRow("projected, %s", u.name) << "EPSG:4509" << u.unit << kProjected << u.value << u.label;
        QTest::addRow("geographic, %s", u.name) << "EPSG:4490" << u.unit << kGeographic << u.value << u.label;
    }
    for (const Angular& u : angular) {
        QTest::addRow("projected, %s", u.name) << "EPSG:4509" << u.unit << kProjected << u.value << "Degree";
        QTest::addRow("geographic, %s", u.name)
            << "EPSG:4490" << u.unit << kGeographic << u.value << "Degree";
    }
    QTest::newRow("projected, unknown unit")
        << "EPSG:4509" << 3 << kProjected << kProjected << "Unknown unit";
    QTest::newRow("geographic, unknown unit")
        << "EPSG:4490" << 3 << kGeographic << kGeographic << "Unknown unit";
    // Without a system nothing is converted, whatever the display unit says.
    for (int unit : {0, 1, 2, 3, 5, 7, 8, 9, 10, 21, 22, 23})
        QTest::addRow("no system, unit %d", unit)
            << QString() << unit << kProjected << kProjected << "Unknown unit";
}

void TestCoordinatesWidget::mouseCoordinates() {
    QFETCH(QString, system);
    QFETCH(int, unit);
    QFETCH(QPointF, mouse);
    QFETCH(QPointF, shown);
    QFETCH(QString, label);
    const HORefPtr<HOMap> map = makeMap(system.isEmpty() ? nullptr : qPrintable(system), unit);

    showAt(mouse, map);

    const QString text = mWidget->mLineEdit->text();
    const QList<double> numbers = pair(text);
    QVERIFY2(numbers.size() == 2, qPrintable(text));
    // A millimetre in the projections, and the last of the three decimals elsewhere.
    QVERIFY2(qAbs(numbers.at(0) - shown.x()) <= 0.0015, qPrintable(text));
    QVERIFY2(qAbs(numbers.at(1) - shown.y()) <= 0.0015, qPrintable(text));
    QCOMPARE(mWidget->mLineEdit->toolTip(), text);
    QCOMPARE(mWidget->mLabelUnit->text(), label);
}

void TestCoordinatesWidget::gaussKrugerZone_data() {
    QTest::addColumn<double>("longitude");
    QTest::addColumn<QPointF>("eastNorth");
    // Easting and northing at latitude 39.9 from PROJ, on the central meridian the zone gives.
    QTest::newRow("116.5: zone 20, meridian 117") << 116.5 << QPointF(457240.756, 4418545.342);
    QTest::newRow("-0.5: zone 0, meridian -3") << -0.5 << QPointF(713807.889, 4421418.788);
    QTest::newRow("-6.5: truncated to zone 0") << -6.5 << QPointF(200652.661, 4424294.469);
}

void TestCoordinatesWidget::gaussKrugerZone() {
    QFETCH(double, longitude);
    QFETCH(QPointF, eastNorth);
    showAt(QPointF(longitude, 39.9), makeMap("EPSG:4490", HOUnitMeter));
    const QList<double> numbers = pair(mWidget->mLineEdit->text());
    QCOMPARE(numbers.size(), 2);
    QVERIFY2(qAbs(numbers.at(0) - eastNorth.x()) <= 0.0015, qPrintable(mWidget->mLineEdit->text()));
    QVERIFY2(qAbs(numbers.at(1) - eastNorth.y()) <= 0.0015, qPrintable(mWidget->mLineEdit->text()));
}

void TestCoordinatesWidget::unlistedUnitShowsNothing_data() {
    QTest::addColumn<QString>("system");
    QTest::addColumn<QPointF>("mouse");
    QTest::newRow("projected") << "EPSG:4509" << kProjected;
    QTest::newRow("geographic") << "EPSG:4490" << kGeographic;
}

void TestCoordinatesWidget::unlistedUnitShowsNothing() {
    QFETCH(QString, system);
    QFETCH(QPointF, mouse);
    showAt(kProjected, makeMap(nullptr, 0));
    showAt(mouse, makeMap(qPrintable(system), 5));
    QCOMPARE(mWidget->mLineEdit->text(), QString());
    QCOMPARE(mWidget->mLineEdit->toolTip(), QString());
    QCOMPARE(mWidget->mLabelUnit->text(), QString());
}

void TestCoordinatesWidget::noMap() {
    showAt(kProjected, makeMap("EPSG:4509", 0));
    showAt(kProjected, nullptr);
    QCOMPARE(mWidget->mLineEdit->text(), QString());
    QCOMPARE(mWidget->mLineEdit->toolTip(), QString());
    QCOMPARE(mWidget->mLabelUnit->text(), QStringLiteral("Unknown unit"));
}

void TestCoordinatesWidget::typedCoordinates_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
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
}

void TestCoordinatesWidget::typedCoordinates() {
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    mCanvas->GetMapView()->SetMap(makeMap(nullptr, 0));
    mCanvas->setExtent(HORect(0.0, 100.0, 0.0, 100.0));
    const HOPoint before = mCanvas->center();

    mWidget->mLineEdit->setText(typed);
    QTest::keyClick(mWidget->mLineEdit, Qt::Key_Return);

    const HOPoint after = mCanvas->center();
    const HOPoint expected = accepted ? HOPoint(12.5, 40.0) : before;
    QVERIFY2(qAbs(after.x - expected.x) < 1e-6 && qAbs(after.y - expected.y) < 1e-6, QTest::toString(after));
    QCOMPARE(mWidget->mLineEdit->text(), typed);
}

void TestCoordinatesWidget::extentMode() {
    const HORefPtr<HOMap> map = makeMap(nullptr, 0);
    showAt(QPointF(1.0, 2.0), map);
    mWidget->mToggleExtentsViewButton->click();

    const HORect extent = mCanvas->extent();
    const QString extentText = QStringLiteral("%1,%2 ; %3,%4")
                                   .arg(extent.minx, 0, 'f', 3)
                                   .arg(extent.miny, 0, 'f', 3)
                                   .arg(extent.maxx, 0, 'f', 3)
                                   .arg(extent.maxy, 0, 'f', 3);
    QCOMPARE(mWidget->mLineEdit->text(), extentText);
    QCOMPARE(mWidget->mLabelUnit->text(), QStringLiteral("Pixel"));
    QVERIFY(mWidget->mLineEdit->isReadOnly());

    showAt(QPointF(3.0, 4.0), map);
    emit mCanvas->xyCoordinates(QPointF(5.0, 6.0), map);
    QCOMPARE(mWidget->mLineEdit->text(), extentText);

    mWidget->mLineEdit->setText(QString());
    emit mCanvas->extentsChanged();
    QCOMPARE(mWidget->mLineEdit->text(), extentText);

    mWidget->mToggleExtentsViewButton->click();
    QCOMPARE(mWidget->mLineEdit->text(), QStringLiteral("1.000 , 2.000"));
    QCOMPARE(mWidget->mLineEdit->toolTip(), QStringLiteral("1.000 , 2.000"));
    QVERIFY(!mWidget->mLineEdit->isReadOnly());

    // Back in mouse mode the canvas's extent changes no longer reach the text.
    emit mCanvas->extentsChanged();
    QCOMPARE(mWidget->mLineEdit->text(), QStringLiteral("1.000 , 2.000"));
}

void TestCoordinatesWidget::extentLabelFollowsTheSystemUnit() {
    // The extent is in raw map coordinates, so a kilometre display still reads metres.
    const HORefPtr<HOMap> map = makeMap("EPSG:4509", HOUnitKilometer);
    mCanvas->GetMapView()->SetMap(map);
    mWidget->mToggleExtentsViewButton->click();
    QCOMPARE(mWidget->mLabelUnit->text(), QStringLiteral("m"));
}

void TestCoordinatesWidget::nullCanvasLeavesTheWidgetInert() {
    const HORefPtr<HOMap> map = makeMap(nullptr, 0);
    showAt(QPointF(1.0, 2.0), map);
    const HOPoint centre = mCanvas->center();
    mWidget->setMapCanvas(nullptr);

    emit mCanvas->xyCoordinates(QPointF(5.0, 6.0), map);
    showAt(QPointF(7.0, 8.0), map);
    QCOMPARE(mWidget->mLineEdit->text(), QStringLiteral("1.000 , 2.000"));

    mWidget->mLineEdit->setText(QStringLiteral("12.5,40"));
    QTest::keyClick(mWidget->mLineEdit, Qt::Key_Return);
    QCOMPARE(mCanvas->center(), centre);

    mWidget->mToggleExtentsViewButton->click();
    emit mCanvas->extentsChanged();
    QCOMPARE(mWidget->mLineEdit->text(), QStringLiteral("12.5,40"));
}

void TestCoordinatesWidget::replacedCanvasIsDisconnected() {
    HXMapCanvas other(HXMapCanvas::MapViewMode, nullptr);
    mWidget->setMapCanvas(&other);
    const HORefPtr<HOMap> map = makeMap(nullptr, 0);

    emit mCanvas->xyCoordinates(QPointF(5.0, 6.0), map);
    QCOMPARE(mWidget->mLineEdit->text(), QString());
    emit other.xyCoordinates(QPointF(7.0, 8.0), map);
    QCOMPARE(mWidget->mLineEdit->text(), QStringLiteral("7.000 , 8.000"));
}

void TestCoordinatesWidget::canvasStatusBarShowsMouseCoordinates() {
    // The canvas reports map positions once its map holds a layer.
    QFile points(mSettingsDir.filePath(QStringLiteral("points.geojson")));
    QVERIFY(points.open(QIODevice::WriteOnly));
    points.write(R"({"type": "FeatureCollection",
        "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::4509"}},
        "features": [{"type": "Feature", "properties": {},
                      "geometry": {"type": "Point", "coordinates": [458095.9446, 4418540.6022]}}]})");
    points.close();
    const HORefPtr<HOMap> map = makeMap("EPSG:4509", HOUnitMeter);
    HOString error;
    const HORefPtr<HOLayer> layer = OpenLayer(HOString(qPrintable(points.fileName())), &error);
    QVERIFY2(layer, error.toStdString().c_str());
    map->AddLayer(layer);
    mCanvas->GetMapView()->SetMap(map);
    mCanvas->show();
    QVERIFY(QTest::qWaitForWindowExposed(mCanvas.get()));
    mCanvas->setExtent(HORect(450000.0, 470000.0, 4410000.0, 4425000.0));

    auto* coords = mCanvas->findChild<HXStatusBarCoordinatesWidget*>(QStringLiteral("mCoordsEdit"));
    QVERIFY(coords);
    QWidget* drawing = mCanvas->childAt(mCanvas->width() / 2, 50);
    QVERIFY(drawing);
    const QPoint middle(drawing->width() / 2, drawing->height() / 2);

    QTest::mouseMove(drawing, middle);
    QList<double> numbers = pair(coords->mLineEdit->text());
    QCOMPARE(numbers.size(), 2);
    QVERIFY2(mCanvas->extent().Contains(HOPoint(numbers.at(0), numbers.at(1))),
             qPrintable(coords->mLineEdit->text()));
    QCOMPARE(coords->mLabelUnit->text(), QStringLiteral("m"));

    map->SetMapDisplayUnit(HOUnitDecimalDegree);
    QTest::mouseMove(drawing, middle + QPoint(1, 1));
    numbers = pair(coords->mLineEdit->text());
    QCOMPARE(numbers.size(), 2);
    QVERIFY2(numbers.at(0) > 116.4 && numbers.at(0) < 116.7 && numbers.at(1) > 39.8 && numbers.at(1) < 40.0,
             qPrintable(coords->mLineEdit->text()));
    QCOMPARE(coords->mLabelUnit->text(), QStringLiteral("Degree"));
}

QTEST_MAIN(TestCoordinatesWidget)
#include "tst_coordinateswidget.moc"
