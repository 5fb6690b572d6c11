#pragma once
// HOTwinkle: a geometry flashed over the map a number of times — shown for one phase, hidden for the
// next — from a start time. The view draws it while it is shown and asks for a redraw at every
// change, so the caller never waits.
#include <chrono>
#include <vector>

#include "HOGeometry.h"
#include "HORefPtr.h"
#include "HOStyle.h"

namespace HXObjects {

class HOTwinkle {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kPhase{200};

    HOTwinkle(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style, int times, Clock::time_point start);

    bool IsShownAt(Clock::time_point now) const;
    // Every moment the picture changes (each show and hide), the last one ending the flashing.
    std::vector<Clock::time_point> Changes() const;
    const HOGeometry& Geometry() const { return *m_geometry; }
    const HOStyle* Style() const { return m_style.get(); }

private:
    HORefPtr<HOGeometry> m_geometry;
    HORefPtr<HOStyle> m_style;
    int m_times;
    Clock::time_point m_start;
};

}  // namespace HXObjects
