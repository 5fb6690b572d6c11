// Coordinate systems: reading definitions, units, the geographic base, and reprojection of points and
// geometries checked against PROJ itself.
#include <proj.h>

#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOGeometryProject.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

namespace {

// The reference: PROJ directly, with easting/longitude first.
HOPoint projTransform(const char* from, const char* to, const HOPoint& p) {
    PJ_CONTEXT* context = proj_context_create();
    PJ* raw = proj_create_crs_to_crs(context, from, to, nullptr);
    PJ* transform = proj_normalize_for_visualization(context, raw);
    const PJ_COORD out = proj_trans(transform, PJ_FWD, proj_coord(p.x, p.y, 0, 0));
    proj_destroy(transform);
    proj_destroy(raw);
    proj_context_destroy(context);
    return {out.xy.x, out.xy.y};
}

}  // namespace

class TestCoordinateSystem : public QObject {
    Q_OBJECT

private slots:
    void readsDefinitions_data();
    void readsDefinitions();
    void reprojectsKnownPointLikeProj_data();
    void reprojectsKnownPointLikeProj();
    void toGeographicUsesTheSystemsOwnBase();
    void projectsGeometryInPlace();
    void leavesGeometryUntouchedWithoutTransformation();
    void sameSystemDespiteDifferentSpelling();
};

void TestCoordinateSystem::readsDefinitions_data() {
    QTest::addColumn<QString>("definition");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("geographic");
    QTest::addColumn<bool>("projected");
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("epsg");

    QTest::newRow("CGCS2000 geographic") << "EPSG:4490" << true << true << false << int(HOUnitDegree) << 4490;
    QTest::newRow("Gauss-Kruger CM 117E") << "EPSG:4509" << true << false << true << int(HOUnitMeter) << 4509;
    QTest::newRow("US survey feet") << "EPSG:2264" << true << false << true << int(HOUnitFoot) << 2264;
    QTest::newRow("PROJ string") << "+proj=utm +zone=50 +datum=WGS84 +units=m" << true << false << true
                                 << int(HOUnitMeter) << 0;
    QTest::newRow("kilometre PROJ string")
        << "+proj=merc +datum=WGS84 +units=km" << true << false << true << int(HOUnitKilometer) << 0;
    QTest::newRow("garbage") << "no such system" << false << false << false << 0 << 0;
    QTest::newRow("unknown code") << "EPSG:999999" << false << false << false << 0 << 0;
    QTest::newRow("empty") << "" << false << false << false << 0 << 0;
}

void TestCoordinateSystem::readsDefinitions() {
    QFETCH(QString, definition);
    QFETCH(bool, valid);
    HORefPtr<HOCoordinateSystem> system = HOCoordinateSystem::FromUserInput(HOString(definition));
    QCOMPARE(bool(system), valid);
    if (!valid) return;
    QTEST(system->IsGeographic(), "geographic");
    QTEST(system->IsProjected(), "projected");
    QTEST(int(system->GetUnit()), "unit");
    QTEST(system->GetEpsgCode(), "epsg");
    // The WKT it writes reads back as the same system.
    HORefPtr<HOCoordinateSystem> again = HOCoordinateSystem::FromUserInput(system->ToWkt());
    QVERIFY(again && again->IsSame(system.get()));
}

void TestCoordinateSystem::reprojectsKnownPointLikeProj_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<HOPoint>("point");
    QTest::addColumn<double>("tolerance");

    QTest::newRow("4490 to 4509 on the meridian") << 4490 << 4509 << HOPoint(117.0, 35.0) << 1e-6;
    QTest::newRow("4490 to 4509 east of it") << 4490 << 4509 << HOPoint(118.25, 39.5) << 1e-6;
    QTest::newRow("4490 to 4509 west of it") << 4490 << 4509 << HOPoint(115.6, 24.1) << 1e-6;
    QTest::newRow("4509 to 4490") << 4509 << 4490 << HOPoint(523456.78, 3876543.21) << 1e-10;
}

