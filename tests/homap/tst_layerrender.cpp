// What layers draw: pixels where a polygon, its hole, a line and a point must be; selection and
// per-feature styles; draw order on one thread and split over threads; reprojection on the fly; deep
// zooms; the graphics layer's hit tests.
#include <QTemporaryDir>
#include <QtTest>
#include <random>

#include "HODisplay.h"
#include "HOFeatureLayer.h"
#include "HOGraphicsLayer.h"
#include "HOLayerFixture.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HORefPtr<HOGeometry>)

namespace {

const QRgb white = qRgb(255, 255, 255), red = qRgb(255, 0, 0), blue = qRgb(0, 0, 255);
// The first colour of the default palette: a translucent fill shown over white, lines and markers.
QRgb overWhite(const HOColor& colour) {
    QImage image = HOLayerFixture::WhiteImage(QSize(1, 1));
    QPainter(&image).fillRect(0, 0, 1, 1, colour.toQColor());
    return image.pixel(0, 0);
}
const QRgb fillGreen = overWhite(HOStyle::NewDefault(HOStyle::FillStyle, 0)->GetColor());
const QRgb lineBlue = HOStyle::NewDefault(HOStyle::LineStyle, 0)->GetColor().toQColor().rgb();
const QRgb markerRed = HOStyle::NewDefault(HOStyle::MarkerStyle, 0)->GetColor().toQColor().rgb();

// A closed square ring with many vertices, so that drawing and reprojecting it is real work.
std::string denseSquare(double minX, double minY, double side, int verticesPerEdge) {
    QString wkt = QStringLiteral("POLYGON((");
    for (int i = 0; i <= 4 * verticesPerEdge; ++i) {
        const int edge = (i / verticesPerEdge) % 4;
        const double f = side * (i % verticesPerEdge) / verticesPerEdge;
        const double x = edge == 0 ? f : edge == 1 ? side : edge == 2 ? side - f : 0;
        const double y = edge == 0 ? 0 : edge == 1 ? f : edge == 2 ? side : side - f;
        wkt += QStringLiteral("%1%2 %3").arg(i ? "," : "").arg(minX + x, 0, 'f', 6).arg(minY + y, 0, 'f', 6);
    }
    return (wkt + "))").toStdString();
}

HORefPtr<HOGeometry> geometry(HOGeometry::GeoType type, std::vector<HOGeometry::Part> parts) {
    HORefPtr<HOGeometry> g(new HOGeometry(type));
    for (auto& part : parts) g->AddPart(std::move(part));
    return g;
}

HORefPtr<HOStyle> fill(const QColor& c) {
    return HOStyle::NewFill(HOColor(c.red(), c.green(), c.blue()), HOColor(c.red(), c.green(), c.blue()), 0);
}

}  // namespace

