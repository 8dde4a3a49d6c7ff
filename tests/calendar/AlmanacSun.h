// The sun by the low-precision formulas that almanacs print for it: what the calendar's numbers are measured with.
#pragma once

#include <chrono>
#include <cmath>
#include <numbers>

struct AlmanacSun {
    double longitude;       // on the ecliptic of date, degrees from 0
    double declination;     // degrees
    double equationOfTime;  // true less mean solar time, hours
};

// Good to a minute of arc (0.01 degrees of declination, which moves by 0.4 degrees in one of longitude) and 3.5 seconds
// of time from 1950 to 2050.
inline AlmanacSun SunAt(std::chrono::sys_seconds universalTime) {
    using namespace std::chrono;
    constexpr double kDegree = std::numbers::pi / 180.0;
    const sys_seconds epoch = sys_days(year{2000} / 1 / 1) + hours{12};
    const double days = static_cast<double>((universalTime - epoch).count()) / 86400.0;
    const double mean = 280.460 + 0.9856474 * days;
    const double anomaly = (357.528 + 0.9856003 * days) * kDegree;
    const double longitude = mean + 1.915 * std::sin(anomaly) + 0.020 * std::sin(2 * anomaly);
    const double obliquity = (23.439 - 0.0000004 * days) * kDegree;
    const double sine = std::sin(longitude * kDegree);
    const double ascension = std::atan2(std::cos(obliquity) * sine, std::cos(longitude * kDegree)) / kDegree;
    return {longitude - 360.0 * std::floor(longitude / 360.0), std::asin(std::sin(obliquity) * sine) / kDegree,
            std::remainder(mean - ascension, 360.0) / 15.0};
}

// Clocks in Beijing are eight hours ahead.
inline AlmanacSun SunAtBeijing(std::chrono::sys_days day, std::chrono::seconds sinceMidnight) {
    return SunAt(std::chrono::sys_seconds(day) + sinceMidnight - std::chrono::hours{8});
}

inline AlmanacSun SunAtNoon(std::chrono::sys_days day) {
    return SunAtBeijing(day, std::chrono::hours{12});
}
