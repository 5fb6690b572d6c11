#include "HOStyle.h"

namespace HXObjects {

namespace {

// Tableau 10: hues that stay apart for most readers, colour-blind ones included.
const QRgb palette[] = {0x4e79a7, 0xf28e2b, 0xe15759, 0x76b7b2, 0x59a14f,
                        0xedc948, 0xb07aa1, 0xff9da7, 0x9c755f, 0xbab0ac};

}  // namespace

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

HORefPtr<HOStyle> HOStyle::NewDefault(StyleType type, int index) {
    const int count = int(sizeof(palette) / sizeof(palette[0]));
    const QColor hue(palette[((index % count) + count) % count]);
    const HOColor darker(hue.darker(160));
    switch (type) {
        case MarkerStyle: {
            HORefPtr<HOStyle> style = NewMarker(Circle, 7.0, HOColor(hue));
            style->SetOutlineColor(darker);
            return style;
        }
        case LineStyle:
            return NewLine(1.0, HOColor(hue));
        case FillStyle:
            break;
    }
    QColor fill = hue;
    fill.setAlpha(190);
    return NewFill(HOColor(fill), darker, 1.0);
}

}  // namespace HXObjects
