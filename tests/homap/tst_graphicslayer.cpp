// HOGraphicsLayer: locating elements under a point (points with their marker size, lines, polygons
// with holes), topmost first; drawing them with their styles and the selection highlight.
#include <QPainter>
#include <QtTest>

#include "HODisplay.h"
#include "HOGraphicsLayer.h"
#include "HORenderContext.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HORefPtr<HOGeometry>)

namespace {

HORefPtr<HOGeometry> geometry(HOGeometry::GeoType type, std::vector<HOGeometry::Part> parts) {
    HORefPtr<HOGeometry> g(new HOGeometry(type));
    for (auto& part : parts) g->AddPart(std::move(part));
    return g;
}

// A 10 x 10 square with a 4 x 4 hole in the middle, from (0, 0).
HORefPtr<HOGeometry> squareWithHole() {
    return geometry(HOGeometry::GeoPolygon,
                    {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{3, 3}, {7, 3}, {7, 7}, {3, 7}}});
}

// 100 x 100 pixels over (0, 10, 0, 10): ten pixels per unit.
QImage rendered(HOGraphicsLayer& layer) {
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    HORenderContext context;
    context.painter = &painter;
    context.transform.extentLeft = 0;
    context.transform.extentTop = 10;
    context.transform.unitsPerPixel = 0.1;
    context.size = HOSize(100, 100);
    context.extent = HORect(0, 10, 0, 10);
    layer.Render(context);
    return image;
}

}  // namespace

class tst_GraphicsLayer : public QObject {
    Q_OBJECT

private slots:
    void locate_data();
    void locate();
    void locateListsTopmostFirst();
    void rendersWithStyles();
    void selection();
};

void tst_GraphicsLayer::locate_data() {
    QTest::addColumn<HORefPtr<HOGeometry>>("shape");
    QTest::addColumn<double>("markerSize");  // pixels; 0: not a marker style
    QTest::addColumn<HOPoint>("point");
    QTest::addColumn<double>("tolerance");
    QTest::addColumn<double>("unitsPerPixel");  // of the display handed in; 0: none
    QTest::addColumn<bool>("hit");
    const auto point = geometry(HOGeometry::GeoPoint, {{{5, 5}}});
    const auto line = geometry(HOGeometry::GeoLineString, {{{0, 0}, {10, 0}, {10, 10}}});
    QTest::newRow("point within tolerance") << point << 0.0 << HOPoint(5.3, 5.3) << 0.5 << 0.0 << true;
    QTest::newRow("point beyond tolerance") << point << 0.0 << HOPoint(5.4, 5.4) << 0.5 << 0.0 << false;
    // A 10-pixel marker at 0.1 units per pixel reaches 0.5 units further.
    QTest::newRow("on the marker symbol") << point << 10.0 << HOPoint(5.55, 5.0) << 0.1 << 0.1 << true;
    QTest::newRow("beyond the marker symbol") << point << 10.0 << HOPoint(5.65, 5.0) << 0.1 << 0.1 << false;
    QTest::newRow("marker size unknown without a display")
        << point << 10.0 << HOPoint(5.55, 5.0) << 0.1 << 0.0 << false;
    QTest::newRow("near a segment") << line << 0.0 << HOPoint(5, 0.2) << 0.25 << 0.0 << true;
    QTest::newRow("near the second segment") << line << 0.0 << HOPoint(10.2, 5) << 0.25 << 0.0 << true;
    QTest::newRow("the open side of a path") << line << 0.0 << HOPoint(5, 5) << 0.25 << 0.0 << false;
    QTest::newRow("past a path's end") << line << 0.0 << HOPoint(-0.3, 0) << 0.25 << 0.0 << false;
    QTest::newRow("inside a polygon") << squareWithHole() << 0.0 << HOPoint(1, 1) << 0.0 << 0.0 << true;
    QTest::newRow("in a polygon's hole") << squareWithHole() << 0.0 << HOPoint(5, 5) << 0.0 << 0.0 << false;
    QTest::newRow("near the hole's edge") << squareWithHole() << 0.0 << HOPoint(5, 6.9) << 0.2 << 0.0 << true;
    QTest::newRow("near the closing edge")
        << squareWithHole() << 0.0 << HOPoint(-0.1, 5) << 0.2 << 0.0 << true;
    QTest::newRow("outside a polygon") << squareWithHole() << 0.0 << HOPoint(11, 5) << 0.5 << 0.0 << false;
}

