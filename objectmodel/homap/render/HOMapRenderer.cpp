#include "HOMapRenderer.h"

#include <QPainter>

#include "HOCoordinateSystem.h"
#include "HOLayer.h"
#include "HOLayerBlend.h"
#include "HORenderContext.h"

namespace HXObjects {

HOMapRenderer::HOMapRenderer(HOTrackCancel* cancel, Callbacks callbacks)
    : m_cancel(cancel), m_callbacks(std::move(callbacks)), m_thread([this] { run(); }) {}

HOMapRenderer::~HOMapRenderer() {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stop = true;
        m_cancel->Cancel();
    }
    m_wake.notify_all();
    m_thread.join();
}

void HOMapRenderer::Request(HORenderRequest request, int delayMs) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_pending) request.Absorb(*m_pending);
        m_pending = std::move(request);
        m_notBefore = Clock::now() + std::chrono::milliseconds(std::max(delayMs, 0));
        if (m_running) {
            m_carryOver = true;
            m_cancel->Cancel();
        }
    }
    m_wake.notify_all();
}

void HOMapRenderer::Stop(bool wait) {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_pending.reset();
    m_carryOver = false;
    if (m_running) m_cancel->Cancel();
    if (wait && std::this_thread::get_id() != m_thread.get_id())
        m_idle.wait(lock, [this] { return !m_running; });
}

void HOMapRenderer::Pause() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_paused = true;
    if (m_running) {
        m_carryOver = true;
        m_cancel->Cancel();
    }
}

void HOMapRenderer::Resume() {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_paused = false;
    }
    m_wake.notify_all();
}

bool HOMapRenderer::IsBusy() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_running || m_pending.has_value();
}

void HOMapRenderer::RedrawAt(Clock::time_point when) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_ticks.insert(when);
    }
    m_wake.notify_all();
}

HOViewFrame HOMapRenderer::Frame() const {
    std::lock_guard<std::mutex> lock(m_frameMutex);
    return m_frame;
}

void HOMapRenderer::ClearFrame() {
    HOViewFrame old;  // the pixels are freed outside the lock
    std::lock_guard<std::mutex> lock(m_frameMutex);
    std::swap(old, m_frame);
}

void HOMapRenderer::run() {
    std::unique_lock<std::mutex> lock(m_mutex);
    while (waitForWork(lock)) {
        HORenderRequest request = std::move(*m_pending);
        m_pending.reset();
        m_running = true;
        m_carryOver = false;
        m_cancel->Reset();
        lock.unlock();

        const bool done = render(request);

        lock.lock();
        if (!done && m_carryOver) {
            if (m_pending)
                m_pending->Absorb(request);
            else
                m_pending = std::move(request);
        }
        m_running = false;
        m_idle.notify_all();
        if (done && m_callbacks.finished) {
            lock.unlock();
            m_callbacks.finished();
            lock.lock();
        }
    }
    m_running = false;
    m_idle.notify_all();
}

bool HOMapRenderer::waitForWork(std::unique_lock<std::mutex>& lock) {
    for (;;) {
        if (m_stop) return false;
        if (fireDueTicks(lock)) continue;
        const bool ready = m_pending && !m_paused;
        if (ready && Clock::now() >= m_notBefore) return true;
        std::optional<Clock::time_point> wake;
        if (ready) wake = m_notBefore;
        if (!m_ticks.empty() && (!wake || *m_ticks.begin() < *wake)) wake = *m_ticks.begin();
        if (wake)
            m_wake.wait_until(lock, *wake);
        else
            m_wake.wait(lock);
    }
}

bool HOMapRenderer::fireDueTicks(std::unique_lock<std::mutex>& lock) {
    const auto now = Clock::now();
    bool due = false;
    while (!m_ticks.empty() && *m_ticks.begin() <= now) {
        m_ticks.erase(m_ticks.begin());
        due = true;
    }
    if (!due) return false;
    lock.unlock();
    if (m_callbacks.redraw) m_callbacks.redraw();
    lock.lock();
    return true;
}

