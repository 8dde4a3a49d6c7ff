// The sun's circle through one day, as a drawing sees it.
//
// One declination d holds for the whole day, so that the sun runs around the pole on a circle. In the axes
//
//     meridian = (0, -sin p, cos p),  west = (-1, 0, 0),  pole = (0, cos p, sin p)      (east, north, up; latitude p)
//
// the direction to it at the hour angle H is (cos d cos H, cos d sin H, sin d): facts/SunPosition.h in other axes.
#pragma once

#include <numbers>

#include "analysis/HourSpans.h"
#include "analysis/Vector3.h"

inline constexpr double kTurn = 2.0 * std::numbers::pi;  // radians

// Hours of the day in radians of the hour angle, and back. Times are true solar time.
double HourAngleOf(double hours);
double HoursOf(double hourAngle);

// When a + b cos H + c sin H >= 0 holds: within `half` of `middle` (radians of the hour angle, and every turn from
// there), always or never.
struct HourArc {
    enum class Kind { Always, Never, Arc };
    Kind kind = Kind::Always;
    double middle = 0.0;  // (-pi, pi]
    double half = 0.0;    // (0, pi)
};
// Of an arc of no length there is nothing left.
HourArc SolveHourArc(double a, double b, double c);

class SunPath {
public:
    // Degrees; `north` is how far true north lies counter-clockwise of the drawing's y axis.
    SunPath(double declination, double latitude, double north);

    // A direction of the drawing in the axes above.
    Vector3 ToSky(const Vector3& direction) const;
    // The direction to the sun in the drawing's axes, of length 1.
    Vector3 DirectionAt(double hours) const;
    // The hours of the period in which the direction to the sun, times the normal (in the drawing's axes), is
    // `threshold` or more.
    HourSpans HoursBefore(const Vector3& normal, double threshold, SunPeriod within) const;

    double SinDeclination() const { return m_sinDeclination; }
    double CosDeclination() const { return m_cosDeclination; }

private:
    double m_sinDeclination;
    double m_cosDeclination;
    Vector3 m_meridian;  // in the drawing's axes
    Vector3 m_west;
    Vector3 m_pole;
};
