// The same windows in other places, units, positions and directions, with hours that are found on paper.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "JudgedScene.h"
#include "PaperSun.h"
#include "settings/OrvoStdSet.h"

namespace {

constexpr double kLatitude = 31.2;
constexpr double kSolstice = 23.44;

// A house at the origin with a window that faces south, or wherever it is turned to from there.
JudgedScene House(double turned = 0.0) {
    JudgedScene scene;
    scene.StandOn(0, 0, turned);
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    return scene;
}

// Something on every side of the window, so that each hour is told apart.
JudgedScene Town() {
    JudgedScene scene = House();
    scene.Box(1350, -1200, 500, 1500, 0, 2900);
    scene.Box(-3000, -300, 2800, 2000, 0, 2950);
    scene.StandOn(9000, -31000, 20);
    scene.Box(-4000, -3000, 0, 4000, 3000, 45000);
    scene.StandOn(-25000, -20000, -35);
    scene.Box(-4000, -3000, 0, 4000, 3000, 18000);
    return scene;
}

std::vector<SunPeriod> Mirrored(std::vector<SunPeriod> periods) {
    std::reverse(periods.begin(), periods.end());
    for (SunPeriod& period : periods)
        period = {24.0 - period.end, 24.0 - period.start};
    return periods;
}

WindowResult InPlacement(const Placement& placement, double north = 0.0) {
    AnalysisRequest request = RequestFor(kLatitude, -10.0);
    request.north = north;
    return Only(Answer(Town(), request, placement));
}

}  // namespace

// The sun is north of the wall's plane while cos H < tan d / tan p: after rise and before set.
TEST(WindowPlaces, NorthWindowHasSummerMorningsAndEvenings) {
    const PaperSun summer(kLatitude, kSolstice);
    const WindowResult window = Only(Answer(House(180.0), RequestFor(kLatitude, kSolstice)));
    EXPECT_NEAR(*window.facing, 90.0, 1e-9);
    ExpectPeriods(window.sunlit,
                  {{12.0 - summer.Sunset(), 12.0 - summer.InWall()}, {12.0 + summer.InWall(), 12.0 + summer.Sunset()}});
    EXPECT_TRUE(Only(Answer(House(180.0), RequestFor(kLatitude, -kSolstice))).sunlit.empty());
}

// South of the equator it is the window that faces south which has the summer's mornings and evenings: the same with
// both signs changed.
TEST(WindowPlaces, SouthernLatitudes) {
    const PaperSun summer(kLatitude, kSolstice);
    ExpectPeriods(Only(Answer(House(), RequestFor(-kLatitude, -kSolstice))).sunlit,
                  {{12.0 - summer.Sunset(), 12.0 - summer.InWall()}, {12.0 + summer.InWall(), 12.0 + summer.Sunset()}});
}

TEST(WindowPlaces, PolarNightHasNoSunAndSaysSo) {
    AnalysisRequest request = RequestFor(80.0, -kSolstice);
    request.need = 1.0;
    const AnalysisAnswer answer = Answer(House(), request);
    EXPECT_TRUE(HasRemark(answer, AnalysisRemark::Kind::SunBelowHorizon));
    const WindowResult window = Only(answer);
    EXPECT_TRUE(window.sunlit.empty() && window.hidden.empty() && window.dropped.empty());
    EXPECT_EQ(window.judged, 0.0);
    EXPECT_EQ(window.passes, std::optional(false));
}

// The sun does not set, and is north of the wall's plane while cos H < tan d / tan p, around midnight.
TEST(WindowPlaces, PolarDayLightsANorthWindowAtMidnight) {
    const PaperSun sun(80.0, kSolstice);
    const WindowResult north = Only(Answer(House(180.0), RequestFor(80.0, kSolstice)));
    ExpectPeriods(north.sunlit, {{0.0, 12.0 - sun.InWall()}, {12.0 + sun.InWall(), 24.0}});
    ExpectPeriods(Only(Answer(House(), RequestFor(80.0, kSolstice))).sunlit,
                  {{12.0 - sun.InWall(), 12.0 + sun.InWall()}});
}

// At the pole the sun goes round at the height of its declination. A wall's plane has it before it for twelve hours.
TEST(WindowPlaces, Poles) {
    ExpectPeriods(Only(Answer(House(), RequestFor(90.0, kSolstice))).sunlit, {{6.0, 18.0}});
    ExpectPeriods(Only(Answer(House(), RequestFor(-90.0, -kSolstice))).sunlit, {{0.0, 6.0}, {18.0, 24.0}});
    EXPECT_TRUE(Only(Answer(House(), RequestFor(90.0, -1.0))).sunlit.empty());
}

