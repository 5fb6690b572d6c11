#pragma once
// HOFeatureOverview: a simplified copy of a streamed layer, kept in memory to draw it at small
// scales without reading the source. Built once, on a thread of its own, from a full read: each
// part keeps only the vertices farther than the tolerance (in x or y) from the last one kept, and
// its last; a ring left with fewer than three corners keeps its first vertex only (a dot). A vertex
// dropped thus lies within the tolerance of a kept one, so at a scale where the tolerance is at most
// a pixel the copy draws within a pixel of the original. Features keep their ids, kinds and exact
// boxes, so what meets an area is the same as in the source. A copy that would exceed its byte
// budget is given up: the layer is then always read from the source.
#include <atomic>
#include <future>
#include <memory>

#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOFeatureStream;

class HOFeatureOverview {
public:
    // Starts building at the tolerance: the larger side of the stream's extent over `resolution`.
    HOFeatureOverview(std::shared_ptr<const HOFeatureStream> stream, std::size_t budget,
                      double resolution = 4096);
    // Stops a build in progress and waits for it.
    ~HOFeatureOverview();

    double Tolerance() const { return m_tolerance; }
    // Null until built, and when given up.
    std::shared_ptr<const HOFeatureStore> Store() const;
    bool IsBuilding() const;

private:
    std::shared_ptr<const HOFeatureStore> build() const;
    void appendSimplified(const HOFeatureStore& batch, std::size_t feature, HOFeatureTopology& topology,
                          std::vector<HOVertex>& vertices) const;

    const std::shared_ptr<const HOFeatureStream> m_stream;
    const std::size_t m_budget;
    const double m_tolerance;
    std::atomic<bool> m_stop{false};
    std::shared_future<std::shared_ptr<const HOFeatureStore>> m_store;
};

}  // namespace HXObjects
