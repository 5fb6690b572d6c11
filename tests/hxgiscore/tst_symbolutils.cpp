// Symbol previews: each kind of style is drawn where a person looks for it on the pixmap.
#include <QtTest>

#include "HOStyle.h"
#include "HXSymbolUtils.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HXObjects::HOStyle*)

class TestSymbolUtils : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void drawsTheStyle_data();
    void drawsTheStyle();
    void nullStyleGivesAnEmptyPixmap();

private:
    HORefPtr<HOStyle> m_marker, m_line, m_fill;
};

void TestSymbolUtils::initTestCase() {
    m_marker = HOStyle::NewMarker(HOStyle::Square, 12, HOColor(255, 0, 0));
    m_line = HOStyle::NewLine(4, HOColor(0, 0, 255));
    m_fill = HOStyle::NewFill(HOColor(0, 160, 0), HOColor(0, 0, 0), 2);
}

void TestSymbolUtils::cleanupTestCase() {
    m_marker = m_line = m_fill = nullptr;
}

void TestSymbolUtils::drawsTheStyle_data() {
    QTest::addColumn<HOStyle*>("style");
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<QRgb>("colour");  // 0: transparent

    QTest::newRow("marker centre") << m_marker.get() << QPoint(20, 20) << qRgb(255, 0, 0);
    QTest::newRow("marker leaves the corner") << m_marker.get() << QPoint(2, 2) << QRgb(0);
    QTest::newRow("line on its first stroke") << m_line.get() << QPoint(9, 20) << qRgb(0, 0, 255);
    QTest::newRow("line misses the centre top") << m_line.get() << QPoint(20, 8) << QRgb(0);
    QTest::newRow("fill inside") << m_fill.get() << QPoint(20, 20) << qRgb(0, 160, 0);
    QTest::newRow("fill outline") << m_fill.get() << QPoint(6, 20) << qRgb(0, 0, 0);
    QTest::newRow("fill leaves a margin") << m_fill.get() << QPoint(1, 20) << QRgb(0);
}

void TestSymbolUtils::drawsTheStyle() {
    QFETCH(HOStyle*, style);
    QFETCH(QPoint, pixel);
    const QImage image = HXSymbolUtils::symbolPreviewPixmap(style, QSize(40, 40)).toImage();
    QCOMPARE(image.size(), QSize(40, 40));
    const QRgb actual = image.pixel(pixel);
    QFETCH(QRgb, colour);
    if (colour == 0)
        QCOMPARE(qAlpha(actual), 0);
    else
        QCOMPARE(actual, colour);
}

void TestSymbolUtils::nullStyleGivesAnEmptyPixmap() {
    const QImage image = HXSymbolUtils::symbolPreviewPixmap(nullptr, QSize(16, 16)).toImage();
    QCOMPARE(image.size(), QSize(16, 16));
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) QCOMPARE(qAlpha(image.pixel(x, y)), 0);
}

QTEST_MAIN(TestSymbolUtils)
#include "tst_symbolutils.moc"
