// The sun on points of areas: hours on paper, rays, and what areas are. Where nothing else is said the place is at 31.2
// degrees north, the day is the winter solstice, and lengths are millimetres.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "DrawingForWindows.h"
#include "PaperHouse.h"
#include "RandomScene.h"
#include "analysis/DrawnAreas.h"
#include "analysis/PointAnalysis.h"
#include "settings/OrvoStdSet.h"

namespace {

using Kind = AreaRemark::Kind;

constexpr double kSecond = 1.0 / 3600.0;
constexpr double kPi = 3.14159265358979323846;

PointRequest Asking(const AnalysisRequest& day, double spacing = 1.0) {
    PointRequest request;
    static_cast<DayRequest&>(request) = day;
    request.areaLayers = {L"GREEN"};
    request.spacing = spacing;
    return request;
}

// A closed outline in space on the layer GREEN.
std::string Area(const std::vector<Vector3>& corners, const std::string& groups = "5=A1 8=GREEN") {
    std::string text = Entity("POLYLINE", groups + " 66=1 70=9");
    for (const Vector3& corner : corners)
        text += Entity("VERTEX", "8=GREEN 70=32 " + At(corner));
    return text + Entity("SEQEND", "8=GREEN");
}

std::vector<Vector3> Rectangle(double x1, double y1, double x2, double y2, double z = 0.0) {
    return {{x1, y1, z}, {x2, y1, z}, {x2, y2, z}, {x1, y2, z}};
}

// A square of half a metre, so that at a spacing of a metre its middle is the only point.
std::vector<Vector3> Spot(double x, double y, double z = 0.0) {
    return Rectangle(x - 250, y - 250, x + 250, y + 250, z);
}

PointAnswer PointsIn(const std::string& entities, const PointRequest& request, const std::string& layers = {},
                     int unit = 4) {
    const OpenDrawing drawing(DrawingWith(entities, layers, unit));
    return AnalysePoints(drawing.database, request);
}

PointResult OnlyPoint(const PointAnswer& answer) {
    EXPECT_EQ(answer.points.size(), 1U);
    return answer.points.empty() ? PointResult() : answer.points[0];
}

const AreaRemark* RemarkOf(const PointAnswer& answer, Kind kind) {
    for (const AreaRemark& remark : answer.areaRemarks)
        if (remark.kind == kind)
            return &remark;
    return nullptr;
}

void ExpectAt(const PointResult& point, double x, double y, double z) {
    EXPECT_NEAR(point.place.x, x, 1e-9);
    EXPECT_NEAR(point.place.y, y, 1e-9);
    EXPECT_NEAR(point.place.z, z, 1e-9);
}

std::vector<SunPeriod> AroundNoon(double half) {
    return {{12.0 - half, 12.0 + half}};
}

}  // namespace

TEST(PointAnalysis, OpenGroundHasTheSunFromRiseToSet) {
    const PointAnswer answer = PointsIn(Area(Rectangle(0, 0, 3000, 2000)), Asking(Winter()));
    ASSERT_EQ(answer.outlines.size(), 1U);
    EXPECT_EQ(answer.outlines[0].handle, 0xA1U);
    EXPECT_NEAR(answer.outlines[0].area, 6.0, 1e-9);
    ASSERT_EQ(answer.outlines[0].corners.size(), 4U);
    EXPECT_TRUE(answer.outlines[0].corners[2] == QcGePoint(3.0, 2.0, 0.0));
    ASSERT_EQ(answer.points.size(), 6U);
    ExpectAt(answer.points[0], 0.5, 0.5, 0.0);
    ExpectAt(answer.points[5], 2.5, 1.5, 0.0);
    for (const PointResult& point : answer.points)
        ExpectPeriods(point.sunlit, AroundNoon(kWinter.Sunset()));
    EXPECT_TRUE(answer.areaRemarks.empty());
}

