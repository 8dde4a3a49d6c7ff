// What an answer says of a window at one moment.
#pragma once

#include <vector>

#include "analysis/WindowResult.h"

enum class Light {
    None,    // no sun up and before the window, or hidden at an hour that does not count
    Sunlit,  // and valid
    Hidden,  // at a valid hour
    InVain,  // lit, and not valid
};

class Claim {
public:
    explicit Claim(const WindowResult& window);

    Light At(double hours) const;
    // Where periods begin and end.
    const std::vector<double>& Changes() const { return m_changes; }
    bool IsNearChange(double hours, double within) const;
    double Shortest() const;  // of all periods, hours; a day where there is none

private:
    struct Lit {
        SunPeriod period;
        Light light = Light::None;
    };
    std::vector<Lit> m_periods;  // where two touch, the earlier one here counts
    std::vector<double> m_changes;
};
