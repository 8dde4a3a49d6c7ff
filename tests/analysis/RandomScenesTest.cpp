// The analysis against the slow caster, on scenes that nobody thought of.
//
// What is agreement: at every moment looked at, save those closer than a second to a change that the analysis tells
// and those at which the sun is in the window's plane, both sides have the same answer to whether the window is sunlit,
// whether it is hidden, and whether it is lit in vain. A ray that is stopped makes a window hidden for certain. Where
// no ray is stopped and the analysis says hidden, the shadow lies between the grid's points; its outline on the
// window's plane then has to reach into the window itself, not only to within the grid's step of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <set>

#include "AnswerText.h"
#include "Claim.h"
#include "RandomScene.h"
#include "analysis/HourSpans.h"
#include "settings/OrvoStdSet.h"
#include "support/SlowTier.h"

namespace {

constexpr double kSecond = 1.0 / 3600.0;
constexpr double kGridStep = 120.0;  // millimetres

class Judge {
public:
    Judge(const RandomScene& made, const WindowResult& window);
    void CompareAll();
    bool HasLooked() const { return m_looked != 0 || m_inPlane != 0; }
    // Only who hides the sun.
    void CompareCulprits();

private:
    bool IsValid(double hours) const;
    Light FoundAt(double hours) const;
    bool Agrees(double hours);
    void ExpectAgreement(double hours);
    double FindChange(double before, double after) const;
    void CompareAround(double change);

