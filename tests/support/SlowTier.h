// Whether tests may take their time: see docs/testing.md.
#pragma once

#include <cstdlib>
#include <string_view>

inline bool IsSlowTier() {
    const char* tier = std::getenv("ORVO_TEST_SLOW");
    return tier && std::string_view(tier) == "1";
}
