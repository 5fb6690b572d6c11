#pragma once
// HOPageElementDrag: a left-button drag on the page's elements. A press on a handle of a selected
// element resizes that element; a press on an element selects it (keeping the selection when it was
// already selected) and moves every selected element; a press on bare paper clears the selection.
// Owned by the page-layout view; GUI thread only.
#include <QPointF>
#include <vector>

#include "HOPageLayoutBaseElement.h"

namespace HXObjects {

class HOGraphicsContainer;

class HOPageElementDrag {
public:
    // The smallest side an element is resized to, in page units.
    static constexpr double kMinSide = 1.0;

    // True when the press starts a move or a resize.
    bool Begin(HOGraphicsContainer& container, const HOPageRenderContext& context, const QPointF& pixel);
    // True when an element changed.
    bool MoveTo(const HOPageRenderContext& context, const QPointF& pixel);
    void End();
    bool IsActive() const { return !m_elements.empty(); }
    // The elements being resized or moved.
    const std::vector<HORefPtr<HOPageLayoutBaseElement>>& Elements() const { return m_elements; }

    // `bounds` with the handle (HOPageSelectionMarks order) moved by (dx, dy) page units.
    static HORect Resized(const HORect& bounds, int handle, double dx, double dy);

private:
    std::vector<HORefPtr<HOPageLayoutBaseElement>> m_elements;
    std::vector<HORect> m_start;  // their bounds at the press
    HOPoint m_press;              // page point of the press
    int m_handle = -1;            // resizing with this handle; -1: moving
};

}  // namespace HXObjects
