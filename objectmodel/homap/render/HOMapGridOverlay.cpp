#include "HOMapGridOverlay.h"

#include <QPainter>
#include <cmath>
#include <vector>

#include "HOCoordinateSystem.h"
#include "HOGridSpacing.h"
#include "HOMapScale.h"
#include "render/private/HOGridLattice.h"
#include "render/private/HOGridProjection.h"
#include "render/private/HOGridRuler.h"

namespace HXObjects {

namespace {

constexpr double kOuterMargin = 1.0;  // keeps the outer frame line on the surface
constexpr double kMetresPerArcSecond = 2.0 * M_PI * HOMapScale::kEarthRadius / (360.0 * 3600.0);

// One grid to draw: its lattice in grid coordinates, how it looks, how its values read.
struct Plan {
    const HOGridProjection* projection = nullptr;
    bool degrees = false;  // grid coordinates are longitude/latitude
    HOPoint start;
    double dx = 0.0, dy = 0.0;
    bool lines = false, ruler = false;
    QPen pen;
    HOGridRuler::Look look;
    double metresPerUnit = 1.0;
    std::vector<HOGridLine> drawn;
};

QString dms(double degrees, bool longitude) {
    const QChar hemisphere = longitude ? (degrees < 0 ? 'W' : 'E') : (degrees < 0 ? 'S' : 'N');
    const qint64 hundredths = std::llround(std::abs(degrees) * 360000.0);  // of an arc second
    const qint64 d = hundredths / 360000, m = hundredths / 6000 % 60, s = hundredths % 6000;
    QString text = QString::number(d) + QChar(0x00B0);
    if (m != 0 || s != 0) text += QString::asprintf("%02lld", m) + QChar(0x2032);
    if (s % 100 != 0)
        text += QString::asprintf("%05.2f", s / 100.0) + QChar(0x2033);
    else if (s != 0)
        text += QString::asprintf("%02lld", s / 100) + QChar(0x2033);
    return text + hemisphere;
}

QString kilometres(double metres, double stepMetres) {
    const int decimals =
        stepMetres >= 1000.0 ? 0 : std::min(3, int(std::ceil(-std::log10(stepMetres / 1000.0) - 1e-9)));
    return QString::number(metres / 1000.0, 'f', decimals);
}

HOGridRuler::Look rulerLook(double tickWidth, const HOColor& tick, int fontHeight, int fontWidth,
                            const HOColor& label) {
    return {tickWidth, tick.toQColor(), fontHeight, fontWidth, label.toQColor()};
}

QPen linePen(double width, const HOColor& color) {
    QPen pen(color.toQColor(), std::isfinite(width) ? std::max(width, 0.0) : 0.0);
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

// The KM lattice: the set spacing, or the automatic one of the set kind.
void planKilometres(const HOMapRulerAndGrid& s, Plan& plan, double scale, double metresPerUnit) {
    plan.metresPerUnit = metresPerUnit;
    plan.start = HOPoint(s.get_km_grid_x_start_position(), s.get_km_grid_y_start_position());
    if (s.get_manually_set_km_grid_distanse()) {
        plan.dx = s.get_km_grid_x_distance();
        plan.dy = s.get_km_grid_y_distance();
    } else {
        const double metres = s.get_calc_km_grid_dis_style() == 1
                                  ? HOGridSpacing::AutoByScaleUnit(scale, s.get_ruler_unit_type())
                                  : HOGridSpacing::AutoByMapScale(scale);
        plan.dx = plan.dy = metres / metresPerUnit;
    }
}

// The BL lattice in degrees; an automatic spacing reads the scale where the map's centre lies.
void planDegrees(const HOMapRulerAndGrid& s, Plan& plan, double scale, double latitude) {
    plan.degrees = true;
    plan.start =
        HOPoint(s.get_bl_grid_x_start_position() / 3600.0, s.get_bl_grid_y_start_position() / 3600.0);
    if (s.get_manually_set_bl_grid_distanse()) {
        plan.dx = s.get_bl_grid_x_distance() / 3600.0;
        plan.dy = s.get_bl_grid_y_distance() / 3600.0;
    } else {
        const double alongParallel = kMetresPerArcSecond * std::max(std::cos(latitude * M_PI / 180.0), 0.05);
        plan.dx = HOGridSpacing::AutoAngle(scale, alongParallel) / 3600.0;
        plan.dy = HOGridSpacing::AutoAngle(scale, kMetresPerArcSecond) / 3600.0;
    }
}

// Fixes the spacing for the view and computes the lines; the lines stay empty when nothing can be
// drawn.
void layOut(Plan& plan, const HODisplayTransform& transform, const QRectF& frame) {
    if (!plan.projection) return;
    const HOGridLattice lattice(*plan.projection, transform, frame);
    HORect bounds;
    if (!lattice.Bounds(plan.degrees, &bounds)) return;
    plan.dx = HOGridSpacing::Thinned(plan.dx, bounds.Width(), frame.width() / bounds.Width());
    plan.dy = HOGridSpacing::Thinned(plan.dy, bounds.Height(), frame.height() / bounds.Height());
    if (plan.dx <= 0.0 || plan.dy <= 0.0) return;
    if (!std::isfinite(plan.start.x) || !std::isfinite(plan.start.y)) plan.start = HOPoint();
    plan.drawn = lattice.Lines(bounds, plan.degrees, plan.start, plan.dx, plan.dy);
}

bool hasRuler(const Plan& plan) {
    return plan.ruler && plan.projection;
}

// The map's frame inside the rulers' bands (the whole surface without rulers).
QRectF innerFrame(const std::vector<Plan>& plans, const QRectF& whole) {
    QRectF inner = whole;
    for (const Plan& plan : plans) {
        if (!hasRuler(plan)) continue;
        const double t = HOGridRuler(plan.look).Thickness() + (inner == whole ? kOuterMargin : 0.0);
        inner.adjust(t, t, -t, -t);
    }
    return inner;
}

// Each ruler's band round the one inside it, from the map's frame outwards.
void drawRulers(QPainter& painter, const std::vector<Plan>& plans, QRectF frame) {
    for (const Plan& plan : plans) {
        if (!hasRuler(plan)) continue;
        const HOGridRuler ruler(plan.look);
        const double stepX = plan.dx * plan.metresPerUnit, stepY = plan.dy * plan.metresPerUnit;
        ruler.Draw(painter, frame, plan.drawn, [&plan, stepX, stepY](double value, bool alongY) {
            return plan.degrees ? dms(value, alongY)
                                : kilometres(value * plan.metresPerUnit, alongY ? stepX : stepY);
        });
        const double t = ruler.Thickness();
        frame.adjust(-t, -t, t, t);
    }
}

}  // namespace

class HOMapGridOverlay::Private {
public:
    // The projection of a kind for the system, made once per system (and zone).
    const HOGridProjection* projection(const HORefPtr<HOCoordinateSystem>& system,
                                       HOGridProjection::Kind kind, double meridian = 0.0);
    // The grids the settings ask for on this target, the one with the inner ruler first.
    std::vector<Plan> plans(const HOMapRulerAndGrid& s, const Target& target);

