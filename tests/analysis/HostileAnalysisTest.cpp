// Requests and drawings that nobody in his senses would write: an answer in order, or a failure by name.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

#include "JudgedScene.h"
#include "host/DrawingText.h"
#include "settings/OrvoStdSet.h"
#include "support/SlowTier.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class Dice {
public:
    explicit Dice(unsigned seed) : m_random(seed) {}
    double Within(double least, double most) { return std::uniform_real_distribution<double>(least, most)(m_random); }
    int Number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(m_random); }
    template <typename T>
    T OneOf(std::initializer_list<T> values) {
        return values.begin()[Number(0, static_cast<int>(values.size()) - 1)];
    }
    // Mostly something usual.
    template <typename T>
    T Mostly(T usual, std::initializer_list<T> odd) {
        return Number(0, 3) != 0 ? usual : OneOf(odd);
    }

private:
    std::mt19937 m_random;
};

double OddLength(Dice& dice) {
    return dice.Mostly(dice.Within(-5000.0, 5000.0),
                       {0.0, 1e-300, 1e-6, 0.05, 5.0, 1e9, -1e9, 1e15, 1e49, 1e50, 1e60, 1e300, -1e300});
}

std::string OddEntity(Dice& dice) {
    std::ostringstream out;
    out.precision(17);
    const bool isWindow = dice.Number(0, 2) == 0;
    const double x = OddLength(dice), y = OddLength(dice), z = OddLength(dice);
    const double wide = OddLength(dice), high = OddLength(dice), turn = dice.Mostly(0.0, {0.3, 1.5707963, 3.0});
    const double dx = wide * std::cos(turn), dy = wide * std::sin(turn);
    const auto group = [&](int code, double value) { out << code << '\n' << value << '\n'; };
    if (dice.Number(0, 1) == 0) {
        out << "0\n3DFACE\n8\n" << (isWindow ? "WINDOW" : "0") << '\n';
        const double along[] = {0.0, 1.0, 1.0, 0.0}, up[] = {0.0, 0.0, 1.0, 1.0};
        for (int i = 0; i < 4; ++i) {
            group(10 + i, x + along[i] * dx + (isWindow ? 0.0 : dice.Mostly(0.0, {300.0, 1e7})));
            group(20 + i, y + along[i] * dy);
            group(30 + i, z + up[i] * high);
        }
    } else {
        out << "0\nLWPOLYLINE\n8\n" << (isWindow ? "WINDOW" : "0") << "\n90\n4\n70\n1\n";
        group(38, z);
        group(39, isWindow ? 0.0 : high);
        const double along[] = {0.0, 1.0, 1.0, 0.0}, across[] = {0.0, 0.0, 1.0, 1.0};
        for (int i = 0; i < 4; ++i) {
            group(10, x + along[i] * dx - across[i] * 3.0 * dy);
            group(20, y + along[i] * dy + across[i] * 3.0 * dx);
        }
        if (isWindow)
            out << "210\n0\n220\n-1\n230\n0\n";
    }
    return out.str();
}

std::string OddDrawing(Dice& dice) {
    // A house with windows that stand as they should, and what is thrown around it.
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    scene.Window(2000, 0, 4000, 4000, 1500);
    std::string text = dice.Number(0, 9) == 0 ? DrawingOf(Section("ENTITIES", "")) : scene.Text();
    std::string more;
    for (int i = dice.Number(0, 6); i > 0; --i)
        more += OddEntity(dice);
    const std::size_t end = text.rfind("  0\nENDSEC");
    return text.substr(0, end) + more + text.substr(end);
}

