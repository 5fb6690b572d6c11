#include "HOLayoutComposer.h"

#include "HODataFrame.h"
#include "HOLegendElement.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HONorthArrowElement.h"
#include "HOPageLayoutView.h"
#include "HOScaleBarElement.h"
#include "HOTextElement.h"

namespace HXObjects {

namespace {
constexpr double kTitleMm = 16.0;
constexpr double kGapMm = 5.0;
constexpr double kSideMm = 55.0;    // the side column of a landscape sheet
constexpr double kBottomMm = 55.0;  // the bottom row of a portrait sheet
constexpr double kArrowW = 15.0, kArrowH = 22.0, kBarH = 14.0;
}  // namespace

void HOLayoutComposer::ComposeDefault(HOPageLayoutView& layout, HOMapView* view, const QString& title) {
    layout.ActivateDataFrame(nullptr);
    HOGraphicsContainer& container = *layout.get_graphicscontainer();
    for (const auto& element : container.GetElements()) {
        if (element != layout.get_operating_data_frame()) container.RemoveElement(element);
    }
    layout.SwitchToLayoutView(view);
    auto* frame = static_cast<HODataFrame*>(layout.get_operating_data_frame().get());

    const HORect p = layout.GetPageSetup().PrintableRect();
    HORefPtr<HOTextElement> heading(new HOTextElement);
    heading->set_text(title);
    heading->set_style({20.0, true, Qt::black});
    heading->set_bounds({p.minx, p.maxx, p.maxy - kTitleMm, p.maxy});

    HORefPtr<HONorthArrowElement> arrow(new HONorthArrowElement);
    HORefPtr<HOLegendElement> legend(new HOLegendElement);
    HORefPtr<HOScaleBarElement> bar(new HOScaleBarElement);
    legend->set_frame(frame);
    bar->set_frame(frame);
    const double mapTop = p.maxy - kTitleMm;
    if (layout.GetPageSetup().IsLandscape()) {
        const double left = p.maxx - kSideMm;
        frame->set_bounds({p.minx, left - kGapMm, p.miny, mapTop});
        arrow->set_bounds(
            {left + (kSideMm - kArrowW) / 2, left + (kSideMm + kArrowW) / 2, mapTop - kArrowH, mapTop});
        bar->set_bounds({left, p.maxx, p.miny, p.miny + kBarH});
        legend->set_bounds({left, p.maxx, p.miny + kBarH + kGapMm, mapTop - kArrowH - kGapMm});
    } else {
        const double top = p.miny + kBottomMm;
        frame->set_bounds({p.minx, p.maxx, top + kGapMm, mapTop});
        const double third = p.Width() / 3.0;
        legend->set_bounds({p.minx, p.minx + third, p.miny, top});
        arrow->set_bounds(
            {p.minx + 1.5 * third - kArrowW / 2, p.minx + 1.5 * third + kArrowW / 2, top - kArrowH, top});
        bar->set_bounds({p.minx + 2 * third, p.maxx, p.miny, p.miny + kBarH});
    }
    for (HOPageLayoutBaseElement* element :
         std::initializer_list<HOPageLayoutBaseElement*>{heading, arrow, legend, bar})
        container.AddElement(element);
    if (view) {
        view->GetRulerAndGridSetting()->set_draw_km_grid(true);
        view->GetRulerAndGridSetting()->set_draw_km_grid_ruler(true);
        view->RequestRedraw(false);
    }
    layout.RefreshView(false);
    if (view && view->GetMap()) frame->set_map_extent(view->GetMap()->GetFullExtent());
}

}  // namespace HXObjects
