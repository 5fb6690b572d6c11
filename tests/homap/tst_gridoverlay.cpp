// The ruler-and-grid overlay: where its lines fall on a Gauss-Krueger, a geographic and a world map
// (checked against PROJ through OGR), the conversion of a geographic map's grid to kilometres, the
// rulers' labels, and settings that must neither hang nor smear.
#include <ogr_spatialref.h>

#include <QElapsedTimer>
#include <QPainter>
#include <QtTest>
#include <cmath>
#include <functional>
#include <memory>

#include "HOCoordinateSystem.h"
#include "HOGridSpacing.h"
#include "HOMapGridOverlay.h"
#include "HOTestColumns.h"
#include "private/HOCoordinateSystemOgr.h"

Q_DECLARE_METATYPE(HXObjects::HOMapRulerAndGrid)

using namespace HXObjects;

namespace {

const HOColor kGrid(255, 0, 255), kLabel(0, 0, 255), kTick(0, 150, 0);
constexpr int kW = 800, kH = 600;

bool isGrid(QRgb c) {
    return qRed(c) > 200 && qBlue(c) > 200 && qGreen(c) < 100;
}
bool isLabel(QRgb c) {
    return qBlue(c) > 150 && qRed(c) < 110 && qGreen(c) < 110;
}

HOMapRulerAndGrid lookOnly() {
    HOMapRulerAndGrid s;
    s.set_km_grid_color(kGrid);
    s.set_bl_grid_color(kGrid);
    s.set_km_grid_line_width(2);
    s.set_bl_grid_line_width(2);
    s.set_km_grid_ruler_label_font_color(kLabel);
    s.set_bl_grid_ruler_label_font_color(kLabel);
    s.set_km_grid_ruler_tick_mark_color(kTick);
    s.set_bl_grid_ruler_tick_mark_color(kTick);
    return s;
}

HOMapRulerAndGrid manualKm(double dx, double dy, double x0 = 0, double y0 = 0) {
    HOMapRulerAndGrid s = lookOnly();
    s.set_draw_km_grid(true);
    s.set_manually_set_km_grid_distanse(true);
    s.set_km_grid_x_distance(dx);
    s.set_km_grid_y_distance(dy);
    s.set_km_grid_x_start_position(x0);
    s.set_km_grid_y_start_position(y0);
    return s;
}

HOMapRulerAndGrid manualBl(double seconds) {
    HOMapRulerAndGrid s = lookOnly();
    s.set_draw_bl_grid(true);
    s.set_manually_set_bl_grid_distanse(true);
    s.set_bl_grid_x_distance(seconds);
    s.set_bl_grid_y_distance(seconds);
    s.set_convert_scale(0);
    return s;
}

// The view's transform centred on a map point.
HOMapGridOverlay::Target targetAt(const char* crs, HOPoint centre, double unitsPerPixel) {
    HOMapGridOverlay::Target t;
    t.system = crs ? HOCoordinateSystem::FromUserInput(crs) : nullptr;
    t.size = HOSize(kW, kH);
    t.transform.unitsPerPixel = unitsPerPixel;
    t.transform.extentLeft = centre.x - kW / 2.0 * unitsPerPixel;
    t.transform.extentTop = centre.y + kH / 2.0 * unitsPerPixel;
    return t;
}

QImage render(const HOMapRulerAndGrid& settings, const HOMapGridOverlay::Target& target) {
    QImage image(kW, kH, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    HOMapGridOverlay overlay;
    overlay.Draw(painter, settings, target);
    return image;
}

// Longitude/latitude of the map's datum to and from device pixels, through PROJ.
class Geo {
public:
    explicit Geo(const HOMapGridOverlay::Target& target) : m_target(target) {
        OGRSpatialReference map(*HOCoordinateSystemOgr::Ogr(target.system));
        map.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        OGRSpatialReference* geo = map.CloneGeogCS();
        geo->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        m_forward.reset(OGRCreateCoordinateTransformation(geo, &map));
        m_inverse.reset(OGRCreateCoordinateTransformation(&map, geo));
        geo->Release();
    }
    bool toDevice(double lon, double lat, QPointF* p) const {
        if (!m_forward->Transform(1, &lon, &lat) || !std::isfinite(lon)) return false;
        const HOPoint d = m_target.transform.ToDevice(HOPoint(lon, lat));
        *p = QPointF(d.x, d.y);
        return true;
    }
    bool toGeo(const QPointF& p, double* lon, double* lat) const {
        const HOPoint m = m_target.transform.ToMap(p.x(), p.y());
        *lon = m.x, *lat = m.y;
        return m_inverse->Transform(1, lon, lat) && std::isfinite(*lon);
    }

private:
    HOMapGridOverlay::Target m_target;
    std::unique_ptr<OGRCoordinateTransformation> m_forward, m_inverse;
};

// Grid pixels within 2 pixels of `p`.
bool gridNear(const QImage& image, const QPointF& p) {
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx) {
            const QPoint q(int(std::floor(p.x())) + dx, int(std::floor(p.y())) + dy);
            if (image.rect().contains(q) && isGrid(image.pixel(q))) return true;
        }
    return false;
}

double offLattice(double value, double step) {
    const double r = std::fmod(std::abs(value), step);
    return std::min(r, step - r);
}

int gridPixels(const QImage& image) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) n += isGrid(image.pixel(x, y));
    return n;
}

}  // namespace

