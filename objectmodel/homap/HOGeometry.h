#pragma once
// HOGeometry: a standalone copy of one geometry (points, paths or rings in one coordinate system),
// used for lookups, flashing and tools. Layers keep their own compact storage; this is the exchange
// form. Polygon rings of all parts are filled with the odd-even rule.
#include "HOPoint.h"
#include "HORect.h"
#include "HORefBase.h"
#include "HXExport.h"

#include <vector>

namespace HXObjects {

class HX_EXPORT HOGeometry : public HORefBase {
public:
    enum GeoType {
        GeoUnknown = 0,
        GeoPoint = 1,
        GeoLineString = 2,
        GeoPolygon = 3,
        GeoMultiPoint = 4,
        GeoMultiLineString = 5,
        GeoMultiPolygon = 6,
    };
    using Part = std::vector<HOPoint>;

    explicit HOGeometry(GeoType type = GeoUnknown) : m_type(type) {}

    GeoType GetType() const { return m_type; }
    void SetType(GeoType type) { m_type = type; }
    // Points: one part per point; lines: one part per path; polygons: one part per ring.
    std::vector<Part>& Parts() { return m_parts; }
    const std::vector<Part>& Parts() const { return m_parts; }
    void AddPart(Part part) { m_parts.push_back(std::move(part)); }
    HORect GetEnvelope() const;
    bool IsEmpty() const;
    HOGeometry* Clone() const;

private:
    GeoType m_type;
    std::vector<Part> m_parts;
};

}  // namespace HXObjects
