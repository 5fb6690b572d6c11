#pragma once
// HOMapRenderer: a map view's render thread. It draws each visible layer, in map order, into a picture
// of its own, keeps those pictures while the view does not move, and publishes a composed frame (the
// background and every layer) that the view's Draw() blits. A new request cancels the running one
// through the view's track-cancel flag; the unfinished work is carried over. Layers not yet drawn at
// the new place are shown moved and scaled from their last picture, so the frame is never blank.
//
// Owned by its map view; the destructor stops and joins the thread. The callbacks run on the render
// thread (and only there), with no lock held.
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
    // idle (not when called from the render thread itself).
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
    // True when the whole request was drawn, false when cancelled.
    bool render(HORenderRequest& request);
    bool renderLayer(HOLayer& layer, const HORenderRequest& request, const HOCoordinateSystem* system);
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

    std::map<int, HOViewFrame> m_layerPictures;  // render thread only; by layer id
    HOLabelPass m_labels;                        // render thread only
    std::thread m_thread;                        // last: starts once everything above exists
};

}  // namespace HXObjects
