// Plans, read back from their markup. Where nothing else is said lengths are millimetres.
#include "workbench/report/PlanPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "SvgForTests.h"
#include "analysis/OccluderSet.h"
#include "analysis/PointAnalysis.h"
#include "workbench/report/PlanSheet.h"

namespace {

// A body that stands on 0, with two triangles as its top.
void AddHouse(OccluderSet& set, double x, double y, double width, double depth, double height) {
    const auto entity = static_cast<std::uint32_t>(set.handles.size());
    set.handles.push_back(0x100 + entity);
    const Vector3 low[] = {{x, y, 0}, {x + width, y, 0}, {x + width, y + depth, 0}, {x, y + depth, 0}};
    const auto up = [&](int i) { return low[i] + Vector3{0, 0, height}; };
    const auto add = [&](int count, const Vector3& a, const Vector3& b, const Vector3& c, const Vector3& d,
                         Occluder::Outside outside) {
        Occluder face{{a, b, c, d}, count, entity, set.bodyCount, outside};
        set.faces.push_back(face);
    };
    for (int i = 0; i < 4; ++i)
        add(4, low[i], low[(i + 1) % 4], up((i + 1) % 4), up(i), Occluder::Outside::Before);
    add(4, low[0], low[1], low[2], low[3], Occluder::Outside::Behind);
    add(3, up(0), up(1), up(2), {}, Occluder::Outside::Before);
    add(3, up(2), up(3), up(0), {}, Occluder::Outside::Before);
    ++set.bodyCount;
}

PlanWindow Window(double x, double y, double width, double sill, double minutes, std::optional<bool> passes = {}) {
    PlanWindow window;
    window.corners = {QcGePoint(x, y, sill), QcGePoint(x + width, y, sill), QcGePoint(x + width, y, sill + 1.5),
                      QcGePoint(x, y, sill + 1.5)};
    window.name = L"W";
    window.minutes = minutes;
    window.passes = passes;
    return window;
}

PlanPicture PictureOf(const OccluderSet& set) {
    PlanPicture picture{set};
    picture.id = "p";
    for (int i = 0; i < 8; ++i)
        picture.colors.push_back({static_cast<double>(i), i + 1});
    return picture;
}

double RatioOf(const std::vector<SvgElement>& plan) {
    for (const SvgElement& text : Pick(plan, "text", "scale"))
        if (text.text.contains("1:"))
            return text.text.mid(text.text.indexOf("1:") + 2).toDouble();
    ADD_FAILURE() << "no ratio";
    return 1.0;
}

std::vector<SvgLine> RoofsOf(const std::vector<SvgElement>& plan) {
    std::vector<SvgLine> all;
    for (const SvgElement& path : Pick(plan, "path", "roofs"))
        for (const SvgLine& line : LinesOf(path.Get("d")))
            all.push_back(line);
    return all;
}

bool HasText(const std::vector<SvgElement>& plan, const char* className, const QString& text) {
    const std::vector<SvgElement> texts = Pick(plan, "text", className);
    return std::any_of(texts.begin(), texts.end(), [&](const SvgElement& each) { return each.text == text; });
}

}  // namespace

