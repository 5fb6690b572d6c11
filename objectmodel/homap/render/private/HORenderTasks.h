#pragma once
// HORenderTasks: a group of drawing jobs run on the process's render workers (a pool of one thread
// per core, shared by every view and layer), waited for together. Wait() runs on the waiting thread
// itself each job no worker has started yet, so a job may add and wait for jobs of its own (a large
// layer drawn in parts) without ever waiting for workers that are all busy waiting too.
//
// Add and Wait are called by one thread, the owner; the jobs run on any thread.
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace HXObjects {

class HORenderTasks {
public:
    HORenderTasks() = default;
    ~HORenderTasks();  // waits
    HORenderTasks(const HORenderTasks&) = delete;
    HORenderTasks& operator=(const HORenderTasks&) = delete;

    void Add(std::function<void()> job);
    // Returns once every job added has run.
    void Wait();
    // True on a thread while it runs a job (of any group).
    static bool InJob();

private:
    struct Job;
    struct Progress {
        std::mutex mutex;
        std::condition_variable finished;
        int unfinished = 0;
    };
    static void runOnce(Job& job, Progress& progress);

    std::shared_ptr<Progress> m_progress = std::make_shared<Progress>();
    std::vector<std::shared_ptr<Job>> m_jobs;
};

}  // namespace HXObjects
