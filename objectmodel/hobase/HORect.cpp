#include "HORect.h"

#include <algorithm>

namespace HXObjects {

HORect HORect::United(const HORect& o) const {
    if (o.IsEmpty()) return *this;
    if (IsEmpty()) return o;
    return {std::min(minx, o.minx), std::max(maxx, o.maxx), std::min(miny, o.miny), std::max(maxy, o.maxy)};
}

}  // namespace HXObjects