TEST(PlanPicture, IsTrueToScale) {
    OccluderSet set;
    AddHouse(set, 0, 0, 12000, 9000, 10000);
    AddHouse(set, 50000, 30000, 20000, 10000, 18500);
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(PictureOf(set)));
    const double unitsPerMetre = 1000.0 / RatioOf(plan) * 100.0;
    const std::vector<SvgLine> roofs = RoofsOf(plan);
    ASSERT_EQ(roofs.size(), 2U);
    // One loop of four corners each, whatever it was cut into; the lower one first, up on paper is down in numbers.
    ASSERT_EQ(roofs[0].size(), 4U);
    ASSERT_EQ(roofs[1].size(), 4U);
    const auto box = [](const SvgLine& line) {
        const auto byX = [](SvgPoint a, SvgPoint b) { return a.x < b.x; };
        const auto byY = [](SvgPoint a, SvgPoint b) { return a.y < b.y; };
        const auto [left, right] = std::minmax_element(line.begin(), line.end(), byX);
        const auto [top, bottom] = std::minmax_element(line.begin(), line.end(), byY);
        return std::array{left->x, top->y, right->x, bottom->y};
    };
    const auto a = box(roofs[0]), b = box(roofs[1]);
    EXPECT_NEAR(a[2] - a[0], 12.0 * unitsPerMetre, 1.0);
    EXPECT_NEAR(a[3] - a[1], 9.0 * unitsPerMetre, 1.0);
    EXPECT_NEAR(b[0] - a[0], 50.0 * unitsPerMetre, 1.0);
    EXPECT_NEAR(a[3] - b[3], 30.0 * unitsPerMetre, 1.0);
    // 70 m on 168 mm: 1:417 is the least, 1:500 the next that plans have.
    EXPECT_EQ(RatioOf(plan), 500.0);
    EXPECT_EQ(plan[0].Get("width"), "180mm");
    EXPECT_EQ(plan[0].Get("viewBox").split(' ')[2], "18000");
    // The bar is as long as its number says.
    const SvgElement bar = Pick(plan, "rect", "bar").at(0);
    const std::vector<SvgElement> texts = Pick(plan, "text", "scale");
    EXPECT_NEAR(bar.Number("width"), texts.back().text.split(' ')[0].toDouble() * unitsPerMetre, 0.01);
}

TEST(PlanPicture, SaysHowHighHousesAre) {
    OccluderSet set;
    AddHouse(set, -100000, -100000, 200000, 200000, 0);  // the ground, which has no number
    AddHouse(set, 0, 0, 22000, 19000, 10000);
    AddHouse(set, 50000, 30000, 20000, 10000, 18540);
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(PictureOf(set)));
    EXPECT_EQ(Pick(plan, "text", "heights").size(), 2U);
    EXPECT_TRUE(HasText(plan, "heights", "10"));
    EXPECT_TRUE(HasText(plan, "heights", "18.5"));
}

TEST(PlanPicture, SaysHowHighHousesAreWhereNoGroundIsDrawn) {
    OccluderSet set;
    AddHouse(set, 0, 0, 22000, 19000, 18000);
    AddHouse(set, 50000, 0, 22000, 19000, 45000);
    const auto fillOfTheLowest = [&] {
        return Pick(ReadSvg(DrawPlan(PictureOf(set))), "path", "roofs").at(0).Get("fill");
    };
    EXPECT_TRUE(HasText(ReadSvg(DrawPlan(PictureOf(set))), "heights", "18"));
    EXPECT_TRUE(HasText(ReadSvg(DrawPlan(PictureOf(set))), "heights", "45"));
    const QString house = fillOfTheLowest();
    AddHouse(set, -10000, -10000, 100000, 50000, 0);
    EXPECT_NE(fillOfTheLowest(), house) << "a house has the colour of the ground";
}

TEST(PlanPicture, HasAllOfItsFrameOnThePaper) {
    OccluderSet set;
    AddHouse(set, 0, 0, 22000, 19000, 18000);
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(PictureOf(set)));
    const SvgElement frame = Pick(plan, "rect", "frame").at(0);
    const double half = 0.5 * frame.Number("stroke-width");
    EXPECT_GE(frame.Number("x"), half);
    EXPECT_GE(frame.Number("y"), half);
    EXPECT_LE(frame.Number("x") + frame.Number("width") + half, plan[0].Get("viewBox").split(' ')[2].toDouble());
}

TEST(PlanPicture, DrawsHigherRoofsOverLowerOnesAndGreyer) {
    OccluderSet set;
    AddHouse(set, 10000, 10000, 10000, 10000, 50000);
    AddHouse(set, 0, 0, 30000, 30000, 8000);
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(PictureOf(set)));
    const std::vector<SvgElement> paths = Pick(plan, "path", "roofs");
    ASSERT_EQ(paths.size(), 2U);
    const std::vector<SvgLine> low = LinesOf(paths[0].Get("d"));
    const std::vector<SvgLine> high = LinesOf(paths[1].Get("d"));
    EXPECT_TRUE(IsInside(low, {high[0][0].x + 1, high[0][0].y + 1}) || IsInside(low, {high[0][0].x, high[0][0].y}));
    EXPECT_LT(paths[1].Get("fill").mid(1, 2).toInt(nullptr, 16), paths[0].Get("fill").mid(1, 2).toInt(nullptr, 16));
}

