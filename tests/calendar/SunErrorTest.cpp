// How far the calendar's declination and equation of time are from the sun's: the bounds that the headers state.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>
#include <vector>

#include "AlmanacSun.h"
#include "AlmanacTerms.h"
#include "calendar/OrvoDate.h"

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;

constexpr int kFirstYear = 2001;
constexpr int kLastYear = 2040;
constexpr double kSeconds = 3600.0;  // in an hour

OrvoDate DateOf(sys_days day) {
    const std::chrono::year_month_day parts(day);
    return {int(parts.year()), int(unsigned(parts.month())), int(unsigned(parts.day()))};
}

sys_days DayOfTerm(int yearNumber, int index) {
    const MonthDay day = OrvoDate(yearNumber, 1, 1).GetTerm(index)->GetMonthDay();
    return year{yearNumber} / day.month / day.day;
}

std::vector<sys_days> DaysOf(int yearNumber) {
    std::vector<sys_days> all;
    for (sys_days day = year{yearNumber} / 1 / 1; day < sys_days(year{yearNumber + 1} / 1 / 1); day += days{1})
        all.push_back(day);
    return all;
}

// Gathers differences, of any sign.
struct Error {
    void Add(double difference) {
        worst = std::max(worst, std::fabs(difference));
        sum += std::fabs(difference);
        squares += difference * difference;
        ++count;
    }
    double Mean() const { return sum / count; }
    double RootMeanSquare() const { return std::sqrt(squares / count); }

    double worst = 0.0;
    double sum = 0.0;
    double squares = 0.0;
    int count = 0;
};

}  // namespace

TEST(SunError, IsMeasuredWithASunThatAgreesWithTheAlmanac) {
    for (const AlmanacTerm& term : AllAlmanacTerms()) {
        const AlmanacSun noon = SunAtNoon(term.day);
        EXPECT_NEAR(noon.declination, term.declinationAtNoon, 0.01) << term.index;
        EXPECT_NEAR(noon.equationOfTime, term.equationOfTimeAtNoon, 3.5 / kSeconds) << term.index;
        const AlmanacSun sun = SunAtBeijing(term.day, term.time);
        EXPECT_NEAR(std::remainder(sun.longitude - 270.0 - 15.0 * term.index, 360.0), 0.0, 1.0 / 60.0) << term.index;
    }
}

TEST(SunError, OfTheRowsBeginsWithTheirRounding) {
    OrvoDate date(2025, 1, 1);
    for (int index = 0; index < 24; ++index) {
        const double seconds = date.GetTerm(index)->m_dgTime.getDegree() * kSeconds;
        const double minutes = date.GetTerm(index)->m_dgLat.getDegree() * 60.0;
        EXPECT_NEAR(seconds, std::round(seconds), 0.002) << index;
        EXPECT_NEAR(minutes, std::round(minutes), 0.0001) << index;
    }
}

TEST(SunError, OfTheRowsAtTheInstantsOfTheTerms) {
    OrvoDate date(2025, 1, 1);
    Error declination;
    Error equationOfTime;
    for (const AlmanacTerm& term : AlmanacTermsOf2024And2025()) {
        declination.Add(date.GetTerm(term.index)->m_dgLat.getDegree() - term.declination);
        equationOfTime.Add((date.GetTerm(term.index)->m_dgTime.getDegree() - term.equationOfTime) * kSeconds);
    }
    EXPECT_LE(declination.worst, 0.22);
    EXPECT_NEAR(declination.RootMeanSquare(), 0.09, 0.005);
    EXPECT_LE(equationOfTime.worst, 21.0);
    EXPECT_NEAR(equationOfTime.RootMeanSquare(), 7.5, 0.5);
    EXPECT_GT(std::fabs(date.GetTerm(18)->m_dgLat.getDegree()), 0.21) << "at the equinox the sun's is 0";
}

TEST(SunError, OfTheRowsOnTheirOwnDays) {
    Error declination;
    Error equationOfTime;
    for (int yearNumber = kFirstYear; yearNumber <= kLastYear; ++yearNumber) {
        for (int index = 0; index < 24; ++index) {
            const sys_days day = DayOfTerm(yearNumber, index);
            OrvoDate date = DateOf(day);
            declination.Add(date.GetDgLat() - SunAtNoon(day).declination);
            equationOfTime.Add((date.GetDgTime() - SunAtNoon(day).equationOfTime) * kSeconds);
        }
    }
    EXPECT_LE(declination.worst, 0.45);
    EXPECT_NEAR(declination.RootMeanSquare(), 0.19, 0.01);
    EXPECT_LE(equationOfTime.worst, 30.0);
    EXPECT_NEAR(equationOfTime.RootMeanSquare(), 11.0, 0.5);
}

