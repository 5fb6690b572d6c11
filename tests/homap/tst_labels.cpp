// Labels: where each kind of feature gets its label (around a point, upright along a line, inside a
// crescent), that dense labels never overlap nor leave the picture, that a map view draws them, and
// that Chinese and mixed names come out as glyphs.
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOGraphics.h"
#include "HOLabelPass.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOSignalCounter.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "render/labels/private/HOLabelEngine.h"

using namespace HXObjects;

namespace {

constexpr int kTimeout = 10000;
const QSize kSize(400, 400);
const HORect kExtent(0, 100, 0, 100);  // 4 pixels per unit

HOLabelSettings labelledBy(const QString& expression, int priority = 0) {
    HOLabelSettings settings;
    settings.expression = expression;
    settings.priority = priority;
    return settings;
}

// A ring of points on a circle, as WKT coordinates.
QString circle(double cx, double cy, double r) {
    QStringList points;
    for (int i = 0; i <= 72; ++i)
        points << QStringLiteral("%1 %2")
                      .arg(cx + r * std::cos(i * M_PI / 36))
                      .arg(cy + r * std::sin(i * M_PI / 36));
    return QStringLiteral("POLYGON((%1))").arg(points.join(','));
}

// A thick crescent opening to the right: its centroid lies in the bite, outside the polygon.
std::string crescent() {
    OGRGeometry* outer = nullptr;
    OGRGeometry* bite = nullptr;
    OGRGeometryFactory::createFromWkt(circle(50, 50, 40).toUtf8().constData(), nullptr, &outer);
    OGRGeometryFactory::createFromWkt(circle(64, 50, 36).toUtf8().constData(), nullptr, &bite);
    std::unique_ptr<OGRGeometry> shape(outer->Difference(bite));
    OGRGeometryFactory::destroyGeometry(outer);
    OGRGeometryFactory::destroyGeometry(bite);
    return shape ? shape->exportToWkt() : std::string();
}

QPointF toMap(const QPointF& pixel) {
    return {kExtent.minx + pixel.x() / 4.0, kExtent.maxy - pixel.y() / 4.0};
}

int differingPixels(const QImage& a, const QImage& b, const QRect& area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) count += a.pixel(x, y) != b.pixel(x, y);
    return count;
}

}  // namespace

