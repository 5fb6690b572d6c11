#include "HOTwinkle.h"

namespace HXObjects {

HOTwinkle::HOTwinkle(HORefPtr<HOGeometry> geometry, HORefPtr<HOStyle> style, int times,
                     Clock::time_point start)
    : m_geometry(std::move(geometry)), m_style(std::move(style)), m_times(times), m_start(start) {}

bool HOTwinkle::IsShownAt(Clock::time_point now) const {
    if (now < m_start) return false;
    const auto phase = (now - m_start) / kPhase;
    return phase < 2 * m_times && phase % 2 == 0;
}

std::vector<HOTwinkle::Clock::time_point> HOTwinkle::Changes() const {
    std::vector<Clock::time_point> changes;
    for (int i = 1; i <= 2 * m_times; ++i) changes.push_back(m_start + i * kPhase);
    return changes;
}

}  // namespace HXObjects
