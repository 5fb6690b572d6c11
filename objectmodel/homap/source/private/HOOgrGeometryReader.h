#pragma once
// HOOgrGeometryReader: reads every geometry of an OGR layer into flat storage. All OGR calls for
// vector geometry happen here. The whole layer is read without a spatial filter (a filter makes some
// drivers slower and can drop features on its edge), attribute fields are skipped, coordinates are
// copied in bulk per ring or path, and vertices that are not finite numbers are dropped.
#include <functional>
#include <string>

#include "source/private/HOFeatureTopology.h"

class OGRLayer;
class OGRGeometry;
class OGRSimpleCurve;

namespace HXObjects {

class HOFeatureStore;
struct HOSharedDataset;

class HOOgrGeometryReader {
public:
    // Told the share read now and then (0..1); when it answers false the read stops, incomplete,
    // and Read is false.
    using Progress = std::function<bool(double done)>;
    // Reads the whole layer of `source` (whose mutex the caller holds) and finishes: a large layer of
    // a GeoPackage or a shapefile in two halves at once, the second through the source opened again.
    bool ReadLayer(OGRLayer* layer, const HOSharedDataset& source, const Progress& progress = nullptr);
    // Which of a layer's features a read takes: those the attribute filter `where` selects (all when
    // empty), from the first-th on, at most `count` of them (-1: all); `first` > 0 wants a layer
    // that moves to a feature by its index quickly (OLCFastSetNextByIndex).
    struct Span {
        long long first = 0;
        long long count = -1;
        std::string where;
        long long size = -1;  // the features it holds, for progress (-1: the layer's from `first` on)
        long long room = -1;  // the features to make room for (-1: `size`)
    };
    // Finish() once all is read.
    // Leaves the layer without attribute filter.
    bool Read(OGRLayer* layer, const Progress& progress, const Span& span);
    bool Read(OGRLayer* layer, const Progress& progress = nullptr);
    // Adds what another reader read after this one's features (before Finish() of either).
    void Append(const HOOgrGeometryReader& other);
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
    // The two halves a large layer of `source` is read in at once; false when it is read whole.
    static bool halvesOf(OGRLayer* layer, const HOSharedDataset& source, Span halves[2]);
    bool readInHalves(OGRLayer* layer, const HOSharedDataset& source, const Span halves[2],
                      const Progress& progress);
    bool readFeatures(OGRLayer* layer, const Progress& progress, long long count, long long size,
                      long long room);
    HOFeatureKind append(const OGRGeometry* geometry);
    void appendCurve(const OGRSimpleCurve* curve, HOFeatureKind kind);
    void endFeature(HOFeatureKind kind, int64_t id);
    // `before`: vertices held before this read; `features` expected in it, `read` so far.
    void reserveFor(std::size_t before, std::size_t features, std::size_t read);

    HOFeatureTopology m_topology;
    std::vector<HOVertex> m_vertices;
    std::vector<HOVertex> m_scratch;  // one ring or path at a time
    std::vector<HOBox> m_boxes;
    HOBox m_box;  // of the feature being read
    std::size_t m_kindCounts[4] = {0, 0, 0, 0};
};

}  // namespace HXObjects