// A wall 12000 high to the south that ends nowhere: of a point 20000 north of it its edge is 12000 - 5 higher.
TEST(PointAnalysis, AWallToTheSouth) {
    const std::string wall = Block({}, -1e8, -300, 1e8, 0, 0, 12000);
    ExpectPeriods(OnlyPoint(PointsIn(wall + Area(Spot(0, 20000)), Asking(Winter()))).sunlit,
                  AroundNoon(kWinter.AtSlopeSouth((12000.0 - 5.0) / 20000.0)));
    // 6 m up, told by a level, it is in the shadow until the sun is over 5995 / 10000.
    PointRequest request = Asking(Winter());
    request.level = 6.0;
    const PointResult point = OnlyPoint(PointsIn(wall + Area(Spot(0, 10000)), request));
    ExpectPeriods(point.sunlit, AroundNoon(kWinter.AtSlopeSouth((6000.0 - 5.0) / 10000.0)));
    ExpectAt(point, 0.0, 10.0, 6.0);
}

// The sun at noon is 90 - 31.2 - 23.44 degrees high and reaches over the wall from 12000 / tan of that on: of the rows
// a metre apart behind the wall those within have none of the hour around noon. With half an hour before noon as what
// is needed a share of the rows has it; the rest never sees the sun over the wall.
TEST(PointAnalysis, TheShareIsOfThePointsWithEnough) {
    const std::string wall = Block({}, -1e8, -300, 1e8, 0, 0, 12000);
    PointRequest request = Asking(Winter());
    request.need = 4.0;
    const PointAnswer answer = PointsIn(wall + Area(Rectangle(0, 0, 1000, 40000)), request);
    ASSERT_EQ(answer.points.size(), 40U);
    std::size_t enough = 0;
    for (std::size_t i = 0; i < 40; ++i) {
        const double slope = (12000.0 - 5.0) / (500.0 + 1000.0 * static_cast<double>(i));
        const bool isReached = slope < std::tan((90.0 - kLatitude - kSolstice) * kPi / 180.0);
        const double hours = isReached ? 2.0 * kWinter.AtSlopeSouth(slope) : 0.0;
        EXPECT_NEAR(answer.points[i].total, hours * 60.0, 2.0) << i;  // whole steps of a minute
        enough += hours >= 4.0 ? 1 : 0;
    }
    const OutlineResult& outline = answer.outlines[0];
    ASSERT_TRUE(outline.share.has_value());
    EXPECT_NEAR(*outline.share, static_cast<double>(enough) / 40.0, 1e-12);
    EXPECT_GT(enough, 0U);
    EXPECT_LT(enough, 40U);
    EXPECT_EQ(outline.least, 0.0);
    EXPECT_EQ(outline.most, answer.points[39].total);
    double sum = 0.0;
    for (const PointResult& point : answer.points)
        sum += point.total;
    EXPECT_NEAR(outline.mean, sum / 40.0, 1e-9);
    request.need.reset();
    EXPECT_FALSE(PointsIn(wall + Area(Rectangle(0, 0, 1000, 40000)), request).outlines[0].share.has_value());
}

TEST(PointAnalysis, HasTheSameAnswerWithAnyNumberOfThreads) {
    const std::string wall = Block({}, -20000, -5300, 20000, -5000, 0, 10000);
    PointRequest request = Asking(Winter());
    request.need = 2.0;
    request.threads = 1;
    const PointAnswer expected = PointsIn(wall + Area(Rectangle(0, 0, 10000, 40000)), request);
    ASSERT_GT(expected.points.size(), 300U);
    for (const unsigned threads : {2U, 3U, 7U, 0U}) {
        request.threads = threads;
        const PointAnswer answer = PointsIn(wall + Area(Rectangle(0, 0, 10000, 40000)), request);
        ASSERT_EQ(answer.points.size(), expected.points.size());
        for (std::size_t i = 0; i < answer.points.size(); ++i) {
            EXPECT_EQ(answer.points[i].total, expected.points[i].total);
            ASSERT_EQ(answer.points[i].sunlit.size(), expected.points[i].sunlit.size());
            for (std::size_t k = 0; k < answer.points[i].sunlit.size(); ++k) {
                EXPECT_EQ(answer.points[i].sunlit[k].start, expected.points[i].sunlit[k].start);
                EXPECT_EQ(answer.points[i].sunlit[k].end, expected.points[i].sunlit[k].end);
            }
        }
        EXPECT_EQ(answer.outlines[0].share, expected.outlines[0].share);
    }
}

