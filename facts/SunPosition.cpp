// Computes the sun's direction from the hour angle, and altitude and azimuth from a direction.
#include "facts/SunPosition.h"

#include <cmath>

#include "facts/Angles.h"
#include "facts/SunDay.h"

namespace {

constexpr double kTurn = 360.0;

}  // namespace

SunDirection DirectionOfSun(const SunDay& day, double trueSolarTime) {
    const double p = day.latitude * kRadiansPerDegree;
    const double d = day.declination * kRadiansPerDegree;
    const double h = HourAngle(trueSolarTime) * kRadiansPerDegree;
    return {0.0 - std::cos(d) * std::sin(h),  // at noon no negative zero
            std::cos(p) * std::sin(d) - std::sin(p) * std::cos(d) * std::cos(h),
            std::sin(p) * std::sin(d) + std::cos(p) * std::cos(d) * std::cos(h)};
}

SunPosition PositionOf(const SunDirection& direction) {
    const double flat = std::hypot(direction.east, direction.north);
    SunPosition position;
    position.altitude = std::atan2(direction.up, flat) / kRadiansPerDegree;
    if (flat == 0.0)
        return position;
    const double azimuth = std::atan2(direction.east, direction.north) / kRadiansPerDegree;
    position.azimuth = azimuth < 0.0 ? azimuth + kTurn : azimuth + 0.0;  // no negative zero
    if (position.azimuth >= kTurn)                                       // a hair's breadth west of north
        position.azimuth = 0.0;
    return position;
}

SunPosition PositionOfSun(const SunDay& day, double trueSolarTime) {
    return PositionOf(DirectionOfSun(day, trueSolarTime));
}

std::optional<double> ShadowLength(const SunPosition& position) {
    if (!(position.altitude > 0.0))
        return std::nullopt;
    return 1.0 / std::tan(position.altitude * kRadiansPerDegree);
}
