#include "source/private/HOOgrGeometryReader.h"

#include <ogrsf_frmts.h>
#include <sys/mman.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <future>
#include <memory>
#include <regex>

#include "source/private/HOFeatureStore.h"
#include "source/private/HOSharedDataset.h"

namespace HXObjects {

namespace {

// Features read between two reports of progress.
constexpr std::size_t kProgressEvery = 4096;
// Layers of at least this many features are read in two halves at once.
constexpr GIntBig kHalvesFrom = 20000;

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
    return Read(layer, progress, Span());
}

bool HOOgrGeometryReader::Read(OGRLayer* layer, const Progress& progress, const Span& span) {
    IgnoreAttributes ignore(layer);
    layer->SetSpatialFilter(nullptr);
    layer->SetAttributeFilter(nullptr);
    const GIntBig total = layer->GetFeatureCount(FALSE);
    const GIntBig size = span.size >= 0 ? span.size
                         : total > 0    ? std::max<GIntBig>(0, total - span.first)
                                        : total;
    if (!span.where.empty() && layer->SetAttributeFilter(span.where.c_str()) != OGRERR_NONE) return false;
    layer->ResetReading();
    const bool read = (span.first == 0 || layer->SetNextByIndex(span.first) == OGRERR_NONE) &&
                      readFeatures(layer, progress, span.count, size, span.room >= 0 ? span.room : size);
    if (!span.where.empty()) layer->SetAttributeFilter(nullptr);
    return read;
}

bool HOOgrGeometryReader::readFeatures(OGRLayer* layer, const Progress& progress, long long count,
                                       long long size, long long room) {
    const std::size_t features = m_boxes.size(), vertices = m_vertices.size();  // read before
    if (room > 0) {
        m_topology.Reserve(features + std::size_t(room));
        m_boxes.reserve(features + std::size_t(room));
        adviseHugePages(m_boxes.data(), m_boxes.capacity() * sizeof(HOBox));
    }
    std::size_t read = 0;
    while (count < 0 || GIntBig(read) < count) {
        const OGRFeatureUniquePtr feature{layer->GetNextFeature()};
        if (!feature) break;
        AppendFeature(feature->GetGeometryRef(), feature->GetFID());
        if (++read == 1024 && room > 0) reserveFor(vertices, std::size_t(room), read);
        if (progress && read % kProgressEvery == 0 &&
            !progress(size > 0 ? std::min(1.0, double(read) / double(size)) : 0.0))
            return false;
    }
    return true;
}

bool HOOgrGeometryReader::halvesOf(OGRLayer* layer, const HOSharedDataset& source, Span halves[2]) {
    const std::string driver = source.dataset->GetDriverName();
    if (!layer->TestCapability(OLCFastFeatureCount)) return false;
    const GIntBig total = layer->GetFeatureCount(FALSE), half = total / 2;
    if (total < kHalvesFrom) return false;
    if (driver == "ESRI Shapefile" && layer->TestCapability(OLCFastSetNextByIndex)) {
        // The first makes room for the second, appended to it.
        halves[0] = {0, half, {}, half, total};
        halves[1] = {half, -1, {}, total - half, -1};
        return true;
    }
    const std::string fid = layer->GetFIDColumn();
    if (driver != "GPKG" || fid.empty()) return false;
    // A GeoPackage reads in the order of its row ids, which are the FIDs: split at the middle one.
    const auto quoted = [](const std::string& name) {
        return '"' + std::regex_replace(name, std::regex("\""), "\"\"") + '"';
    };
    const std::string middle = "SELECT " + quoted(fid) + " FROM " + quoted(layer->GetName()) + " ORDER BY " +
                               quoted(fid) + " LIMIT 1 OFFSET " + std::to_string(half);
    OGRLayer* result = source.dataset->ExecuteSQL(middle.c_str(), nullptr, nullptr);
    if (!result) return false;
    const OGRFeatureUniquePtr row{result->GetNextFeature()};
    const std::string at = row ? std::to_string(row->GetFieldAsInteger64(0)) : std::string();
    source.dataset->ReleaseResultSet(result);
    if (at.empty()) return false;
    halves[0] = {0, -1, quoted(fid) + " < " + at, half, total};
    halves[1] = {0, -1, quoted(fid) + " >= " + at, total - half, -1};
    return true;
}

bool HOOgrGeometryReader::ReadLayer(OGRLayer* layer, const HOSharedDataset& source,
                                    const Progress& progress) {
    Span halves[2];
    if (halvesOf(layer, source, halves) ? !readInHalves(layer, source, halves, progress)
                                        : !Read(layer, progress))
        return false;
    Finish();
    return true;
}

bool HOOgrGeometryReader::readInHalves(OGRLayer* layer, const HOSharedDataset& source, const Span halves[2],
                                       const Progress& progress) {
    const std::string name = layer->GetName();
    const std::string driver = source.dataset->GetDriverName();
    std::atomic<double> secondDone{0.0};
    std::atomic<bool> stop{false};
    HOOgrGeometryReader second;
    // The second half through a dataset of its own: GDAL lets one thread at a time use a dataset.
    auto secondRead = std::async(std::launch::async, [&] {
        const char* const drivers[] = {driver.c_str(), nullptr};
        GDALDatasetUniquePtr again(
            GDALDataset::Open(source.path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers));
        OGRLayer* same = again ? again->GetLayerByName(name.c_str()) : nullptr;
        const auto told = [&](double done) {
            secondDone = done;
            return !stop;
        };
        return same && second.Read(same, told, halves[1]);
    });
    const auto told = [&](double done) {
        if (progress && !progress((done + secondDone) / 2)) stop = true;
        return !stop;
    };
    const bool firstRead = Read(layer, told, halves[0]);
    stop = stop || !firstRead;
    const bool secondReadWell = secondRead.get();
    if (!firstRead) return false;
    if (secondReadWell) {
        Append(second);
        return true;
    }
    // The source would not open again: the rest from here.
    return Read(layer, progress, halves[1]);
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

void HOOgrGeometryReader::Append(const HOOgrGeometryReader& other) {
    m_topology.Append(other.m_topology);
    m_vertices.insert(m_vertices.end(), other.m_vertices.begin(), other.m_vertices.end());
    m_boxes.insert(m_boxes.end(), other.m_boxes.begin(), other.m_boxes.end());
    for (int k = 0; k < 4; ++k) m_kindCounts[k] += other.m_kindCounts[k];
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

void HOOgrGeometryReader::reserveFor(std::size_t before, std::size_t features, std::size_t read) {
    // The first features tell the size of the rest closely enough for data sets of similar features;
    // a little headroom saves the copy a final small overflow would cost.
    const double perFeature = double(m_vertices.size() - before) / double(read);
    m_vertices.reserve(before + std::size_t(perFeature * double(features) * 1.04) + 64);
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
