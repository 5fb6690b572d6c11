#pragma once
// Opens a source on a worker thread with a deadline, so that a file that hangs a driver fails its
// test row instead of the whole run. A worker past its deadline is left behind (detached): the row
// has failed and the process ends soon after.
#include <QString>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "HOLayer.h"

struct HOTimedOpen {
    HXObjects::HORefPtr<HXObjects::HOLayer> layer;
    QString error;
    bool finished = false;

    static HOTimedOpen Run(const QString& source, std::chrono::milliseconds deadline) {
        auto promise = std::make_shared<std::promise<HOTimedOpen>>();
        std::future<HOTimedOpen> result = promise->get_future();
        std::thread([promise, source] {
            HOTimedOpen opened;
            HXObjects::HOString error;
            opened.layer = HXObjects::OpenLayer(HXObjects::HOString(source), &error);
            opened.error = error.toQString();
            opened.finished = true;
            promise->set_value(opened);
        }).detach();
        if (result.wait_for(deadline) != std::future_status::ready) return {};
        return result.get();
    }
};
