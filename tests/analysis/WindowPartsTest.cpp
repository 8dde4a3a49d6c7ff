// Windows wider than a standard lets count: by which part of them they are judged.
#include <gtest/gtest.h>

#include <random>

#include "JudgedScene.h"
#include "PaperSun.h"
#include "settings/OrvoStdSet.h"

namespace {

constexpr double kLatitude = 31.2;
constexpr double kSolstice = 23.44;
const PaperSun kWinter(kLatitude, -kSolstice);

AnalysisRequest LimitedTo(double least, double most) {
    AnalysisRequest request = RequestFor(kLatitude, -kSolstice);
    request.settings.standard->limitWidth = 1;
    request.settings.standard->minWidth = least;
    request.settings.standard->maxWidth = most;
    return request;
}

JudgedScene Plain() {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    return scene;
}

// A window 4030 wide, and windows of 1800 where its parts are.
struct WideWindow {
    JudgedScene scene;
    std::uint64_t wide = 0;
    std::vector<double> starts;
    std::vector<std::uint64_t> parts;

    WideWindow() {
        scene.Box(-10000, 0, 0, 10000, 8000, 30000);
        wide = scene.Window(-2000, 0, 1000, 4030, 1500);
        for (double start = 0.0; start < 2230.0; start += 100.0)
            starts.push_back(start);
        starts.push_back(2230.0);
        for (const double start : starts)
            parts.push_back(scene.Window(-2000 + start, 0, 1000, 1800, 1500));
    }
};

void ExpectBest(const WideWindow& window, const AnalysisRequest& request) {
    const AnalysisAnswer answer = Answer(window.scene, request);
    std::size_t best = 0;
    for (std::size_t i = 0; i < window.parts.size(); ++i)
        if (WindowOf(answer, window.parts[i]).judged > WindowOf(answer, window.parts[best]).judged + 1e-6)
            best = i;
    const WindowResult expected = WindowOf(answer, window.parts[best]);
    const WindowResult actual = WindowOf(answer, window.wide);
    ASSERT_TRUE(actual.part.has_value());
    EXPECT_NEAR(actual.part->from, window.starts[best] / 1000.0, 1e-9);
    EXPECT_NEAR(actual.judged, expected.judged, 1e-6);
    ExpectPeriods(actual.sunlit, expected.sunlit);
    ExpectPeriods(actual.counted, expected.counted);
    ASSERT_EQ(actual.hidden.size(), expected.hidden.size());
    for (std::size_t i = 0; i < actual.hidden.size(); ++i)
        EXPECT_EQ(actual.hidden[i].by, expected.hidden[i].by);
}

}  // namespace

// A fin at one end of a window 4030 wide, of which 1800 count: the part at the other end is the best. The fin's shadow,
// 1495 tan A wide, reaches it after 4030 - 1800 and the 0.05 by which the part is less.
TEST(WindowParts, PartAtTheEndFarFromAFin) {
    const double reached = kWinter.AtAzimuth(2230.05 / 1495.0);
    JudgedScene right;
    right.Box(-10000, 0, 0, 10000, 8000, 30000);
    right.Window(-2000, 0, 1000, 4030, 1500);
    JudgedScene left = right;
    right.Box(2030, -1500, 0, 2180, 0, 5000);
    left.Box(-2150, -1500, 0, -2000, 0, 5000);
    const WindowResult first = Only(Answer(right, LimitedTo(1200, 1800)));
    ASSERT_TRUE(first.part.has_value());
    EXPECT_NEAR(first.part->from, 0.0, 1e-9);
    EXPECT_NEAR(first.part->width, 1.8, 1e-9);
    EXPECT_NEAR(first.width, 4.03, 1e-9);
    ExpectPeriods(first.sunlit, {{12.0 - reached, 12.0 + kWinter.Sunset()}});
    const WindowResult last = Only(Answer(left, LimitedTo(1200, 1800)));
    ASSERT_TRUE(last.part.has_value());
    EXPECT_NEAR(last.part->from, 2.23, 1e-9) << "not at 2.2, where the last whole step is";
    ExpectPeriods(last.sunlit, {{12.0 - kWinter.Sunset(), 12.0 + reached}});
}

TEST(WindowParts, WindowAsWideAsThePartHasNone) {
    EXPECT_FALSE(Only(Answer(Plain(), LimitedTo(1200, 1500))).part.has_value());
    const WindowResult window = Only(Answer(Plain(), LimitedTo(1200, 1499)));
    ASSERT_TRUE(window.part.has_value());
    EXPECT_NEAR(window.part->from, 0.0, 1e-9) << "of equals the leftmost";
}

// Each part drawn as a window of its own has the part's hours; the wide one those of the best, of equals the leftmost:
// by whatever the standard judges, with poles and fins thrown about.
TEST(WindowParts, BestIsTheBestOfWindowsOfItsWidth) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto within = [&](double least, double most) {
            return std::uniform_real_distribution<double>(least, most)(random);
        };
        WideWindow window;
        for (int i = 0; i < 4; ++i) {
            const double x = within(-4000, 4000);
            const double y = -within(1000, 9000);
            window.scene.Box(x, y, 0, x + within(20, 600), y + 300, within(3000, 9000));
        }
        const double fin = -2000 - within(0, 900);
        window.scene.Box(fin - 100, -1200, 0, fin, 0, 5000);
        window.scene.Box(3000, -20000, 0, 9000, -15000, within(5000, 30000));
        AnalysisRequest request = LimitedTo(1200, 1800);
        Standard& standard = *request.settings.standard;
        standard.step = seed % 2 == 0 ? 1.0 : 10.0;
        standard.maxContinue = seed % 3 == 0 ? ORVO_COUNT_LONGEST : ORVO_COUNT_TOTAL;
        standard.totalTimeType = seed % 4 == 0 ? ORVO_TOTAL_LONGEST_TWO : ORVO_TOTAL_ALL;
        standard.minValidTime = seed % 5 == 0 ? 30 : 0;
        standard.minValidAngle = seed % 6 == 0 ? 40 : 0;
        ExpectBest(window, request);
    }
}

// Other parts would get the sun at other times; nothing is put together of two.
TEST(WindowParts, HoursAreThoseOfOnePart) {
    WideWindow window;
    window.scene.Box(-10, -1510, 0, 10, -1490, 9000);
    ExpectBest(window, LimitedTo(1200, 1800));
}
