// What a new canvas is in each view mode: its status bar, its title, which view signals reach it, and
// which map view GetMapView() finds in a page layout.
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QStyleFactory>
#include <QToolButton>
#include <QTranslator>
#include <QtTest>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOMapViewManager.h"
#include "HOTextElementStub.h"
#include "HXCanvasProbe.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarCoordinatesWidget.h"
#include "HXStatusBarScaleWidget.h"

using namespace HXObjects;
using HXCanvasProbe::RenderToggle;

Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

namespace {

// Translates the view name, so a test can tell the translated name from the fixed window title.
class MapNameTranslator : public QTranslator {
public:
    QString translate(const char*, const char* sourceText, const char*, int) const override {
        return QString(sourceText) == "Map" ? "Karte" : QString();
    }
};

}  // namespace

class TestCanvasConstruction : public QObject {
    Q_OBJECT

private slots:
    void modes_data();
    void modes();
    void statusBarItemsLeftToRight();
    void statusBarSetters();
    void viewCallbacksByMode_data();
    void viewCallbacksByMode();
    void canvasIsItsOwnBuddy();
    void titleIsNotTranslated();
    void layoutMapView_data();
    void layoutMapView();
};

void TestCanvasConstruction::modes_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<bool>("isMapView");
    QTest::addColumn<bool>("hasLayout");
    QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode << false << true;
    QTest::newRow("map view") << HXMapCanvas::MapViewMode << true << false;
    QTest::newRow("reserved") << HXMapCanvas::ReservedMode << false << false;
}

void TestCanvasConstruction::modes() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(bool, isMapView);
    QFETCH(bool, hasLayout);
    HXMapCanvas canvas(mode, nullptr);
    QCOMPARE(canvas.getViewMode(), mode);
    QCOMPARE(canvas.IsMapView(), isMapView);
    QCOMPARE(canvas.GetPageLayoutView() != nullptr, hasLayout);
    QCOMPARE(canvas.windowTitle(), QString("Map"));
    QVERIFY(canvas.acceptDrops());
    QCOMPARE(canvas.focusPolicy(), Qt::WheelFocus);
    // Every mode gets a view group with one map view in it.
    QVERIFY(HOMapViewManager::GetInstance()->hasGroup(canvas.getMapViewGroupID()));
    QCOMPARE(HOMapViewManager::GetInstance()->views(canvas.getMapViewGroupID()).size(), std::size_t(1));
}

void TestCanvasConstruction::statusBarItemsLeftToRight() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    canvas.setWindowState(Qt::WindowNoState);
    canvas.resize(900, 400);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));

    auto* scale = canvas.StatusBar()->findChild<HXStatusBarScaleWidget*>("mScaleWidget");
    auto* coords = canvas.StatusBar()->findChild<HXStatusBarCoordinatesWidget*>("mCoordsEdit");
    QVERIFY(scale && coords);
    const QList<QWidget*> order{scale->mScaleLabel,
                                scale->mScaleEdit,
                                coords->mLineEdit,
                                coords->mLabelUnit,
                                coords->mToggleExtentsViewButton,
                                RenderToggle(canvas)};
    for (int i = 0; i < order.size(); ++i) {
        QVERIFY2(order[i] && order[i]->isVisible(), qPrintable(QString("item %1").arg(i)));
        QCOMPARE(order[i]->parentWidget(), static_cast<QWidget*>(canvas.StatusBar()));
        if (i > 0) QVERIFY2(order[i - 1]->x() < order[i]->x(), qPrintable(QString("item %1").arg(i)));
    }
    QCOMPARE(scale->mScaleLabel->maximumWidth(), 50);
    QCOMPARE(coords->mLineEdit->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    // The drawing widget sits on top of the status bar and together they fill the canvas.
    auto* widget = canvas.findChild<HXMapWidget*>();
    QCOMPARE(widget->geometry(), QRect(0, 0, 900, 400 - 25));
    QCOMPARE(canvas.StatusBar()->geometry(), QRect(0, 400 - 25, 900, 25));
}

