// Which side of a window is outside.
#include "analysis/WindowSides.h"

#include <functional>
#include <optional>

#include "DrawingForWindows.h"

namespace {

constexpr Site kHere;
const std::vector<Site> kSites{{0, {}}, {90, {}}, {30, {1e6, 2e6, 0}}, {217.3, {-5.0e8, 4.1e8, 3e4}}};

struct Told {
    std::optional<double> facing;  // degrees in the site's own directions
    bool isInside = false;
};

// The one window over a line in plan, 1500 high from 900 on, after its side was told.
DrawnWindow WindowAmong(const std::string& entities, const Site& site, double x1, double y1, double x2, double y2,
                        const SideRules& rules = {}) {
    std::vector<DrawnWindow> windows = WindowsIn(Upright("8=WINDOW", site, x1, y1, x2, y2, 900, 2400)).windows;
    EXPECT_EQ(windows.size(), 1U);
    windows.resize(1);
    TellSides(windows, OccludersIn(entities), rules);
    return windows[0];
}

double FacingOf(const DrawnWindow& window, const Site& site) {
    const Vector3 outward = window.Outward();
    const double degrees = std::atan2(outward.y, outward.x) * 180.0 / std::numbers::pi - site.degrees;
    return std::fmod(std::fmod(degrees, 360.0) + 360.0 + 1e-6, 360.0) - 1e-6;
}

// Drawn from either end, the answer is the same.
Told Tell(const std::string& entities, const Site& site, double x1, double y1, double x2, double y2,
          const SideRules& rules = {}) {
    const DrawnWindow window = WindowAmong(entities, site, x1, y1, x2, y2, rules);
    const DrawnWindow turned = WindowAmong(entities, site, x2, y2, x1, y1, rules);
    EXPECT_EQ(window.hasSide, turned.hasSide);
    EXPECT_EQ(window.isInside, turned.isInside);
    if (!window.hasSide)
        return {{}, window.isInside};
    EXPECT_NEAR(FacingOf(window, site), FacingOf(turned, site), 1e-6);
    EXPECT_LT(Length(window.lowerLeft - turned.lowerLeft), 1e-6) << "the left end as seen from outside";
    return {FacingOf(window, site), window.isInside};
}

void ExpectFacing(const Told& told, double degrees, const char* why = "") {
    ASSERT_TRUE(told.facing) << why;
    EXPECT_NEAR(*told.facing, degrees, 1e-3) << why;
    EXPECT_FALSE(told.isInside) << why;
}
void ExpectNone(const Told& told, const char* why = "") {
    EXPECT_FALSE(told.facing) << why;
}

// A body 10 m x 8 m, 9 m high.
std::string House(const Site& site) {
    return Block(site, 0, 0, 10000, 8000, 0, 9000);
}

SideRules Facing(double degrees) {
    SideRules rules;
    rules.facing = degrees;
    return rules;
}

}  // namespace

TEST(WindowSides, OnABodyFaceItsOutside) {
    for (const Site& site : kSites) {
        ExpectFacing(Tell(House(site), site, 3000, 0, 4500, 0), 270);
        ExpectFacing(Tell(House(site), site, 10000, 3000, 10000, 4500), 0);
        ExpectFacing(Tell(House(site), site, 3000, 8000, 4500, 8000), 90);
        ExpectFacing(Tell(House(site), site, 0, 3000, 0, 4500), 180);
        ExpectFacing(Tell(LooseBox(site, 0, 0, 10000, 8000, 0, 9000), site, 3000, 0, 4500, 0), 270,
                     "whose faces are oriented either way");
        ExpectFacing(Tell(LooseBox(site, 0, 0, 10000, 8000, 0, 9000), site, 3000, 8000, 4500, 8000), 90);
    }
}

TEST(WindowSides, OnAFaceIsWithinAMillimetreOrThePrecision) {
    ExpectFacing(Tell(House(kHere), kHere, 3000, 0.9, 4500, 0.9), 270, "a little into the wall");
    ExpectFacing(Tell(House(kHere), kHere, 3000, -0.9, 4500, -0.9), 270);
    ExpectNone(Tell(House(kHere), kHere, 3000, 4, 4500, 4), "in the wall");
    SideRules coarse;
    coarse.precision = 5.0;
    ExpectFacing(Tell(House(kHere), kHere, 3000, 4, 4500, 4, coarse), 270);
}

