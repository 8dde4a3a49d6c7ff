// Every day of a common and of a leap year, at every latitude: numbers that are numbers, periods that lie in order
// within the span, and no more of them than the sun is before the window.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

#include "JudgedScene.h"
#include "facts/DayTerms.h"
#include "host/DrawingText.h"
#include "settings/OrvoStdSet.h"
#include "support/SlowTier.h"

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;
constexpr double kSecond = 1.0 / 3600.0;
constexpr double kRounding = 1e-9;  // hours

using Periods = std::vector<SunPeriod>;

double LengthOf(const Periods& periods) {
    double hours = 0.0;
    for (const SunPeriod& period : periods)
        hours += period.end - period.start;
    return hours;
}

// Where a + b cos H + c sin H is above 0, within a span.
Periods HoursAbove(double a, double b, double c, const SunPeriod& span) {
    const double reach = std::hypot(b, c);
    if (a >= reach)
        return {span};
    if (a <= -reach)
        return {};
    const double middle = 12.0 + std::atan2(c, b) / kRadians / 15.0;
    const double half = std::acos(-a / reach) / kRadians / 15.0;
    Periods periods;
    for (double noon = middle - 72.0; noon <= middle + 72.0; noon += 24.0) {
        const SunPeriod period = {std::max(noon - half, span.start), std::min(noon + half, span.end)};
        if (period.start < period.end)
            periods.push_back(period);
    }
    return periods;
}

// While the sun is up and before a wall that looks `facing` degrees counter-clockwise of east: to the east it stands by
// -cos d sin H, to the north by cos p sin d - sin p cos d cos H, and up by sin p sin d + cos p cos d cos H.
double HoursBeforeWall(double latitude, double declination, double facing, const SunPeriod& span) {
    const double sinP = std::sin(latitude * kRadians), cosP = std::cos(latitude * kRadians);
    const double sinD = std::sin(declination * kRadians), cosD = std::cos(declination * kRadians);
    const double east = std::cos(facing * kRadians), north = std::sin(facing * kRadians);
    double hours = 0.0;
    for (const SunPeriod& up : HoursAbove(sinP * sinD, cosP * cosD, 0.0, span))
        hours += LengthOf(HoursAbove(north * cosP * sinD, -north * sinP * cosD, -east * cosD, up));
    return hours;
}

// Windows to five sides with something before most of them.
JudgedScene Houses() {
    JudgedScene scene;
    for (const double turned : {0.0, 90.0, 180.0, 270.0, 37.0}) {
        const double away = 60000.0 * std::cos(turned * kRadians), aside = 60000.0 * std::sin(turned * kRadians);
        scene.StandOn(turned == 37.0 ? 0.0 : away, turned == 37.0 ? 0.0 : aside, turned);
        scene.Box(-6000, 0, 0, 6000, 8000, 20000);
        scene.Window(-900, 0, 3000, 1800, 1500);
        scene.Box(-3000, -1200, 4800, 1500, 0, 4900);
        scene.Box(2500, -9000, 0, 3500, -8000, 15000);
    }
    return scene;
}

struct Rule {
    SunPeriod clock;
    double longitude;
    int beijing;
    int whole;
    int validSun;
    int leastAngle;
    int count;
    double north;
};
constexpr Rule kRules[] = {
    {{0.0, 24.0}, 120.0, ORVO_TRUE_SOLAR_TIME, 1, ORVO_SUN_CUSTOM, 0, ORVO_COUNT_TOTAL, 0.0},
    {{0.0, 24.0}, -170.0, ORVO_BEIJING_TIME, 0, ORVO_SUN_CUSTOM, 0, ORVO_COUNT_TOTAL, 20.0},
    {{8.0, 16.0}, 75.0, ORVO_BEIJING_TIME, 1, ORVO_SUN_CUSTOM, 15, ORVO_COUNT_LONGEST, -130.0},
    {{0.0, 24.0}, 179.0, ORVO_BEIJING_TIME, 1, ORVO_SUN_SHANGHAI, 0, ORVO_COUNT_TOTAL, 0.0},
};

AnalysisRequest RequestOf(const DayTerms& terms, int latitude, const Rule& rule) {
    AnalysisRequest request = RequestFor(latitude, terms.declination);
    request.terms = terms;
    request.settings.place->longitude = rule.longitude;
    request.north = rule.north;
    request.need = 2.0;
    Standard& standard = *request.settings.standard;
    standard.start = rule.clock.start;
    standard.end = rule.clock.end;
    standard.beijingTime = rule.beijing;
    standard.fullWindow = rule.whole;
    standard.validSunType = rule.validSun;
    standard.minValidAngle = rule.leastAngle;
    standard.maxContinue = rule.count;
    return request;
}

void ExpectInOrder(const Periods& periods, const SunPeriod& span) {
    double last = span.start - kRounding;
    for (const SunPeriod& period : periods) {
        EXPECT_TRUE(std::isfinite(period.start) && std::isfinite(period.end));
        EXPECT_LT(period.start, period.end);
        EXPECT_GE(period.start, last) << TextOf(periods);
        last = period.end;
    }
    EXPECT_LE(last, span.end + kRounding);
}

