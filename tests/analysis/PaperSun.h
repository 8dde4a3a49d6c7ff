// The sun's hours by formulas that fit on paper, for windows that face south and shadows of straight edges.
//
// p is the latitude, d the declination, H the hour angle, A the azimuth from south (positive in the afternoon). With
// the altitude h:
//
//     sin h = sin p sin d + cos p cos d cos H,    tan A = sin H / (sin p cos H - cos p tan d)
//
// All results are hours from noon.
#pragma once

#include <cmath>

class PaperSun {
public:
    // Degrees.
    PaperSun(double latitude, double declination)
        : m_latitude(latitude / kDegree), m_declination(declination / kDegree) {}

    // At sunset h is 0: cos H = -tan p tan d.
    double Sunset() const { return Hours(std::acos(-std::tan(m_latitude) * std::tan(m_declination))); }

    // cos H = (sin h - sin p sin d) / (cos p cos d).
    double AtAltitude(double degrees) const {
        return Hours(std::acos((std::sin(degrees / kDegree) - std::sin(m_latitude) * std::sin(m_declination)) /
                               (std::cos(m_latitude) * std::cos(m_declination))));
    }

    // In the wall from east to west: A is 90 degrees, so that cos H = tan d / tan p.
    double InWall() const { return Hours(std::acos(std::tan(m_declination) / std::tan(m_latitude))); }

    // Where tan A = q, q >= 0: sin H - q sin p cos H = -q cos p tan d, whose left side is a sine of H - atan(q sin p).
    double AtAzimuth(double q) const {
        const double sinP = std::sin(m_latitude);
        return Hours(std::atan(q * sinP) + std::asin(-q * std::cos(m_latitude) * std::tan(m_declination) /
                                                     std::sqrt(1.0 + q * q * sinP * sinP)));
    }

    // A horizontal edge from east to west, `slope` times as high as it is far: tan h = slope cos A, that is
    // sin p sin d + cos p cos d cos H = slope (sin p cos d cos H - cos p sin d).
    double AtSlopeSouth(double slope) const {
        const double sinP = std::sin(m_latitude), cosP = std::cos(m_latitude);
        return Hours(std::acos(std::tan(m_declination) * (sinP + slope * cosP) / (slope * sinP - cosP)));
    }

    // A horizontal edge from south to north, in the west, `slope` times as high as it is far: tan h = slope sin A, that
    // is sin p tan d + cos p cos H = slope sin H, a cosine of H + atan(slope / cos p).
    double AtSlopeWest(double slope) const {
        const double cosP = std::cos(m_latitude);
        return Hours(std::acos(-std::sin(m_latitude) * std::tan(m_declination) / std::hypot(cosP, slope)) -
                     std::atan2(slope, cosP));
    }

private:
    static constexpr double kDegree = 180.0 / 3.14159265358979323846;
    static double Hours(double angle) { return angle * kDegree / 15.0; }

    double m_latitude;
    double m_declination;
};
