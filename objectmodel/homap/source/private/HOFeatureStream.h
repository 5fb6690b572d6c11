#pragma once
// HOFeatureStream: a feature layer too large to hold in memory, read from its source on demand.
// Each read asks the source for the features meeting an area through the source's own spatial
// index (a GeoPackage's R-tree, a shapefile's .qix when there is one, PostGIS's GiST index, all
// behind OGR's spatial filter) and hands them over in batches, each a small store drawn and
// dropped. Reads on several threads each take their own handle on the source from a pool, so a
// render, an identify and the overview builder never wait for one another. Attributes are never
// read here.
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "source/private/HOFeatureStore.h"

class OGRLayer;

namespace HXObjects {

class HOFeatureStream {
public:
    // Called with each batch; false stops the read.
    using BatchHandler = std::function<bool(const HOFeatureStore&)>;

    // Whether the geometry of the layer would need more than `budget` bytes in memory, judged
    // from its first features and its feature count. A layer that cannot count cheaply is not.
    static bool Exceeds(OGRLayer* layer, std::size_t budget);

    // The layer named `layerName` of the source at `path`; `extent` and `count` as the source
    // reports them.
    HOFeatureStream(std::string path, std::string layerName, const HOBox& extent, std::size_t count);
    ~HOFeatureStream();

    const HOBox& Extent() const { return m_extent; }
    std::size_t FeatureCount() const { return m_count; }
    // Reads the features whose box meets the area, in source order, `batchSize` at a time; false
    // when the handler stopped it or the source cannot be read.
    bool Read(const HOBox& area, std::size_t batchSize, const BatchHandler& handler) const;
    // The ids of the features whose geometry meets the area, in source order.
    std::vector<int64_t> IdsMeeting(const HOBox& area) const;
    // The feature with the id as a store of one feature; null when there is none.
    std::shared_ptr<const HOFeatureStore> Feature(int64_t id) const;

private:
    struct Handle;
    class Lease;
    std::unique_ptr<Handle> open() const;

    const std::string m_path;
    const std::string m_layerName;
    const HOBox m_extent;
    const std::size_t m_count;
    mutable std::mutex m_mutex;  // guards the idle handles
    mutable std::vector<std::unique_ptr<Handle>> m_idle;
};

}  // namespace HXObjects
