#pragma once
// HOLayerOpening: opening a data source without blocking the GUI. Start() returns at once; the
// source is opened and every layer read on a worker thread (as HODataSource::OpenLayers does), and
// the signals fire on the application object's thread: ProgressSignal as the share read rises,
// FinishedSignal once at the end. Cancel() stops the read within a batch of features; a cancelled
// opening hands out no layer. The worker keeps the opening alive until it has reported the end.
#include <atomic>
#include <functional>
#include <vector>

#include "HOEventSignal.h"
#include "HOLayer.h"
#include "HORefBase.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOLayerOpening : public HORefBase {
public:
    static HORefPtr<HOLayerOpening> Start(const HOString& path);

    HOString GetPath() const;
    // Any thread.
    void Cancel();
    // The rest is for the application object's thread: what the signals have told so far.
    double GetProgress() const;
    bool IsFinished() const;
    bool IsCancelled() const;
    // Once finished: the layers in the source's order (none when cancelled), and one line per
    // layer, or for the file, that could not be read ("cannot open 'x': …").
    std::vector<HORefPtr<HOLayer>> GetLayers() const;
    HOString GetErrors() const;

    HOEventSignal ProgressSignal;  // HOLayerOpeningEvent
    HOEventSignal FinishedSignal;  // HOLayerOpeningEvent

protected:
    ~HOLayerOpening() override;

private:
    explicit HOLayerOpening(const HOString& path);
    void read();
    // Worker: hands the call to the application object's thread.
    void post(std::function<void()> call);
    void report(double progress);
    void finish(std::vector<HORefPtr<HOLayer>> layers, const HOString& errors);

    const HOString m_path;
    std::atomic<bool> m_cancel{false};
    double m_posted = -1;  // worker: the last share posted
    double m_progress = 0;
    bool m_finished = false;
    std::vector<HORefPtr<HOLayer>> m_layers;
    HOString m_errors;
};

}  // namespace HXObjects
