// Windows whose hours are found on paper. The window is 1500 wide and high with its sill at 1000, in the south wall (y
// = 0, x = -10 to 10 m) of a house, all in millimetres. What is analysed lies 5 before the wall and is 0.05 less on
// each side: x = -749.95 to 749.95, z = 1000.05 to 2499.95. Where nothing else is said the place is at 31.2 degrees
// north, the day is the winter solstice (declination -23.44), and every sun above the wall counts.
#include <gtest/gtest.h>

#include <cmath>

#include "PaperHouse.h"
#include "settings/AnalysisParameters.h"

namespace {

AnalysisRequest AtTheSill(AnalysisRequest request) {
    request.settings.standard->fullWindow = 0;
    return request;
}

std::vector<SunPeriod> AroundNoon(double half) {
    return {{12.0 - half, 12.0 + half}};
}

// The day from sunrise to sunset without the middle.
std::vector<SunPeriod> WithoutNoon(double sunset, double half) {
    return {{12.0 - sunset, 12.0 - half}, {12.0 + half, 12.0 + sunset}};
}

std::vector<SunPeriod> PeriodsOf(const std::vector<HiddenPeriod>& hidden) {
    std::vector<SunPeriod> periods;
    for (const HiddenPeriod& each : hidden)
        periods.push_back(each.period);
    return periods;
}

}  // namespace

TEST(WindowCases, NothingInTheWayIsSunFromRiseToSet) {
    const WindowResult window = Only(Answer(House(), Winter()));
    ExpectPeriods(window.sunlit, AroundNoon(kWinter.Sunset()));
    EXPECT_TRUE(window.hidden.empty());
    EXPECT_TRUE(window.notes.empty());
    ASSERT_TRUE(window.facing.has_value());
    EXPECT_NEAR(*window.facing, 270.0, 1e-9);
    EXPECT_NEAR(window.width, 1.5, 1e-9);
    EXPECT_NEAR(window.height, 1.5, 1e-9);
    EXPECT_NEAR(window.sill, 1.0, 1e-9);
    EXPECT_NEAR(window.corners[0].x, -0.75, 1e-9);  // lower left as seen from the south
    EXPECT_NEAR(window.corners[1].x, 0.75, 1e-9);
    EXPECT_NEAR(window.corners[2].z, 2.5, 1e-9);
}

// A wall 12000 high, 30000 to the south, and so long that it ends nowhere: the lower edge of the window is the last to
// get the sun, over the wall's nearer upper edge, which is 12000 - 1000.05 above it and 30000 - 5 away. Sunrise is at
// an azimuth of 62 degrees: 57 m along the wall, which is 100 m long on either side. The sill's point is as high.
TEST(WindowCases, OneWallOpposite) {
    JudgedScene scene = House();
    const std::uint64_t wall = scene.Box(-100000, -30300, 0, 100000, -30000, 12000);
    const double half = kWinter.AtSlopeSouth((12000.0 - 1000.05) / (30000.0 - 5.0));
    for (const AnalysisRequest& request : {Winter(), AtTheSill(Winter())}) {
        const WindowResult window = Only(Answer(scene, request));
        ExpectPeriods(window.sunlit, AroundNoon(half));
        ExpectPeriods(PeriodsOf(window.hidden), WithoutNoon(kWinter.Sunset(), half));
        for (const HiddenPeriod& hidden : window.hidden)
            EXPECT_EQ(hidden.by, std::vector{wall});
    }
}

// The same wall just higher and just lower than the sun stands at noon, 90 - 31.2 - 23.44 degrees: never, or lit.
TEST(WindowCases, WallAsHighAsTheSunAtNoon) {
    const double top = 1000.05 + (30000.0 - 5.0) * std::tan((90.0 - kLatitude - kSolstice) / 180.0 * 3.14159265358979);
    JudgedScene higher = House();
    higher.Box(-100000, -30300, 0, 100000, -30000, top + 1.0);
    EXPECT_TRUE(Only(Answer(higher, Winter())).sunlit.empty());
    JudgedScene lower = House();
    lower.Box(-100000, -30300, 0, 100000, -30000, top - 1.0);
    ExpectPeriods(Only(Answer(lower, Winter())).sunlit,
                  AroundNoon(kWinter.AtSlopeSouth((top - 1.0 - 1000.05) / (30000.0 - 5.0))));
}

