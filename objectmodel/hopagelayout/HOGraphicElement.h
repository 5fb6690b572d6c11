#pragma once
// HOGraphicElement: a rectangle, an ellipse or a line (corner to corner of its box) drawn on the page
// with a stroke in millimetres and an optional fill.
#include <QColor>

#include "HOPageLayoutBaseElement.h"

namespace HXObjects {

class HOGraphicElement : public HOPageLayoutBaseElement {
public:
    enum Shape { Rectangle = 0, Ellipse = 1, Line = 2 };

    HOGraphicElement();

    Shape get_shape() const { return m_shape; }
    void set_shape(Shape shape) { m_shape = shape; }
    void set_stroke(const QColor& color, double widthMm) {
        m_stroke = color;
        m_strokeMm = widthMm;
    }
    void set_fill(const QColor& color) { m_fill = color; }

    void draw(QPainter& painter, const HOPageRenderContext& context) override;
    QJsonObject properties() const override;
    void set_properties(const QJsonObject& json) override;

protected:
    ~HOGraphicElement() override = default;
    HORefPtr<HOPageLayoutBaseElement> create() const override { return new HOGraphicElement; }

private:
    Shape m_shape = Rectangle;
    QColor m_stroke = Qt::black;
    double m_strokeMm = 0.35;
    QColor m_fill = Qt::transparent;
};

}  // namespace HXObjects
