// The element tools driven as a person drives them on a shown map canvas: digitising lines and
// polygons, placing control points by click and by typed input, moving elements by dragging; the
// elements that result, the picture, and undo and redo of each edit.
#include <QtTest>

#include "HOTestColumns.h"
#include "HXEditCanvas.h"

using namespace HXObjects;

class TestCanvasElementTools : public QObject {
    Q_OBJECT

private slots:
    void digitize_data() {
        // result: the new element, selected; empty: none made
        HOAddColumns<QString, QString>({"script", "result"});
        const auto row = [](const char* tag, const QString& script, const char* result) {
            QTest::newRow(tag) << script << result;
        };
        const QString line = "t HOCmdDigitizeLine; c 50 50; ", polygon = "t HOCmdDigitizePolygon; ";
        row("line, double click", line + "m 100 50; c 150 50; d 150 150",
            "LINESTRING (50 250,150 250,150 150)");
        row("line, Enter", line + "c 150 50; k Return", "LINESTRING (50 250,150 250)");
        row("line, Backspace drops a vertex", line + "c 150 50; c 150 150; k Backspace; k Return",
            "LINESTRING (50 250,150 250)");
        row("line, Escape abandons", line + "c 150 50; k Escape; k Return", "");
        row("line, new path from the menu", line + "c 150 50; r 150 50 New path; c 50 100; d 150 100",
            "MULTILINESTRING ((50 250,150 250),(50 200,150 200))");
        row("polygon, double click", polygon + "c 100 100; c 300 100; d 300 250",
            "POLYGON ((100 200,300 200,300 50,100 200))");
        row("polygon, new path as a hole",
            polygon + "c 50 50; c 350 50; c 350 250; c 50 250; o new path; c 150 100; c 250 100; d 250 200",
            "POLYGON ((50 250,350 250,350 50,50 50,50 250),(150 200,250 200,250 100,150 200))");
        row("polygon of two vertices", polygon + "c 100 100; d 300 100", "");
        row("polygon of a repeated vertex", polygon + "c 100 100; c 100 100; c 300 100; d 300 100", "");
    }

    void digitize() {
        QFETCH(QString, script);
        QFETCH(QString, result);
        HXEditCanvas f;
        QVERIFY(f.show());
        f.run(script);
        QCOMPARE(f.elements(), result.isEmpty() ? QStringList() : QStringList{result + "*"});
        CheckUndoRedo(f, {}, 0);
    }

    // While digitising, the mouse drags the next segment; the finished polygon shows filled with its
    // outline once the canvas has redrawn.
    void digitizedPolygonPicture() {
        HXEditCanvas f;
        QVERIFY(f.show());
        const auto colour = [&](int x, int y) { return f.widget->grab().toImage().pixelColor(x, y); };
        f.run("t HOCmdDigitizePolygon; c 100 100; c 300 100; c 300 250; m 100 250");
        QCOMPARE(f.canvas.cursor().shape(), Qt::CrossCursor);
        // The segment from the last vertex to the mouse, along y = 250.
        QTRY_VERIFY_WITH_TIMEOUT(colour(200, 250).red() > colour(200, 250).green() + 60, 10000);
        f.widget->grab().save(QDir::temp().filePath("hx_digitizing_polygon.png"));
        f.run("d 100 250");
        QCOMPARE(f.elements().size(), 1);
        // Inside: the half-transparent yellow fill over the ground; outside: the ground.
        QTRY_VERIFY_WITH_TIMEOUT(colour(200, 200).red() > colour(200, 200).blue() + 60, 10000);
        QCOMPARE(colour(50, 50), kGround);
        QCOMPARE(colour(350, 200), kGround);
        // On the right edge (x = 300): the outline, red under the selection highlight's cyan edge.
        const QColor edge = colour(300, 175);
        QVERIFY2(edge != kGround && edge != colour(200, 200), qPrintable(edge.name()));
        f.widget->grab().save(QDir::temp().filePath("hx_digitized_polygon.png"));
    }

