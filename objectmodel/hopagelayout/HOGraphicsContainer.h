#pragma once
// HOGraphicsContainer: the elements of a page in drawing order, with their selection.
#include <mutex>
#include <vector>

#include "HOPageLayoutBaseElement.h"
#include "HOPoint.h"
#include "HORefPtr.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOGraphicsContainer {
public:
    void AddElement(HOPageLayoutBaseElement* element);
    void RemoveElement(HOPageLayoutBaseElement* element);
    std::vector<HORefPtr<HOPageLayoutBaseElement>> GetElements() const;
    // Elements whose area contains the point (page units) grown by the tolerance, in drawing order.
    std::vector<HORefPtr<HOPageLayoutBaseElement>> LocateElements(const HOPoint& point,
                                                                  const double& tolerance) const;
    // The selected elements (the argument is kept for callers that pass it; it has no effect).
    std::vector<HORefPtr<HOPageLayoutBaseElement>> GetSelectedElements(bool all) const;
    void SelectElement(HOPageLayoutBaseElement* element, bool selected);
    void SelectAll();
    void ClearSelection();
    // Drawing order: the element goes to the index (clamped; the last is drawn on top).
    void MoveElement(HOPageLayoutBaseElement* element, int index);

private:
    mutable std::mutex m_mutex;
    std::vector<HORefPtr<HOPageLayoutBaseElement>> m_elements;
    std::vector<HOPageLayoutBaseElement*> m_selected;
};

}  // namespace HXObjects
