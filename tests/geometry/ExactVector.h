// Vectors of fractions: arithmetic without rounding, which judges the arithmetic with. Every double is a fraction.
#pragma once

#include <gmpxx.h>

#include <array>
#include <cmath>

#include "platform/geometry/QcGePoint.h"

using Exact = mpq_class;
using ExactVector = std::array<Exact, 3>;

inline ExactVector ToExact(const QcGePoint& p) {
    return {Exact(p.x), Exact(p.y), Exact(p.z)};
}

inline ExactVector operator-(const ExactVector& left, const ExactVector& right) {
    return {left[0] - right[0], left[1] - right[1], left[2] - right[2]};
}

inline Exact Dot(const ExactVector& left, const ExactVector& right) {
    return left[0] * right[0] + left[1] * right[1] + left[2] * right[2];
}

inline ExactVector Cross(const ExactVector& left, const ExactVector& right) {
    return {left[1] * right[2] - left[2] * right[1], left[2] * right[0] - left[0] * right[2],
            left[0] * right[1] - left[1] * right[0]};
}

inline double Length(const ExactVector& v) {
    const Exact square = Dot(v, v);
    return std::sqrt(square.get_d());
}

// Cosine between two directions, signs exact, size rounded.
inline double Cosine(const ExactVector& left, const ExactVector& right) {
    const Exact dot = Dot(left, right);
    return dot.get_d() / Length(left) / Length(right);
}
