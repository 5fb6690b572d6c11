#include "HOGraphicsLayer.h"

#include "HOCoordinateSystem.h"
#include "HORenderContext.h"

namespace HXObjects {

HOGraphicsLayer::HOGraphicsLayer() = default;

HORefPtr<HOCoordinateSystem> HOGraphicsLayer::GetSpatialReference() const { return {}; }

HORect HOGraphicsLayer::GetExtent() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    HORect extent;
    for (const auto& element : m_elements) {
        if (element->GetGeometry()) extent = extent.United(element->GetGeometry()->GetEnvelope());
    }
    return extent;
}

void HOGraphicsLayer::Render(const HORenderContext&) {}

int HOGraphicsLayer::AddElement(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style) {
    std::lock_guard<std::mutex> lock(m_mutex);
    const int id = m_nextId++;
    m_elements.emplace_back(new HOElement(id, std::move(geometry), std::move(style)));
    return id;
}

void HOGraphicsLayer::RemoveElement(int id) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_selected.erase(id);
    for (auto it = m_elements.begin(); it != m_elements.end(); ++it) {
        if ((*it)->GetID() == id) {
            m_elements.erase(it);
            return;
        }
    }
}

std::vector<HORefPtr<HOElement>> HOGraphicsLayer::GetElements() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_elements;
}

std::vector<HORefPtr<HOElement>> HOGraphicsLayer::LocateElements(const HOPoint&, double, HODisplay*) const {
    return {};
}

bool HOGraphicsLayer::IsElementSelected(int id) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_selected.count(id) != 0;
}

void HOGraphicsLayer::SelectElement(int id, bool selected) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (selected)
        m_selected.insert(id);
    else
        m_selected.erase(id);
}

void HOGraphicsLayer::ClearSelection() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_selected.clear();
}

std::vector<int> HOGraphicsLayer::GetSelectedIds() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return {m_selected.begin(), m_selected.end()};
}

}  // namespace HXObjects
