// Angles in degrees, in radians and in hours of the sun's way round the sky.
#pragma once

#include <numbers>

inline constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
inline constexpr double kDegreesPerHour = 15.0;  // of the hour angle

// The hour angle in degrees: 0 at true noon, afternoon positive. The time is true solar time in decimal hours.
inline double HourAngle(double trueSolarTime) {
    return (trueSolarTime - 12.0) * kDegreesPerHour;
}
