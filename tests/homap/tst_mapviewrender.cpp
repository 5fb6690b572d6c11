// Rendering of a map view: layers drawn on the worker in map order, the moved and scaled preview while
// a new picture renders, cancelling (StopRender, a new extent, the track-cancel object), pausing,
// one-layer refreshes, the debounced resize, throttled redraws from the worker, unbinding while the
// worker fires, and what Draw adds on top (graphics layer, tool drawing, flashing geometry).
#include <QElapsedTimer>
#include <QPainter>
#include <QtTest>
#include <thread>

#include "HOGraphics.h"
#include "HOGraphicsLayer.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HOSignalCounter.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"
#include "HOTool.h"

using namespace HXObjects;

namespace {

constexpr int kRenderTimeout = 5000;
const QRgb kWhite = qRgb(255, 255, 255);
const QRgb kRed = qRgb(255, 0, 0);
const QRgb kBlue = qRgb(0, 0, 255);

QImage drawn(HOMapView* view, int width = 100, int height = 100) {
    HORefPtr<HOGraphics> surface(new HOGraphics);
    surface->SetSize(width, height);
    surface->Clear(HOColor(255, 255, 255));
    view->Draw(surface);
    return surface->Image().copy();
}

// A tool whose temporary drawing is a 3x3 magenta square at a map point.
class MarkTool : public HOTool {
public:
    HOString GetClassName() override { return "MarkTool"; }
    void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) override {
        const HOPoint p = transform.ToDevice(mark);
        painter.fillRect(QRectF(p.x - 1.5, p.y - 1.5, 3, 3), Qt::magenta);
    }
    HOPoint mark;
};

}  // namespace

class tst_MapViewRender : public QObject {
    Q_OBJECT

private:
    // A 100x100 view of (0, 100, 0, 100): one pixel per map unit, y flipped.
    static HORefPtr<HOMapView> viewOf(HOMap* map) {
        HORefPtr<HOMapView> view(new HOMapView("render"));
        view->SetSize(100, 100);
        view->SetMap(map);
        view->SetExtent(HORect(0, 100, 0, 100));
        return view;
    }
    // A map of one rectangle layer (taking `renderMs` per render) in such a view.
    struct Scene {
        Scene(const HORect& rect, const QColor& color, int renderMs = 0)
            : map(new HOMap), layer(new HOTestRectLayer(rect, color)) {
            layer->renderMs = renderMs;
            map->AddLayer(layer);
            view = viewOf(map);
        }
        HORefPtr<HOMap> map;
        HORefPtr<HOTestRectLayer> layer;
        HORefPtr<HOMapView> view;
    };

private slots:
    void rendersLayersInMapOrder();
    void firstLayerOfAnEmptyMapIsFittedAndRendered();
    void previewWhileRendering_data();
    void previewWhileRendering();
    void stopRenderCancelsQuicklyAndANewRenderCompletes();
    void newExtentCancelsTheRunningRender();
    void trackCancelStopsTheRender();
    void pauseHoldsRendering();
    void refreshRendersOnlyThatLayer();
    void resizeDragRendersOnce();
    void redrawsAreThrottledAndFromTheWorker();
    void unbindWhileTheWorkerFires();
    void destroyWhileRendering();
    void drawAddsGraphicsAndToolDrawing();
    void flashingDoesNotBlock();
    void gridShowsAfterARedrawRequest();
    void middleButtonDragPans();
    void composeAt1080p();
};

void tst_MapViewRender::rendersLayersInMapOrder() {
    HORefPtr<HOMap> map(new HOMap);
    HORefPtr<HOTestRectLayer> red(new HOTestRectLayer(HORect(0, 50, 0, 100), Qt::red));
    HORefPtr<HOTestRectLayer> blue(new HOTestRectLayer(HORect(25, 100, 0, 100), Qt::blue));
    map->AddLayer(red);
    map->AddLayer(blue);
    const auto view = viewOf(map);
    HOSignalCounter finished(view->RenderFinishedSignal);
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering() && finished.count > 0, kRenderTimeout);
    QImage image = drawn(view);
    QCOMPARE(image.pixel(10, 50), kRed);
    QCOMPARE(image.pixel(40, 50), kBlue);  // drawn later, on top
    QCOMPARE(image.pixel(90, 50), kBlue);

    finished.reset();
    map->MoveLayer(blue, 0);
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering() && finished.count > 0, kRenderTimeout);
    image = drawn(view);
    QCOMPARE(image.pixel(40, 50), kRed);
    QCOMPARE(red->renders.load(), 1);  // a new order needs no new pictures
    QCOMPARE(finished.nullEvents.load(), 0);
}