// At the equator on an equinox the sun rises in the east, goes through the zenith and never is before the north or the
// south wall; the east window has the morning.
TEST(WindowPlaces, EquatorOnAnEquinox) {
    ExpectPeriods(Only(Answer(House(90.0), RequestFor(0.0, 0.0))).sunlit, {{6.0, 12.0}});
    ExpectPeriods(Only(Answer(House(-90.0), RequestFor(0.0, 0.0))).sunlit, {{12.0, 18.0}});
    // However the wall's direction is rounded; the least angle would tell of sun that comes too flat.
    for (int turn = 0; turn < 360; turn += 7)
        for (const double wall : {0.0, 180.0}) {
            AnalysisRequest request = RequestFor(0.0, 0.0);
            request.north = turn;
            request.settings.standard->validSunType = ORVO_SUN_CUSTOM;
            request.settings.standard->minValidAngle = 12;
            const WindowResult window = Only(Answer(House(wall + turn), request));
            EXPECT_TRUE(window.sunlit.empty() && window.hidden.empty() && window.dropped.empty()) << turn;
        }
}

// Beijing's day from 0:00 to 24:00 at 170 degrees west: true solar time is (120 + 170) / 15 hours less and 0.1 more, so
// from -19.2333 to 4.7667. In winter that holds the day before, around -12, and ends before the sun rises. In summer a
// north window's morning and evening of the day before are in it as well.
TEST(WindowPlaces, FarWestWithBeijingTime) {
    AnalysisRequest winter = RequestFor(kLatitude, -kSolstice);
    winter.settings.place->longitude = -170.0;
    winter.terms.equationOfTime = 0.1;
    winter.settings.standard->beijingTime = ORVO_BEIJING_TIME;
    const AnalysisAnswer answer = Answer(House(), winter);
    const double shift = 290.0 / 15.0 - 0.1;
    EXPECT_NEAR(answer.beijingOffset, shift, 1e-9);
    EXPECT_NEAR(answer.span.start, -shift, 1e-9);
    EXPECT_NEAR(answer.span.end, 24.0 - shift, 1e-9);
    const double half = PaperSun(kLatitude, -kSolstice).Sunset();
    ExpectPeriods(Only(answer).sunlit, {{-12.0 - half, -12.0 + half}});
    AnalysisRequest summer = winter;
    summer.terms.declination = kSolstice;
    const PaperSun sun(kLatitude, kSolstice);
    ExpectPeriods(Only(Answer(House(180.0), summer)).sunlit,
                  {{-12.0 - sun.Sunset(), -12.0 - sun.InWall()}, {-12.0 + sun.InWall(), -12.0 + sun.Sunset()}});
}

// In polar summer that day of the clock holds a midnight, the hour 0, and a north window's sun goes on through it.
TEST(WindowPlaces, MidnightWithinTheClocksDay) {
    AnalysisRequest request = RequestFor(80.0, kSolstice);
    request.settings.place->longitude = 0.0;
    request.settings.standard->beijingTime = ORVO_BEIJING_TIME;  // true solar time from -8 to 16
    const PaperSun sun(80.0, kSolstice);
    ExpectPeriods(Only(Answer(House(180.0), request)).sunlit, {{-12.0 + sun.InWall(), 12.0 - sun.InWall()}});
}

// The Shanghai hours are those of true solar time, 9 to 15 for a window that faces south, of whatever day.
TEST(WindowPlaces, ShanghaiHoursOfTheDayBefore) {
    AnalysisRequest request = RequestFor(kLatitude, -kSolstice);
    request.settings.place->longitude = -170.0;
    request.settings.standard->beijingTime = ORVO_BEIJING_TIME;
    request.settings.standard->validSunType = ORVO_SUN_SHANGHAI;
    ExpectPeriods(Only(Answer(House(), request)).sunlit, {{-15.0, -9.0}});
}

// A foot is 304.8 mm, an inch a twelfth.
TEST(WindowPlaces, UnitsGiveTheSameHours) {
    const WindowResult expected = InPlacement({});
    ASSERT_GE(expected.sunlit.size(), 2U);
    struct Unit {
        int code;
        double millimetres;
    };
    for (const Unit& unit : {Unit{6, 1000.0}, Unit{2, 304.8}, Unit{1, 25.4}, Unit{5, 10.0}}) {
        SCOPED_TRACE(unit.code);
        Placement placement;
        placement.unit = unit.code;
        placement.millimetres = unit.millimetres;
        const WindowResult window = InPlacement(placement);
        ExpectPeriods(window.sunlit, expected.sunlit);
        EXPECT_NEAR(window.width, 1.5, 1e-6);
        EXPECT_NEAR(window.sill, 1.0, 1e-6);
    }
}

