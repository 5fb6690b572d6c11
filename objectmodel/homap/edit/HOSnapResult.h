#pragma once
// HOSnapResult: where a pointer snapped, and to what: a vertex, a point on a segment, or nothing (the
// point is then the pointer's own map point).
#include "HOPoint.h"
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HOSnapResult {
    enum Kind { None, Vertex, Segment };
    Kind kind = None;
    HOPoint point;

    explicit operator bool() const { return kind != None; }
};

}  // namespace HXObjects
