#include "HOUserFeatureRender.h"

namespace HXObjects {

void HOUserFeatureRender::GetCustomIds(std::vector<int>& ids) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    ids.clear();
    ids.reserve(m_styles.size());
    for (const auto& entry : m_styles) ids.push_back(entry.first);
}

HORefPtr<HOStyle> HOUserFeatureRender::GetFeatureStyle(const int& id) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_styles.find(id);
    return it == m_styles.end() ? HORefPtr<HOStyle>() : it->second;
}

void HOUserFeatureRender::SetFeatureStyle(const int& id, HORefPtr<HOStyle> style) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (style)
        m_styles[id] = std::move(style);
    else
        m_styles.erase(id);
}

void HOUserFeatureRender::RemoveFeatureStyle(const int& id) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_styles.erase(id);
}

bool HOUserFeatureRender::IsEmpty() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_styles.empty();
}

std::map<int, HORefPtr<HOStyle>> HOUserFeatureRender::GetAllStyles() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_styles;
}

}  // namespace HXObjects
