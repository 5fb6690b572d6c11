// Our fill of small polygons fills the pixels QPainter's aliased odd-even fill does: random
// polygons (self-crossing ones too), vertices on pixel edges, slivers, parts beyond the image.
#include <QPainter>
#include <QtTest>
#include <random>

#include "render/private/HOPolygonFiller.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(QPolygonF)

class TestPolygonFill : public QObject {
    Q_OBJECT

private slots:
    void fillsAsQPainter_data() {
        QTest::addColumn<QPolygonF>("polygon");
        QTest::newRow("square on pixel edges") << QPolygonF({{2, 2}, {10, 2}, {10, 10}, {2, 10}});
        QTest::newRow("thin sliver") << QPolygonF({{1, 1}, {30, 1.4}, {1, 1.8}});
        QTest::newRow("star, crossing itself") << QPolygonF({{20, 2}, {26, 38}, {4, 14}, {36, 14}, {14, 38}});
        QTest::newRow("beyond the image") << QPolygonF({{-5, -5}, {20, 3}, {45, 50}, {3, 20}});
        std::mt19937 random(11);
        std::uniform_real_distribution<double> place(0, 40);
        for (int i = 0; i < 40; ++i) {
            QPolygonF polygon;
            for (int v = 0; v < 3 + i % 9; ++v) polygon << QPointF(place(random), place(random));
            QTest::newRow(qPrintable(QStringLiteral("random %1").arg(i))) << polygon;
        }
    }

    void fillsAsQPainter() {
        QFETCH(QPolygonF, polygon);
        const QColor colour(30, 120, 200, 190);
        QImage ours(40, 40, QImage::Format_ARGB32_Premultiplied), theirs = ours;
        ours.fill(Qt::white);
        theirs.fill(Qt::white);
        {
            QPainter painter(&ours);
            HOPolygonFiller(HODirectTarget::Of(painter))
                .Fill(polygon.constData(), polygon.size(), qPremultiply(colour.rgba()));
        }
        QPainter painter(&theirs);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(polygon, Qt::OddEvenFill);
        painter.end();
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 40; ++x)
                QVERIFY2(ours.pixel(x, y) == theirs.pixel(x, y),
                         qPrintable(QStringLiteral("(%1, %2)").arg(x).arg(y)));
    }
};

QTEST_MAIN(TestPolygonFill)
#include "tst_polygonfill.moc"
