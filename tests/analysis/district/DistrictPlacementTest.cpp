// The same district elsewhere in the drawing, mirrored, or cut into pieces: no period changes by more than a second.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "District.h"

namespace {

constexpr double kSecond = 1.0 / 3600.0;
constexpr int kMostTold = 10;

// A whole day of winter, in which each window's day turns around noon with the drawing.
AnalysisRequest Request(double north) {
    AnalysisRequest request = RequestFor(39.9, -20.1);
    request.north = north;
    return request;
}

struct Day {
    double facing = 0.0;
    std::vector<SunPeriod> sunlit;
    std::vector<SunPeriod> hidden;
};

Day DayOf(const WindowResult& window) {
    Day day;
    EXPECT_TRUE(window.facing.has_value()) << std::hex << window.handle << " has no side";
    day.facing = window.facing.value_or(-1.0);
    day.sunlit = window.sunlit;
    for (const HiddenPeriod& hidden : window.hidden)
        day.hidden.push_back(hidden.period);
    return day;
}

std::vector<SunPeriod> Mirrored(std::vector<SunPeriod> periods) {
    std::reverse(periods.begin(), periods.end());
    for (SunPeriod& period : periods)
        period = {24.0 - period.end, 24.0 - period.start};
    return periods;
}

Day Mirrored(const Day& day) {
    return {180.0 - day.facing, Mirrored(day.sunlit), Mirrored(day.hidden)};
}

bool AreEqual(const std::vector<SunPeriod>& some, const std::vector<SunPeriod>& others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                      [](const SunPeriod& a, const SunPeriod& b) {
                          return std::fabs(a.start - b.start) <= kSecond && std::fabs(a.end - b.end) <= kSecond;
                      });
}

bool AreEqual(const Day& one, const Day& other) {
    const double turned = std::remainder(one.facing - other.facing, 360.0);
    return std::fabs(turned) < 1e-6 && AreEqual(one.sunlit, other.sunlit) && AreEqual(one.hidden, other.hidden);
}

// Of all windows, in the order of the drawing, which is the same in all variations.
std::vector<Day> DaysOf(std::string_view name, double north = 0.0) {
    std::vector<Day> days;
    const AnalysisAnswer answer = AnalyseDistrict(name, Request(north));
    for (const WindowResult& window : answer.windows)
        days.push_back(DayOf(window));
    EXPECT_GE(days.size(), 1000U);
    return days;
}

void ExpectSameDays(const std::vector<Day>& actual, const std::vector<Day>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    int wrong = 0;
    std::size_t compared = 0;
    for (std::size_t i = 0; i < actual.size(); ++i) {
        compared += expected[i].sunlit.size() + expected[i].hidden.size();
        if (!AreEqual(actual[i], expected[i]) && ++wrong <= kMostTold)
            ADD_FAILURE() << "window " << i << ": facing " << actual[i].facing << ", sunlit "
                          << TextOf(actual[i].sunlit) << "hidden " << TextOf(actual[i].hidden) << "instead of "
                          << expected[i].facing << ", sunlit " << TextOf(expected[i].sunlit) << "hidden "
                          << TextOf(expected[i].hidden);
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(compared, expected.size());
}

class DistrictPlacement : public testing::Test {
protected:
    static void SetUpTestSuite() { s_plain = DaysOf("plain"); }
    static inline std::vector<Day> s_plain;
};

}  // namespace

TEST_F(DistrictPlacement, TurnedWithNorthHasTheSameHours) {
    ExpectSameDays(DaysOf("turned", 37.3), s_plain);
    ExpectSameDays(DaysOf("turned-far", -141.0), s_plain);
}

TEST_F(DistrictPlacement, Moved500KilometresHasTheSameHours) {
    ExpectSameDays(DaysOf("moved"), s_plain);
}

TEST_F(DistrictPlacement, CutIntoPiecesHasTheSameHours) {
    ExpectSameDays(DaysOf("pieces"), s_plain);
}

TEST_F(DistrictPlacement, MirroredTurnsTheDayAroundNoon) {
    std::vector<Day> mirrored;
    std::size_t unlike = 0;
    for (const Day& day : s_plain) {
        mirrored.push_back(Mirrored(day));
        unlike += AreEqual(mirrored.back(), day) ? 0 : 1;
    }
    EXPECT_GT(unlike * 2, s_plain.size()) << "the district is its own mirror";
    ExpectSameDays(DaysOf("mirrored"), mirrored);
}
