// Symbol previews: each kind of style is drawn where a person looks for it on the pixmap.
#include <QtTest>

#include "HOStyle.h"
#include "HXSymbolUtils.h"

using namespace HXObjects;

class TestSymbolUtils : public QObject {
    Q_OBJECT

private slots:
    void drawsTheStyle_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QRgb>("colour");  // 0: transparent
        QTest::newRow("marker centre") << "marker" << QPoint(20, 20) << qRgb(255, 0, 0);
        QTest::newRow("marker leaves the corner") << "marker" << QPoint(2, 2) << QRgb(0);
        QTest::newRow("line on its first stroke") << "line" << QPoint(9, 20) << qRgb(0, 0, 255);
        QTest::newRow("line misses the centre top") << "line" << QPoint(20, 8) << QRgb(0);
        QTest::newRow("fill inside") << "fill" << QPoint(20, 20) << qRgb(0, 160, 0);
        QTest::newRow("fill outline") << "fill" << QPoint(6, 20) << qRgb(0, 0, 0);
        QTest::newRow("fill leaves a margin") << "fill" << QPoint(1, 20) << QRgb(0);
        QTest::newRow("no style: empty") << "none" << QPoint(20, 20) << QRgb(0);
    }

    void drawsTheStyle() {
        QFETCH(QString, kind);
        QFETCH(QPoint, pixel);
        QFETCH(QRgb, colour);
        const HORefPtr<HOStyle> style =
            kind == "marker" ? HOStyle::NewMarker(HOStyle::Square, 12, HOColor(255, 0, 0))
            : kind == "line" ? HOStyle::NewLine(4, HOColor(0, 0, 255))
            : kind == "fill" ? HOStyle::NewFill(HOColor(0, 160, 0), HOColor(0, 0, 0), 2)
                             : nullptr;
        const QImage image = HXSymbolUtils::symbolPreviewPixmap(style.get(), QSize(40, 40)).toImage();
        QCOMPARE(image.size(), QSize(40, 40));
        if (colour == 0)
            QCOMPARE(qAlpha(image.pixel(pixel)), 0);
        else
            QCOMPARE(image.pixel(pixel), colour);
    }
};

QTEST_MAIN(TestSymbolUtils)
#include "tst_symbolutils.moc"
