// World data drawn in systems that cannot show all of it: Web Mercator, the polar stereographic
// systems, an orthographic view, a UTM and a Gauss-Kruger zone. What cannot be shown is cut away,
// the extent stays finite and sensible, the picture is neither a strip nor blank and carries no
// smeared wedge, deep zooms still draw, and nothing is printed. Also: the map keeps the system it
// took first, and what each kind of system definition reads as.
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HORasterLayer.h"
#include "HOStderrCapture.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "private/HOCoordinateSystemOgr.h"

using namespace HXObjects;

namespace {

struct Probe {
    double lon, lat;
    bool drawn;
};

bool isBackground(QRgb pixel) {
    return pixel == qRgb(255, 255, 255);
}

}  // namespace

Q_DECLARE_METATYPE(std::vector<Probe>)

class TestReprojection : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        // Three continents, both polar caps and an island group across the antimeridian (written
        // with longitudes past 180). Edges run for tens of degrees: they must curve once projected.
        const QString path = m_dir.filePath("world.gpkg");
        m_world = HOLayerFixture::OpenVector(path, 4326, wkbPolygon,
                                             {{"POLYGON((-20 -30,40 -30,40 30,-20 30,-20 -30))"},
                                              {"POLYGON((60 10,140 10,140 60,60 60,60 10))"},
                                              {"POLYGON((-120 20,-70 20,-70 50,-120 50,-120 20))"},
                                              {"POLYGON((-180 75,180 75,180 90,-180 90,-180 75))"},
                                              {"POLYGON((-180 -90,180 -90,180 -70,-180 -70,-180 -90))"},
                                              {"POLYGON((170 -20,190 -20,190 -10,170 -10,170 -20))"}});
        QVERIFY(m_world);
    }

    void worldInSystemsThatShowPartOfIt_data() {
        HOAddColumns<QString, std::vector<Probe>>({"system", "probes"});
        QTest::newRow("Web Mercator")
            << "EPSG:3857"
            << std::vector<Probe>{{10, 0, true},    {-40, 0, false}, {100, 40, true},  {-95, 35, true},
                                  {0, 80, true},    {0, -75, true},  {175, -15, true}, {-175, -15, true},
                                  {-160, 0, false}, {0, 60, false}};
        QTest::newRow("Antarctic polar stereographic")
            << "EPSG:3031"
            << std::vector<Probe>{{0, -80, true}, {120, -85, true}, {0, -60, false}, {90, -60, false}};
        QTest::newRow("Arctic polar stereographic")
            << "EPSG:3995"
            << std::vector<Probe>{{0, 80, true}, {120, 85, true}, {0, 65, false}, {-100, 55, false}};
        QTest::newRow("orthographic, no area of use")
            << "+proj=ortho +lat_0=40 +lon_0=10"
            << std::vector<Probe>{
                   {10, 0, true}, {-40, 0, false}, {100, 40, true}, {-95, 35, true}, {0, 80, true}};
        QTest::newRow("UTM zone 33N")
            << "EPSG:32633"
            << std::vector<Probe>{{15, 0, true}, {15, 45, false}, {15, 80, true}, {30, 40, false}};
        QTest::newRow("Gauss-Kruger zone, 117E")
            << "EPSG:4509" << std::vector<Probe>{{117, 30, true}, {117, 63, false}, {105, 20, true}};
    }

    void worldInSystemsThatShowPartOfIt() {
        QFETCH(QString, system);
        QFETCH(std::vector<Probe>, probes);
        const HORefPtr<HOCoordinateSystem> target = HOCoordinateSystem::FromUserInput(HOString(system));
        QVERIFY(target);
        HOStderrCapture capture;
        const HORect estimated = m_world->GetExtentIn(target);
        QImage image = render(estimated, target);
        const HORect drawn = m_world->GetExtentIn(target);  // from the drawn copy now
        const QByteArray printed = capture.Finish();
        QVERIFY2(printed.isEmpty(), printed.constData());
        for (const HORect& extent : {estimated, drawn}) {
            QVERIFY2(std::isfinite(extent.Width()) && std::isfinite(extent.Height()),
                     QTest::toString(extent));
            // Nothing thrown to the ends of the earth (Mercator's poles reach 2.4e8 m) or squashed flat.
            QVERIFY2(extent.Width() > 1e5 && extent.Width() < 4.1e7 && extent.Height() > 1e5 &&
                         extent.Height() < 4.1e7,
                     QTest::toString(extent));
            QVERIFY2(extent.Width() / extent.Height() > 0.25 && extent.Width() / extent.Height() < 4,
                     QTest::toString(extent));
        }
        if (qEnvironmentVariableIsSet("HX_SAVE_RENDERS"))
            image.save(QDir(qEnvironmentVariable("HX_SAVE_RENDERS"))
                           .filePath(QString(QTest::currentDataTag()) + ".png"));

        // Drawn over much of the extent both ways: no strip, no line, not blank.
        const double unitsPerPixel = std::max(estimated.Width(), estimated.Height()) / image.width();
        QRect coloured;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (!isBackground(image.pixel(x, y))) coloured |= QRect(x, y, 1, 1);
        QVERIFY2(coloured.width() > estimated.Width() / unitsPerPixel / 3 &&
                     coloured.height() > estimated.Height() / unitsPerPixel / 3,
                 QTest::toString(coloured));
        // Land where there is land and sea where there is none: a wedge would cover the gaps.
        OGRSpatialReference wgs84;
        wgs84.importFromEPSG(4326);
        wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        OGRSpatialReference there(*HOCoordinateSystemOgr::Ogr(target));
        there.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        std::unique_ptr<OGRCoordinateTransformation> transform(
            OGRCreateCoordinateTransformation(&wgs84, &there));
        QVERIFY(transform);
        for (const Probe& probe : probes) {
            double x = probe.lon, y = probe.lat;
            QVERIFY(transform->Transform(1, &x, &y));
            const QPoint pixel(int((x - estimated.minx) / unitsPerPixel),
                               int((estimated.maxy - y) / unitsPerPixel));
            const QString where = QStringLiteral("(%1, %2) at pixel (%3, %4)")
                                      .arg(probe.lon)
                                      .arg(probe.lat)
                                      .arg(pixel.x())
                                      .arg(pixel.y());
            QVERIFY2(image.rect().contains(pixel), qPrintable(where));
            QVERIFY2(isBackground(image.pixel(pixel)) != probe.drawn, qPrintable(where));
            // A deep zoom (a few centimetres a pixel) shows it as well.
            const HORect close(x - 2, x + 2, y - 2, y + 2);
            QVERIFY2(isBackground(render(close, target).pixel(100, 100)) != probe.drawn, qPrintable(where));
        }
    }

    // Over the memory budget only the newest copy is kept: a system drawn before is made again.
    void drawsAgainInASystemWhoseCopyWasDropped() {
        const HORefPtr<HOCoordinateSystem> mercator = HOCoordinateSystem::FromEpsg(3857);
        const HORefPtr<HOCoordinateSystem> polar = HOCoordinateSystem::FromEpsg(3413);
        QVERIFY(mercator && polar);
        const HORect extent = m_world->GetExtentIn(mercator);
        HOFeatureLayer::SetMemoryBudget(1);
        const QImage first = render(extent, mercator);
        render(m_world->GetExtentIn(polar), polar);
        const QImage again = render(extent, mercator);
        HOFeatureLayer::SetMemoryBudget(0);
        QVERIFY(first != HOLayerFixture::WhiteImage(first.size()));
        QCOMPARE(again, first);
    }

    void mapKeepsTheSystemItTook() {
        const HORefPtr<HOCoordinateSystem> mercator = HOCoordinateSystem::FromEpsg(3857);
        const QString rasterPath = m_dir.filePath("mercator.tif");
        const double metres[6] = {0, 1000, 0, 10000, 0, -1000};
        QVERIFY(HOLayerFixture::WriteRaster(rasterPath, 10, 10, 1, GDT_Byte, 3857, metres,
                                            [](int, int, int) { return 1.0; }));
        HORefPtr<HOLayer> raster = OpenLayer(HOString(rasterPath));
        QVERIFY(raster);

        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(m_world);
        QCOMPARE(map->GetSpatialReference()->GetEpsgCode(), 4326);
        map->AddLayer(raster);
        map->MoveLayer(raster, 0);
        map->RemoveLayer(m_world);
        QCOMPARE(map->GetSpatialReference()->GetEpsgCode(), 4326);
        // The host's choice wins; a system no map can be drawn in is refused.
        map->SetSpatialReference(mercator);
        QCOMPARE(map->GetSpatialReference().get(), mercator.get());
        map->SetSpatialReference(HOCoordinateSystem::FromEpsg(4978));
        QCOMPARE(map->GetSpatialReference().get(), mercator.get());
        // A map without a system takes the first layer's.
        HORefPtr<HOMap> other(new HOMap);
        other->AddLayer(raster);
        other->AddLayer(m_world);
        QCOMPARE(other->GetSpatialReference()->GetEpsgCode(), 3857);
    }

    // What a definition reads as; the WKT a system writes reads back as the same system and no other.
    void systemDefinitions_data() {
        // kind: -1: no system
        // unit: -1: not checked
        HOAddColumns<QString, int, int, int, bool>({"definition", "kind", "unit", "epsg", "canDrawMap"});
        const auto row = [](const char* tag, const char* definition, int kind, int unit, int epsg,
                            bool canDraw) {
            QTest::newRow(tag) << definition << kind << unit << epsg << canDraw;
        };
        const int geographic = HOCoordinateSystem::GeographicKind,
                  projected = HOCoordinateSystem::ProjectedKind;
        row("CGCS2000 geographic", "EPSG:4490", geographic, HOUnitDegree, 4490, true);
        row("Gauss-Kruger CM 117E", "EPSG:4509", projected, HOUnitMeter, 4509, true);
        row("US survey feet", "EPSG:2264", projected, HOUnitFoot, 2264, true);
        row("Web Mercator", "EPSG:3857", projected, HOUnitMeter, 3857, true);
        row("PROJ string in kilometres", "+proj=merc +datum=WGS84 +units=km", projected, HOUnitKilometer, 0,
            true);
        row("orthographic PROJ string", "+proj=ortho +lat_0=40 +lon_0=10", projected, HOUnitMeter, 0, true);
        row("geocentric", "EPSG:4978", HOCoordinateSystem::GeocentricKind, -1, 4978, false);
        row("vertical", "EPSG:5773", HOCoordinateSystem::VerticalKind, -1, 5773, false);
        row("garbage", "no such system", -1, -1, 0, false);
        row("unknown code", "EPSG:999999", -1, -1, 0, false);
        row("empty", "", -1, -1, 0, false);
    }

    void systemDefinitions() {
        QFETCH(QString, definition);
        QFETCH(int, kind);
        QFETCH(int, unit);
        const HORefPtr<HOCoordinateSystem> system = HOCoordinateSystem::FromUserInput(HOString(definition));
        QCOMPARE(bool(system), kind >= 0);
        if (!system) return;
        const bool geographic = kind == HOCoordinateSystem::GeographicKind;
        QCOMPARE(int(system->GetKind()), kind);
        QCOMPARE(system->IsGeographic(), geographic);
        QCOMPARE(system->IsProjected(), kind == HOCoordinateSystem::ProjectedKind);
        QTEST(system->CanDrawMap(), "canDrawMap");
        if (unit >= 0) QCOMPARE(int(system->GetUnit()), unit);
        QTEST(system->GetEpsgCode(), "epsg");
        const HORefPtr<HOCoordinateSystem> again = HOCoordinateSystem::FromUserInput(system->ToWkt());
        QVERIFY(again && again->IsSame(system.get()));
        QVERIFY(!system->IsSame(nullptr));
        QVERIFY(!system->IsSame(HOCoordinateSystem::FromEpsg(geographic ? 4509 : 4490).get()));
    }

private:
    QImage render(const HORect& extent, const HOCoordinateSystem* system) {
        return HOLayerFixture::Render({m_world.get()}, extent, QSize(200, 200), system);
    }

    QTemporaryDir m_dir;
    HORefPtr<HOFeatureLayer> m_world;
};

QTEST_MAIN(TestReprojection)
#include "tst_reprojection.moc"