TEST(PointAnalysis, ARoofIsNotHiddenByItsOwnFace) {
    const std::string house = Block({}, 0, 0, 10000, 8000, 0, 6000);
    for (const double z : {6000.0, 5999.0}) {
        const PointAnswer answer = PointsIn(house + Area(Rectangle(0, 0, 10000, 8000, z)), Asking(Winter(), 2.0));
        EXPECT_EQ(answer.points.size(), 20U);
        for (const PointResult& point : answer.points)
            ExpectPeriods(point.sunlit, AroundNoon(kWinter.Sunset()));
    }
}

TEST(PointAnalysis, PointsInABodyHaveNoSunAndAreTold) {
    const std::string house = Block({}, 0, 0, 10000, 8000, 0, 6000);
    const PointAnswer answer = PointsIn(house + Area(Rectangle(-2000, 0, 10000, 8000)), Asking(Winter(), 2.0));
    ASSERT_EQ(answer.points.size(), 24U);
    const AreaRemark* const remark = RemarkOf(answer, Kind::PointsInside);
    ASSERT_NE(remark, nullptr);
    EXPECT_EQ(remark->count, 20U);
    EXPECT_EQ(remark->handle, 0xA1U);
    for (const PointResult& point : answer.points)
        EXPECT_EQ(point.sunlit.empty(), point.place.x > 0.0);
}

// A plane that leans 45 degrees to the south has the sun while the horizon of a place so much farther south has it, and
// the own horizon too: in summer the first decides, cos H = -tan(31.2 - 45) tan d.
TEST(PointAnalysis, ATiltedRoofHasTheSunBeforeItsPlane) {
    const std::string roof = Area({{0, 0, 3000}, {500, 0, 3000}, {500, 500, 3500}, {0, 500, 3500}});
    const double half =
        std::acos(-std::tan((kLatitude - 45.0) * kPi / 180.0) * std::tan(kSolstice * kPi / 180.0)) * 12.0 / kPi;
    ExpectPeriods(OnlyPoint(PointsIn(roof, Asking(RequestFor(kLatitude, kSolstice)))).sunlit, AroundNoon(half));
    ExpectPeriods(OnlyPoint(PointsIn(roof, Asking(Winter()))).sunlit, AroundNoon(kWinter.Sunset()));
}

// Under the slanting front of a body, which overhangs to the south by 1000 over 1000: the sun is before it while it is
// lower than 45 degrees in the south, in winter all day. Above it is the body.
TEST(PointAnalysis, ALeaningFrontLooksDown) {
    const auto front = [](double x1, double x2, double y1, double z1, double y2, double z2) {
        return std::vector<Vector3>{{x1, y1, z1}, {x2, y1, z1}, {x2, y2, z2}, {x1, y2, z2}};
    };
    const auto face = [](const std::vector<Vector3>& c) { return Face("8=WALL", c[0], c[1], c[2], c[3]); };
    const std::string body = face(front(0, 4000, 0, 1000, -2000, 3000)) +
                             face(front(0, 4000, -2000, 3000, 4000, 3000)) +
                             face(front(0, 4000, 4000, 3000, 4000, 1000)) + face(front(0, 4000, 4000, 1000, 0, 1000)) +
                             face({{0, 0, 1000}, {0, -2000, 3000}, {0, 4000, 3000}, {0, 4000, 1000}}) +
                             face({{4000, 0, 1000}, {4000, -2000, 3000}, {4000, 4000, 3000}, {4000, 4000, 1000}});
    const PointResult point =
        OnlyPoint(PointsIn(body + Area(front(1800, 2200, -900, 1900, -1100, 2100)), Asking(Winter())));
    ExpectPeriods(point.sunlit, AroundNoon(kWinter.Sunset()));
}

// On the south wall of a house a point is lit as the sill of a window there, on the north wall in winter never.
TEST(PointAnalysis, FacadesLookOutside) {
    const std::string house = Block({}, 0, 0, 10000, 8000, 0, 6000);
    const auto wall = [](double y) {
        return Area({{4000, y, 1000}, {4500, y, 1000}, {4500, y, 1500}, {4000, y, 1500}});
    };
    const PaperSun summer(kLatitude, kSolstice);
    const PointRequest request = Asking(RequestFor(kLatitude, kSolstice));
    ExpectPeriods(OnlyPoint(PointsIn(house + wall(0), request)).sunlit, AroundNoon(summer.InWall()));
    ExpectPeriods(OnlyPoint(PointsIn(house + wall(8000), request)).sunlit,
                  {{12.0 - summer.Sunset(), 12.0 - summer.InWall()}, {12.0 + summer.InWall(), 12.0 + summer.Sunset()}});
    const PointResult point = OnlyPoint(PointsIn(house + wall(0), Asking(Winter())));
    ExpectPeriods(point.sunlit, AroundNoon(kWinter.Sunset()));
    ExpectAt(point, 4.25, 0.0, 1.25);
    EXPECT_TRUE(OnlyPoint(PointsIn(house + wall(8000), Asking(Winter()))).sunlit.empty());
}