TEST(WindowSides, InACourtyardFaceTheCourtyard) {
    for (const Site& site : kSites) {
        const std::string ring = Courtyard(site);
        ExpectFacing(Tell(ring, site, 9000, 5000, 10500, 5000), 90);
        ExpectFacing(Tell(ring, site, 5000, 9000, 5000, 10500), 0);
        ExpectFacing(Tell(ring, site, 9000, 15000, 10500, 15000), 270);
        ExpectFacing(Tell(ring, site, 9000, 0, 10500, 0), 270);
    }
}

TEST(WindowSides, WhoseMiddleIsOnNoFaceAskTheirCorners) {
    // The wall y = 0 is two bodies with a gap of half a metre behind the window's middle.
    const std::string halves = Block(kHere, 0, 0, 3500, 8000, 0, 9000) + Block(kHere, 4000, 0, 9000, 8000, 0, 9000);
    ExpectFacing(Tell(halves, kHere, 3000, 0, 4500, 0), 270);
    // All of the window beside the body.
    SideRules thin;
    thin.thickness = 1.0;
    ExpectNone(Tell(House(kHere), kHere, 10002, 0, 11502, 0, thin));
}

void ExpectHalfCovered(const std::string& bodies) {
    const Told told = Tell(bodies, kHere, 3000, 0, 4500, 0);
    ASSERT_TRUE(told.facing);
    EXPECT_NEAR(*told.facing, 270, 1e-3);
    EXPECT_TRUE(told.isInside) << "its middle";
}

TEST(WindowSides, BetweenTwoBodiesThatTouchHaveNone) {
    const std::string touching = House(kHere) + Block(kHere, 0, -8000, 10000, 0, 0, 9000);
    const Told told = Tell(touching, kHere, 3000, 0, 4500, 0);
    ExpectNone(told);
    EXPECT_TRUE(told.isInside) << "on both sides";
    ExpectNone(Tell(House(kHere) + Block(kHere, 0, -8000, 10000, -1, 0, 9000), kHere, 3000, 0, 4500, 0),
               "a millimetre apart");
    // The other one ends below the window.
    ExpectFacing(Tell(House(kHere) + Block(kHere, 0, -8000, 10000, 0, 0, 900), kHere, 3000, 0, 4500, 0), 270);
    // It covers the middle, and the upper corners are free; then all corners but for the two on the right.
    ExpectHalfCovered(House(kHere) + Block(kHere, 0, -8000, 10000, 0, 0, 2000));
    ExpectHalfCovered(House(kHere) + Block(kHere, 0, -8000, 4400, 0, 0, 9000));
    // Flush faces of two bodies, one above the other, say the same.
    ExpectFacing(Tell(Block(kHere, 0, 0, 10000, 8000, 0, 1650) + Block(kHere, 0, 0, 10000, 8000, 1650, 9000), kHere,
                      3000, 0, 4500, 0),
                 270);
    const Told asked = Tell(touching, kHere, 3000, 0, 4500, 0, Facing(80));
    ASSERT_TRUE(asked.facing);
    EXPECT_NEAR(*asked.facing, 90, 1e-6);
    EXPECT_TRUE(asked.isInside);
}

TEST(WindowSides, OnABodyWithinAnotherFaceOutOfTheirOwn) {
    const Told told =
        Tell(House(kHere) + Block(kHere, -5000, -5000, 15000, 15000, -100, 20000), kHere, 3000, 0, 4500, 0);
    ASSERT_TRUE(told.facing);
    EXPECT_NEAR(*told.facing, 270.0, 1e-3);
    EXPECT_TRUE(told.isInside);
}

TEST(WindowSides, BeforeAFaceLookAwayFromIt) {
    for (const Site& site : kSites) {
        ExpectFacing(Tell(House(site), site, 3000, -150, 4500, -150), 270, "a body's");
        ExpectFacing(Tell(House(site), site, 3000, -199.9, 4500, -199.9), 270);
        ExpectNone(Tell(House(site), site, 3000, -200.1, 4500, -200.1), "too far");
        const std::string wall = Upright("", site, 0, 0, 10000, 0, 0, 9000);
        ExpectFacing(Tell(wall, site, 3000, -150, 4500, -150), 270, "a loose one's");
        ExpectFacing(Tell(wall, site, 3000, 150, 4500, 150), 90, "on either side");
    }
    SideRules thick;
    thick.thickness = 400.0;
    ExpectFacing(Tell(House(kHere), kHere, 3000, -350, 4500, -350, thick), 270);
}

