// A canvas in each view mode: its status bar and title, which view signals it binds, how SetMapView,
// SetPageLayoutView and the destructor rebind them, and which map view a page layout shows.
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QToolButton>
#include <QTranslator>
#include <QtTest>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOMap.h"
#include "HOMapViewManager.h"
#include "HOPageLayoutBaseElement.h"
#include "HORecordingView.h"
#include "HOTestColumns.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarCoordinatesWidget.h"
#include "HXStatusBarScaleWidget.h"

using namespace HXObjects;
Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

namespace {

// Translates the view name, so a test can tell the translated name from the fixed window title.
class MapNameTranslator : public QTranslator {
public:
    QString translate(const char*, const char* source, const char*, int) const override {
        return QString(source) == "Map" ? "Karte" : QString();
    }
};

// A page element that is not a data frame.
class TextElement : public HOPageLayoutBaseElement {
public:
    TextElement() : HOPageLayoutBaseElement(HOElementText) {}
    void draw(QPainter&, const HOPageRenderContext&) override {}
};

// Which of the canvas's callbacks a signal holds, as a text such as "redraw scale".
QString BoundOn(HOEventSignal& signal, HXMapCanvas* canvas, HXMapWidget* widget) {
    QStringList bound;
    if (HOIsMemberBound(signal, widget, &HXMapWidget::onViewRedraw)) bound << "redraw";
    if (HOIsMemberBound(signal, canvas, &HXMapCanvas::scaleChangedCallback)) bound << "scale";
    if (HOIsMemberBound(signal, canvas, &HXMapCanvas::viewBoundChangedCallback)) bound << "bounds";
    if (HOIsMemberBound(signal, canvas, &HXMapCanvas::pagelyoutViewChangeActiveCallback)) bound << "active";
    return bound.join(' ');
}

// Every binding of the canvas on a view: redraw|scale|bounds (map) or redraw|scale|active (layout).
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

class TestCanvasConstruction : public QObject {
    Q_OBJECT

private slots:
    void lifecycle_data() {
        HOAddColumns<HXMapCanvas::ViewMode, QString, QString>({"mode", "mapBound", "layoutBound"});
        QTest::newRow("layout") << HXMapCanvas::PageLayoutMode << "||bounds"
                                << QString("redraw|scale|active");
        QTest::newRow("map view") << HXMapCanvas::MapViewMode << "redraw|scale|bounds" << QString();
        QTest::newRow("reserved") << HXMapCanvas::ReservedMode << "||bounds" << QString();
    }

    void lifecycle() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        auto* canvas = new HXMapCanvas(mode, nullptr);
        auto* widget = canvas->findChild<HXMapWidget*>();
        const int group = canvas->getMapViewGroupID();
        // Every mode gets a view group with one map view in it.
        QCOMPARE(HOMapViewManager::GetInstance()->views(group).size(), std::size_t(1));
        HORefPtr<HOMapView> map = FirstView(*canvas);
        HORefPtr<HOPageLayoutView> layout = canvas->GetPageLayoutView();
        QTEST(BoundOnView(map, canvas, widget), "mapBound");
        QTEST(layout ? BoundOnView(layout, canvas, widget) : QString(), "layoutBound");
        QVERIFY(HOIsMemberBound(canvas->Request3DRefreshSignal, canvas, &HXMapCanvas::onRequest3DRefresh));
        QSignalSpy extents(canvas, &HXMapCanvas::extentsChanged);
        HOEvent event;
        map->BoundChangedSignal.fire(map, &event);
        QCOMPARE(extents.count(), 1);

        // When beforeDestroyed() arrives nothing is released or unbound yet.
        const int mapRefs = map->RefCount();
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

