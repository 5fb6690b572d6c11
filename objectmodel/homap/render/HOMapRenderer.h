#pragma once
// HOMapRenderer: a map view's render thread. It has each visible layer drawn into a picture of its own
// — independent layers at once, on the shared render workers — keeps those pictures while the view
// does not move, and publishes a composed frame (the background, every layer and the labels) that
// the view's Draw() blits. A refresh of an area draws only that area of the pictures again. A new
// request cancels the running one through the view's track-cancel flag; the unfinished work is carried
// over. Layers not yet drawn at the new place are shown moved and scaled from their last picture, so
// the frame is never blank; a long layer shows what it has drawn so far every kRedrawInterval.
//
// Owned by its map view; the destructor stops and joins the thread. The callbacks run on the render
// thread or a render worker, never two at once for progress, and with no lock held.
#include <QRegion>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <vector>

#include "HOLabelPass.h"
#include "HORenderRequest.h"
#include "HOTrackCancel.h"
#include "HOViewFrame.h"

namespace HXObjects {

class HOLayer;

class HOMapRenderer {
public:
    using Clock = std::chrono::steady_clock;
    // Progress is published at most this often while a long render runs.
    static constexpr std::chrono::milliseconds kRedrawInterval{100};

    struct Callbacks {
        std::function<void()> redraw;    // a new frame (or a timed redraw) is ready
        std::function<void()> finished;  // a render completed; not called when cancelled
    };

    HOMapRenderer(HOTrackCancel* cancel, Callbacks callbacks);
    ~HOMapRenderer();
    HOMapRenderer(const HOMapRenderer&) = delete;
    HOMapRenderer& operator=(const HOMapRenderer&) = delete;

    // Starts rendering `delayMs` after the last request (0: at once); cancels the running render.
    void Request(HORenderRequest request, int delayMs);
    // Cancels the running render and drops the waiting one; with wait, returns once the thread is
    // idle (not when called from the render thread itself or a render worker, as a callback).
    void Stop(bool wait);
    // While paused nothing renders; the running render is cancelled and resumes with ResumeRender.
    void Pause();
    void Resume();
    bool IsBusy() const;
    // Fires the redraw callback at that time (timed effects such as a flashing geometry).
    void RedrawAt(Clock::time_point when);

    // The last published frame; cheap (shares the pixels).
    HOViewFrame Frame() const;
    // Forgets the published frame at once (another map is shown).
    void ClearFrame();

private:
    void run();
    // Waits for work; false when the thread must end. Fires due timed redraws on the way.
    bool waitForWork(std::unique_lock<std::mutex>& lock);
    // Called and returns with the lock held; the callback runs without it.
    bool fireDueTicks(std::unique_lock<std::mutex>& lock);
    // One render's shared state, for the layers drawing at once.
    struct Pass {
        const std::vector<HORefPtr<HOLayer>>& layers;
        const HORenderRequest& request;
        const HOCoordinateSystem* system;
        int unfinished = 0;      // layers still drawing; under m_picturesMutex
        std::vector<int> drawn;  // ids of the layers drawn in full; under m_picturesMutex
    };
    // Room around an area drawn again, for the symbols of features just outside it (pixels).
    static constexpr int kSymbolMargin = 64;
    static constexpr std::size_t kSpareImages = 3;

    // True when the whole request was drawn, false when cancelled.
    bool render(HORenderRequest& request);
    // What of the layer's picture must be drawn: all of it when it is not at the request's place.
    QRegion areaToDraw(const HOLayer& layer, const HORenderRequest& request) const;
    // On a render worker: draws the area of the layer's picture, keeps it unless cancelled.
    void drawLayer(Pass& pass, HOLayer& layer, const QRegion& area);
    // The layer's pixels within `pixels` of the whole picture; progressive: shows its progress.
    QImage drawLayerPart(Pass& pass, HOLayer& layer, const QRect& pixels, bool progressive);
    // True (once) when kRedrawInterval has passed since the last progress was shown.
    bool progressDue();
    void showProgress(const Pass& pass);
    // An image of that size, not cleared: a spare one when there is, else a new one. Fresh pages of a
    // new full-size image cost the kernel more than drawing a whole map into a reused one.
    QImage freshImage(const QSize& size, double ratio);
    // Keeps a picture no longer used as a spare.
    void recycle(QImage image);
    void publish(const std::vector<HORefPtr<HOLayer>>& layers, const HORenderRequest& request);
    void keepCachesOf(const std::vector<HORefPtr<HOLayer>>& layers);

    HOTrackCancel* m_cancel;
    Callbacks m_callbacks;

    mutable std::mutex m_mutex;  // guards the request state below
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    std::optional<HORenderRequest> m_pending;
    Clock::time_point m_notBefore;
    std::multiset<Clock::time_point> m_ticks;
    bool m_running = false;
    bool m_paused = false;
    bool m_carryOver = false;  // the running render is cancelled for a newer one: keep its work
    bool m_stop = false;

    mutable std::mutex m_frameMutex;  // guards m_frame
    HOViewFrame m_frame;

    std::mutex m_spareMutex;  // guards m_spareImages
    std::vector<QImage> m_spareImages;
    std::mutex m_publishMutex;   // held while a frame is composed
    std::mutex m_picturesMutex;  // guards the two maps below (between render thread and workers)
    std::map<int, HOViewFrame> m_layerPictures;  // by layer id
    std::map<int, HOViewFrame> m_partPictures;   // a layer's picture so far, while it draws
    std::atomic<Clock::duration> m_lastProgress{Clock::duration::zero()};
    HOLabelPass m_labels;  // render thread only (and publish, while no layer draws or under m_publishMutex)
    std::thread m_thread;  // last: starts once everything above exists
};

}  // namespace HXObjects
