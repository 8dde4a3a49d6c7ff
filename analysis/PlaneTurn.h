// Which way a path through three points of a plane turns, without rounding.
#pragma once

#include <cmath>
#include <limits>

struct PlanePoint {
    double x = 0.0;
    double y = 0.0;
};

// What TurnsLeft answers, where plain arithmetic is not sure of it.
bool TurnsLeftExactly(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c);

// Whether the way from a to b to c turns to the left; not where the three lie in one line. The numbers count as they
// are, however much larger some are than the others: a hull is whole only when all of its turns come of the same
// points. They and the products of two of them are finite, and no such product other than 0 is below 1e-250.
inline bool TurnsLeft(const PlanePoint& a, const PlanePoint& b, const PlanePoint& c) {
    // Three roundings of each product, and one of their difference.
    constexpr double kUnsure = 4.0 * std::numeric_limits<double>::epsilon();
    const double left = (b.x - a.x) * (c.y - a.y);
    const double right = (b.y - a.y) * (c.x - a.x);
    if (std::abs(left - right) > kUnsure * (std::abs(left) + std::abs(right)))
        return left > right;
    // Differences of 0 are exact: one upright or level line, or twice the same point.
    return (left != 0.0 || right != 0.0) && TurnsLeftExactly(a, b, c);
}
