// Gauss–Krüger forward projection, checked against PROJ's transverse Mercator.
#include <proj.h>

#include <QtTest>
#include <cmath>
#include <limits>

#include "CcurrencyFunc.h"
#include "HOUnitConversion.h"

using HXObjects::HOUnitConversion;

namespace {

constexpr double kFalseEasting = 500000.0;

// PROJ's projection of (lat, lon) in degrees as (northing, easting); NaN when PROJ fails.
struct ProjTmerc {
    ProjTmerc(const QString& ellipsoid, double centralMeridian) {
        const QString definition = QStringLiteral("+proj=tmerc +lat_0=0 +lon_0=%1 +k=1 +x_0=%2 +y_0=0 %3")
                                       .arg(centralMeridian, 0, 'f', 6)
                                       .arg(kFalseEasting, 0, 'f', 1)
                                       .arg(ellipsoid);
        m_ctx = proj_context_create();
        m_pj = proj_create(m_ctx, definition.toUtf8().constData());
    }
    ~ProjTmerc() {
        if (m_pj) proj_destroy(m_pj);
        proj_context_destroy(m_ctx);
    }
    ProjTmerc(const ProjTmerc&) = delete;
    ProjTmerc& operator=(const ProjTmerc&) = delete;

    bool isValid() const { return m_pj != nullptr; }
    void project(double lat, double lon, double* northing, double* easting) const {
        const PJ_COORD out = proj_trans(m_pj, PJ_FWD, proj_coord(proj_torad(lon), proj_torad(lat), 0, 0));
        *easting = out.enu.e;
        *northing = out.enu.n;
    }

    PJ_CONTEXT* m_ctx = nullptr;
    PJ* m_pj = nullptr;
};

}  // namespace

class TestGaussKruger : public QObject {
    Q_OBJECT
private slots:
    void matchesProj_data();
    void matchesProj();
    void originOfZone();
    void rejects_data();
    void rejects();
    void printWorst();

private:
    double m_worstMm = 0.0;
};

void TestGaussKruger::matchesProj_data() {
    QTest::addColumn<int>("ellipsoid");
    QTest::addColumn<QString>("projEllipsoid");
    QTest::addColumn<double>("centralMeridian");
    QTest::addColumn<int>("angleFormat");
    const QString cgcs2000 = QStringLiteral("+a=6378137 +rf=298.257222101");
    for (double meridian : {75.0, 105.0, 117.0, 135.0, 177.0}) {
        QTest::addRow("CGCS2000 L0=%g decimal", meridian)
            << int(CcurrencyFunc::CGCS2000) << cgcs2000 << meridian << int(CcurrencyFunc::DecimalDegrees);
    }
    QTest::newRow("CGCS2000 L0=117 packed DMS")
        << int(CcurrencyFunc::CGCS2000) << cgcs2000 << 117.0 << int(CcurrencyFunc::PackedDms);
    QTest::newRow("CGCS2000 zone 0, L0=-3")
        << int(CcurrencyFunc::CGCS2000) << cgcs2000 << -3.0 << int(CcurrencyFunc::PackedDms);
    QTest::newRow("Krassovsky L0=111") << int(CcurrencyFunc::Krassovsky) << QStringLiteral("+ellps=krass")
                                       << 111.0 << int(CcurrencyFunc::DecimalDegrees);
    QTest::newRow("IAG-75 L0=93") << int(CcurrencyFunc::IAG75) << QStringLiteral("+a=6378140 +rf=298.257")
                                  << 93.0 << int(CcurrencyFunc::PackedDms);
    QTest::newRow("WGS84 L0=9") << int(CcurrencyFunc::WGS84) << QStringLiteral("+ellps=WGS84") << 9.0
                                << int(CcurrencyFunc::DecimalDegrees);
}

