#include "HOStyle.h"

namespace HXObjects {

HORefPtr<HOStyle> HOStyle::NewMarker(MarkerShape shape, double size, const HOColor& color) {
    HORefPtr<HOStyle> style(new HOStyle(MarkerStyle));
    style->SetMarkerShape(shape);
    style->SetSize(size);
    style->SetColor(color);
    return style;
}

HORefPtr<HOStyle> HOStyle::NewLine(double width, const HOColor& color, DashPattern dash) {
    HORefPtr<HOStyle> style(new HOStyle(LineStyle));
    style->SetWidth(width);
    style->SetColor(color);
    style->SetDash(dash);
    return style;
}

HORefPtr<HOStyle> HOStyle::NewFill(const HOColor& fill, const HOColor& outline, double outlineWidth) {
    HORefPtr<HOStyle> style(new HOStyle(FillStyle));
    style->SetColor(fill);
    style->SetOutlineColor(outline);
    style->SetWidth(outlineWidth);
    return style;
}

}  // namespace HXObjects
