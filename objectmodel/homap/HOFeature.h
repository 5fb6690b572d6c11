#pragma once
// HOFeature: a copy of one feature of a feature layer: id, geometry and attribute values as text.
#include "HOGeometry.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HXExport.h"

#include <utility>
#include <vector>

namespace HXObjects {

class HX_EXPORT HOFeature : public HORefBase {
public:
    using Attribute = std::pair<HOString, HOString>;  // field name, value as text

    HOFeature(int id, HORefPtr<HOGeometry> geometry, std::vector<Attribute> attributes)
        : m_id(id), m_geometry(std::move(geometry)), m_attributes(std::move(attributes)) {}

    int GetID() const { return m_id; }
    // The feature's own copy; changing it does not change the layer.
    HORefPtr<HOGeometry> GetGeometry() const { return m_geometry; }
    const std::vector<Attribute>& GetAttributes() const { return m_attributes; }

private:
    int m_id;
    HORefPtr<HOGeometry> m_geometry;
    std::vector<Attribute> m_attributes;
};

}  // namespace HXObjects
