// Rebinding and unbinding views: SetMapView, SetPageLayoutView and the destructor, checked through
// the bindings each view's signals hold afterwards.
#include <QtTest>

#include "HOCallbackKey.h"
#include "HOMapViewManager.h"
#include "HORecordingView.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

namespace {

// Which of the canvas's callbacks a signal holds, as a text such as "redraw scale".
QString BoundOn(HOEventSignal& signal, HXMapCanvas* canvas, HXMapWidget* widget) {
    QStringList bound;
    if (HOIsMemberBound(signal, widget, &HXMapWidget::onViewRedraw)) bound << "redraw";
    if (HOIsMemberBound(signal, canvas, &HXMapCanvas::scaleChangedCallback)) bound << "scale";
    if (HOIsMemberBound(signal, canvas, &HXMapCanvas::viewBoundChangedCallback)) bound << "bounds";
    if (HOIsMemberBound(signal, canvas, &HXMapCanvas::pagelyoutViewChangeActiveCallback)) bound << "active";
    return bound.join(' ');
}

// Every binding of the canvas on a view, signal by signal.
QString BoundOnView(HOView* view, HXMapCanvas* canvas, HXMapWidget* widget) {
    QStringList all{BoundOn(view->RedrawSignal, canvas, widget),
                    BoundOn(view->ScaleChangedSignal, canvas, widget)};
    if (auto* map = dynamic_cast<HOMapView*>(view)) all << BoundOn(map->BoundChangedSignal, canvas, widget);
    if (auto* layout = dynamic_cast<HOPageLayoutView*>(view))
        all << BoundOn(layout->ActiveElementChangedSignal, canvas, widget);
    return all.join('|');
}

HOMapView* FirstView(HXMapCanvas& canvas) {
    return HOMapViewManager::GetInstance()->views(canvas.getMapViewGroupID()).front();
}

}  // namespace

class TestCanvasViews : public QObject {
    Q_OBJECT

private slots:
    void nullMapViewOnlyStopsDrawing();
    void replacedMapView_data();
    void replacedMapView();
    void replacedLayoutKeepsOldBindings();
    void destructorUnbindsEverything_data();
    void destructorUnbindsEverything();
};

void TestCanvasViews::nullMapViewOnlyStopsDrawing() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    auto* widget = canvas.findChild<HXMapWidget*>();
    HOMapView* first = canvas.GetMapView();
    QCOMPARE(BoundOnView(first, &canvas, widget), QString("redraw|scale|bounds"));

    canvas.SetMapView(nullptr);
    QCOMPARE(canvas.GetMapView(), first);
    QCOMPARE(BoundOnView(first, &canvas, widget), QString("|scale|bounds"));
}

void TestCanvasViews::replacedMapView_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<QString>("firstAfter");
    QTest::addColumn<QString>("secondAfter");
    QTest::newRow("map view") << HXMapCanvas::MapViewMode << "|scale|bounds"
                              << "redraw||";
    // In a layout the canvas draws the layout, never a map view directly.
    QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode << "||bounds"
                                 << "||";
}

void TestCanvasViews::replacedMapView() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(QString, firstAfter);
    QFETCH(QString, secondAfter);
    HXMapCanvas canvas(mode, nullptr);
    canvas.resize(320, 240);
    auto* widget = canvas.findChild<HXMapWidget*>();
    HORefPtr<HOMapView> first = FirstView(canvas);
    HORefPtr<HORecordingMapView> second = new HORecordingMapView();

    canvas.SetMapView(second);
    QCOMPARE(BoundOnView(first, &canvas, widget), firstAfter);
    QCOMPARE(BoundOnView(second, &canvas, widget), secondAfter);
    if (mode == HXMapCanvas::MapViewMode) {
        QCOMPARE(canvas.GetMapView(), second.get());
        QCOMPARE(second->calls(), QStringList{"SetSize 320x240"});
    }

    // Scale notifications still come from the first view only.
    QSignalSpy updates(&canvas, &HXMapCanvas::signal_updateScale);
    HOEvent event;
    first->ScaleChangedSignal.fire(first, &event);
    second->ScaleChangedSignal.fire(second, &event);
    QCOMPARE(updates.count(), mode == HXMapCanvas::MapViewMode ? 1 : 0);
}

void TestCanvasViews::replacedLayoutKeepsOldBindings() {
    HXMapCanvas canvas(HXMapCanvas::PageLayoutMode, nullptr);
    auto* widget = canvas.findChild<HXMapWidget*>();
    HORefPtr<HOPageLayoutView> first = canvas.GetPageLayoutView();
    HORefPtr<HORecordingPageLayoutView> second = new HORecordingPageLayoutView();

    canvas.SetPageLayoutView(second);
    QCOMPARE(canvas.GetPageLayoutView(), second.get());
    QCOMPARE(BoundOnView(second, &canvas, widget), QString("redraw||active"));
    QCOMPARE(BoundOnView(first, &canvas, widget), QString("redraw|scale|active"));
    // The canvas holds one reference on the layout it shows and none on the one it dropped.
    QCOMPARE(second->RefCount(), 2);
    QCOMPARE(first->RefCount(), 1);

    QSignalSpy active(&canvas, &HXMapCanvas::activeElementChanged);
    HOEvent event;
    second->ActiveElementChangedSignal.fire(second, &event);
    QCOMPARE(active.count(), 1);
    QCOMPARE(active.at(0).at(0).value<void*>(), static_cast<void*>(second.get()));
    QCOMPARE(active.at(0).at(1).value<void*>(), static_cast<void*>(&event));
}

void TestCanvasViews::destructorUnbindsEverything_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode;
    QTest::newRow("map view") << HXMapCanvas::MapViewMode;
    QTest::newRow("reserved") << HXMapCanvas::ReservedMode;
}

void TestCanvasViews::destructorUnbindsEverything() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    auto* canvas = new HXMapCanvas(mode, nullptr);
    auto* widget = canvas->findChild<HXMapWidget*>();
    const int group = canvas->getMapViewGroupID();
    HORefPtr<HOMapView> map = FirstView(*canvas);
    HORefPtr<HOPageLayoutView> layout = canvas->GetPageLayoutView();
    const int mapRefs = map->RefCount();

    // When beforeDestroyed() arrives nothing is released or unbound yet.
    QStringList seen;
    connect(canvas, &HXMapCanvas::beforeDestroyed, this, [&] {
        seen << QString::number(map->RefCount()) << BoundOn(map->BoundChangedSignal, canvas, widget)
             << QString::number(HOMapViewManager::GetInstance()->hasGroup(group));
    });
    delete canvas;

    QCOMPARE(seen, (QStringList{QString::number(mapRefs), "bounds", "1"}));
    QCOMPARE(BoundOnView(map, canvas, widget), QString("||"));
    if (layout) QCOMPARE(BoundOnView(layout, canvas, widget), QString("||"));
    QVERIFY(!HOMapViewManager::GetInstance()->hasGroup(group));
    // The canvas's and the view group's references are gone; the test's (and a layout's frame) stay.
    QCOMPARE(map->RefCount(), mapRefs - 2);
    if (layout) QCOMPARE(layout->RefCount(), 1);
}

QTEST_MAIN(TestCanvasViews)
#include "tst_canvas_views.moc"