    void statusBar() {
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        canvas.setWindowState(Qt::WindowNoState);
        canvas.resize(900, 400);
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
        QStatusBar* bar = canvas.StatusBar();
        auto* scale = bar->findChild<HXStatusBarScaleWidget*>("mScaleWidget");
        auto* coords = bar->findChild<HXStatusBarCoordinatesWidget*>("mCoordsEdit");
        QVERIFY(scale && coords);
        QToolButton* toggle = nullptr;
        for (auto* button : bar->findChildren<QToolButton*>())
            if (button->toolTip() == "Toggles pause refresh and continue") toggle = button;
        const QList<QWidget*> order{scale->mScaleLabel,
                                    scale->mScaleEdit,
                                    coords->mLineEdit,
                                    coords->mLabelUnit,
                                    coords->mToggleExtentsViewButton,
                                    toggle};
        for (int i = 0; i < order.size(); ++i) {
            QVERIFY2(order[i] && order[i]->isVisible(), qPrintable(QString("item %1").arg(i)));
            QCOMPARE(order[i]->parentWidget(), static_cast<QWidget*>(bar));
            if (i > 0) QVERIFY2(order[i - 1]->x() < order[i]->x(), qPrintable(QString("item %1").arg(i)));
        }
        // The drawing widget sits on top of the 25 px status bar and together they fill the canvas.
        QVERIFY(canvas.findChild<HXMapWidget*>()->geometry() == QRect(0, 0, 900, 375) &&
                bar->geometry() == QRect(0, 375, 900, 25));
        // The bar's coordinates follow this canvas.
        const HORefPtr<HOMap> map = new HOMap();
        emit canvas.xyCoordinates(QPointF(1.0, 2.0), map);
        QCOMPARE(coords->mLineEdit->text(), QStringLiteral("1.000 , 2.000"));
    }

    // The view name is translated, the window title is not; the canvas is its map view's tool buddy.
    void titleAndBuddy() {
        MapNameTranslator translator;
        QCoreApplication::installTranslator(&translator);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(canvas.windowTitle(), QString("Map"));
        HOMapView* map = canvas.GetMapView();
        QCOMPARE(map->GetName(), HOString("Karte"));
        QCOMPARE(map->GetToolBuddy(), static_cast<HOToolBuddy*>(&canvas));
        QCOMPARE(HOMapViewManager::GetInstance()->activeView(canvas.getMapViewGroupID()), map);
        // Another buddy takes the canvas's map view over; a null buddy changes nothing in the views.
        HXMapCanvas host(HXMapCanvas::MapViewMode, nullptr);
        canvas.SetToolBuddy(&host);
        QCOMPARE(map->GetToolBuddy(), static_cast<HOToolBuddy*>(&host));
        QCOMPARE(host.GetMapView(), map);
        canvas.SetToolBuddy(nullptr);
        QCOMPARE(map->GetToolBuddy(), static_cast<HOToolBuddy*>(&host));
    }

    void layoutMapView_data() {
        QTest::addColumn<QString>("operating");
        for (const char* operating : {"frame", "none", "text"}) QTest::newRow(operating) << operating;
    }

    void layoutMapView() {
        QFETCH(QString, operating);
        HXMapCanvas canvas(HXMapCanvas::PageLayoutMode, nullptr);
        HORefPtr<HOMapView> view = new HOMapView("framed");
        HORefPtr<HOPageLayoutBaseElement> element;
        if (operating == "frame") {
            HORefPtr<HODataFrame> frame = new HODataFrame();
            frame->set_map_view(view);
            element = frame.get();
        } else if (operating == "text") {
            element = new TextElement();
        }
        canvas.GetPageLayoutView()->set_operating_data_frame(element);
        const int refs = element ? element->RefCount() : 0;
        QCOMPARE(canvas.GetMapView(), operating == "frame" ? view.get() : nullptr);
        // The canvas borrows the frame: it keeps no reference of its own.
        QCOMPARE(element ? element->RefCount() : 0, refs);
    }

    void replacedMapView_data() {
        // replaced: false: SetMapView(nullptr)
        HOAddColumns<HXMapCanvas::ViewMode, bool, QString, QString>(
            {"mode", "replaced", "firstAfter", "secondAfter"});
        QTest::newRow("map view") << HXMapCanvas::MapViewMode << true << "|scale|bounds"
                                  << QString("redraw||");
        // A null view only stops the drawing.
        QTest::newRow("map view, null") << HXMapCanvas::MapViewMode << false << "|scale|bounds" << QString();
        // In a layout the canvas draws the layout, never a map view directly.
        QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode << true << "||bounds" << QString("||");
    }