void tst_GraphicsLayer::locate() {
    QFETCH(HORefPtr<HOGeometry>, shape);
    QFETCH(double, markerSize);
    QFETCH(HOPoint, point);
    QFETCH(double, tolerance);
    QFETCH(double, unitsPerPixel);
    QFETCH(bool, hit);
    HORefPtr<HOGraphicsLayer> layer(new HOGraphicsLayer);
    const auto style = markerSize > 0 ? HOStyle::NewMarker(HOStyle::Circle, markerSize, HOColor(255, 0, 0))
                                      : HOStyle::NewLine(1, HOColor(0, 0, 0));
    const int id = layer->AddElement(shape, style);
    HODisplay display;
    HODisplayTransform transform;
    transform.unitsPerPixel = unitsPerPixel;
    display.SetDisplayTransform(transform);
    const auto found = layer->LocateElements(point, tolerance, unitsPerPixel > 0 ? &display : nullptr);
    QCOMPARE(found.size(), std::size_t(hit ? 1 : 0));
    if (hit) QCOMPARE(found[0]->GetID(), id);
}

void tst_GraphicsLayer::locateListsTopmostFirst() {
    HORefPtr<HOGraphicsLayer> layer(new HOGraphicsLayer);
    const int below = layer->AddElement(squareWithHole(), nullptr);
    const int above = layer->AddElement(geometry(HOGeometry::GeoPoint, {{{1, 1}}}), nullptr);
    layer->AddElement(geometry(HOGeometry::GeoPoint, {{{9, 9}}}), nullptr);
    const auto found = layer->LocateElements(HOPoint(1, 1), 0.1);
    QCOMPARE(found.size(), std::size_t(2));
    QCOMPARE(found[0]->GetID(), above);
    QCOMPARE(found[1]->GetID(), below);
    QCOMPARE(layer->GetExtent(), HORect(0, 10, 0, 10));
}

void tst_GraphicsLayer::rendersWithStyles() {
    HORefPtr<HOGraphicsLayer> layer(new HOGraphicsLayer);
    layer->AddElement(squareWithHole(), HOStyle::NewFill(HOColor(0, 255, 0), HOColor(0, 0, 0), 0));
    layer->AddElement(geometry(HOGeometry::GeoLineString, {{{0, 9}, {10, 9}}}),
                      HOStyle::NewLine(3, HOColor(0, 0, 255)));
    layer->AddElement(geometry(HOGeometry::GeoPoint, {{{5, 5}}}),
                      HOStyle::NewMarker(HOStyle::Square, 8, HOColor(255, 0, 0)));
    const QImage image = rendered(*layer);
    QCOMPARE(image.pixel(15, 85), qRgb(0, 255, 0));      // (1.5, 1.5): filled
    QCOMPARE(image.pixel(38, 38), qRgb(255, 255, 255));  // (3.8, 6.2): in the hole
    QCOMPARE(image.pixel(50, 10), qRgb(0, 0, 255));      // on the line at y = 9
    QCOMPARE(image.pixel(50, 50), qRgb(255, 0, 0));      // the marker at (5, 5)
}

void tst_GraphicsLayer::selection() {
    HORefPtr<HOGraphicsLayer> layer(new HOGraphicsLayer);
    const int a = layer->AddElement(geometry(HOGeometry::GeoLineString, {{{0, 5}, {10, 5}}}),
                                    HOStyle::NewLine(1, HOColor(0, 0, 0)));
    const int b = layer->AddElement(geometry(HOGeometry::GeoPoint, {{{2, 2}}}), nullptr);
    QVERIFY(!layer->IsElementSelected(a));
    QCOMPARE(rendered(*layer).pixel(50, 48), qRgb(255, 255, 255));

    layer->SelectElement(a, true);
    layer->SelectElement(b, true);
    QVERIFY(layer->IsElementSelected(a));
    QCOMPARE(layer->GetSelectedIds(), (std::vector<int>{a, b}));
    // The highlight covers the line (y = 5 is pixel row 50).
    QCOMPARE(rendered(*layer).pixel(50, 50), qRgb(0, 255, 255));

    layer->RemoveElement(b);
    QCOMPARE(layer->GetSelectedIds(), std::vector<int>{a});
    layer->ClearSelection();
    QVERIFY(layer->GetSelectedIds().empty());
    QCOMPARE(layer->GetElements().size(), std::size_t(1));
}

QTEST_MAIN(tst_GraphicsLayer)
#include "tst_graphicslayer.moc"
