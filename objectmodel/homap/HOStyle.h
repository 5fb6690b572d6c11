#pragma once
// HOStyle: how a feature is drawn. Three kinds: a marker for points (shape, size, colour, outline),
// a line (width, colour, dash, and an optional casing drawn beneath it in the outline colour) and a
// fill for polygons (colour or hatch, outline colour and width). Every kind has an opacity. Styles
// are plain data, shared by reference; change them only before handing them to a layer.
#include "HOColor.h"
#include "HORefBase.h"
#include "HORefPtr.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOStyle : public HORefBase {
public:
    enum StyleType { MarkerStyle = 0, LineStyle = 1, FillStyle = 2 };
    enum MarkerShape { Circle = 0, Square, Triangle, Diamond, Cross, Star };
    enum DashPattern { Solid = 0, Dash, Dot, DashDot };
    // How a fill style covers its area; hatches are drawn in the fill colour.
    enum FillPattern {
        SolidFill = 0,
        NoFill,
        HorizontalHatch,
        VerticalHatch,
        CrossHatch,
        ForwardDiagonalHatch,
        BackwardDiagonalHatch,
        DiagonalCrossHatch
    };

    explicit HOStyle(StyleType type) : m_type(type) {}
    static HORefPtr<HOStyle> NewMarker(MarkerShape shape, double size, const HOColor& color);
    static HORefPtr<HOStyle> NewLine(double width, const HOColor& color, DashPattern dash = Solid);
    static HORefPtr<HOStyle> NewFill(const HOColor& fill, const HOColor& outline, double outlineWidth);
    // The default style of the given type in the colour at `index` of a qualitative palette (ten
    // hues, repeating), so layers drawn together stay apart: a fill slightly translucent with an
    // outline in a darker shade of its hue, a line, or a marker with a darker rim.
    static HORefPtr<HOStyle> NewDefault(StyleType type, int index);

    StyleType GetStyleType() const { return m_type; }

    MarkerShape GetMarkerShape() const { return m_shape; }
    void SetMarkerShape(MarkerShape shape) { m_shape = shape; }
    double GetSize() const { return m_size; }  // marker diameter in pixels
    void SetSize(double size) { m_size = size; }
    HOColor GetColor() const { return m_color; }  // marker, line or fill colour
    void SetColor(const HOColor& color) { m_color = color; }
    double GetWidth() const { return m_width; }  // line width or polygon outline width, pixels
    void SetWidth(double width) { m_width = width; }
    DashPattern GetDash() const { return m_dash; }
    void SetDash(DashPattern dash) { m_dash = dash; }
    HOColor GetOutlineColor() const { return m_outline; }  // marker and fill outline, line casing
    void SetOutlineColor(const HOColor& color) { m_outline = color; }
    // A line's casing: how far it shows on each side of the line, pixels (0: no casing).
    double GetCasingWidth() const { return m_casingWidth; }
    void SetCasingWidth(double width) { m_casingWidth = width; }
    FillPattern GetFillPattern() const { return m_fillPattern; }
    void SetFillPattern(FillPattern pattern) { m_fillPattern = pattern; }
    // 0 (invisible) to 1 (opaque); applies to every colour of the style.
    double GetOpacity() const { return m_opacity; }
    void SetOpacity(double opacity) { m_opacity = opacity; }
    // A new style with the same values and no reference yet, for editing without touching one
    // already in use.
    HOStyle* Clone() const;

private:
    StyleType m_type;
    MarkerShape m_shape = Circle;
    DashPattern m_dash = Solid;
    FillPattern m_fillPattern = SolidFill;
    double m_size = 6.0;
    double m_width = 1.0;
    double m_casingWidth = 0.0;
    double m_opacity = 1.0;
    HOColor m_color{80, 80, 80};
    HOColor m_outline{40, 40, 40};
};

}  // namespace HXObjects
