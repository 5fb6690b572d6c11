#include "source/private/HOFeatureStore.h"

#include <chrono>

#include <algorithm>

namespace HXObjects {

namespace {

HOBox intersection(const HOBox& a, const HOBox& b) {
    HOBox r;
    r.min = {std::max(a.min.x, b.min.x), std::max(a.min.y, b.min.y)};
    r.max = {std::min(a.max.x, b.max.x), std::min(a.max.y, b.max.y)};
    return r;
}

}  // namespace

HOFeatureStore::HOFeatureStore(std::shared_ptr<const HOFeatureTopology> topology,
                               std::vector<HOVertex> vertices, std::vector<HOBox> boxes, Indexing indexing)
    : m_topology(std::move(topology)), m_vertices(std::move(vertices)), m_boxes(std::move(boxes)) {
    if (m_topology->IsSinglePoints())
        std::vector<HOBox>().swap(m_boxes);
    else if (m_boxes.size() != m_topology->FeatureCount())
        computeBoxes();
    computeExtent();
    if (indexing == Indexing::None) return;
    m_indexReady = std::async(std::launch::async, [this] {
                       m_index = std::make_unique<HOFeatureIndex>(
                           m_topology->IsSinglePoints() ? nullptr : &m_boxes, &m_vertices);
                   }).share();
}

HOFeatureStore::~HOFeatureStore() {
    if (m_indexReady.valid()) m_indexReady.wait();
}

void HOFeatureStore::computeBoxes() {
    const HOFeatureTopology& t = *m_topology;
    m_boxes.assign(t.FeatureCount(), HOBox());
    for (std::size_t f = 0; f < t.FeatureCount(); ++f) {
        HOBox& box = m_boxes[f];
        const uint32_t end = t.VertexBegin(t.PartEnd(f));
        for (uint32_t v = t.VertexBegin(t.PartBegin(f)); v < end; ++v) box.Add(m_vertices[v]);
    }
}

void HOFeatureStore::computeExtent() {
    if (m_topology->IsSinglePoints()) {
        for (const HOVertex& v : m_vertices) m_extent.Add(v);
        return;
    }
    for (const HOBox& box : m_boxes) m_extent.Add(box);
}

HOBox HOFeatureStore::FeatureBox(std::size_t feature) const {
    if (!m_boxes.empty()) return m_boxes[feature];
    HOBox box;
    box.Add(m_vertices[feature]);
    return box;
}

bool HOFeatureStore::IsIndexReady() const {
    return !m_indexReady.valid() ||
           m_indexReady.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

std::vector<uint32_t> HOFeatureStore::FeaturesIn(const HOBox& area) const {
    // An area that holds much of the layer is cheaper to scan than to look up, and needs no index.
    if (!m_indexReady.valid() || intersection(area, m_extent).Area() >= 0.25 * m_extent.Area())
        return scanBoxes(area);
    m_indexReady.wait();
    std::vector<uint32_t> hits;
    m_index->Query(area, hits);
    std::sort(hits.begin(), hits.end());
    return hits;
}

std::vector<uint32_t> HOFeatureStore::scanBoxes(const HOBox& area) const {
    std::vector<uint32_t> hits;
    const std::size_t n = FeatureCount();
    hits.reserve(area.Contains(m_extent) ? n : n / 4);
    if (m_boxes.empty()) {
        for (uint32_t f = 0; f < n; ++f) {
            const HOVertex& v = m_vertices[f];
            if (v.x >= area.min.x && v.x <= area.max.x && v.y >= area.min.y && v.y <= area.max.y)
                hits.push_back(f);
        }
        return hits;
    }
    for (uint32_t f = 0; f < n; ++f)
        if (m_boxes[f].IsValid() && m_boxes[f].Intersects(area)) hits.push_back(f);
    return hits;
}

std::size_t HOFeatureStore::GeometryBytes() const {
    return m_vertices.size() * sizeof(HOVertex) + m_boxes.size() * sizeof(HOBox) + m_topology->Bytes();
}

}  // namespace HXObjects
