#include "BenchDataset.h"

#include <ogr_geometry.h>

#include <QElapsedTimer>
#include <cmath>

#include "GpkgWriter.h"
#include "SampleCrs.h"
#include "SampleRegion.h"
#include "StarShape.h"

BenchDataset::BenchDataset(quint64 seed, const Counts& counts)
    : m_counts(counts), m_random(SampleRandom(seed).fork(0xbe7c4)), m_noise(m_random.next()) {}

bool BenchDataset::write(const QString& path, const Progress& progress, QString* error) {
    GpkgWriter writer(path, SampleCrs::kProjectedEpsg);
    const struct {
        const char* name;
        OGRwkbGeometryType type;
        int count;
        Maker make;
    } layers[] = {{"polygons", wkbPolygon, m_counts.polygons, &BenchDataset::polygon},
                  {"lines", wkbLineString, m_counts.lines, &BenchDataset::line},
                  {"points", wkbPoint, m_counts.points, &BenchDataset::point},
                  {"polygons500k", wkbPolygon, m_counts.manyPolygons, &BenchDataset::polygon}};
    for (const auto& layer : layers) {
        QElapsedTimer timer;
        timer.start();
        if (!writeLayer(writer, layer.name, layer.type, layer.count, layer.make)) break;
        if (progress)
            progress(QString("%1: %2 features in %3 s")
                         .arg(layer.name)
                         .arg(layer.count)
                         .arg(timer.elapsed() / 1000.0));
    }
    QElapsedTimer closing;
    closing.start();
    if (writer.close()) {
        if (progress)
            progress(
                QString("spatial indexes built and file closed in %1 s").arg(closing.elapsed() / 1000.0));
        return true;
    }
    if (error) *error = writer.error();
    return false;
}

bool BenchDataset::writeLayer(GpkgWriter& writer, const QString& name, int type, int count, Maker make) {
    if (!writer.begin(name, OGRwkbGeometryType(type), {{"rank", OFTInteger}})) return false;
    for (int i = 0; i < count; ++i)
        if (!writer.add((this->*make)(), {m_random.integer(1, 4)})) return false;
    return writer.commit();
}

std::unique_ptr<OGRGeometry> BenchDataset::polygon() {
    const QRectF region = SampleRegion::extent();
    const QPointF centre(m_random.uniform(region.left(), region.right()),
                         m_random.uniform(region.top(), region.bottom()));
    const StarShape blob = StarShape::blob(centre, m_random.uniform(60, 400), 0.2,
                                           m_counts.polygonVertices - 1, m_noise, m_random.uniform(0, 200));
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRingDirectly(blob.ring().release());
    return polygon;
}

std::unique_ptr<OGRGeometry> BenchDataset::line() {
    const QRectF region = SampleRegion::extent();
    double x = m_random.uniform(region.left(), region.right()),
           y = m_random.uniform(region.top(), region.bottom());
    double heading = m_random.uniform(0, 2 * M_PI);
    const double step = m_random.uniform(10, 30);
    auto line = std::make_unique<OGRLineString>();
    line->setNumPoints(m_counts.lineVertices, FALSE);
    for (int i = 0; i < m_counts.lineVertices; ++i) {
        line->setPoint(i, x, y);
        heading += m_random.uniform(-0.35, 0.35);
        // Turn back at the region's edge so every track stays inside it.
        if (!region.contains(QPointF(x + step * std::cos(heading), y + step * std::sin(heading))))
            heading += M_PI;
        x += step * std::cos(heading);
        y += step * std::sin(heading);
    }
    return line;
}

std::unique_ptr<OGRGeometry> BenchDataset::point() {
    const QRectF region = SampleRegion::extent();
    for (;;) {
        const double x = m_random.uniform(region.left(), region.right()),
                     y = m_random.uniform(region.top(), region.bottom());
        // Rejection sampling: points gather where the noise is high, like settlements.
        if (m_noise.fractal(x / 8000, y / 8000, 4) > m_random.uniform(-0.3, 0.5))
            return std::make_unique<OGRPoint>(x, y);
    }
}