TEST(PointAnalysis, AnUprightOutlineInTheOpenHasNoSideUntilAskedFor) {
    const std::string screen = Area({{0, 0, 0}, {500, 0, 0}, {500, 0, 500}, {0, 0, 500}});
    PointRequest request = Asking(Winter());
    const PointAnswer untold = PointsIn(screen, request);
    ASSERT_EQ(untold.outlines.size(), 1U);
    EXPECT_EQ(untold.outlines[0].pointCount, 0U);
    EXPECT_NE(RemarkOf(untold, Kind::NoSide), nullptr);
    for (const auto& [facing, isLit] : {std::pair(270.0, true), std::pair(90.0, false)}) {
        request.facing = facing;
        EXPECT_EQ(OnlyPoint(PointsIn(screen, request)).sunlit.empty(), !isLit);
    }
}

// True north lies along -x, so that south is along +x.
TEST(PointAnalysis, FacingsCountFromTrueEast) {
    PointRequest request = Asking(Winter());
    request.north = 90.0;
    request.facing = 270.0;
    const std::string screen = Area({{0, 0, 0}, {0, 500, 0}, {0, 500, 500}, {0, 0, 500}});
    ExpectPeriods(OnlyPoint(PointsIn(screen, request)).sunlit, AroundNoon(kWinter.Sunset()));
}

// The hours of the Shanghai rule hold for a wall, 9 to 15 for one to the south, and the least angle to the wall; ground
// has none.
TEST(PointAnalysis, RulesThatGoByAWallHoldOnWalls) {
    const std::string house = Block({}, 0, 0, 10000, 8000, 0, 6000);
    const std::string wall = house + Area({{4000, 0, 1000}, {4500, 0, 1000}, {4500, 0, 1500}, {4000, 0, 1500}});
    const std::string ground = house + Area(Spot(5000, -20000));
    PointRequest request = Asking(Winter());
    request.settings.standard->validSunType = ORVO_SUN_SHANGHAI;
    ExpectPeriods(OnlyPoint(PointsIn(wall, request)).sunlit, {{9.0, 15.0}});
    ExpectPeriods(OnlyPoint(PointsIn(ground, request)).sunlit, AroundNoon(kWinter.Sunset()));
    request.settings.standard->validSunType = ORVO_SUN_CUSTOM;
    request.settings.standard->minValidAngle = 45;
    ExpectPeriods(OnlyPoint(PointsIn(wall, request)).sunlit, AroundNoon(kWinter.AtAzimuth(1.0)));
    ExpectPeriods(OnlyPoint(PointsIn(ground, request)).sunlit, AroundNoon(kWinter.Sunset()));
}

// A pole hides the middle of the day; the longest period alone is the morning's, to the step.
TEST(PointAnalysis, TheStandardCounts) {
    const std::string entities = Block({}, -500, -10500, 500, -9500, 0, 50000) + Area(Spot(0, 0));
    PointRequest request = Asking(Winter());
    const double hidden = kWinter.AtAzimuth(500.0 / 9500.0);
    const double half = kWinter.Sunset() - hidden;
    const PointResult all = OnlyPoint(PointsIn(entities, request));
    ASSERT_EQ(all.sunlit.size(), 2U);
    EXPECT_NEAR(all.total, 2.0 * half * 60.0, 4.0);
    request.settings.standard->maxContinue = ORVO_COUNT_LONGEST;
    const PointResult longest = OnlyPoint(PointsIn(entities, request));
    EXPECT_NEAR(longest.total, half * 60.0, 2.0);
    request.settings.standard->start = 9.0;
    request.settings.standard->end = 11.0;
    ExpectPeriods(OnlyPoint(PointsIn(entities, request)).sunlit, {{9.0, 11.0}});
}

