// HXMapCanvas: the members that open the editing and display dialogs. Each dialog lives on the
// stack of its member and every setting it changes is stored in the object model.
#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HXCombineFeatureMethodDialog.h"
#include "HXCustomRenderDialog.h"
#include "HXMapCanvas.h"
#include "HxRulerAndGridSettingsDialog.h"

using namespace HXObjects;

void HXMapCanvas::CustomStyle() {
    HOMapView* view = GetMapView();
    if (!view) return;
    HOMap* map = view->GetMap();
    if (!map) return;
    const std::vector<HORefPtr<HOLayer>> layers = map->GetLayers(true);
    std::vector<HORefPtr<HOLayer>> selected;
    for (const HORefPtr<HOLayer>& layer : layers) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features && features->HasSelectedFeatures()) selected.push_back(layer);
    }
    if (selected.empty()) return;
    // The dialog gets every layer and picks the selected ones itself; it redraws on apply.
    HXCustomRenderDialog dialog(layers, view, nullptr);
    dialog.exec();
}

namespace {

QColor toQColor(const HOColor& color) {
    QColor result;
    result.setRgb(color.getR(), color.getG(), color.getB(), 255);
    return result;
}

HOColor toHOColor(const QColor& color) {
    return HOColor(color.red(), color.green(), color.blue());
}

}  // namespace

void HXMapCanvas::SetMapGridAndRuler() {
    HOMapView* view = GetMapView();
    HOMapRulerAndGrid* grid = view ? view->GetRulerAndGridSetting() : nullptr;
    HOMap* map = view ? view->GetMap() : nullptr;
    if (!grid || !map) return;
    const HORefPtr<HOCoordinateSystem> system = map->GetSpatialReference();
    if (!system) return;
    const HOUnitType displayUnit = map->GetMapDisplayUnit();

    HxRulerAndGridSettingsDialog dialog(system->IsGeographic(), nullptr);
    dialog.loadKMGridSettings(
        grid->get_draw_km_grid_ruler(), grid->get_draw_km_grid(), grid->get_manually_set_km_grid_distanse(),
        grid->get_km_grid_x_start_position(), grid->get_km_grid_y_start_position(),
        grid->get_km_grid_x_distance(), grid->get_km_grid_y_distance(), grid->get_calc_km_grid_dis_style(),
        grid->get_km_grid_line_width(), grid->get_km_grid_ruler_tick_mark_width(),
        grid->get_km_grid_ruler_label_font_height(), grid->get_km_grid_ruler_label_font_width(),
        toQColor(grid->get_km_grid_ruler_tick_mark_color()),
        toQColor(grid->get_km_grid_ruler_label_font_color()), toQColor(grid->get_km_grid_color()));
    dialog.loadBLGridSettings(
        grid->get_draw_bl_grid_ruler(), grid->get_draw_bl_grid(), grid->get_manually_set_bl_grid_distanse(),
        grid->get_bl_grid_x_start_position(), grid->get_bl_grid_y_start_position(),
        grid->get_bl_grid_x_distance(), grid->get_bl_grid_y_distance(), grid->get_convert_scale(),
        grid->get_bl_grid_line_width(), grid->get_bl_grid_ruler_tick_mark_width(),
        grid->get_bl_grid_ruler_label_font_height(), grid->get_bl_grid_ruler_label_font_width(),
        toQColor(grid->get_bl_grid_ruler_tick_mark_color()),
        toQColor(grid->get_bl_grid_ruler_label_font_color()), toQColor(grid->get_bl_grid_color()));
    if (dialog.exec() != QDialog::Accepted) return;

    const HxRulerAndGridSettingsDialog::Settings& s = dialog.settings();
    grid->set_draw_km_grid_ruler(s.km.drawRuler);
    grid->set_draw_km_grid(s.km.drawGrid);
    grid->set_manually_set_km_grid_distanse(s.km.manualSpacing);
    grid->set_draw_bl_grid_ruler(s.bl.drawRuler);
    grid->set_draw_bl_grid(s.bl.drawGrid);
    grid->set_manually_set_bl_grid_distanse(s.bl.manualSpacing);
    grid->set_bl_grid_x_start_position(s.bl.xStart);
    grid->set_bl_grid_y_start_position(s.bl.yStart);
    grid->set_km_grid_x_start_position(s.km.xStart);
    grid->set_km_grid_y_start_position(s.km.yStart);
    grid->set_km_grid_x_distance(s.km.xDistance);
    grid->set_km_grid_y_distance(s.km.yDistance);
    grid->set_bl_grid_x_distance(s.bl.xDistance);
    grid->set_bl_grid_y_distance(s.bl.yDistance);
    grid->set_calc_km_grid_dis_style(s.kmSpacingType);
    grid->set_convert_scale(s.convertScale);
    grid->set_km_grid_line_width(s.km.lineWidth);
    grid->set_km_grid_ruler_tick_mark_width(s.km.tickMarkWidth);
    grid->set_km_grid_ruler_label_font_height(s.km.fontHeight);
    grid->set_km_grid_ruler_label_font_width(s.km.fontWidth);
    grid->set_bl_grid_line_width(s.bl.lineWidth);
    grid->set_bl_grid_ruler_tick_mark_width(s.bl.tickMarkWidth);
    grid->set_bl_grid_ruler_label_font_height(s.bl.fontHeight);
    grid->set_bl_grid_ruler_label_font_width(s.bl.fontWidth);
    grid->set_ruler_unit_type(displayUnit);
    grid->set_km_grid_color(toHOColor(s.km.gridColor));
    grid->set_bl_grid_color(toHOColor(s.bl.gridColor));
    grid->set_km_grid_ruler_tick_mark_color(toHOColor(s.km.tickMarkColor));
    grid->set_km_grid_ruler_label_font_color(toHOColor(s.km.labelFontColor));
    grid->set_bl_grid_ruler_tick_mark_color(toHOColor(s.bl.tickMarkColor));
    grid->set_bl_grid_ruler_label_font_color(toHOColor(s.bl.labelFontColor));
    view->RequestRedraw(false);
}

int HXMapCanvas::combineFeatureAttributeFID(HOLayer* layer) {
    // -2: no answer (only feature layers have attributes to inherit); -1: inherit from the largest
    // feature; otherwise the id of the feature whose attributes the merged feature keeps.
    auto* features = dynamic_cast<HOFeatureLayer*>(layer);
    if (!features) return -2;
    HXCombineFeatureMethodDialog dialog(features, this);
    dialog.move(mapToGlobal(QPoint(0, 0)));
    if (dialog.exec() != QDialog::Accepted) return -2;
    return dialog.isInheritMaxArea() ? -1 : dialog.selectedFeatureId();
}