class TestGridOverlay : public QObject {
    Q_OBJECT

private slots:
    void kmLinesOnProjectedMap() {
        // 10 m per pixel around (500 000, 3 300 000): 1 km lines every 100 pixels, lying on
        // x = 50, 150, ... once shifted by the 3.5 km start.
        const auto target = targetAt("EPSG:4509", HOPoint(500000, 3300000), 10.0);
        const QImage image = render(manualKm(1000, 1000, 3500, 500), target);
        for (int y = 0; y < kH; ++y)
            for (int x = 0; x < kW; ++x) {
                const auto near = [](int pixel) { return offLattice(pixel + 0.5 - 50.0, 100.0) < 1.0; };
                const bool onLine = near(x) || near(y);
                if (isGrid(image.pixel(x, y)) != onLine)
                    QFAIL(qPrintable(QString("pixel %1,%2 is %3 a grid line")
                                         .arg(x)
                                         .arg(y)
                                         .arg(onLine ? "not" : "wrongly")));
            }
    }

    void blLinesFollowTheProjection_data() {
        HOAddColumns<QString, double, double, double, double>(
            {"crs", "lon", "lat", "unitsPerPixel", "seconds"});
        // East of the central meridian, the meridians of a Gauss-Krueger map lean and curve.
        QTest::newRow("gauss-krueger") << "EPSG:4509" << 118.2 << 30.0 << 40.0 << 300.0;
        QTest::newRow("geographic") << "EPSG:4490" << 117.3 << 30.1 << 0.0004 << 600.0;
        QTest::newRow("web mercator, high north") << "EPSG:3857" << 20.0 << 70.0 << 400.0 << 1800.0;
    }
    void blLinesFollowTheProjection() {
        QFETCH(QString, crs);
        QFETCH(double, lon);
        QFETCH(double, lat);
        QFETCH(double, unitsPerPixel);
        QFETCH(double, seconds);
        auto target = targetAt(crs.toLatin1().constData(), HOPoint(), unitsPerPixel);
        const Geo geo0(target);
        QPointF centre;
        QVERIFY(geo0.toDevice(lon, lat, &centre));
        target = targetAt(crs.toLatin1().constData(), target.transform.ToMap(centre.x(), centre.y()),
                          unitsPerPixel);
        const Geo geo(target);
        const QImage image = render(manualBl(seconds), target);
        const double step = seconds / 3600.0;

        // Along every meridian and parallel of the lattice in view: grid pixels.
        int checked = 0;
        for (double k = std::floor((lon - 1) / step); k * step <= lon + 1; ++k)
            for (double t = lat - 1; t <= lat + 1; t += step / 7.0) {
                QPointF m, p;
                if (!geo.toDevice(k * step, t, &m) ||
                    !geo.toDevice(t - lat + lon, std::round(t / step) * step, &p))
                    continue;
                for (const QPointF& q : {m, p}) {
                    if (!QRectF(3, 3, kW - 6, kH - 6).contains(q)) continue;
                    ++checked;
                    if (!gridNear(image, q))
                        QFAIL(qPrintable(QString("no line at %1,%2").arg(q.x()).arg(q.y())));
                }
            }
        QVERIFY2(checked > 50, "the lattice was not in view");
        // Every grid pixel lies on the lattice (within 2 pixels of it).
        const double degreesPerPixel =
            crs == "EPSG:4490" ? unitsPerPixel : unitsPerPixel / (111000.0 * std::cos(lat * M_PI / 180));
        const double tolerance = 2.5 * degreesPerPixel;
        for (int y = 0; y < kH; y += 3)
            for (int x = 0; x < kW; x += 3) {
                if (!isGrid(image.pixel(x, y))) continue;
                double l, b;
                QVERIFY(geo.toGeo(QPointF(x + 0.5, y + 0.5), &l, &b));
                if (std::min(offLattice(l, step), offLattice(b, step)) > tolerance)
                    QFAIL(qPrintable(
                        QString("grid pixel %1,%2 is off the lattice (%3, %4)").arg(x).arg(y).arg(l).arg(b)));
            }
    }