TEST(WindowPlaces, DrawingsFarFromTheirOriginGiveTheSameHours) {
    const WindowResult expected = InPlacement({});
    Placement placement;
    placement.moveX = 5e8;
    placement.moveY = 5e8;
    const WindowResult window = InPlacement(placement);
    ExpectPeriods(window.sunlit, expected.sunlit);
    EXPECT_NEAR(window.corners[0].x, 500000.0 - 0.75, 1e-6);
}

TEST(WindowPlaces, DrawingTurnedWithNorthGivesTheSameHours) {
    const WindowResult expected = InPlacement({});
    for (const double turn : {-30.0, 17.0, 90.0, 200.0, 400.0}) {
        SCOPED_TRACE(turn);
        Placement placement;
        placement.turn = turn;
        const WindowResult window = InPlacement(placement, turn);
        ExpectPeriods(window.sunlit, expected.sunlit);
        ASSERT_TRUE(window.facing.has_value());
        EXPECT_NEAR(*window.facing, 270.0, 1e-6);
    }
}

// The outline of a window says nothing about its side: both normals give the same.
TEST(WindowPlaces, WindowsAsClosedPolylines) {
    const WindowResult expected = InPlacement({});
    for (const int side : {1, -1})
        for (const double turn : {0.0, 33.0, 90.0, 180.0}) {
            SCOPED_TRACE(testing::Message() << side << ", " << turn);
            Placement placement;
            placement.windowsAsOutlines = side;
            placement.turn = turn;
            placement.moveX = 1e5;
            const WindowResult window = InPlacement(placement, turn);
            ExpectPeriods(window.sunlit, expected.sunlit);
            EXPECT_NEAR(*window.facing, 270.0, 1e-6);
            EXPECT_NEAR(window.sill, 1.0, 1e-9);
        }
}

// 8:00 to 16:00 of the clock at 116.4 degrees east, where true solar time is 3.6 / 15 hours behind, and 0.1 more by the
// equation of time: 7.66 to 15.66, all of which is between the solstice's sunrise (7.015) and sunset.
TEST(WindowPlaces, SpanIsTheClocks) {
    AnalysisRequest request = RequestFor(kLatitude, -kSolstice);
    request.settings.place->longitude = 116.4;
    request.terms.equationOfTime = -0.1;
    request.settings.standard->beijingTime = ORVO_BEIJING_TIME;
    request.settings.standard->start = 8.0;
    request.settings.standard->end = 16.0;
    const AnalysisAnswer answer = Answer(House(), request);
    EXPECT_NEAR(answer.beijingOffset, 0.34, 1e-9);
    ExpectPeriods(Only(answer).sunlit, {{7.66, 15.66}});
    EXPECT_NEAR(Only(answer).judged, 480.0, 1e-6);
    request.settings.standard->beijingTime = ORVO_TRUE_SOLAR_TIME;
    ExpectPeriods(Only(Answer(House(), request)).sunlit, {{8.0, 16.0}});
}

// Turned with the drawing but not with north the window faces elsewhere: 90 degrees counter-clockwise of south is east.
TEST(WindowPlaces, NorthTellsWhereAWindowFaces) {
    EXPECT_NEAR(*Only(Answer(House(90.0), RequestFor(kLatitude, -10.0))).facing, 0.0, 1e-6);
    AnalysisRequest request = RequestFor(kLatitude, -10.0);
    request.north = 90.0;  // true north to the left: what looked south now looks 90 degrees clockwise of it, west
    EXPECT_NEAR(*Only(Answer(House(), request)).facing, 180.0, 1e-6);
}

TEST(WindowPlaces, MirroredDrawingTurnsTheDayAroundNoon) {
    Placement placement;
    placement.isMirrored = true;
    const WindowResult window = InPlacement(placement);
    const WindowResult expected = InPlacement({});
    ASSERT_FALSE(expected.sunlit.empty());
    EXPECT_GT(std::abs(24.0 - expected.sunlit.back().end - expected.sunlit.front().start), 0.01)
        << "not its own mirror";
    ExpectPeriods(window.sunlit, Mirrored(expected.sunlit));
}
