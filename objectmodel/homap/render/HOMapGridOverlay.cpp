#include "HOMapGridOverlay.h"

#include <QPainter>
#include <cmath>

namespace HXObjects {

namespace {
constexpr double kAutoSpacingPixels = 100.0;
constexpr double kMaxLines = 2000.0;
}  // namespace

bool HOMapGridOverlay::IsEnabled(const HOMapRulerAndGrid& settings) {
    return settings.get_draw_km_grid() || settings.get_draw_km_grid_ruler() || settings.get_draw_bl_grid() ||
           settings.get_draw_bl_grid_ruler();
}

double HOMapGridOverlay::RoundSpacing(double unitsPerPixel, double pixels) {
    const double raw = unitsPerPixel * pixels;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double m : {1.0, 2.0, 5.0}) {
        if (m * power >= raw) return m * power;
    }
    return 10.0 * power;
}

bool HOMapGridOverlay::linesFit(double from, double to, double step) {
    return step > 0.0 && std::isfinite(step) && (to - from) / step < kMaxLines;
}

void HOMapGridOverlay::Draw(QPainter& painter, const HOMapRulerAndGrid& settings,
                            const HODisplayTransform& transform, const HOSize& size) {
    if (!settings.get_draw_km_grid() || size.width <= 0 || size.height <= 0) return;
    const bool manual = settings.get_manually_set_km_grid_distanse();
    const double autoStep = RoundSpacing(transform.unitsPerPixel, kAutoSpacingPixels);
    const double dx = manual ? settings.get_km_grid_x_distance() : autoStep;
    const double dy = manual ? settings.get_km_grid_y_distance() : autoStep;
    const HOPoint topLeft = transform.ToMap(0, 0);
    const HOPoint bottomRight = transform.ToMap(size.width, size.height);
    if (!linesFit(topLeft.x, bottomRight.x, dx) || !linesFit(bottomRight.y, topLeft.y, dy)) return;

    painter.save();
    painter.setPen(QPen(settings.get_km_grid_color().toQColor(), settings.get_km_grid_line_width()));
    // Counted loops: adding a tiny step to a large coordinate may not change it.
    const double x0 = settings.get_km_grid_x_start_position();
    const double firstX = std::ceil((topLeft.x - x0) / dx);
    for (double i = firstX; i <= firstX + kMaxLines && x0 + i * dx <= bottomRight.x; ++i) {
        const double px = transform.ToDevice({x0 + i * dx, 0.0}).x;
        painter.drawLine(QPointF(px, 0), QPointF(px, size.height));
    }
    const double y0 = settings.get_km_grid_y_start_position();
    const double firstY = std::ceil((bottomRight.y - y0) / dy);
    for (double i = firstY; i <= firstY + kMaxLines && y0 + i * dy <= topLeft.y; ++i) {
        const double py = transform.ToDevice({0.0, y0 + i * dy}).y;
        painter.drawLine(QPointF(0, py), QPointF(size.width, py));
    }
    painter.restore();
}

}  // namespace HXObjects
