#pragma once
// HOPageLayoutBaseElement: an element placed on a page, positioned by its offset (page units, the
// bottom-left corner) and its size. Page coordinates grow rightwards and upwards from the page's
// bottom-left corner, like map coordinates, so the display transform that maps pixels to map units
// maps pixels to page units too.
#include "HOMapElementType.h"
#include "HORect.h"
#include "HORefBase.h"

class QPainter;

namespace HXObjects {

struct HODisplayTransform;

class HOPageLayoutBaseElement : public HORefBase {
public:
    HOMapElementType get_element_type() const { return m_type; }
    double get_off_x() const { return m_offX; }
    double get_off_y() const { return m_offY; }
    virtual void set_off_x(const double& x) { m_offX = x; }
    virtual void set_off_y(const double& y) { m_offY = y; }

    double get_width() const { return m_width; }
    double get_height() const { return m_height; }
    void set_size(double width, double height) { m_width = width; m_height = height; }
    // The element's area on the page (page units, y growing upwards).
    HORect get_bounds() const { return {m_offX, m_offX + m_width, m_offY, m_offY + m_height}; }
    // Draws the element; `pageToPixels` maps page units to surface pixels.
    virtual void draw(QPainter& painter, const HODisplayTransform& pageToPixels) = 0;

protected:
    explicit HOPageLayoutBaseElement(HOMapElementType type) : m_type(type) {}
    ~HOPageLayoutBaseElement() override = default;

private:
    HOMapElementType m_type;
    double m_offX = 0.0, m_offY = 0.0, m_width = 100.0, m_height = 100.0;
};

}  // namespace HXObjects
