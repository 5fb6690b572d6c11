#include "SampleGenerator.h"

#include <QDir>
#include <QElapsedTimer>

#include "DemWriter.h"
#include "GpkgWriter.h"
#include "HillshadeWriter.h"
#include "SampleCrs.h"
#include "SampleRegion.h"

namespace {
double secondsSince(const QElapsedTimer& timer) {
    return timer.nsecsElapsed() / 1e9;
}

bool writeLayers(const SampleRegion& region, const QString& path, int epsg, QString* error) {
    GpkgWriter writer(path, epsg);
    for (const SampleLayer& layer : region.layers())
        if (!writer.write(layer)) break;
    if (writer.close()) return true;
    *error = writer.error();
    return false;
}
}  // namespace

void SampleGenerator::report(const QString& message) const {
    if (m_progress) m_progress(message);
}

bool SampleGenerator::makeDirectory(const QString& dir) {
    if (QDir().mkpath(dir)) return true;
    m_error = QString("cannot create directory '%1'").arg(dir);
    return false;
}

bool SampleGenerator::writeRegion(const SampleOptions& options) {
    if (!makeDirectory(options.outDir)) return false;
    const QDir out(options.outDir);
    QElapsedTimer total, step;
    total.start();
    step.start();
    const SampleRegion region(options.seed, options.scale);
    qint64 features = 0;
    for (const SampleLayer& layer : region.layers()) {
        report(QString("%1: %2 features").arg(layer.name()).arg(layer.features().size()));
        features += qint64(layer.features().size());
    }
    report(QString("built %1 features in %2 s").arg(features).arg(secondsSince(step)));

    const struct {
        const char* file;
        int epsg;
    } packages[] = {{"region.gpkg", SampleCrs::kProjectedEpsg},
                    {"region_4490.gpkg", SampleCrs::kGeographicEpsg}};
    for (const auto& package : packages) {
        step.restart();
        if (!writeLayers(region, out.filePath(package.file), package.epsg, &m_error)) return false;
        report(QString("wrote %1 in %2 s").arg(package.file).arg(secondsSince(step)));
    }
    step.restart();
    if (!DemWriter::write(out.filePath("elevation.tif"), region.terrain(), SampleRegion::extent(),
                          options.demPixelSize, &m_error))
        return false;
    report(QString("wrote elevation.tif in %1 s").arg(secondsSince(step)));
    step.restart();
    if (!HillshadeWriter::write(out.filePath("elevation.tif"), out.filePath("hillshade.tif"), &m_error))
        return false;
    report(QString("wrote hillshade.tif in %1 s").arg(secondsSince(step)));
    report(QString("done in %1 s").arg(secondsSince(total)));
    return true;
}

bool SampleGenerator::writeBench(const QString& outDir, quint64 seed, const BenchDataset::Counts& counts) {
    if (!makeDirectory(outDir)) return false;
    QElapsedTimer total;
    total.start();
    BenchDataset bench(seed, counts);
    if (!bench.write(QDir(outDir).filePath("bench.gpkg"), m_progress, &m_error)) return false;
    report(QString("wrote bench.gpkg in %1 s").arg(secondsSince(total)));
    return true;
}