    void worldMapDrawsOnlyWhereDefined() {
        // Mollweide: the world is an ellipse twice as wide as high; outside it nothing is defined.
        const double upp = 36500000.0 / kW;
        const auto target = targetAt("+proj=moll +datum=WGS84 +units=m", HOPoint(), upp);
        const QImage image = render(manualBl(30 * 3600), target);
        const double a = 2.0 * std::sqrt(2.0) * 6378137.0 / upp, b = a / 2.0;
        int inside = 0;
        for (int y = 0; y < kH; ++y)
            for (int x = 0; x < kW; ++x) {
                if (!isGrid(image.pixel(x, y))) continue;
                const double ex = (x + 0.5 - kW / 2.0) / (a + 2), ey = (y + 0.5 - kH / 2.0) / (b + 2);
                if (ex * ex + ey * ey > 1.0)
                    QFAIL(qPrintable(QString("line outside the world at %1,%2").arg(x).arg(y)));
                ++inside;
            }
        QVERIFY(inside > 2000);
    }

    void geographicGridBecomesKilometresAtLargeScales() {
        // About 1:11 000 at 96 dpi around 117.3E 30N: the Gauss-Krueger zone of 117E.
        const auto target = targetAt("EPSG:4490", HOPoint(117.3, 30.2), 0.000026);
        HOMapRulerAndGrid s = manualBl(3600);  // whole degrees: none in view
        s.set_manually_set_km_grid_distanse(true);
        s.set_km_grid_x_distance(1000);
        s.set_km_grid_y_distance(1000);
        s.set_convert_scale(5000);
        QCOMPARE(gridPixels(render(s, target)), 0);
        s.set_convert_scale(50000);
        const QImage image = render(s, target);
        OGRSpatialReference gk;
        gk.SetFromUserInput("+proj=tmerc +lon_0=117 +k=1 +x_0=500000 +ellps=GRS80 +units=m");
        gk.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        OGRSpatialReference geo;
        geo.SetFromUserInput("EPSG:4490");
        geo.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        std::unique_ptr<OGRCoordinateTransformation> toGeo(OGRCreateCoordinateTransformation(&gk, &geo));
        double x = 117.3, y = 30.2;
        std::unique_ptr<OGRCoordinateTransformation>(OGRCreateCoordinateTransformation(&geo, &gk))
            ->Transform(1, &x, &y);
        for (double e = std::ceil(x / 1000 - 1) * 1000; e < x + 1000; e += 1000) {
            double lon = e, lat = y;
            QVERIFY(toGeo->Transform(1, &lon, &lat));
            const HOPoint d = target.transform.ToDevice(HOPoint(lon, lat));
            QVERIFY(d.x > 0 && d.x < kW);
            QVERIFY2(gridNear(image, QPointF(d.x, d.y)),
                     qPrintable(QString("no km line at easting %1").arg(e)));
        }
    }

