#include "HOGraphicsContainer.h"

#include <algorithm>

namespace HXObjects {

void HOGraphicsContainer::AddElement(HOPageLayoutBaseElement* element) {
    if (!element) return;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (std::find(m_elements.begin(), m_elements.end(), element) == m_elements.end())
        m_elements.emplace_back(element);
}

void HOGraphicsContainer::RemoveElement(HOPageLayoutBaseElement* element) {
    HORefPtr<HOPageLayoutBaseElement> removed;  // released after the lock
    std::lock_guard<std::mutex> lock(m_mutex);
    m_selected.erase(std::remove(m_selected.begin(), m_selected.end(), element), m_selected.end());
    const auto it = std::find(m_elements.begin(), m_elements.end(), element);
    if (it == m_elements.end()) return;
    removed = *it;
    m_elements.erase(it);
}

std::vector<HORefPtr<HOPageLayoutBaseElement>> HOGraphicsContainer::GetElements() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_elements;
}

std::vector<HORefPtr<HOPageLayoutBaseElement>> HOGraphicsContainer::LocateElements(
    const HOPoint& point, const double& tolerance) const {
    std::vector<HORefPtr<HOPageLayoutBaseElement>> found;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& element : m_elements) {
        const HORect b = element->get_bounds();
        const HORect grown(b.minx - tolerance, b.maxx + tolerance, b.miny - tolerance, b.maxy + tolerance);
        if (grown.Contains(point)) found.push_back(element);
    }
    return found;
}

std::vector<HORefPtr<HOPageLayoutBaseElement>> HOGraphicsContainer::GetSelectedElements(bool) const {
    std::vector<HORefPtr<HOPageLayoutBaseElement>> selected;
    std::lock_guard<std::mutex> lock(m_mutex);
    // In drawing order, whatever order they were selected in.
    for (const auto& element : m_elements) {
        if (std::find(m_selected.begin(), m_selected.end(), element.get()) != m_selected.end())
            selected.push_back(element);
    }
    return selected;
}

void HOGraphicsContainer::SelectElement(HOPageLayoutBaseElement* element, bool selected) {
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = std::find(m_selected.begin(), m_selected.end(), element);
    if (selected && it == m_selected.end() &&
        std::find(m_elements.begin(), m_elements.end(), element) != m_elements.end())
        m_selected.push_back(element);
    else if (!selected && it != m_selected.end())
        m_selected.erase(it);
}

void HOGraphicsContainer::SelectAll() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_selected.clear();
    for (const auto& element : m_elements) m_selected.push_back(element.get());
}

void HOGraphicsContainer::MoveElement(HOPageLayoutBaseElement* element, int index) {
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = std::find(m_elements.begin(), m_elements.end(), element);
    if (it == m_elements.end()) return;
    HORefPtr<HOPageLayoutBaseElement> moved = *it;
    m_elements.erase(it);
    m_elements.insert(m_elements.begin() + std::clamp(index, 0, int(m_elements.size())), moved);
}

void HOGraphicsContainer::ClearSelection() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_selected.clear();
}

}  // namespace HXObjects