AnalysisRequest OddRequest(Dice& dice) {
    const double latitude = dice.Mostly(31.2, {90.0, -90.0, 0.0, 66.56, 89.999999, -89.999999, 90.0000001, 1e300});
    AnalysisRequest request =
        RequestFor(latitude, dice.Mostly(-23.44, {0.0, 90.0, -90.0, 23.44, 58.8, 89.9999, 1e-300}));
    request.settings.place->longitude = dice.Mostly(120.0, {180.0, -180.0, 0.0, 180.1});
    request.terms.equationOfTime = dice.Mostly(0.05, {0.0, -0.3, 1e-300, 24.0, -100.0});
    request.north = dice.Mostly(0.0, {1e9, -1e9, 359.999999, 1e-300, 1e300, -450.0});
    Standard& standard = *request.settings.standard;
    standard.start = dice.Mostly(0.0, {8.0, 24.0, -1.0, 25.0, 1e300, -kInfinity, 12.0});
    standard.end = dice.Mostly(24.0, {16.0, 0.0, -5.0, 8.0, 1e300, kInfinity, 12.0});
    standard.step = dice.Mostly(10.0, {0.0, -1.0, 1e-12, 1e-3, 7.0, 60.0, 1e300, kInfinity, 1e-300});
    standard.fullWindow = dice.OneOf({0, 1, -7});
    standard.limitWidth = dice.OneOf({0, 1});
    standard.minWidth = dice.Mostly(1200.0, {0.0, -1.0, 1e300, kInfinity});
    standard.maxWidth = dice.Mostly(1800.0, {0.0, -1.0, 1e-9, 0.05, 1.0, 1e300, kInfinity});
    standard.maxContinue = dice.OneOf({0, 1, 5, -1});
    standard.beijingTime = dice.OneOf({0, 1, 9});
    standard.allMaxContinueTime = dice.OneOf({0, 1});
    standard.minContinueTime = dice.Mostly(60, {0, -5, 2147483647});
    standard.validSunType = dice.OneOf({0, 1, 1, 77});
    standard.minValidAngle = dice.Mostly(0, {12, 89, 90, 91, -90, 2147483647, -2147483647});
    standard.minValidTime = dice.Mostly(5, {0, -5, 2147483647});
    standard.totalTimeType = dice.OneOf({0, 1, 2, 3, -1});
    standard.minMaxValidTime = dice.Mostly(0, {30, -5, 2147483647});
    if (dice.Number(0, 2) == 0)
        request.need = dice.OneOf({0.0, -1.0, 2.0, 1e300, kInfinity});
    if (dice.Number(0, 2) == 0)
        request.facing = dice.OneOf({0.0, 270.0, -1e9, 1e300, 359.9999999});
    if (dice.Number(0, 3) == 0)
        request.leastAltitude = dice.OneOf({0.0, 5.0, 90.0, -90.0, 91.0, 1e300, -1e300});
    request.isScoped = dice.Number(0, 3) == 0;
    return request;
}

void ExpectFinite(double value, const char* what) {
    EXPECT_TRUE(std::isfinite(value)) << what << ": " << value;
}

// In order of time, apart from each other, none backwards, within the span.
template <typename Each, typename PeriodOf>
void ExpectOrdered(const std::vector<Each>& list, const PeriodOf& periodOf, const SunPeriod& span, const char* what) {
    constexpr double kRounding = 1e-9;
    double last = span.start - kRounding;
    for (const Each& each : list) {
        const SunPeriod period = periodOf(each);
        EXPECT_GE(period.start, last - kRounding) << what;
        EXPECT_LE(period.start, period.end) << what;
        EXPECT_LE(period.end, span.end + kRounding) << what;
        last = period.end;
    }
}

bool IsExact(const DroppedPeriod& dropped) {
    return dropped.reason == DropReason::Facing || dropped.reason == DropReason::Angle;
}

void ExpectApart(const std::vector<SunPeriod>& a, const std::vector<SunPeriod>& b, const char* what) {
    for (const SunPeriod& first : a)
        for (const SunPeriod& second : b)
            EXPECT_LE(std::min(first.end, second.end) - std::max(first.start, second.start), 1e-9) << what;
}

double MinutesOf(const std::vector<SunPeriod>& periods) {
    double sum = 0.0;
    for (const SunPeriod& period : periods)
        sum += period.Minutes();
    return sum;
}

// Stepped periods are counted or dropped by the step, each once.
void ExpectStepsAccountedFor(const WindowResult& window) {
    std::vector<SunPeriod> told = window.counted;
    for (const DroppedPeriod& dropped : window.dropped)
        if (!IsExact(dropped))
            told.push_back(dropped.period);
    std::sort(told.begin(), told.end(), [](const SunPeriod& a, const SunPeriod& b) { return a.start < b.start; });
    ASSERT_EQ(told.size(), window.stepped.size());
    for (std::size_t i = 0; i < told.size(); ++i) {
        EXPECT_EQ(told[i].start, window.stepped[i].start);
        EXPECT_EQ(told[i].end, window.stepped[i].end);
    }
}

