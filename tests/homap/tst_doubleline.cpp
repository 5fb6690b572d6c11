// The width of a double line is metres on the ground whatever the map's units: the offset measured
// back in the map's system matches the ground distance in degrees and in Web Mercator away from the
// equator.
#include <QtTest>

#include "HOCoordinateSystem.h"
#include "edit/HODoubleLine.h"

using namespace HXObjects;

class TestDoubleLine : public QObject {
    Q_OBJECT

private slots:
    void groundWidth_data() {
        QTest::addColumn<QString>("system");
        QTest::addColumn<double>("y");         // the centre line runs east along this map y
        QTest::addColumn<double>("expected");  // the left line's map y
        QTest::addColumn<double>("precision");
        // 1000 m north of the equator: 1000 / 110574.3 m per degree of latitude.
        QTest::newRow("degrees at the equator") << "EPSG:4326" << 0.0 << 0.0090437 << 1e-6;
        // 60° N in Web Mercator: ground metres are stretched by 1 / cos 60° = 2.
        QTest::newRow("web mercator at 60 N") << "EPSG:3857" << 8399737.89 << 8399737.89 + 2000.0 << 15.0;
        QTest::newRow("no system: map units") << "" << 5.0 << 1005.0 << 1e-9;
    }

    void groundWidth() {
        QFETCH(QString, system);
        QFETCH(double, y);
        QFETCH(double, expected);
        QFETCH(double, precision);
        const auto crs =
            system.isEmpty() ? nullptr : HOCoordinateSystem::FromUserInput(system.toUtf8().data());
        QVERIFY(system.isEmpty() || crs);
        const double dx = crs && crs->IsGeographic() ? 0.001 : 100;
        HOGeometry centre(HOGeometry::GeoLineString);
        centre.AddPart({HOPoint(-dx, y), HOPoint(dx, y)});
        const auto sides = HODoubleLine::Make(centre, 2000, crs.get());
        QCOMPARE(int(sides.size()), 2);
        const HOPoint left = sides[0]->Parts().front().front();
        const HOPoint right = sides[1]->Parts().front().front();
        QVERIFY2(std::abs(left.y - expected) < precision, qPrintable(QString::number(left.y, 'f', 7)));
        QVERIFY2(std::abs((y - right.y) - (expected - y)) < precision,
                 qPrintable(QString::number(right.y, 'f', 7)));
        QCOMPARE(sides[0]->GetType(), HOGeometry::GeoLineString);
    }

    void nothingToOffset_data() {
        QTest::addColumn<double>("width");
        QTest::addColumn<int>("vertices");
        QTest::newRow("zero width") << 0.0 << 2;
        QTest::newRow("negative width") << -5.0 << 2;
        QTest::newRow("one vertex") << 10.0 << 1;
    }

    void nothingToOffset() {
        QFETCH(double, width);
        QFETCH(int, vertices);
        HOGeometry centre(HOGeometry::GeoLineString);
        centre.AddPart(HOGeometry::Part(vertices, HOPoint(3, 4)));
        if (vertices > 1) centre.Parts()[0][1] = HOPoint(30, 4);
        QVERIFY(HODoubleLine::Make(centre, width, nullptr).empty());
    }
};

QTEST_MAIN(TestDoubleLine)
#include "tst_doubleline.moc"