class tst_Labels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void placesEachKind_data() {
        HOAddColumns<int, QString>({"type", "wkt"});
        QTest::newRow("point") << int(wkbPoint) << "POINT(50 50)";
        QTest::newRow("point near the right edge") << int(wkbPoint) << "POINT(99 50)";
        QTest::newRow("point in the top left corner") << int(wkbPoint) << "POINT(1 99)";
        QTest::newRow("line left to right") << int(wkbLineString) << "LINESTRING(5 20,95 40)";
        QTest::newRow("line right to left") << int(wkbLineString) << "LINESTRING(95 40,5 20)";
        QTest::newRow("steep line drawn downwards leftwards")
            << int(wkbLineString) << "LINESTRING(60 95,40 5)";
        QTest::newRow("vertical line drawn upwards") << int(wkbLineString) << "LINESTRING(50 5,50 95)";
        QTest::newRow("gentle bend drawn leftwards")
            << int(wkbLineString) << "LINESTRING(95 50,70 58,50 60,30 58,5 50)";
        QTest::newRow("crescent") << int(wkbPolygon) << QString::fromStdString(crescent());
    }

    void placesEachKind() {
        QFETCH(int, type);
        QFETCH(QString, wkt);
        const HORefPtr<HOFeatureLayer> layer =
            open(OGRwkbGeometryType(type), {{wkt.toStdString(), 1, "Ashford 安福"}});
        QVERIFY(layer);
        const HOLabelEngine engine = place({layer});
        QVERIFY2(!engine.Placed().empty(), "no label placed");
        std::unique_ptr<OGRGeometry> shape = geometryOf(wkt);
        for (const HOPlacedLabel& label : engine.Placed()) {
            for (const QRectF& box : label.boxes)
                QVERIFY2(QRectF(QPointF(0, 0), kSize).contains(box), "label cut at the picture's edge");
            const QPointF centre = toMap(label.centre);
            OGRPoint mapCentre(centre.x(), centre.y());
            if (type == wkbPoint) {
                QCOMPARE(label.angle, 0.0);
                QVERIFY2(shape->Distance(&mapCentre) * 4 < label.boxes.front().width(),
                         "label far from its point");
            } else if (type == wkbLineString) {
                QCOMPARE(label.glyphs.size(), std::size_t(label.text.size()));
                for (const HOLabelGlyph& glyph : label.glyphs) {
                    QVERIFY2(glyph.angle > -90 && glyph.angle <= 90,
                             qPrintable(QString::number(glyph.angle)));
                    const QPointF at = toMap(glyph.centre);
                    OGRPoint onLine(at.x(), at.y());
                    QVERIFY2(shape->Distance(&onLine) * 4 < 1, "character off its line");
                }
            } else {
                QVERIFY2(shape->Contains(&mapCentre), "label outside its polygon");
                OGRPoint centroid;
                QVERIFY(shape->Centroid(&centroid) == OGRERR_NONE && !shape->Contains(&centroid));
            }
        }
    }

    // Two thousand points, a long line and a polygon over them: every placed box inside the picture,
    // no two meeting, and the cell cap still leaves many labels.
    void denseLabelsNeverOverlap() {
        std::vector<HOLayerFixture::Feature> points;
        QRandomGenerator random(7);
        for (int i = 0; i < 2000; ++i)
            points.push_back({QStringLiteral("POINT(%1 %2)")
                                  .arg(random.bounded(100.0))
                                  .arg(random.bounded(100.0))
                                  .toStdString(),
                              i + 1, QStringLiteral("Town %1 镇").arg(i).toStdString()});
        const auto towns = open(wkbPoint, points);
        const auto river =
            open(wkbLineString, {{"LINESTRING(0 10,30 40,60 35,100 80)", 1, "Long River 长河"}});
        const auto lake = open(wkbPolygon, {{circle(40, 60, 20).toStdString(), 1, "Lake 湖"}});
        QVERIFY(towns && river && lake);
        const HOLabelEngine engine = place({river, lake, towns});
        const auto& placed = engine.Placed();
        QVERIFY2(placed.size() > 50, qPrintable(QString::number(placed.size())));
        std::vector<std::pair<QRectF, QString>> boxes;
        for (const HOPlacedLabel& label : placed)
            for (const QRectF& box : label.boxes) boxes.emplace_back(box, label.text);
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            QVERIFY(QRectF(QPointF(0, 0), kSize).contains(boxes[i].first));
            for (std::size_t j = i + 1; j < boxes.size(); ++j)
                QVERIFY2(boxes[i].second == boxes[j].second || !boxes[i].first.intersects(boxes[j].first),
                         qPrintable(boxes[i].second + " meets " + boxes[j].second));
        }
    }

    // Layers A (bottom), B and C (top): each "priority/minScale/maxScale", "hidden" or "off"; the
    // map is at 1:10000.
    void placingOrder_data() {
        HOAddColumns<QStringList, QString>({"layers", "order"});
        QTest::newRow("topmost first") << QStringList{"0/0/0", "0/0/0", "0/0/0"} << "CBA";
        QTest::newRow("priority first") << QStringList{"2/0/0", "0/0/0", "1/0/0"} << "ACB";
        QTest::newRow("hidden or unlabelled") << QStringList{"0/0/0", "hidden", "off"} << "A";
        QTest::newRow("scale range") << QStringList{"0/0/5000", "0/20000/0", "0/1000/50000"} << "C";
    }

    void placingOrder() {
        QFETCH(QStringList, layers);
        std::vector<HORefPtr<HOLayer>> map;
        for (const QString& how : layers) {
            const HORefPtr<HOFeatureLayer> layer = open(wkbPoint, {{"POINT(50 50)", 1, "x"}});
            QVERIFY(layer);
            const QStringList numbers = how.split('/');
            HOLabelSettings settings = labelledBy(how == "off" ? QString() : "name");
            if (numbers.size() == 3) {
                settings.priority = numbers[0].toInt();
                settings.minScale = numbers[1].toDouble();
                settings.maxScale = numbers[2].toDouble();
            }
            layer->SetLabelSettings(settings);
            layer->SetVisible(how != "hidden");
            map.push_back(layer);
        }
        QString order;
        for (HOFeatureLayer* layer : HOLabelPass::PlacingOrder(map, 10000))
            order += QChar('A' + int(std::find(map.begin(), map.end(), layer) - map.begin()));
        QTEST(order, "order");
    }

    // Through a map view: text pixels near the point, drawn above the layers; a label field that
    // names no field draws nothing and fails nothing.
    void mapViewDrawsLabels_data() {
        HOAddColumns<QString, bool>({"expression", "drawn"});
        QTest::newRow("field") << "name" << true;
        QTest::newRow("template") << "<{name}>" << true;
        QTest::newRow("missing field") << "nosuchfield" << false;
    }

    void mapViewDrawsLabels() {
        QFETCH(QString, expression);
        QFETCH(bool, drawn);
        const auto layer = open(wkbPoint, {{"POINT(50 50)", 1, "Ashford 安福"}});
        QVERIFY(layer);
        layer->SetLabelSettings(HOLabelSettings());
        QImage bare, labelled;
        QVERIFY2(renderView(layer, bare), "the unlabelled render did not finish");
        layer->SetLabelSettings(labelledBy(expression));
        QVERIFY2(renderView(layer, labelled), "the labelled render did not finish");
        const int changed = differingPixels(bare, labelled, QRect(200 - 120, 200 - 40, 240, 80));
        QVERIFY2(drawn ? changed > 50 : changed == 0, qPrintable(QString::number(changed)));
    }

    void scriptsRenderAsGlyphs_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("Chinese") << "安福镇";
        QTest::newRow("Latin") << "Ashford";
        QTest::newRow("mixed") << "Ashford 安福";
    }

    // Every character is in the label font itself, and the drawn text is not the missing-glyph box.
    void scriptsRenderAsGlyphs() {
        QFETCH(QString, text);
        const HOLabelSettings settings = labelledBy("name");
        QFont font(settings.fontFamily);
        QCOMPARE(QFontInfo(font).family(), settings.fontFamily);
        const QFontMetricsF metrics(font);
        for (const QChar c : text)
            QVERIFY2(metrics.inFont(c),
                     qPrintable(QString("missing U+%1").arg(c.unicode(), 4, 16, QChar('0'))));
        const QImage glyphs = drawText(settings, text);
        const QImage tofu = drawText(settings, QString(text.size(), QChar(0x0378)));  // unassigned
        QVERIFY(differingPixels(glyphs, tofu, glyphs.rect()) > 100);
    }