bool HOMapRenderer::render(HORenderRequest& request) {
    if (request.dropCaches) {
        m_layerPictures.clear();
        m_labels.Clear();
        request.dropCaches = false;
    }
    const auto layers = request.map->GetLayers(true);
    keepCachesOf(layers);
    if (request.redrawAll) {
        // Named one by one, so that a render cancelled half-way carries over only the rest.
        for (const auto& layer : layers) request.redrawLayers.insert(layer->GetLayerId());
        request.redrawAll = false;
    }
    const HORefPtr<HOCoordinateSystem> system = request.map->GetSpatialReference();
    auto lastRedraw = Clock::now();
    for (const auto& layer : layers) {
        if (m_cancel->IsCancelled()) return false;
        if (!layer->IsVisible() || layer->GetLayerType() == HOLayer::GraphicsLayer) continue;
        const auto cached = m_layerPictures.find(layer->GetLayerId());
        const bool current = cached != m_layerPictures.end() && cached->second.IsAt(request.transform) &&
                             cached->second.image.size() == request.PictureSize();
        if (current && !request.MustRedraw(layer->GetLayerId())) continue;
        if (!renderLayer(*layer, request, system.get())) return false;
        // Drawn: a carried-over request need not draw it again.
        request.redrawLayers.erase(layer->GetLayerId());
        m_labels.Invalidate();
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            fireDueTicks(lock);
        }
        if (Clock::now() - lastRedraw >= kRedrawInterval) {
            publish(layers, request);
            if (m_callbacks.redraw) m_callbacks.redraw();
            lastRedraw = Clock::now();
        }
    }
    if (m_cancel->IsCancelled()) return false;
    if (!m_labels.IsCurrent(request) && !m_labels.Render(layers, request, system.get(), m_cancel))
        return false;
    publish(layers, request);
    if (m_callbacks.redraw) m_callbacks.redraw();
    return true;
}

bool HOMapRenderer::renderLayer(HOLayer& layer, const HORenderRequest& request,
                                const HOCoordinateSystem* system) {
    QImage image = request.Picture();
    if (image.isNull()) return false;
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        HORenderContext context = request.Context(system, m_cancel);
        context.painter = &painter;
        layer.Render(context);
    }
    // A cancelled layer's picture is incomplete: keep the old one for the preview.
    if (m_cancel->IsCancelled()) return false;
    m_layerPictures[layer.GetLayerId()] = HOViewFrame{std::move(image), request.transform};
    return true;
}

void HOMapRenderer::publish(const std::vector<HORefPtr<HOLayer>>& layers, const HORenderRequest& request) {
    HOViewFrame frame{request.Picture(), request.transform};
    if (frame.image.isNull()) return;
    frame.image.fill(request.map->GetBackgroundColor().toQColor());
    {
        QPainter painter(&frame.image);
        for (const auto& layer : layers) {
            if (!layer->IsVisible()) continue;
            const auto cached = m_layerPictures.find(layer->GetLayerId());
            if (cached == m_layerPictures.end()) continue;
            painter.setOpacity(layer->GetOpacity());
            painter.setCompositionMode(HOLayerBlend::ModeOf(layer->GetComposition()));
            cached->second.DrawInto(painter, request.transform);
        }
        m_labels.DrawInto(painter, request.transform);
    }
    std::lock_guard<std::mutex> lock(m_frameMutex);
    std::swap(m_frame, frame);
}

void HOMapRenderer::keepCachesOf(const std::vector<HORefPtr<HOLayer>>& layers) {
    std::set<int> wanted;
    for (const auto& layer : layers) {
        if (layer->IsVisible()) wanted.insert(layer->GetLayerId());
    }
    for (auto it = m_layerPictures.begin(); it != m_layerPictures.end();) {
        it = wanted.count(it->first) ? std::next(it) : m_layerPictures.erase(it);
    }
}

}  // namespace HXObjects
