// How far two numbers may be apart and still be the same.
#pragma once

inline constexpr double kMinuteTolerance = 1e-6;  // of durations that a standard compares, minutes
inline constexpr double kShortestHours =
    1e-9;  // shorter periods are rounding, and so far a mark may lie off one; hours
inline constexpr double kLengthTolerance = 1e-3;  // of widths that a standard compares, millimetres
inline constexpr double kMillimetresPerMetre = 1000.0;
// A sun nearer to a plane than this (the sine of the angle) is in it: rounding would else choose a side.
inline constexpr double kSunInPlane = 1e-12;