private:
    HORefPtr<HOFeatureLayer> open(OGRwkbGeometryType type,
                                  const std::vector<HOLayerFixture::Feature>& features) {
        const QString path = m_dir.filePath(QStringLiteral("layer%1.gpkg").arg(++m_files));
        if (!HOLayerFixture::WriteVector(path, "GPKG", 0, type, features)) return nullptr;
        HORefPtr<HOLayer> layer = OpenLayer(HOString(path));
        auto* features_ = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features_) features_->SetLabelSettings(labelledBy("name"));
        return HORefPtr<HOFeatureLayer>(features_);
    }

    static std::unique_ptr<OGRGeometry> geometryOf(const QString& wkt) {
        OGRGeometry* g = nullptr;
        OGRGeometryFactory::createFromWkt(wkt.toUtf8().constData(), nullptr, &g);
        return std::unique_ptr<OGRGeometry>(g);
    }

    static HOLabelEngine place(const std::vector<HORefPtr<HOFeatureLayer>>& layers) {
        HOLabelEngine engine(QRectF(QPointF(0, 0), kSize));
        const HORenderContext context = HOLayerFixture::Context(nullptr, kSize, kExtent);
        for (const auto& layer : layers) layer->PlaceLabels(context, engine);
        return engine;
    }

    // False when the view did not finish rendering in time.
    static bool renderView(const HORefPtr<HOFeatureLayer>& layer, QImage& image) {
        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(layer);
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetSize(kSize.width(), kSize.height());
        view->SetMap(map);
        view->SetExtent(kExtent);
        HOSignalCounter finished(view->RenderFinishedSignal);
        view->RefreshView(true);
        if (!QTest::qWaitFor([&] { return finished.count > 0 && !view->IsRendering(); }, kTimeout))
            return false;
        HORefPtr<HOGraphics> surface(new HOGraphics);
        surface->SetSize(kSize.width(), kSize.height());
        surface->Clear(HOColor(255, 255, 255));
        view->Draw(surface);
        image = surface->Image().copy();
        return true;
    }

    static QImage drawText(const HOLabelSettings& settings, const QString& text) {
        QImage image(200, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(100, 20);
        HOLabelStyle(settings, 96).Draw(painter, text);
        return image;
    }

    QTemporaryDir m_dir;
    int m_files = 0;
};

QTEST_MAIN(tst_Labels)
#include "tst_labels.moc"