    const Standard& m_standard;
    const WindowResult& m_window;
    SlowCaster m_caster;
    SunPeriod m_span;
    double m_leastAltitude;  // degrees
    double m_facing;         // from true east
    Claim m_claim;
    std::size_t m_looked = 0;
    std::size_t m_inPlane = 0;
    std::size_t m_wrong = 0;
};

SlowSky SkyOf(const AnalysisRequest& request) {
    return {request.settings.place->latitude, request.terms.declination, request.north};
}

SlowTarget TargetOf(const RandomScene& made, const WindowResult& window) {
    if (made.request.settings.standard->fullWindow == 0)
        return made.scene.SillOf(window.handle);
    if (window.part)
        return made.scene.PartOf(window.handle, window.part->from * 1000.0, window.part->width * 1000.0);
    return made.scene.TargetOf(window.handle);
}

// By the clock: true solar time is that of 120 degrees east, later by four minutes a degree and the equation of time.
SunPeriod SpanOf(const AnalysisRequest& request) {
    const Standard& standard = *request.settings.standard;
    double shift = 0.0;
    if (standard.beijingTime == ORVO_BEIJING_TIME)
        shift = request.terms.equationOfTime - (120.0 - request.settings.place->longitude) * 4.0 / 60.0;
    return {standard.start + shift, standard.end + shift};
}

Judge::Judge(const RandomScene& made, const WindowResult& window)
    : m_standard(*made.request.settings.standard),
      m_window(window),
      m_caster(made.scene.Faces(), SkyOf(made.request), TargetOf(made, window), kGridStep),
      m_span(SpanOf(made.request)),
      m_leastAltitude(made.request.leastAltitude.value_or(0.0)),
      m_claim(window) {
    const double facing = made.scene.TargetOf(window.handle).facing - made.request.north;
    m_facing = facing - 360.0 * std::floor(facing / 360.0);
    // What is shorter than a hundredth of a second comes of no building: it is rounding where two rules meet.
    EXPECT_GT(m_claim.Shortest(), 0.01 * kSecond);
}

// The Shanghai rule: 9 to 15, of which a window loses the more the farther it is turned from south, at the end when it
// looks east.
bool Judge::IsValid(double hours) const {
    if (m_standard.validSunType != ORVO_SUN_SHANGHAI)
        return m_standard.minValidAngle <= 0 || m_caster.AngleToWall(hours) >= m_standard.minValidAngle;
    const double clock = hours - 24.0 * std::floor(hours / 24.0);  // true solar time is the same each day
    double off = m_facing - 270.0;
    off = off < -180.0 ? off + 360.0 : off;
    const int degrees = static_cast<int>(std::floor(std::fabs(off) + 0.5));
    if (degrees > 90)
        return false;
    constexpr double kLost[] = {0.0, 0.5, 1.5, 2.5, 3.5, 4.5};
    const double lost = degrees == 0 ? 0.0 : kLost[(degrees - 1) / 15];
    return clock >= (off < 0.0 ? 9.0 + lost : 9.0) && clock <= (off < 0.0 ? 15.0 : 15.0 - lost);
}

Light Judge::FoundAt(double hours) const {
    if (hours < m_span.start || hours > m_span.end || m_caster.AltitudeAt(hours) <= m_leastAltitude ||
        !m_caster.IsBeforeWindow(hours))
        return Light::None;
    if (m_caster.IsAnyRayStopped(hours))
        return IsValid(hours) ? Light::Hidden : Light::None;
    return IsValid(hours) ? Light::Sunlit : Light::InVain;
}

bool Judge::Agrees(double hours) {
    ++m_looked;
    const Light claimed = m_claim.At(hours);
    const Light found = FoundAt(hours);
    const bool isWhole = m_standard.fullWindow != 0;
    if (found == claimed) {
        // No ray is stopped: the outlines must not see a shadow between the rays either.
        const bool isLit = found == Light::Sunlit || found == Light::InVain;
        return !isLit || !isWhole || m_caster.ShadeAt(hours) != Shade::Some;
    }
    const bool isBetweenRays =
        (found == Light::Sunlit && claimed == Light::Hidden) || (found == Light::InVain && claimed == Light::None);
    return isBetweenRays && isWhole && m_caster.ShadeAt(hours) != Shade::None;
}

void Judge::ExpectAgreement(double hours) {
    if (m_caster.IsInWindowsPlane(hours)) {
        ++m_inPlane;
        return;
    }
    if (m_claim.IsNearChange(hours, kSecond) || Agrees(hours) || ++m_wrong > 5)
        return;
    ADD_FAILURE() << "window " << std::hex << m_window.handle << std::dec << " at " << hours << ": claimed "
                  << static_cast<int>(m_claim.At(hours)) << ", found " << static_cast<int>(FoundAt(hours))
                  << " (0 none, 1 sunlit, 2 hidden, 3 in vain), outlines " << static_cast<int>(m_caster.ShadeAt(hours));
}

// To a tenth of a second.
double Judge::FindChange(double before, double after) const {
    const Light first = FoundAt(before);
    while (after - before > 0.1 * kSecond) {
        const double middle = 0.5 * (before + after);
        (FoundAt(middle) == first ? before : after) = middle;
    }
    return 0.5 * (before + after);
}

void Judge::CompareAround(double change) {
    for (int i = -10; i <= 10; ++i)
        ExpectAgreement(change + i * kSecond);
}

void Judge::CompareAll() {
    double last = m_span.start;
    Light lastFound = FoundAt(last);
    for (double hours = m_span.start; hours <= m_span.end; hours += 30.0 * kSecond) {
        ExpectAgreement(hours);
        const Light found = FoundAt(hours);
        if (found != lastFound)
            CompareAround(FindChange(last, hours));
        last = hours;
        lastFound = found;
    }
    for (const double change : m_claim.Changes())
        CompareAround(change);
    CompareCulprits();
}

// Whoever stops a ray is named; whoever is named has a shadow on the window at some second of the time.
void Judge::CompareCulprits() {
    for (const HiddenPeriod& hidden : m_window.hidden) {
        const std::set<std::uint64_t> named(hidden.by.begin(), hidden.by.end());
        std::set<std::uint64_t> unseen = named;
        const double from = hidden.period.start + kSecond;
        const double to = hidden.period.end - kSecond;
        for (double hours = from; hours <= to; hours += 300.0 * kSecond)
            for (const std::uint64_t handle : m_caster.StoppedBy(hours)) {
                EXPECT_EQ(named.count(handle), 1U) << "not named: " << std::hex << handle << " at " << hours;
                unseen.erase(handle);
            }
        for (const std::uint64_t handle : unseen) {
            bool isSeen = false;
            for (double hours = hidden.period.start; !isSeen && hours <= hidden.period.end + kSecond; hours += kSecond)
                isSeen = m_caster.ShadeOf(handle, std::min(hours, hidden.period.end)) != Shade::None;
            EXPECT_TRUE(isSeen) << std::hex << handle << std::dec << " hides nothing from " << hidden.period.start
                                << " to " << hidden.period.end;
        }
    }
}

// Marks count from the span's start; those that are lit side by side make a period.
std::vector<SunPeriod> SteppedOf(const std::vector<SunPeriod>& sunlit, const SunPeriod& span, double minutes) {
    constexpr double kRounding = 1e-9;
    std::vector<SunPeriod> stepped;
    bool wasLit = false;
    double last = 0.0;
    for (int i = 0; span.start + i * minutes / 60.0 <= span.end + kRounding; ++i) {
        const double mark = span.start + i * minutes / 60.0;
        const bool isLit = std::any_of(sunlit.begin(), sunlit.end(), [&](const SunPeriod& period) {
            return period.start - kRounding <= mark && mark <= period.end + kRounding;
        });
        if (isLit && wasLit && !stepped.empty() && stepped.back().end == last)
            stepped.back().end = mark;
        else if (isLit && wasLit)
            stepped.push_back({last, mark});
        wasLit = isLit;
        last = mark;
    }
    return stepped;
}

void CompareScene(unsigned seed) {
    const RandomScene made = MakeRandomScene(seed);
    SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
    const AnalysisAnswer answer = Answer(made.scene, made.request, made.placement);
    ASSERT_EQ(answer.failure, AnalysisFailure::None);
    ASSERT_EQ(answer.windows.size(), made.windows.size());
    EXPECT_NEAR(answer.span.start, SpanOf(made.request).start, 1e-9);
    EXPECT_NEAR(answer.span.end, SpanOf(made.request).end, 1e-9);
    for (const std::uint64_t handle : made.windows) {
        const WindowResult window = WindowOf(answer, handle);
        ASSERT_TRUE(window.facing.has_value());
        Judge judge(made, window);
        judge.CompareAll();
        EXPECT_TRUE(judge.HasLooked());
        ExpectPeriods(window.stepped, SteppedOf(window.sunlit, answer.span, made.request.settings.standard->step));
    }
}

// What tools/judge-scenes asks for.
unsigned NumberFrom(const char* variable, unsigned usual) {
    const char* text = std::getenv(variable);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : usual;
}

// Failures so far of the test that is running.
int FailureCount() {
    const testing::TestResult& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
    int count = 0;
    for (int i = 0; i < result.total_part_count(); ++i)
        count += result.GetTestPartResult(i).failed() ? 1 : 0;
    return count;
}

WindowResult WithHours(const WindowResult& window, const WindowHours& hours) {
    WindowResult other = window;
    static_cast<WindowHours&>(other) = hours;
    return other;
}

// The window's hours before against rays in the scene without the project, what is lost against its sunlit hours then
// and now, and who takes it against rays among the project alone.
void CompareProject(unsigned seed, std::size_t& changed) {
    RandomScene made = MakeRandomScene(seed);
    const std::set<std::uint64_t> proposed = ProposeSome(made, seed);
    SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
    const AnalysisAnswer answer = Answer(made.scene, made.request, made.placement);
    std::set<std::uint64_t> others;
    for (const SlowFace& face : made.scene.Faces())
        if (!proposed.contains(face.handle))
            others.insert(face.handle);
    RandomScene standing = made;
    standing.scene = made.scene.Without(proposed);
    RandomScene project = made;
    project.scene = made.scene.Without(others);
    for (const std::uint64_t handle : made.windows) {
        const WindowResult window = WindowOf(answer, handle);
        Judge(made, window).CompareAll();
        ASSERT_TRUE(window.before.has_value());
        Judge(standing, WithHours(window, *window.before)).CompareAll();
        changed += window.lost.empty() ? 0 : 1;
        WindowResult taken = WithHours(window, *window.before);  // of a wide window the part that was judged then
        taken.hidden = window.lost;
        Judge(project, taken).CompareCulprits();
        if (window.part)
            continue;
        std::vector<SunPeriod> lost;
        for (const HiddenPeriod& each : window.lost)
            lost.push_back(each.period);
        ExpectPeriods(Difference(HourSpans::Of(window.before->sunlit), HourSpans::Of(window.sunlit)).All(), lost);
    }
}

}  // namespace

