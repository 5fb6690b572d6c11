#include "HOGeometry.h"

#include <algorithm>

namespace HXObjects {

HORect HOGeometry::GetEnvelope() const {
    bool first = true;
    HORect box;
    for (const Part& part : m_parts) {
        for (const HOPoint& p : part) {
            if (first) {
                box = HORect(p.x, p.x, p.y, p.y);
                first = false;
                continue;
            }
            box.minx = std::min(box.minx, p.x);
            box.maxx = std::max(box.maxx, p.x);
            box.miny = std::min(box.miny, p.y);
            box.maxy = std::max(box.maxy, p.y);
        }
    }
    return box;
}

bool HOGeometry::IsEmpty() const {
    return std::all_of(m_parts.begin(), m_parts.end(), [](const Part& part) { return part.empty(); });
}

HOGeometry* HOGeometry::Clone() const {
    auto* copy = new HOGeometry(m_type);
    copy->m_parts = m_parts;
    return copy;
}

}  // namespace HXObjects
