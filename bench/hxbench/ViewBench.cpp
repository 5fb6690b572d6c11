#include "ViewBench.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <atomic>

#include "BenchClock.h"
#include "HOEvent.h"
#include "HOFeatureLayer.h"
#include "HOGraphicsEngineManager.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HOTool.h"
#include "edit/HOSnapper.h"
#include "tools/HOCmdDigitizeLine.h"

using namespace HXObjects;

namespace {

// Seconds until the view reports a finished render (or 60 s), keeping the event loop going.
double waitForRender(HOMapView* view, std::atomic<int>& finished, int before) {
    QElapsedTimer clock;
    clock.start();
    while (finished.load() == before && clock.elapsed() < 60000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    return clock.elapsed() / 1000.0;
}

template <class Step>
double bestOf(int runs, Step step) {
    double best = 1e9;
    for (int i = 0; i < runs; ++i) best = std::min(best, BenchClock::Seconds(step));
    return best;
}

// A view of the whole map, its first render done; `finished` counts the renders it completes.
HORefPtr<HOMapView> showWhole(HOMap* map, const QSize& size, std::atomic<int>& finished) {
    HORefPtr<HOMapView> view(new HOMapView("bench"));
    view->RenderFinishedSignal.bind("hxbench", [&finished](void*, HOEvent*) { ++finished; });
    view->SetSize(size.width(), size.height());
    view->SetMap(map);
    view->ZoomToFullExtent();
    waitForRender(view, finished, 0);
    return view;
}

// Best of three full renders of everything the view shows, in seconds.
double bestFullRender(HOMapView* view, std::atomic<int>& finished) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        const int before = finished.load();
        view->RefreshMap(true, HORect());
        best = std::min(best, waitForRender(view, finished, before));
    }
    return best;
}

}  // namespace

ViewBench::ViewBench(const QString& gpkg, const QStringList& layers, const QSize& size)
    : m_gpkg(gpkg), m_layers(layers), m_size(size) {}

