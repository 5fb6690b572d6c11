#pragma once
// BenchClock: wall-clock seconds a piece of work takes.
#include <chrono>

class BenchClock {
public:
    template <class Work>
    static double Seconds(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
};