TEST(RandomScenes, AgreeWithRaysWithAProjectAndWithoutIt) {
    const unsigned count = IsSlowTier() ? 300 : 20;
    std::size_t changed = 0;
    for (unsigned seed = 1; seed <= count && !HasFatalFailure(); ++seed)
        CompareProject(seed, changed);
    EXPECT_GT(changed, count / 4);
}

// A drawing without the project's entities has the windows' hours before, and one in which nothing is asked for has
// those now.
TEST(RandomScenes, HaveBeforeWhatADrawingWithoutTheProjectHas) {
    for (unsigned seed = 1; seed <= 100; ++seed) {
        RandomScene made = MakeRandomScene(seed);
        const std::set<std::uint64_t> proposed = ProposeSome(made, seed);
        SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
        made.request.need = 2.0;
        made.request.isScoped = seed % 4 == 0;
        const AnalysisAnswer answer = Answer(made.scene, made.request, made.placement);
        made.request.proposedLayers.clear();
        const AnalysisAnswer now = Answer(made.scene, made.request, made.placement);
        const AnalysisAnswer before = Answer(made.scene.Without(proposed), made.request, made.placement);
        for (const std::uint64_t handle : made.windows) {
            const WindowResult window = WindowOf(answer, handle);
            ASSERT_TRUE(window.before.has_value());
            EXPECT_EQ(TextOf(static_cast<const WindowHours&>(window)),
                      TextOf(static_cast<const WindowHours&>(WindowOf(now, handle))));
            const WindowResult other = WindowOf(before, handle);
            ASSERT_EQ(window.facing, other.facing);
            ExpectPeriods(window.before->sunlit, other.sunlit);
            ExpectPeriods(window.before->counted, other.counted);
            EXPECT_NEAR(window.before->judged, other.judged, 1e-6);
            EXPECT_EQ(window.before->passes, other.passes);
            EXPECT_EQ(window.before->color, other.color);
            EXPECT_EQ(window.before->notes, other.notes);
            ASSERT_EQ(window.before->dropped.size(), other.dropped.size());
            ASSERT_EQ(window.before->hidden.size(), other.hidden.size());
            for (std::size_t i = 0; i < other.hidden.size(); ++i)
                EXPECT_EQ(window.before->hidden[i].by, other.hidden[i].by);
        }
    }
}

