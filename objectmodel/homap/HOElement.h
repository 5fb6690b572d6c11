#pragma once
// HOElement: a graphic element of a map's graphics layer (a mark, a line or an area drawn by the user
// over the data), with its own id, geometry in map coordinates, style and an optional label drawn
// beside it. Elements are immutable once made: an edit puts a new element with the same id in the
// layer, so a render in progress keeps drawing the one it took.
#include "HOGeometry.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HOStyle.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOElement : public HORefBase {
public:
    HOElement(int id, HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style, HOString label = HOString())
        : m_id(id), m_geometry(std::move(geometry)), m_style(std::move(style)), m_label(std::move(label)) {}

    int GetID() const { return m_id; }
    HORefPtr<HOGeometry> GetGeometry() const { return m_geometry; }
    HORefPtr<HOStyle> GetStyle() const { return m_style; }
    HOString GetLabel() const { return m_label; }
    // The same element (id, style, label) with another geometry.
    HORefPtr<HOElement> WithGeometry(HORefPtr<HOGeometry> geometry) const {
        return new HOElement(m_id, std::move(geometry), m_style, m_label);
    }

private:
    int m_id;
    HORefPtr<HOGeometry> m_geometry;
    HORefPtr<HOStyle> m_style;
    HOString m_label;
};

}  // namespace HXObjects
