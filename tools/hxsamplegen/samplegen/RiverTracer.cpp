#include "RiverTracer.h"

#include <ogr_geometry.h>

#include <cmath>

#include "Coastline.h"
#include "Terrain.h"

namespace {
constexpr double kStep = 90;           // metres between river vertices
constexpr double kJoinDistance = 120;  // a river this close to another flows into it
constexpr int kMaxSteps = 2000;
constexpr int kMinVertices = 12;
constexpr int kAttemptsPerRiver = 30;

QPointF unit(const QPointF& v) {
    const double length = std::hypot(v.x(), v.y());
    return length > 0 ? v / length : QPointF();
}
}  // namespace

RiverTracer::RiverTracer(const Coastline& coastline, const Terrain& terrain, NameGenerator& names,
                         SampleRandom random)
    : m_coastline(coastline), m_terrain(terrain), m_names(names), m_random(random), m_noise(random.next()) {}

SampleLayer RiverTracer::build(double scale) {
    SampleLayer layer("rivers", wkbLineString, {{"name", OFTString}, {"name_zh", OFTString}});
    const int wanted = std::max(1, int(std::lround(14 * scale)));
    for (int attempt = 0; layer.features().size() < size_t(wanted) && attempt < wanted * kAttemptsPerRiver;
         ++attempt) {
        QPointF source;
        if (!spring(source)) continue;
        const auto line = trace(source, m_random.uniform(0, 200));
        if (int(line.size()) < kMinVertices) continue;
        auto geometry = std::make_unique<OGRLineString>();
        for (const QPointF& p : line) geometry->addPoint(p.x(), p.y());
        const QString name = m_names.next();
        layer.add(std::move(geometry), {name + " River", NameGenerator::chinese(name, QStringLiteral("河"))});
        // Indexed only now, so a river never joins itself.
        for (const QPointF& p : line) m_riverPoints.insert(p, m_pointCount++);
    }
    return layer;
}

bool RiverTracer::spring(QPointF& p) {
    const double angle = m_random.uniform(0, 2 * M_PI);
    if (!m_coastline.facesSea(angle)) return false;
    const StarShape& land = m_coastline.shape();
    const double inland = m_random.uniform(0.25, 0.75) * land.radiusAt(angle);
    const double radius = land.radiusAt(angle) - inland;
    p = land.centre() + QPointF(radius * std::cos(angle), radius * std::sin(angle));
    return m_coastline.isLand(p, 1000) && !m_riverPoints.anyWithin(p, 3 * kJoinDistance);
}

std::vector<QPointF> RiverTracer::trace(QPointF p, double phase) const {
    std::vector<QPointF> line{p};
    QPointF heading = unit(p - m_coastline.shape().centre());
    for (int step = 0; step < kMaxSteps; ++step) {
        // Away from the land's heart and down the slope, turning slowly: the river keeps some momentum.
        const QPointF outward = unit(p - m_coastline.shape().centre());
        heading = unit(0.85 * heading + 0.15 * unit(outward + 1.5 * m_terrain.downhill(p, 300)));
        // In a hollow the slope pulls every way; leave it seawards rather than circling.
        if (QPointF::dotProduct(heading, outward) < 0.25) heading = unit(heading + 0.5 * outward);
        const double meander = 1.2 * m_noise.fractal(phase, step * kStep / 1500.0, 3);
        const double c = std::cos(meander), s = std::sin(meander);
        p += kStep * QPointF(c * heading.x() - s * heading.y(), s * heading.x() + c * heading.y());
        if (!m_coastline.region().contains(p)) return {};
        const int joined = m_riverPoints.nearestWithin(p, kJoinDistance);
        if (joined >= 0) {
            line.push_back(m_riverPoints.point(joined));
            return line;
        }
        line.push_back(p);
        if (!m_coastline.isLand(p)) return line;  // reached the sea
    }
    return {};
}
