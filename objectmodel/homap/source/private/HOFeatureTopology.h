#pragma once
// HOFeatureTopology: how a feature layer's flat vertex array divides into features and parts, each
// feature's kind and id, and each part's kind where a feature mixes kinds (a geometry collection of a
// point and a line). Read-only once built; shared by the copies of a layer whose parts are the same.
#include "HORect.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace HXObjects {

struct HOVertex {
    double x;
    double y;
};

struct HOBox {
    HOVertex min{INFINITY, INFINITY};
    HOVertex max{-INFINITY, -INFINITY};

    bool IsValid() const { return min.x <= max.x && min.y <= max.y; }
    // A NaN coordinate compares false everywhere and so is left out.
    void Add(const HOVertex& v) {
        if (v.x < min.x) min.x = v.x;
        if (v.x > max.x) max.x = v.x;
        if (v.y < min.y) min.y = v.y;
        if (v.y > max.y) max.y = v.y;
    }
    void Add(const HOBox& b) {
        if (!b.IsValid()) return;
        Add(b.min);
        Add(b.max);
    }
    bool Intersects(const HOBox& o) const {
        return !(o.min.x > max.x || o.max.x < min.x || o.min.y > max.y || o.max.y < min.y);
    }
    bool Contains(const HOBox& o) const {
        return o.min.x >= min.x && o.max.x <= max.x && o.min.y >= min.y && o.max.y <= max.y;
    }
    double Area() const { return IsValid() ? (max.x - min.x) * (max.y - min.y) : 0.0; }
};

// The box with the rectangle's corners.
inline HOBox HOBoxOf(const HORect& r) {
    HOBox box;
    box.min = {r.minx, r.miny};
    box.max = {r.maxx, r.maxy};
    return box;
}

enum class HOFeatureKind : uint8_t { Empty = 0, Point = 1, Line = 2, Polygon = 3 };

class HOFeatureTopology {
public:
    // Builders append a part's vertices, close the part with the new vertex count and its kind (an
    // empty part is dropped), then close the feature.
    void EndPart(uint32_t vertexCount, HOFeatureKind kind) {
        if (vertexCount <= m_partStart.back()) return;
        m_partStart.push_back(vertexCount);
        m_partKinds.push_back(kind);
    }
    void EndFeature(HOFeatureKind kind, int64_t id);
    // Adds the features of another topology built the same way (neither compacted yet), whose
    // vertices follow this one's in the array.
    void Append(const HOFeatureTopology& other);
    void Reserve(std::size_t features) {
        m_kinds.reserve(features);
        m_featureStart.reserve(features + 1);
    }
    std::size_t PartCount() const { return m_partStart.size() - 1; }
    // Drops the offsets when every feature is one point (feature i is vertex i), and the part kinds
    // when every part is of its feature's kind.
    void Compact();

    std::size_t FeatureCount() const { return m_kinds.size(); }
    bool IsSinglePoints() const { return m_singlePoints; }
    HOFeatureKind Kind(std::size_t feature) const { return m_kinds[feature]; }
    // Whether the feature's parts differ in kind; PartKind then tells each one's.
    bool IsMixed(std::size_t feature) const { return !m_partKinds.empty() && m_mixed[feature]; }
    HOFeatureKind PartKind(std::size_t feature, uint32_t part) const {
        return m_partKinds.empty() ? m_kinds[feature] : m_partKinds[part];
    }
    uint32_t PartBegin(std::size_t feature) const {
        return m_singlePoints ? uint32_t(feature) : m_featureStart[feature];
    }
    uint32_t PartEnd(std::size_t feature) const {
        return m_singlePoints ? uint32_t(feature + 1) : m_featureStart[feature + 1];
    }
    uint32_t VertexBegin(uint32_t part) const { return m_singlePoints ? part : m_partStart[part]; }
    uint32_t VertexEnd(uint32_t part) const { return m_singlePoints ? part + 1 : m_partStart[part + 1]; }

    int64_t Id(std::size_t feature) const {
        return m_ids.empty() ? m_firstId + int64_t(feature) : m_ids[feature];
    }
    // The feature with the id, or -1.
    long IndexOf(int64_t id) const;
    std::size_t Bytes() const;

private:
    std::vector<uint32_t> m_partStart{0};     // first vertex of each part, then the vertex count
    std::vector<uint32_t> m_featureStart{0};  // first part of each feature, then the part count
    std::vector<HOFeatureKind> m_kinds;
    std::vector<HOFeatureKind> m_partKinds;  // per part; kept only when some feature mixes kinds
    std::vector<bool> m_mixed;               // per feature, with m_partKinds
    // Ids are the source's FIDs; most sources number them consecutively, which needs no array.
    int64_t m_firstId = 0;
    std::vector<int64_t> m_ids;
    bool m_singlePoints = false;

    void addId(int64_t id);
};

}  // namespace HXObjects
