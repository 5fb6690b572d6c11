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
        if (!element->GetLabel().isEmpty()) drawLabel(*context.painter, context.transform, *element);
    }
}

void HOGraphicsLayer::drawLabel(QPainter& painter, const HODisplayTransform& transform,
                                const HOElement& element) {
    const HORect box = element.GetGeometry()->GetEnvelope();
    const HOPoint at = transform.ToDevice(HOPoint(box.maxx, box.maxy));
    const HOColor colour = element.GetStyle() ? element.GetStyle()->GetColor() : HOColor(0, 0, 0);
    painter.save();
    painter.setPen(QColor(colour.getR(), colour.getG(), colour.getB()));
    painter.drawText(QPointF(at.x + 6, at.y - 4), element.GetLabel().toQString());
    painter.restore();
}

int HOGraphicsLayer::AddElement(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style) {
    HORefPtr<HOElement> element = NewElement(std::move(geometry), std::move(style));
    InsertElement(element);
    return element->GetID();
}

HORefPtr<HOElement> HOGraphicsLayer::NewElement(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style,
                                                const HOString& label) {
    std::lock_guard<std::mutex> lock(m_mutex);
    return new HOElement(m_nextId++, std::move(geometry), std::move(style), label);
}

void HOGraphicsLayer::InsertElement(HORefPtr<HOElement> element, int index) {
    if (!element) return;
    std::lock_guard<std::mutex> lock(m_mutex);
    const int count = static_cast<int>(m_elements.size());
    m_elements.insert(m_elements.begin() + (index < 0 || index > count ? count : index), std::move(element));
}

void HOGraphicsLayer::ReplaceElement(HORefPtr<HOElement> element) {
    if (!element) return;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (auto& held : m_elements) {
        if (held->GetID() == element->GetID()) held = element;
    }
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

int HOGraphicsLayer::IndexOf(int id) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        if (m_elements[i]->GetID() == id) return static_cast<int>(i);
    }
    return -1;
}

HORefPtr<HOElement> HOGraphicsLayer::GetElement(int id) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& element : m_elements) {
        if (element->GetID() == id) return element;
    }
    return nullptr;
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

void HOGraphicsLayer::SetSelectedIds(const std::vector<int>& ids) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_selected = std::set<int>(ids.begin(), ids.end());
}

std::vector<HORefPtr<HOElement>> HOGraphicsLayer::GetSelectedElements() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<HORefPtr<HOElement>> result;
    for (const auto& element : m_elements) {
        if (m_selected.count(element->GetID())) result.push_back(element);
    }
    return result;
}

HORefPtr<HOStyle> HOGraphicsLayer::DefaultStyle(HOGeometry::GeoType type) {
    const HOColor red(220, 30, 30);
    switch (type) {
        case HOGeometry::GeoPoint:
        case HOGeometry::GeoMultiPoint:
            return HOStyle::NewMarker(HOStyle::Cross, 12.0, red);
        case HOGeometry::GeoPolygon:
        case HOGeometry::GeoMultiPolygon:
            return HOStyle::NewFill(HOColor(255, 200, 0, 120), red, 2.0);
        default:
            return HOStyle::NewLine(2.0, red);
    }
}

void HOGraphicsLayer::NotifyElementsChanged() {
    HOEvent event;
    ElementsChangedSignal.fire(this, &event);
}

}  // namespace HXObjects
