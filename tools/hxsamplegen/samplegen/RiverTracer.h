#pragma once

#include <QPointF>
#include <vector>

#include "FractalNoise.h"
#include "NameGenerator.h"
#include "PointIndex.h"
#include "SampleLayer.h"
#include "SampleRandom.h"

class Coastline;
class Terrain;

// Traces rivers from springs in the hills down to the sea. Each river heads away from the heart of
// the land, drawn downhill and meandering; one that comes close to an earlier river joins it as a
// tributary, ending on that river's vertex.
class RiverTracer {
public:
    RiverTracer(const Coastline& coastline, const Terrain& terrain, NameGenerator& names,
                SampleRandom random);

    SampleLayer build(double scale);

private:
    bool spring(QPointF& p);
    std::vector<QPointF> trace(QPointF p, double phase) const;

    const Coastline& m_coastline;
    const Terrain& m_terrain;
    NameGenerator& m_names;
    SampleRandom m_random;
    FractalNoise m_noise;
    PointIndex m_riverPoints;
    int m_pointCount = 0;
};
