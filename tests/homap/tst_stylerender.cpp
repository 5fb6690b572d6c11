// What a layer draws for the style values the picker edits: a line's casing beneath it, opacity,
// and hatched or empty fills.
#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"

using namespace HXObjects;

namespace {

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

class TestStyleRender : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        m_line = open("line.gpkg", wkbLineString, "LINESTRING(0 50,100 50)");
        m_square = open("square.gpkg", wkbPolygon, "POLYGON((10 10,90 10,90 90,10 90,10 10))");
        QVERIFY(m_line && m_square);
    }

    void pixels_data() {
        QTest::addColumn<QString>("style");
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QColor>("colour");
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
    void pixels() {
        QFETCH(QString, style);
        QFETCH(QPoint, pixel);
        QFETCH(QColor, colour);
        const QColor drawn = render(style).pixelColor(pixel);
        const int off = std::abs(drawn.red() - colour.red()) + std::abs(drawn.green() - colour.green()) +
                        std::abs(drawn.blue() - colour.blue());
        QVERIFY2(off <= 6, qPrintable(QString("%1 instead of %2").arg(drawn.name(), colour.name())));
    }

    // A hatch covers part of the area and leaves the rest as it was.
    void hatchLeavesGaps() {
        const QImage hatched = render("hatched fill");
        const double blue = share(hatched, 50, qRgb(0, 0, 255)),
                     white = share(hatched, 50, qRgb(255, 255, 255));
        QVERIFY2(blue > 0.05 && blue < 0.5, qPrintable(QString::number(blue)));
        QCOMPARE(blue + white, 1.0);
        QCOMPARE(share(render("solid fill"), 50, qRgb(0, 0, 255)), 1.0);
    }

private:
    HORefPtr<HOFeatureLayer> open(const QString& file, OGRwkbGeometryType type, const char* wkt) {
        const QString path = m_dir.filePath(file);
        if (!HOLayerFixture::WriteVector(path, "GPKG", 4509, type, {{wkt}})) return nullptr;
        return HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(path)));
    }
    QImage render(const QString& styleName) {
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

QTEST_MAIN(TestStyleRender)
#include "tst_stylerender.moc"
