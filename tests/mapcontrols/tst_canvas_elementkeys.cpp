// Delete, Ctrl+X, Ctrl+C, Ctrl+V and Escape pressed on a shown map canvas while graphic elements are
// selected, the context menu's "Delete Element", and the one-shot element commands: the elements, the
// clipboard and the current tool after each, and undo and redo of what changed.
#include <QClipboard>
#include <QtTest>

#include "HOTestColumns.h"
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
        // clipboard: its text before
        HOAddColumns<QString, QPoint, QString, QStringList, QString, QString, QString, int>(
            {"clipboard", "mouse", "script", "result", "tool", "undoText", "clipboardAfter", "notices"});
        const QString copied = kA + "\n" + kB, wkt = "POINT (10 20)\nLINESTRING (0 0,5 5)\n";
        const auto row = [](const char* tag, const QString& clipboard, QPoint mouse, const char* script,
                            const QStringList& result, const char* tool, const char* undoText,
                            const QString& clipboardAfter, int notices = 0) {
            QTest::newRow(tag) << clipboard << mouse << script << result << tool << undoText << clipboardAfter
                               << notices;
        };
        // Lines A, B and C at y = 50, 100 and 150 on screen; A and B are selected, the selection tool is
        // current.
        row("Delete", "", kOutside, "k Delete", {kC}, "HOToolDeleteElement", "Delete 2 elements", "");
        row("Delete, select, Delete", "", kOutside, "k Delete; c 200 150; k Delete", {},
            "HOToolDeleteElement", "Delete 1 element", "");
        row("Delete with nothing selected", "", kOutside, "k Escape; k Delete", {kA, kB, kC},
            "HOToolSingleSelect", "Add line", "");
        row("Ctrl+X", "", kOutside, "k Ctrl+X", {kC}, "HOToolCutElement", "Cut 2 elements", copied);
        row("Ctrl+C, Escape", "", kOutside, "k Ctrl+C; k Escape", {kA, kB, kC}, "HOToolCopyElement",
            "Add line", copied);
        row("Ctrl+C, Ctrl+V with the mouse outside", "", kOutside, "k Ctrl+C; k Ctrl+V",
            {kA, kB, kC, kA + "*", kB + "*"}, "HOToolPasteElement", "Paste 2 elements", copied);
        row("Ctrl+X, Ctrl+V under the mouse", "", QPoint(200, 50), "k Ctrl+X; k Ctrl+V",
            {kC, "LINESTRING (100 275,300 275)*", "LINESTRING (100 225,300 225)*"}, "HOToolPasteElement",
            "Paste 2 elements", copied);
        row("pasting again with a click", "", kOutside, "k Ctrl+C; k Ctrl+V; c 200 280",
            {kA, kB, kC, kA, kB, "LINESTRING (100 45,300 45)*", "LINESTRING (100 -5,300 -5)*"},
            "HOToolPasteElement", "Paste 2 elements", copied);
        row("pasting WKT text", wkt, kOutside, "k Ctrl+V",
            {kA, kB, kC, "POINT (10 20)*", "LINESTRING (0 0,5 5)*"}, "HOToolPasteElement", "Paste 2 elements",
            wkt);
        row("pasting text that is not WKT", "two lines", kOutside, "k Ctrl+V", {kA + "*", kB + "*", kC},
            "HOToolPasteElement", "Add line", "two lines", 1);
        row("Delete Element from the menu", "", kOutside, "r 200 50 Delete Element", {kC},
            "HOToolDeleteElement", "Delete 2 elements", "");
        row("one-shot delete", "", kOutside, "t HOCmdDeleteElement", {kC}, "HOToolSingleSelect",
            "Delete 2 elements", "");
        row("one-shot copy and paste", "", kOutside, "t HOCmdCopyElement; t HOCmdPasteElement",
            {kA, kB, kC, kA + "*", kB + "*"}, "HOToolSingleSelect", "Paste 2 elements", copied);
    }

    void keys() {
        QFETCH(QString, clipboard);
        QFETCH(QPoint, mouse);
        QFETCH(QString, script);
        QFETCH(QString, tool);
        HXEditCanvas f;
        QVERIFY(f.show());
        f.run(
            "t HOCmdDigitizeLine; c 100 50; d 300 50; c 100 100; d 300 100; c 100 150; d 300 150; "
            "t HOToolSingleSelect");
        const auto all = f.graphics()->GetElements();
        f.graphics()->SetSelectedIds({all[0]->GetID(), all[1]->GetID()});
        const QStringList before = f.elements();
        QApplication::clipboard()->setText(clipboard);
        QCursor::setPos(f.widget->mapToGlobal(mouse));

        f.run(script);
        QTEST(f.elements(), "result");
        QCOMPARE(f.toolName(), "HXObjects::" + tool);
        QTEST(f.map->GetUndoStack()->undoText(), "undoText");
        QTEST(QApplication::clipboard()->text(), "clipboardAfter");
        QTEST(f.widget->mNotices.size(), "notices");
        CheckUndoRedo(f, before, 3);
    }
};

QTEST_MAIN(TestCanvasElementKeys)
#include "tst_canvas_elementkeys.moc"
