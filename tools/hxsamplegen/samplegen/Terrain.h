#pragma once

#include <QPointF>
#include <vector>

#include "Coastline.h"
#include "FractalNoise.h"

// Elevation in metres over the region: zero on every coast, rising inland through rolling lowland to
// ridged hills; NaN over the sea. The DEM samples it, and the towns, rivers and land use read it so
// that they sit where they would in a real landscape.
class Terrain {
public:
    Terrain(const Coastline& coastline, const std::vector<StarShape>& islands, quint64 seed);

    double elevation(const QPointF& p) const;
    // The direction of steepest descent (unit length, or zero on flat ground), estimated over step metres.
    QPointF downhill(const QPointF& p, double step) const;

private:
    double relief(const QPointF& p, double inland, double rampLength) const;

    const Coastline& m_coastline;
    const std::vector<StarShape>& m_islands;
    FractalNoise m_noise;
};
