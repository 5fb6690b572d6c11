#pragma once

#include <QtGlobal>

// A deterministic stream of pseudo-random numbers (SplitMix64). The standard library's distributions
// differ between implementations, so the generator draws its own numbers: the same seed gives the same
// region on every platform. Each part of the region forks its own stream, so changing how many
// features one layer draws does not reshuffle the others.
class SampleRandom {
public:
    explicit SampleRandom(quint64 seed) : m_state(seed) {}

    // An independent stream identified by tag, derived from this stream's seed.
    SampleRandom fork(quint64 tag) const { return SampleRandom(mix(m_state ^ mix(tag + 0x51ed27))); }

    quint64 next();
    double uniform();                         // [0, 1)
    double uniform(double low, double high);  // [low, high)
    int integer(int low, int high);           // [low, high]
    bool chance(double probability) { return uniform() < probability; }

    // A well-mixed hash of a value: lattice coordinates and edge keys become reproducible numbers.
    static quint64 mix(quint64 value);
    static double unit(quint64 hash);  // a hash mapped to [0, 1)

private:
    quint64 m_state;
};