// On an equinox the sun's path is a plane, and a long edge from east to west lies in it or does not: the slope to the
// south is always 1 / tan 31.2. A wall a little higher hides the window all day, one a little lower never.
TEST(WindowCases, LongWallOnAnEquinoxHidesAllDayOrNever) {
    const double top = 1000.05 + (3000.0 - 5.0) / std::tan(kLatitude / 180.0 * 3.14159265358979);
    const AnalysisRequest request = RequestFor(kLatitude, 0.0);
    JudgedScene higher = House();
    higher.Box(-3e7, -3300, 0, 3e7, -3000, top + 1.0);
    const WindowResult hidden = Only(Answer(higher, request));
    double minutes = 0.0;
    for (const SunPeriod& period : hidden.sunlit)
        minutes += period.Minutes();
    EXPECT_LT(minutes, 0.2) << "only the ends of the wall, at the horizon";
    JudgedScene lower = House();
    lower.Box(-3e7, -3300, 0, 3e7, -3000, top - 1.0);
    ExpectPeriods(Only(Answer(lower, request)).sunlit, AroundNoon(6.0));
}

// A tower 10000 wide, 50000 to the south, higher than the sun. In the afternoon the window's east edge is in its shadow
// until the ray from there passes the tower's near south-west corner: tan A = (5000 + 749.95) / (50000 - 5); the
// morning is its mirror image. The sill's point: 5000 / (50000 - 5).
TEST(WindowCases, TowerAtNoonOnTheSolstice) {
    JudgedScene scene = House();
    const std::uint64_t tower = scene.Box(-5000, -60000, 0, 5000, -50000, 100000);
    const double whole = kWinter.AtAzimuth((5000.0 + 749.95) / (50000.0 - 5.0));
    const WindowResult window = Only(Answer(scene, Winter()));
    ExpectPeriods(window.sunlit, WithoutNoon(kWinter.Sunset(), whole));
    ExpectPeriods(PeriodsOf(window.hidden), AroundNoon(whole));
    ASSERT_EQ(window.hidden.size(), 1U);
    EXPECT_EQ(window.hidden[0].by, std::vector{tower});
    const double point = kWinter.AtAzimuth(5000.0 / (50000.0 - 5.0));
    ExpectPeriods(Only(Answer(scene, AtTheSill(Winter()))).sunlit, WithoutNoon(kWinter.Sunset(), point));
}

// Jambs 1500 deep and 600 beside the window, at both sides: their shadow is 1495 tan A wide and reaches the window
// after 600.05, its middle after 600 + 750.
TEST(WindowCases, RecessLetsTheSunInAroundNoon) {
    JudgedScene scene = House();
    scene.Box(-1650, -1500, 0, -1350, 0, 30000);
    scene.Box(1350, -1500, 0, 1650, 0, 30000);
    ExpectPeriods(Only(Answer(scene, Winter())).sunlit, AroundNoon(kWinter.AtAzimuth(600.05 / 1495.0)));
    ExpectPeriods(Only(Answer(scene, AtTheSill(Winter()))).sunlit, AroundNoon(kWinter.AtAzimuth(1350.0 / 1495.0)));
}

// A jamb that touches the window's east edge is no cut, however the drawing is turned: the window has the sun from when
// the jamb's shadow is narrower than 0.05, a third of a second before noon.
TEST(WindowCases, JambFlushWithTheEdgeCutsNothingAtAnyAngle) {
    JudgedScene face = House();
    face.Face({{750, 0, 0}, {750, -1500, 0}, {750, -1500, 5000}, {750, 0, 5000}});
    JudgedScene box = House();
    box.Box(750, -1500, 0, 900, 0, 5000);
    const double before = kWinter.AtAzimuth(0.05 / 1495.0);
    for (const double turn : {0.0, 7.0, 30.0, 45.0, 90.0, 123.4, 180.0, 271.0, 359.9})
        for (const JudgedScene* scene : {&face, &box}) {
            SCOPED_TRACE(turn);
            AnalysisRequest request = Winter();
            request.north = turn;
            Placement placement;
            placement.turn = turn;
            const WindowResult window = Only(Answer(*scene, request, placement));
            EXPECT_TRUE(window.notes.empty());
            ExpectPeriods(window.sunlit, {{12.0 - before, 12.0 + kWinter.Sunset()}});
        }
}