    void rulersLabelTheFrame_data() {
        HOAddColumns<QString, bool>({"crs", "km"});
        QTest::newRow("km on gauss-krueger") << "EPSG:4509" << true;
        QTest::newRow("bl on gauss-krueger") << "EPSG:4509" << false;
        QTest::newRow("bl on geographic") << "EPSG:4490" << false;
    }
    void rulersLabelTheFrame() {
        QFETCH(QString, crs);
        QFETCH(bool, km);
        const bool geographic = crs == "EPSG:4490";
        const auto target = geographic ? targetAt("EPSG:4490", HOPoint(117.3, 30.0), 0.0005)
                                       : targetAt("EPSG:4509", HOPoint(500000, 3300000), 40.0);
        HOMapRulerAndGrid s = lookOnly();
        s.set_convert_scale(0);
        (km ? s.set_draw_km_grid_ruler(true) : s.set_draw_bl_grid_ruler(true));
        const QImage image = render(s, target);
        // Labels on all four sides, in a band along the edge and nowhere inside the map.
        constexpr int kBand = 40;
        int sides[4] = {0, 0, 0, 0};
        for (int y = 0; y < kH; ++y)
            for (int x = 0; x < kW; ++x) {
                if (!isLabel(image.pixel(x, y))) continue;
                if (QRect(kBand, kBand, kW - 2 * kBand, kH - 2 * kBand).contains(x, y))
                    QFAIL(qPrintable(QString("label pixel inside the map at %1,%2").arg(x).arg(y)));
                sides[y < kBand ? 0 : y >= kH - kBand ? 1 : x < kBand ? 2 : 3]++;
            }
        for (int side : sides) QVERIFY2(side > 20, "a side without labels");
        QVERIFY(isGrid(image.pixel(kW / 2, kH / 2)) == false);  // a ruler alone draws no lines
    }

    void badSettingsNeitherHangNorSmear_data() {
        HOAddColumns<HOMapRulerAndGrid, QString, bool, double>(
            {"settings", "crs", "anyLines", "unitsPerPixel"});
        QTest::newRow("zero km spacing") << manualKm(0, 0) << "EPSG:4509" << false << 500.0;
        QTest::newRow("negative km spacing") << manualKm(-1000, -5) << "EPSG:4509" << false << 500.0;
        QTest::newRow("km spacing of a millimetre") << manualKm(0.001, 0.001) << "EPSG:4509" << true << 500.0;
        QTest::newRow("km start far outside")
            << manualKm(1000, 1000, -1e12, 7e11) << "EPSG:4509" << true << 500.0;
        QTest::newRow("km spacing not a number")
            << manualKm(std::nan(""), 1000) << "EPSG:4509" << false << 500.0;
        QTest::newRow("bl spacing of a hundredth second") << manualBl(0.01) << "EPSG:4509" << true << 500.0;
        QTest::newRow("zero bl spacing") << manualBl(0) << "EPSG:4490" << false << 0.01;
        QTest::newRow("bl without a coordinate system") << manualBl(600) << "" << false << 500.0;
        // A Gauss-Krueger zone seen as a whole world: far from its meridian the projection means nothing.
        QTest::newRow("gauss-krueger zoomed out to the world")
            << manualBl(30 * 3600) << "EPSG:4509" << true << 60000.0;
    }
    void badSettingsNeitherHangNorSmear() {
        QFETCH(HOMapRulerAndGrid, settings);
        QFETCH(QString, crs);
        QFETCH(double, unitsPerPixel);
        const bool geographic = crs == "EPSG:4490";
        const auto target = targetAt(crs.isEmpty() ? nullptr : crs.toLatin1().constData(),
                                     geographic ? HOPoint(117, 30) : HOPoint(500000, 3300000), unitsPerPixel);
        QElapsedTimer timer;
        timer.start();
        const int n = gridPixels(render(settings, target));
        QVERIFY2(timer.elapsed() < 5000, "drawing the grid took seconds");
        QTEST(n > 0, "anyLines");
        QVERIFY2(n < kW * kH / 4, qPrintable(QString("%1 grid pixels: a smear").arg(n)));
    }

    void automaticSpacings_data() {
        HOAddColumns<double, double, double, double>({"scale", "angle", "byMapScale", "byKilometre"});
        QTest::newRow("1:10 000") << 10000.0 << 10.0 << 200.0 << 100.0;
        QTest::newRow("1:50 000") << 50000.0 << 60.0 << 1000.0 << 1000.0;
        QTest::newRow("1:100 000") << 100000.0 << 120.0 << 2000.0 << 1000.0;
        QTest::newRow("1:1 000 000") << 1e6 << 1200.0 << 20000.0 << 10000.0;
        QTest::newRow("1:50 000 000") << 5e7 << 36000.0 << 1e6 << 1e6;
    }
    void automaticSpacings() {
        QFETCH(double, scale);
        QTEST(HOGridSpacing::AutoAngle(scale, 30.92), "angle");
        QTEST(HOGridSpacing::AutoByMapScale(scale), "byMapScale");
        QTEST(HOGridSpacing::AutoByScaleUnit(scale, HOUnitKilometer), "byKilometre");
    }
};

QTEST_MAIN(TestGridOverlay)
#include "tst_gridoverlay.moc"
