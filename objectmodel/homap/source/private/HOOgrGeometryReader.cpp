#include "source/private/HOOgrGeometryReader.h"

#include <ogrsf_frmts.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "source/private/HOFeatureStore.h"

namespace HXObjects {

namespace {

// Features read between two reports of progress.
constexpr std::size_t kProgressEvery = 4096;

// Skips every attribute field while reading and restores them on leaving.
class IgnoreAttributes {
public:
    explicit IgnoreAttributes(OGRLayer* layer) : m_layer(layer) {
        HOOgrGeometryReader::SkipAttributes(layer);
    }
    ~IgnoreAttributes() { m_layer->SetIgnoredFields(nullptr); }

private:
    OGRLayer* m_layer;
};

HOFeatureKind kindOf(OGRwkbGeometryType type) {
    switch (wkbFlatten(type)) {
        case wkbPoint:
        case wkbMultiPoint:
            return HOFeatureKind::Point;
        case wkbLineString:
        case wkbMultiLineString:
            return HOFeatureKind::Line;
        case wkbPolygon:
        case wkbMultiPolygon:
            return HOFeatureKind::Polygon;
        default:
            return HOFeatureKind::Empty;
    }
}

bool finite(const HOVertex& v) {
    return std::isfinite(v.x) && std::isfinite(v.y);
}

// Asks the kernel to back the whole 2 MiB pages of a large array with huge pages: filling a few
// hundred megabytes of vertices otherwise costs a page fault every 4 KiB.
void adviseHugePages(const void* data, std::size_t bytes) {
    constexpr std::uintptr_t huge = std::uintptr_t(2) << 20;
    const std::uintptr_t first = (reinterpret_cast<std::uintptr_t>(data) + huge - 1) & ~(huge - 1);
    const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(data) + bytes) & ~(huge - 1);
    if (end > first) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
}

}  // namespace

void HOOgrGeometryReader::SkipAttributes(OGRLayer* layer) {
    CPLStringList names;
    OGRFeatureDefn* defn = layer->GetLayerDefn();
    for (int i = 0; i < defn->GetFieldCount(); ++i) names.AddString(defn->GetFieldDefn(i)->GetNameRef());
    names.AddString("OGR_STYLE");
    layer->SetIgnoredFields(const_cast<const char**>(names.List()));
}

bool HOOgrGeometryReader::Read(OGRLayer* layer, const Progress& progress) {
    IgnoreAttributes ignore(layer);
    layer->SetSpatialFilter(nullptr);
    layer->SetAttributeFilter(nullptr);
    layer->ResetReading();
    const GIntBig expected = layer->GetFeatureCount(FALSE);
    if (expected > 0) {
        m_topology.Reserve(std::size_t(expected));
        m_boxes.reserve(std::size_t(expected));
        adviseHugePages(m_boxes.data(), m_boxes.capacity() * sizeof(HOBox));
    }
    std::size_t count = 0;
    while (OGRFeatureUniquePtr feature{layer->GetNextFeature()}) {
        AppendFeature(feature->GetGeometryRef(), feature->GetFID());
        if (++count == 1024 && expected > 0) reserveFor(std::size_t(expected), count);
        if (progress && count % kProgressEvery == 0 &&
            !progress(expected > 0 ? std::min(1.0, double(count) / double(expected)) : 0.0))
            return false;
    }
    Finish();
    return true;
}

void HOOgrGeometryReader::AppendFeature(const OGRGeometry* geometry, int64_t id) {
    const HOFeatureKind kind = geometry ? append(geometry) : HOFeatureKind::Empty;
    endFeature(kind, id);
}

void HOOgrGeometryReader::CopyFeature(const HOFeatureStore& store, std::size_t feature) {
    const HOFeatureTopology& t = store.Topology();
    const HOVertex* v = store.Vertices().data();
    for (uint32_t part = t.PartBegin(feature); part < t.PartEnd(feature); ++part) {
        m_vertices.insert(m_vertices.end(), v + t.VertexBegin(part), v + t.VertexEnd(part));
        m_topology.EndPart(uint32_t(m_vertices.size()), t.PartKind(feature, part));
    }
    m_box = store.FeatureBox(feature);
    endFeature(t.Kind(feature), t.Id(feature));
}

