#pragma once
// HOPageLayoutBaseElement: an element placed on a page, positioned by its offset (page units, the
// bottom-left corner) and its size. Page coordinates grow rightwards and upwards from the page's
// bottom-left corner, like map coordinates, so the display transform that maps pixels to map units
// maps pixels to page units too. Each kind draws itself and keeps its own settings in a JSON object
// (its place and size are kept by the document).
#include <QJsonObject>

#include "HOMapElementType.h"
#include "HOPageRenderContext.h"
#include "HORect.h"
#include "HORefBase.h"
#include "HORefPtr.h"
#include "HXExport.h"

class QPainter;

namespace HXObjects {

class HX_EXPORT HOPageLayoutBaseElement : public HORefBase {
public:
    HOMapElementType get_element_type() const { return m_type; }
    double get_off_x() const { return m_offX; }
    double get_off_y() const { return m_offY; }
    virtual void set_off_x(const double& x) { m_offX = x; }
    virtual void set_off_y(const double& y) { m_offY = y; }

    double get_width() const { return m_width; }
    double get_height() const { return m_height; }
    void set_size(double width, double height) {
        m_width = width;
        m_height = height;
    }
    // The element's area on the page (page units, y growing upwards).
    HORect get_bounds() const { return {m_offX, m_offX + m_width, m_offY, m_offY + m_height}; }
    void set_bounds(const HORect& b) {
        set_off_x(b.minx);
        set_off_y(b.miny);
        set_size(b.Width(), b.Height());
    }
    virtual void draw(QPainter& painter, const HOPageRenderContext& context) = 0;

    // The element's own settings; reading ignores what it does not know and keeps its defaults.
    virtual QJsonObject properties() const { return {}; }
    virtual void set_properties(const QJsonObject&) {}
    // A copy with the same settings and bounds (a data frame's copy shares its map); null for an
    // element that cannot be copied.
    virtual HORefPtr<HOPageLayoutBaseElement> clone() const;

protected:
    // A new element of the same kind with its defaults (and the same links to other elements).
    virtual HORefPtr<HOPageLayoutBaseElement> create() const { return {}; }

    explicit HOPageLayoutBaseElement(HOMapElementType type) : m_type(type) {}
    ~HOPageLayoutBaseElement() override = default;

private:
    HOMapElementType m_type;
    double m_offX = 0.0, m_offY = 0.0, m_width = 100.0, m_height = 100.0;
};

}  // namespace HXObjects