void TestCoordinateSystem::reprojectsKnownPointLikeProj() {
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(HOPoint, point);
    QFETCH(double, tolerance);
    HOGeometryProject project;
    QVERIFY(project.SetPrj(HOCoordinateSystem::FromEpsg(from), HOCoordinateSystem::FromEpsg(to), nullptr));
    double x = point.x, y = point.y;
    QVERIFY(project.ProjPoint(x, y));
    const HOPoint expected = projTransform(qPrintable(QStringLiteral("EPSG:%1").arg(from)),
                                           qPrintable(QStringLiteral("EPSG:%1").arg(to)), point);
    QVERIFY2(std::abs(x - expected.x) < tolerance && std::abs(y - expected.y) < tolerance,
             qPrintable(QStringLiteral("%1 %2 vs %3 %4")
                            .arg(x, 0, 'f', 6)
                            .arg(y, 0, 'f', 6)
                            .arg(expected.x, 0, 'f', 6)
                            .arg(expected.y, 0, 'f', 6)));
}

void TestCoordinateSystem::toGeographicUsesTheSystemsOwnBase() {
    HORefPtr<HOCoordinateSystem> gk = HOCoordinateSystem::FromEpsg(4509);
    const HOPoint expected = projTransform("EPSG:4509", "EPSG:4490", HOPoint(480000.0, 3300000.0));
    double lon = 0, lat = 0;
    QVERIFY(gk->ToGeographic(480000.0, 3300000.0, &lon, &lat));
    QCOMPARE(lon, expected.x);
    QCOMPARE(lat, expected.y);
    // Longitude first even for a geographic system whose official axis order is latitude first.
    HORefPtr<HOCoordinateSystem> geographic = HOCoordinateSystem::FromEpsg(4490);
    QVERIFY(geographic->ToGeographic(117.5, 30.25, &lon, &lat));
    QCOMPARE(lon, 117.5);
    QCOMPARE(lat, 30.25);
}

void TestCoordinateSystem::projectsGeometryInPlace() {
    HORefPtr<HOGeometry> line(new HOGeometry(HOGeometry::GeoLineString));
    line->AddPart({HOPoint(117.0, 30.0), HOPoint(117.5, 30.5)});
    HOGeometryProject project;
    QVERIFY(project.SetPrj(HOCoordinateSystem::FromEpsg(4490), HOCoordinateSystem::FromEpsg(4509), nullptr));
    QVERIFY(project.ProjHxGeometry(line, HOGeometry::GeoLineString));
    const HOPoint expected = projTransform("EPSG:4490", "EPSG:4509", HOPoint(117.5, 30.5));
    QCOMPARE(line->Parts()[0][0].x, 500000.0);
    QVERIFY(std::abs(line->Parts()[0][1].x - expected.x) < 1e-6);
    QVERIFY(std::abs(line->Parts()[0][1].y - expected.y) < 1e-6);
}

void TestCoordinateSystem::leavesGeometryUntouchedWithoutTransformation() {
    HORefPtr<HOGeometry> point(new HOGeometry(HOGeometry::GeoPoint));
    point->AddPart({HOPoint(1.0, 2.0)});
    HOGeometryProject project;
    QVERIFY(!project.ProjHxGeometry(point, HOGeometry::GeoPoint));
    QVERIFY(!project.SetPrj(nullptr, HOCoordinateSystem::FromEpsg(4490), nullptr));
    QVERIFY(!project.ProjHxGeometry(point, HOGeometry::GeoPoint));
    QCOMPARE(point->Parts()[0][0], HOPoint(1.0, 2.0));
}

void TestCoordinateSystem::sameSystemDespiteDifferentSpelling() {
    HORefPtr<HOCoordinateSystem> code = HOCoordinateSystem::FromUserInput("EPSG:4509");
    HORefPtr<HOCoordinateSystem> wkt = HOCoordinateSystem::FromUserInput(code->ToWkt());
    QVERIFY(code->IsSame(wkt.get()));
    QVERIFY(!code->IsSame(HOCoordinateSystem::FromEpsg(4490).get()));
    QVERIFY(!code->IsSame(nullptr));
}

QTEST_MAIN(TestCoordinateSystem)
#include "tst_coordinatesystem.moc"
