// A point in space.
// Why: docs/decisions/geometry.md
#pragma once

#include <cmath>

// Three coordinates; (0, 0, 0) by default. Comparisons are exact, without any tolerance, so a coordinate that is not a
// number makes two points differ. Subtraction is in QcGeVector3d.h, since it gives a vector.
struct QcGePoint {
    // The origin.
    constexpr QcGePoint() = default;
    // From three coordinates.
    constexpr QcGePoint(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

    // The distance from the origin: the root of the sum of squares, and where that sum would overflow or lose its
    // digits, the same by a slower way that does not.
    double Length3d() const {
        const double square = x * x + y * y + z * z;
        if (square > 1e-280 && square < 1e300) [[likely]]
            return std::sqrt(square);
        return std::hypot(std::hypot(x, y), z);
    }

    // Exact, without any tolerance.
    constexpr bool operator==(const QcGePoint& other) const { return x == other.x && y == other.y && z == other.z; }
    constexpr bool operator!=(const QcGePoint& other) const { return !(*this == other); }
    // Orders by x, where those are equal by y, then by z.
    constexpr bool operator>(const QcGePoint& other) const {
        if (x != other.x)
            return x > other.x;
        if (y != other.y)
            return y > other.y;
        return z > other.z;
    }

    // In the unit of whoever made the point; in drawings z is upwards.
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
