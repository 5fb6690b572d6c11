// What a feature layer draws: pixels where a polygon, a line and a point must be, the selection's
// emphasis, per-feature styles, draw order (also when the work is split over threads), cancelling,
// reprojection on the fly and zoomed-in views.
#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

namespace {

const QRgb white = qRgb(255, 255, 255);
const QRgb fillGreen = qRgb(166, 206, 148);
const QRgb lineBlue = qRgb(45, 98, 190);
const QRgb markerRed = qRgb(214, 69, 45);

// A closed ring around (cx, cy) with many vertices, so that drawing it is real work.
std::string denseSquare(double minX, double minY, double side, int verticesPerEdge) {
    QString wkt = QStringLiteral("POLYGON((");
    const double corners[5][2] = {
        {minX, minY}, {minX + side, minY}, {minX + side, minY + side}, {minX, minY + side}, {minX, minY}};
    for (int edge = 0; edge < 4; ++edge) {
        for (int i = 0; i < verticesPerEdge; ++i) {
            const double t = double(i) / verticesPerEdge;
            const double x = corners[edge][0] + t * (corners[edge + 1][0] - corners[edge][0]);
            const double y = corners[edge][1] + t * (corners[edge + 1][1] - corners[edge][1]);
            wkt += QStringLiteral("%1 %2,").arg(x, 0, 'f', 6).arg(y, 0, 'f', 6);
        }
    }
    wkt += QStringLiteral("%1 %2))").arg(minX).arg(minY);
    return wkt.toStdString();
}

}  // namespace

class TestLayerRender : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void drawsEachKindWhereItIs_data();
    void drawsEachKindWhereItIs();
    void selectionIsDrawnEmphasised();
    void featureStyleOverridesLayerStyle();
    void categoryStylesFollowAttributeValues();
    void laterFeaturesDrawOnTop_data();
    void laterFeaturesDrawOnTop();
    void cancelledRenderDrawsNothing();
    void reprojectsToTheMapSystem();
    void reprojectsLargeLayersWhole_data();
    void reprojectsLargeLayersWhole();
    void zoomedViewDrawsOnlyWhatItShows();
    void deepZoomStillFills_data();
    void deepZoomStillFills();

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, int epsg, OGRwkbGeometryType type,
                                  const std::vector<HOLayerFixture::Feature>& features);
    QImage render(const std::vector<HOFeatureLayer*>& layers, const HORect& extent = HORect(0, 100, 0, 100),
                  const HOCoordinateSystem* system = nullptr, const QSize& size = QSize(100, 100));

    QTemporaryDir m_dir;
    HORefPtr<HOFeatureLayer> m_polygons, m_lines, m_points;
};

HORefPtr<HOFeatureLayer> TestLayerRender::open(const QString& file, int epsg, OGRwkbGeometryType type,
                                               const std::vector<HOLayerFixture::Feature>& features) {
    const QString path = m_dir.filePath(file);
    if (!HOLayerFixture::WriteVector(path, "GPKG", epsg, type, features)) return nullptr;
    return HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(path)));
}

QImage TestLayerRender::render(const std::vector<HOFeatureLayer*>& layers, const HORect& extent,
                               const HOCoordinateSystem* system, const QSize& size) {
    QImage image = HOLayerFixture::WhiteImage(size);
    QPainter painter(&image);
    const HORenderContext context = HOLayerFixture::Context(&painter, size, extent, system);
    for (HOFeatureLayer* layer : layers) layer->Render(context);
    return image;
}

void TestLayerRender::initTestCase() {
    QVERIFY(m_dir.isValid());
    m_polygons = open("polygons.gpkg", 4509, wkbPolygon,
                      {{"POLYGON((10 10,90 10,90 90,10 90,10 10),(40 40,60 40,60 60,40 60,40 40))"}});
    m_lines = open("lines.gpkg", 4509, wkbLineString, {{"LINESTRING(0 5.5,100 5.5)"}});
    m_points = open("points.gpkg", 4509, wkbPoint, {{"POINT(80.5 20.5)"}});
    QVERIFY(m_polygons && m_lines && m_points);
}

void TestLayerRender::drawsEachKindWhereItIs_data() {
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QRgb>("colour");
    QTest::newRow("polygon body") << QPoint(20, 50) << fillGreen;
    QTest::newRow("polygon hole") << QPoint(50, 50) << white;
    QTest::newRow("line") << QPoint(50, 94) << lineBlue;
    QTest::newRow("line crossing nothing") << QPoint(3, 94) << lineBlue;
    QTest::newRow("point marker centre") << QPoint(80, 79) << markerRed;
    QTest::newRow("outside everything") << QPoint(95, 5) << white;
}

void TestLayerRender::drawsEachKindWhereItIs() {
    QFETCH(QPoint, pixel);
    const QImage image = render({m_polygons, m_lines, m_points});
    QTEST(image.pixel(pixel), "colour");
}

