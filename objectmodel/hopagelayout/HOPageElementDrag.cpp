#include "HOPageElementDrag.h"

#include <algorithm>

#include "HOGraphicsContainer.h"
#include "HOPageSelectionMarks.h"

namespace HXObjects {

namespace {
constexpr double kPickPixels = 3.0;  // how near the mouse an element's edge is still picked
}

bool HOPageElementDrag::Begin(HOGraphicsContainer& container, const HOPageRenderContext& context,
                              const QPointF& pixel) {
    End();
    m_press = context.transform.ToMap(pixel.x(), pixel.y());
    auto selected = container.GetSelectedElements(true);
    for (auto it = selected.rbegin(); it != selected.rend(); ++it) {
        const int handle = HOPageSelectionMarks::HandleAt(context.ToDevice((*it)->get_bounds()), pixel);
        if (handle < 0) continue;
        m_handle = handle;
        m_elements = {*it};
        m_start = {(*it)->get_bounds()};
        return true;
    }
    const auto hit = container.LocateElements(m_press, kPickPixels * context.transform.unitsPerPixel);
    if (hit.empty()) {
        container.ClearSelection();
        return false;
    }
    const HORefPtr<HOPageLayoutBaseElement>& top = hit.back();
    if (std::find(selected.begin(), selected.end(), top) == selected.end()) {
        container.ClearSelection();
        container.SelectElement(top, true);
        selected = {top};
    }
    m_elements = selected;
    for (const auto& element : m_elements) m_start.push_back(element->get_bounds());
    return true;
}

bool HOPageElementDrag::MoveTo(const HOPageRenderContext& context, const QPointF& pixel) {
    if (!IsActive()) return false;
    const HOPoint at = context.transform.ToMap(pixel.x(), pixel.y());
    const double dx = at.x - m_press.x, dy = at.y - m_press.y;
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        const HORect& b = m_start[i];
        if (m_handle >= 0) {
            m_elements[i]->set_bounds(Resized(b, m_handle, dx, dy));
        } else {
            m_elements[i]->set_off_x(b.minx + dx);
            m_elements[i]->set_off_y(b.miny + dy);
        }
    }
    return true;
}

void HOPageElementDrag::End() {
    m_elements.clear();
    m_start.clear();
    m_handle = -1;
}

HORect HOPageElementDrag::Resized(const HORect& b, int handle, double dx, double dy) {
    // Handles: 0 top-left, 1 top, 2 top-right, 3 right, 4 bottom-right, 5 bottom, 6 bottom-left, 7 left.
    HORect r = b;
    if (handle == 0 || handle == 6 || handle == 7) r.minx = std::min(b.minx + dx, b.maxx - kMinSide);
    if (handle >= 2 && handle <= 4) r.maxx = std::max(b.maxx + dx, b.minx + kMinSide);
    if (handle <= 2) r.maxy = std::max(b.maxy + dy, b.miny + kMinSide);
    if (handle >= 4 && handle <= 6) r.miny = std::min(b.miny + dy, b.maxy - kMinSide);
    return r;
}

}  // namespace HXObjects
