// What a request says of the windows that a plan draws as lines.
#pragma once

#include <optional>

#include "analysis/PlanRules.h"
#include "platform/base/CString.h"

struct AskedPlan {
    std::optional<CString> sill;          // metres, from -10,000 to 10,000
    std::optional<CString> windowHeight;  // metres, above 0 and up to 1000
    std::optional<CString> storeys;       // N=METRES: from 1 to 1000, above 0 and up to 100
};

// Gives an ExitCode; when it is no success, that has been complained about.
int ReadAskedPlan(const AskedPlan& asked, PlanRules& rules);