void TestLayerRender::selectionIsDrawnEmphasised() {
    m_polygons->SetSelectedIds({1});
    const QImage selected = render({m_polygons});
    m_polygons->ClearSelection();
    const QImage plain = render({m_polygons});
    QCOMPARE(plain.pixel(20, 50), fillGreen);
    QVERIFY(selected.pixel(20, 50) != fillGreen);
    QVERIFY(qRed(selected.pixel(20, 50)) > 200 && qGreen(selected.pixel(20, 50)) > 200);  // yellowish
    QCOMPARE(selected.pixel(50, 50), white);  // the hole stays open
}

void TestLayerRender::featureStyleOverridesLayerStyle() {
    HORefPtr<HOUserFeatureRender> custom = m_points->GetCustomFeatureRender();
    custom->SetFeatureStyle(1, HOStyle::NewMarker(HOStyle::Square, 7, HOColor(0, 0, 255)));
    QCOMPARE(render({m_points}).pixel(80, 79), qRgb(0, 0, 255));
    custom->RemoveFeatureStyle(1);
    QCOMPARE(render({m_points}).pixel(80, 79), markerRed);
    m_points->SetStyle(HOStyle::NewMarker(HOStyle::Circle, 5, HOColor(0, 128, 0)));
    QCOMPARE(render({m_points}).pixel(80, 79), qRgb(0, 128, 0));
    m_points->SetStyle(HOStyle::NewMarker(HOStyle::Circle, 6, HOColor(214, 69, 45)));
}

void TestLayerRender::categoryStylesFollowAttributeValues() {
    HORefPtr<HOFeatureLayer> layer = open("landuse.gpkg", 4509, wkbPolygon,
                                          {{"POLYGON((0 0,30 0,30 30,0 30,0 0))", 7, "forest"},
                                           {"POLYGON((35 0,65 0,65 30,35 30,35 0))", 8, "farm"},
                                           {"POLYGON((70 0,100 0,100 30,70 30,70 0))", 9, "water"}});
    QVERIFY(layer);
    const QRgb red = qRgb(255, 0, 0), blue = qRgb(0, 0, 255), black = qRgb(0, 0, 0);
    const std::map<HOString, HORefPtr<HOStyle>> styles{
        {"forest", HOStyle::NewFill(HOColor(255, 0, 0), HOColor(255, 0, 0), 0)},
        {"farm", HOStyle::NewFill(HOColor(0, 0, 255), HOColor(0, 0, 255), 0)}};
    QVERIFY(layer->SetCategoryStyles("name", styles));
    QImage image = render({layer});
    QCOMPARE(image.pixel(15, 85), red);
    QCOMPARE(image.pixel(50, 85), blue);
    QCOMPARE(image.pixel(85, 85), fillGreen);  // no style for its value: the layer's
    // A feature's own style still wins; an unknown field changes nothing.
    layer->GetCustomFeatureRender()->SetFeatureStyle(8,
                                                     HOStyle::NewFill(HOColor(0, 0, 0), HOColor(0, 0, 0), 0));
    QVERIFY(!layer->SetCategoryStyles("nosuchfield", {}));
    image = render({layer});
    QCOMPARE(image.pixel(15, 85), red);
    QCOMPARE(image.pixel(50, 85), black);
    QVERIFY(layer->SetCategoryStyles("", {}));
    QCOMPARE(render({layer}).pixel(15, 85), fillGreen);
}

void TestLayerRender::laterFeaturesDrawOnTop_data() {
    QTest::addColumn<int>("verticesPerEdge");
    QTest::newRow("light layer, one thread") << 4;
    QTest::newRow("heavy layer, split over threads") << 60000;
}

void TestLayerRender::laterFeaturesDrawOnTop() {
    QFETCH(int, verticesPerEdge);
    HORefPtr<HOFeatureLayer> layer =
        open(QStringLiteral("order%1.gpkg").arg(verticesPerEdge), 4509, wkbPolygon,
             {{denseSquare(10, 10, 50, verticesPerEdge)}, {denseSquare(40, 40, 50, verticesPerEdge)}});
    QVERIFY(layer);
    layer->GetCustomFeatureRender()->SetFeatureStyle(
        1, HOStyle::NewFill(HOColor(255, 0, 0), HOColor(255, 0, 0), 0));
    layer->GetCustomFeatureRender()->SetFeatureStyle(
        2, HOStyle::NewFill(HOColor(0, 0, 255), HOColor(0, 0, 255), 0));
    const QImage image = render({layer});
    QCOMPARE(image.pixel(20, 80), qRgb(255, 0, 0));  // first only
    QCOMPARE(image.pixel(80, 20), qRgb(0, 0, 255));  // second only
    QCOMPARE(image.pixel(50, 50), qRgb(0, 0, 255));  // both: the second is on top
}

