// What is said of a window beside its hours: notes, parts, verdict, who hides it, what was dropped or left out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "PaperHouse.h"
#include "settings/AnalysisParameters.h"
#include "settings/OrvoStdSet.h"

namespace {

using Kind = AnalysisRemark::Kind;

AnalysisRequest LimitedTo(double least, double most) {
    AnalysisRequest request = Winter();
    request.settings.standard->limitWidth = 1;
    request.settings.standard->minWidth = least;
    request.settings.standard->maxWidth = most;
    return request;
}

std::vector<SunPeriod> AllDay() {
    return {{12.0 - kWinter.Sunset(), 12.0 + kWinter.Sunset()}};
}

std::vector<SunPeriod> DroppedFor(const WindowResult& window, DropReason reason) {
    std::vector<SunPeriod> periods;
    for (const DroppedPeriod& dropped : window.dropped)
        if (dropped.reason == reason)
            periods.push_back(dropped.period);
    return periods;
}

}  // namespace

TEST(WindowNotes, FaceThroughTheWindowIsACutAndNoSunAllDay) {
    JudgedScene scene = House();
    const std::uint64_t fin = scene.Face({{0, 100, 0}, {0, -500, 0}, {0, -500, 5000}, {0, 100, 5000}});
    const WindowResult window = Only(Answer(scene, Winter()));
    EXPECT_EQ(window.notes, std::vector{WindowNote::Cut});
    EXPECT_TRUE(window.sunlit.empty());
    ASSERT_EQ(window.hidden.size(), 1U);
    ExpectPeriods({window.hidden[0].period}, AllDay());
    EXPECT_EQ(window.hidden[0].by, std::vector{fin});
    EXPECT_EQ(window.judged, 0.0);
}

// The window stays on its house's wall, and another body covers the wall there.
TEST(WindowNotes, BodyBeforeTheWindowPutsItInside) {
    JudgedScene scene = House();
    const std::uint64_t annex = scene.Box(-3000, -2000, 0, 3000, 1000, 4000);
    const WindowResult window = Only(Answer(scene, Winter()));
    EXPECT_TRUE(HasNote(window, WindowNote::Inside));
    EXPECT_FALSE(HasNote(window, WindowNote::NoSide));
    EXPECT_TRUE(window.sunlit.empty());
    ASSERT_EQ(window.hidden.size(), 1U);
    EXPECT_EQ(window.hidden[0].by, std::vector{annex});
}