    void controlPoint_data() {
        HOAddColumns<QByteArray, QString, QStringList, QStringList>({"system", "script", "result", "labels"});
        const QString xy = "r 10 10 Input X and Y | mLineEditX=%1 mLineEditY=%2";
        const QString dms =
            "r 10 10 Input DMS data | mLineEditLonDegree=%1 mLineEditLonMinute=%2 "
            "mLineEditLatDegree=%3 mLineEditLatMinute=%4";
        QTest::newRow("clicks") << QByteArray() << "t HOToolAddControlPoint; c 100 100; c 200 50"
                                << QStringList{"POINT (100 200)", "POINT (200 250)*"}
                                << QStringList{"1", "2"};
        QTest::newRow("typed X and Y")
            << QByteArray() << "t HOToolAddControlPoint; " + xy.arg("123.5", "45.25")
            << QStringList{"POINT (123.5 45.25)*"} << QStringList{"1"};
        QTest::newRow("DMS in a geographic map")
            << QByteArray("EPSG:4326") << "t HOToolAddControlPoint; " + dms.arg("117", "30", "30", "15")
            << QStringList{"POINT (117.5 30.25)*"} << QStringList{"1"};
        QTest::newRow("DMS in a projected map, on the central meridian")
            << QByteArray("EPSG:32650") << "t HOToolAddControlPoint; " + dms.arg("117", "0", "0", "0")
            << QStringList{"POINT (500000 0)*"} << QStringList{"1"};
        QTest::newRow("cancel point")
            << QByteArray()
            << "t HOToolAddControlPoint; c 100 100; c 200 50; r 10 10 Cancel point; "
               "c 300 50"
            << QStringList{"POINT (100 200)", "POINT (300 250)*"} << QStringList{"1", "2"};
        QTest::newRow("Backspace") << QByteArray() << "t HOToolAddControlPoint; c 100 100; k Backspace"
                                   << QStringList() << QStringList();
    }

    void controlPoint() {
        QFETCH(QByteArray, system);
        QFETCH(QString, script);
        HXEditCanvas f;
        QVERIFY(f.show(system.isEmpty() ? nullptr : system.constData()));
        f.run(script);
        QTEST(f.elements(), "result");
        QStringList shown;
        for (const auto& element : f.graphics()->GetElements()) shown << element->GetLabel().toQString();
        QTEST(shown, "labels");
        CheckUndoRedo(f, {}, 0);
    }

    void moveByDrag_data() {
        HOAddColumns<QString, QStringList, QString>({"script", "result", "undoText"});
        // Two lines, at y = 150 and y = 100 on screen; the second one is selected.
        QTest::newRow("an unselected element moves alone")
            << "g 200 150 250 130"
            << QStringList{"LINESTRING (150 170,350 170)*", "LINESTRING (100 200,300 200)"}
            << "Move 1 element";
        QTest::newRow("a selected element moves the selection")
            << "g 200 100 250 50"
            << QStringList{"LINESTRING (100 150,300 150)", "LINESTRING (150 250,350 250)*"}
            << "Move 1 element";
        QTest::newRow("a short drag is a click")
            << "g 200 150 201 151"
            << QStringList{"LINESTRING (100 150,300 150)*", "LINESTRING (100 200,300 200)"} << "Add line";
        QTest::newRow("Escape drops the selection")
            << "k Escape" << QStringList{"LINESTRING (100 150,300 150)", "LINESTRING (100 200,300 200)"}
            << "Add line";
    }

    void moveByDrag() {
        QFETCH(QString, script);
        HXEditCanvas f;
        QVERIFY(f.show());
        f.run("t HOCmdDigitizeLine; c 100 150; d 300 150; c 100 100; d 300 100; t HOToolSingleSelect");
        const QStringList before = f.elements();
        f.run(script);
        QTEST(f.elements(), "result");
        QCOMPARE(f.toolName(), QString("HXObjects::HOToolSingleSelect"));
        QTEST(f.map->GetUndoStack()->undoText(), "undoText");
        CheckUndoRedo(f, before, 2);
    }

    // A right click without a tool opens no menu; undo with nothing done does nothing.
    void nothingToDo() {
        HXEditCanvas f;
        QVERIFY(f.show());
        HXPopupAnswer menu;
        QTest::mouseClick(f.widget, Qt::RightButton, Qt::NoModifier, QPoint(100, 100));
        QVERIFY(!menu.shown);
        f.map->GetUndoStack()->undo();
        QVERIFY(f.elements().isEmpty());
    }
};

QTEST_MAIN(TestCanvasElementTools)
#include "tst_canvas_elementtools.moc"
