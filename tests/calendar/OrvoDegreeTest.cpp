// Angles: splitting, the operators, both styles of text, reading and storing.
#include "calendar/OrvoDegree.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <type_traits>

#include "platform/base/QcDtDictionary.h"
#include "support/GermanLocale.h"

namespace {

using Split = std::array<int, 3>;

Split SplitOf(const OrvoDegree& angle) {
    Split split{};
    angle.getDegree(split[0], split[1], split[2]);
    return split;
}

long long SecondsIn(const Split& split) {
    return split[0] * 3600LL + split[1] * 60LL + split[2];
}

}  // namespace

TEST(OrvoDegree, IsZeroByDefault) {
    const OrvoDegree angle;
    EXPECT_EQ(angle.getDegree(), 0.0);
    EXPECT_EQ(SplitOf(angle), (Split{0, 0, 0}));
}

TEST(OrvoDegree, KeepsThreeNumbersAsTheyAreGiven) {
    const OrvoDegree angle(10, 75, -90);
    EXPECT_EQ(SplitOf(angle), (Split{10, 75, -90}));
    EXPECT_DOUBLE_EQ(angle.getDegree(), 10 + 1.25 - 0.025);
    OrvoDegree other(1.5);
    other.setDegree(-2, 30, 0);
    EXPECT_EQ(SplitOf(other), (Split{-2, 30, 0}));
    EXPECT_DOUBLE_EQ(other.getDegree(), -1.5);
}

TEST(OrvoDegree, SplitsADecimalValue) {
    EXPECT_EQ(SplitOf(OrvoDegree(8.5)), (Split{8, 30, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(121.4375)), (Split{121, 26, 15}));
    EXPECT_EQ(SplitOf(OrvoDegree(0.25)), (Split{0, 15, 0}));
}

TEST(OrvoDegree, SplitsANegativeValueIntoNegativeParts) {
    EXPECT_EQ(SplitOf(OrvoDegree(-8.5)), (Split{-8, -30, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(-121.4375)), (Split{-121, -26, -15}));
    EXPECT_EQ(OrvoDegree(-8.5).TimeFormat(false), L"-08:30");
}

TEST(OrvoDegree, RoundsSecondsHalfAwayFromZero) {
    // Parts of a degree that are exact in binary, and so are their seconds: 112.5, 337.5, 562.5.
    EXPECT_EQ(SplitOf(OrvoDegree(1.0 / 32)), (Split{0, 1, 53}));
    EXPECT_EQ(SplitOf(OrvoDegree(-1.0 / 32)), (Split{0, -1, -53}));
    EXPECT_EQ(SplitOf(OrvoDegree(3.0 / 32)), (Split{0, 5, 38}));
    EXPECT_EQ(SplitOf(OrvoDegree(5.0 / 32)), (Split{0, 9, 23}));
    EXPECT_EQ(SplitOf(OrvoDegree(-5.0 / 32)), (Split{0, -9, -23}));
    // 3.515625 and 0.439453125 seconds.
    EXPECT_EQ(SplitOf(OrvoDegree(1.0 / 1024)), (Split{0, 0, 4}));
    EXPECT_EQ(SplitOf(OrvoDegree(1.0 / 8192)), (Split{0, 0, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(-1.0 / 8192)), (Split{0, 0, 0}));
}

TEST(OrvoDegree, CarriesSecondsIntoMinutesButNotMinutesIntoDegrees) {
    const OrvoDegree angle(29.99999);
    EXPECT_EQ(SplitOf(angle), (Split{29, 60, 0}));
    EXPECT_EQ(angle.Format(true), L"029度60分00秒");
    EXPECT_EQ(SplitOf(OrvoDegree(10.0 + 20 / 60.0 + 59.9 / 3600)), (Split{10, 21, 0}));
}

TEST(OrvoDegree, LeavesMinusSixtySecondsAlone) {
    EXPECT_EQ(SplitOf(OrvoDegree(-29.99999)), (Split{-29, -59, -60}));
    EXPECT_EQ(SplitOf(OrvoDegree(-23.45)), (Split{-23, -26, -60}));
}

TEST(OrvoDegree, GivesEveryWholeSecondBack) {
    for (int degree = 0; degree <= 180; ++degree)
        for (int minute = 0; minute < 60; ++minute)
            for (int second = 0; second < 60; ++second) {
                const double value = OrvoDegree(degree, minute, second).getDegree();
                ASSERT_EQ(SplitOf(OrvoDegree(value)), (Split{degree, minute, second}));
                ASSERT_EQ(SecondsIn(SplitOf(OrvoDegree(-value))), -SecondsIn({degree, minute, second}));
            }
}

TEST(OrvoDegree, SplitsToWithinHalfASecond) {
    for (double value = -200.0; value < 200.0; value += 0.00737)
        ASSERT_NEAR(static_cast<double>(SecondsIn(SplitOf(OrvoDegree(value)))), value * 3600, 0.5 + 1e-6) << value;
}

TEST(OrvoDegree, CopiesValueAndSplitAsTheyStand) {
    const OrvoDegree odd(10, 75, 5);
    const OrvoDegree copy(odd);
    OrvoDegree assigned;
    EXPECT_EQ(&(assigned = odd), &assigned);
    OrvoDegree set;
    set.setDegree(odd);
    for (const OrvoDegree* angle :
         {&copy, static_cast<const OrvoDegree*>(&assigned), static_cast<const OrvoDegree*>(&set)}) {
        EXPECT_EQ(SplitOf(*angle), (Split{10, 75, 5}));
        EXPECT_EQ(angle->getDegree(), odd.getDegree());
    }
}

TEST(OrvoDegree, TakesADecimalValueByAssignment) {
    OrvoDegree angle(1, 2, 3);
    EXPECT_EQ(&(angle = 8.5), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{8, 30, 0}));
}

TEST(OrvoDegree, GivesItsValueInDegreesAndRadians) {
    const OrvoDegree angle(90.0);
    double value = 0;
    angle.getDegree(value);
    EXPECT_EQ(value, 90.0);
    EXPECT_DOUBLE_EQ(angle.getRadian(), std::acos(0.0));
    EXPECT_DOUBLE_EQ(OrvoDegree(-180.0).getRadian(), -std::acos(-1.0));
}

TEST(OrvoDegree, ChangesTheLeftOperandOfItsOperators) {
    OrvoDegree angle(10.0);
    const OrvoDegree half(0.5);
    EXPECT_EQ(&(angle + half), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{10, 30, 0}));
    EXPECT_EQ(&(angle - OrvoDegree(0.25)), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{10, 15, 0}));
    EXPECT_EQ(&(angle + 1.75), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{12, 0, 0}));
    EXPECT_EQ(&(angle - 0.5), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{11, 30, 0}));
    EXPECT_EQ(&(angle * 2.0), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{23, 0, 0}));
    EXPECT_EQ(&(angle / 4.0), &angle);
    EXPECT_EQ(SplitOf(angle), (Split{5, 45, 0}));
    EXPECT_EQ(angle.getDegree(), 5.75);
    EXPECT_EQ(half.getDegree(), 0.5);
    static_assert(std::is_same_v<decltype(angle + 1.0), const OrvoDegree&>);
}

