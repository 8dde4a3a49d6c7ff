// Where the sun stands: against an independent almanac, and in cases that are known without computing.
#include "facts/SunPosition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <numbers>
#include <vector>

#include "calendar/AlmanacSun.h"
#include "facts/AlmanacDirections.h"
#include "facts/DayTerms.h"
#include "facts/SunDay.h"

namespace {

SunPosition At(double latitude, double declination, double time) {
    return PositionOfSun(ComputeSunDay(declination, 0.0, 120.0, latitude), time);
}

}  // namespace

TEST(TheSunsPosition, IsTheAlmanacsForTheAlmanacsDeclinationAndHourAngle) {
    const std::vector<TabulatedSun> rows = AlmanacDirections();
    for (const TabulatedSun& row : rows)
        EXPECT_LT(Apart(At(row.latitude, row.declination, row.trueSolarTime), row.position), 1e-4)
            << row.latitude << " at " << row.utc;
}

TEST(TheSunsPosition, ByTheModulesCalendarIsWithinTheStatedErrors) {
    for (const TabulatedSun& row : AlmanacDirections()) {
        CalendarDay day = {};
        const double error = Apart(PositionByTheCalendar(row, day), row.position);
        EXPECT_LT(error, 0.75) << day.month << '-' << day.day;
        if (row.position.altitude <= 0.0)
            continue;
        const bool isSolstice = day.month == 12 && day.day == 22;
        const bool isGreatCold = day.month == 1 && day.day == 20;
        EXPECT_LT(error, isSolstice ? 0.12 : isGreatCold ? 0.3 : 0.6) << day.month << '-' << day.day;
    }
}

// Every hour of every day on Beijing's meridian, while the sun is up, from the equator to the north of China.
TEST(TheSunsPosition, ByTheModulesCalendarIsWithinTheStatedErrorsThroughTheYear) {
    using namespace std::chrono;
    double sum = 0.0;
    int count = 0;
    double worst = 0.0;
    double worstOfSolstice = 0.0;
    double worstOfGreatCold = 0.0;
    for (sys_days day = year{2021} / 1 / 1; day < sys_days(year{2033} / 1 / 1); day += days{1}) {
        const year_month_day date(day);
        const CalendarDay calendarDay = {static_cast<int>(date.year()), static_cast<int>(unsigned(date.month())),
                                         static_cast<int>(unsigned(date.day()))};
        const DayTerms terms = TermsFor(calendarDay);
        for (int hour = 0; hour < 24; ++hour) {
            const AlmanacSun sun = SunAtBeijing(day, hours{hour});
            for (const double latitude : {0.0, 25.0, 50.0}) {
                const SunPosition real = At(latitude, sun.declination, hour + sun.equationOfTime);
                if (real.altitude <= 0.0)
                    continue;
                const double error = Apart(At(latitude, terms.declination, hour + terms.equationOfTime), real);
                sum += error;
                ++count;
                worst = std::max(worst, error);
                if (date.month() == December && date.day() == std::chrono::day{22})
                    worstOfSolstice = std::max(worstOfSolstice, error);
                if (date.month() == January && date.day() == std::chrono::day{20})
                    worstOfGreatCold = std::max(worstOfGreatCold, error);
            }
        }
    }
    EXPECT_LT(worst, 0.85);
    EXPECT_GT(worst, 0.75) << "the statement is no better than the truth";
    EXPECT_LT(sum / count, 0.3);
    EXPECT_LT(worstOfSolstice, 0.3);
    EXPECT_LT(worstOfGreatCold, 0.45);
}

TEST(TheSunsPosition, AtNoonIsTheDifferenceOfLatitudeAndDeclination) {
    for (double latitude = -90.0; latitude <= 90.0; latitude += 7.5) {
        for (const double declination : {-23.45, -3.0, 0.0, 11.0, 23.45}) {
            const SunPosition noon = At(latitude, declination, 12.0);
            EXPECT_NEAR(noon.altitude, 90.0 - std::abs(latitude - declination), 1e-12);
            if (latitude == declination)
                continue;
            EXPECT_NEAR(noon.azimuth, latitude > declination ? 180.0 : 0.0, 1e-9) << latitude << ' ' << declination;
        }
    }
}

