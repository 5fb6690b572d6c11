#pragma once
// HOMapRulerAndGrid: a map view's settings for the two coordinate grids and their rulers (the frame
// of tick marks and labels): the kilometre grid (KM, in map units) and the longitude/latitude grid
// (BL, positions and distances in arc seconds). Plain values with get_/set_ pairs; the view copies
// them under its lock when it draws.
#include "HOColor.h"
#include "HOUnitType.h"
#include "HXExport.h"

namespace HXObjects {

#define HO_GRID_SETTING(Type, name, initial) \
public:                                      \
    Type get_##name() const {                \
        return m_##name;                     \
    }                                        \
    void set_##name(const Type& value) {     \
        m_##name = value;                    \
    }                                        \
                                             \
private:                                     \
    Type m_##name = initial;

class HX_EXPORT HOMapRulerAndGrid {
    HO_GRID_SETTING(bool, draw_km_grid, false)
    HO_GRID_SETTING(bool, draw_km_grid_ruler, false)
    HO_GRID_SETTING(bool, manually_set_km_grid_distanse, false)
    HO_GRID_SETTING(double, km_grid_x_start_position, 0.0)
    HO_GRID_SETTING(double, km_grid_y_start_position, 0.0)
    HO_GRID_SETTING(double, km_grid_x_distance, 1000.0)
    HO_GRID_SETTING(double, km_grid_y_distance, 1000.0)
    HO_GRID_SETTING(int, calc_km_grid_dis_style, 0)  // 0: by map scale, 1: by scale unit
    HO_GRID_SETTING(double, km_grid_line_width, 1.0)
    HO_GRID_SETTING(HOColor, km_grid_color, HOColor(0, 0, 0))
    HO_GRID_SETTING(double, km_grid_ruler_tick_mark_width, 1.0)
    HO_GRID_SETTING(HOColor, km_grid_ruler_tick_mark_color, HOColor(0, 0, 0))
    HO_GRID_SETTING(int, km_grid_ruler_label_font_height, 12)
    HO_GRID_SETTING(int, km_grid_ruler_label_font_width, 6)
    HO_GRID_SETTING(HOColor, km_grid_ruler_label_font_color, HOColor(0, 0, 0))

    HO_GRID_SETTING(bool, draw_bl_grid, false)
    HO_GRID_SETTING(bool, draw_bl_grid_ruler, false)
    HO_GRID_SETTING(bool, manually_set_bl_grid_distanse, false)
    HO_GRID_SETTING(double, bl_grid_x_start_position, 0.0)  // arc seconds
    HO_GRID_SETTING(double, bl_grid_y_start_position, 0.0)
    HO_GRID_SETTING(double, bl_grid_x_distance, 600.0)
    HO_GRID_SETTING(double, bl_grid_y_distance, 600.0)
    HO_GRID_SETTING(double, bl_grid_line_width, 1.0)
    HO_GRID_SETTING(HOColor, bl_grid_color, HOColor(0, 0, 255))
    HO_GRID_SETTING(double, bl_grid_ruler_tick_mark_width, 1.0)
    HO_GRID_SETTING(HOColor, bl_grid_ruler_tick_mark_color, HOColor(0, 0, 0))
    HO_GRID_SETTING(int, bl_grid_ruler_label_font_height, 12)
    HO_GRID_SETTING(int, bl_grid_ruler_label_font_width, 6)
    HO_GRID_SETTING(HOColor, bl_grid_ruler_label_font_color, HOColor(0, 0, 0))

    HO_GRID_SETTING(double, convert_scale, 50000.0)  // scale denominator
    HO_GRID_SETTING(HOUnitType, ruler_unit_type, HOUnitMeter)
};

#undef HO_GRID_SETTING

}  // namespace HXObjects