TEST(OrvoDegree, AddsItselfToItself) {
    OrvoDegree angle(1.25);
    angle + angle;
    EXPECT_EQ(SplitOf(angle), (Split{2, 30, 0}));
}

TEST(OrvoDegree, ComputesWithTheValueNotWithTheSplit) {
    OrvoDegree angle(0.1 / 3600);
    EXPECT_EQ(SplitOf(angle), (Split{0, 0, 0}));
    angle * 10.0;
    EXPECT_EQ(SplitOf(angle), (Split{0, 0, 1}));
}

TEST(OrvoDegree, ShowsATimeWithSeconds) {
    EXPECT_EQ(OrvoDegree(8.5).TimeFormat(true), L"08:30'00\"");
    EXPECT_EQ(OrvoDegree(-12, -5, -9).TimeFormat(true), L"-12:05'09\"");
    EXPECT_EQ(OrvoDegree(123, 4, 5).TimeFormat(true), L"123:04'05\"");
}

TEST(OrvoDegree, RoundsATimeToMinutes) {
    EXPECT_EQ(OrvoDegree(10, 59, 30).TimeFormat(false), L"11:00");
    EXPECT_EQ(OrvoDegree(10, 59, 29).TimeFormat(false), L"10:59");
    EXPECT_EQ(OrvoDegree(10, 58, 30).TimeFormat(false), L"10:59");
    EXPECT_EQ(OrvoDegree(-10, -59, -30).TimeFormat(false), L"-11:00");
    EXPECT_EQ(OrvoDegree(29.99999).TimeFormat(false), L"30:00");
}

TEST(OrvoDegree, ShowsAnAngleInDegrees) {
    EXPECT_EQ(OrvoDegree(121.5).Format(true), L"121度30分00秒");
    EXPECT_EQ(OrvoDegree(121.5).Format(false), L"121度30分");
    EXPECT_EQ(OrvoDegree(-8.5).Format(true), L"-008度30分00秒");
    EXPECT_EQ(OrvoDegree(10, 59, 30).Format(false), L"011度00分");
    EXPECT_EQ(OrvoDegree(10, 59, 29).Format(false), L"010度59分");
}