TEST(TheSunsPosition, IsKnownWithoutComputing) {
    EXPECT_NEAR(At(40.0, 0.0, 6.0).azimuth, 90.0, 1e-9) << "on an equinox it rises in the east";
    EXPECT_NEAR(At(40.0, 0.0, 18.0).azimuth, 270.0, 1e-9);
    EXPECT_NEAR(At(90.0, 20.0, 3.0).altitude, 20.0, 1e-12) << "round the pole at one height";
    EXPECT_NEAR(At(0.0, 0.0, 9.0).altitude, 45.0, 1e-12);
    EXPECT_NEAR(At(30.0, 20.0, 24.0).altitude, -40.0, 1e-12) << "midnight";
    EXPECT_NEAR(At(-33.9, 10.0, 12.0).azimuth, 0.0, 1e-9) << "noon is in the north of the southern half";
    EXPECT_LT(At(31.2, -23.45, 9.0).azimuth, 180.0) << "mornings are in the east";
    EXPECT_GT(At(31.2, -23.45, 15.0).azimuth, 180.0);
}

TEST(TheSunsPosition, RepeatsAfterADay) {
    for (const double time : {-13.0, 0.5, 7.25}) {
        EXPECT_NEAR(At(31.2, 15.0, time).altitude, At(31.2, 15.0, time + 24.0).altitude, 1e-9);
        EXPECT_NEAR(At(31.2, 15.0, time).azimuth, At(31.2, 15.0, time + 24.0).azimuth, 1e-9);
    }
}

TEST(TheSunsDirection, HasTheLengthOne) {
    for (double time = 0.0; time < 24.0; time += 0.7) {
        const SunDirection way = DirectionOfSun(ComputeSunDay(-17.0, 0.0, 120.0, 52.0), time);
        EXPECT_NEAR(std::hypot(way.east, way.north, way.up), 1.0, 1e-15);
    }
}

TEST(TheSunsDirection, IsNeitherEastNorWestAtNoon) {
    const double east = DirectionOfSun(ComputeSunDay(-17.0, 0.0, 120.0, 52.0), 12.0).east;
    EXPECT_EQ(east, 0.0);
    EXPECT_FALSE(std::signbit(east)) << "nor is it written as -0";
}

TEST(ThePositionOfADirection, HasAnAzimuthFromZeroUpToATurn) {
    EXPECT_EQ(PositionOf({0.0, 0.0, 1.0}).azimuth, 0.0) << "the zenith has none";
    EXPECT_EQ(PositionOf({0.0, 0.0, 1.0}).altitude, 90.0);
    EXPECT_EQ(PositionOf({0.0, 0.0, -1.0}).altitude, -90.0);
    EXPECT_FALSE(std::signbit(PositionOf({-0.0, 1.0, 0.0}).azimuth));
    EXPECT_EQ(PositionOf({-1e-300, 1.0, 0.0}).azimuth, 0.0) << "not 360";
    EXPECT_EQ(PositionOf({0.0, -1.0, 0.0}).azimuth, 180.0);
    EXPECT_EQ(PositionOf({-0.0, -1.0, 0.0}).azimuth, 180.0);
    EXPECT_EQ(PositionOf({1.0, 0.0, 0.0}).azimuth, 90.0);
    EXPECT_EQ(PositionOf({-2.0, 0.0, 0.0}).azimuth, 270.0);
    EXPECT_NEAR(PositionOf({1e-9, 0.0, 1.0}).altitude, 90.0 - 1e-9 * 180.0 / std::numbers::pi, 1e-13);
}

TEST(AShadow, IsAsLongAsTheSunIsLow) {
    EXPECT_NEAR(ShadowLength({45.0, 0.0}).value(), 1.0, 1e-15);
    EXPECT_NEAR(ShadowLength({30.0, 0.0}).value(), std::sqrt(3.0), 1e-14);
    EXPECT_NEAR(ShadowLength({90.0, 0.0}).value(), 0.0, 1e-15);
    EXPECT_FALSE(ShadowLength({0.0, 0.0}));
    EXPECT_FALSE(ShadowLength({-5.0, 0.0}));
}
