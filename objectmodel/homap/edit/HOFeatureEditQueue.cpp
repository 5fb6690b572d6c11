#include "HOFeatureEditQueue.h"

#include <QCoreApplication>
#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/thread_pool.hpp>
#include <map>
#include <memory>

namespace HXObjects {

namespace {

using Strand = boost::asio::strand<boost::asio::thread_pool::executor_type>;

// The writers' threads. At exit the work still queued is written before the threads end.
struct Writers {
    boost::asio::thread_pool pool{2};
    ~Writers() { pool.join(); }
};

boost::asio::thread_pool& Pool() {
    static Writers writers;
    return writers.pool;
}

// Touched on the application's thread only.
int g_pending = 0;
std::map<const HOFeatureLayer*, std::weak_ptr<Strand>> g_strands;

// The layer's strand; a new one when all work for a layer of that address is done, as that layer
// may be gone (work in flight keeps its layer alive, so the address cannot be reused meanwhile).
std::shared_ptr<Strand> StrandFor(const HOFeatureLayer* layer) {
    for (auto it = g_strands.begin(); it != g_strands.end();)
        it = it->second.expired() ? g_strands.erase(it) : ++it;
    std::shared_ptr<Strand> strand = g_strands[layer].lock();
    if (!strand) {
        strand = std::make_shared<Strand>(boost::asio::make_strand(Pool().get_executor()));
        g_strands[layer] = strand;
    }
    return strand;
}

}  // namespace

void HOFeatureEditQueue::Submit(HOFeatureLayer* layer, Work work, Done done) {
    ++g_pending;
    std::shared_ptr<Strand> strand = StrandFor(layer);
    boost::asio::post(*strand, [strand, keep = HORefPtr<HOFeatureLayer>(layer), work = std::move(work),
                                done = std::move(done)]() mutable {
        Outcome outcome = work();
        // Queued events of one sender arrive in order, so outcomes come back as the writes ran.
        if (QCoreApplication* app = QCoreApplication::instance())
            QMetaObject::invokeMethod(
                app,
                [done = std::move(done), outcome = std::move(outcome)] {
                    --g_pending;
                    if (done) done(outcome);
                },
                Qt::QueuedConnection);
    });
}

int HOFeatureEditQueue::Pending() {
    return g_pending;
}

}  // namespace HXObjects