TEST(PointAnalysis, NorthTurnsTheSun) {
    const std::string wall = Block({}, -300, -1e8, 0, 1e8, 0, 12000);
    PointRequest request = Asking(Winter());
    request.north = -90.0;  // along the x axis: south is where it comes from
    ExpectPeriods(OnlyPoint(PointsIn(wall + Area(Spot(20000, 0)), request)).sunlit,
                  AroundNoon(kWinter.AtSlopeSouth((12000.0 - 5.0) / 20000.0)));
}

TEST(PointAnalysis, AreasAndWindowsCastNoShadow) {
    const std::string screen = "8=GREEN 5=A2";
    const std::string window = Upright("8=WINDOW 5=B1", {}, -1e6, -1000, 1e6, -1000, 0, 1e5);
    const PointAnswer answer =
        PointsIn(window + Area(Spot(0, 0)) + Upright(screen, {}, -1e6, -2000, 1e6, -2000, 0, 1e5), Asking(Winter()));
    // Of the upright one nobody knows the side.
    ExpectPeriods(OnlyPoint(answer).sunlit, AroundNoon(kWinter.Sunset()));
}

// An outline in an outline is one of its own, and no hole.
TEST(PointAnalysis, OutlinesWithinOutlinesAreTheirOwn) {
    const PointAnswer answer = PointsIn(
        Area(Rectangle(0, 0, 4000, 4000)) + Area(Rectangle(1000, 1000, 3000, 3000), "5=A2 8=GREEN"), Asking(Winter()));
    ASSERT_EQ(answer.outlines.size(), 2U);
    EXPECT_EQ(answer.outlines[0].pointCount, 16U);
    EXPECT_EQ(answer.outlines[1].firstPoint, 16U);
    EXPECT_EQ(answer.outlines[1].pointCount, 4U);
    EXPECT_EQ(answer.points[16].outline, 1U);
    EXPECT_EQ(answer.outlines[1].handle, 0xA2U);
}

// A circle, a slot of two half circles and a straight 3DFACE; the areas are those of the curves. Units are metres.
TEST(PointAnalysis, AreasOfArcsAreTheCurves) {
    const std::string entities =
        Entity("CIRCLE", "5=A1 8=GREEN 10=0 20=0 40=5") +
        Entity("LWPOLYLINE", "5=A2 8=GREEN 90=4 70=1 10=20 20=0 10=30 20=0 42=1 10=30 20=4 10=20 20=4 42=1") +
        Entity("SOLID", "5=A3 8=GREEN " + At(40, 0, 0) + At(44, 0, 0, 11) + At(40, 2, 0, 12) + At(44, 2, 0, 13)) +
        Face("5=A4 8=GREEN", {50, 0, 0}, {53, 0, 0}, {50, 4, 0}, {50, 4, 0});
    const PointAnswer answer = PointsIn(entities, Asking(Winter()), {}, 6);
    ASSERT_EQ(answer.outlines.size(), 4U);
    const double expected[] = {25.0 * kPi, 40.0 + 4.0 * kPi, 8.0, 6.0};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(answer.outlines[i].area, expected[i], 1e-9) << i;
    // Cells of a metre in a circle of 5: 4 times those with x² + y² below 25, x and y at halves.
    std::size_t within = 0;
    for (int x = 0; x < 5; ++x)
        for (int y = 0; y < 5; ++y)
            within += (x + 0.5) * (x + 0.5) + (y + 0.5) * (y + 0.5) < 25.0 ? 4 : 0;
    EXPECT_EQ(answer.outlines[0].pointCount, within);
}