TEST(PlanPicture, ShowsTheProjectWhereItIsThere) {
    OccluderSet set;
    AddHouse(set, 0, 0, 30000, 30000, 8000);
    AddHouse(set, 40000, 0, 30000, 30000, 8000);
    set.proposed = {false, true};
    PlanPicture picture = PictureOf(set);
    EXPECT_EQ(RoofsOf(ReadSvg(DrawPlan(picture))).size(), 2U);
    picture.withProject = false;
    EXPECT_EQ(RoofsOf(ReadSvg(DrawPlan(picture))).size(), 1U);
}

TEST(PlanPicture, HasOneGreyForAHouseWithTheProjectAndWithoutIt) {
    OccluderSet set;
    AddHouse(set, 0, 0, 30000, 30000, 8000);
    AddHouse(set, 40000, 0, 30000, 30000, 50000);
    set.proposed = {false, true};
    PlanPicture picture = PictureOf(set);
    const QString now = Pick(ReadSvg(DrawPlan(picture)), "path", "roofs").at(0).Get("fill");
    picture.withProject = false;
    EXPECT_EQ(Pick(ReadSvg(DrawPlan(picture)), "path", "roofs").at(0).Get("fill"), now);
}

TEST(PlanPicture, WritesNoHeightOnTheHoursOfARoof) {
    OccluderSet set;
    AddHouse(set, 0, 0, 30000, 30000, 18000);
    PlanPicture picture = PictureOf(set);
    PointAnswer answer;
    OutlineResult outline;
    outline.outward = QcGePoint(0, 0, 1);
    outline.corners = {{1, 1, 18}, {29, 1, 18}, {29, 29, 18}, {1, 29, 18}};
    outline.pointCount = 1;
    answer.points.push_back({QcGePoint(15, 15, 18), 0, {}, 60.0});
    answer.outlines = {outline};
    picture.points = &answer;
    EXPECT_FALSE(HasText(ReadSvg(DrawPlan(picture)), "heights", "18"));
    for (QcGePoint& corner : answer.outlines[0].corners)
        corner.z = 0.0;
    EXPECT_TRUE(HasText(ReadSvg(DrawPlan(picture)), "heights", "18"));
}

TEST(PlanPicture, TurnsTheArrowAgainstTheClock) {
    const OccluderSet set;
    PlanPicture picture = PictureOf(set);
    picture.north = 30.0;
    std::vector<SvgElement> arrow = Pick(ReadSvg(DrawPlan(picture)), "g", "north");
    ASSERT_EQ(arrow.size(), 1U);
    EXPECT_TRUE(arrow[0].Get("transform").endsWith("rotate(-30)")) << arrow[0].Get("transform").toStdString();
    picture.north = std::numeric_limits<double>::infinity();
    arrow = Pick(ReadSvg(DrawPlan(picture)), "g", "north");
    EXPECT_TRUE(arrow[0].Get("transform").endsWith("rotate(0)"));
}

TEST(PlanPicture, ColorsWindowsByTheTableAndShowsTheWorstOfAStack) {
    OccluderSet set;
    AddHouse(set, 0, 0, 30000, 10000, 9000);
    PlanPicture picture = PictureOf(set);
    picture.windows = {Window(5, 0, 2, 1, 45.0), Window(5, 0, 2, 4, 130.0), Window(10, 0, 2, 1, 200.0),
                       Window(15, 0, 2, 1, 0.0)};
    picture.windows[0].link = "#w0";
    picture.windows[3].isTold = false;
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(picture));
    std::vector<QString> colors;
    for (const SvgElement& group : Pick(plan, "g", "windows"))
        if (!group.Get("stroke").isEmpty())
            colors.push_back(group.Get("stroke"));
    // Without a side: grey below all; then 3 hours and more, then less than one.
    EXPECT_EQ(colors, (std::vector<QString>{"#a0a0a0", "#00ffff", "#ff0000"}));
    EXPECT_EQ(LinesOf(Pick(plan, "path", "rims").at(0).Get("d")).size(), 3U);
    const std::vector<SvgElement> links = Pick(plan, "a", "windows");
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].Get("href"), "#w0");
    EXPECT_TRUE(HasText(plan, "hours", "0:45"));
    EXPECT_TRUE(HasText(plan, "hours", "3:20"));
    EXPECT_FALSE(HasText(plan, "hours", "2:10"));
    EXPECT_TRUE(HasText(plan, "legend", QString::fromUtf8("上下重叠的窗只画日照最少的一个")));
}