void ExpectSound(const WindowResult& window, const SunPeriod& span) {
    const auto itself = [](const SunPeriod& period) { return period; };
    std::vector<SunPeriod> hidden, vain;
    for (const HiddenPeriod& each : window.hidden) {
        hidden.push_back(each.period);
        EXPECT_FALSE(each.by.empty()) << "nobody hides it";
        EXPECT_TRUE(std::is_sorted(each.by.begin(), each.by.end()));
    }
    for (const DroppedPeriod& each : window.dropped)
        if (IsExact(each))
            vain.push_back(each.period);
    ExpectOrdered(window.sunlit, itself, span, "sunlit");
    ExpectOrdered(window.stepped, itself, span, "stepped");
    ExpectOrdered(window.counted, itself, span, "counted");
    ExpectOrdered(hidden, itself, span, "hidden");
    ExpectOrdered(vain, itself, span, "in vain");
    EXPECT_TRUE(std::is_sorted(window.dropped.begin(), window.dropped.end(),
                               [](const auto& a, const auto& b) { return a.period.start < b.period.start; }));
    ExpectApart(window.sunlit, hidden, "sunlit and hidden");
    ExpectApart(window.sunlit, vain, "sunlit and in vain");
    ExpectApart(hidden, vain, "hidden and in vain");
    ExpectStepsAccountedFor(window);
    EXPECT_NEAR(window.total, MinutesOf(window.counted), 1e-6);
    for (const double value : {window.width, window.height, window.sill, window.total, window.longest, window.judged})
        ExpectFinite(value, "a number of the window");
    for (const QcGePoint& corner : window.corners)
        for (const double value : {corner.x, corner.y, corner.z})
            ExpectFinite(value, "a corner");
    EXPECT_EQ(window.facing.has_value(), !HasNote(window, WindowNote::NoSide));
    if (window.facing)
        EXPECT_TRUE(*window.facing >= 0.0 && *window.facing < 360.0) << *window.facing;
    EXPECT_TRUE(std::is_sorted(window.notes.begin(), window.notes.end()));
    EXPECT_EQ(std::adjacent_find(window.notes.begin(), window.notes.end()), window.notes.end());
}

void ExpectSound(const AnalysisAnswer& answer) {
    if (answer.failure != AnalysisFailure::None) {
        EXPECT_TRUE(answer.windows.empty());
        return;
    }
    ExpectFinite(answer.span.start, "span");
    ExpectFinite(answer.span.end, "span");
    ExpectFinite(answer.beijingOffset, "offset");
    for (const WindowResult& window : answer.windows) {
        SCOPED_TRACE("window " + std::to_string(window.handle));
        ExpectSound(window, answer.span);
    }
}

}  // namespace

TEST(HostileAnalysis, AnswersInOrderOrFailsByName) {
    const unsigned count = IsSlowTier() ? 10000 : 600;
    for (unsigned seed = 1; seed <= count && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Dice dice(seed);
        const OpenDrawing drawing(OddDrawing(dice));
        ExpectSound(AnalyseWindows(drawing.database, OddRequest(dice)));
    }
}

// Between them the three lists hold all hours in which the sun is up, before the window and valid, or lit in vain: at
// the winter solstice the whole day for a south window, whatever stands before it.
TEST(HostileAnalysis, ListsAddUpToTheDay) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Dice dice(seed);
        JudgedScene scene;
        scene.Box(-10000, 0, 0, 10000, 8000, 30000);
        scene.Window(-750, 0, 1000, 1500, 1500);
        for (int i = 0; i < 6; ++i) {
            scene.StandOn(dice.Within(-40e3, 40e3), dice.Within(-60e3, -15e3), dice.Within(0.0, 90.0));
            scene.Box(-3000, -3000, 0, 3000, 3000, dice.Within(3e3, 60e3));
        }
        const AnalysisRequest request = RequestFor(31.2, -23.44);
        const WindowResult window = Only(Answer(scene, request));
        double sum = MinutesOf(window.sunlit);
        for (const HiddenPeriod& each : window.hidden)
            sum += each.period.Minutes();
        const double half = std::acos(-std::tan(31.2 * M_PI / 180.0) * std::tan(-23.44 * M_PI / 180.0)) * 12.0 / M_PI;
        EXPECT_NEAR(sum, 2.0 * half * 60.0, 1e-4) << "seed " << seed;
    }
}

