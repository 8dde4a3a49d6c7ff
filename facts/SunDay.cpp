// Noon, sunrise and sunset by the hour angle of the horizon.
#include "facts/SunDay.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr double kDegreesPerHour = 15.0;
constexpr double kBeijingMeridian = 120.0;

}  // namespace

SunDay ComputeSunDay(double declination, double equationOfTime, double longitude, double latitude) {
    SunDay day = {};
    day.noon = 12.0 - equationOfTime + (kBeijingMeridian - longitude) / kDegreesPerHour;
    const double cosine = -std::tan(latitude * kRadians) * std::tan(declination * kRadians);
    if (cosine <= -1.0) {
        day.kind = SunDay::Kind::PolarDay;
        day.dayLength = 24.0;
    } else if (cosine >= 1.0) {
        day.kind = SunDay::Kind::PolarNight;
    } else {
        const double half = std::acos(cosine) / kRadians / kDegreesPerHour;
        day.kind = SunDay::Kind::Ordinary;
        day.sunrise = day.noon - half;
        day.sunset = day.noon + half;
        day.dayLength = 2.0 * half;
    }
    return day;
}
