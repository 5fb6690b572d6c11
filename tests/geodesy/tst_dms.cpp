// Packed degree-minute-second and degree-decimal-minute angles.
#include <QtTest>
#include <cmath>
#include <limits>

#include "CcurrencyFunc.h"
#include "HOUnitConversion.h"

using HXObjects::HOUnitConversion;

class TestDms : public QObject {
    Q_OBJECT
private slots:
    void dmsToDegree_data();
    void dmsToDegree();
    void degreeToDms_data();
    void degreeToDms();
    void degreeToDdm_data();
    void degreeToDdm();
    void roundTrip_data();
    void roundTrip();
    void nonFiniteStaysNonFinite();
};

void TestDms::dmsToDegree_data() {
    QTest::addColumn<double>("packed");
    QTest::addColumn<double>("degrees");
    QTest::newRow("whole degrees") << 120.0 << 120.0;
    QTest::newRow("30 minutes, inexact in binary") << 120.30 << 120.5;
    QTest::newRow("minutes and seconds") << 120.3015 << 120.0 + 30.0 / 60 + 15.0 / 3600;
    QTest::newRow("59 minutes 59 seconds") << 30.5959 << 30.0 + 59.0 / 60 + 59.0 / 3600;
    QTest::newRow("decimal seconds") << 120.301525 << 120.0 + 30.0 / 60 + 15.25 / 3600;
    QTest::newRow("10 minutes") << 45.10 << 45.0 + 10.0 / 60;
    QTest::newRow("1 second") << 0.0001 << 1.0 / 3600;
    QTest::newRow("negative applies to all parts") << -120.3015 << -(120.0 + 30.0 / 60 + 15.0 / 3600);
    QTest::newRow("negative below one degree") << -0.30 << -0.5;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("pole") << 90.0 << 90.0;
    QTest::newRow("antimeridian west") << -179.5959 << -(179.0 + 59.0 / 60 + 59.0 / 3600);
}

void TestDms::dmsToDegree() {
    QFETCH(double, packed);
    QFETCH(double, degrees);
    QVERIFY2(std::fabs(CcurrencyFunc::DmsToDegree(packed) - degrees) < 1e-12,
             qPrintable(QString::number(CcurrencyFunc::DmsToDegree(packed), 'g', 17)));
}

void TestDms::degreeToDms_data() {
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("packed");
    QTest::newRow("half degree") << 120.5 << 120.30;
    QTest::newRow("minutes and seconds") << 120.0 + 30.0 / 60 + 15.0 / 3600 << 120.3015;
    QTest::newRow("decimal seconds") << 120.0 + 30.0 / 60 + 15.3 / 3600 << 120.301530;
    QTest::newRow("negative mirrored") << -120.5 << -120.30;
    QTest::newRow("seconds just below 60 carry") << 10.0 + 59.0 / 60 + 59.99999999999 / 3600 << 11.0;
    QTest::newRow("minutes just below 60 carry") << 10.99999999999999 << 11.0;
    QTest::newRow("59 59 stays") << 30.0 + 59.0 / 60 + 59.0 / 3600 << 30.5959;
    QTest::newRow("zero") << 0.0 << 0.0;
}

void TestDms::degreeToDms() {
    QFETCH(double, degrees);
    QFETCH(double, packed);
    QVERIFY2(std::fabs(HOUnitConversion::DegreeToDms(degrees) - packed) < 1e-11,
             qPrintable(QString::number(HOUnitConversion::DegreeToDms(degrees), 'g', 17)));
}

void TestDms::degreeToDdm_data() {
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("packed");
    QTest::newRow("half degree") << 120.5 << 120.30;
    QTest::newRow("decimal minutes kept") << 120.5125 << 120.3075;
    QTest::newRow("negative mirrored") << -33.25 << -33.15;
    QTest::newRow("minutes just below 60 carry") << 10.99999999999999 << 11.0;
    QTest::newRow("zero") << 0.0 << 0.0;
}

void TestDms::degreeToDdm() {
    QFETCH(double, degrees);
    QFETCH(double, packed);
    QVERIFY2(std::fabs(HOUnitConversion::DegreeToDdm(degrees) - packed) < 1e-11,
             qPrintable(QString::number(HOUnitConversion::DegreeToDdm(degrees), 'g', 17)));
}

void TestDms::roundTrip_data() {
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<double>("step");
    QTest::newRow("one degree in 0.1 second steps") << 116.0 << 117.0 << 0.1 / 3600;
    QTest::newRow("west and south in odd steps") << -180.0 << 0.0 << 0.0137;
    QTest::newRow("whole globe in 1/7 minute") << -90.0 << 90.0 << 1.0 / 420;
}

// Every displayed angle must read back as the angle it came from.
void TestDms::roundTrip() {
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(double, step);
    double worst = 0.0;
    for (double x = from; x <= to; x += step)
        worst = std::fmax(worst, std::fabs(CcurrencyFunc::DmsToDegree(HOUnitConversion::DegreeToDms(x)) - x));
    QVERIFY2(worst < 1e-9, qPrintable(QString::number(worst, 'g', 3)));
}

void TestDms::nonFiniteStaysNonFinite() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    QVERIFY(std::isnan(CcurrencyFunc::DmsToDegree(nan)));
    QVERIFY(std::isnan(HOUnitConversion::DegreeToDms(nan)));
    QVERIFY(std::isnan(HOUnitConversion::DegreeToDdm(nan)));
    QCOMPARE(HOUnitConversion::DegreeToDms(-inf), -inf);
}

QTEST_APPLESS_MAIN(TestDms)
#include "tst_dms.moc"