TEST(WindowSides, BehindABodysFaceHaveNone) {
    const Told told = Tell(House(kHere), kHere, 3000, 150, 4500, 150);
    ExpectNone(told);
    EXPECT_TRUE(told.isInside);
    // Nor do loose faces elsewhere tell.
    ExpectNone(Tell(House(kHere) + Upright("", kHere, 0, 50000, 9000, 50000, 0, 900), kHere, 3000, 150, 4500, 150));
}

TEST(WindowSides, LookAwayFromTheNearerOfTwoFaces) {
    const std::string body = House(kHere);
    const auto wallAt = [](double y) { return Upright("", kHere, 0, y, 10000, y, 0, 9000); };
    ExpectFacing(Tell(body + wallAt(-250), kHere, 3000, -100, 4500, -100), 270, "the body's is nearer");
    ExpectFacing(Tell(body + wallAt(-180), kHere, 3000, -100, 4500, -100), 90, "the loose one is nearer");
    ExpectNone(Tell(body + wallAt(-200), kHere, 3000, -100, 4500, -100), "both are as near");
    ExpectNone(Tell(wallAt(-100) + wallAt(100), kHere, 3000, 0, 4500, 0), "both are as near, and as many");
    ExpectFacing(Tell(wallAt(-100) + wallAt(100) + wallAt(5000), kHere, 3000, 0, 4500, 0), 270,
                 "both are as near: the side with fewer");
    ExpectNone(Tell(body + wallAt(-200) + wallAt(5000), kHere, 3000, -100, 4500, -100), "a body is one of them");
}

TEST(WindowSides, BeforeAFaceAreParallelToItAndAcrossFromIt) {
    // A wall turned against the window by some degrees about the point across from its middle, 100 behind it.
    const auto turnedBy = [](double degrees) {
        const Site site{degrees, {0, 100, 0}};
        return Tell(Upright("", site, -5000, 0, 5000, 0, 0, 9000), kHere, -100, 0, 100, 0);
    };
    ExpectFacing(turnedBy(8), 270);
    ExpectFacing(turnedBy(-8), 270);
    // Not by the rule before faces; among loose ones this one's middle is across as well.
    const std::string slanting = Upright("", {20, {0, 100, 0}}, -5000, 0, 5000, 0, 0, 9000);
    const std::string against = slanting + Upright("", kHere, 0, -90000, 9, -90000, 0, 9);
    ExpectNone(Tell(against, kHere, -100, 0, 100, 0), "one on each side");
    // Beside, above and below.
    for (const Site& site : kSites) {
        const std::string far = Upright("", site, 0, -90000, 9, -90000, 0, 9);
        ExpectNone(Tell(far + Upright("", site, 2000, 100, 9000, 100, 0, 9000), site, 0, 0, 1500, 0), "beside");
        ExpectNone(Tell(far + Upright("", site, 0, 100, 9000, 100, 2500, 9000), site, 0, 0, 1500, 0), "above");
        ExpectFacing(Tell(far + Upright("", site, 0, 100, 9000, 100, 2300, 9000), site, 0, 0, 1500, 0), 270,
                     "across from its upper corners");
        const Vector3 top = site(9000, 100, 9000);
        ExpectNone(Tell(far + Face("", site(-5000, 100, 9000), site(9000, 100, -5000), top, top), site, 0, 0, 1500, 0),
                   "beside a slanting edge");
    }
}

TEST(WindowSides, AmongLooseFacesFaceTheSideWithFewer) {
    for (const Site& site : kSites) {
        // A house without a roof: three walls behind the fourth.
        const std::string open =
            Upright("", site, 0, 0, 10000, 0, 0, 9000) + Upright("", site, 0, 0, 0, 8000, 0, 9000) +
            Upright("", site, 10000, 0, 10000, 8000, 0, 9000) + Upright("", site, 0, 8000, 10000, 8000, 0, 9000);
        ExpectFacing(Tell(open, site, 3000, 0, 4500, 0), 270);
        ExpectFacing(Tell(open, site, 10000, 3000, 10000, 4500), 0);
        // The neighbours have more faces than the house.
        std::string town = open;
        for (int i = 0; i < 9; ++i)
            town += Upright("", site, 0, -20000.0 - i * 1000.0, 10000, -20000.0 - i * 1000.0, 0, 9000);
        ExpectFacing(Tell(town, site, 3000, 0, 4500, 0), 270, "those joined to its own wall count first");
        // On a wall alone, the whole drawing counts.
        const std::string alone = Upright("", site, 0, 40000, 10000, 40000, 0, 9000);
        ExpectFacing(Tell(town + alone, site, 3000, 40000, 4500, 40000), 90);
        ExpectNone(Tell(alone, site, 3000, 40000, 4500, 40000), "nothing else");
        ExpectFacing(Tell(town, site, 3000, 40000, 4500, 40000), 90, "on no face at all");
    }
}

