// The axes of the sun's circle, and when it is on one side of a plane.
#include "analysis/SunPath.h"

#include <cmath>

#include "facts/Angles.h"

namespace {

constexpr double kRadiansPerHour = kDegreesPerHour * kRadiansPerDegree;

}  // namespace

double HourAngleOf(double hours) {
    return (hours - 12.0) * kRadiansPerHour;
}

double HoursOf(double hourAngle) {
    return 12.0 + hourAngle / kRadiansPerHour;
}

HourArc SolveHourArc(double a, double b, double c) {
    const double reach = std::hypot(b, c);
    if (a >= reach)
        return {HourArc::Kind::Always};
    if (a <= -reach)
        return {HourArc::Kind::Never};
    return {HourArc::Kind::Arc, std::atan2(c, b), std::acos(-a / reach)};
}

SunPath::SunPath(double declination, double latitude, double north)
    : m_sinDeclination(std::sin(declination * kRadiansPerDegree)),
      m_cosDeclination(std::cos(declination * kRadiansPerDegree)) {
    const double turn = north * kRadiansPerDegree;
    const Vector3 east = {std::cos(turn), std::sin(turn), 0.0};
    const Vector3 trueNorth = {-std::sin(turn), std::cos(turn), 0.0};
    const Vector3 up = {0.0, 0.0, 1.0};
    const double sine = std::sin(latitude * kRadiansPerDegree);
    const double cosine = std::cos(latitude * kRadiansPerDegree);
    m_meridian = up * cosine - trueNorth * sine;
    m_west = -east;
    m_pole = trueNorth * cosine + up * sine;
}

Vector3 SunPath::ToSky(const Vector3& direction) const {
    return {Dot(direction, m_meridian), Dot(direction, m_west), Dot(direction, m_pole)};
}

Vector3 SunPath::DirectionAt(double hours) const {
    const double angle = HourAngleOf(hours);
    return m_meridian * (m_cosDeclination * std::cos(angle)) + m_west * (m_cosDeclination * std::sin(angle)) +
           m_pole * m_sinDeclination;
}

HourSpans SunPath::HoursBefore(const Vector3& normal, double threshold, SunPeriod within) const {
    const Vector3 sky = ToSky(normal);
    const HourArc arc =
        SolveHourArc(sky.z * m_sinDeclination - threshold, sky.x * m_cosDeclination, sky.y * m_cosDeclination);
    if (arc.kind == HourArc::Kind::Never)
        return {};
    if (arc.kind == HourArc::Kind::Always)
        return within;
    // The arc of every turn that the period has a part of.
    const double firstTurn = std::floor((HourAngleOf(within.start) - arc.middle) / kTurn);
    HourSpans hours;
    for (double turn = firstTurn * kTurn; turn + arc.middle - arc.half < HourAngleOf(within.end); turn += kTurn)
        hours.Add({HoursOf(turn + arc.middle - arc.half), HoursOf(turn + arc.middle + arc.half)});
    return Intersection(hours, within);
}