void HOOgrGeometryReader::endFeature(HOFeatureKind kind, int64_t id) {
    m_topology.EndFeature(kind, id);
    m_boxes.push_back(m_box);
    m_box = HOBox();
    ++m_kindCounts[int(kind)];
}

void HOOgrGeometryReader::Finish() {
    m_topology.Compact();
    // Copying the array is only worth it when much of it would stand empty.
    if (m_vertices.capacity() > m_vertices.size() + m_vertices.size() / 8) m_vertices.shrink_to_fit();
}

void HOOgrGeometryReader::reserveFor(std::size_t features, std::size_t read) {
    // The first features tell the size of the rest closely enough for data sets of similar features;
    // a little headroom saves the copy a final small overflow would cost.
    const double perFeature = double(m_vertices.size()) / double(read);
    m_vertices.reserve(std::size_t(perFeature * double(features) * 1.04) + 64);
    adviseHugePages(m_vertices.data(), m_vertices.capacity() * sizeof(HOVertex));
}

HOFeatureKind HOOgrGeometryReader::DominantKind() const {
    const auto best = std::max_element(std::begin(m_kindCounts) + 1, std::end(m_kindCounts));
    return *best == 0 ? HOFeatureKind::Empty : HOFeatureKind(best - std::begin(m_kindCounts));
}

HOFeatureKind HOOgrGeometryReader::append(const OGRGeometry* geometry) {
    const OGRwkbGeometryType type = wkbFlatten(geometry->getGeometryType());
    if (OGR_GT_IsNonLinear(type)) {
        std::unique_ptr<OGRGeometry> linear(geometry->getLinearGeometry());
        return linear ? append(linear.get()) : HOFeatureKind::Empty;
    }
    switch (type) {
        case wkbPoint: {
            const auto* point = geometry->toPoint();
            const HOVertex v{point->getX(), point->getY()};
            if (point->IsEmpty() || !finite(v)) return HOFeatureKind::Empty;
            m_vertices.push_back(v);
            m_box.Add(v);
            m_topology.EndPart(uint32_t(m_vertices.size()), HOFeatureKind::Point);
            return HOFeatureKind::Point;
        }
        case wkbLineString:
        case wkbLinearRing:
            appendCurve(geometry->toSimpleCurve(), HOFeatureKind::Line);
            return HOFeatureKind::Line;
        case wkbPolygon:
            for (const OGRLinearRing* ring : *geometry->toPolygon())
                appendCurve(ring, HOFeatureKind::Polygon);
            return HOFeatureKind::Polygon;
        default:
            break;
    }
    if (!OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) return HOFeatureKind::Empty;
    // A collection is of its first member's kind; each member's parts keep their own.
    HOFeatureKind kind = kindOf(type);
    for (const OGRGeometry* member : *geometry->toGeometryCollection()) {
        const HOFeatureKind memberKind = append(member);
        if (kind == HOFeatureKind::Empty) kind = memberKind;
    }
    return kind;
}

void HOOgrGeometryReader::appendCurve(const OGRSimpleCurve* curve, HOFeatureKind kind) {
    // Through a reused buffer that stays in cache, so the layer's array is written once, finite
    // vertices only.
    m_scratch.resize(std::size_t(curve->getNumPoints()));
    static_assert(sizeof(OGRRawPoint) == sizeof(HOVertex), "vertices are copied as OGR raw points");
    curve->getPoints(reinterpret_cast<OGRRawPoint*>(m_scratch.data()));
    const std::size_t first = m_vertices.size();
    if (std::all_of(m_scratch.begin(), m_scratch.end(), finite))
        m_vertices.insert(m_vertices.end(), m_scratch.begin(), m_scratch.end());
    else
        std::copy_if(m_scratch.begin(), m_scratch.end(), std::back_inserter(m_vertices), finite);
    for (std::size_t i = first; i < m_vertices.size(); ++i) m_box.Add(m_vertices[i]);
    m_topology.EndPart(uint32_t(m_vertices.size()), kind);
}

}  // namespace HXObjects
