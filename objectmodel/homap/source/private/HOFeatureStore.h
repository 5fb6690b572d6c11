#pragma once
// HOFeatureStore: the geometry of a feature layer in one coordinate system, as flat arrays — all
// vertices in one vector, parts and features as offsets into it, one box per feature — so a layer of
// a million features holds no per-feature heap object. A reprojected copy shares the source's
// topology (offsets, kinds, ids) when its parts are the same; one cut to what its system can show
// has its own, with the same features in the same order.
#include <future>
#include <memory>
#include <vector>

#include "source/private/HOFeatureIndex.h"
#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOFeatureStore {
public:
    // Whether a store packs a spatial index: a short-lived one (a batch read for one render) is
    // only ever scanned.
    enum class Indexing { Packed, None };

    // `boxes`: one per feature when the caller has them already (none for single points);
    // computed from the vertices when empty.
    HOFeatureStore(std::shared_ptr<const HOFeatureTopology> topology, std::vector<HOVertex> vertices,
                   std::vector<HOBox> boxes = {}, Indexing indexing = Indexing::Packed);
    ~HOFeatureStore();

    const HOFeatureTopology& Topology() const { return *m_topology; }
    std::shared_ptr<const HOFeatureTopology> SharedTopology() const { return m_topology; }
    const std::vector<HOVertex>& Vertices() const { return m_vertices; }
    std::size_t FeatureCount() const { return m_topology->FeatureCount(); }
    HOBox FeatureBox(std::size_t feature) const;
    const HOBox& Extent() const { return m_extent; }

    // True once the spatial index is packed (FeaturesIn of a small area no longer waits for it).
    bool IsIndexReady() const;
    // Indices of the features whose box meets the area, ascending (draw order).
    std::vector<uint32_t> FeaturesIn(const HOBox& area) const;
    // Bytes of geometry held: vertices, offsets, boxes and kinds (the index aside).
    std::size_t GeometryBytes() const;

private:
    void computeBoxes();
    void computeExtent();
    std::vector<uint32_t> scanBoxes(const HOBox& area) const;

    std::shared_ptr<const HOFeatureTopology> m_topology;
    std::vector<HOVertex> m_vertices;
    std::vector<HOBox> m_boxes;  // empty when every feature is a single point
    HOBox m_extent;
    // The index is packed on another thread once the geometry is in memory; a query that needs it
    // before it is ready waits, one that covers most of the layer scans the boxes instead.
    std::unique_ptr<HOFeatureIndex> m_index;
    std::shared_future<void> m_indexReady;
};

}  // namespace HXObjects