void tst_MapViewRender::firstLayerOfAnEmptyMapIsFittedAndRendered() {
    HORefPtr<HOMap> map(new HOMap);
    HORefPtr<HOMapView> view(new HOMapView);
    view->SetMap(map);
    view->SetSize(100, 100);
    QVERIFY(view->GetExtent().IsEmpty());
    QVERIFY(!view->IsRendering());
    QCOMPARE(drawn(view).pixel(50, 50), kWhite);

    map->AddLayer(new HOTestRectLayer(HORect(1000, 1200, 500, 600), Qt::red));
    QCOMPARE(view->GetExtent(), HORect(1000, 1200, 450, 650));
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QCOMPARE(drawn(view).pixel(50, 50), kRed);
    QCOMPARE(drawn(view).pixel(50, 10), kWhite);
}

void tst_MapViewRender::previewWhileRendering_data() {
    QTest::addColumn<QString>("move");
    QTest::addColumn<QPoint>("redPixel");
    QTest::addColumn<QPoint>("whitePixel");
    // The red square covers pixels 25..75. Zoomed in twice about the centre it fills the view.
    QTest::newRow("zoom in") << "zoom in" << QPoint(1, 1) << QPoint(-1, -1);
    // Zoomed out it shrinks to 37.5..62.5.
    QTest::newRow("zoom out") << "zoom out" << QPoint(40, 40) << QPoint(35, 35);
    // Panned 30 pixels right it moves to 55..105.
    QTest::newRow("pan in progress") << "pan" << QPoint(60, 50) << QPoint(50, 50);
    QTest::newRow("pan ended") << "end pan" << QPoint(60, 50) << QPoint(50, 50);
}

void tst_MapViewRender::previewWhileRendering() {
    QFETCH(QString, move);
    QFETCH(QPoint, redPixel);
    QFETCH(QPoint, whitePixel);
    const Scene scene(HORect(25, 75, 25, 75), Qt::red);
    const auto& [map, layer, view] = scene;
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);

    layer->renderMs = 10000;  // the new picture will not be ready while we look
    if (move == "zoom in") view->ZoomIn();
    if (move == "zoom out") view->ZoomOut();
    if (move.contains("pan")) {
        view->BeginPan();
        view->PanTo(30, 0);
    }
    if (move == "end pan") view->EndPan(30, 0);
    const QImage image = drawn(view);
    QCOMPARE(image.pixel(redPixel), kRed);
    if (image.valid(whitePixel)) QCOMPARE(image.pixel(whitePixel), kWhite);
    view->StopRender(true);
}

void tst_MapViewRender::stopRenderCancelsQuicklyAndANewRenderCompletes() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red, 10000);
    const auto& [map, layer, view] = scene;
    HOSignalCounter finished(view->RenderFinishedSignal);
    QTRY_VERIFY_WITH_TIMEOUT(layer->renders > 0, kRenderTimeout);
    QVERIFY(view->IsRendering());

    QElapsedTimer timer;
    timer.start();
    view->StopRender(true);
    const double latencyMs = timer.nsecsElapsed() / 1e6;
    qInfo("StopRender(true) returned %.2f ms after a render was cancelled mid-way", latencyMs);
    QVERIFY2(latencyMs < 200, qPrintable(QString::number(latencyMs)));
    QVERIFY(!view->IsRendering());
    QCOMPARE(layer->cancelled.load(), 1);
    QCOMPARE(finished.count.load(), 0);

    layer->renderMs = 0;
    view->RefreshMap(false, HORect());
    QTRY_COMPARE_WITH_TIMEOUT(finished.count.load(), 1, kRenderTimeout);
    QCOMPARE(drawn(view).pixel(50, 50), kRed);
}

