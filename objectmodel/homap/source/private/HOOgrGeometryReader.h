#pragma once
// HOOgrGeometryReader: reads every geometry of an OGR layer into flat storage. All OGR calls for
// vector geometry happen here. The whole layer is read without a spatial filter (a filter makes some
// drivers slower and can drop features on its edge), attribute fields are skipped, coordinates are
// copied in bulk per ring or path, and vertices that are not finite numbers are dropped.
#include <functional>

#include "source/private/HOFeatureTopology.h"

class OGRLayer;
class OGRGeometry;
class OGRSimpleCurve;

namespace HXObjects {

class HOFeatureStore;

class HOOgrGeometryReader {
public:
    // Told the share read now and then (0..1); when it answers false the read stops, incomplete,
    // and Read is false.
    using Progress = std::function<bool(double done)>;
    bool Read(OGRLayer* layer, const Progress& progress = nullptr);
    // Makes the layer's reads skip every attribute field (until SetIgnoredFields(nullptr)).
    static void SkipAttributes(OGRLayer* layer);
    // For building a store feature by feature: one feature of OGR geometry (null for none), or a
    // copy of one feature of a store; Finish() once the last is in.
    void AppendFeature(const OGRGeometry* geometry, int64_t id);
    void CopyFeature(const HOFeatureStore& store, std::size_t feature);
    void Finish();

    HOFeatureTopology& Topology() { return m_topology; }
    std::vector<HOVertex>& Vertices() { return m_vertices; }
    // One box per feature, made while reading.
    std::vector<HOBox>& Boxes() { return m_boxes; }
    // The kind most features have (Empty for a layer without geometry).
    HOFeatureKind DominantKind() const;

private:
    HOFeatureKind append(const OGRGeometry* geometry);
    void appendCurve(const OGRSimpleCurve* curve, HOFeatureKind kind);
    void endFeature(HOFeatureKind kind, int64_t id);
    void reserveFor(std::size_t features, std::size_t read);

    HOFeatureTopology m_topology;
    std::vector<HOVertex> m_vertices;
    std::vector<HOVertex> m_scratch;  // one ring or path at a time
    std::vector<HOBox> m_boxes;
    HOBox m_box;  // of the feature being read
    std::size_t m_kindCounts[4] = {0, 0, 0, 0};
};

}  // namespace HXObjects
