// How vector layers look: each unstyled layer added to a map takes its own colour, features far below
// a pixel still show, each member of a geometry collection is drawn (and picked) as what it is, and
// what the style values the picker edits draw.
#include <QTemporaryDir>
#include <QtTest>
#include <set>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOTestColumns.h"

using namespace HXObjects;

namespace {

const QRgb white = qRgb(255, 255, 255);

bool isBackground(QRgb pixel) {
    return pixel == white;
}

const HOColor kRed(255, 0, 0), kBlack(0, 0, 0), kBlue(0, 0, 255);

HORefPtr<HOStyle> styleNamed(const QString& name) {
    if (name == "cased line") {
        auto style = HOStyle::NewLine(4, kRed);
        style->SetCasingWidth(3);
        style->SetOutlineColor(kBlack);
        return style;
    }
    if (name == "plain line") return HOStyle::NewLine(4, kRed);
    if (name == "half-transparent line") {
        auto style = HOStyle::NewLine(4, kRed);
        style->SetOpacity(0.5);
        return style;
    }
    auto style = HOStyle::NewFill(kBlue, kBlack, 0);
    if (name == "half-transparent fill") style->SetOpacity(0.5);
    if (name == "hatched fill") style->SetFillPattern(HOStyle::HorizontalHatch);
    if (name == "empty fill") style->SetFillPattern(HOStyle::NoFill);
    return style;
}

// The share of the column's pixels, inside the square, that have the colour.
double share(const QImage& image, int x, QRgb colour) {
    int hits = 0;
    for (int y = 20; y < 80; ++y) hits += image.pixel(x, y) == colour;
    return hits / 60.0;
}

}  // namespace

class TestVectorStyle : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        m_line = open("line.gpkg", wkbLineString, {{"LINESTRING(0 50,100 50)"}});
        m_square = open("square.gpkg", wkbPolygon, {{"POLYGON((10 10,90 10,90 90,10 90,10 10))"}});
        QVERIFY(m_line && m_square);
    }

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
            const QString wkt =
                type == wkbPolygon ? "POLYGON((%1 %2,%3 %2,%3 %4,%1 %4,%1 %2))" : "LINESTRING(%1 %2,%3 %4)";
            features.push_back({wkt.arg(x).arg(y).arg(x + d).arg(y + d).toStdString()});
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
        HOAddColumns<QString, QPoint, bool>({"wkt", "pixel", "drawn"});
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

    // What a layer draws for the style values the picker edits: a line's casing beneath it, opacity,
    // and hatched or empty fills.
    void styledPixels_data() {
        HOAddColumns<QString, QPoint, QColor>({"style", "pixel", "colour"});
        QTest::newRow("cased line: the line") << "cased line" << QPoint(50, 49) << QColor(255, 0, 0);
        QTest::newRow("cased line: the casing beside it")
            << "cased line" << QPoint(50, 45) << QColor(0, 0, 0);
        QTest::newRow("cased line: clear beyond the casing")
            << "cased line" << QPoint(50, 41) << QColor(Qt::white);
        QTest::newRow("plain line: nothing beside it") << "plain line" << QPoint(50, 45) << QColor(Qt::white);
        QTest::newRow("half-transparent line")
            << "half-transparent line" << QPoint(50, 49) << QColor(255, 128, 128);
        QTest::newRow("half-transparent fill")
            << "half-transparent fill" << QPoint(50, 30) << QColor(128, 128, 255);
        QTest::newRow("empty fill") << "empty fill" << QPoint(50, 30) << QColor(Qt::white);
    }
    void styledPixels() {
        QFETCH(QString, style);
        QFETCH(QPoint, pixel);
        QFETCH(QColor, colour);
        const QColor drawn = renderStyled(style).pixelColor(pixel);
        const int off = std::abs(drawn.red() - colour.red()) + std::abs(drawn.green() - colour.green()) +
                        std::abs(drawn.blue() - colour.blue());
        QVERIFY2(off <= 6, qPrintable(QString("%1 instead of %2").arg(drawn.name(), colour.name())));
    }

    // A hatch covers part of the area and leaves the rest as it was.
    void hatchLeavesGaps() {
        const QImage hatched = renderStyled("hatched fill");
        const double blue = share(hatched, 50, qRgb(0, 0, 255)),
                     white = share(hatched, 50, qRgb(255, 255, 255));
        QVERIFY2(blue > 0.05 && blue < 0.5, qPrintable(QString::number(blue)));
        QCOMPARE(blue + white, 1.0);
        QCOMPARE(share(renderStyled("solid fill"), 50, qRgb(0, 0, 255)), 1.0);
    }

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, OGRwkbGeometryType type,
                                  const std::vector<HOLayerFixture::Feature>& features) {
        return HOLayerFixture::OpenVector(m_dir.filePath(file), 4509, type, features);
    }
    static QImage render(HOLayer* layer) { return HOLayerFixture::Render({layer}, HORect(0, 100, 0, 100)); }

    QImage renderStyled(const QString& styleName) {
        HOFeatureLayer* layer = styleName.endsWith("line") ? m_line.get() : m_square.get();
        layer->SetStyle(styleNamed(styleName));
        QImage image = HOLayerFixture::WhiteImage(QSize(100, 100));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        layer->Render(HOLayerFixture::Context(&painter, image.size(), HORect(0, 100, 0, 100)));
        return image;
    }

    QTemporaryDir m_dir;
    HORefPtr<HOFeatureLayer> m_line, m_square;
};

QTEST_MAIN(TestVectorStyle)
#include "tst_vectorstyle.moc"
