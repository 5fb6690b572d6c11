// HOGraphics, the QImage surface renderers draw into and the canvas copies from, and the process-wide
// HOGraphicsEngineManager that makes it.
#include <QPainter>
#include <QtTest>
#include <cstring>
#include <thread>
#include <vector>

#include "HOGraphics.h"
#include "HOGraphicsEngineManager.h"
#include "HORefPtr.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

namespace {

// The pixel at (x, y) read straight from Bits(), as the canvas reads it.
QRgb bitsPixel(HOGraphics* g, int x, int y) {
    QRgb pixel = 0;
    std::memcpy(&pixel, g->Bits() + (std::size_t(y) * g->Width() + x) * 4, sizeof pixel);
    return pixel;
}

}  // namespace

class TestHOGraphics : public QObject {
    Q_OBJECT
private slots:
    // First: the first call fixes the plug-in directory; threads racing for it get one manager.
    void managerAcrossThreads() {
        std::vector<HOGraphicsEngineManager*> seen(8, nullptr);
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < seen.size(); ++i)
            threads.emplace_back(
                [&seen, i] { seen[i] = HOGraphicsEngineManager::instance("/first/plugins"); });
        for (std::thread& t : threads) t.join();
        for (HOGraphicsEngineManager* m : seen) QCOMPARE(m, seen.front());
        QCOMPARE(HOGraphicsEngineManager::instance(""), seen.front());
        QCOMPARE(seen.front()->PluginDirectory().toQString(), QStringLiteral("/first/plugins"));
        // An unknown engine leaves the current one selected, so surfaces keep coming.
        QVERIFY(!seen.front()->SetCurrentEngine("GDI"));
        QVERIFY(seen.front()->SetCurrentEngine("QT"));
        QCOMPARE(seen.front()->CurrentEngine().toQString(), QStringLiteral("QT"));
        QVERIFY(seen.front()->NewGraphics());
    }

    void surfaceSizes_data() {
        HOAddColumns<int, int, bool>({"width", "height", "hasBits"});
        QTest::newRow("ordinary") << 64 << 48 << true;
        QTest::newRow("odd width") << 3 << 7 << true;
        QTest::newRow("zero width") << 0 << 10 << false;
        QTest::newRow("negative") << -5 << 10 << false;
    }
    void surfaceSizes() {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(bool, hasBits);
        HORefPtr<HOGraphics> g = HOGraphicsEngineManager::instance("")->NewGraphics();
        QVERIFY(!g->Bits());
        g->SetSize(20, 20);
        g->SetSize(width, height);
        QCOMPARE(g->Bits() != nullptr, hasBits);
        QCOMPARE(g->Width(), hasBits ? width : 0);
        QCOMPARE(g->Height(), hasBits ? height : 0);
        if (!hasBits) return;
        QCOMPARE(g->Image().format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(g->Image().bytesPerLine(), width * 4);          // rows are packed, as Bits() promises
        QCOMPARE(bitsPixel(g, width - 1, height - 1), QRgb(0));  // starts transparent
    }

    void surfaceClearAndPaint_data() {
        QTest::addColumn<HOColor>("color");
        QTest::newRow("opaque") << HOColor(10, 200, 30);
        QTest::newRow("half transparent is stored premultiplied") << HOColor(255, 0, 100, 128);
        QTest::newRow("transparent") << HOColor(255, 255, 255, 0);
    }
    // Clear fills every pixel; drawing through the painter reaches Bits() once End closes it.
    void surfaceClearAndPaint() {
        QFETCH(HOColor, color);
        HORefPtr<HOGraphics> g = HOGraphicsEngineManager::instance("")->NewGraphics();
        g->SetSize(10, 4);
        g->Begin();
        g->Clear(color);
        const QRgb cleared = qPremultiply(qRgba(color.getR(), color.getG(), color.getB(), color.getA()));
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 10; ++x) QCOMPARE(bitsPixel(g, x, y), cleared);
        g->Painter()->fillRect(QRect(0, 0, 5, 4), Qt::black);
        g->End();
        g->SetSize(10, 4);  // same size keeps the pixels
        QCOMPARE(bitsPixel(g, 2, 3), qRgb(0, 0, 0));
        QCOMPARE(bitsPixel(g, 7, 3), cleared);
    }
};

QTEST_MAIN(TestHOGraphics)
#include "tst_hographics.moc"