TEST(RandomScenes, HaveTheSameAnswerWithAnyNumberOfThreads) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RandomScene made = MakeRandomScene(seed);
        SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
        if (seed % 2 == 0)
            ProposeSome(made, seed);
        made.request.isScoped = seed % 3 == 0;
        made.request.need = 1.0;
        made.request.threads = 1;
        const AnalysisAnswer one = Answer(made.scene, made.request, made.placement);
        std::vector<std::uint64_t> handles;
        for (const WindowResult& window : one.windows)
            handles.push_back(window.handle);
        EXPECT_EQ(handles, made.windows) << "as drawn";
        const std::string expected = TextOf(one);
        for (const unsigned threads : {2U, 3U, 7U, 0U}) {
            made.request.threads = threads;
            EXPECT_EQ(TextOf(Answer(made.scene, made.request, made.placement)), expected) << threads;
        }
    }
}

TEST(RandomScenes, AgreeWithRaysAtEachMoment) {
    const unsigned first = NumberFrom("ORVO_SCENE_SEED", 1);
    const unsigned count = NumberFrom("ORVO_SCENE_COUNT", IsSlowTier() ? 600 : 60);
    ASSERT_GT(count, 0U);
    for (unsigned i = 0; i < count; ++i) {
        const int before = FailureCount();
        CompareScene(first + i);
        if (FailureCount() != before)
            std::cout << "scene " << first + i << " failed; alone: tools/judge-scenes 1 " << first + i << '\n';
    }
}

// Neither the hours nor the names hang on which entity comes first.
TEST(RandomScenes, HaveTheSameAnswerBackwards) {
    for (unsigned seed = 1; seed <= 25; ++seed) {
        RandomScene made = MakeRandomScene(seed);
        SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
        const AnalysisAnswer forwards = Answer(made.scene, made.request, made.placement);
        made.placement.isBackwards = true;
        const AnalysisAnswer backwards = Answer(made.scene, made.request, made.placement);
        for (const std::uint64_t handle : made.windows) {
            const WindowResult one = WindowOf(forwards, handle);
            const WindowResult other = WindowOf(backwards, handle);
            ExpectPeriods(one.sunlit, other.sunlit);
            EXPECT_EQ(one.judged, other.judged);
            EXPECT_EQ(one.notes, other.notes);
            ASSERT_EQ(one.hidden.size(), other.hidden.size());
            for (std::size_t i = 0; i < one.hidden.size(); ++i)
                EXPECT_EQ(one.hidden[i].by, other.hidden[i].by);
        }
    }
}
