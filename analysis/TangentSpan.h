// Hours of a part of the day as tangents.
//
// In the axes of a sector (DaySector.h) the direction to the sun is (cos d cos H, cos d sin H, sin d), with the hour
// angle H within a sixth of a turn. With u = tan H that is, save for its length, (1, u, t w), where w = sqrt(1 + u^2)
// and t = tan d.
#pragma once

#include <cmath>

// Without a length it is none. Not initialised: there are arrays of them in inner loops.
struct TangentSpan {
    double least;
    double most;
};

// A span that is asked about, with w at its ends.
struct AskedSpan : TangentSpan {
    explicit AskedSpan(TangentSpan span)
        : TangentSpan(span), wAtLeast(std::sqrt(1.0 + least * least)), wAtMost(std::sqrt(1.0 + most * most)) {}
    double wAtLeast;
    double wAtMost;
};