// The same with jambs at both sides, a slab and a board that all touch the window: its middle has the sun while a
// shadow of 750 does not reach it and the slab, 1499.95 above the sill and 1500 deep, is higher than the sun to the
// south: it always is, since 1499.95 / 1495 is more than the sun's slope at noon (35 degrees).
TEST(WindowCases, FrameFlushWithAllEdgesCutsNothing) {
    JudgedScene scene = House();
    scene.Box(-900, -1500, 800, -750, 0, 2700);
    scene.Box(750, -1500, 800, 900, 0, 2700);
    scene.Box(-750, -1500, 800, 750, 0, 1000);
    scene.Box(-750, -1500, 2500, 750, 0, 2700);
    const WindowResult window = Only(Answer(scene, AtTheSill(Winter())));
    EXPECT_TRUE(window.notes.empty());
    ExpectPeriods(window.sunlit, AroundNoon(kWinter.AtAzimuth(750.0 / 1495.0)));
    EXPECT_TRUE(Only(Answer(scene, Winter())).notes.empty());
}

// A parapet 1500 high and 1500 away, before a window whose lower edge is at 1000.05.
TEST(WindowCases, Parapet) {
    JudgedScene scene = House();
    scene.Box(-50000, -1700, 0, 50000, -1500, 1500);
    ExpectPeriods(Only(Answer(scene, Winter())).sunlit,
                  AroundNoon(kWinter.AtSlopeSouth((1500.0 - 1000.05) / (1500.0 - 5.0))));
}

// A slab whose underside is 200 above the window and whose edge is 1500 before the wall, at a declination of -10: the
// window's upper edge is in its shadow while the sun's slope is more than 200.05 / 1495. From the sill it is 1699.95:
// the sun at noon is at 48.8 degrees, just more than that. At sunrise (azimuth 78 degrees) the rays leave the slab 8 m
// aside, of 20 m.
TEST(WindowCases, BalconyAbove) {
    const PaperSun sun(kLatitude, -10.0);
    const AnalysisRequest request = RequestFor(kLatitude, -10.0);
    JudgedScene scene = House();
    scene.Box(-20000, -1500, 2700, 20000, 0, 2900);
    ExpectPeriods(Only(Answer(scene, request)).sunlit, WithoutNoon(sun.Sunset(), sun.AtSlopeSouth(200.05 / 1495.0)));
    ExpectPeriods(Only(Answer(scene, AtTheSill(request))).sunlit,
                  WithoutNoon(sun.Sunset(), sun.AtSlopeSouth(1699.95 / 1495.0)));
}

// A pole 20 thick, 3000 before the window and 300 east of its middle (x = 290 to 310, y = -3020 to -3000), is thinner
// than any grid would see. Its shadow is on the window from when the ray of the west edge passes its near east corner,
// tan A = -(310 + 749.95) / 2995, until that of the east edge passes its near west corner, (749.95 - 290) / 2995. The
// sill's middle is only hidden from -310 / 2995 to -290 / 3015.
TEST(WindowCases, ThinPoleHidesTheWholeWindowAndHardlyItsMiddle) {
    JudgedScene scene = House();
    const std::uint64_t pole = scene.Box(290, -3020, 0, 310, -3000, 50000);
    const double from = 12.0 - kWinter.AtAzimuth(1059.95 / 2995.0);
    const double to = 12.0 + kWinter.AtAzimuth(459.95 / 2995.0);
    const WindowResult window = Only(Answer(scene, Winter()));
    ExpectPeriods(window.sunlit, {{12.0 - kWinter.Sunset(), from}, {to, 12.0 + kWinter.Sunset()}});
    ASSERT_EQ(window.hidden.size(), 1U);
    EXPECT_EQ(window.hidden[0].by, std::vector{pole});
    ExpectPeriods(PeriodsOf(Only(Answer(scene, AtTheSill(Winter()))).hidden),
                  {{12.0 - kWinter.AtAzimuth(310.0 / 2995.0), 12.0 - kWinter.AtAzimuth(290.0 / 3015.0)}});
}

// A pole of one face, one millimetre wide, before the middle of the window: the sun at noon looks along no edge of it.
TEST(WindowCases, PoleOfAMillimetre) {
    JudgedScene scene = House();
    scene.Face({{-0.5, -3000, 0}, {0.5, -3000, 0}, {0.5, -3000, 50000}, {-0.5, -3000, 50000}});
    ExpectPeriods(Only(Answer(scene, Winter())).sunlit,
                  WithoutNoon(kWinter.Sunset(), kWinter.AtAzimuth((0.5 + 749.95) / 2995.0)));
}

namespace {

struct Courtyard {
    JudgedScene scene = House();
    std::uint64_t south = 0;
    std::uint64_t east = 0;
    std::uint64_t west = 0;

