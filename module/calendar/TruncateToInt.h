// Cutting the fraction off a number that may be anything.
#pragma once

#include <cmath>
#include <limits>

// `value` truncated toward zero. What lies beyond int gives the nearer end of int (an infinity too), and what is not a
// number gives 0, so that no text in a file can lead to undefined behaviour.
inline int TruncateToInt(double value) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    if (value <= kLeast)
        return kLeast;
    return value >= kMost ? kMost : static_cast<int>(value);
}
