#include "render/private/HORenderTasks.h"

#include <algorithm>
#include <atomic>
#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>
#include <thread>

namespace HXObjects {

namespace {

thread_local int jobsRunning = 0;

boost::asio::thread_pool& workers() {
    static boost::asio::thread_pool pool(std::max(2u, std::thread::hardware_concurrency()));
    return pool;
}

}  // namespace

struct HORenderTasks::Job {
    std::function<void()> work;
    std::atomic<bool> claimed{false};  // by the worker or the waiter that runs it
};

HORenderTasks::~HORenderTasks() {
    Wait();
}

void HORenderTasks::Add(std::function<void()> job) {
    auto added = std::make_shared<Job>();
    added->work = std::move(job);
    {
        std::lock_guard<std::mutex> lock(m_progress->mutex);
        ++m_progress->unfinished;
    }
    m_jobs.push_back(added);
    // The worker holds the job and the progress: it may come to a job the waiter ran long ago.
    boost::asio::post(workers(), [added, progress = m_progress] { runOnce(*added, *progress); });
}

void HORenderTasks::Wait() {
    for (auto it = m_jobs.rbegin(); it != m_jobs.rend(); ++it) runOnce(**it, *m_progress);
    m_jobs.clear();
    std::unique_lock<std::mutex> lock(m_progress->mutex);
    m_progress->finished.wait(lock, [this] { return m_progress->unfinished == 0; });
}

bool HORenderTasks::InJob() {
    return jobsRunning > 0;
}

void HORenderTasks::runOnce(Job& job, Progress& progress) {
    if (job.claimed.exchange(true)) return;
    ++jobsRunning;
    job.work();
    --jobsRunning;
    job.work = nullptr;  // what it captured goes now, not when the last holder lets go
    std::lock_guard<std::mutex> lock(progress.mutex);
    if (--progress.unfinished == 0) progress.finished.notify_all();
}

}  // namespace HXObjects