void tst_MapViewRender::newExtentCancelsTheRunningRender() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red, 10000);
    const auto& [map, layer, view] = scene;
    HOSignalCounter finished(view->RenderFinishedSignal);
    QTRY_VERIFY_WITH_TIMEOUT(layer->renders > 0, kRenderTimeout);
    const int started = layer->renders;

    layer->renderMs = 0;
    QElapsedTimer timer;
    timer.start();
    view->SetExtent(HORect(50, 150, 0, 100));
    QTRY_COMPARE_WITH_TIMEOUT(finished.count.load(), 1, kRenderTimeout);
    QVERIFY(timer.elapsed() < 2000);
    QCOMPARE(layer->cancelled.load(), 1);
    QCOMPARE(layer->renders.load(), started + 1);
    const QImage image = drawn(view);
    QCOMPARE(image.pixel(25, 50), kRed);
    QCOMPARE(image.pixel(75, 50), kWhite);  // beyond x = 100
}

void tst_MapViewRender::trackCancelStopsTheRender() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red, 10000);
    const auto& [map, layer, view] = scene;
    HOSignalCounter finished(view->RenderFinishedSignal);
    QTRY_VERIFY_WITH_TIMEOUT(layer->renders > 0, kRenderTimeout);
    view->GetTrackCancel()->Cancel();
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), 1000);
    QCOMPARE(layer->cancelled.load(), 1);
    QCOMPARE(finished.count.load(), 0);
}

void tst_MapViewRender::pauseHoldsRendering() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red);
    const auto& [map, layer, view] = scene;
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    const int before = layer->renders;

    view->PauseRender();
    view->RefreshMap(false, HORect());
    QTest::qWait(300);
    QCOMPARE(layer->renders.load(), before);
    QVERIFY(view->IsRendering());  // waiting to render

    view->ResumeRender();
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QCOMPARE(layer->renders.load(), before + 1);
}

void tst_MapViewRender::refreshRendersOnlyThatLayer() {
    HORefPtr<HOMap> map(new HOMap);
    HORefPtr<HOTestRectLayer> a(new HOTestRectLayer(HORect(0, 50, 0, 100), Qt::red));
    HORefPtr<HOTestRectLayer> b(new HOTestRectLayer(HORect(50, 100, 0, 100), Qt::blue));
    map->AddLayer(a);
    map->AddLayer(b);
    const auto view = viewOf(map);
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QCOMPARE(a->renders.load(), 1);
    QCOMPARE(b->renders.load(), 1);

    view->Refresh(a, HOMapCache::CacheLayer, HORect());
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QCOMPARE(a->renders.load(), 2);
    QCOMPARE(b->renders.load(), 1);
    const QImage image = drawn(view);
    QCOMPARE(image.pixel(25, 50), kRed);
    QCOMPARE(image.pixel(75, 50), kBlue);

    view->RefreshMap(false, HORect());
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QCOMPARE(a->renders.load(), 3);
    QCOMPARE(b->renders.load(), 2);
}

void tst_MapViewRender::resizeDragRendersOnce() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red);
    const auto& [map, layer, view] = scene;
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    const int before = layer->renders;
    for (int i = 1; i <= 20; ++i) {
        view->SetSize(100 + i, 100 + i);
        view->ResizeRefresh(300);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QCOMPARE(layer->renders.load(), before + 1);
    // The same scale about the same centre: (-10, 110) across now.
    const QImage image = drawn(view, 120, 120);
    QCOMPARE(image.pixel(105, 105), kRed);
    QCOMPARE(image.pixel(5, 5), kWhite);
}

