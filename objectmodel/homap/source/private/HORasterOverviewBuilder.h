#pragma once
// HORasterOverviewBuilder: builds overviews of a raster on its own thread, into the application's
// cache folder (never beside the user's file): a virtual copy of the raster with its overview file,
// named after the file's path, size and time, so a later session finds it and a changed file gets
// new ones. Progress is reported as it goes; destroying the builder cancels and waits for the thread.
#include <cpl_port.h>

#include <QString>
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

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
    // -1 before the build starts (or when it failed), then 0..1.
    double Progress() const { return m_progress.load(); }

private:
    static QString cacheFolder(const std::string& source);
    static int CPL_STDCALL advance(double done, const char*, void* builder);
    bool build(const QString& folder);
    void run();

    const std::string m_source;
    const bool m_nearest;
    ProgressCallback m_onProgress;
    DoneCallback m_onDone;
    std::atomic<bool> m_cancel{false};
    std::atomic<double> m_progress{-1};
    std::once_flag m_started;
    std::thread m_thread;
};

}  // namespace HXObjects