// Put twice as large and turned: an area on layer 0 of a block lies on the INSERT's layer.
TEST(PointAnalysis, AreasInBlocksAreWhereTheBlockIs) {
    const std::string block =
        Entity("BLOCK", "2=PARK 10=0 20=0") +
        Entity("LWPOLYLINE", "8=0 90=4 70=1 10=0 20=0 10=2000 20=0 10=2000 20=1000 10=0 20=1000") +
        Entity("LWPOLYLINE", "8=0 90=2 70=0 10=0 20=0 10=2000 20=0") + Entity("ENDBLK", "");
    const auto drawing = [&](const std::string& insert) {
        return DrawingOf(Section("HEADER", "9\n$ACADVER\n1\nAC1027\n9\n$INSUNITS\n70\n4\n") + Section("BLOCKS", block) +
                         Section("ENTITIES", insert));
    };
    const OpenDrawing open(drawing(Entity("INSERT", "5=C1 8=GREEN 2=PARK 10=10000 20=5000 41=2 42=2 43=2 50=90")));
    const PointAnswer answer = AnalysePoints(open.database, Asking(Winter(), 2.0));
    ASSERT_EQ(answer.outlines.size(), 1U);
    EXPECT_EQ(answer.outlines[0].handle, 0xC1U);
    EXPECT_NEAR(answer.outlines[0].area, 8.0, 1e-9);
    ASSERT_EQ(answer.points.size(), 2U);
    ExpectAt(answer.points[0], 9.0, 6.0, 0.0);
    ExpectAt(answer.points[1], 9.0, 8.0, 0.0);
    EXPECT_NE(RemarkOf(answer, Kind::Open), nullptr);
    const OpenDrawing other(drawing(Entity("INSERT", "5=C1 8=OTHER 2=PARK 10=0 20=0")));
    EXPECT_TRUE(AnalysePoints(other.database, Asking(Winter())).outlines.empty());
}

// Of two INSERTs of three areas each the second would bring more than the most; it is told, and has none.
TEST(PointAnalysis, BlocksBeyondTheMostAreasHaveNone) {
    std::string block = Entity("BLOCK", "2=PARK 10=0 20=0");
    for (int i = 0; i < 3; ++i)
        block += Entity("CIRCLE", "8=GREEN 10=0 20=0 40=1000");
    const std::string inserts =
        Entity("INSERT", "5=C1 8=0 2=PARK 10=0 20=0") + Entity("INSERT", "5=C2 8=0 2=PARK 10=0 20=0");
    const OpenDrawing drawing(
        DrawingOf(Section("BLOCKS", block + Entity("ENDBLK", "")) + Section("ENTITIES", inserts)));
    for (const auto& [most, count] : {std::pair(4U, 3U), std::pair(6U, 6U)}) {
        const AreasOfDrawing found = FindAreas(drawing.database, {L"GREEN"}, 1.0, {}, most);
        EXPECT_EQ(found.areas.size(), count);
        ASSERT_EQ(found.remarks.size(), most == 4U ? 1U : 0U);
        if (most == 4U) {
            EXPECT_EQ(found.remarks[0].kind, Kind::TooManyInBlock);
            EXPECT_EQ(found.remarks[0].handle, 0xC2U);
        }
    }
}

TEST(PointAnalysis, ALevelTakesOutlinesInPlan) {
    PointRequest request = Asking(Winter());
    request.level = 1.5;
    const std::string roof = Area({{0, 0, 3000}, {4000, 0, 3000}, {4000, 3000, 7000}, {0, 3000, 7000}});
    const PointAnswer answer = PointsIn(roof, request);
    EXPECT_NEAR(answer.outlines.at(0).area, 12.0, 1e-9);
    ASSERT_EQ(answer.points.size(), 12U);
    ExpectAt(answer.points[0], 0.5, 0.5, 1.5);
    const PointAnswer wall = PointsIn(Area({{0, 0, 0}, {500, 0, 0}, {500, 0, 500}, {0, 0, 500}}), request);
    EXPECT_TRUE(wall.outlines.empty());
    EXPECT_NE(RemarkOf(wall, Kind::Empty), nullptr);
}

