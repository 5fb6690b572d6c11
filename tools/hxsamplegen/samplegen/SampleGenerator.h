#pragma once

#include <QString>
#include <functional>

#include "BenchDataset.h"
#include "SampleOptions.h"

// Writes the sample data sets: the region (region.gpkg in CGCS2000 / Gauss-Kruger CM 117E,
// region_4490.gpkg in geographic CGCS2000, elevation.tif) or the benchmark load (bench.gpkg),
// reporting each step and its time through the progress callback.
class SampleGenerator {
public:
    using Progress = std::function<void(const QString&)>;

    explicit SampleGenerator(Progress progress = {}) : m_progress(std::move(progress)) {}

    bool writeRegion(const SampleOptions& options);
    bool writeBench(const QString& outDir, quint64 seed, const BenchDataset::Counts& counts = {});
    const QString& error() const { return m_error; }

private:
    bool makeDirectory(const QString& dir);
    void report(const QString& message) const;

    Progress m_progress;
    QString m_error;
};