class TestLayerRender : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        m_polygons = open("polygons.gpkg", 4509, wkbPolygon,
                          {{"POLYGON((10 10,90 10,90 90,10 90,10 10),(40 40,60 40,60 60,40 60,40 40))"}});
        m_lines = open("lines.gpkg", 4509, wkbLineString, {{"LINESTRING(0 5.5,100 5.5)"}});
        m_points = open("points.gpkg", 4509, wkbPoint, {{"POINT(80.5 20.5)"}});
        QVERIFY(m_polygons && m_lines && m_points);
    }

    void drawsEachKindWhereItIs_data() {
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QRgb>("colour");
        QTest::newRow("polygon body") << QPoint(20, 50) << fillGreen;
        QTest::newRow("polygon hole") << QPoint(50, 50) << white;
        QTest::newRow("line") << QPoint(50, 94) << lineBlue;
        QTest::newRow("line crossing nothing") << QPoint(3, 94) << lineBlue;
        QTest::newRow("point marker centre") << QPoint(80, 79) << markerRed;
        QTest::newRow("outside everything") << QPoint(95, 5) << white;
    }

    void drawsEachKindWhereItIs() {
        QFETCH(QPoint, pixel);
        QTEST(render({m_polygons, m_lines, m_points}).pixel(pixel), "colour");
        HOTrackCancel cancel;
        cancel.Cancel();
        QCOMPARE(
            render({m_polygons, m_lines, m_points}, HORect(0, 100, 0, 100), nullptr, &cancel).pixel(pixel),
            white);
    }

    void selectionAndStyles() {
        m_polygons->SetSelectedIds({1});
        const QImage selected = render({m_polygons});
        m_polygons->ClearSelection();
        QVERIFY(qRed(selected.pixel(20, 50)) > 200 && qGreen(selected.pixel(20, 50)) > 200);  // yellowish
        QCOMPARE(selected.pixel(50, 50), white);  // the hole stays open

        HORefPtr<HOFeatureLayer> layer = open("landuse.gpkg", 4509, wkbPolygon,
                                              {{"POLYGON((0 0,30 0,30 30,0 30,0 0))", 7, "forest"},
                                               {"POLYGON((35 0,65 0,65 30,35 30,35 0))", 8, "farm"},
                                               {"POLYGON((70 0,100 0,100 30,70 30,70 0))", 9, "water"}});
        QVERIFY(layer);
        QVERIFY(layer->SetCategoryStyles("name", {{"forest", fill(Qt::red)}, {"farm", fill(Qt::blue)}}));
        QImage image = render({layer});
        QCOMPARE(image.pixel(15, 85), red);
        QCOMPARE(image.pixel(50, 85), blue);
        QCOMPARE(image.pixel(85, 85), fillGreen);  // no style for its value: the layer's
        // A feature's own style wins over its category; an unknown field changes nothing.
        layer->GetCustomFeatureRender()->SetFeatureStyle(8, fill(Qt::black));
        QVERIFY(!layer->SetCategoryStyles("nosuchfield", {}));
        layer->SetStyle(fill(Qt::green));
        image = render({layer});
        QCOMPARE(image.pixel(15, 85), red);
        QCOMPARE(image.pixel(50, 85), qRgb(0, 0, 0));
        QCOMPARE(image.pixel(85, 85), qRgb(0, 255, 0));
        layer->GetCustomFeatureRender()->RemoveFeatureStyle(8);
        QCOMPARE(render({layer}).pixel(50, 85), blue);
        QVERIFY(layer->SetCategoryStyles("", {}));
        QCOMPARE(render({layer}).pixel(15, 85), qRgb(0, 255, 0));
    }

    void drawOrderAndReprojection_data() {
        QTest::addColumn<int>("verticesPerEdge");
        QTest::newRow("light layers, one thread") << 4;
        QTest::newRow("heavy layers, split over threads") << 60000;
    }

    void drawOrderAndReprojection() {
        QFETCH(int, verticesPerEdge);
        const int n = verticesPerEdge;
        HORefPtr<HOFeatureLayer> layer = open(QStringLiteral("order%1.gpkg").arg(n), 4509, wkbPolygon,
                                              {{denseSquare(10, 10, 50, n)}, {denseSquare(40, 40, 50, n)}});
        QVERIFY(layer);
        layer->GetCustomFeatureRender()->SetFeatureStyle(1, fill(Qt::red));
        layer->GetCustomFeatureRender()->SetFeatureStyle(2, fill(Qt::blue));
        QImage image = render({layer});
        QVERIFY(image.pixel(20, 80) == red && image.pixel(80, 20) == blue);  // each alone
        QCOMPARE(image.pixel(50, 50), blue);                                 // both: the second is on top

        layer = open(QStringLiteral("geographic%1.gpkg").arg(n), 4490, wkbPolygon,
                     {{denseSquare(116.99, 29.99, 0.02, n)}});
        QVERIFY(layer);
        HORefPtr<HOCoordinateSystem> gk = HOCoordinateSystem::FromEpsg(4509);
        const HORect extent = layer->GetExtentIn(gk);
        QVERIFY(std::abs(extent.Center().x - 500000.0) < 1e-3);  // about the central meridian
        // Inside near each corner: all four edges, from both halves of the vertices, came through. The square
        // is some 87 pixels wide here: a degree of longitude is shorter than one of latitude. The second pass
        // draws from the cached copy.
        for (int pass = 0; pass < 2; ++pass) {
            image = render({layer}, extent, gk);
            for (const QPoint& p :
                 {QPoint(10, 10), QPoint(75, 10), QPoint(10, 88), QPoint(75, 88), QPoint(95, 50)})
                QVERIFY2(image.pixel(p) == (p.x() < 90 ? fillGreen : white), QTest::toString(p));
        }
        // Drawn in its own system it lands where its own coordinates say.
        image = render({layer}, HORect(116.98, 117.02, 29.98, 30.02), layer->GetSpatialReference());
        QVERIFY(image.pixel(50, 50) == fillGreen && image.pixel(10, 50) == white);
    }

    void zoomedViewsDrawWhatTheyShow_data() {
        QTest::addColumn<bool>("grid");  // a layer of 100 x 100 points one unit apart instead of the polygon
        QTest::addColumn<HORect>("extent");
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QRgb>("colour");
        // 1% of the grid's area: points stand ten pixels apart.
        QTest::newRow("grid, point (20.5, 69.5)")
            << true << HORect(20, 30, 60, 70) << QPoint(5, 5) << markerRed;
        QTest::newRow("grid, point (29.5, 60.5)")
            << true << HORect(20, 30, 60, 70) << QPoint(95, 95) << markerRed;
        QTest::newRow("grid, between points") << true << HORect(20, 30, 60, 70) << QPoint(10, 10) << white;
        // A hundred pixels over a thousandth of a unit: the square spans some eight million pixels.
        QTest::newRow("deep, inside the body")
            << false << HORect(20, 20.001, 50, 50.001) << QPoint(50, 50) << fillGreen;
        QTest::newRow("deep, left of the edge")
            << false << HORect(9.9995, 10.0005, 50, 50.001) << QPoint(20, 50) << white;
        QTest::newRow("deep, right of the edge")
            << false << HORect(9.9995, 10.0005, 50, 50.001) << QPoint(80, 50) << fillGreen;
        QTest::newRow("deep, inside the hole")
            << false << HORect(50, 50.001, 50, 50.001) << QPoint(50, 50) << white;
    }

    void zoomedViewsDrawWhatTheyShow() {
        QFETCH(bool, grid);
        QFETCH(HORect, extent);
        QFETCH(QPoint, pixel);
        if (grid && !m_grid) {
            std::vector<HOLayerFixture::Feature> features;
            for (int i = 0; i < 10000; ++i)
                features.push_back(
                    {QStringLiteral("POINT(%1 %2)").arg(i % 100 + 0.5).arg(i / 100 + 0.5).toStdString()});
            m_grid = open("grid.gpkg", 4509, wkbPoint, features);
        }
        QVERIFY(!grid || m_grid);
        QTEST(render({grid ? m_grid.get() : m_polygons.get()}, extent).pixel(pixel), "colour");
    }

    void graphicsLocate_data() {
        QTest::addColumn<HORefPtr<HOGeometry>>("shape");
        QTest::addColumn<double>("markerSize");  // pixels; 0: not a marker style
        QTest::addColumn<HOPoint>("point");
        QTest::addColumn<double>("tolerance");
        QTest::addColumn<double>("unitsPerPixel");  // of the display handed in; 0: none
        QTest::addColumn<bool>("hit");
        const auto point = geometry(HOGeometry::GeoPoint, {{{5, 5}}});
        const auto line = geometry(HOGeometry::GeoLineString, {{{0, 0}, {10, 0}, {10, 10}}});
        const auto holed = geometry(HOGeometry::GeoPolygon,
                                    {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{3, 3}, {7, 3}, {7, 7}, {3, 7}}});
        QTest::newRow("point within tolerance") << point << 0.0 << HOPoint(5.3, 5.3) << 0.5 << 0.0 << true;
        QTest::newRow("point beyond tolerance") << point << 0.0 << HOPoint(5.4, 5.4) << 0.5 << 0.0 << false;
        // A 10-pixel marker at 0.1 units per pixel reaches 0.5 units further.
        QTest::newRow("on the marker symbol") << point << 10.0 << HOPoint(5.55, 5.0) << 0.1 << 0.1 << true;
        QTest::newRow("beyond the marker symbol")
            << point << 10.0 << HOPoint(5.65, 5.0) << 0.1 << 0.1 << false;
        QTest::newRow("marker size unknown without a display")
            << point << 10.0 << HOPoint(5.55, 5.0) << 0.1 << 0.0 << false;
        QTest::newRow("near the second segment") << line << 0.0 << HOPoint(10.2, 5) << 0.25 << 0.0 << true;
        QTest::newRow("the open side of a path") << line << 0.0 << HOPoint(5, 5) << 0.25 << 0.0 << false;
        QTest::newRow("past a path's end") << line << 0.0 << HOPoint(-0.3, 0) << 0.25 << 0.0 << false;
        QTest::newRow("inside a polygon") << holed << 0.0 << HOPoint(1, 1) << 0.0 << 0.0 << true;
        QTest::newRow("in a polygon's hole") << holed << 0.0 << HOPoint(5, 5) << 0.0 << 0.0 << false;
        QTest::newRow("near the hole's edge") << holed << 0.0 << HOPoint(5, 6.9) << 0.2 << 0.0 << true;
        QTest::newRow("near the closing edge") << holed << 0.0 << HOPoint(-0.1, 5) << 0.2 << 0.0 << true;
    }

    void graphicsLocate() {
        QFETCH(HORefPtr<HOGeometry>, shape);
        QFETCH(double, markerSize);
        QFETCH(HOPoint, point);
        QFETCH(double, tolerance);
        QFETCH(double, unitsPerPixel);
        QFETCH(bool, hit);
        HORefPtr<HOGraphicsLayer> layer(new HOGraphicsLayer);
        const int id = layer->AddElement(
            shape, markerSize > 0 ? HOStyle::NewMarker(HOStyle::Circle, markerSize, HOColor(255, 0, 0))
                                  : HOStyle::NewLine(1, HOColor(0, 0, 0)));
        HODisplay display;
        HODisplayTransform transform;
        transform.unitsPerPixel = unitsPerPixel;
        display.SetDisplayTransform(transform);
        const auto found = layer->LocateElements(point, tolerance, unitsPerPixel > 0 ? &display : nullptr);
        QCOMPARE(found.size(), std::size_t(hit ? 1 : 0));
        if (hit) QCOMPARE(found[0]->GetID(), id);
    }

    void graphicsDrawAndSelect() {
        HORefPtr<HOGraphicsLayer> layer(new HOGraphicsLayer);
        // A 10 x 10 square with a 4 x 4 hole, a line along y = 9, a marker at (5, 5): ten pixels per unit.
        layer->AddElement(geometry(HOGeometry::GeoPolygon,
                                   {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{3, 3}, {7, 3}, {7, 7}, {3, 7}}}),
                          HOStyle::NewFill(HOColor(0, 255, 0), HOColor(0, 0, 0), 0));
        const int line = layer->AddElement(geometry(HOGeometry::GeoLineString, {{{0, 9}, {10, 9}}}),
                                           HOStyle::NewLine(3, HOColor(0, 0, 255)));
        const int marker = layer->AddElement(geometry(HOGeometry::GeoPoint, {{{5, 5}}}),
                                             HOStyle::NewMarker(HOStyle::Square, 8, HOColor(255, 0, 0)));
        const HORect extent(0, 10, 0, 10);
        QCOMPARE(layer->GetExtent(), extent);
        const auto found = layer->LocateElements(HOPoint(1, 9), 0.1);  // topmost first
        QCOMPARE(found.size(), std::size_t(2));
        QCOMPARE(found[0]->GetID(), line);
        QImage image = render({layer}, extent);
        QCOMPARE(image.pixel(15, 85), qRgb(0, 255, 0));  // (1.5, 1.5): filled
        QCOMPARE(image.pixel(38, 38), white);            // (3.8, 6.2): in the hole
        QCOMPARE(image.pixel(50, 10), blue);             // on the line at y = 9
        QCOMPARE(image.pixel(50, 50), red);              // the marker at (5, 5)

        layer->SelectElement(line, true);
        layer->SelectElement(marker, true);
        QCOMPARE(layer->GetSelectedIds(), (std::vector<int>{line, marker}));
        QCOMPARE(render({layer}, extent).pixel(20, 10), qRgb(0, 255, 255));  // the highlight covers the line
        layer->RemoveElement(marker);
        QCOMPARE(layer->GetSelectedIds(), std::vector<int>{line});
        layer->ClearSelection();
        QVERIFY(layer->GetSelectedIds().empty());
        QCOMPARE(render({layer}, extent).pixel(20, 10), blue);
    }

    // A large layer is drawn in bands of the picture on several threads: the picture drawn on one.
    void bandsDrawTheSamePixels_data() {
        QTest::addColumn<int>("type");
        QTest::newRow("polygons") << int(wkbPolygon);
        QTest::newRow("lines") << int(wkbLineString);
        QTest::newRow("points") << int(wkbMultiPoint);
    }

    void bandsDrawTheSamePixels() {
        QFETCH(int, type);
        // 2000 features of 120 random vertices each, crossing bands, over 400 x 300 pixels.
        std::mt19937 random(7);
        std::uniform_real_distribution<double> place(0, 100), step(-8, 8);
        std::vector<HOLayerFixture::Feature> features;
        for (int f = 0; f < 2000; ++f) {
            double x = place(random), y = place(random);
            QStringList vertices;
            for (int v = 0; v < 120; ++v)
                vertices << QStringLiteral("%1 %2").arg(x += step(random)).arg(y += step(random));
            const QString ring = vertices.join(',') + ',' + vertices.first();
            const QString wkt = type == wkbPolygon ? QStringLiteral("POLYGON((%1))").arg(ring)
                                : type == wkbLineString
                                    ? QStringLiteral("LINESTRING(%1)").arg(vertices.join(','))
                                    : QStringLiteral("MULTIPOINT(%1)").arg(vertices.join(','));
            features.push_back({wkt.toStdString()});
        }
        HORefPtr<HOFeatureLayer> layer =
            open(QStringLiteral("bands%1.gpkg").arg(type), 4509, OGRwkbGeometryType(type), features);
        QVERIFY(layer);
        layer->SetSelectedIds({5, 500});
        QImage pictures[2];
        for (int threads : {1, 0}) {
            QImage& image = pictures[threads];
            image = HOLayerFixture::WhiteImage(QSize(400, 300));
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing, true);
            HORenderContext context =
                HOLayerFixture::Context(&painter, image.size(), HORect(-10, 110, -10, 80));
            context.parallelism = threads;
            layer->Render(context);
        }
        QVERIFY(pictures[0] != HOLayerFixture::WhiteImage(QSize(400, 300)));
        // An antialiased edge pixel on a band's last row may come out one level apart.
        for (int y = 0; y < 300; ++y)
            for (int x = 0; x < 400; ++x) {
                const QRgb a = pictures[0].pixel(x, y), b = pictures[1].pixel(x, y);
                QVERIFY2(std::abs(qRed(a) - qRed(b)) <= 1 && std::abs(qGreen(a) - qGreen(b)) <= 1 &&
                             std::abs(qBlue(a) - qBlue(b)) <= 1,
                         qPrintable(QStringLiteral("(%1, %2)").arg(x).arg(y)));
            }
    }

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, int epsg, OGRwkbGeometryType type,
                                  const std::vector<HOLayerFixture::Feature>& features) {
        return HOLayerFixture::OpenVector(m_dir.filePath(file), epsg, type, features);
    }
    // 100 x 100 pixels over `extent`; one pixel per unit by default.
    static QImage render(const std::vector<HOLayer*>& layers, const HORect& extent = HORect(0, 100, 0, 100),
                         const HOCoordinateSystem* system = nullptr, const HOTrackCancel* cancel = nullptr) {
        return HOLayerFixture::Render(layers, extent, QSize(100, 100), system, cancel);
    }

    QTemporaryDir m_dir;
    HORefPtr<HOFeatureLayer> m_polygons, m_lines, m_points, m_grid;
};

QTEST_MAIN(TestLayerRender)
#include "tst_layerrender.moc"