TEST(HostileAnalysis, EmptyDrawingHasNoWindowsAndSaysSo) {
    const OpenDrawing drawing(DrawingOf(Section("ENTITIES", "")));
    const AnalysisAnswer answer = AnalyseWindows(drawing.database, RequestFor(31.2, -23.44));
    EXPECT_EQ(answer.failure, AnalysisFailure::None);
    EXPECT_TRUE(answer.windows.empty());
    EXPECT_TRUE(HasRemark(answer, AnalysisRemark::Kind::NoWindows));
}

TEST(HostileAnalysis, FailuresAreToldByName) {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    AnalysisRequest placeless = RequestFor(31.2, -23.44);
    placeless.settings.place.reset();
    EXPECT_EQ(Answer(scene, placeless).failure, AnalysisFailure::NoPlace);
    EXPECT_EQ(Answer(scene, RequestFor(90.5, 0.0)).failure, AnalysisFailure::NoPlace);
    AnalysisRequest lawless = RequestFor(31.2, -23.44);
    lawless.settings.standard.reset();
    EXPECT_EQ(Answer(scene, lawless).failure, AnalysisFailure::NoStandard);
    const OpenDrawing drawing(scene.Text());
    const AnalysisAnswer cancelled =
        AnalyseWindows(drawing.database, RequestFor(31.2, -23.44), [](std::size_t, std::size_t) { return false; });
    EXPECT_EQ(cancelled.failure, AnalysisFailure::Cancelled);
    EXPECT_TRUE(cancelled.windows.empty());
}

TEST(HostileAnalysis, ProgressGoesForwardsAndMayEndTheAnalysis) {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 90000);
    for (int i = 0; i < 40; ++i)
        scene.Window(-750, 0, 1000.0 + 2000.0 * i, 1500, 1500);
    const OpenDrawing drawing(scene.Text());
    std::size_t last = 0;
    const AnalysisAnswer whole =
        AnalyseWindows(drawing.database, RequestFor(31.2, -23.44), [&](std::size_t done, std::size_t total) {
            EXPECT_GE(done, last);
            EXPECT_LE(done, total);
            EXPECT_TRUE(total == 40U || (total == 0U && last == 0)) << total;
            last = done;
            return true;
        });
    EXPECT_EQ(whole.windows.size(), 40U);
    AnalysisRequest request = RequestFor(31.2, -23.44);
    for (const unsigned threads : {1U, 2U, 3U, 7U}) {
        request.threads = threads;
        const AnalysisAnswer ended =
            AnalyseWindows(drawing.database, request, [](std::size_t, std::size_t) { return false; });
        EXPECT_EQ(ended.failure, AnalysisFailure::Cancelled);
        EXPECT_TRUE(ended.windows.empty());
    }
    request.threads = 1;
    int asked = 0;
    const AnalysisAnswer ended = AnalyseWindows(
        drawing.database, request, [&](std::size_t, std::size_t total) { return total == 0 || ++asked < 2; });
    EXPECT_EQ(asked, 2) << "not asked again";
    EXPECT_EQ(ended.failure, AnalysisFailure::Cancelled);
    EXPECT_TRUE(ended.windows.empty());
}

TEST(HostileAnalysis, SpanAndStepThatAreNoneCountNothingAndSaySo) {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    AnalysisRequest reversed = RequestFor(31.2, -23.44);
    reversed.settings.standard->start = 15.0;
    reversed.settings.standard->end = 9.0;
    reversed.need = 1.0;
    EXPECT_TRUE(HasRemark(Answer(scene, reversed), AnalysisRemark::Kind::SpanUnusable));
    EXPECT_EQ(Only(Answer(scene, reversed)).judged, 0.0);
    EXPECT_TRUE(Only(Answer(scene, reversed)).counted.empty());
    EXPECT_EQ(Only(Answer(scene, reversed)).passes, std::optional(false));
    for (const double step : {0.0, -1.0}) {
        AnalysisRequest still = RequestFor(31.2, -23.44);
        still.settings.standard->step = step;
        const AnalysisAnswer answer = Answer(scene, still);
        EXPECT_TRUE(HasRemark(answer, AnalysisRemark::Kind::StepUnusable));
        EXPECT_TRUE(Only(answer).counted.empty());
        EXPECT_EQ(Only(answer).judged, 0.0);
        EXPECT_FALSE(Only(answer).sunlit.empty()) << "the exact hours are there all the same";
    }
}
