#pragma once
// HOElement: a graphic element of a map's graphics layer (a mark, a line or an area drawn by the user
// over the data), with its own id, geometry in map coordinates, and style.
#include "HOGeometry.h"
#include "HORefPtr.h"
#include "HOStyle.h"

namespace HXObjects {

class HOElement : public HORefBase {
public:
    HOElement(int id, HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style)
        : m_id(id), m_geometry(std::move(geometry)), m_style(std::move(style)) {}

    int GetID() const { return m_id; }
    HORefPtr<HOGeometry> GetGeometry() const { return m_geometry; }
    HORefPtr<HOStyle> GetStyle() const { return m_style; }

private:
    int m_id;
    HORefPtr<HOGeometry> m_geometry;
    HORefPtr<HOStyle> m_style;
};

}  // namespace HXObjects