void ViewBench::Run(BenchReport& report) const {
    HORefPtr<HOMap> map(new HOMap);
    for (const QString& name : m_layers) {
        HORefPtr<HOLayer> layer = OpenLayer(HOString(m_gpkg + QStringLiteral("|layername=") + name));
        if (layer) map->AddLayer(layer);
    }
    HOGraphicsEngineManager* engines = HOGraphicsEngineManager::instance(HOString());
    engines->SetCurrentEngine("QT");
    HORefPtr<HOGraphics> surface(engines->NewGraphics());
    surface->SetSize(m_size.width(), m_size.height());

    std::atomic<int> finished{0};
    HORefPtr<HOMapView> view = showWhole(map, m_size, finished);
    int before = finished.load();
    view->RefreshMap(true, HORect());
    const double fullRender = waitForRender(view, finished, before);
    report.Add(QStringLiteral("all"), QStringLiteral("view: full render of all layers"), fullRender,
               QString(), 0);

    const double compose = bestOf(20, [&] { view->Draw(surface); });
    report.Add(QStringLiteral("all"), QStringLiteral("view: Draw (compose) 1920x1080"), compose, QString(),
               0);

    const auto panStep = [&] {
        view->BeginPan();
        int dx = 0;
        const double best = bestOf(20, [&] {
            view->PanTo(dx += 8, 0);
            view->Draw(surface);
        });
        view->EndPan(dx, 0);
        waitForRender(view, finished, finished.load());
        return best;
    };
    const double pan = panStep();
    report.Add(QStringLiteral("all"), QStringLiteral("view: pan step to next Draw"), pan, QString(), 0);

    // Both grids and both rulers, the densest automatic spacing: every Draw computes them afresh.
    HOMapRulerAndGrid* grid = view->GetRulerAndGridSetting();
    grid->set_draw_km_grid(true);
    grid->set_draw_km_grid_ruler(true);
    grid->set_draw_bl_grid(true);
    grid->set_draw_bl_grid_ruler(true);
    view->RequestRedraw(false);
    const double gridded = bestOf(20, [&] { view->Draw(surface); });
    report.Add(QStringLiteral("all"), QStringLiteral("view: Draw with KM+BL grids and rulers"), gridded,
               QStringLiteral("Draw without"), compose);
    report.Add(QStringLiteral("all"), QStringLiteral("view: pan step with grids"), panStep(),
               QStringLiteral("without"), pan);
    grid->set_draw_km_grid(false);
    grid->set_draw_km_grid_ruler(false);
    grid->set_draw_bl_grid(false);
    grid->set_draw_bl_grid_ruler(false);
    view->RequestRedraw(false);

    const double wheel = bestOf(10, [&] {
        view->Wheel(0, 120, m_size.width() / 2, m_size.height() / 2);
        view->Draw(surface);
    });
    report.Add(QStringLiteral("all"), QStringLiteral("view: wheel step to next Draw"), wheel, QString(), 0);
    // Digitising at 1% of the area: a mouse move snaps (spatial index query of every layer) and moves
    // the rubber band, which the next Draw shows.
    const HORect all = map->GetFullExtent();
    const HOPoint c = all.Center();
    before = finished.load();
    view->SetExtent(HORect(c.x - all.Width() / 20, c.x + all.Width() / 20, c.y - all.Height() / 20,
                           c.y + all.Height() / 20));
    waitForRender(view, finished, before);
    HORefPtr<HOTool> line(new HOCmdDigitizeLine);
    view->SetCurrentTool(line);
    view->MouseDown(1, m_size.width() / 2, m_size.height() / 2);
    view->MouseUp(1, m_size.width() / 2, m_size.height() / 2);
    int step = 0;
    const double band = bestOf(50, [&] {
        view->MouseMove(0, 100 + (step * 37) % (m_size.width() - 200),
                        100 + (step * 53) % (m_size.height() - 200));
        ++step;
        view->Draw(surface);
    });
    report.Add(QStringLiteral("all"), QStringLiteral("view: mouse move to drawn rubber band (snapping on)"),
               band, QString(), 0, QStringLiteral("<= 0.016 s"));
    const HODisplayTransform transform = view->GetDisplayTransform();
    const int queries = 1000;
    const double snap = BenchClock::Seconds([&] {
        for (int i = 0; i < queries; ++i)
            HOSnapper::Snap(transform.ToMap((i * 37) % m_size.width(), (i * 53) % m_size.height()), view);
    });
    report.Add(QStringLiteral("all"), QStringLiteral("1000 snap queries, 10 px, all layers"), snap, QString(),
               0, QStringLiteral("<= 1 s"));
    view->SetCurrentTool(nullptr);
    view->StopRender(true);
    view->RenderFinishedSignal.unbind("hxbench");
    if (m_layers.contains(QStringLiteral("points"))) runLabels(report);
}

void ViewBench::runLabels(BenchReport& report) const {
    HORefPtr<HOLayer> opened = OpenLayer(HOString(m_gpkg + QStringLiteral("|layername=points")));
    auto* points = dynamic_cast<HOFeatureLayer*>(opened.get());
    if (!points) return;
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(points);
    std::atomic<int> finished{0};
    HORefPtr<HOMapView> view = showWhole(map, m_size, finished);
    const double bare = bestFullRender(view, finished);

    HOLabelSettings labels;
    labels.expression = QStringLiteral("rank");
    points->SetLabelSettings(labels);
    const int before = finished.load();
    view->RefreshMap(true, HORect());
    const double first = waitForRender(view, finished, before);
    report.Add(QStringLiteral("points"), QStringLiteral("view: first labelled render (reads the texts)"),
               first, QString(), 0);
    report.Add(QStringLiteral("points"), QStringLiteral("view: full render with labels"),
               bestFullRender(view, finished), QStringLiteral("without labels"), bare,
               QStringLiteral("<= 2x"));
    view->StopRender(true);
    view->RenderFinishedSignal.unbind("hxbench");
}
