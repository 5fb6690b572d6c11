#pragma once
// HORasterOverviewBuilder: builds overviews of a raster on a background thread, into the
// application's cache folder (never beside the user's file): a virtual copy of the raster with its
// overview file, named after the file's path, size and time, so a later session finds it and a
// changed file gets new ones. Progress is reported as it goes. Destroying the builder cancels the
// build without waiting for it: the thread finishes on its own and calls back no more.
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace HXObjects {

class HORasterOverviewBuilder {
public:
    using ProgressCallback = std::function<void(double done)>;
    using DoneCallback = std::function<void(const std::string& copy)>;

    // `progress` runs on the building thread as it advances (0..1); `done` when the copy with
    // overviews is ready to open, also on that thread.
    HORasterOverviewBuilder(const std::string& source, bool nearest, ProgressCallback progress,
                            DoneCallback done);
    ~HORasterOverviewBuilder();

    // The copy with overviews built earlier for `source` as it is now; empty when there is none.
    static std::string Cached(const std::string& source);
    // Starts the build the first time; later calls do nothing.
    void Start();
    // -1 before the build starts (or when it failed), 0..1 while it runs, 1 once the copy is ready.
    double Progress() const;

private:
    class Job;
    std::shared_ptr<Job> m_job;  // shared with the building thread, which may outlive the builder
    std::once_flag m_started;
};

}  // namespace HXObjects
