#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "FractalNoise.h"
#include "SampleRandom.h"

class GpkgWriter;
class OGRGeometry;

// The benchmark load: one GeoPackage with a polygon, a line and a point layer over the region's extent,
// streamed to disk feature by feature. Polygons are small blobs, lines long winding tracks, points
// clustered where a noise field is high; polygons500k is five times the polygons. Every feature has an
// integer `rank` from 1 to 4 for styling.
class BenchDataset {
public:
    struct Counts {
        int polygons = 100000;
        int polygonVertices = 25;  // including the closing vertex
        int lines = 100000;
        int lineVertices = 110;
        int points = 1000000;
        int manyPolygons = 500000;  // a larger polygon layer, for the memory a whole layer takes
    };
    using Progress = std::function<void(const QString&)>;

    BenchDataset(quint64 seed, const Counts& counts);

    bool write(const QString& path, const Progress& progress, QString* error);

private:
    using Maker = std::unique_ptr<OGRGeometry> (BenchDataset::*)();
    bool writeLayer(GpkgWriter& writer, const QString& name, int type, int count, Maker make);
    std::unique_ptr<OGRGeometry> polygon();
    std::unique_ptr<OGRGeometry> line();
    std::unique_ptr<OGRGeometry> point();

    Counts m_counts;
    SampleRandom m_random;
    FractalNoise m_noise;
};
