// Rendering of a map view: layers in map order, drawn at once, the moved and scaled preview, every way
// a render is cancelled, pausing, one-layer and area refreshes, the debounced resize, throttled and
// progressive redraws, unbinding while the worker fires, and what Draw adds on top.
#include <QElapsedTimer>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>
#include <optional>
#include <thread>

#include "HOFeatureLayer.h"
#include "HOGraphics.h"
#include "HOGraphicsLayer.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HOMapViewManager.h"
#include "HOSignalCounter.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"
#include "HOTool.h"

using namespace HXObjects;

namespace {

constexpr int kTimeout = 5000;
const QRgb kWhite = qRgb(255, 255, 255), kRed = qRgb(255, 0, 0), kBlue = qRgb(0, 0, 255);

QImage drawn(HOMapView* view, int width = 100, int height = 100) {
    HORefPtr<HOGraphics> surface(new HOGraphics);
    surface->SetSize(width, height);
    surface->Clear(HOColor(255, 255, 255));
    view->Draw(surface);
    return surface->Image().copy();
}

// A 100x100 view of (0, 100, 0, 100), one pixel per unit, over a map of rectangle layers.
struct Scene {
    explicit Scene(std::vector<std::pair<HORect, QColor>> rects, int renderMs = 0,
                   HORefPtr<HOMapView> v = new HOMapView("render"))
        : map(new HOMap), view(std::move(v)) {
        // Placed before the layers come, so that only the extent asked for is ever rendered (the
        // full extent would be shown with a margin).
        view->SetSize(100, 100);
        view->SetMap(map);
        view->SetExtent(HORect(0, 100, 0, 100));
        // Every layer comes in one render: none is drawn, cancelled and drawn again on the way.
        view->PauseRender();
        for (const auto& [rect, color] : rects) {
            layers.emplace_back(new HOTestRectLayer(rect, color));
            layers.back()->renderMs = renderMs;
            map->AddLayer(layers.back());
        }
        view->ResumeRender();
    }
    bool idle() const { return !view->IsRendering(); }
    HORefPtr<HOMap> map;
    HORefPtr<HOMapView> view;
    std::vector<HORefPtr<HOTestRectLayer>> layers;
};
const std::vector<std::pair<HORect, QColor>> kFullRed{{HORect(0, 100, 0, 100), Qt::red}};

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

// A layer that, when it draws, waits (up to five seconds) for every other layer sharing its meeting
// point to be drawing too: all meet only when they draw at once.
class MeetingLayer : public HOTestRectLayer {
public:
    MeetingLayer(const HORect& rect, std::atomic<int>& arrived, int expected)
        : HOTestRectLayer(rect, Qt::red), m_arrived(arrived), m_expected(expected) {}
    void Render(const HORenderContext& context) override {
        ++m_arrived;
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (m_arrived.load() < m_expected && std::chrono::steady_clock::now() < deadline &&
               !context.IsCancelled())
            std::this_thread::yield();
        met = m_arrived.load() >= m_expected;
        HOTestRectLayer::Render(context);
    }
    std::atomic<bool> met{false};

private:
    std::atomic<int>& m_arrived;
    const int m_expected;
};

}  // namespace

class tst_MapViewRender : public QObject {
    Q_OBJECT

private slots:
    void rendersLayersInMapOrder() {
        Scene s({{HORect(0, 50, 0, 100), Qt::red}, {HORect(25, 100, 0, 100), Qt::blue}});
        HOSignalCounter finished(s.view->RenderFinishedSignal);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle() && finished.count > 0, kTimeout);
        QImage image = drawn(s.view);
        QVERIFY(image.pixel(10, 50) == kRed && image.pixel(40, 50) == kBlue);  // blue drawn later, on top

