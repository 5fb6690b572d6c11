#include "ViewBench.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <atomic>

#include "BenchClock.h"
#include "HOEvent.h"
#include "HOGraphicsEngineManager.h"
#include "HOMap.h"
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

    HORefPtr<HOMapView> view(new HOMapView("bench"));
    std::atomic<int> finished{0};
    view->RenderFinishedSignal.bind("hxbench", [&](void*, HOEvent*) { ++finished; });
    view->SetSize(m_size.width(), m_size.height());
    view->SetMap(map);
    view->ZoomToFullExtent();
    waitForRender(view, finished, 0);
    int before = finished.load();
    view->RefreshMap(true, HORect());
    const double fullRender = waitForRender(view, finished, before);
    report.Add(QStringLiteral("all"), QStringLiteral("view: full render of all layers"), fullRender,
               QString(), 0);

    const double compose = bestOf(20, [&] { view->Draw(surface); });
    report.Add(QStringLiteral("all"), QStringLiteral("view: Draw (compose) 1920x1080"), compose, QString(),
               0);

    view->BeginPan();
    int dx = 0;
    const double pan = bestOf(20, [&] {
        view->PanTo(dx += 8, 0);
        view->Draw(surface);
    });
    view->EndPan(dx, 0);
    report.Add(QStringLiteral("all"), QStringLiteral("view: pan step to next Draw"), pan, QString(), 0);

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
        view->MouseMove(0, 100 + (step * 37) % (m_size.width() - 200), 100 + (step * 53) % (m_size.height() - 200));
        ++step;
        view->Draw(surface);
    });
    report.Add(QStringLiteral("all"), QStringLiteral("view: mouse move to drawn rubber band (snapping on)"), band,
               QString(), 0, QStringLiteral("<= 0.016 s"));
    const HODisplayTransform transform = view->GetDisplayTransform();
    const int queries = 1000;
    const double snap = BenchClock::Seconds([&] {
        for (int i = 0; i < queries; ++i)
            HOSnapper::Snap(transform.ToMap((i * 37) % m_size.width(), (i * 53) % m_size.height()), view);
    });
    report.Add(QStringLiteral("all"), QStringLiteral("1000 snap queries, 10 px, all layers"), snap, QString(), 0,
               QStringLiteral("<= 1 s"));
    view->SetCurrentTool(nullptr);
    view->StopRender(true);
    view->RenderFinishedSignal.unbind("hxbench");
}
