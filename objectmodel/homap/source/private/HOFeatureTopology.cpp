#include "source/private/HOFeatureTopology.h"

#include <algorithm>

namespace HXObjects {

void HOFeatureTopology::EndFeature(HOFeatureKind kind, int64_t id) {
    m_featureStart.push_back(uint32_t(PartCount()));
    addId(id);
    m_kinds.push_back(kind);
}

void HOFeatureTopology::Append(const HOFeatureTopology& other) {
    const uint32_t vertexBase = m_partStart.back();
    const uint32_t partBase = uint32_t(PartCount());
    for (std::size_t part = 1; part < other.m_partStart.size(); ++part)
        m_partStart.push_back(other.m_partStart[part] + vertexBase);
    m_partKinds.insert(m_partKinds.end(), other.m_partKinds.begin(), other.m_partKinds.end());
    for (std::size_t feature = 0; feature < other.m_kinds.size(); ++feature) {
        m_featureStart.push_back(other.m_featureStart[feature + 1] + partBase);
        addId(other.Id(feature));
        m_kinds.push_back(other.m_kinds[feature]);
    }
}

void HOFeatureTopology::addId(int64_t id) {
    if (m_kinds.empty()) m_firstId = id;
    const int64_t expected = m_firstId + int64_t(m_kinds.size());
    if (m_ids.empty() && id != expected) {
        m_ids.reserve(m_kinds.capacity());
        for (int64_t i = m_firstId; i < expected; ++i) m_ids.push_back(i);
    }
    if (!m_ids.empty()) m_ids.push_back(id);
}

void HOFeatureTopology::Compact() {
    const std::size_t n = m_kinds.size();
    m_singlePoints = n > 0 && m_partStart.size() == n + 1 &&
                     std::all_of(m_kinds.begin(), m_kinds.end(),
                                 [](HOFeatureKind k) { return k == HOFeatureKind::Point; });
    if (m_singlePoints) {
        for (std::size_t i = 0; i <= n && m_singlePoints; ++i)
            m_singlePoints = m_partStart[i] == i && m_featureStart[i] == i;
    }
    m_mixed.assign(m_singlePoints ? 0 : n, false);
    for (std::size_t f = 0; f < m_mixed.size(); ++f)
        for (uint32_t part = m_featureStart[f]; part < m_featureStart[f + 1]; ++part)
            if (m_partKinds[part] != m_kinds[f]) m_mixed[f] = true;
    if (std::find(m_mixed.begin(), m_mixed.end(), true) == m_mixed.end()) {
        std::vector<HOFeatureKind>().swap(m_partKinds);
        std::vector<bool>().swap(m_mixed);
    }
    m_partKinds.shrink_to_fit();
    if (m_singlePoints) {
        std::vector<uint32_t>().swap(m_partStart);
        std::vector<uint32_t>().swap(m_featureStart);
    } else {
        m_partStart.shrink_to_fit();
        m_featureStart.shrink_to_fit();
    }
    m_kinds.shrink_to_fit();
    m_ids.shrink_to_fit();
}

long HOFeatureTopology::IndexOf(int64_t id) const {
    if (m_ids.empty()) {
        const int64_t i = id - m_firstId;
        return i >= 0 && i < int64_t(m_kinds.size()) ? long(i) : -1;
    }
    const auto it = std::find(m_ids.begin(), m_ids.end(), id);
    return it == m_ids.end() ? -1 : long(it - m_ids.begin());
}

std::size_t HOFeatureTopology::Bytes() const {
    return (m_partStart.size() + m_featureStart.size()) * sizeof(uint32_t) + m_kinds.size() +
           m_partKinds.size() + m_mixed.size() / 8 + m_ids.size() * sizeof(int64_t);
}

}  // namespace HXObjects
