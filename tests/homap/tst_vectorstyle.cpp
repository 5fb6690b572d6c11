// How unstyled vector layers look: each layer added to a map takes its own colour, features far below
// a pixel still show, and each member of a geometry collection is drawn (and picked) as what it is.
#include <QTemporaryDir>
#include <QtTest>
#include <set>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOMap.h"

using namespace HXObjects;

namespace {

const QRgb white = qRgb(255, 255, 255);

bool isBackground(QRgb pixel) {
    return pixel == white;
}

}  // namespace

class TestVectorStyle : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void eachLayerTakesItsOwnColour() {
        HORefPtr<HOMap> map(new HOMap);
        std::vector<HORefPtr<HOFeatureLayer>> layers;
        for (int i = 0; i < 4; ++i) {
            layers.push_back(open(QStringLiteral("layer%1.gpkg").arg(i), wkbPolygon,
                                  {{"POLYGON((10 10,90 10,90 90,10 90,10 10))"}}));
            QVERIFY(layers.back());
        }
        layers[3]->SetStyle(HOStyle::NewFill(HOColor(0, 0, 0), HOColor(0, 0, 0), 0));
        std::set<QRgb> fills;
        for (const auto& layer : layers) {
            map->AddLayer(layer);
            const QImage image = render(layer);
            fills.insert(image.pixel(50, 50));
            // A translucent fill under an outline of a darker shade of the same hue.
            const QColor fill(image.pixel(50, 50)), outline(image.pixel(10, 50));
            if (layer != layers[3])
                QVERIFY2(outline.value() < fill.value() && std::abs(outline.hue() - fill.hue()) < 12,
                         qPrintable(fill.name() + " " + outline.name()));
        }
        QCOMPARE(fills.size(), std::size_t(4));
        QVERIFY(fills.count(qRgb(0, 0, 0)));  // the host's style stays
        // The same place in another map gives the same colour.
        HORefPtr<HOFeatureLayer> again =
            open("again.gpkg", wkbPolygon, {{"POLYGON((10 10,90 10,90 90,10 90,10 10))"}});
        HORefPtr<HOMap> other(new HOMap);
        other->AddLayer(again);
        QCOMPARE(render(again).pixel(50, 50), render(layers[0]).pixel(50, 50));
    }

    void featuresBelowAPixelStillShow_data() {
        QTest::addColumn<int>("type");
        QTest::newRow("polygons") << int(wkbPolygon);
        QTest::newRow("lines") << int(wkbLineString);
    }

    void featuresBelowAPixelStillShow() {
        QFETCH(int, type);
        // A 20 x 20 grid of features a thousandth of a pixel across, one per five pixels.
        std::vector<HOLayerFixture::Feature> features;
        for (int i = 0; i < 400; ++i) {
            const double x = (i % 20) * 5 + 2.5, y = (i / 20) * 5 + 2.5, d = 0.001;
            features.push_back({type == wkbPolygon
                                    ? QStringLiteral("POLYGON((%1 %2,%3 %2,%3 %4,%1 %4,%1 %2))")
                                          .arg(x)
                                          .arg(y)
                                          .arg(x + d)
                                          .arg(y + d)
                                          .toStdString()
                                    : QStringLiteral("LINESTRING(%1 %2,%3 %4)")
                                          .arg(x)
                                          .arg(y)
                                          .arg(x + d)
                                          .arg(y + d)
                                          .toStdString()});
        }
        HORefPtr<HOFeatureLayer> layer =
            open(QStringLiteral("tiny%1.gpkg").arg(type), OGRwkbGeometryType(type), features);
        QVERIFY(layer);
        const QImage image = render(layer);
        for (int i = 0; i < 400; ++i) {
            const int x = (i % 20) * 5 + 2, y = 100 - ((i / 20) * 5 + 3);  // the pixel holding (x, y)
            QVERIFY2(!isBackground(image.pixel(x, y)), qPrintable(QStringLiteral("feature %1").arg(i)));
        }
    }

    void collectionMembersDrawnAsWhatTheyAre_data() {
        QTest::addColumn<QString>("wkt");
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<bool>("drawn");
        // A line after a point is a line along its length, not markers at its vertices.
        const QString pointThenLine = "GEOMETRYCOLLECTION(POINT(20 80),LINESTRING(10 50.5,90 50.5))";
        QTest::newRow("line after a point: along the line") << pointThenLine << QPoint(50, 49) << true;
        QTest::newRow("line after a point: the point") << pointThenLine << QPoint(20, 19) << true;
        // A polygon after a line is filled, not outlined.
        const QString lineThenPolygon =
            "GEOMETRYCOLLECTION(LINESTRING(5 5.5,95 5.5),POLYGON((20 20,80 20,80 80,20 80,20 20)))";
        QTest::newRow("polygon after a line: inside") << lineThenPolygon << QPoint(50, 50) << true;
        QTest::newRow("polygon after a line: the line") << lineThenPolygon << QPoint(50, 94) << true;
        QTest::newRow("polygon after a line: outside") << lineThenPolygon << QPoint(10, 50) << false;
    }

    void collectionMembersDrawnAsWhatTheyAre() {
        QFETCH(QString, wkt);
        QFETCH(QPoint, pixel);
        HORefPtr<HOFeatureLayer> layer =
            open(QStringLiteral("%1.gpkg").arg(
                     QString(QTest::currentDataTag()).replace(QRegularExpression("\\W"), "_")),
                 wkbGeometryCollection, {{wkt.toStdString()}});
        QVERIFY(layer);
        QTEST(!isBackground(render(layer).pixel(pixel)), "drawn");
        // Picked where it is drawn, by the member's own shape.
        const HOPoint centre(pixel.x() + 0.5, 100 - pixel.y() - 0.5);
        QTEST(!layer->IdentifyAt(centre, 0.5).empty(), "drawn");
    }

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, OGRwkbGeometryType type,
                                  const std::vector<HOLayerFixture::Feature>& features) {
        const QString path = m_dir.filePath(file);
        if (!HOLayerFixture::WriteVector(path, "GPKG", 4509, type, features)) return nullptr;
        return HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(path)));
    }
    // 100 x 100 pixels over (0, 0)-(100, 100).
    static QImage render(HOLayer* layer) {
        QImage image = HOLayerFixture::WhiteImage(QSize(100, 100));
        QPainter painter(&image);
        layer->Render(HOLayerFixture::Context(&painter, image.size(), HORect(0, 100, 0, 100)));
        return image;
    }

    QTemporaryDir m_dir;
};

QTEST_MAIN(TestVectorStyle)
#include "tst_vectorstyle.moc"