// A grid of points within 3° of the meridian, latitudes 0-60°, also south of the equator.
void TestGaussKruger::matchesProj() {
    QFETCH(int, ellipsoid);
    QFETCH(QString, projEllipsoid);
    QFETCH(double, centralMeridian);
    QFETCH(int, angleFormat);
    const ProjTmerc proj(projEllipsoid, centralMeridian);
    QVERIFY(proj.isValid());
    const bool packed = angleFormat == CcurrencyFunc::PackedDms;
    double worst = 0.0;
    for (double lat = -10.0; lat <= 60.0 + 1e-9; lat += 0.73) {
        for (double dLon = -3.0; dLon <= 3.0 + 1e-9; dLon += 0.25) {
            const double lon = centralMeridian + dLon;
            double expectedN = 0, expectedE = 0, n = 0, e = 0;
            proj.project(lat, lon, &expectedN, &expectedE);
            const double latIn = packed ? HOUnitConversion::DegreeToDms(lat) : lat;
            const double lonIn = packed ? HOUnitConversion::DegreeToDms(lon) : lon;
            QVERIFY(CcurrencyFunc::bl2XY(ellipsoid, latIn, lonIn, centralMeridian, 0, kFalseEasting, &n, &e,
                                         angleFormat));
            worst = std::fmax(worst, std::hypot(n - expectedN, e - expectedE));
        }
    }
    const double worstMm = worst * 1000.0;
    m_worstMm = std::fmax(m_worstMm, worstMm);
    qInfo("worst difference from PROJ: %.6f mm", worstMm);
    QVERIFY2(worstMm <= 1.0, qPrintable(QString::number(worstMm)));
}

// On the equator at the central meridian the point is the false origin; zone 20 (L0 117°) at
// 116.5° is west of the meridian, so its easting is below the false easting.
void TestGaussKruger::originOfZone() {
    double n = -1, e = -1;
    QVERIFY(CcurrencyFunc::bl2XY(0, 0.0, 117.0, 117.0, 20, kFalseEasting, &n, &e, 1));
    QCOMPARE(n, 0.0);
    QCOMPARE(e, kFalseEasting);
    QVERIFY(CcurrencyFunc::bl2XY(0, HOUnitConversion::DegreeToDms(39.9), HOUnitConversion::DegreeToDms(116.5),
                                 117.0, 20, kFalseEasting, &n, &e, 1));
    QVERIFY(e < kFalseEasting && e > kFalseEasting - 50000.0);
    QVERIFY(n > 4400000.0 && n < 4430000.0);
}

void TestGaussKruger::rejects_data() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    QTest::addColumn<int>("ellipsoid");
    QTest::addColumn<double>("lat");
    QTest::addColumn<double>("lon");
    QTest::addColumn<double>("centralMeridian");
    QTest::addColumn<double>("falseEasting");
    QTest::addColumn<int>("angleFormat");
    QTest::newRow("latitude beyond pole") << 0 << 91.0 << 117.0 << 117.0 << kFalseEasting << 0;
    QTest::newRow("packed latitude beyond pole") << 0 << -90.0001 << 117.0 << 117.0 << kFalseEasting << 1;
    QTest::newRow("NaN latitude") << 0 << nan << 117.0 << 117.0 << kFalseEasting << 0;
    QTest::newRow("infinite longitude") << 0 << 30.0 << inf << 117.0 << kFalseEasting << 1;
    QTest::newRow("huge longitude") << 0 << 30.0 << 1e300 << 117.0 << kFalseEasting << 0;
    QTest::newRow("NaN central meridian") << 0 << 30.0 << 117.0 << nan << kFalseEasting << 0;
    QTest::newRow("NaN false easting") << 0 << 30.0 << 117.0 << 117.0 << nan << 0;
    QTest::newRow("90 degrees from meridian") << 0 << 0.0 << 27.0 << 117.0 << kFalseEasting << 0;
    QTest::newRow("unknown ellipsoid") << 17 << 30.0 << 117.0 << 117.0 << kFalseEasting << 0;
    QTest::newRow("unknown angle format") << 0 << 30.0 << 117.0 << 117.0 << kFalseEasting << 2;
}

void TestGaussKruger::rejects() {
    QFETCH(int, ellipsoid);
    QFETCH(double, lat);
    QFETCH(double, lon);
    QFETCH(double, centralMeridian);
    QFETCH(double, falseEasting);
    QFETCH(int, angleFormat);
    double n = 0, e = 0;
    QVERIFY(
        !CcurrencyFunc::bl2XY(ellipsoid, lat, lon, centralMeridian, 20, falseEasting, &n, &e, angleFormat));
    QVERIFY(std::isnan(n));
    QVERIFY(std::isnan(e));
    QVERIFY(!CcurrencyFunc::bl2XY(ellipsoid, lat, lon, centralMeridian, 20, falseEasting, nullptr, nullptr,
                                  angleFormat));
}

void TestGaussKruger::printWorst() {
    qInfo("worst difference from PROJ over all grids: %.6f mm", m_worstMm);
}

QTEST_APPLESS_MAIN(TestGaussKruger)
#include "tst_gausskruger.moc"