TEST(PlanPicture, MarksWindowsThatFailAndRoundsNoMinuteUp) {
    OccluderSet set;
    AddHouse(set, 0, 0, 30000, 10000, 9000);
    PlanPicture picture = PictureOf(set);
    picture.windows = {Window(5, 0, 2, 1, 119.99, false), Window(20, 0, 2, 1, 120.0, true)};
    picture.windows[0].name = L"A & <b>";
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(picture));
    EXPECT_TRUE(HasText(plan, "names", "A & <b> 1:59"));
    EXPECT_TRUE(HasText(plan, "hours", "2:00"));
    const std::vector<SvgElement> marks = Pick(plan, "path", "fails");
    ASSERT_EQ(marks.size(), 1U);
    const std::vector<SvgLine> triangles = LinesOf(marks[0].Get("d"));
    ASSERT_EQ(triangles.size(), 1U);
    // South of the wall, and pointing at it.
    const double wall = LinesOf(Pick(plan, "path", "rims").at(0).Get("d")).at(0).at(0).y;
    EXPECT_GT(triangles[0][0].y, wall);
    EXPECT_GT(triangles[0][1].y, triangles[0][0].y);
}

TEST(PlanPicture, IsTheSameHundredsOfKilometresAway) {
    const auto drawn = [](double x, double y) {
        OccluderSet set;
        AddHouse(set, 1000 * x, 1000 * y, 12000, 9000, 10000);
        PlanPicture picture = PictureOf(set);
        picture.windows = {Window(x + 2, y, 2, 1, 100.0, false)};
        return DrawPlan(picture);
    };
    EXPECT_EQ(drawn(0, 0), drawn(512000.0, 4096000.0));
}

TEST(PlanPicture, IsAPictureOfNothingToo) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const OccluderSet nothing;
    OccluderSet broken;
    AddHouse(broken, nan, 0, 1000, 1000, nan);
    AddHouse(broken, 1e300, -1e300, 1e305, 1e305, 1e305);
    for (const OccluderSet* const set : {&nothing, static_cast<const OccluderSet*>(&broken)}) {
        PlanPicture picture = PictureOf(*set);
        EXPECT_GT(ReadSvg(DrawPlan(picture)).size(), 10U);
        picture.windows = {Window(7, 7, 0, 1, nan, false), Window(7, 7, 0, 1, 1e300, true), Window(nan, 0, 1, 1, 5)};
        picture.colors.clear();
        const std::string plan = DrawPlan(picture);
        ReadSvg(plan);
        EXPECT_EQ(plan.find("nan"), std::string::npos);
        EXPECT_EQ(plan.find("inf"), std::string::npos);
    }
}

TEST(PlanPicture, ShowsWhatIsNearWhenTheDrawingIsFarTooLarge) {
    OccluderSet set;
    AddHouse(set, 0, 0, 12000, 9000, 10000);
    AddHouse(set, 900'000'000, 0, 12000, 9000, 10000);
    PlanPicture picture = PictureOf(set);
    picture.windows = {Window(2, 0, 2, 1, 100.0)};
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(picture));
    EXPECT_LE(RatioOf(plan), 2500.0);
    EXPECT_EQ(RoofsOf(plan).size(), 1U);
}

TEST(PlanPicture, NeedsFewPathsForTenThousandHouses) {
    OccluderSet set;
    for (int i = 0; i < 100; ++i)
        for (int k = 0; k < 100; ++k)
            AddHouse(set, 30000.0 * i, 30000.0 * k, 12000, 9000 + 10 * i, 3000.0 + 3000 * ((i * 7 + k) % 20));
    const std::string plan = DrawPlan(PictureOf(set));
    EXPECT_LT(plan.size(), 1'000'000U);
    EXPECT_LT(Pick(ReadSvg(plan), "path", "roofs").size(), 50U);
    EXPECT_EQ(RoofsOf(ReadSvg(plan)).size(), 10000U);
}

