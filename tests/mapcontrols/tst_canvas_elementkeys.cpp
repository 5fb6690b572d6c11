// Delete, Ctrl+X, Ctrl+C, Ctrl+V and Escape pressed on a shown map canvas while graphic elements are
// selected, the context menu's "Delete Element", and the one-shot element commands: the elements, the clipboard and the current tool after
// each, and undo and redo of what changed.
#include <QClipboard>
#include <QtTest>

#include "HXEditCanvas.h"

using namespace HXObjects;

namespace {

const QString kA = "LINESTRING (100 250,300 250)", kB = "LINESTRING (100 200,300 200)",
              kC = "LINESTRING (100 150,300 150)";
const QPoint kOutside(-50, -50);

}  // namespace

class TestCanvasElementKeys : public QObject {
    Q_OBJECT

private slots:
    void keys_data() {
        QTest::addColumn<QString>("clipboard");  // its text before
        QTest::addColumn<QPoint>("mouse");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("result");
        QTest::addColumn<QString>("tool");
        QTest::addColumn<QString>("undoText");
        QTest::addColumn<QString>("clipboardAfter");
        QTest::addColumn<int>("notices");
        const QString copied = kA + "\n" + kB;
        // Lines A, B and C at y = 50, 100 and 150 on screen; A and B are selected, the selection tool is current.
        QTest::newRow("Delete") << "" << kOutside << "k Delete" << QStringList{kC} << "HOToolDeleteElement"
                                << "Delete 2 elements" << "" << 0;
        QTest::newRow("Delete, select, Delete")
            << "" << kOutside << "k Delete; c 200 150; k Delete" << QStringList() << "HOToolDeleteElement"
            << "Delete 1 element" << "" << 0;
        QTest::newRow("Delete with nothing selected")
            << "" << kOutside << "k Escape; k Delete" << QStringList{kA, kB, kC} << "HOToolSingleSelect"
            << "Add line" << "" << 0;
        QTest::newRow("Ctrl+X") << "" << kOutside << "k Ctrl+X" << QStringList{kC} << "HOToolCutElement"
                                << "Cut 2 elements" << copied << 0;
        QTest::newRow("Ctrl+C, Escape") << "" << kOutside << "k Ctrl+C; k Escape" << QStringList{kA, kB, kC}
                                        << "HOToolCopyElement" << "Add line" << copied << 0;
        QTest::newRow("Ctrl+C, Ctrl+V with the mouse outside")
            << "" << kOutside << "k Ctrl+C; k Ctrl+V" << QStringList{kA, kB, kC, kA + "*", kB + "*"}
            << "HOToolPasteElement" << "Paste 2 elements" << copied << 0;
        QTest::newRow("Ctrl+X, Ctrl+V under the mouse")
            << "" << QPoint(200, 50) << "k Ctrl+X; k Ctrl+V"
            << QStringList{kC, "LINESTRING (100 275,300 275)*", "LINESTRING (100 225,300 225)*"}
            << "HOToolPasteElement" << "Paste 2 elements" << copied << 0;
        QTest::newRow("pasting again with a click")
            << "" << kOutside << "k Ctrl+C; k Ctrl+V; c 200 280"
            << QStringList{kA, kB, kC, kA, kB, "LINESTRING (100 45,300 45)*", "LINESTRING (100 -5,300 -5)*"}
            << "HOToolPasteElement" << "Paste 2 elements" << copied << 0;
        QTest::newRow("pasting WKT text") << "POINT (10 20)\nLINESTRING (0 0,5 5)\n" << kOutside << "k Ctrl+V"
                                          << QStringList{kA, kB, kC, "POINT (10 20)*", "LINESTRING (0 0,5 5)*"}
                                          << "HOToolPasteElement" << "Paste 2 elements"
                                          << "POINT (10 20)\nLINESTRING (0 0,5 5)\n" << 0;
        QTest::newRow("pasting text that is not WKT")
            << "two lines" << kOutside << "k Ctrl+V" << QStringList{kA + "*", kB + "*", kC} << "HOToolPasteElement"
            << "Add line" << "two lines" << 1;
        QTest::newRow("Delete Element from the menu")
            << "" << kOutside << "r 200 50 Delete Element" << QStringList{kC} << "HOToolDeleteElement"
            << "Delete 2 elements" << "" << 0;
        QTest::newRow("one-shot delete") << "" << kOutside << "t HOCmdDeleteElement" << QStringList{kC}
                                         << "HOToolSingleSelect" << "Delete 2 elements" << "" << 0;
        QTest::newRow("one-shot copy and paste")
            << "" << kOutside << "t HOCmdCopyElement; t HOCmdPasteElement"
            << QStringList{kA, kB, kC, kA + "*", kB + "*"} << "HOToolSingleSelect" << "Paste 2 elements" << copied
            << 0;
    }

    void keys() {
        QFETCH(QString, clipboard);
        QFETCH(QPoint, mouse);
        QFETCH(QString, script);
        QFETCH(QStringList, result);
        QFETCH(QString, tool);
        QFETCH(QString, undoText);
        QFETCH(QString, clipboardAfter);
        QFETCH(int, notices);
        HXEditCanvas f;
        QVERIFY(f.show());
        f.run("t HOCmdDigitizeLine; c 100 50; d 300 50; c 100 100; d 300 100; c 100 150; d 300 150; "
              "t HOToolSingleSelect");
        const auto all = f.graphics()->GetElements();
        f.graphics()->SetSelectedIds({all[0]->GetID(), all[1]->GetID()});
        const QStringList before = f.elements();
        QApplication::clipboard()->setText(clipboard);
        QCursor::setPos(f.widget->mapToGlobal(mouse));

        f.run(script);
        QCOMPARE(f.elements(), result);
        QCOMPARE(f.toolName(), "HXObjects::" + tool);
        QCOMPARE(f.map->GetUndoStack()->undoText(), undoText);
        QCOMPARE(QApplication::clipboard()->text(), clipboardAfter);
        QCOMPARE(f.widget->mNotices.size(), notices);
        CheckUndoRedo(f, before, 3);
    }
};

QTEST_MAIN(TestCanvasElementKeys)
#include "tst_canvas_elementkeys.moc"
