#include "HOGraphicsLayer.h"

#include <QPainter>

#include "HOCoordinateSystem.h"
#include "HODisplay.h"
#include "HOGeometryHit.h"
#include "HOGeometryPainter.h"
#include "HORenderContext.h"

namespace HXObjects {

HOGraphicsLayer::HOGraphicsLayer() = default;

HORefPtr<HOCoordinateSystem> HOGraphicsLayer::GetSpatialReference() const {
    return {};
}

HORect HOGraphicsLayer::GetExtent() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    HORect extent;
    for (const auto& element : m_elements) {
        if (element->GetGeometry()) extent = extent.United(element->GetGeometry()->GetEnvelope());
    }
    return extent;
}

void HOGraphicsLayer::Render(const HORenderContext& context) {
    if (!context.painter) return;
    std::vector<HORefPtr<HOElement>> elements;
    std::set<int> selected;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        elements = m_elements;
        selected = m_selected;
    }
    HOGeometryPainter painter(*context.painter, context.transform);
    for (const auto& element : elements) {
        const HORefPtr<HOGeometry> geometry = element->GetGeometry();
        if (!geometry || !geometry->GetEnvelope().Intersects(context.extent)) continue;
        painter.Draw(*geometry, element->GetStyle().get());
        if (selected.count(element->GetID())) painter.DrawHighlight(*geometry, QColor(0, 255, 255), 2.0);
    }
}

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

std::vector<HORefPtr<HOElement>> HOGraphicsLayer::LocateElements(const HOPoint& point, double tolerance,
                                                                 HODisplay* display) const {
    const double unitsPerPixel = display ? display->GetDisplayTransform().unitsPerPixel : 0.0;
    const std::vector<HORefPtr<HOElement>> elements = GetElements();
    std::vector<HORefPtr<HOElement>> found;
    for (auto it = elements.rbegin(); it != elements.rend(); ++it) {
        const HORefPtr<HOGeometry> geometry = (*it)->GetGeometry();
        if (!geometry) continue;
        // A marker is hit anywhere on its symbol, which the display gives the size of.
        const HORefPtr<HOStyle> style = (*it)->GetStyle();
        const bool marker = style && style->GetStyleType() == HOStyle::MarkerStyle;
        const double reach = tolerance + (marker ? style->GetSize() / 2.0 * unitsPerPixel : 0.0);
        if (HOGeometryHit::Distance(*geometry, point) <= reach) found.push_back(*it);
    }
    return found;
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
