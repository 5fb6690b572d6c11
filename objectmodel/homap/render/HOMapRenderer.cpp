#include "HOMapRenderer.h"

#include <QPainter>

#include "HOCoordinateSystem.h"
#include "HOLayer.h"
#include "HOLayerBlend.h"
#include "HORenderContext.h"
#include "render/private/HORenderTasks.h"

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
    // A callback run by the render thread or a worker must not wait for the render it is part of.
    if (wait && std::this_thread::get_id() != m_thread.get_id() && !HORenderTasks::InJob())
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
    if (!request.redrawEverywhere.isEmpty()) {
        // Named one by one, so that a render cancelled half-way carries over only the rest.
        for (const auto& layer : layers)
            request.redrawLayers[layer->GetLayerId()] += request.redrawEverywhere;
        request.redrawEverywhere = QRegion();
    }
    const HORefPtr<HOCoordinateSystem> system = request.map->GetSpatialReference();
    Pass pass{layers, request, system.get(), 0, {}};
    m_lastProgress = Clock::now().time_since_epoch();
    {
        // Independent layers draw at once, each into its own picture, on the render workers.
        std::vector<std::pair<HOLayer*, QRegion>> work;
        for (const auto& layer : layers) {
            if (!layer->IsVisible() || layer->GetLayerType() == HOLayer::GraphicsLayer) continue;
            const QRegion area = areaToDraw(*layer, request);
            if (!area.isEmpty()) work.emplace_back(layer.get(), area);
        }
        pass.unfinished = int(work.size());
        HORenderTasks tasks;
        for (const auto& [layer, area] : work)
            tasks.Add([this, &pass, layer = layer, area = area] { drawLayer(pass, *layer, area); });
        tasks.Wait();
    }
    for (const int drawn : pass.drawn) request.redrawLayers.erase(drawn);
    {
        std::lock_guard<std::mutex> lock(m_picturesMutex);
        m_partPictures.clear();
    }
    if (!pass.drawn.empty()) m_labels.Invalidate();
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        fireDueTicks(lock);
    }
    if (m_cancel->IsCancelled()) return false;
    if (!m_labels.IsCurrent(request) && !m_labels.Render(layers, request, system.get(), m_cancel))
        return false;
    publish(layers, request);
    if (m_callbacks.redraw) m_callbacks.redraw();
    return true;
}

QRegion HOMapRenderer::areaToDraw(const HOLayer& layer, const HORenderRequest& request) const {
    const auto cached = m_layerPictures.find(layer.GetLayerId());
    const bool current = cached != m_layerPictures.end() && cached->second.IsAt(request.transform) &&
                         cached->second.image.size() == request.PictureSize();
    return current ? request.RedrawArea(layer.GetLayerId()).intersected(request.Whole()) : request.Whole();
}

void HOMapRenderer::drawLayer(Pass& pass, HOLayer& layer, const QRegion& area) {
    const HORenderRequest& request = pass.request;
    const int id = layer.GetLayerId();
    bool drawn = true;
    if (area == QRegion(request.Whole())) {
        QImage image = drawLayerPart(pass, layer, request.Whole(), true);
        if (!image.isNull() && !m_cancel->IsCancelled()) {
            HOViewFrame replaced{std::move(image), request.transform};
            {
                std::lock_guard<std::mutex> lock(m_picturesMutex);
                std::swap(m_layerPictures[id], replaced);
            }
            recycle(std::move(replaced.image));
        } else {
            drawn = false;
        }
    } else {
        for (const QRect& rect : area) {
            // Features just outside may reach in with their symbols: drawn in a margin, kept within.
            const QRect around = rect.adjusted(-kSymbolMargin, -kSymbolMargin, kSymbolMargin, kSymbolMargin);
            const QImage part = drawLayerPart(pass, layer, around, false);
            if (part.isNull() || m_cancel->IsCancelled()) {
                drawn = false;
                break;
            }
            std::lock_guard<std::mutex> lock(m_picturesMutex);
            // Published frames hold the picture's old pixels: the write below detaches it from them.
            QPainter painter(&m_layerPictures[id].image);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            const double ratio = request.devicePixelRatio;
            const QRectF inPart(QPointF(rect.topLeft() - around.topLeft()) * ratio,
                                QSizeF(rect.size()) * ratio);
            painter.drawImage(QRectF(rect), part, inPart);
        }
    }
    bool last = false;
    {
        std::lock_guard<std::mutex> lock(m_picturesMutex);
        if (drawn) pass.drawn.push_back(id);
        m_partPictures.erase(id);
        last = --pass.unfinished == 0;
    }
    // The final picture follows at once after the last layer.
    if (!last && progressDue()) showProgress(pass);
}

