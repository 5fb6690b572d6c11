#pragma once
// HOVertexHandle: one vertex of a graphic element that the selection tool shows as a handle and lets
// a person drag: finding the handle under a pixel, drawing the handles, and the element's geometry
// with that vertex moved (a ring's first and closing vertex move together).
#include <vector>

#include "HODisplayTransform.h"
#include "HOElement.h"

class QPainter;

namespace HXObjects {

struct HOVertexHandle {
    HORefPtr<HOElement> element;
    int part = -1;
    int vertex = -1;

    explicit operator bool() const { return bool(element); }

    // The handle within `pixels` of the device point, nearest first; none when there is none.
    static HOVertexHandle At(const std::vector<HORefPtr<HOElement>>& elements, const HOPoint& device,
                             const HODisplayTransform& transform, double pixels);
    static void Draw(QPainter& painter, const HODisplayTransform& transform,
                     const std::vector<HORefPtr<HOElement>>& elements);
    // The element's geometry with this vertex at `to`.
    HORefPtr<HOGeometry> Moved(const HOPoint& to) const;

    // Half the side of a drawn handle, pixels.
    static constexpr double kHalfSize = 3.5;
};

}  // namespace HXObjects
