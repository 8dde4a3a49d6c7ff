// The judge judged: the slow caster against hours that are found on paper.
#include "SlowCaster.h"

#include <gtest/gtest.h>

#include <cmath>

#include "JudgedScene.h"
#include "PaperSun.h"

namespace {

constexpr double kLatitude = 31.2;
constexpr double kSolstice = 23.44;
constexpr double kSecond = 1.0 / 3600.0;
const PaperSun kWinter(kLatitude, -kSolstice);

// A window from x = -749.95 to 749.95 in the plane y = -5, facing south.
SlowCaster CasterOf(const JudgedScene& scene) {
    return {scene.Faces(), {kLatitude, -kSolstice, 0.0}, {{-749.95, -5, 1000.05}, 270.0, 1499.9, 1499.9}, 100.0};
}

// Rays and outlines: shade until the hour, none from there on.
void ExpectShadeEnds(const SlowCaster& caster, double hours) {
    EXPECT_TRUE(caster.IsAnyRayStopped(hours - kSecond));
    EXPECT_FALSE(caster.IsAnyRayStopped(hours + kSecond));
    EXPECT_EQ(caster.ShadeAt(hours - kSecond), Shade::Some);
    EXPECT_EQ(caster.ShadeAt(hours + kSecond), Shade::None);
}

}  // namespace

TEST(SlowCaster, SunRisesAndSetsWhenItShould) {
    const SlowCaster caster = CasterOf({});
    EXPECT_FALSE(caster.IsUp(12.0 - kWinter.Sunset() - kSecond));
    EXPECT_TRUE(caster.IsUp(12.0 - kWinter.Sunset() + kSecond));
    EXPECT_TRUE(caster.IsUp(12.0 + kWinter.Sunset() - kSecond));
    EXPECT_FALSE(caster.IsUp(12.0 + kWinter.Sunset() + kSecond));
}

TEST(SlowCaster, MorningSunIsInTheEast) {
    EXPECT_GT(CasterOf({}).SunAt(9.0).x, 0.0);
    EXPECT_LT(CasterOf({}).SunAt(9.0).y, 0.0);
    EXPECT_NEAR(CasterOf({}).AngleToWall(12.0), 90.0, 1e-9);
}

// The shadow of a tower 10 m wide, its near face 50 m south of the wall, leaves the window's east edge last.
TEST(SlowCaster, TowersShadowLeavesWithItsNearEdge) {
    JudgedScene scene;
    scene.Box(-5000, -60000, 0, 5000, -50000, 100000);
    ExpectShadeEnds(CasterOf(scene), 12.0 + kWinter.AtAzimuth((5000.0 + 749.95) / (50000.0 - 5.0)));
}

TEST(SlowCaster, WallsShadowLeavesTheSillLast) {
    JudgedScene scene;
    scene.Box(-100000, -30300, 0, 100000, -30000, 12000);
    ExpectShadeEnds(CasterOf(scene), 12.0 - kWinter.AtSlopeSouth((12000.0 - 1000.05) / (30000.0 - 5.0)));
}

// Between the rays, which are 100 apart, only the outline sees a pole of 20.
TEST(SlowCaster, OutlineSeesWhatRaysMiss) {
    JudgedScene scene;
    const std::uint64_t pole = scene.Box(15, -3020, 0, 35, -3000, 50000);
    EXPECT_FALSE(CasterOf(scene).IsAnyRayStopped(12.0));
    EXPECT_EQ(CasterOf(scene).ShadeAt(12.0), Shade::Some);
    EXPECT_EQ(CasterOf(scene).ShadeOf(pole, 12.0), Shade::Some);
    EXPECT_EQ(CasterOf(scene).ShadeOf(pole + 1, 12.0), Shade::None);
}

// What lies behind the window's plane casts nothing on it; what goes through casts what is before it.
TEST(SlowCaster, OnlyWhatIsBeforeThePlaneCasts) {
    JudgedScene behind;
    behind.Box(-5000, 0, 0, 5000, 8000, 30000);
    EXPECT_FALSE(CasterOf(behind).IsAnyRayStopped(12.0));
    EXPECT_EQ(CasterOf(behind).ShadeAt(12.0), Shade::None);
    JudgedScene through;
    through.Face({{0, 100, 0}, {0, -500, 0}, {0, -500, 5000}, {0, 100, 5000}});
    EXPECT_TRUE(CasterOf(through).IsAnyRayStopped(10.0));
    EXPECT_EQ(CasterOf(through).ShadeAt(10.0), Shade::Some);
}
