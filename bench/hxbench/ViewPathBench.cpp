#include "ViewPathBench.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "BenchClock.h"
#include "HOEvent.h"
#include "HOGraphicsEngineManager.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "LayerBench.h"

using namespace HXObjects;

namespace {

// Counts the renders a view finished; the render thread reports, the benchmark waits without
// spinning, so the render keeps both cores.
class FinishedRenders {
public:
    explicit FinishedRenders(HOMapView* view) : m_view(view) {
        view->RenderFinishedSignal.bind("hxbench-viewpath", [this](void*, HOEvent*) {
            std::lock_guard<std::mutex> lock(m_mutex);
            ++m_count;
            m_changed.notify_all();
        });
    }
    ~FinishedRenders() { m_view->RenderFinishedSignal.unbind("hxbench-viewpath"); }
    int Count() const {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_count;
    }
    // False after a minute without the next render finishing.
    bool WaitPast(int count) {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::minutes(1), [&] { return m_count > count; });
    }

private:
    HOMapView* m_view;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
};

}  // namespace

ViewPathBench::ViewPathBench(const QString& gpkg, const QString& layer, const QSize& size, int runs)
    : m_gpkg(gpkg), m_layer(layer), m_size(size), m_runs(runs) {}

ViewPathFigures ViewPathBench::Run() const {
    ViewPathFigures figures;
    const HORefPtr<HOFeatureLayer> layer =
        HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(m_gpkg + QStringLiteral("|layername=") + m_layer)));
    if (!layer) return figures;
    LayerBench::UseThePeersStyle(layer);
    HORefPtr<HOMap> map(new HOMap);
    map->SetBackgroundColor(HOColor(255, 255, 255));
    map->AddLayer(layer);
    HOGraphicsEngineManager* engines = HOGraphicsEngineManager::instance(HOString());
    engines->SetCurrentEngine("QT");
    HORefPtr<HOGraphics> surface(engines->NewGraphics());
    surface->SetSize(m_size.width(), m_size.height());

    HORefPtr<HOMapView> view(new HOMapView("hxbench"));
    FinishedRenders finished(view);
    view->SetSize(m_size.width(), m_size.height());
    view->SetMap(map);
    finished.WaitPast(0);

    const HORect full = LayerBench::Widened(layer->GetExtent(), m_size);
    const HOPoint c = full.Center();
    const HORect zoom(c.x - full.Width() / 20, c.x + full.Width() / 20, c.y - full.Height() / 20,
                      c.y + full.Height() / 20);
    const auto show = [&](const HORect& extent) {
        return BenchClock::Seconds([&] {
            const int before = finished.Count();
            view->SetExtent(extent);
            finished.WaitPast(before);
            view->Draw(surface);
        });
    };
    figures.full = figures.zoom = 1e9;
    // Alternating, so that every SetExtent really moves the view; the first pair warms up.
    for (int i = 0; i <= m_runs; ++i) {
        const double atFull = show(full), atZoom = show(zoom);
        if (i == 0) continue;
        figures.full = std::min(figures.full, atFull);
        figures.zoom = std::min(figures.zoom, atZoom);
    }
    figures.fixed = 1e9;
    layer->SetVisible(false);
    for (int i = 0; i < m_runs; ++i) figures.fixed = std::min({figures.fixed, show(full), show(zoom)});
    view->StopRender(true);
    return figures;
}