void TestCanvasConstruction::statusBarSetters() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    QStatusBar* bar = canvas.StatusBar();
    canvas.SetScaleEnable(false);
    QVERIFY(!bar->findChild<HXScaleComboBox*>()->isEnabled());
    // The style goes to the status bar only (under its style sheet, wrapped by it).
    QStyle* const canvasStyle = canvas.style();
    QStyle* const barStyle = bar->style();
    QScopedPointer<QStyle> style(QStyleFactory::create("Fusion"));
    canvas.setStatusBarStyle(style.data());
    QVERIFY(bar->style() != barStyle);
    QCOMPARE(canvas.style(), canvasStyle);
    bar->setStyle(nullptr);
}

void TestCanvasConstruction::viewCallbacksByMode_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<bool>("drawsMap");
    QTest::addColumn<bool>("drawsLayout");
    QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode << false << true;
    QTest::newRow("map view") << HXMapCanvas::MapViewMode << true << false;
    QTest::newRow("reserved") << HXMapCanvas::ReservedMode << false << false;
}

void TestCanvasConstruction::viewCallbacksByMode() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(bool, drawsMap);
    QFETCH(bool, drawsLayout);
    HXMapCanvas canvas(mode, nullptr);
    auto* widget = canvas.findChild<HXMapWidget*>();
    HOMapView* map = HOMapViewManager::GetInstance()->views(canvas.getMapViewGroupID()).front();

    QCOMPARE(HOIsMemberBound(map->RedrawSignal, widget, &HXMapWidget::onViewRedraw), drawsMap);
    QCOMPARE(HOIsMemberBound(map->ScaleChangedSignal, &canvas, &HXMapCanvas::scaleChangedCallback), drawsMap);
    // The extent callback is bound in every mode.
    QVERIFY(HOIsMemberBound(map->BoundChangedSignal, &canvas, &HXMapCanvas::viewBoundChangedCallback));
    QVERIFY(HOIsMemberBound(canvas.Request3DRefreshSignal, &canvas, &HXMapCanvas::onRequest3DRefresh));
    if (HOPageLayoutView* layout = canvas.GetPageLayoutView()) {
        QCOMPARE(HOIsMemberBound(layout->RedrawSignal, widget, &HXMapWidget::onViewRedraw), drawsLayout);
        QCOMPARE(HOIsMemberBound(layout->ScaleChangedSignal, &canvas, &HXMapCanvas::scaleChangedCallback),
                 drawsLayout);
        QVERIFY(HOIsMemberBound(layout->ActiveElementChangedSignal, &canvas,
                                &HXMapCanvas::pagelyoutViewChangeActiveCallback));
    }

    QSignalSpy extents(&canvas, &HXMapCanvas::extentsChanged);
    HOEvent event;
    map->BoundChangedSignal.fire(map, &event);
    QCOMPARE(extents.count(), 1);
}

void TestCanvasConstruction::canvasIsItsOwnBuddy() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    HOMapView* map = canvas.GetMapView();
    QVERIFY(map);
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

void TestCanvasConstruction::titleIsNotTranslated() {
    MapNameTranslator translator;
    QCoreApplication::installTranslator(&translator);
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(canvas.windowTitle(), QString("Map"));
    QCOMPARE(canvas.GetMapView()->GetName(), HOString("Karte"));
}

void TestCanvasConstruction::layoutMapView_data() {
    QTest::addColumn<QString>("operating");
    QTest::addColumn<bool>("found");
    QTest::newRow("data frame") << "frame" << true;
    QTest::newRow("no operating element") << "none" << false;
    QTest::newRow("text element") << "text" << false;
}

void TestCanvasConstruction::layoutMapView() {
    QFETCH(QString, operating);
    QFETCH(bool, found);
    HXMapCanvas canvas(HXMapCanvas::PageLayoutMode, nullptr);
    HORefPtr<HOMapView> view = new HOMapView("framed");
    HORefPtr<HOPageLayoutBaseElement> element;
    if (operating == "frame") {
        HORefPtr<HODataFrame> frame = new HODataFrame();
        frame->set_map_view(view);
        element = frame.get();
    } else if (operating == "text") {
        element = new HOTextElementStub();
    }
    canvas.GetPageLayoutView()->set_operating_data_frame(element);
    QCOMPARE(canvas.GetMapView(), found ? view.get() : nullptr);
    // The canvas borrows the frame: it keeps no reference of its own.
    const int refs = element ? element->RefCount() : 0;
    canvas.GetMapView();
    QCOMPARE(element ? element->RefCount() : 0, refs);
}

QTEST_MAIN(TestCanvasConstruction)
#include "tst_canvas_construction.moc"
