// The sun as an independent almanac has it, at 11 places of the globe, and as the module's calendar has it then.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include "facts/DayTerms.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "support/Folders.h"

// One row of the almanac.
struct TabulatedSun {
    double longitude;
    double latitude;
    std::time_t utc;
    double trueSolarTime;
    double declination;
    SunPosition position;
};

inline std::vector<TabulatedSun> AlmanacDirections() {
    std::ifstream file(SourceFolder() + "/tests/facts/data/sun-directions.csv");
    std::vector<TabulatedSun> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        TabulatedSun row = {};
        std::tm utc = {};
        const int read =
            std::sscanf(line.c_str(), "%*[^,],%lf,%lf,%d-%d-%dT%d:%d:%dZ,%lf,%lf,%lf,%lf", &row.longitude,
                        &row.latitude, &utc.tm_year, &utc.tm_mon, &utc.tm_mday, &utc.tm_hour, &utc.tm_min, &utc.tm_sec,
                        &row.trueSolarTime, &row.declination, &row.position.altitude, &row.position.azimuth);
        EXPECT_EQ(read, 12) << line;
        utc.tm_year -= 1900;
        utc.tm_mon -= 1;
        row.utc = timegm(&utc);
        rows.push_back(row);
    }
    EXPECT_EQ(rows.size(), 936U);
    return rows;
}

// The angle between two directions on the sky, degrees.
inline double Apart(const SunPosition& left, const SunPosition& right) {
    const auto vector = [](const SunPosition& position) {
        const double altitude = position.altitude * std::numbers::pi / 180.0;
        const double azimuth = position.azimuth * std::numbers::pi / 180.0;
        return SunDirection{std::cos(altitude) * std::sin(azimuth), std::cos(altitude) * std::cos(azimuth),
                            std::sin(altitude)};
    };
    const SunDirection a = vector(left);
    const SunDirection b = vector(right);
    return 2.0 * std::asin(std::hypot(a.east - b.east, a.north - b.north, a.up - b.up) / 2.0) * 180.0 /
           std::numbers::pi;
}

// The row's time by the module's calendar: the day that it is at the place, by its mean solar time.
inline SunPosition PositionByTheCalendar(const TabulatedSun& row, CalendarDay& day) {
    const auto meanTime = row.utc + static_cast<std::time_t>(row.longitude * 240.0);
    std::tm local = {};
    gmtime_r(&meanTime, &local);
    day = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
    std::tm midnight = {};
    midnight.tm_year = local.tm_year;
    midnight.tm_mon = local.tm_mon;
    midnight.tm_mday = local.tm_mday;
    const double beijing = static_cast<double>(row.utc + 8 * 3600 - timegm(&midnight)) / 3600.0;
    const DayTerms terms = TermsFor(day);
    const SunDay sun = ComputeSunDay(terms.declination, terms.equationOfTime, row.longitude, row.latitude);
    return PositionOfSun(sun, sun.TrueSolarTime(beijing));
}
