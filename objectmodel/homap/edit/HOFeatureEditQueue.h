#pragma once
// HOFeatureEditQueue: where feature edits are written, so that the GUI thread never waits for a
// write. Work for one layer runs on a worker thread strictly in the order it was submitted (one
// strand per layer over a small shared pool; different layers may write at once), and each
// outcome is handed back on the application object's thread, in the same order. Pending writes are
// finished, not dropped, when the program ends.
#include <functional>
#include <vector>

#include "HOFeatureChange.h"
#include "HOFeatureLayer.h"

namespace HXObjects {

class HOFeatureEditQueue {
public:
    struct Outcome {
        bool written = false;
        std::vector<HOFeatureChange> changes;  // as written: added features carry their ids
        HOString error;                        // why not, when refused
    };
    using Work = std::function<Outcome()>;
    using Done = std::function<void(const Outcome&)>;

    // Runs `work` on a worker after the work submitted for the layer before, then `done` with its
    // outcome on the application object's thread. Call on that thread.
    static void Submit(HOFeatureLayer* layer, Work work, Done done);
    // Work submitted whose outcome has not been handed back yet.
    static int Pending();
};

}  // namespace HXObjects
