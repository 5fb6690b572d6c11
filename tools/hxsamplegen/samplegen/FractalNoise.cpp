#include "FractalNoise.h"

#include <cmath>

#include "SampleRandom.h"

namespace {
double fade(double t) {
    return t * t * t * (t * (t * 6.0 - 15.0) + 10.0);
}
double lerp(double a, double b, double t) {
    return a + (b - a) * t;
}
}  // namespace

FractalNoise::FractalNoise(quint64 seed) {
    SampleRandom random(seed);
    for (int i = 0; i < 256; ++i) m_permutation[i] = quint8(i);
    for (int i = 255; i > 0; --i) std::swap(m_permutation[i], m_permutation[random.integer(0, i)]);
    for (int i = 0; i < 256; ++i) m_permutation[256 + i] = m_permutation[i];
}

double FractalNoise::corner(int ix, int iy, double dx, double dy) const {
    switch (m_permutation[m_permutation[ix & 255] + (iy & 255)] & 7) {
        case 0:
            return dx + dy;
        case 1:
            return -dx + dy;
        case 2:
            return dx - dy;
        case 3:
            return -dx - dy;
        case 4:
            return dx;
        case 5:
            return -dx;
        case 6:
            return dy;
        default:
            return -dy;
    }
}

double FractalNoise::noise(double x, double y) const {
    const double fx = std::floor(x), fy = std::floor(y);
    const int ix = int(fx), iy = int(fy);
    const double dx = x - fx, dy = y - fy;
    const double u = fade(dx), v = fade(dy);
    const double bottom = lerp(corner(ix, iy, dx, dy), corner(ix + 1, iy, dx - 1, dy), u);
    const double top = lerp(corner(ix, iy + 1, dx, dy - 1), corner(ix + 1, iy + 1, dx - 1, dy - 1), u);
    return lerp(bottom, top, v);
}

double FractalNoise::fractal(double x, double y, int octaves, double gain) const {
    double sum = 0, amplitude = 1, total = 0;
    for (int octave = 0; octave < octaves; ++octave) {
        // Shift each octave so that lattice points of different octaves do not line up.
        sum += amplitude * noise(x + octave * 31.7, y - octave * 17.3);
        total += amplitude;
        amplitude *= gain;
        x *= 2.0;
        y *= 2.0;
    }
    return sum / total;
}