void tst_MapViewRender::redrawsAreThrottledAndFromTheWorker() {
    HORefPtr<HOMap> map(new HOMap);
    std::vector<HORefPtr<HOTestRectLayer>> layers;
    for (int i = 0; i < 8; ++i) {
        layers.emplace_back(new HOTestRectLayer(HORect(i * 10, i * 10 + 10, 0, 100), Qt::red));
        map->AddLayer(layers.back());
    }
    const auto view = viewOf(map);
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    for (auto& layer : layers) layer->renderMs = 40;

    HOSignalCounter redraws(view->RedrawSignal);
    HOSignalCounter finished(view->RenderFinishedSignal);
    QElapsedTimer timer;
    timer.start();
    view->RefreshMap(false, HORect());
    QTRY_COMPARE_WITH_TIMEOUT(finished.count.load(), 1, kRenderTimeout);
    const qint64 elapsed = timer.elapsed();
    // Progress at most every 100 ms, plus the final picture.
    QVERIFY2(redraws.count >= 2, qPrintable(QString::number(redraws.count)));
    QVERIFY2(redraws.count <= elapsed / 100 + 1,
             qPrintable(QStringLiteral("%1 in %2 ms").arg(redraws.count).arg(elapsed)));
    QVERIFY(redraws.offThread);
    QCOMPARE(redraws.nullEvents.load(), 0);
    QCOMPARE(redraws.lastSender.load(), static_cast<void*>(view.get()));
}

void tst_MapViewRender::unbindWhileTheWorkerFires() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red);
    const auto& view = scene.view;
    // Each receiver is destroyed right after unbinding: a callback still running (or starting) on the
    // worker after unbind returned would touch freed memory.
    struct Receiver {
        std::atomic<int> calls{0};
    };
    int total = 0;
    for (int i = 0; i < 100; ++i) {
        auto* receiver = new Receiver;
        view->RedrawSignal.bind("receiver", [receiver](void*, HOEvent*) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
            ++receiver->calls;
        });
        view->RefreshMap(false, HORect());
        std::this_thread::sleep_for(std::chrono::microseconds(100 * (i % 7)));
        view->RedrawSignal.unbind("receiver");
        total += receiver->calls;
        delete receiver;
    }
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    QVERIFY(total > 0);  // the worker did fire while we bound and unbound
}

void tst_MapViewRender::destroyWhileRendering() {
    Scene scene(HORect(0, 100, 0, 100), Qt::red, 10000);
    auto& [map, layer, view] = scene;
    QTRY_VERIFY_WITH_TIMEOUT(layer->renders > 0, kRenderTimeout);
    QElapsedTimer timer;
    timer.start();
    view = nullptr;
    QVERIFY(timer.elapsed() < 500);
    QCOMPARE(layer->cancelled.load(), 1);
    QCOMPARE(map->LayersChangedSignal.count(), 0);  // the view let go of the map
}

void tst_MapViewRender::drawAddsGraphicsAndToolDrawing() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::red);
    const auto& [map, layer, view] = scene;
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);

    HORefPtr<HOGeometry> square(new HOGeometry(HOGeometry::GeoPolygon));
    square->AddPart({{40, 40}, {60, 40}, {60, 60}, {40, 60}});
    map->GetGraphicsLayer()->AddElement(square, HOStyle::NewFill(HOColor(0, 255, 0), HOColor(0, 255, 0), 0));
    HORefPtr<MarkTool> tool(new MarkTool);
    tool->mark = HOPoint(10, 90);
    view->SetCurrentTool(tool);
    QCOMPARE(tool->GetView(), static_cast<HOView*>(view.get()));

    const QImage image = drawn(view);
    QCOMPARE(image.pixel(50, 50), qRgb(0, 255, 0));
    QCOMPARE(image.pixel(10, 10), qRgb(255, 0, 255));
    QCOMPARE(image.pixel(30, 30), kRed);
    QCOMPARE(layer->renders.load(), 1);  // drawn on top, nothing rendered again

    view->SetCurrentTool(nullptr);
    QCOMPARE(tool->GetView(), static_cast<HOView*>(nullptr));
    QCOMPARE(drawn(view).pixel(10, 10), kRed);
}