TEST(PointAnalysis, WhatIsNoAreaIsToldByItsHandle) {
    const struct {
        std::string entity;
        Kind kind;
    } cases[] = {
        {Area({{0, 0, 0}, {1000, 0, 0}, {0, 1000, 0}, {1000, 1000, 0}}), Kind::Crossed},
        {Area({{0, 0, 0}, {1000, 0, 0}, {1000, 1000, 300}, {0, 1000, 0}}), Kind::NotFlat},
        {Area({{0, 0, 0}, {1000, 0, 0}, {2000, 0, 0}}), Kind::Empty},
        {Entity("LWPOLYLINE", "5=A1 8=GREEN 90=3 70=0 10=0 20=0 10=1000 20=0 10=0 20=1000"), Kind::Open},
        {Entity("LINE", "5=A1 8=GREEN 10=0 20=0 11=5 21=5"), Kind::NotAnOutline},
        {Entity("HATCH", "5=A1 8=GREEN 70=1"), Kind::NotAnOutline},
        {Entity("LWPOLYLINE", "5=A1 8=GREEN 90=4 70=1 10=0 20=x 10=1000 20=0 10=0 20=1000"), Kind::NotAnOutline},
        {Entity("INSERT", "5=A1 8=GREEN 2=NOWHERE 10=0 20=0"), Kind::NotAnOutline},
    };
    for (const auto& each : cases) {
        const PointAnswer answer = PointsIn(each.entity, Asking(Winter()));
        const AreaRemark* const remark = RemarkOf(answer, each.kind);
        ASSERT_NE(remark, nullptr) << each.entity;
        EXPECT_EQ(remark->handle, 0xA1U);
        EXPECT_NE(RemarkOf(answer, Kind::NoAreas), nullptr);
        EXPECT_TRUE(answer.points.empty());
    }
    // Marks are no areas, and nobody misses them.
    const PointAnswer mark = PointsIn(Entity("TEXT", "5=A1 8=GREEN 10=0 20=0 40=1 1=Park"), Asking(Winter()));
    EXPECT_EQ(mark.areaRemarks.size(), 1U);
}

TEST(PointAnalysis, LayersThatAreMissingOrOff) {
    PointRequest request = Asking(Winter());
    const std::string off = "0\nLAYER\n2\nGREEN\n70\n0\n62\n-3\n";
    const PointAnswer unseen = PointsIn(Area(Spot(0, 0)), request, off);
    ASSERT_NE(RemarkOf(unseen, Kind::LayerInvisible), nullptr);
    EXPECT_EQ(RemarkOf(unseen, Kind::LayerInvisible)->count, 1U);
    EXPECT_TRUE(unseen.points.empty());
    request.areaLayers = {L"green", L"ROOFS"};
    const PointAnswer missing = PointsIn(Area(Spot(0, 0)), request);
    ASSERT_NE(RemarkOf(missing, Kind::LayerMissing), nullptr);
    EXPECT_TRUE(RemarkOf(missing, Kind::LayerMissing)->subject == L"ROOFS");
    EXPECT_EQ(missing.points.size(), 1U);
}

TEST(PointAnalysis, TooManyPointsAreCountedAndNotMade) {
    const PointAnswer answer = PointsIn(Area(Rectangle(0, 0, 1e6, 1e6)), Asking(Winter(), 1e-6));
    EXPECT_EQ(answer.failure, AnalysisFailure::TooManyPoints);
    EXPECT_NEAR(answer.pointCount / 1e18, 1.0, 1e-9);
    EXPECT_TRUE(answer.points.empty());
    EXPECT_TRUE(answer.outlines.empty());
    // Many outlines of one point each make too many, too; a square of 2237 by 2237 cells is just more than 5 million.
    EXPECT_EQ(PointsIn(Area(Rectangle(0, 0, 2237, 2237)), Asking(Winter(), 1e-3)).failure,
              AnalysisFailure::TooManyPoints);
}

// Half of the work is in either of two areas of a size.
TEST(PointAnalysis, HowFarTheLinesAreIsTold) {
    PointRequest request = Asking(Winter());
    request.isolines = true;
    request.threads = 1;
    const OpenDrawing drawing(DrawingWith(Area(Rectangle(0, 0, 9000, 9000)) + Area(Rectangle(20000, 0, 29000, 9000))));
    std::vector<double> shares;
    const auto never = [](std::size_t, std::size_t) { return true; };
    const PointAnswer answer = AnalysePoints(drawing.database, request, never, [&](double share) {
        shares.push_back(share);
        return true;
    });
    ASSERT_EQ(answer.failure, AnalysisFailure::None);
    ASSERT_GT(shares.size(), 20U);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GE(shares.front(), 0.0);
    EXPECT_LT(shares.front(), 0.05);
    EXPECT_GT(shares.back(), 0.8) << "nothing casts a shadow, so that there are no lines to follow";
    EXPECT_LE(shares.back(), 1.0);
    const auto between = [&](double from, double to) {
        return std::count_if(shares.begin(), shares.end(), [=](double each) { return each > from && each < to; });
    };
    EXPECT_GT(between(0.1, 0.4), 10) << "the first area";
    EXPECT_GT(between(0.55, 0.9), 10) << "the second one";
    const PointAnswer cancelled =
        AnalysePoints(drawing.database, request, never, [](double share) { return share < 0.3; });
    EXPECT_EQ(cancelled.failure, AnalysisFailure::Cancelled);
}

