#include "HORect.h"

#include <ogr_core.h>

#include <algorithm>

namespace HXObjects {

HORect::HORect(const OGREnvelope& e) {
    if (e.IsInit()) {
        minx = e.MinX;
        maxx = e.MaxX;
        miny = e.MinY;
        maxy = e.MaxY;
    }
}

HORect HORect::United(const HORect& o) const {
    if (o.IsEmpty()) return *this;
    if (IsEmpty()) return o;
    return {std::min(minx, o.minx), std::max(maxx, o.maxx), std::min(miny, o.miny), std::max(maxy, o.maxy)};
}

OGREnvelope HORect::ToEnvelope() const {
    OGREnvelope e;
    if (!IsEmpty()) {
        e.MinX = minx;
        e.MaxX = maxx;
        e.MinY = miny;
        e.MaxY = maxy;
    }
    return e;
}

}  // namespace HXObjects
