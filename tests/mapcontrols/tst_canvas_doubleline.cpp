// The double-line tool driven on a shown canvas: the centre line clicked in, the two parallel lines
// it makes (mitred at corners), the width set through the context menu, nothing made for a zero width
// or a one-vertex centre line, undo and redo, and the picture.
#include <QtTest>

#include "HXEditCanvas.h"

using namespace HXObjects;

class TestCanvasDoubleLine : public QObject {
    Q_OBJECT

private slots:
    void doubleLine_data() {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("result");  // the new elements, selected
        const QString corner = "c 50 50; c 150 50; d 150 150";
        QTest::newRow("corner, default width")
            << "t HOToolDoubleLine; " + corner
            << QStringList{"LINESTRING (50 255,155 255,155 150)*", "LINESTRING (50 245,145 245,145 150)*"};
        QTest::newRow("width from the menu")
            << "t HOToolDoubleLine; r 10 10 Please input line width | qt_spinbox_lineedit=40; " + corner
            << QStringList{"LINESTRING (50 270,170 270,170 150)*", "LINESTRING (50 230,130 230,130 150)*"};
        QTest::newRow("zero width") << "t HOToolDoubleLine; o width 0; " + corner << QStringList();
        QTest::newRow("one vertex") << "t HOToolDoubleLine; c 50 50; d 50 50" << QStringList();
    }

    void doubleLine() {
        QFETCH(QString, script);
        QFETCH(QStringList, result);
        HXEditCanvas f;
        QVERIFY(f.show());
        f.map->SetSnapTolerance(0);
        HOTool* tool = HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolDoubleLine");
        tool->SetParameter("LineWidth", script.contains("width 0") ? "0" : "10");
        f.run(script.replace("o width 0; ", ""));
        QCOMPARE(f.elements(), result);
        CheckUndoRedo(f, {}, 0);
        QCOMPARE(f.map->GetUndoStack()->count(), result.isEmpty() ? 0 : 1);
    }

    // Both lines show, the centre between them stays the ground.
    void picture() {
        HXEditCanvas f;
        QVERIFY(f.show());
        HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolDoubleLine")->SetParameter("LineWidth", "20");
        f.run("t HOToolDoubleLine; c 50 150; d 350 150; t HOToolPan");
        const auto colour = [&](int x, int y) { return f.widget->grab().toImage().pixelColor(x, y); };
        QTRY_VERIFY_WITH_TIMEOUT(colour(200, 140) != kGround && colour(200, 160) != kGround, 10000);
        QCOMPARE(colour(200, 150), kGround);
        QCOMPARE(colour(200, 130), kGround);
    }
};

QTEST_MAIN(TestCanvasDoubleLine)
#include "tst_canvas_doubleline.moc"