    void replacedMapView() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        QFETCH(bool, replaced);
        HXMapCanvas canvas(mode, nullptr);
        canvas.resize(320, 240);
        auto* widget = canvas.findChild<HXMapWidget*>();
        HORefPtr<HOMapView> first = FirstView(canvas);
        HORefPtr<HORecordingMapView> second = replaced ? new HORecordingMapView() : nullptr;

        canvas.SetMapView(second);
        QTEST(BoundOnView(first, &canvas, widget), "firstAfter");
        if (second) QTEST(BoundOnView(second, &canvas, widget), "secondAfter");
        if (mode == HXMapCanvas::MapViewMode) {
            QCOMPARE(canvas.GetMapView(), second ? second.get() : first.get());
            if (second) QCOMPARE(second->calls(), QStringList{"SetSize 320x240"});
        }
        // Scale notifications still come from the first view only, and only with an event.
        QSignalSpy updates(&canvas, &HXMapCanvas::signal_updateScale);
        HOEvent event;
        first->ScaleChangedSignal.fire(first, nullptr);
        first->ScaleChangedSignal.fire(first, &event);
        if (second) second->ScaleChangedSignal.fire(second, &event);
        QCOMPARE(updates.count(), mode == HXMapCanvas::MapViewMode ? 1 : 0);
    }

    void replacedViewsAreUnboundAtDestruction_data() {
        QTest::addColumn<HXMapCanvas::ViewMode>("mode");
        QTest::newRow("map view") << HXMapCanvas::MapViewMode;
        QTest::newRow("layout") << HXMapCanvas::PageLayoutMode;
    }

    // Views that outlive the canvas, the replaced ones too, keep no callback into it and do not have
    // it as their tool buddy; a zoom of the first view then reaches nothing (the sanitizers watch).
    void replacedViewsAreUnboundAtDestruction() {
        QFETCH(HXMapCanvas::ViewMode, mode);
        auto* canvas = new HXMapCanvas(mode, nullptr);
        auto* widget = canvas->findChild<HXMapWidget*>();
        const HOToolBuddy* buddy = canvas;
        HORefPtr<HOMapView> first = FirstView(*canvas);
        HORefPtr<HOMapView> second = new HOMapView();
        QList<HORefPtr<HOView>> views{first, second};
        canvas->SetMapView(second);
        if (mode == HXMapCanvas::PageLayoutMode) {
            views << HORefPtr<HOView>(canvas->GetPageLayoutView())
                  << HORefPtr<HOView>(new HOPageLayoutView());
            canvas->SetPageLayoutView(static_cast<HOPageLayoutView*>(views.last().get()));
        }
        delete canvas;
        for (const HORefPtr<HOView>& view : views) {
            QCOMPARE(BoundOnView(view, canvas, widget), QString("||"));
            QVERIFY(view->GetToolBuddy() != buddy);
        }
        first->SetSize(100, 100);
        first->SetExtent(HORect(0, 10, 0, 10));
        first->ZoomIn();
        HOEvent event;
        first->ScaleChangedSignal.fire(first, &event);
    }

    void replacedLayoutKeepsOldBindings() {
        HXMapCanvas canvas(HXMapCanvas::PageLayoutMode, nullptr);
        auto* widget = canvas.findChild<HXMapWidget*>();
        HORefPtr<HOPageLayoutView> first = canvas.GetPageLayoutView();
        HORefPtr<HORecordingPageLayoutView> second = new HORecordingPageLayoutView();
        canvas.SetPageLayoutView(second);
        QCOMPARE(canvas.GetPageLayoutView(), second.get());
        QCOMPARE(BoundOnView(second, &canvas, widget), QString("redraw||active"));
        QCOMPARE(BoundOnView(first, &canvas, widget), QString("redraw|scale|active"));
        // The canvas holds one reference on the layout it shows and none on the one it dropped.
        QVERIFY(second->RefCount() == 2 && first->RefCount() == 1);

        QSignalSpy active(&canvas, &HXMapCanvas::activeElementChanged);
        HOEvent event;
        second->ActiveElementChangedSignal.fire(second, &event);
        QCOMPARE(active.count(), 1);
        QVERIFY(active.at(0).at(0).value<void*>() == second.get() &&
                active.at(0).at(1).value<void*>() == &event);
    }
};

QTEST_MAIN(TestCanvasConstruction)
#include "tst_canvas_construction.moc"