void TestLayerRender::cancelledRenderDrawsNothing() {
    HOTrackCancel cancel;
    cancel.Cancel();
    QImage image = HOLayerFixture::WhiteImage(QSize(100, 100));
    QPainter painter(&image);
    HORenderContext context = HOLayerFixture::Context(&painter, image.size(), HORect(0, 100, 0, 100));
    context.cancel = &cancel;
    m_polygons->Render(context);
    painter.end();
    QCOMPARE(image.pixel(20, 50), white);
}

void TestLayerRender::reprojectsToTheMapSystem() {
    HORefPtr<HOFeatureLayer> layer = open("geographic.gpkg", 4490, wkbPoint, {{"POINT(117 30)"}});
    QVERIFY(layer);
    HORefPtr<HOCoordinateSystem> gk = HOCoordinateSystem::FromEpsg(4509);
    const HOPoint centre = layer->GetExtentIn(gk).Center();
    QCOMPARE(centre.x, 500000.0);  // on the central meridian
    const HORect view(centre.x - 50, centre.x + 50, centre.y - 50, centre.y + 50);
    for (int pass = 0; pass < 2; ++pass) {  // the second pass draws from the cached copy
        const QImage image = render({layer}, view, gk);
        QCOMPARE(image.pixel(50, 50), markerRed);
        QCOMPARE(image.pixel(10, 10), white);
    }
    // Drawn in its own system the same layer still lands where its own coordinates say.
    const QImage own = render({layer}, HORect(116.9, 117.1, 29.9, 30.1), layer->GetSpatialReference());
    QCOMPARE(own.pixel(50, 50), markerRed);
}

void TestLayerRender::reprojectsLargeLayersWhole_data() {
    QTest::addColumn<int>("verticesPerEdge");
    QTest::newRow("light ring") << 4;
    QTest::newRow("dense ring, split over threads") << 60000;
}

void TestLayerRender::reprojectsLargeLayersWhole() {
    QFETCH(int, verticesPerEdge);
    HORefPtr<HOFeatureLayer> layer = open(QStringLiteral("geographic%1.gpkg").arg(verticesPerEdge), 4490,
                                          wkbPolygon, {{denseSquare(116.99, 29.99, 0.02, verticesPerEdge)}});
    QVERIFY(layer);
    HORefPtr<HOCoordinateSystem> gk = HOCoordinateSystem::FromEpsg(4509);
    const QImage image = render({layer}, layer->GetExtentIn(gk), gk);
    // Inside near each corner: all four edges, from both halves of the vertices, came through.
    // (The square is some 87 pixels wide here: a degree of longitude is shorter than one of latitude.)
    for (const QPoint& p : {QPoint(10, 10), QPoint(75, 10), QPoint(10, 88), QPoint(75, 88), QPoint(43, 50)})
        QVERIFY2(image.pixel(p) == fillGreen, qPrintable(QStringLiteral("%1,%2").arg(p.x()).arg(p.y())));
}

void TestLayerRender::zoomedViewDrawsOnlyWhatItShows() {
    std::vector<HOLayerFixture::Feature> grid;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x)
            grid.push_back({QStringLiteral("POINT(%1 %2)").arg(x + 0.5).arg(y + 0.5).toStdString()});
    HORefPtr<HOFeatureLayer> layer = open("grid.gpkg", 4509, wkbPoint, grid);
    QVERIFY(layer);
    // 1% of the area: ten by ten units over 100 pixels, so points stand ten pixels apart.
    const QImage image = render({layer}, HORect(20, 30, 60, 70));
    QCOMPARE(image.pixel(5, 5), markerRed);    // the point at (20.5, 69.5)
    QCOMPARE(image.pixel(95, 95), markerRed);  // the point at (29.5, 60.5)
    QCOMPARE(image.pixel(10, 10), white);      // between points
}

void TestLayerRender::deepZoomStillFills_data() {
    QTest::addColumn<HORect>("extent");
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QRgb>("colour");
    // A hundred pixels over a thousandth of a unit: the square spans some eight million pixels.
    QTest::newRow("inside the body") << HORect(20, 20.001, 50, 50.001) << QPoint(50, 50) << fillGreen;
    QTest::newRow("left of the edge") << HORect(9.9995, 10.0005, 50, 50.001) << QPoint(20, 50) << white;
    QTest::newRow("right of the edge") << HORect(9.9995, 10.0005, 50, 50.001) << QPoint(80, 50) << fillGreen;
    QTest::newRow("inside the hole") << HORect(50, 50.001, 50, 50.001) << QPoint(50, 50) << white;
}

void TestLayerRender::deepZoomStillFills() {
    QFETCH(HORect, extent);
    QFETCH(QPoint, pixel);
    QTEST(render({m_polygons}, extent).pixel(pixel), "colour");
}

QTEST_MAIN(TestLayerRender)
#include "tst_layerrender.moc"
