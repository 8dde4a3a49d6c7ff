// The day of one spot, on paper: of the ground behind a wall, of walls and roofs, and what a standard makes of it.
#include "analysis/SpotAnalysis.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "DrawingForWindows.h"
#include "PaperHouse.h"

namespace {

SpotAnswer SpotIn(const std::string& entities, const AnalysisRequest& day, const QcGePoint& place,
                  const QcGeVector3d& outward, int unit = 4) {
    SpotRequest request;
    static_cast<DayRequest&>(request) = day;
    request.place = place;
    request.outward = outward;
    const OpenDrawing drawing(DrawingWith(entities, {}, unit));
    return AnalyseSpot(drawing.database, request);
}

std::vector<SunPeriod> AroundNoon(double half) {
    return {{12.0 - half, 12.0 + half}};
}

const std::string kWall = Extruded({}, {{-1e8, -300}, {1e8, -300}, {1e8, 0}, {-1e8, 0}}, 0, 12000, "5=AB 8=WALL");

}  // namespace

// A wall 12000 high to the south that ends nowhere: of a spot 20000 north of it its edge is 12000 - 5 higher.
TEST(SpotAnalysis, TellsTheGroundBehindAWallAndWhoHidesIt) {
    const SpotAnswer answer = SpotIn(kWall, Winter(), {0, 20000, 0}, {0, 0, 3});
    const double half = kWinter.AtSlopeSouth((12000.0 - 5.0) / 20000.0);
    ExpectPeriods(answer.hours.sunlit, AroundNoon(half));
    ASSERT_EQ(answer.hours.hidden.size(), 2U);
    for (const HiddenPeriod& hidden : answer.hours.hidden)
        EXPECT_EQ(hidden.by, std::vector<std::uint64_t>{0xAB});
    EXPECT_NEAR(answer.hours.hidden[0].period.start, 12.0 - kWinter.Sunset(), 1e-6);
    EXPECT_NEAR(answer.hours.hidden[0].period.end, 12.0 - half, 1.0 / 3600.0);
}

TEST(SpotAnalysis, TakesTheUnitOfTheDrawing) {
    const std::string wall = Extruded({}, {{-1e5, -0.3}, {1e5, -0.3}, {1e5, 0}, {-1e5, 0}}, 0, 12);
    ExpectPeriods(SpotIn(wall, Winter(), {0, 20, 0}, {0, 0, 1}, 6).hours.sunlit,
                  AroundNoon(kWinter.AtSlopeSouth((12000.0 - 5.0) / 20000.0)));
}

// In winter the sun stays south of east and west.
TEST(SpotAnalysis, TellsTheSideThatIsAskedFor) {
    ExpectPeriods(SpotIn(kWall, Winter(), {0, -300, 6000}, {0, -1, 0}).hours.sunlit, AroundNoon(kWinter.Sunset()));
    const SpotAnswer north = SpotIn(kWall, Winter(), {0, 0, 6000}, {0, 1, 0});
    EXPECT_TRUE(north.hours.sunlit.empty());
    EXPECT_TRUE(north.hours.hidden.empty()) << "the sun is never before it";
    ExpectPeriods(SpotIn(kWall, Winter(), {0, -150, 12000}, {0, 0, 1}).hours.sunlit, AroundNoon(kWinter.Sunset()));
}

// The hours that are too flat along a wall are for walls; the ground has none.
TEST(SpotAnalysis, AsksTheRuleOfTheSunOfWallsAlone) {
    AnalysisRequest request = Winter();
    request.settings.standard->minValidAngle = 40;
    const SpotAnswer wall = SpotIn(kWall, request, {0, -300, 6000}, {0, -1, 0});
    ASSERT_EQ(wall.hours.dropped.size(), 2U);
    EXPECT_EQ(wall.hours.dropped[0].reason, DropReason::Angle);
    ASSERT_EQ(wall.hours.sunlit.size(), 1U);
    EXPECT_LT(wall.hours.sunlit[0].Minutes(), 120.0 * kWinter.Sunset() - 60.0);
    ExpectPeriods(SpotIn(kWall, request, {0, -1e6, 0}, {0, 0, 1}).hours.sunlit, AroundNoon(kWinter.Sunset()));
}

TEST(SpotAnalysis, IsOfTheSillsMiddleWhatAWindowIs) {
    AnalysisRequest request = Winter();
    request.settings.standard->fullWindow = 0;
    request.tuning.distancePrecision = 0.0;
    JudgedScene scene = House();
    scene.Box(3000, -20000, 0, 9000, -12000, 40000);
    const OpenDrawing drawing(scene.Text());
    const AnalysisAnswer windows = AnalyseWindows(drawing.database, request);
    ASSERT_EQ(windows.windows.size(), 1U);
    ASSERT_FALSE(windows.windows[0].sunlit.empty());
    SpotRequest spot;
    static_cast<DayRequest&>(spot) = request;
    spot.place = {0, 0, 1000};
    spot.outward = {0, -1, 0};
    ExpectPeriods(AnalyseSpot(drawing.database, spot).hours.sunlit, windows.windows[0].sunlit);
}

TEST(SpotAnalysis, SaysWhatIsMissing) {
    AnalysisRequest request = Winter();
    request.settings.place.reset();
    EXPECT_EQ(SpotIn(kWall, request, {0, 0, 0}, {0, 0, 1}).failure, AnalysisFailure::NoPlace);
}
