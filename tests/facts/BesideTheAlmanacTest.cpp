// The day's facts beside the sun: they are as far from the almanac as the module's rule is, and no farther.
//
// The rule is written down here once more, and how far it lies from the sun is measured with the almanacs'
// low-precision formulas; how far the facts lie from the almanac's tables has to be the same, to within what these
// formulas are good for.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include "calendar/AlmanacSun.h"
#include "calendar/AlmanacTerms.h"
#include "calendar/ExpectedTerms.h"
#include "facts/AlmanacDirections.h"
#include "facts/FactsStage.h"

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;

// What AlmanacSun is good for.
constexpr double kDegrees = 0.01;
constexpr double kHours = 3.5 / 3600.0;

struct Rule {
    double declination;
    double equationOfTime;
    bool isTermsDay;
};

// A year's terms from the solstice before it to the first one behind it, all by the year's own table.
std::vector<std::pair<sys_days, ExpectedTerm>> MarksOf(year of) {
    const bool isLeap = int(of) % 4 == 0;
    std::vector<std::pair<sys_days, ExpectedTerm>> marks;
    const auto add = [&](year when, int index) {
        const ExpectedTerm& term = kExpectedTerms[index];
        marks.emplace_back(when / term.month / (isLeap ? term.leapDay : term.day), term);
    };
    add(of - std::chrono::years{1}, 0);
    for (int index = 1; index < 24; ++index)
        add(of, index);
    add(of, 0);
    add(of + std::chrono::years{1}, 1);
    return marks;
}

Rule RuleOf(sys_days day) {
    const year of = std::chrono::year_month_day(day).year();
    const auto marks = MarksOf(of);
    const auto next = std::find_if(marks.begin(), marks.end(), [&](const auto& mark) { return day < mark.first; });
    const auto& [begin, term] = *(next - 1);
    const double passed = double((day - begin).count()) / double((next->first - begin).count());
    const double number = double((day - sys_days(of / 1 / 1)).count() + 1);
    const double angle = (number - 80.25) * (1.0 - number / 9500.0) * std::numbers::pi / 180.0;
    return {day == begin ? term.declination : 23.75 * std::sin(angle),
            term.equationOfTime + passed * (next->second.equationOfTime - term.equationOfTime), day == begin};
}

CalendarDay DayOf(sys_days day) {
    const std::chrono::year_month_day parts(day);
    return {int(parts.year()), int(unsigned(parts.month())), int(unsigned(parts.day()))};
}

sys_days DayOf(const CalendarDay& day) {
    return year{day.year} / day.month / day.day;
}

class BesideTheAlmanac : public FactsStage {};

}  // namespace

TEST_F(BesideTheAlmanac, FactsAreTheRulesOwnOnEveryDay) {
    for (const int of : {2001, 2024, 2025}) {
        for (sys_days day = year{of} / 1 / 1; day < sys_days(year{of + 1} / 1 / 1); day += days{1}) {
            const Rule rule = RuleOf(day);
            const DayTerms terms = TermsFor(DayOf(day));
            EXPECT_EQ(terms.isItsDay, rule.isTermsDay);
            if (rule.isTermsDay) {
                EXPECT_EQ(terms.declination, rule.declination);
                EXPECT_EQ(terms.equationOfTime, rule.equationOfTime);
            }
            EXPECT_NEAR(terms.declination, rule.declination, 1e-12) << of << ' ' << (day - sys_days(year{of} / 1 / 1));
            EXPECT_NEAR(terms.equationOfTime, rule.equationOfTime, 1e-12);
        }
    }
}

// On the days on which the sun passes the terms; the module's rows are often for the day behind.
TEST_F(BesideTheAlmanac, TermsAreAsFarOffAsTheRule) {
    double worst = 0.0;
    for (const AlmanacTerm& term : AllAlmanacTerms()) {
        const Rule rule = RuleOf(term.day);
        const AlmanacSun sun = SunAtNoon(term.day);
        const DayTerms terms = TermsFor(DayOf(term.day));
        const double declination = terms.declination - term.declinationAtNoon;
        EXPECT_NEAR(declination, rule.declination - sun.declination, kDegrees) << term.index;
        EXPECT_NEAR(terms.equationOfTime - term.equationOfTimeAtNoon, rule.equationOfTime - sun.equationOfTime, kHours)
            << term.index;
        worst = std::max(worst, std::fabs(declination));
    }
    EXPECT_GT(worst, 0.3) << "the rule is not the almanac, and was not mended by stealth";
}

// Two directions are at least as far apart as their declinations, and at most by those and their hour angles.
TEST_F(BesideTheAlmanac, DirectionsAreAsFarOffAsTheRule) {
    for (const TabulatedSun& row : AlmanacDirections()) {
        CalendarDay day = {};
        const double apart = Apart(PositionByTheCalendar(row, day), row.position);
        const Rule rule = RuleOf(DayOf(day));
        const AlmanacSun sun = SunAt(std::chrono::sys_seconds(std::chrono::seconds(row.utc)));
        const double declination = std::fabs(rule.declination - sun.declination);
        const double hourAngle = 15.0 * std::fabs(rule.equationOfTime - sun.equationOfTime);
        EXPECT_GE(apart, declination - kDegrees) << row.latitude << " at " << row.utc;
        EXPECT_LE(apart, std::hypot(declination + kDegrees, hourAngle + 15.0 * kHours))
            << row.latitude << " at " << row.utc;
    }
}