TEST(WindowNotes, WindowDeepInsideABodyIsInside) {
    JudgedScene scene;
    scene.Box(-10000, -4000, 0, 10000, 4000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    AnalysisRequest request = Winter();
    request.facing = 270.0;
    const WindowResult window = Only(Answer(scene, request));
    EXPECT_TRUE(HasNote(window, WindowNote::Inside));
    EXPECT_TRUE(window.sunlit.empty());
}

TEST(WindowNotes, WindowInTheOpenHasNoSideUnlessItIsTold) {
    JudgedScene scene;
    scene.Box(-50000, -90000, 0, -49000, -89000, 1000);  // too low to be seen, too far to tell anything
    scene.Box(-50000, 89000, 0, -49000, 90000, 1000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    AnalysisRequest request = Winter();
    request.need = 1.0;
    const WindowResult none = Only(Answer(scene, request));
    EXPECT_EQ(none.notes, std::vector{WindowNote::NoSide});
    EXPECT_FALSE(none.facing.has_value());
    EXPECT_FALSE(none.passes.has_value());
    EXPECT_TRUE(none.sunlit.empty() && none.stepped.empty() && none.counted.empty() && none.dropped.empty() &&
                none.hidden.empty());
    EXPECT_EQ(none.judged, 0.0);
    request.facing = 270.0;
    const WindowResult told = Only(Answer(scene, request));
    EXPECT_TRUE(told.notes.empty());
    ASSERT_TRUE(told.facing.has_value());
    EXPECT_NEAR(*told.facing, 270.0, 1e-9);
    EXPECT_EQ(told.passes, std::optional(true));
    ExpectPeriods(told.sunlit, AllDay());
    request.facing = 90.0;
    const WindowResult north = Only(Answer(scene, request));
    EXPECT_NEAR(*north.facing, 90.0, 1e-9);
    EXPECT_TRUE(north.sunlit.empty());
    EXPECT_EQ(north.passes, std::optional(false));
    EXPECT_NEAR(north.corners[0].x, 0.75, 1e-9) << "lower left as seen from the north";
}

TEST(WindowNotes, NarrowerThanTheLeastWidth) {
    EXPECT_EQ(Only(Answer(House(), LimitedTo(1600, 2400))).notes, std::vector{WindowNote::Narrower});
    EXPECT_TRUE(Only(Answer(House(), LimitedTo(1500, 2400))).notes.empty());
    JudgedScene open;
    open.Window(-750, 0, 1000, 1500, 1500);
    EXPECT_EQ(Only(Answer(open, LimitedTo(1600, 2400))).notes, (std::vector{WindowNote::NoSide, WindowNote::Narrower}));
    AnalysisRequest sill = LimitedTo(1600, 2400);
    sill.settings.standard->fullWindow = 0;
    EXPECT_TRUE(Only(Answer(House(), sill)).notes.empty()) << "widths are for whole windows";
    AnalysisRequest unlimited = LimitedTo(1600, 2400);
    unlimited.settings.standard->limitWidth = 0;
    EXPECT_TRUE(Only(Answer(House(), unlimited)).notes.empty());
}

// 9 to 15 o'clock of unbroken sun are six hours.
TEST(WindowNotes, VerdictIsJudgedAgainstNeed) {
    AnalysisRequest request = Winter();
    request.settings.standard->start = 9.0;
    request.settings.standard->end = 15.0;
    EXPECT_FALSE(Only(Answer(House(), request)).passes.has_value());
    struct Case {
        double need;
        bool passes;
    };
    for (const Case& each : {Case{6.0, true}, Case{6.0 + 1e-5, false}, Case{6.0 + 1e-9, true}, Case{0.0, true}}) {
        request.need = each.need;
        const WindowResult window = Only(Answer(House(), request));
        EXPECT_NEAR(window.judged, 360.0, 1e-6);
        EXPECT_EQ(window.passes, std::optional(each.passes)) << each.need;
    }
}

// Two towers one behind the other, a pole before them, and a low box that hides nothing.
TEST(WindowNotes, HiddenByListsAllThatHideAndNoOthers) {
    JudgedScene scene = House();
    const std::uint64_t far = scene.Box(-4000, -90000, 0, 4000, -80000, 120000);
    const std::uint64_t near = scene.Box(-5000, -60000, 0, 5000, -50000, 100000);
    const std::uint64_t pole = scene.Box(-10, -3020, 0, 10, -3000, 40000);
    scene.Box(-5000, -5000, 0, 5000, -4000, 900);
    const WindowResult window = Only(Answer(scene, Winter()));
    ASSERT_EQ(window.hidden.size(), 1U);
    EXPECT_EQ(window.hidden[0].by, (std::vector{far, near, pole}));
}

// The angle to the wall is 90 - |A|: at least 30 degrees while tan |A| <= tan 60.
TEST(WindowNotes, FlatSunIsDroppedForItsAngle) {
    AnalysisRequest request = Winter();
    request.settings.standard->minValidAngle = 30;
    const double half = kWinter.AtAzimuth(std::sqrt(3.0));
    const WindowResult window = Only(Answer(House(), request));
    ExpectPeriods(window.sunlit, {{12.0 - half, 12.0 + half}});
    ExpectPeriods(DroppedFor(window, DropReason::Angle),
                  {{12.0 - kWinter.Sunset(), 12.0 - half}, {12.0 + half, 12.0 + kWinter.Sunset()}});
    request.settings.standard->minValidAngle = 90;
    const WindowResult nothing = Only(Answer(House(), request));
    EXPECT_TRUE(nothing.sunlit.empty() && nothing.hidden.empty());
    ExpectPeriods(DroppedFor(nothing, DropReason::Angle), AllDay());
    request.settings.standard->minValidAngle = -5;
    ExpectPeriods(Only(Answer(House(), request)).sunlit, AllDay());
}

// 20 degrees east of south the Shanghai rule takes half an hour off the end of 9 to 15. The sun of all the day is
// before the wall (its azimuth is 62 degrees at the horizon).
TEST(WindowNotes, SunOutsideTheShanghaiHoursIsDroppedForTheFacing) {
    JudgedScene scene;
    scene.StandOn(0, 0, 20.0);
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    AnalysisRequest request = Winter();
    request.settings.standard->validSunType = ORVO_SUN_SHANGHAI;
    request.settings.standard->minValidAngle = 60;  // says nothing under this rule
    const WindowResult window = Only(Answer(scene, request));
    ExpectPeriods(window.sunlit, {{9.0, 14.5}});
    ExpectPeriods(DroppedFor(window, DropReason::Facing),
                  {{12.0 - kWinter.Sunset(), 9.0}, {14.5, 12.0 + kWinter.Sunset()}});
}

// Hours that are not valid are not hidden either, whatever stands there.
TEST(WindowNotes, HiddenHoursAreValidOnes) {
    JudgedScene scene = House();
    scene.Box(-100000, -3300, 0, 100000, -3000, 50000);
    AnalysisRequest request = Winter();
    request.settings.standard->validSunType = ORVO_SUN_SHANGHAI;
    const WindowResult window = Only(Answer(scene, request));
    EXPECT_TRUE(window.sunlit.empty() && window.dropped.empty());
    ASSERT_EQ(window.hidden.size(), 1U);
    ExpectPeriods({window.hidden[0].period}, {{9.0, 15.0}});
}

// A tower beyond the module's 300 m, one within them but farther than 1.4 times what it rises over the sill (49 m), and
// one that is near enough (1.4 times 99 m are 138.6): with scope only the third hides the sun, and the answer says that
// two were left out.
TEST(WindowNotes, ScopeLeavesOutWhatIsFarAndSaysHowMuch) {
    const auto hiddenBy = [](const JudgedScene& scene, bool isScoped, std::size_t leftOut) {
        AnalysisRequest request = Winter();
        request.isScoped = isScoped;
        request.leastAltitude = 0.0;
        const AnalysisAnswer answer = Answer(scene, request);
        std::size_t told = 0;
        for (const AnalysisRemark& remark : answer.remarks)
            if (remark.kind == Kind::LeftOutByScope)
                told = remark.count;
        EXPECT_EQ(told, leftOut);
        std::vector<std::uint64_t> by;
        for (const HiddenPeriod& hidden : Only(answer).hidden)
            by.insert(by.end(), hidden.by.begin(), hidden.by.end());
        std::sort(by.begin(), by.end());
        by.erase(std::unique(by.begin(), by.end()), by.end());
        return by;
    };
    JudgedScene scene = House();
    const std::uint64_t far = scene.Box(-5000, -420000, 0, 5000, -400000, 900000);
    const std::uint64_t low = scene.Box(70000, -80000, 0, 80000, -70000, 50000);
    const std::uint64_t near = scene.Box(-40000, -130000, 0, -30000, -120000, 100000);
    EXPECT_EQ(hiddenBy(scene, false, 0), (std::vector{far, low, near}));
    EXPECT_EQ(hiddenBy(scene, true, 2), std::vector{near});
}

// The module's switch for it, as it stands when the question is put together, turns the scope off, and only that.
TEST(WindowNotes, ScopeObeysTheModulesSwitch) {
    JudgedScene scene = House();
    const std::uint64_t far = scene.Box(-5000, -420000, 0, 5000, -400000, 900000);
    AnalysisRequest request = Winter();
    request.isScoped = true;
    g_bLimitClientScope = false;
    EXPECT_TRUE(Only(Answer(scene, request)).hidden.empty());
    request.tuning = CurrentTuningParameters();
    g_bLimitClientScope = true;
    const AnalysisAnswer answer = Answer(scene, request);
    ASSERT_EQ(Only(answer).hidden.size(), 1U);
    EXPECT_EQ(Only(answer).hidden[0].by, std::vector{far});
    EXPECT_FALSE(HasRemark(answer, Kind::LeftOutByScope));
    EXPECT_TRUE(HasRemark(answer, Kind::LeftOutByAltitude));
}

// A wall 30 m high from 100 m south and 20 m east to 20 m south and 100 m east is 85 m away, twice as far as 1.4 times
// what it rises over the sill, however the drawing is turned. (A box along the axes around it comes as near as 28 m.)
TEST(WindowNotes, ScopeDoesNotHangOnHowTheDrawingIsTurned) {
    JudgedScene scene = House();
    scene.StandOn(60000, -60000, 45.0);
    scene.Box(-56568, 0, 0, 56568, 300, 30000);
    for (const double turn : {0.0, 45.0, 77.0}) {
        SCOPED_TRACE(turn);
        Placement placement;
        placement.turn = turn;
        AnalysisRequest request = Winter();
        request.north = turn;
        request.leastAltitude = 0.0;
        EXPECT_FALSE(Only(Answer(scene, request, placement)).hidden.empty());
        request.isScoped = true;
        EXPECT_TRUE(Only(Answer(scene, request, placement)).hidden.empty());
    }
}

// The sun counts from an altitude of 10 degrees on.
TEST(WindowNotes, LeastAltitudeLeavesOutLowSunAndSaysSo) {
    AnalysisRequest request = Winter();
    EXPECT_FALSE(HasRemark(Answer(House(), request), Kind::LeftOutByAltitude));
    request.leastAltitude = 10.0;
    const AnalysisAnswer answer = Answer(House(), request);
    ExpectPeriods(Only(answer).sunlit, {{12.0 - kWinter.AtAltitude(10.0), 12.0 + kWinter.AtAltitude(10.0)}});
    EXPECT_TRUE(Only(answer).hidden.empty());
    const auto told = std::find_if(answer.remarks.begin(), answer.remarks.end(),
                                   [](const AnalysisRemark& each) { return each.kind == Kind::LeftOutByAltitude; });
    ASSERT_NE(told, answer.remarks.end());
    EXPECT_EQ(told->amount, 10.0);
}

// The module's parameters say 5 degrees where scope is asked for.
TEST(WindowNotes, ScopeBringsTheModulesLeastAltitude) {
    AnalysisRequest request = Winter();
    request.isScoped = true;
    ExpectPeriods(Only(Answer(House(), request)).sunlit,
                  {{12.0 - kWinter.AtAltitude(5.0), 12.0 + kWinter.AtAltitude(5.0)}});
}

TEST(WindowNotes, NamesComeFromTextsInTheWindow) {
    JudgedScene scene = House();
    scene.Name("3-402-1", 100, 0, 1500);
    EXPECT_EQ(Only(Answer(scene, Winter())).name, CString(L"3-402-1"));
    EXPECT_EQ(Only(Answer(House(), Winter())).name, CString(L"101")) << "the second entity's handle";
}