TEST(WindowSides, AmongLooseFacesCountFacesAndNotAreas) {
    const std::string wall = Upright("", kHere, 0, 0, 10000, 0, 0, 9000);
    const std::string large = Upright("", kHere, 0, 9000, 90000, 9000, 0, 90000);
    const std::string small =
        Upright("", kHere, 0, -9000, 10, -9000, 0, 10) + Upright("", kHere, 0, -8000, 10, -8000, 0, 10);
    ExpectFacing(Tell(wall + large + small, kHere, 3000, 0, 4500, 0), 90);
    // A face across the window's plane counts where its middle is.
    const std::string across = Upright("", kHere, 20000, -1000, 20000, 5000, 0, 3000);
    ExpectFacing(Tell(wall + across, kHere, 3000, 0, 4500, 0), 270);
}

TEST(WindowSides, LookWhereTheyAreAskedToWhenNothingTells) {
    for (const Site& site : kSites) {
        const auto alone = [&](double degrees) {
            return Tell("", site, 3000, 0, 4500, 0, Facing(degrees + site.degrees));
        };
        ExpectNone(Tell("", site, 3000, 0, 4500, 0));
        ExpectFacing(alone(270), 270);
        ExpectFacing(alone(181), 270);
        ExpectFacing(alone(-1), 270);
        ExpectFacing(alone(1), 90);
        ExpectFacing(alone(450), 90);
        ExpectNone(alone(0), "at right angles");
        ExpectNone(alone(180), "at right angles");
        ExpectFacing(Tell(House(site), site, 3000, 0, 4500, 0, Facing(90 + site.degrees)), 270, "the body tells");
    }
    ExpectNone(Tell("", kHere, 3000, 0, 4500, 0, Facing(std::nan(""))));
}

TEST(WindowSides, AreInsideWhenABodyIsBeforeThem) {
    // A loose wall within the body tells a side, which lies in the body.
    const std::string wall = Upright("", kHere, 1000, 4000, 9000, 4000, 0, 5000);
    const Told told = Tell(House(kHere) + wall, kHere, 3000, 3900, 4500, 3900);
    ASSERT_TRUE(told.facing);
    EXPECT_NEAR(*told.facing, 270, 1e-6);
    EXPECT_TRUE(told.isInside);
    // Before the house stands another, and the offset decides whether the window is in it.
    const std::string two = House(kHere) + Block(kHere, 0, -8000, 10000, -10, 0, 9000);
    SideRules rules;
    EXPECT_FALSE(Tell(two, kHere, 3000, 0, 4500, 0, rules).isInside);
    rules.offset = 20.0;
    EXPECT_TRUE(Tell(two, kHere, 3000, 0, 4500, 0, rules).isInside);
}

TEST(WindowSides, KeepTheRectangle) {
    for (const Site& site : kSites) {
        const DrawnWindow window = WindowAmong(House(site), site, 3000, 0, 4500, 0);
        EXPECT_LT(Length(window.lowerLeft - site(3000, 0, 900)), 1e-6)
            << "seen from the south the left end is in the west";
        EXPECT_LT(Length(window.lowerLeft + window.right * window.width - site(4500, 0, 900)), 1e-6);
        const DrawnWindow north = WindowAmong(House(site), site, 3000, 8000, 4500, 8000);
        EXPECT_LT(Length(north.lowerLeft - site(4500, 8000, 900)), 1e-6);
        EXPECT_NEAR(north.width, 1500, 1e-6);
        EXPECT_NEAR(north.height, 1500, 1e-6);
    }
}

TEST(WindowSides, BearNoWindowsAndHugeNumbers) {
    std::vector<DrawnWindow> none;
    TellSides(none, OccludersIn(""), {});
    EXPECT_TRUE(none.empty());
    SideRules huge;
    huge.thickness = 1e300;
    huge.offset = 1e300;
    const DrawnWindow window = WindowAmong(House({0, {1e40, 0, 0}}) + House(kHere), kHere, 3000, 0, 4500, 0, huge);
    EXPECT_TRUE(window.hasSide);
}