    explicit Courtyard(double wings) {
        south = scene.Box(-30000, -32000, 0, 30000, -20000, 9000);
        east = scene.Box(12000, -20000, 0, 22000, 0, wings);
        west = scene.Box(-22000, -20000, 0, -12000, 0, wings);
    }
};

}  // namespace

// A courtyard 20 m deep, its south wing 9000 high, wings in the west and in the east that begin 12 m from the middle.
// With those as high as the south wing the sun comes and goes over them: the lower corner next to each is the last to
// get it, (9000 - 1000.05) / (12000 - 749.95). The azimuth is then 38.8 degrees, and the ray passes over the wing's
// edge 14 m south of the window, where the wing still is. Each side's wing hides it, and the south wing (whose slope,
// 7999.95 / 19995, the sun passes later than sunrise and earlier than that) too.
TEST(WindowCases, CourtyardOfEqualWings) {
    const Courtyard yard(9000);
    const double half = kWinter.AtSlopeWest((9000.0 - 1000.05) / (12000.0 - 749.95));
    const WindowResult window = Only(Answer(yard.scene, Winter()));
    ExpectPeriods(window.sunlit, AroundNoon(half));
    ASSERT_EQ(window.hidden.size(), 2U);
    EXPECT_EQ(window.hidden[0].by, (std::vector{yard.south, yard.east}));
    EXPECT_EQ(window.hidden[1].by, (std::vector{yard.south, yard.west}));
}

// With side wings of 4000 the south wing has the last word.
TEST(WindowCases, CourtyardOfLowSideWings) {
    const Courtyard yard(4000);
    ExpectPeriods(Only(Answer(yard.scene, Winter())).sunlit,
                  AroundNoon(kWinter.AtSlopeSouth((9000.0 - 1000.05) / (20000.0 - 5.0))));
}

// A board that rises 20 above the window's lower edge, 50 before the wall: the sun has to be over 19.95 / 45. One that
// ends at the edge hides nothing, as a box as well as a single face.
TEST(WindowCases, SillBoards) {
    JudgedScene high = House();
    high.Box(-3000, -250, 900, 3000, -50, 1020);
    ExpectPeriods(Only(Answer(high, Winter())).sunlit, AroundNoon(kWinter.AtSlopeSouth(19.95 / 45.0)));
    JudgedScene flush = House();
    flush.Box(-3000, -250, 950, 3000, 0, 1000);
    JudgedScene face = House();
    face.Face({{-3000, 0, 1000}, {3000, 0, 1000}, {3000, -250, 1000}, {-3000, -250, 1000}});
    for (const JudgedScene* scene : {&flush, &face}) {
        const WindowResult window = Only(Answer(*scene, Winter()));
        EXPECT_TRUE(window.notes.empty());
        ExpectPeriods(window.sunlit, AroundNoon(kWinter.Sunset()));
    }
}

// A wall that would hide the window, in the ways of not being seen. By the layer's colour below 0 it is off, by the
// flag 1 frozen; group 60 makes the entity invisible.
TEST(WindowCases, WhatIsInvisibleCastsNoShadow) {
    for (const char* layer : {"70\n0\n62\n-7\n", "70\n1\n62\n7\n", "70\n0\n62\n7\n"}) {
        JudgedScene scene = House();
        scene.AddLayer(std::string("2\nGONE\n") + layer);
        scene.OnLayer("GONE");
        if (std::string(layer) == "70\n0\n62\n7\n")
            scene.With("60\n1\n");
        scene.Box(-100000, -3300, 0, 100000, -3000, 50000);
        ExpectPeriods(Only(Answer(scene, Winter())).sunlit, AroundNoon(kWinter.Sunset()));
    }
    JudgedScene seen = House();
    seen.Box(-100000, -3300, 0, 100000, -3000, 50000);
    EXPECT_TRUE(Only(Answer(seen, Winter())).sunlit.empty());
}

TEST(WindowCases, WindowsCastNoShadow) {
    JudgedScene scene;
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    const std::uint64_t behind = scene.Window(-750, 0, 1000, 1500, 1500);
    scene.Window(-5000, -100, 500, 10000, 5000);
    ExpectPeriods(WindowOf(Answer(scene, Winter()), behind).sunlit, AroundNoon(kWinter.Sunset()));
}

