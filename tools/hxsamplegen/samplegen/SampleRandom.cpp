#include "SampleRandom.h"

quint64 SampleRandom::mix(quint64 value) {
    value += 0x9e3779b97f4a7c15ULL;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
    return value ^ (value >> 31);
}

double SampleRandom::unit(quint64 hash) {
    return double(hash >> 11) * (1.0 / 9007199254740992.0);
}

quint64 SampleRandom::next() {
    m_state += 0x9e3779b97f4a7c15ULL;
    return mix(m_state);
}

double SampleRandom::uniform() {
    return unit(next());
}

double SampleRandom::uniform(double low, double high) {
    return low + (high - low) * uniform();
}

int SampleRandom::integer(int low, int high) {
    return low + int(next() % quint64(high - low + 1));
}
