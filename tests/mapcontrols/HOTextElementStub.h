#pragma once
// HOTextElementStub: a page element that is not a data frame, for a layout whose operating element
// holds no map.
#include "HOPageLayoutBaseElement.h"

class HOTextElementStub : public HXObjects::HOPageLayoutBaseElement {
public:
    HOTextElementStub() : HOPageLayoutBaseElement(HXObjects::HOElementText) {}
    void draw(QPainter&, const HXObjects::HODisplayTransform&) override {}
};
