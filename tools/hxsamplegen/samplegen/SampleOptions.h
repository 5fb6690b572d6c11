#pragma once

#include <QString>

// What hxsamplegen writes for the region: where, how dense, from which seed, and the DEM's pixel size.
struct SampleOptions {
    static constexpr quint64 kDefaultSeed = 20260611;

    QString outDir = ".";
    double scale = 1.0;
    quint64 seed = kDefaultSeed;
    double demPixelSize = 50.0;  // metres
};