TEST(PointAnalysis, WhatIsMissingIsTold) {
    PointRequest request = Asking(Winter());
    request.threads = 1;  // so that each point is asked before
    const OpenDrawing drawing(DrawingWith(Area(Rectangle(0, 0, 9000, 9000))));
    std::size_t asked = 0;
    const PointAnswer cancelled = AnalysePoints(drawing.database, request, [&](std::size_t done, std::size_t total) {
        if (total == 0)
            return true;  // the drawing is still being read
        EXPECT_EQ(total, 81U);
        EXPECT_EQ(done, asked);
        return ++asked < 5;
    });
    EXPECT_EQ(cancelled.failure, AnalysisFailure::Cancelled);
    EXPECT_TRUE(cancelled.points.empty());
    EXPECT_EQ(asked, 5U);
    request.threads = 3;
    const PointAnswer atOnce = AnalysePoints(drawing.database, request, [](std::size_t, std::size_t) { return false; });
    EXPECT_EQ(atOnce.failure, AnalysisFailure::Cancelled);
    EXPECT_TRUE(atOnce.points.empty());
    request.settings.standard.reset();
    EXPECT_EQ(AnalysePoints(drawing.database, request).failure, AnalysisFailure::NoStandard);
    request.settings.place.reset();
    EXPECT_EQ(AnalysePoints(drawing.database, request).failure, AnalysisFailure::NoPlace);
}

// Rays from the points of level areas among scenes that nobody thought of, every two minutes and not within a second of
// a change that the analysis tells.
TEST(PointAnalysis, AgreesWithRaysInRandomScenes) {
    std::size_t looked = 0;
    std::size_t hidden = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const RandomScene made = MakeRandomScene(seed);
        SCOPED_TRACE("scene " + std::to_string(seed) + ": " + made.about);
        PointRequest request = Asking(made.request, 7.0);
        request.leastAltitude.reset();
        request.settings.standard->validSunType = ORVO_SUN_CUSTOM;
        const SlowTarget near = made.scene.TargetOf(made.windows[0]);
        const double x = near.lowerLeft.x, y = near.lowerLeft.y, z = 300.0 * (seed % 5) + 1.7;
        const std::string text = made.scene.Text();
        const std::string area = Area(Rectangle(x - 14000, y - 14000, x + 14000, y + 14000, z), "5=FFFF 8=GREEN");
        const std::size_t end = text.rfind("0\nENDSEC");  // of the entities
        const OpenDrawing drawing(text.substr(0, end) + area + text.substr(end));
        const PointAnswer answer = AnalysePoints(drawing.database, request);
        ASSERT_EQ(answer.points.size(), 16U);
        for (const PointResult& point : answer.points) {
            SlowTarget target;
            target.lowerLeft = {point.place.x * 1000.0, point.place.y * 1000.0, z + 5.0};
            const SlowCaster caster(made.scene.Faces(),
                                    {request.settings.place->latitude, request.terms.declination, request.north},
                                    target, 1000.0);
            for (double hours = answer.span.start; hours <= answer.span.end; hours += 120.0 * kSecond) {
                bool isNearChange = std::fabs(caster.AltitudeAt(hours)) < 0.01;
                bool isLit = false;
                for (const SunPeriod& period : point.sunlit) {
                    isLit = isLit || (period.start <= hours && hours <= period.end);
                    isNearChange = isNearChange || std::fabs(hours - period.start) < kSecond ||
                                   std::fabs(hours - period.end) < kSecond;
                }
                if (isNearChange)
                    continue;
                ++looked;
                const bool isStopped = caster.IsAnyRayStopped(hours);
                hidden += isStopped && caster.IsUp(hours) ? 1 : 0;
                ASSERT_EQ(isLit, caster.IsUp(hours) && !isStopped)
                    << point.place.x << ' ' << point.place.y << " at " << hours;
            }
        }
    }
    EXPECT_GT(looked, 10000U);
    EXPECT_GT(hidden, 1000U);
}