QImage HOMapRenderer::drawLayerPart(Pass& pass, HOLayer& layer, const QRect& pixels, bool progressive) {
    QImage image = freshImage(pixels.size(), pass.request.devicePixelRatio);
    if (image.isNull()) return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    HORenderContext context = pass.request.Context(pass.system, m_cancel);
    // The same pixels as in the whole picture, moved by whole pixels: drawn alike.
    HODisplayTransform moved = pass.request.transform;
    moved.deviceLeft -= pixels.x();
    moved.deviceTop -= pixels.y();
    context.SetArea(moved, HOSize(pixels.width(), pixels.height()));
    context.painter = &painter;
    if (progressive)
        context.progress = [this, &pass, &image, id = layer.GetLayerId()] {
            if (!progressDue()) return;
            {
                std::lock_guard<std::mutex> lock(m_picturesMutex);
                m_partPictures[id] = HOViewFrame{image.copy(), pass.request.transform};
            }
            showProgress(pass);
        };
    layer.Render(context);
    painter.end();
    return image;
}

bool HOMapRenderer::progressDue() {
    const auto now = Clock::now().time_since_epoch();
    auto last = m_lastProgress.load();
    return now - last >= kRedrawInterval && m_lastProgress.compare_exchange_strong(last, now);
}

void HOMapRenderer::showProgress(const Pass& pass) {
    publish(pass.layers, pass.request);
    if (m_callbacks.redraw) m_callbacks.redraw();
}

void HOMapRenderer::publish(const std::vector<HORefPtr<HOLayer>>& layers, const HORenderRequest& request) {
    // One composition at a time: the render thread and the workers showing progress may both ask.
    std::lock_guard<std::mutex> composing(m_publishMutex);
    HOViewFrame frame{freshImage(request.Whole().size(), request.devicePixelRatio), request.transform};
    if (frame.image.isNull()) return;
    frame.image.fill(request.map->GetBackgroundColor().toQColor());
    std::vector<std::pair<const HOLayer*, HOViewFrame>> pictures;
    {
        std::lock_guard<std::mutex> lock(m_picturesMutex);
        for (const auto& layer : layers) {
            if (!layer->IsVisible()) continue;
            const int id = layer->GetLayerId();
            const auto part = m_partPictures.find(id);
            const auto cached = m_layerPictures.find(id);
            if (part != m_partPictures.end())
                pictures.emplace_back(layer.get(), part->second);
            else if (cached != m_layerPictures.end())
                pictures.emplace_back(layer.get(), cached->second);
        }
    }
    {
        QPainter painter(&frame.image);
        for (const auto& [layer, picture] : pictures) {
            painter.setOpacity(layer->GetOpacity());
            painter.setCompositionMode(HOLayerBlend::ModeOf(layer->GetComposition()));
            picture.DrawInto(painter, request.transform);
        }
        painter.setOpacity(1.0);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        m_labels.DrawInto(painter, request.transform);
    }
    {
        std::lock_guard<std::mutex> lock(m_frameMutex);
        std::swap(m_frame, frame);
    }
    recycle(std::move(frame.image));
}

QImage HOMapRenderer::freshImage(const QSize& size, double ratio) {
    // `size` logical pixels at the device pixel ratio: a painter on it draws in logical pixels.
    const QSize pixels = HORenderRequest::PictureSizeOf(size, ratio);
    {
        std::lock_guard<std::mutex> lock(m_spareMutex);
        for (auto it = m_spareImages.begin(); it != m_spareImages.end(); ++it) {
            if (it->size() != pixels || it->devicePixelRatio() != ratio) continue;
            QImage image = std::move(*it);
            m_spareImages.erase(it);
            return image;
        }
    }
    return HORenderRequest::PictureOf(size, ratio);
}

void HOMapRenderer::recycle(QImage image) {
    // Only a picture nobody else holds: a frame still shown, or a picture being composed, is not.
    if (image.isNull() || !image.isDetached()) return;
    std::lock_guard<std::mutex> lock(m_spareMutex);
    if (m_spareImages.size() < kSpareImages) m_spareImages.push_back(std::move(image));
}

void HOMapRenderer::keepCachesOf(const std::vector<HORefPtr<HOLayer>>& layers) {
    std::set<int> wanted;
    for (const auto& layer : layers) {
        if (layer->IsVisible()) wanted.insert(layer->GetLayerId());
    }
    std::lock_guard<std::mutex> lock(m_picturesMutex);
    for (auto it = m_layerPictures.begin(); it != m_layerPictures.end();) {
        it = wanted.count(it->first) ? std::next(it) : m_layerPictures.erase(it);
    }
}

}  // namespace HXObjects