// The sun passes a term's longitude on the row's day or on the day before.
TEST(SunError, OfTheRowsDays) {
    int late = 0;
    for (int yearNumber = kFirstYear; yearNumber <= kLastYear; ++yearNumber) {
        for (int index = 0; index < 24; ++index) {
            const sys_days day = DayOfTerm(yearNumber, index);
            const auto beyond = [&](sys_days midnight) {
                const double longitude = SunAtBeijing(midnight, std::chrono::seconds{0}).longitude;
                return std::remainder(longitude - 270.0 - 15.0 * index, 360.0);
            };
            EXPECT_LT(beyond(day - days{1}), 0.0) << yearNumber << " term " << index;
            if (beyond(day + days{1}) > 0.0)
                continue;
            ++late;
            EXPECT_TRUE(yearNumber == 2004 && index == 18) << yearNumber << " term " << index;
        }
    }
    EXPECT_EQ(late, 1);
}

TEST(SunError, OfTheDeclinationThroughTheYear) {
    Error error;
    sys_days worstDay;
    for (int yearNumber = kFirstYear; yearNumber <= kLastYear; ++yearNumber) {
        for (const sys_days day : DaysOf(yearNumber)) {
            const double before = error.worst;
            error.Add(DateOf(day).GetDgLat() - SunAtNoon(day).declination);
            if (error.worst > before)
                worstDay = day;
        }
    }
    EXPECT_LE(error.worst, 0.75);
    EXPECT_GT(error.worst, 0.70);
    EXPECT_EQ(std::chrono::year_month_day(worstDay).month(), std::chrono::February);
    EXPECT_NEAR(error.Mean(), 0.26, 0.015);
}

// What the row of a term's day differs from the formula, which is nearly straight over the three days.
TEST(SunError, OfTheDeclinationJumpsBesideATerm) {
    const struct {
        int year;
        double worst;
        int worstTerm;
    } cases[] = {{2025, 0.50, 10}, {2024, 0.75, 8}};
    for (const auto& each : cases) {
        std::vector<std::pair<double, int>> jumps;
        for (int index = 0; index < 24; ++index) {
            const sys_days day = DayOfTerm(each.year, index);
            const double beside = DateOf(day - days{1}).GetDgLat() + DateOf(day + days{1}).GetDgLat();
            jumps.emplace_back(std::fabs(DateOf(day).GetDgLat() - beside / 2.0), index);
        }
        std::sort(jumps.begin(), jumps.end());
        EXPECT_NEAR(jumps.back().first, each.worst, 0.01) << each.year;
        EXPECT_EQ(jumps.back().second, each.worstTerm) << each.year;
        EXPECT_NEAR((jumps[11].first + jumps[12].first) / 2.0, 0.27, 0.02) << each.year << ", the median";
    }
}

TEST(SunError, OfTheEquationOfTimeThroughTheYear) {
    Error error;
    for (int yearNumber = kFirstYear; yearNumber <= kLastYear; ++yearNumber)
        for (const sys_days day : DaysOf(yearNumber))
            error.Add((DateOf(day).GetDgTime() - SunAtNoon(day).equationOfTime) * kSeconds);
    EXPECT_LE(error.worst, 35.0);
    EXPECT_GT(error.worst, 33.0);
    EXPECT_NEAR(error.RootMeanSquare(), 15.0, 0.5);
}

// With rows that are the sun's own, what is left is what straight interpolation takes.
TEST(SunError, OfStraightInterpolationAlone) {
    double worst = 0.0;
    sys_days worstDay;
    for (const int yearNumber : {2024, 2025}) {
        OrvoDate date(yearNumber, 1, 1);
        for (int index = 0; index < 24; ++index)
            date.GetTerm(index)->m_dgTime = SunAtNoon(DayOfTerm(yearNumber, index)).equationOfTime;
        for (const sys_days day : DaysOf(yearNumber)) {
            const std::chrono::year_month_day parts(day);
            date.SetMonth(int(unsigned(parts.month())));
            date.SetDay(int(unsigned(parts.day())));
            const double error = std::fabs(date.GetDgTime() - SunAtNoon(day).equationOfTime) * kSeconds;
            if (error > worst) {
                worst = error;
                worstDay = day;
            }
        }
    }
    EXPECT_LE(worst, 24.0);
    EXPECT_GT(worst, 23.0);
    EXPECT_EQ(std::chrono::year_month_day(worstDay).month(), std::chrono::November);
}
