// What a plan does not say of the windows that it draws as lines.
// Why: docs/decisions/analysis.md
#pragma once

#include <optional>

// A plan that stands for several storeys.
struct Storeys {
    int count = 1;      // in all, 1 to kMostStoreys
    double step = 0.0;  // metres from one to the next, above 0
};
// The most storeys that a plan may stand for.
inline constexpr int kMostStoreys = 1000;

// None where the drawing is to say it. The numbers are the caller's to check.
struct PlanRules {
    std::optional<double> sill;          // metres: of lines that are drawn without an elevation
    std::optional<double> windowHeight;  // metres, above 0: of lines that are drawn without a thickness
    std::optional<Storeys> storeys;      // of which the plan is the lowest
};
