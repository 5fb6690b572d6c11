// Packed degree-minute-second angles, and the Gauss–Krüger forward projection checked against PROJ's
// transverse Mercator.
#include <proj.h>

#include <QtTest>
#include <cmath>
#include <limits>

#include "CcurrencyFunc.h"
#include "HOTestColumns.h"
#include "HOUnitConversion.h"

using HXObjects::HOUnitConversion;
using C = CcurrencyFunc;

namespace {

constexpr double kFalseEasting = 500000.0;
constexpr double kInf = std::numeric_limits<double>::infinity();

}  // namespace

class TestGeodesy : public QObject {
    Q_OBJECT
private slots:
    void packedAngles_data() {
        // ddm: NaN: not checked
        HOAddColumns<double, double, double>({"degrees", "dms", "ddm"});
        const double nan = qQNaN();
        QTest::newRow("whole degrees") << 120.0 << 120.0 << 120.0;
        QTest::newRow("30 minutes, inexact in binary") << 120.5 << 120.30 << 120.30;
        QTest::newRow("minutes and seconds") << 120.0 + 30.0 / 60 + 15.0 / 3600 << 120.3015 << 120.3025;
        QTest::newRow("59 minutes 59 seconds") << 30.0 + 59.0 / 60 + 59.0 / 3600 << 30.5959 << nan;
        QTest::newRow("decimal seconds") << 120.0 + 30.0 / 60 + 15.25 / 3600 << 120.301525 << nan;
        QTest::newRow("decimal minutes") << 120.5125 << 120.3045 << 120.3075;
        QTest::newRow("1 second") << 1.0 / 3600 << 0.0001 << nan;
        QTest::newRow("negative applies to all parts")
            << -120.0 - 30.0 / 60 - 15.0 / 3600 << -120.3015 << nan;
        QTest::newRow("negative below one degree") << -0.5 << -0.30 << -0.30;
        QTest::newRow("seconds just below 60 carry")
            << 10.0 + 59.0 / 60 + 59.99999999999 / 3600 << 11.0 << nan;
        QTest::newRow("minutes just below 60 carry") << 10.99999999999999 << 11.0 << 11.0;
    }
    // Both directions of DMS, and the degree-decimal-minute display.
    void packedAngles() {
        QFETCH(double, degrees);
        QFETCH(double, dms);
        QFETCH(double, ddm);
        const double toDegrees = C::DmsToDegree(dms), toDms = HOUnitConversion::DegreeToDms(degrees);
        QVERIFY2(std::fabs(toDegrees - degrees) < 1e-11, qPrintable(QString::number(toDegrees, 'g', 17)));
        QVERIFY2(std::fabs(toDms - dms) < 1e-11, qPrintable(QString::number(toDms, 'g', 17)));
        if (!std::isnan(ddm)) QVERIFY(std::fabs(HOUnitConversion::DegreeToDdm(degrees) - ddm) < 1e-11);
    }

    void packedRoundTrip_data() {
        HOAddColumns<double, double, double>({"from", "to", "step"});
        QTest::newRow("one degree in 0.1 second steps") << 116.0 << 117.0 << 0.1 / 3600;
        QTest::newRow("west and south in odd steps") << -180.0 << 0.0 << 0.0137;
        QTest::newRow("whole globe in 1/7 minute") << -90.0 << 90.0 << 1.0 / 420;
    }
    void packedRoundTrip() {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(double, step);
        double worst = 0.0;
        for (double x = from; x <= to; x += step)
            worst = std::fmax(worst, std::fabs(C::DmsToDegree(HOUnitConversion::DegreeToDms(x)) - x));
        QVERIFY2(worst < 1e-9, qPrintable(QString::number(worst, 'g', 3)));
    }

    void packedNonFinite() {
        QVERIFY(std::isnan(C::DmsToDegree(qQNaN())));
        QVERIFY(std::isnan(HOUnitConversion::DegreeToDms(qQNaN())));
        QVERIFY(std::isnan(HOUnitConversion::DegreeToDdm(qQNaN())));
        QCOMPARE(HOUnitConversion::DegreeToDms(-kInf), -kInf);
    }

