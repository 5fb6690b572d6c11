// Reshaping graphic elements with the selection tool on a shown canvas: the handles on a selected
// element's vertices, a dragged handle moving its vertex (a ring's first and closing vertex together),
// snapping of the dragged vertex, and undo and redo of each reshape.
#include <QtTest>

#include "HXEditCanvas.h"

using namespace HXObjects;

class TestCanvasReshape : public QObject {
    Q_OBJECT

private slots:
    void dragHandle_data() {
        QTest::addColumn<QString>("draw");  // makes the elements; the last one is selected
        QTest::addColumn<QString>("drag");  // the selection tool's drag
        QTest::addColumn<QStringList>("result");
        const QString polygon = "t HOCmdDigitizePolygon; c 100 100; c 300 100; d 300 250";
        QTest::newRow("polygon vertex")
            << polygon << "g 300 100 320 80" << QStringList{"POLYGON ((100 200,320 220,300 50,100 200))*"};
        QTest::newRow("first vertex of a ring closes it too")
            << polygon << "g 101 99 90 90" << QStringList{"POLYGON ((90 210,300 200,300 50,90 210))*"};
        QTest::newRow("line vertex") << "t HOCmdDigitizeLine; c 50 50; c 150 50; d 150 150"
                                     << "g 150 50 170 60"
                                     << QStringList{"LINESTRING (50 250,170 240,150 150)*"};
        QTest::newRow("snapped to another element's vertex")
            << "t HOCmdDigitizeLine; c 50 50; d 150 50; c 50 200; d 150 200"
            << "g 150 200 146 56"
            << QStringList{"LINESTRING (50 250,150 250)", "LINESTRING (50 100,150 250)*"};
        QTest::newRow("a drag shorter than the click limit is a click")
            << polygon << "g 300 100 301 101" << QStringList{"POLYGON ((100 200,300 200,300 50,100 200))*"};
    }

    void dragHandle() {
        QFETCH(QString, draw);
        QFETCH(QString, drag);
        QFETCH(QStringList, result);
        HXEditCanvas f;
        QVERIFY(f.show());
        f.run(draw + "; t HOToolSingleSelect");
        const QStringList before = f.elements();
        const int from = f.map->GetUndoStack()->index();
        f.run(drag);
        QCOMPARE(f.elements(), result);
        if (result != before) {
            QCOMPARE(f.map->GetUndoStack()->undoText(), QString("Move vertex"));
            CheckUndoRedo(f, before, from);
        }
    }

    // A selected element shows a white handle on each vertex; an unselected one shows none.
    void handlesShown() {
        HXEditCanvas f;
        QVERIFY(f.show());
        const auto colour = [&](int x, int y) { return f.widget->grab().toImage().pixelColor(x, y); };
        f.run("t HOCmdDigitizeLine; c 50 50; d 150 50; t HOToolSingleSelect");
        QTRY_COMPARE_WITH_TIMEOUT(colour(52, 48), QColor(Qt::white), 10000);
        f.run("k Escape");
        QTRY_VERIFY_WITH_TIMEOUT(colour(52, 48) != QColor(Qt::white), 10000);
        QCOMPARE(colour(52, 45), kGround);
    }
};

QTEST_MAIN(TestCanvasReshape)
#include "tst_canvas_reshape.moc"
