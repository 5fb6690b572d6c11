#pragma once
// HONorthArrowElement: an arrow pointing to the top of the page, half black and half white, with "N".
#include "HOPageLayoutBaseElement.h"

namespace HXObjects {

class HONorthArrowElement : public HOPageLayoutBaseElement {
public:
    HONorthArrowElement();
    void draw(QPainter& painter, const HOPageRenderContext& context) override;

protected:
    ~HONorthArrowElement() override = default;
    HORefPtr<HOPageLayoutBaseElement> create() const override { return new HONorthArrowElement; }
};

}  // namespace HXObjects
