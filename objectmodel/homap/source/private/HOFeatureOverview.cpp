#include "source/private/HOFeatureOverview.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "source/private/HOFeatureStream.h"

namespace HXObjects {

namespace {

// Small enough that a layer closed meanwhile stops the build within a fraction of a second.
constexpr std::size_t batchSize = 16384;

}  // namespace

HOFeatureOverview::HOFeatureOverview(std::shared_ptr<const HOFeatureStream> stream, std::size_t budget,
                                     double resolution)
    : m_stream(std::move(stream)),
      m_budget(budget),
      m_tolerance(std::max(m_stream->Extent().max.x - m_stream->Extent().min.x,
                           m_stream->Extent().max.y - m_stream->Extent().min.y) /
                  resolution) {
    m_store = std::async(std::launch::async, [this] { return build(); }).share();
}

HOFeatureOverview::~HOFeatureOverview() {
    m_stop = true;
    m_store.wait();
}

bool HOFeatureOverview::IsBuilding() const {
    return m_store.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

std::shared_ptr<const HOFeatureStore> HOFeatureOverview::Store() const {
    return IsBuilding() ? nullptr : m_store.get();
}

std::shared_ptr<const HOFeatureStore> HOFeatureOverview::build() const {
    if (!(m_tolerance > 0)) return nullptr;
    auto topology = std::make_shared<HOFeatureTopology>();
    topology->Reserve(m_stream->FeatureCount());
    std::vector<HOVertex> vertices;
    std::vector<HOBox> boxes;
    boxes.reserve(m_stream->FeatureCount());
    const bool complete = m_stream->Read(m_stream->Extent(), batchSize, [&](const HOFeatureStore& batch) {
        for (std::size_t f = 0; f < batch.FeatureCount(); ++f) {
            appendSimplified(batch, f, *topology, vertices);
            boxes.push_back(batch.FeatureBox(f));
        }
        // The first batch tells the size of the rest closely enough to spare the copies (and the
        // doubled peak) of a growing array.
        if (boxes.size() == batch.FeatureCount())
            vertices.reserve(std::size_t(double(vertices.size()) / double(boxes.size()) *
                                         double(m_stream->FeatureCount()) * 1.1));
        const std::size_t bytes =
            vertices.size() * sizeof(HOVertex) + boxes.capacity() * sizeof(HOBox) + topology->Bytes();
        return !m_stop.load() && bytes <= m_budget;
    });
    if (!complete) return nullptr;
    topology->Compact();  // the vertices are not shrunk to fit: the copy would double the peak
    // Drawn only at scales where a view covers much of the layer, which is scanned faster than
    // looked up: no index, and none of the memory its packing takes.
    return std::make_shared<const HOFeatureStore>(topology, std::move(vertices), std::move(boxes),
                                                  HOFeatureStore::Indexing::None);
}

void HOFeatureOverview::appendSimplified(const HOFeatureStore& batch, std::size_t feature,
                                         HOFeatureTopology& topology, std::vector<HOVertex>& vertices) const {
    const HOFeatureTopology& t = batch.Topology();
    const HOVertex* v = batch.Vertices().data();
    for (uint32_t part = t.PartBegin(feature); part < t.PartEnd(feature); ++part) {
        const uint32_t begin = t.VertexBegin(part), end = t.VertexEnd(part);
        const std::size_t first = vertices.size();
        vertices.push_back(v[begin]);
        for (uint32_t i = begin + 1; i < end; ++i) {
            const HOVertex& last = vertices.back();
            if (i + 1 == end || std::fabs(v[i].x - last.x) > m_tolerance ||
                std::fabs(v[i].y - last.y) > m_tolerance)
                vertices.push_back(v[i]);
        }
        const HOFeatureKind kind = t.PartKind(feature, part);
        if (kind == HOFeatureKind::Polygon && vertices.size() - first < 4) vertices.resize(first + 1);
        topology.EndPart(uint32_t(vertices.size()), kind);
    }
    topology.EndFeature(t.Kind(feature), t.Id(feature));
}

}  // namespace HXObjects