// The sill's middle lies in the side of a box that reaches from there to the east: morning sun comes through the box,
// in the afternoon the box is beside the sun. Its height does not matter, as it is much more than the sun's.
TEST(WindowCases, BoxWhoseSideGoesThroughTheSillsMiddle) {
    JudgedScene scene = House();
    const std::uint64_t box = scene.Box(0, -4000, 0, 3000, 0, 20000);
    AnalysisRequest request = AtTheSill(Winter());
    request.facing = 270.0;
    const WindowResult window = Only(Answer(scene, request));
    ExpectPeriods(window.sunlit, {{12.0, 12.0 + kWinter.Sunset()}});
    ASSERT_EQ(window.hidden.size(), 1U);
    EXPECT_EQ(window.hidden[0].by, std::vector{box});
}

// The module's parameters are taken as they are: how far the analysed plane is before the wall, and by how much less of
// the window it is. The tower's hours with those, and jambs that touch the window, which cut nothing even where the
// analysed plane is the wall's own.
TEST(WindowCases, OffsetAndPrecisionAreTheModulesParameters) {
    struct Parameters {
        double offset = g_nSunWinOffset;
        double precision = g_nSunDistPrec;
        ~Parameters() {
            g_nSunWinOffset = offset;
            g_nSunDistPrec = precision;
        }
    } kept;
    JudgedScene scene = House();
    scene.Box(-5000, -60000, 0, 5000, -50000, 100000);
    JudgedScene flush = House();
    flush.Box(-900, -1500, 0, -750, 0, 5000);
    flush.Box(750, -1500, 0, 900, 0, 5000);
    for (const double offset : {0.0, 5.0, 600.0})
        for (const double precision : {0.01, 0.05, 20.0}) {
            SCOPED_TRACE(testing::Message() << offset << ", " << precision);
            g_nSunWinOffset = offset;
            g_nSunDistPrec = precision;
            const double half = kWinter.AtAzimuth((5000.0 + 750.0 - precision) / (50000.0 - offset));
            ExpectPeriods(Only(Answer(scene, Winter())).sunlit, WithoutNoon(kWinter.Sunset(), half));
            const WindowResult window = Only(Answer(flush, Winter()));
            EXPECT_EQ(window.notes, std::vector<WindowNote>());
            ExpectPeriods(window.sunlit, AroundNoon(kWinter.AtAzimuth(precision / (1500.0 - offset))));
            ExpectPeriods(Only(Answer(flush, AtTheSill(Winter()))).sunlit,
                          AroundNoon(kWinter.AtAzimuth(750.0 / (1500.0 - offset))));
        }
}

// In summer the sun comes before the south wall's plane along the wall, where the jambs of a recess hide it, from the
// first moment on: no sliver of sun is left where it passes the plane.
TEST(WindowCases, RecessHidesSunAlongTheWall) {
    const PaperSun summer(kLatitude, kSolstice);
    for (const double gap : {0.0, 600.0}) {
        SCOPED_TRACE(gap);
        JudgedScene scene = House();
        scene.Box(-900 - gap, -1500, 0, -750 - gap, 0, 30000);
        scene.Box(750 + gap, -1500, 0, 900 + gap, 0, 30000);
        const AnalysisRequest request = RequestFor(kLatitude, kSolstice);
        const double half = summer.AtAzimuth((gap + 0.05) / 1495.0);
        ExpectPeriods(Only(Answer(scene, request)).sunlit, AroundNoon(half));
        const WindowResult sill = Only(Answer(scene, AtTheSill(request)));
        ExpectPeriods(sill.sunlit, AroundNoon(summer.AtAzimuth((750.0 + gap) / 1495.0)));
        ASSERT_EQ(sill.hidden.size(), 2U);
        EXPECT_NEAR(sill.hidden[0].period.start, 12.0 - summer.InWall(), 1.0 / 3600.0);
    }
}

// At the equator on an equinox the sun passes from the east wall's side to the west wall's through the zenith, where a
// slab over the window hides it.
TEST(WindowCases, SlabHidesTheSunOverhead) {
    JudgedScene scene;
    scene.StandOn(0, 0, -90.0);
    scene.Box(-10000, 0, 0, 10000, 8000, 30000);
    scene.Window(-750, 0, 1000, 1500, 1500);
    scene.Box(-3000, -1000, 2500, 3000, 0, 2620);
    // From the sill the slab's edge, 995 before the window, is 1499.95 higher: the sun's zenith distance is 15 (t -
    // 12).
    const double leaves = 12.0 + std::atan(995.0 / 1499.95) * 180.0 / 3.14159265358979 / 15.0;
    ExpectPeriods(Only(Answer(scene, AtTheSill(RequestFor(0.0, 0.0)))).sunlit, {{leaves, 18.0}});
}
