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

HOStyle* HOStyle::Clone() const {
    auto* copy = new HOStyle(m_type);
    copy->m_shape = m_shape;
    copy->m_dash = m_dash;
    copy->m_fillPattern = m_fillPattern;
    copy->m_size = m_size;
    copy->m_width = m_width;
    copy->m_casingWidth = m_casingWidth;
    copy->m_opacity = m_opacity;
    copy->m_color = m_color;
    copy->m_outline = m_outline;
    return copy;
}

}  // namespace HXObjects