        finished.reset();
        s.map->MoveLayer(s.layers[1], 0);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle() && finished.count > 0, kTimeout);
        QCOMPARE(drawn(s.view).pixel(40, 50), kRed);
        QVERIFY(s.layers[0]->renders == 1 && finished.nullEvents == 0);  // a new order needs no new pictures
    }

    void independentLayersDrawAtOnce() {
        std::atomic<int> arrived{0};
        HORefPtr<MeetingLayer> a(new MeetingLayer(HORect(0, 50, 0, 100), arrived, 2));
        HORefPtr<MeetingLayer> b(new MeetingLayer(HORect(50, 100, 0, 100), arrived, 2));
        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(a);
        map->AddLayer(b);
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetSize(100, 100);
        view->SetMap(map);  // one render of both
        QTRY_VERIFY_WITH_TIMEOUT(!view->IsRendering() && a->completed > 0 && b->completed > 0, 3 * kTimeout);
        QVERIFY(a->met && b->met);
        QCOMPARE(drawn(view).pixel(50, 50), kRed);
    }

    void previewWhileRendering_data() {
        HOAddColumns<QString, QPoint, QPoint>({"move", "redPixel", "whitePixel"});
        // The red square covers pixels 25..75. Zoomed in twice about the centre it fills the view.
        QTest::newRow("zoom in") << "zoom in" << QPoint(1, 1) << QPoint(-1, -1);
        QTest::newRow("zoom out") << "zoom out" << QPoint(40, 40) << QPoint(35, 35);    // 37.5..62.5
        QTest::newRow("pan in progress") << "pan" << QPoint(60, 50) << QPoint(50, 50);  // 55..105
        QTest::newRow("pan ended") << "end pan" << QPoint(60, 50) << QPoint(50, 50);
    }

    void previewWhileRendering() {
        QFETCH(QString, move);
        QFETCH(QPoint, redPixel);
        QFETCH(QPoint, whitePixel);
        Scene s({{HORect(25, 75, 25, 75), Qt::red}});
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        s.layers[0]->renderMs = 10000;  // the new picture will not be ready while we look
        if (move == "zoom in") s.view->ZoomIn();
        if (move == "zoom out") s.view->ZoomOut();
        if (move.contains("pan")) {
            s.view->BeginPan();
            s.view->PanTo(30, 0);
        }
        if (move == "end pan") s.view->EndPan(30, 0);
        const QImage image = drawn(s.view);
        QCOMPARE(image.pixel(redPixel), kRed);
        if (image.valid(whitePixel)) QCOMPARE(image.pixel(whitePixel), kWhite);
        s.view->StopRender(true);
    }

    void cancelStopsQuicklyAndANewRenderCompletes_data() {
        HOAddColumns<QString, int>({"how", "limitMs"});
        QTest::newRow("StopRender") << "stop" << 200;
        QTest::newRow("a new extent") << "extent" << 2000;
        QTest::newRow("the track-cancel object") << "track" << 1000;
        QTest::newRow("the view destroyed") << "destroy" << 500;
        QTest::newRow("its manager group removed") << "group" << 1000;
    }

    void cancelStopsQuicklyAndANewRenderCompletes() {
        QFETCH(QString, how);
        QFETCH(int, limitMs);
        HOMapViewManager* manager = HOMapViewManager::GetInstance();
        const int group = how == "group" ? manager->addGroup() : 0;
        Scene s(kFullRed, 10000, how == "group" ? manager->addView("slow") : new HOMapView);
        const auto& layer = s.layers[0];
        std::optional<HOSignalCounter> counter;
        HOSignalCounter& finished = counter.emplace(s.view->RenderFinishedSignal);
        QTRY_VERIFY_WITH_TIMEOUT(layer->renders > 0 && s.view->IsRendering(), kTimeout);
        const int started = layer->renders;

        QElapsedTimer timer;
        timer.start();
        if (how == "stop") s.view->StopRender(true);
        if (how == "extent") {
            layer->renderMs = 0;
            s.view->SetExtent(HORect(50, 150, 0, 100));
        }
        if (how == "track") s.view->GetTrackCancel()->Cancel();
        if (how == "group") manager->removeGroup(group);
        if (how == "destroy") {
            counter.reset();
            s.view = nullptr;
            QVERIFY(timer.elapsed() < limitMs);
            QCOMPARE(layer->cancelled.load(), 1);
            QCOMPARE(s.map->LayersChangedSignal.count(), 0);  // the view let go of the map
            return;
        }
        QTRY_VERIFY_WITH_TIMEOUT(how == "extent" ? finished.count > 0 : s.idle(), limitMs);
        // The view may call itself idle a moment before the layer's own loop has counted the cancel;
        // wait for the worker without running the event loop, which could start the next render.
        QElapsedTimer counted;
        counted.start();
        while (layer->cancelled.load() != 1 && counted.elapsed() < limitMs) std::this_thread::yield();
        QCOMPARE(layer->cancelled.load(), 1);
        QVERIFY2(timer.elapsed() < limitMs, qPrintable(QString::number(timer.elapsed())));
        if (how == "group") {
            QCOMPARE(s.view->RefCount(), 1);  // only ours is left
            return;
        }
        layer->renderMs = 0;
        if (how != "extent") {
            QCOMPARE(finished.count.load(), 0);
            s.view->RefreshMap(false, HORect());
        }
        QTRY_COMPARE_WITH_TIMEOUT(finished.count.load(), 1, kTimeout);
        QCOMPARE(layer->renders.load(), started + 1);
        const QImage image = drawn(s.view);  // after the move x = 75 lies beyond the red square
        QVERIFY(image.pixel(25, 50) == kRed && image.pixel(75, 50) == (how == "extent" ? kWhite : kRed));
    }

    void pauseHoldsRendering() {
        Scene s(kFullRed);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        const int before = s.layers[0]->renders;
        s.view->PauseRender();
        s.view->RefreshMap(false, HORect());
        QTest::qWait(300);
        QCOMPARE(s.layers[0]->renders.load(), before);
        QVERIFY(s.view->IsRendering());  // waiting to render
        s.view->ResumeRender();
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        QCOMPARE(s.layers[0]->renders.load(), before + 1);
    }

    void refreshRendersOnlyThatLayer() {
        Scene s({{HORect(0, 50, 0, 100), Qt::red}, {HORect(50, 100, 0, 100), Qt::blue}});
        const auto &a = s.layers[0], &b = s.layers[1];
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        s.view->Refresh(a, HOMapCache::CacheLayer, HORect());
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        QVERIFY(a->renders == 2 && b->renders == 1);
        QVERIFY(drawn(s.view).pixel(25, 50) == kRed && drawn(s.view).pixel(75, 50) == kBlue);
        s.view->RefreshMap(false, HORect());
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        QCOMPARE(a->renders + b->renders, 5);
    }

    void areaRefreshDrawsAsAFullRender_data() {
        HOAddColumns<QRect, bool>({"pixels", "wholeMap"});
        QTest::newRow("one layer, inside") << QRect(30, 55, 30, 25) << false;
        QTest::newRow("one layer, at a corner") << QRect(82, 0, 18, 20) << false;
        QTest::newRow("one layer, a column") << QRect(50, 0, 1, 100) << false;
        QTest::newRow("the map, across") << QRect(10, 40, 80, 7) << true;
    }

    // Thick lines and large markers cross the area's border: they must be drawn within it as a full
    // render draws them, and nothing outside may change.
    void areaRefreshDrawsAsAFullRender() {
        QFETCH(QRect, pixels);
        QFETCH(bool, wholeMap);
        QTemporaryDir dir;
        std::vector<HOLayerFixture::Feature> lines, points;
        for (int i = 0; i < 12; ++i) {
            lines.push_back({QStringLiteral("LINESTRING (%1 -5, %2 105, %3 50)")
                                 .arg(i * 9)
                                 .arg(100 - i * 7)
                                 .arg(i * 4)
                                 .toStdString()});
            points.push_back({QStringLiteral("POINT (%1 %2)").arg(i * 8.3).arg(90 - i * 6.9).toStdString()});
        }
        const auto lineLayer = HOLayerFixture::OpenVector(dir.filePath("l.geojson"), 0, wkbLineString, lines);
        const auto pointLayer = HOLayerFixture::OpenVector(dir.filePath("p.geojson"), 0, wkbPoint, points);
        QVERIFY(lineLayer && pointLayer);
        const auto styleBoth = [&](const HOColor& color, double size) {
            lineLayer->SetStyle(HOStyle::NewLine(size, color));
            pointLayer->SetStyle(HOStyle::NewMarker(HOStyle::Circle, size * 4, color));
        };
        styleBoth(HOColor(0, 0, 255), 2);
        Scene s({});
        HOSignalCounter finished(s.view->RenderFinishedSignal);
        s.map->AddLayer(lineLayer);
        s.map->AddLayer(pointLayer);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle() && finished.count > 0, kTimeout);
        const QImage before = drawn(s.view);

        if (wholeMap)
            styleBoth(HOColor(200, 0, 0), 5);
        else
            lineLayer->SetStyle(HOStyle::NewLine(5, HOColor(200, 0, 0)));
        const HORect area(pixels.left(), pixels.right() + 1, 99 - pixels.bottom(), 100 - pixels.top());
        finished.reset();
        if (wholeMap)
            s.view->RefreshMap(true, area);
        else
            s.view->Refresh(lineLayer, HOMapCache::CacheLayer, area);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle() && finished.count > 0, kTimeout);
        const QImage partial = drawn(s.view);
        finished.reset();
        s.view->RefreshMap(true, HORect());
        QTRY_VERIFY_WITH_TIMEOUT(s.idle() && finished.count > 0, kTimeout);
        const QImage full = drawn(s.view);
        QVERIFY(partial != before);
        int differing = 0;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                const QRgb want = (pixels.contains(x, y) ? full : before).pixel(x, y),
                           got = partial.pixel(x, y);
                // Antialiased edges may round one step apart.
                differing += std::abs(qRed(want) - qRed(got)) > 2 ||
                             std::abs(qGreen(want) - qGreen(got)) > 2 ||
                             std::abs(qBlue(want) - qBlue(got)) > 2;
            }
        QCOMPARE(differing, 0);
    }

    void redrawsWhileOneLongLayerDraws() {
        Scene s(kFullRed);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        s.layers[0]->renderMs = 60000;
        HOSignalCounter redraws(s.view->RedrawSignal);
        s.view->RefreshMap(false, HORect());
        QTRY_VERIFY_WITH_TIMEOUT(redraws.count >= 3, kTimeout);
        QCOMPARE(s.layers[0]->completed.load(), 1);  // all of them from inside the one render
        s.view->StopRender(true);
    }

    void resizeDragRendersOnce() {
        Scene s(kFullRed);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        for (int i = 1; i <= 20; ++i) {
            s.view->SetSize(100 + i, 100 + i);
            s.view->ResizeRefresh(300);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        QCOMPARE(s.layers[0]->renders.load(), 2);
        // The same scale about the same centre: (-10, 110) across now.
        QVERIFY(drawn(s.view, 120, 120).pixel(105, 105) == kRed &&
                drawn(s.view, 120, 120).pixel(5, 5) == kWhite);
    }

    void redrawsAreThrottledAndFromTheWorker() {
        std::vector<std::pair<HORect, QColor>> strips;
        for (int i = 0; i < 8; ++i) strips.push_back({HORect(i * 10, i * 10 + 10, 0, 100), Qt::red});
        Scene s(strips);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        for (auto& layer : s.layers) layer->renderMs = 40;
        HOSignalCounter redraws(s.view->RedrawSignal);
        HOSignalCounter finished(s.view->RenderFinishedSignal);
        QElapsedTimer timer;
        timer.start();
        s.view->RefreshMap(false, HORect());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count.load(), 1, kTimeout);
        const qint64 elapsed = timer.elapsed();
        // Progress at most every 100 ms, plus the final picture.
        QVERIFY2(redraws.count >= 2 && redraws.count <= elapsed / 100 + 1,
                 qPrintable(QStringLiteral("%1 in %2 ms").arg(redraws.count).arg(elapsed)));
        QVERIFY(redraws.offThread && redraws.nullEvents == 0 && redraws.lastSender == s.view.get());
    }

    void unbindWhileTheWorkerFires() {
        Scene s(kFullRed);
        // Each receiver is freed right after unbinding: a callback still running (or starting) on the
        // worker after unbind returned would touch freed memory.
        int total = 0;
        for (int i = 0; i < 100; ++i) {
            auto* calls = new std::atomic<int>(0);
            s.view->RedrawSignal.bind("receiver", [calls](void*, HOEvent*) {
                std::this_thread::sleep_for(std::chrono::microseconds(200));
                ++*calls;
            });
            s.view->RefreshMap(false, HORect());
            std::this_thread::sleep_for(std::chrono::microseconds(100 * (i % 7)));
            s.view->RedrawSignal.unbind("receiver");
            total += *calls;
            delete calls;
        }
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        QVERIFY(total > 0);  // the worker did fire while we bound and unbound
    }

    void drawAddsGraphicsToolAndGrid() {
        Scene s(kFullRed);
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        HORefPtr<HOGeometry> square(new HOGeometry(HOGeometry::GeoPolygon));
        square->AddPart({{40, 40}, {60, 40}, {60, 60}, {40, 60}});
        s.map->GetGraphicsLayer()->AddElement(square,
                                              HOStyle::NewFill(HOColor(0, 255, 0), HOColor(0, 255, 0), 0));
        HORefPtr<MarkTool> tool(new MarkTool);
        tool->mark = HOPoint(10, 90);
        s.view->SetCurrentTool(tool);
        QCOMPARE(tool->GetView(), static_cast<HOView*>(s.view.get()));
        QImage image = drawn(s.view);
        QVERIFY(image.pixel(50, 50) == qRgb(0, 255, 0) && image.pixel(10, 10) == qRgb(255, 0, 255) &&
                image.pixel(30, 30) == kRed);
        QCOMPARE(s.layers[0]->renders.load(), 1);  // drawn on top, nothing rendered again
        s.view->SetCurrentTool(nullptr);
        QCOMPARE(tool->GetView(), static_cast<HOView*>(nullptr));

        HOMapRulerAndGrid* grid = s.view->GetRulerAndGridSetting();
        grid->set_draw_km_grid(true);
        grid->set_manually_set_km_grid_distanse(true);
        grid->set_km_grid_x_distance(25);
        grid->set_km_grid_y_distance(25);
        grid->set_km_grid_line_width(1);
        grid->set_km_grid_color(HOColor(255, 255, 0));
        QCOMPARE(drawn(s.view).pixel(25, 10), kRed);  // not before the request
        HOSignalCounter redraws(s.view->RedrawSignal);
        s.view->RequestRedraw(false);
        QCOMPARE(redraws.count.load(), 1);
        // Lines at x and y = 25, 50, 75; a 1-pixel line at x = 25 lies on the pixel edge.
        image = drawn(s.view);
        QVERIFY(qGreen(image.pixel(25, 10)) > 100 && qGreen(image.pixel(10, 50)) > 100);
        QCOMPARE(image.pixel(10, 10), kRed);  // the tool's mark is gone
    }

    void flashingDoesNotBlock() {
        Scene s({{HORect(0, 100, 0, 100), Qt::blue}});
        QTRY_VERIFY_WITH_TIMEOUT(s.idle(), kTimeout);
        HORefPtr<HOGeometry> line(new HOGeometry(HOGeometry::GeoLineString));
        line->AddPart({{0, 50}, {100, 50}});
        HOSignalCounter redraws(s.view->RedrawSignal);
        QElapsedTimer timer;
        timer.start();
        s.view->TwinkleGeometry(line, nullptr, 2);
        QVERIFY(timer.elapsed() < 100);
        const bool shownAtOnce = drawn(s.view).pixel(50, 50) == kRed;
        // Shown 0-200 ms, hidden 200-400, shown 400-600, hidden after 800: a redraw at every change.
        QTRY_VERIFY_WITH_TIMEOUT(redraws.count >= 5, 3000);
        QVERIFY(shownAtOnce || timer.elapsed() > 200);  // a slow machine may have missed the first phase
        QTRY_VERIFY_WITH_TIMEOUT(timer.elapsed() > 850, 3000);
        QCOMPARE(drawn(s.view).pixel(50, 50), kBlue);
    }

    void middleButtonDragPans() {
        Scene s(kFullRed);
        s.view->MouseUp(3, 40, 40);  // pressed elsewhere: nothing to finish
        s.view->MouseDown(3, 10, 10);
        s.view->MouseMove(3, 30, 5);
        QCOMPARE(s.view->GetExtent(), HORect(0, 100, 0, 100));  // the picture follows, the view stays
        s.view->MouseUp(3, 30, 5);
        QCOMPARE(s.view->GetExtent(), HORect(-20, 80, -5, 95));
        s.view->StopRender(true);
    }

    void firstLayerIsFittedRenderedAndSelected() {
        QTemporaryDir dir;
        const QString path = dir.filePath("parcels.geojson");
        QVERIFY(HOLayerFixture::WriteVector(path, "GeoJSON", 4326, wkbPolygon,
                                            {{"POLYGON ((10 10, 20 10, 20 20, 10 20, 10 10))", 1},
                                             {"POLYGON ((30 10, 40 10, 40 20, 30 20, 30 10))", 2}}));
        const HORefPtr<HOFeatureLayer> layer = HODynamicCast<HOFeatureLayer>(OpenLayer(path));
        QVERIFY(layer);
        layer->SetStyle(HOStyle::NewFill(HOColor(255, 0, 0), HOColor(255, 0, 0), 0));
        HORefPtr<HOMap> map(new HOMap);
        HORefPtr<HOMapView> view(new HOMapView);
        HOSignalCounter finished(view->RenderFinishedSignal);
        view->SetSize(300, 100);
        view->SetMap(map);
        QVERIFY(view->GetExtent().IsEmpty() && !view->IsRendering());
        map->AddLayer(layer);
        // The full extent fits 8 pixels in from the nearer edges (top and bottom), centred.
        const HODisplayTransform shown = view->GetDisplayTransform();
        QCOMPARE(view->GetCenter(), HOPoint(25, 15));
        QVERIFY(qFuzzyCompare(shown.ToDevice(HOPoint(10, 20)).y, 8.0) &&
                qFuzzyCompare(shown.ToDevice(HOPoint(10, 10)).y, 92.0));
        QTRY_VERIFY_WITH_TIMEOUT(finished.count > 0 && !view->IsRendering(), kTimeout);
        const QImage image = drawn(view, 300, 100);
        QVERIFY(image.pixel(50, 50) == kRed && image.pixel(150, 50) == kWhite &&
                image.pixel(250, 50) == kRed);
        finished.reset();
        view->SelectAll();
        QCOMPARE(layer->GetSelectedIds().size(), std::size_t(2));
        QTRY_VERIFY_WITH_TIMEOUT(finished.count > 0, kTimeout);  // drawn again with the selection
    }
};

QTEST_MAIN(tst_MapViewRender)
#include "tst_mapviewrender.moc"
