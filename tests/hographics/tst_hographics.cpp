// HOGraphics: the QImage surface renderers draw into and the canvas copies from.
#include <QPainter>
#include <QtTest>
#include <cstring>

#include "HOGraphics.h"
#include "HOGraphicsEngineManager.h"
#include "HORefPtr.h"
#include "HOTestPrinters.h"

using HXObjects::HOColor;
using HXObjects::HOGraphics;
using HXObjects::HOGraphicsEngineManager;
using HXObjects::HORefPtr;

namespace {

HORefPtr<HOGraphics> NewSurface() {
    return HOGraphicsEngineManager::instance("")->NewGraphics();
}

// The pixel at (x, y) read straight from Bits(), as the canvas reads it.
QRgb BitsPixel(HOGraphics* g, int x, int y) {
    QRgb pixel = 0;
    std::memcpy(&pixel, g->Bits() + (std::size_t(y) * g->Width() + x) * 4, sizeof pixel);
    return pixel;
}

}  // namespace

class TestHOGraphics : public QObject {
    Q_OBJECT
private slots:
    void sizes_data();
    void sizes();
    void clearFillsEveryPixel_data();
    void clearFillsEveryPixel();
    void painterDrawsIntoBits();
};

void TestHOGraphics::sizes_data() {
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("hasBits");
    QTest::newRow("ordinary") << 64 << 48 << true;
    QTest::newRow("odd width") << 3 << 7 << true;
    QTest::newRow("zero width") << 0 << 10 << false;
    QTest::newRow("negative") << -5 << 10 << false;
}

void TestHOGraphics::sizes() {
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, hasBits);
    HORefPtr<HOGraphics> g = NewSurface();
    QVERIFY(g);
    QVERIFY(!g->Bits());
    g->SetSize(20, 20);
    g->SetSize(width, height);
    QCOMPARE(g->Bits() != nullptr, hasBits);
    QCOMPARE(g->Width(), hasBits ? width : 0);
    QCOMPARE(g->Height(), hasBits ? height : 0);
    if (!hasBits) return;
    QCOMPARE(g->Image().format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(g->Image().bytesPerLine(), width * 4);          // rows are packed, as Bits() promises
    QCOMPARE(BitsPixel(g, width - 1, height - 1), QRgb(0));  // starts transparent
}

void TestHOGraphics::clearFillsEveryPixel_data() {
    QTest::addColumn<HOColor>("color");
    QTest::newRow("opaque") << HOColor(10, 200, 30);
    QTest::newRow("half transparent is stored premultiplied") << HOColor(255, 0, 100, 128);
    QTest::newRow("transparent") << HOColor(255, 255, 255, 0);
}

void TestHOGraphics::clearFillsEveryPixel() {
    QFETCH(HOColor, color);
    HORefPtr<HOGraphics> g = NewSurface();
    g->SetSize(5, 4);
    g->Begin();
    g->Clear(color);
    const QRgb expected = qPremultiply(qRgba(color.getR(), color.getG(), color.getB(), color.getA()));
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 5; ++x) QCOMPARE(BitsPixel(g, x, y), expected);
}

// Drawing through the painter must reach Bits() once the painter is closed by Begin/End.
void TestHOGraphics::painterDrawsIntoBits() {
    HORefPtr<HOGraphics> g = NewSurface();
    g->SetSize(10, 10);
    g->Clear(HOColor(255, 255, 255));
    g->Painter()->fillRect(QRect(0, 0, 5, 10), Qt::black);
    g->End();
    QCOMPARE(BitsPixel(g, 2, 5), qRgb(0, 0, 0));
    QCOMPARE(BitsPixel(g, 7, 5), qRgb(255, 255, 255));
    g->SetSize(10, 10);  // same size keeps the pixels
    QCOMPARE(BitsPixel(g, 2, 5), qRgb(0, 0, 0));
}

QTEST_MAIN(TestHOGraphics)
#include "tst_hographics.moc"
