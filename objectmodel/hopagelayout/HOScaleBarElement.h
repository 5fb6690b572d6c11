#pragma once
// HOScaleBarElement: a scale bar for one data frame — alternating segments of a round ground length
// that fits the element's width, labelled at its ends, with the frame's scale as "1:N" below. It
// reads the frame's scale each time it draws, so it stays true when the map is zoomed.
#include "HOMapSurroundElement.h"

namespace HXObjects {

class HOScaleBarElement : public HOMapSurroundElement {
public:
    HOScaleBarElement();

    void draw(QPainter& painter, const HOPageRenderContext& context) override;

    // The bar's ground length in metres for a frame scale and an element width (mm): 1, 2 or 5 times a
    // power of ten, the longest that fits; 0 when nothing fits.
    static double BarLength(double scaleDenominator, double widthMm);
    // "1:50 000".
    static QString ScaleText(double scaleDenominator);

protected:
    ~HOScaleBarElement() override = default;
    HORefPtr<HOPageLayoutBaseElement> create() const override { return createFor<HOScaleBarElement>(); }
};

}  // namespace HXObjects