void ExpectFinite(const WindowResult& window) {
    for (const double number : {window.facing.value_or(0.0), window.width, window.height, window.sill, window.total,
                                window.longest, window.judged})
        EXPECT_TRUE(std::isfinite(number));
    for (const QcGePoint& corner : window.corners)
        EXPECT_TRUE(std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.z));
}

void ExpectSound(const WindowResult& window, const AnalysisRequest& request, const SunPeriod& span) {
    Periods before = window.sunlit, dropped, hidden;
    for (const HiddenPeriod& each : window.hidden)
        hidden.push_back(each.period);
    for (const DroppedPeriod& each : window.dropped) {
        ExpectInOrder({each.period}, span);
        if (each.reason == DropReason::Facing || each.reason == DropReason::Angle)
            dropped.push_back(each.period);
    }
    for (const Periods* periods :
         std::initializer_list<const Periods*>{&window.sunlit, &window.stepped, &window.counted, &hidden, &dropped})
        ExpectInOrder(*periods, span);
    // Lit, hidden and in vain exclude each other, and are no more than what there is.
    before.insert(before.end(), hidden.begin(), hidden.end());
    before.insert(before.end(), dropped.begin(), dropped.end());
    std::sort(before.begin(), before.end(), [](const SunPeriod& a, const SunPeriod& b) { return a.start < b.start; });
    for (std::size_t i = 1; i < before.size(); ++i)
        EXPECT_GE(before[i].start, before[i - 1].end - kRounding) << TextOf(before);
    ASSERT_TRUE(window.facing.has_value());
    const double latitude = request.settings.place->latitude;
    const double hours = HoursBeforeWall(latitude, request.terms.declination, *window.facing, span);
    EXPECT_LE(LengthOf(before), hours + kSecond) << TextOf(before);
    const Standard& standard = *request.settings.standard;
    if (standard.validSunType == ORVO_SUN_CUSTOM && standard.minValidAngle == 0)
        EXPECT_GE(LengthOf(before), hours - kSecond) << "all sun is valid; " << TextOf(before);
    EXPECT_TRUE(*window.facing >= 0.0 && *window.facing < 360.0);
    EXPECT_NEAR(window.total, LengthOf(window.counted) * 60.0, 1e-6);
    EXPECT_LE(window.longest, window.total);
    EXPECT_EQ(window.judged, window.total);
    EXPECT_LE(window.total, (LengthOf(window.sunlit) + 5.0 * kSecond) * 60.0 + 60.0);
    EXPECT_TRUE(window.passes.has_value());
}

class EveryDay : public testing::Test {
protected:
    void Compare(const DayTerms& terms, int latitude) {
        SCOPED_TRACE(testing::Message() << terms.day.year << '-' << terms.day.month << '-' << terms.day.day
                                        << " at latitude " << latitude);
        const AnalysisRequest request = RequestOf(terms, latitude, kRules[m_compared++ % std::size(kRules)]);
        const AnalysisAnswer answer = AnalyseWindows(m_drawing.database, request);
        ASSERT_EQ(answer.failure, AnalysisFailure::None);
        ASSERT_EQ(answer.windows.size(), 5U);
        EXPECT_TRUE(std::isfinite(answer.beijingOffset));
        EXPECT_NEAR(answer.span.end - answer.span.start,
                    request.settings.standard->end - request.settings.standard->start, kRounding);
        for (const AnalysisRemark& remark : answer.remarks)
            EXPECT_TRUE(std::isfinite(remark.amount));
        for (const WindowResult& window : answer.windows) {
            ExpectFinite(window);
            ExpectSound(window, request, answer.span);
            m_lit += window.sunlit.size();
            m_hidden += window.hidden.size();
        }
    }

    OpenDrawing m_drawing{Houses().Text()};
    std::size_t m_compared = 0;
    std::size_t m_lit = 0;
    std::size_t m_hidden = 0;
};

std::vector<DayTerms> DaysOfYear(int year) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::vector<DayTerms> days;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= kDays[month - 1] + (month == 2 && year % 4 == 0 ? 1 : 0); ++day)
            days.push_back(TermsFor({year, month, day}));
    return days;
}

}  // namespace

// In the usual tier each day and each latitude is there with some of the other, and the days of the terms with more.
TEST_F(EveryDay, AtEveryLatitudeIsSound) {
    constexpr int kOneIn = 97;
    std::set<int> terms;
    int number = 0;
    for (const int year : {2025, 2024}) {
        const std::vector<DayTerms> days = DaysOfYear(year);
        ASSERT_EQ(days.size(), year == 2024 ? 366U : 365U);
        for (const DayTerms& day : days) {
            terms.insert(day.isItsDay ? day.term.index : 0);
            for (int latitude = -90; latitude <= 90; ++latitude)
                if (++number % kOneIn == 0 || IsSlowTier() || (day.isItsDay && latitude % 30 == 0))
                    Compare(day, latitude);
        }
    }
    EXPECT_EQ(terms.size(), 24U);
    EXPECT_EQ(number, 731 * 181);
    EXPECT_GT(m_compared, 1500U);
    EXPECT_GT(m_lit, m_compared);
    EXPECT_GT(m_hidden, m_compared);
}
