// Bars of days: where they begin and end, and what they leave out.
#include "workbench/report/TimeLinePicture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "analysis/WindowResult.h"
#include "support/GermanLocale.h"

namespace {

constexpr SunPeriod kDay = {8.0, 16.0};

// The outline of the stretches of one kind; empty where there is none.
std::string PathOf(const std::string& picture, const std::string& kind) {
    const std::string start = "<path class=\"" + kind + "\" d=\"";
    const std::size_t from = picture.find(start);
    if (from == std::string::npos)
        return {};
    return picture.substr(from + start.size(), picture.find('"', from + start.size()) - from - start.size());
}

bool Has(const std::string& text, const std::string& piece) {
    return text.find(piece) != std::string::npos;
}

}  // namespace

// A unit is a minute, and the day begins at 0.
TEST(TimeLine, HasABarForEachKindOfStretch) {
    WindowHours hours;
    hours.sunlit = {{9.0, 12.0}, {14.0, 14.05}};
    hours.counted = {{9.0, 12.0}};
    hours.dropped = {{{15.0, 15.5}, DropReason::Facing}};
    hours.hidden = {{{8.0, 9.0}, {0x2F}}, {{12.0, 14.0}, {0x2F, 0x30}}};
    const std::string picture = DrawTimeLine({kDay, hours});
    EXPECT_TRUE(Has(picture, "viewBox=\"0 0 480 12\"")) << picture;
    EXPECT_EQ(PathOf(picture, "c"), "M60 0H240v12H60z");
    EXPECT_EQ(PathOf(picture, "s"), "M60 3H240v6H60zM360 3H363v6H360zM420 3H450v6H420z");
    EXPECT_EQ(PathOf(picture, "h"), "M0 5H60v2H0zM240 5H360v2H240z");
    EXPECT_EQ(PathOf(picture, "x"), "");
    EXPECT_EQ(PathOf(picture, "g"), "M0 0v12M60 0v12M120 0v12M180 0v12M240 0v12M300 0v12M360 0v12M420 0v12M480 0v12");
}

TEST(TimeLine, ShowsWhatAProjectTakes) {
    const std::vector<HiddenPeriod> lost = {{{11.0, 12.5}, {0x2F}}};
    EXPECT_EQ(PathOf(DrawTimeLine({kDay, {}, &lost}), "x"), "M180 2H270v8H180z");
}

TEST(TimeLine, KeepsWithinItsDay) {
    WindowHours hours;
    hours.counted = {{7.0, 8.5}, {15.5, 17.0}, {17.0, 18.0}, {5.0, 8.0}};
    EXPECT_EQ(PathOf(DrawTimeLine({kDay, hours}), "c"), "M0 0H30v12H0zM450 0H480v12H450z");
}

TEST(TimeLine, OfNoDayIsEmpty) {
    WindowHours hours;
    hours.counted = {{9.0, 12.0}};
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const SunPeriod span : {SunPeriod{16.0, 8.0}, SunPeriod{8.0, 8.0}, SunPeriod{nan, nan}}) {
        const std::string picture = DrawTimeLine({span, hours});
        EXPECT_EQ(PathOf(picture, "c"), "");
        EXPECT_FALSE(Has(picture, "nan")) << picture;
        EXPECT_FALSE(Has(DrawTimeScale(span, nan), "nan"));
    }
    // No more than a day, however long it is said to be.
    EXPECT_TRUE(Has(DrawTimeLine({{0.0, 1e9}, hours}), "viewBox=\"0 0 1440 12\""));
    EXPECT_LT(DrawTimeScale({0.0, 1e9}, 0.0).size(), 4000U);
}

TEST(TimeLine, HasPointsInEveryLocale) {
    WindowHours hours;
    hours.counted = {{9.0 + 1.0 / 120.0, 12.0}};
    const GermanLocale german;
    EXPECT_EQ(PathOf(DrawTimeLine({kDay, hours}), "c"), "M60.5 0H240v12H60.5z");
}

TEST(TimeScale, HasTheHoursOfBothTimes) {
    const std::string scale = DrawTimeScale({8.0, 16.0}, 0.5);
    EXPECT_TRUE(Has(scale, "<text x=\"0%\" y=\"10\">8</text><text x=\"12.5%\" y=\"10\">9</text>")) << scale;
    EXPECT_TRUE(Has(scale, "<text x=\"100%\" y=\"10\">16</text></svg>")) << scale;
    // Nine o'clock by Beijing's time is half past eight by the sun's: a sixteenth of the day from its beginning.
    EXPECT_TRUE(Has(scale, "<svg class=\"ts\" aria-hidden=\"true\"><text x=\"6.25%\" y=\"10\">9</text>")) << scale;
    EXPECT_TRUE(Has(DrawTimeScale({22.0, 24.0}, 2.0), "<text x=\"50%\" y=\"10\">1</text>"));
    EXPECT_TRUE(Has(DrawTimeScale({0.0, 2.0}, -1.0), "<text x=\"0%\" y=\"10\">23</text>"));
}