    HORefPtr<HOCoordinateSystem> system;
    std::vector<std::unique_ptr<HOGridProjection>> projections;
};

const HOGridProjection* HOMapGridOverlay::Private::projection(const HORefPtr<HOCoordinateSystem>& wanted,
                                                              HOGridProjection::Kind kind, double meridian) {
    if (wanted.get() != system.get()) {
        projections.clear();
        system = wanted;
    }
    for (const auto& p : projections) {
        if (p->GetKind() == kind && p->CentralMeridian() == meridian) return p->IsValid() ? p.get() : nullptr;
    }
    projections.push_back(std::make_unique<HOGridProjection>(system.get(), kind, meridian));
    return projections.back()->IsValid() ? projections.back().get() : nullptr;
}

std::vector<Plan> HOMapGridOverlay::Private::plans(const HOMapRulerAndGrid& s, const Target& target) {
    const HORefPtr<HOCoordinateSystem>& system = target.system;
    const bool geographic = system && system->IsGeographic();
    const double metresPerUnit = HOMapScale::MetresPerUnit(system ? system->GetUnit() : HOUnitMeter);
    const double scale = HOMapScale::Denominator(target.transform.unitsPerPixel, metresPerUnit, target.dpi);
    const HOPoint centre = target.transform.ToMap(target.size.width / 2.0, target.size.height / 2.0);

    std::vector<Plan> plans;
    if (!geographic && (s.get_draw_km_grid() || s.get_draw_km_grid_ruler())) {
        Plan km;
        km.projection = projection(system, HOGridProjection::Identity);
        km.lines = s.get_draw_km_grid();
        km.ruler = s.get_draw_km_grid_ruler();
        km.pen = linePen(s.get_km_grid_line_width(), s.get_km_grid_color());
        km.look = rulerLook(s.get_km_grid_ruler_tick_mark_width(), s.get_km_grid_ruler_tick_mark_color(),
                            s.get_km_grid_ruler_label_font_height(), s.get_km_grid_ruler_label_font_width(),
                            s.get_km_grid_ruler_label_font_color());
        planKilometres(s, km, scale, metresPerUnit);
        plans.push_back(std::move(km));
    }
    if (system && (s.get_draw_bl_grid() || s.get_draw_bl_grid_ruler())) {
        Plan bl;
        bl.lines = s.get_draw_bl_grid();
        bl.ruler = s.get_draw_bl_grid_ruler();
        bl.pen = linePen(s.get_bl_grid_line_width(), s.get_bl_grid_color());
        bl.look = rulerLook(s.get_bl_grid_ruler_tick_mark_width(), s.get_bl_grid_ruler_tick_mark_color(),
                            s.get_bl_grid_ruler_label_font_height(), s.get_bl_grid_ruler_label_font_width(),
                            s.get_bl_grid_ruler_label_font_color());
        const double convert = s.get_convert_scale();
        if (geographic && convert > 0.0 && scale <= convert) {
            bl.projection =
                projection(system, HOGridProjection::GaussKrueger, HOGridProjection::ZoneMeridian(centre.x));
            planKilometres(s, bl, scale, 1.0);
        } else {
            bl.projection = projection(system, HOGridProjection::Geographic);
            double latitude = centre.y;
            if (!geographic && !system->ToGeographic(centre.x, centre.y, nullptr, &latitude)) latitude = 0.0;
            planDegrees(s, bl, scale, latitude);
        }
        plans.push_back(std::move(bl));
    }
    return plans;
}

HOMapGridOverlay::HOMapGridOverlay() : d(std::make_unique<Private>()) {}
HOMapGridOverlay::~HOMapGridOverlay() = default;

bool HOMapGridOverlay::IsEnabled(const HOMapRulerAndGrid& settings) {
    return settings.get_draw_km_grid() || settings.get_draw_km_grid_ruler() || settings.get_draw_bl_grid() ||
           settings.get_draw_bl_grid_ruler();
}

bool HOMapGridOverlay::drawsOn(const HOMapRulerAndGrid& s, const Target& target) {
    return IsEnabled(s) && target.size.width > 0 && target.size.height > 0 &&
           target.transform.unitsPerPixel > 0.0;
}

QRectF HOMapGridOverlay::MapFrame(const HOMapRulerAndGrid& s, const Target& target) {
    const QRectF whole(0, 0, target.size.width, target.size.height);
    if (!drawsOn(s, target)) return whole;
    std::lock_guard<std::mutex> lock(m_mutex);
    return innerFrame(d->plans(s, target), whole);
}

void HOMapGridOverlay::Draw(QPainter& painter, const HOMapRulerAndGrid& s, const Target& target) {
    if (!drawsOn(s, target)) return;
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Plan> plans = d->plans(s, target);
    // Lines are computed across the whole surface, so that they meet every ruler's frame, and drawn
    // inside the innermost one.
    const QRectF whole(0, 0, target.size.width, target.size.height);
    for (Plan& plan : plans) layOut(plan, target.transform, whole);
    const QRectF inner = innerFrame(plans, whole);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setClipRect(inner);
    for (const Plan& plan : plans) {
        if (!plan.lines) continue;
        painter.setPen(plan.pen);
        for (const HOGridLine& line : plan.drawn) painter.drawPolyline(line.points);
    }
    painter.setClipping(false);
    drawRulers(painter, plans, inner);
    painter.restore();
}

}  // namespace HXObjects
