#pragma once

#include <QtGlobal>
#include <array>

// Seeded two-dimensional gradient noise and its fractal sum. Everything natural in the region - the
// coastline, the terrain, meanders, parcel classes - is shaped by sampling one of these fields.
class FractalNoise {
public:
    explicit FractalNoise(quint64 seed);

    // Smooth noise, roughly in [-1, 1], with features about one unit apart.
    double noise(double x, double y) const;
    // Sum of octaves at doubling frequencies and amplitudes scaled by gain, normalised to about [-1, 1].
    double fractal(double x, double y, int octaves, double gain = 0.5) const;

private:
    double corner(int ix, int iy, double dx, double dy) const;

    std::array<quint8, 512> m_permutation;
};
