// Noon, sunrise and sunset by the hour angle of the horizon.
#include "facts/SunDay.h"

#include <cmath>

#include "facts/Angles.h"
#include "facts/DayTerms.h"
#include "facts/Place.h"

namespace {

constexpr double kBeijingMeridian = 120.0;

}  // namespace

SunDay ComputeSunDay(double declination, double equationOfTime, double longitude, double latitude) {
    SunDay day;
    day.declination = declination;
    day.equationOfTime = equationOfTime;
    day.longitude = longitude;
    day.latitude = latitude;
    day.noon = 12.0 - equationOfTime + (kBeijingMeridian - longitude) / kDegreesPerHour;
    // The sine of the altitude is middle + swing cos H. Without tangents, which fail at the poles.
    const double middle = std::sin(latitude * kRadiansPerDegree) * std::sin(declination * kRadiansPerDegree);
    const double swing = std::cos(latitude * kRadiansPerDegree) * std::cos(declination * kRadiansPerDegree);
    if (middle >= swing) {
        day.kind = SunDay::Kind::PolarDay;
        day.dayLength = 24.0;
    } else if (middle <= -swing) {
        day.kind = SunDay::Kind::PolarNight;
    } else {
        const double half = std::acos(-middle / swing) / kRadiansPerDegree / kDegreesPerHour;
        day.kind = SunDay::Kind::Ordinary;
        day.sunrise = day.noon - half;
        day.sunset = day.noon + half;
        day.dayLength = 2.0 * half;
    }
    return day;
}

SunDay ComputeSunDay(const DayTerms& terms, const Place& place) {
    return ComputeSunDay(terms.declination, terms.equationOfTime, place.longitude, place.latitude);
}
