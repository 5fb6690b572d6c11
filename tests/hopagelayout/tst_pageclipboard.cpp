// The page's element operations for the copy, paste and delete commands: copies travel through the
// private MIME type (with WKT outlines as text) and come back offset, selected and linked among
// themselves; deletion takes only the selection; the drawing order can be changed.
#include <QMimeData>
#include <QtTest>
#include <memory>

#include "HODataFrame.h"
#include "HOGraphicsContainer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOPageClipboard.h"
#include "HOScaleBarElement.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTextElement.h"

using namespace HXObjects;

namespace {

struct Page {
    Page() : frame(new HODataFrame), bar(new HOScaleBarElement), text(new HOTextElement) {
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetMap(new HOMap);
        frame->set_map_view(view);
        frame->set_bounds({10, 110, 10, 90});
        bar->set_frame(frame);
        bar->set_bounds({120, 180, 10, 24});
        text->set_text("Note");
        text->set_bounds({120, 180, 50, 60});
        for (HOPageLayoutBaseElement* e : std::initializer_list<HOPageLayoutBaseElement*>{frame, bar, text})
            container.AddElement(e);
    }
    HOGraphicsContainer container;
    HORefPtr<HODataFrame> frame;
    HORefPtr<HOScaleBarElement> bar;
    HORefPtr<HOTextElement> text;
};

}  // namespace

class tst_PageClipboard : public QObject {
    Q_OBJECT

private slots:
    void copyPasteKeepsSettingsAndLinks_data() {
        QTest::addColumn<bool>("withFrame");
        QTest::newRow("frame and its scale bar") << true;
        QTest::newRow("scale bar alone") << false;
    }

    void copyPasteKeepsSettingsAndLinks() {
        QFETCH(bool, withFrame);
        Page page;
        if (withFrame) page.container.SelectElement(page.frame, true);
        page.container.SelectElement(page.bar, true);
        std::unique_ptr<QMimeData> data(HOPageClipboard::Copy(page.container));
        QVERIFY(data && data->hasFormat(HOPageClipboard::kMimeType));
        QVERIFY2(
            data->text().startsWith(withFrame ? "GEOMETRYCOLLECTION (POLYGON ((10 10" : "POLYGON ((120 10"),
            qPrintable(data->text()));

        const auto pasted = HOPageClipboard::Paste(page.container, *data);
        QCOMPARE(int(pasted.size()), withFrame ? 2 : 1);
        QCOMPARE(page.container.GetElements().size(), std::size_t(3) + pasted.size());
        QVERIFY(page.container.GetSelectedElements(true) == pasted);
        auto* bar = dynamic_cast<HOScaleBarElement*>(pasted.back().get());
        QVERIFY(bar);
        QCOMPARE(bar->get_bounds(), HORect(125, 185, 5, 19));
        // A copied frame is linked to the copied bar; a bar copied alone describes no frame.
        QVERIFY(bar->get_frame() == (withFrame ? pasted.front().get() : nullptr));
    }

    void deleteTakesOnlyTheSelection() {
        Page page;
        page.container.SelectElement(page.text, true);
        QCOMPARE(HOPageClipboard::DeleteSelected(page.container), 1);
        QCOMPARE(page.container.GetElements().size(), std::size_t(2));
        QVERIFY(page.container.GetSelectedElements(true).empty());
        QVERIFY(!HOPageClipboard::Copy(page.container));  // nothing selected
    }

    void moveElementChangesTheDrawingOrder_data() {
        // order: f frame, b bar, t text
        HOAddColumns<int, QString>({"index", "order"});
        QTest::newRow("to the top") << 99 << "btf";
        QTest::newRow("below the bottom stays there") << -3 << "fbt";
        QTest::newRow("one up") << 1 << "bft";
    }

    void moveElementChangesTheDrawingOrder() {
        QFETCH(int, index);
        Page page;
        page.container.MoveElement(page.frame, index);
        QString actual;
        for (const auto& e : page.container.GetElements())
            actual += e == page.frame ? 'f' : e == page.bar ? 'b' : 't';
        QTEST(actual, "order");
    }
};

QTEST_MAIN(tst_PageClipboard)
#include "tst_pageclipboard.moc"