TEST(OrvoDegree, ShowsASignFromADifferentThresholdInEachStyle) {
    const OrvoDegree tiny(-0.00005);
    EXPECT_EQ(SplitOf(tiny), (Split{0, 0, 0}));
    EXPECT_EQ(tiny.TimeFormat(true), L"00:00'00\"");
    EXPECT_EQ(tiny.TimeFormat(false), L"00:00");
    EXPECT_EQ(tiny.Format(true), L"-000度00分00秒");
    EXPECT_EQ(tiny.Format(false), L"-000度00分");
    EXPECT_EQ(OrvoDegree(-0.0001).TimeFormat(true), L"00:00'00\"");
    EXPECT_EQ(OrvoDegree(-0.00011).TimeFormat(true), L"-00:00'00\"");
    EXPECT_EQ(OrvoDegree(-1e-10).Format(true), L"000度00分00秒");
    EXPECT_EQ(OrvoDegree(-1.1e-10).Format(true), L"-000度00分00秒");
}

TEST(OrvoDegree, ReadsHoursAndMinutes) {
    const OrvoDegree morning(L"08:30", false);
    EXPECT_EQ(SplitOf(morning), (Split{8, 30, 0}));
    EXPECT_EQ(morning.getDegree(), 8.5);
    const OrvoDegree noon(L"12:05", false);
    EXPECT_DOUBLE_EQ(noon.getDegree(), 12 + 1 / 12.0);
    EXPECT_EQ(SplitOf(noon), (Split{12, 5, 0}));
}

TEST(OrvoDegree, ReadsByPositionWhateverStandsBetween) {
    EXPECT_EQ(SplitOf(OrvoDegree(L"7:05", false)), (Split{7, 5, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"12x34", false)), (Split{12, 34, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"12345678", false)), (Split{12, 45, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L" 9: 5", false)), (Split{9, 5, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"99:99", false)), (Split{99, 99, 0}));
}

TEST(OrvoDegree, ReadsWhatIsMissingOrUnreadableAsZero) {
    for (const wchar_t* text : {static_cast<const wchar_t*>(nullptr), L"", L":", L"ab:cd", L"xx", L"   "})
        EXPECT_EQ(SplitOf(OrvoDegree(text, false)), (Split{0, 0, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"5", false)), (Split{5, 0, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"12", false)), (Split{12, 0, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"12:", false)), (Split{12, 0, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"12:4", false)), (Split{12, 4, 0}));
}

TEST(OrvoDegree, KnowsNoSignWhenReading) {
    EXPECT_EQ(SplitOf(OrvoDegree(L"-5:30", false)), (Split{0, 30, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"+5:30", false)), (Split{0, 30, 0}));
    EXPECT_EQ(SplitOf(OrvoDegree(L"05:-3", false)), (Split{5, 0, 0}));
}

TEST(OrvoDegree, ReadsNothingWithTheFlag) {
    const OrvoDegree angle(L"08:30", true);
    EXPECT_EQ(angle.getDegree(), 0.0);
    EXPECT_EQ(SplitOf(angle), (Split{0, 0, 0}));
    EXPECT_EQ(OrvoDegree(nullptr, true).getDegree(), 0.0);
}

TEST(OrvoDegree, StoresItsValueInADoubleItem) {
    QcDtDictDoubleItem item(L"angle");
    const OrvoDegree odd(10, 75, 0);
    EXPECT_TRUE(odd.SaveToXml(&item));
    EXPECT_EQ(item.GetDoubleValue(), 11.25);
    OrvoDegree read(1.0);
    EXPECT_TRUE(read.ReadFromXml(&item));
    EXPECT_EQ(read.getDegree(), 11.25);
    EXPECT_EQ(SplitOf(read), (Split{11, 15, 0}));
}

TEST(OrvoDegree, RefusesItemsOfOtherKinds) {
    QcDtDictStringItem text(L"angle");
    text.SetStringValue(L"3.5");
    QcDtDictIntItem number(L"angle");
    QcDtDictFlagItem flag(L"angle");
    QcDtDictionary dict(L"angle");
    OrvoDegree angle(1, 75, 0);
    for (QcDtDictItem* item :
         {static_cast<QcDtDictItem*>(nullptr), static_cast<QcDtDictItem*>(&text), static_cast<QcDtDictItem*>(&number),
          static_cast<QcDtDictItem*>(&flag), static_cast<QcDtDictItem*>(&dict)}) {
        EXPECT_FALSE(angle.SaveToXml(item));
        EXPECT_FALSE(angle.ReadFromXml(item));
        EXPECT_EQ(SplitOf(angle), (Split{1, 75, 0}));
    }
    EXPECT_EQ(text.GetStringValue(), L"3.5");
    EXPECT_EQ(number.GetIntValue(), 0);
}

TEST(OrvoDegree, ReadsAndShowsTheSameInEveryLocale) {
    const GermanLocale german;
    EXPECT_EQ(OrvoDegree(121.5).Format(true), L"121度30分00秒");
    EXPECT_EQ(OrvoDegree(1234.5).TimeFormat(true), L"1234:30'00\"");
    EXPECT_EQ(OrvoDegree(L"08:30", false).getDegree(), 8.5);
}