void tst_MapViewRender::flashingDoesNotBlock() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::blue);
    const auto& view = scene.view;
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    HORefPtr<HOGeometry> line(new HOGeometry(HOGeometry::GeoLineString));
    line->AddPart({{0, 50}, {100, 50}});
    HOSignalCounter redraws(view->RedrawSignal);

    QElapsedTimer timer;
    timer.start();
    view->TwinkleGeometry(line, nullptr, 2);
    QVERIFY(timer.elapsed() < 100);
    const bool shownAtOnce = drawn(view).pixel(50, 50) == kRed;
    // Shown 0-200 ms, hidden 200-400, shown 400-600, hidden after 800: a redraw at every change.
    QTRY_VERIFY_WITH_TIMEOUT(redraws.count >= 5, 3000);
    QVERIFY(shownAtOnce || timer.elapsed() > 200);  // a slow machine may have missed the first phase
    QTRY_VERIFY_WITH_TIMEOUT(timer.elapsed() > 850, 3000);
    QCOMPARE(drawn(view).pixel(50, 50), kBlue);
}

void tst_MapViewRender::gridShowsAfterARedrawRequest() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::blue);
    const auto& view = scene.view;
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    HOMapRulerAndGrid* grid = view->GetRulerAndGridSetting();
    QVERIFY(grid);
    grid->set_draw_km_grid(true);
    grid->set_manually_set_km_grid_distanse(true);
    grid->set_km_grid_x_distance(25);
    grid->set_km_grid_y_distance(25);
    grid->set_km_grid_line_width(1);
    grid->set_km_grid_color(HOColor(255, 255, 0));
    QCOMPARE(drawn(view).pixel(25, 10), kBlue);  // not before the request

    HOSignalCounter redraws(view->RedrawSignal);
    view->RequestRedraw(false);
    QCOMPARE(redraws.count.load(), 1);
    // Lines at x = 25, 50, 75 and y = 25, 50, 75; a 1-pixel line at x = 25 lies on the pixel edge.
    const QImage image = drawn(view);
    QVERIFY(qRed(image.pixel(25, 10)) > 100 && qGreen(image.pixel(25, 10)) > 100);
    QVERIFY(qRed(image.pixel(10, 50)) > 100);
    QCOMPARE(image.pixel(10, 10), kBlue);
}

void tst_MapViewRender::middleButtonDragPans() {
    const Scene scene(HORect(0, 100, 0, 100), Qt::blue);
    const auto& view = scene.view;
    view->MouseUp(3, 40, 40);  // pressed elsewhere: nothing to finish
    QCOMPARE(view->GetExtent(), HORect(0, 100, 0, 100));
    view->MouseDown(3, 10, 10);
    view->MouseMove(3, 30, 5);
    QCOMPARE(view->GetExtent(), HORect(0, 100, 0, 100));  // the picture follows, the view stays
    view->MouseUp(3, 30, 5);
    QCOMPARE(view->GetExtent(), HORect(-20, 80, -5, 95));
}

void tst_MapViewRender::composeAt1080p() {
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(new HOTestRectLayer(HORect(0, 960, 0, 1080), Qt::red));
    map->AddLayer(new HOTestRectLayer(HORect(960, 1920, 0, 1080), Qt::blue));
    map->AddLayer(new HOTestRectLayer(HORect(900, 1020, 500, 580), Qt::green));
    HORefPtr<HOMapView> view(new HOMapView);
    view->SetSize(1920, 1080);
    view->SetMap(map);
    QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering(), kRenderTimeout);
    HORefPtr<HOGraphics> surface(new HOGraphics);
    surface->SetSize(1920, 1080);

    const auto average = [&](int runs) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < runs; ++i) view->Draw(surface);
        return timer.nsecsElapsed() / 1e6 / runs;
    };
    average(3);  // warm up
    const double exact = average(30);
    QCOMPARE(surface->Image().pixel(10, 10), kRed);
    QCOMPARE(surface->Image().pixel(960, 540), qRgb(0, 255, 0));

    view->PauseRender();
    view->ZoomByFactor(0.8, nullptr);
    const double preview = average(30);
    QCOMPARE(surface->Image().pixel(10, 10), kRed);
    QCOMPARE(surface->Image().pixel(1910, 1070), kBlue);
    qInfo("Draw at 1920x1080: %.2f ms composed, %.2f ms with the scaled preview", exact, preview);
    view->ResumeRender();
    view->StopRender(true);
}

QTEST_MAIN(tst_MapViewRender)
#include "tst_mapviewrender.moc"