    void gaussKrugerMatchesProj_data() {
        // packed: angles in packed DMS, else decimal degrees
        HOAddColumns<int, QString, double, bool>({"ellipsoid", "projEllipsoid", "centralMeridian", "packed"});
        const QString cgcs2000 = "+a=6378137 +rf=298.257222101";
        for (double meridian : {75.0, 105.0, 117.0, 135.0, 177.0})
            QTest::addRow("CGCS2000 L0=%g", meridian) << int(C::CGCS2000) << cgcs2000 << meridian << false;
        QTest::newRow("CGCS2000 L0=117 packed") << int(C::CGCS2000) << cgcs2000 << 117.0 << true;
        QTest::newRow("CGCS2000 zone 0, L0=-3") << int(C::CGCS2000) << cgcs2000 << -3.0 << true;
        QTest::newRow("Krassovsky L0=111") << int(C::Krassovsky) << QString("+ellps=krass") << 111.0 << false;
        QTest::newRow("IAG-75 L0=93") << int(C::IAG75) << QString("+a=6378140 +rf=298.257") << 93.0 << true;
        QTest::newRow("WGS84 L0=9") << int(C::WGS84) << QString("+ellps=WGS84") << 9.0 << false;
        QTest::newRow("GRS80 L0=15") << int(C::GRS80) << QString("+ellps=GRS80") << 15.0 << false;
    }
    // A grid within 3° of the meridian, latitudes -10° to 60°. The zone number passed along must not
    // prefix the easting.
    void gaussKrugerMatchesProj() {
        QFETCH(int, ellipsoid);
        QFETCH(QString, projEllipsoid);
        QFETCH(double, centralMeridian);
        QFETCH(bool, packed);
        PJ_CONTEXT* context = proj_context_create();
        const QString tmerc =
            QString("+proj=tmerc +lon_0=%1 +x_0=500000 %2").arg(centralMeridian).arg(projEllipsoid);
        PJ* pj = proj_create(context, qPrintable(tmerc));
        QVERIFY(pj);
        double worst = 0.0;
        for (double lat = -10.0; lat <= 60.0 + 1e-9; lat += 0.73) {
            for (double lon = centralMeridian - 3; lon <= centralMeridian + 3 + 1e-9; lon += 0.25) {
                const PJ_COORD expected =
                    proj_trans(pj, PJ_FWD, proj_coord(proj_torad(lon), proj_torad(lat), 0, 0));
                double n = 0, e = 0;
                QVERIFY(C::bl2XY(ellipsoid, packed ? HOUnitConversion::DegreeToDms(lat) : lat,
                                 packed ? HOUnitConversion::DegreeToDms(lon) : lon, centralMeridian,
                                 int(centralMeridian / 6) + 1, kFalseEasting, &n, &e, packed));
                worst = std::fmax(worst, std::hypot(n - expected.enu.n, e - expected.enu.e));
            }
        }
        proj_destroy(pj);
        proj_context_destroy(context);
        qInfo("worst difference from PROJ: %.6f mm", worst * 1000.0);
        QVERIFY2(worst <= 0.001, qPrintable(QString::number(worst * 1000.0)));
    }

    void gaussKrugerRejects_data() {
        const double nan = qQNaN();
        HOAddColumns<int, double, double, double, double, int>(
            {"ellipsoid", "lat", "lon", "centralMeridian", "falseEasting", "angleFormat"});
        QTest::newRow("latitude beyond pole") << 0 << 91.0 << 117.0 << 117.0 << kFalseEasting << 0;
        QTest::newRow("packed latitude beyond pole") << 0 << -90.0001 << 117.0 << 117.0 << kFalseEasting << 1;
        QTest::newRow("NaN latitude") << 0 << nan << 117.0 << 117.0 << kFalseEasting << 0;
        QTest::newRow("infinite longitude") << 0 << 30.0 << kInf << 117.0 << kFalseEasting << 1;
        QTest::newRow("huge longitude") << 0 << 30.0 << 1e300 << 117.0 << kFalseEasting << 0;
        QTest::newRow("NaN central meridian") << 0 << 30.0 << 117.0 << nan << kFalseEasting << 0;
        QTest::newRow("NaN false easting") << 0 << 30.0 << 117.0 << 117.0 << nan << 0;
        QTest::newRow("90 degrees from meridian") << 0 << 0.0 << 27.0 << 117.0 << kFalseEasting << 0;
        QTest::newRow("unknown ellipsoid") << 17 << 30.0 << 117.0 << 117.0 << kFalseEasting << 0;
        QTest::newRow("unknown angle format") << 0 << 30.0 << 117.0 << 117.0 << kFalseEasting << 2;
    }
    void gaussKrugerRejects() {
        QFETCH(int, ellipsoid);
        QFETCH(double, lat);
        QFETCH(double, lon);
        QFETCH(double, centralMeridian);
        QFETCH(double, falseEasting);
        QFETCH(int, angleFormat);
        double n = 0, e = 0;
        QVERIFY(!C::bl2XY(ellipsoid, lat, lon, centralMeridian, 20, falseEasting, &n, &e, angleFormat));
        QVERIFY(std::isnan(n) && std::isnan(e));
        QVERIFY(
            !C::bl2XY(ellipsoid, lat, lon, centralMeridian, 20, falseEasting, nullptr, nullptr, angleFormat));
    }
};

QTEST_APPLESS_MAIN(TestGeodesy)
#include "tst_geodesy.moc"
