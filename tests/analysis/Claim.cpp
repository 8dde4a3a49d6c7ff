// Looking a moment up among the periods of an answer.
#include "Claim.h"

#include <algorithm>
#include <cmath>

Claim::Claim(const WindowResult& window) {
    for (const SunPeriod& period : window.sunlit)
        m_periods.push_back({period, Light::Sunlit});
    for (const HiddenPeriod& hidden : window.hidden)
        m_periods.push_back({hidden.period, Light::Hidden});
    for (const DroppedPeriod& dropped : window.dropped)
        if (dropped.reason == DropReason::Facing || dropped.reason == DropReason::Angle)
            m_periods.push_back({dropped.period, Light::InVain});
    for (const Lit& lit : m_periods) {
        m_changes.push_back(lit.period.start);
        m_changes.push_back(lit.period.end);
    }
}

Light Claim::At(double hours) const {
    for (const Lit& lit : m_periods)
        if (lit.period.start <= hours && hours <= lit.period.end)
            return lit.light;
    return Light::None;
}

bool Claim::IsNearChange(double hours, double within) const {
    return std::any_of(m_changes.begin(), m_changes.end(),
                       [&](double change) { return std::fabs(change - hours) <= within; });
}

double Claim::Shortest() const {
    double shortest = 24.0;
    for (const Lit& lit : m_periods)
        shortest = std::min(shortest, lit.period.end - lit.period.start);
    return shortest;
}