TEST(PlanPicture, HasAreasWithCellsSharesAndLines) {
    const OccluderSet set;
    PlanPicture picture = PictureOf(set);
    PointAnswer answer;
    OutlineResult outline;
    outline.corners = {{0, 0, 0}, {20, 0, 0}, {20, 10, 0}, {0, 10, 0}};
    outline.outward = QcGePoint(0, 0, 1);
    outline.pointCount = 200;
    outline.share = 0.659;
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 20; ++column)
            answer.points.push_back({QcGePoint(column + 0.5, row + 0.5, 0), 0, {}, column < 8 ? 30.0 : 200.0});
    answer.outlines = {outline};
    answer.isolines = {{1, 0, false, {QcGePoint(8, 0, 0), QcGePoint(8, 4, 0), QcGePoint(8, 10, 0)}}};
    picture.points = &answer;
    const std::vector<SvgElement> plan = ReadSvg(DrawPlan(picture));
    const double unitsPerMetre = 1000.0 / RatioOf(plan) * 100.0;
    EXPECT_TRUE(HasText(plan, "shares", "65%"));
    answer.outlines[0].handle = 0x3B;
    EXPECT_TRUE(HasText(ReadSvg(DrawPlan(picture)), "shares", "3B 65%"));
    answer.outlines[0].share.reset();
    const std::vector<SvgElement> named = ReadSvg(DrawPlan(picture));
    EXPECT_TRUE(HasText(named, "shares", "3B"));
    EXPECT_TRUE(HasText(named, "legend", QString::fromUtf8("区域里：轮廓的句柄")));
    EXPECT_FALSE(Pick(plan, "g", "north").empty());
    picture.isElevation = true;
    EXPECT_TRUE(Pick(ReadSvg(DrawPlan(picture)), "g", "north").empty());
    picture.isElevation = false;
    EXPECT_TRUE(HasText(plan, "isoline-hours", "1"));
    const SvgLine line = LinesOf(Pick(plan, "path", "isolines").at(0).Get("d")).at(0);
    EXPECT_NEAR(std::abs(line.front().y - line.back().y), 10.0 * unitsPerMetre, 1.0);
    double red = 0.0;
    double cyan = 0.0;
    for (const SvgElement& path : Pick(plan, "path", "area"))
        for (const SvgLine& cell : LinesOf(path.Get("d"))) {
            const double size = std::abs((cell[1].x - cell[0].x) * (cell[2].y - cell[1].y));
            red += path.Get("fill") == "#ff0000" ? size : 0.0;
            cyan += path.Get("fill") == "#00ffff" ? size : 0.0;
            if (path.Get("fill") == "#ff0000")
                EXPECT_LE(std::max(cell[0].x, cell[1].x), line[0].x + 1.0);
        }
    EXPECT_NEAR(red / unitsPerMetre / unitsPerMetre, 80.0, 0.5);
    EXPECT_NEAR(cyan / unitsPerMetre / unitsPerMetre, 120.0, 0.5);
}

TEST(PlanSheet, HasTheRatiosThatPlansHave) {
    const std::vector<std::pair<double, double>> expected = {{0.3, 1},     {1.2, 2},      {2.4, 3},     {10, 10},
                                                             {11, 15},     {402, 500},    {500, 500},   {501, 600},
                                                             {7000, 8000}, {9000, 10000}, {1200, 1500}, {160, 200}};
    for (const auto& [least, ratio] : expected)
        EXPECT_EQ(UsualRatio(least), ratio) << least;
    EXPECT_EQ(UsualRatio(std::numeric_limits<double>::quiet_NaN()), 1.0);
}

TEST(PlanSheet, HasRoundLengths) {
    EXPECT_EQ(RoundLength(30.0), 20.0);
    EXPECT_EQ(RoundLength(50.0), 50.0);
    EXPECT_EQ(RoundLength(19.0), 10.0);
    EXPECT_EQ(RoundLength(0.7), 0.5);
}
