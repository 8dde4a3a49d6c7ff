// Windows as plans draw them: where they stand, how they are called, how storeys repeat them.
#include <random>

#include "DrawingForWindows.h"
#include "analysis/PlanWindows.h"
#include "analysis/WindowStoreys.h"

namespace {

constexpr Site kHere;
using Kind = AnalysisRemark::Kind;

PlanRules Rules(std::optional<double> sill, std::optional<double> height, std::optional<Storeys> storeys = {}) {
    PlanRules rules;
    rules.sill = sill;
    rules.windowHeight = height;
    rules.storeys = storeys;
    return rules;
}

WindowsOfDrawing PlanIn(const std::string& entities, const PlanRules& rules = {}, double millimetres = 1.0) {
    const OpenDrawing drawing(DrawingWith(entities));
    return FindWindows(drawing.database, {}, millimetres, 200.0, rules);
}

// From x to x + 1500 along y = 0.
std::string Line(const std::string& groups, double x = 1000.0, double z = 0.0, double y = 0.0) {
    return Entity("LINE", "8=WINDOW " + groups + " " + At(x, y, z) + At(x + 1500, y, z, 11));
}
std::string Path(const std::string& groups) {
    return Entity("LWPOLYLINE", "8=WINDOW " + groups);
}
std::string Text(const std::string& text, double x, double y, double z, const std::string& groups = "8=WINDOW") {
    return Entity("TEXT", groups + " " + At(x, y, z)) + "1\n" + text + "\n";
}

void ExpectBetween(const DrawnWindow& window, const Vector3& one, const Vector3& other, double height,
                   const char* why) {
    const Vector3 end = window.lowerLeft + window.right * window.width;
    const bool isTurned = Length(window.lowerLeft - one) > Length(end - one);
    EXPECT_LT(Length((isTurned ? end : window.lowerLeft) - one), 1e-6) << why;
    EXPECT_LT(Length((isTurned ? window.lowerLeft : end) - other), 1e-6) << why;
    EXPECT_NEAR(window.height, height, 1e-9) << why;
    EXPECT_TRUE(window.isLine) << why;
}

// The only window, from x = 1000 to 2500, with a sill and a height.
void ExpectUsual(const std::string& entities, double sill, double height, const PlanRules& rules, const char* why) {
    const WindowsOfDrawing found = PlanIn(entities, rules);
    EXPECT_TRUE(found.remarks.empty()) << why;
    ASSERT_EQ(found.windows.size(), 1U) << why;
    ExpectBetween(found.windows[0], {1000, 0, sill}, {2500, 0, sill}, height, why);
}

void ExpectNoWindow(const std::string& entities, const PlanRules& rules, const char* why) {
    const WindowsOfDrawing found = PlanIn(entities, rules);
    EXPECT_TRUE(found.windows.empty()) << why;
    EXPECT_EQ(CountOf(found, Kind::NotAWindow), 1U) << why;
    EXPECT_EQ(CountOf(found, Kind::LinesWithoutHeight), 0U) << why;
    EXPECT_EQ(CountOf(found, Kind::NoWindows), 1U) << why;
}

std::vector<std::string> NamesOf(const WindowsOfDrawing& found) {
    std::vector<std::string> names;
    for (const DrawnWindow& window : found.windows)
        names.push_back(ToUtf8(window.name.View()));
    return names;
}
std::vector<std::string> NamesIn(const std::string& entities, const PlanRules& rules = {}) {
    return NamesOf(PlanIn(entities, rules));
}

using Names = std::vector<std::string>;

// By the triangle that a place makes with a line's ends.
double DistanceInPlan(const Vector3& place, const Vector3& from, const Vector3& to) {
    const double a = std::hypot(place.x - from.x, place.y - from.y), b = std::hypot(place.x - to.x, place.y - to.y);
    const double c = std::hypot(to.x - from.x, to.y - from.y);
    if (a * a > b * b + c * c || b * b > a * a + c * c)
        return std::min(a, b);
    const double doubleArea = (to.x - from.x) * (place.y - from.y) - (to.y - from.y) * (place.x - from.x);
    return std::fabs(doubleArea) / c;
}

}  // namespace

TEST(PlanWindows, HaveTheirElevationAsSillAndTheirThicknessAsHeight) {
    ExpectUsual(Line("39=1500", 1000, 900), 900, 1500, {}, "LINE");
    ExpectUsual(Path("38=900 39=1500 10=1000 20=0 10=2500 20=0"), 900, 1500, {}, "LWPOLYLINE");
    ExpectUsual(Entity("POLYLINE", "8=WINDOW 66=1 10=0 20=0 30=900 39=1500") +
                    Entity("VERTEX", "8=WINDOW 10=1000 20=0 30=0") + Entity("VERTEX", "8=WINDOW 10=2500 20=0 30=0") +
                    Entity("SEQEND", "8=WINDOW"),
                900, 1500, {}, "POLYLINE");
    ExpectUsual(Path("70=1 38=900 39=1500 10=1000 20=0 10=2500 20=0"), 900, 1500, {}, "closed with two vertices");
    ExpectUsual(Line("39=1500", 1000, 0), 0, 1500, {}, "on the ground");
    const WindowsOfDrawing metres =
        PlanIn(Entity("LINE", "8=WINDOW 39=1.5 " + At(1, 0, 0.9) + At(2.5, 0, 0.9, 11)), Rules(5.0, 9.0), 1000.0);
    ASSERT_EQ(metres.windows.size(), 1U);
    ExpectBetween(metres.windows[0], {1000, 0, 900}, {2500, 0, 900}, 1500, "metres; the rules have nothing to say");
}

TEST(PlanWindows, AreTheSegmentsOfPolylinesEachWithItsHandle) {
    const WindowsOfDrawing found =
        PlanIn(Path("5=AB 38=900 39=1500 10=0 20=0 10=1500 20=0 42=1 10=3000 20=0 10=3000 20=1200"));
    ASSERT_EQ(found.windows.size(), 2U) << "and no arc";
    ExpectBetween(found.windows[0], {0, 0, 900}, {1500, 0, 900}, 1500, "first");
    ExpectBetween(found.windows[1], {3000, 0, 900}, {3000, 1200, 900}, 1500, "last");
    EXPECT_EQ(found.windows[0].handle, 0xABU);
    EXPECT_EQ(found.windows[1].handle, 0xABU);
    ASSERT_EQ(found.remarks.size(), 1U) << "on the arc";
    EXPECT_EQ(found.remarks[0].kind, Kind::NotAWindow);
    EXPECT_EQ(found.remarks[0].handle, 0xABU);
}

TEST(PlanWindows, TakeFromTheRulesWhatThePlanDoesNotSay) {
    ExpectUsual(Line(""), 900, 1500, Rules(0.9, 1.5), "neither sill nor height");
    ExpectUsual(Line("39=1200"), 900, 1200, Rules(0.9, 1.5), "a thickness");
    ExpectUsual(Line("", 1000, 300), 300, 1500, Rules(0.9, 1.5), "an elevation");
    ExpectUsual(Line(""), -2400, 600, Rules(-2.4, 0.6), "in a basement");
    ExpectUsual(Line("", 1000, -2400), -2400, 600, Rules(0.9, 0.6), "drawn in a basement");
    ExpectUsual(Line(""), 0, 1500, Rules({}, 1.5), "no sill is level 0");
    ExpectUsual(Path("10=1000 20=0 10=2500 20=0"), 900, 1500, Rules(0.9, 1.5), "LWPOLYLINE");
    const WindowsOfDrawing metres =
        PlanIn(Entity("LINE", "8=WINDOW " + At(1, 0, 0) + At(2.5, 0, 0, 11)), Rules(0.9, 1.5), 1000.0);
    ASSERT_EQ(metres.windows.size(), 1U);
    ExpectBetween(metres.windows[0], {1000, 0, 900}, {2500, 0, 900}, 1500, "a drawing in metres");
}

TEST(PlanWindows, HaveTheLowerEdgeOfWhatIsDrawnAsSill) {
    ExpectUsual(Line("39=-1500", 1000, 2400), 900, 1500, {}, "a negative thickness");
    ExpectUsual(Line("39=1500 210=0 220=0 230=-1", 1000, 2400), 900, 1500, {}, "an extrusion down");
    ExpectUsual(Line("39=-1500 210=0 220=0 230=-1", 1000, 900), 900, 1500, {}, "both");
    ExpectUsual(Path("38=-2400 39=1500 210=0 220=0 230=-1 10=-1000 20=0 10=-2500 20=0"), 900, 1500, {}, "LWPOLYLINE");
    ExpectUsual(Line("210=0 220=0 230=-1", 1000, 900), 900, 1500, Rules({}, 1.5), "a height that is told goes up");
    ExpectUsual(Line("39=-1500"), -1500, 1500, {}, "below the ground");
    ExpectUsual(Line("39=-1500"), 900, 1500, Rules(0.9, {}), "a sill that is told is the lower edge");
}

TEST(PlanWindows, HaveASillThatIsToldAboveTheLevelThatALineWithoutAnElevationCameToLieAt) {
    const PlacedSegment segment{{1000, 0, 6000}, {2500, 0, 6000}, {}, false};
    const SegmentReading reading = WindowOfSegment(segment, Rules(0.9, 1.5));
    ASSERT_TRUE(reading.window);
    EXPECT_FALSE(reading.lacksHeight);
    ExpectBetween(*reading.window, {1000, 0, 6900}, {2500, 0, 6900}, 1500, "6 m up");
    const PlacedSegment scaled{{1000, 0, 6000}, {2500, 0, 6000}, {0, 0, 3000}, true};
    ExpectBetween(*WindowOfSegment(scaled, Rules(0.9, 1.5)).window, {1000, 0, 6000}, {2500, 0, 6000}, 3000, "drawn");
    EXPECT_TRUE(WindowOfSegment(segment, Rules(0.9, {})).lacksHeight);
}

TEST(PlanWindows, AreLevelLinesWithAVerticalThicknessOnly) {
    const PlanRules rules = Rules(0.9, 1.5);
    ExpectNoWindow(Entity("LINE", "8=WINDOW " + At(0, 0, 0) + At(1500, 0, 1.1, 11)), rules, "not level");
    ExpectNoWindow(Entity("LINE", "8=WINDOW 39=900 210=1 220=0 230=0 " + At(0, 0, 0) + At(0, 0, 1500, 11)), rules,
                   "upright, although its thickness makes a rectangle of it");
    ExpectNoWindow(Line("39=1500 210=0 220=1 230=0"), rules, "a level thickness");
    ExpectNoWindow(Line("39=1500 210=0 220=1 230=1"), rules, "a slanting thickness");
    ExpectNoWindow(Line("39=0.5"), rules, "less than a millimetre high");
    ExpectNoWindow(Line("39=1000001"), rules, "higher than any window");
    ExpectNoWindow(Path("10=5 20=5 10=5 20=5"), rules, "without a length");
    ExpectNoWindow(Path("70=1 39=1500 10=0 20=0 10=1500 20=0 10=1500 20=100 10=0 20=100"), rules, "around an area");
    ExpectNoWindow(Path("42=1 10=0 20=0 42=1 10=1500 20=0"), rules, "an arc");
    ExpectNoWindow(Entity("LINE", "8=WINDOW " + At(0, 0, 0) + At(1500, 0, 1.1, 11)), {}, "not level, and no height");
    EXPECT_EQ(PlanIn(Entity("LINE", "8=WINDOW " + At(0, 0, 0) + At(1500, 0, 0.9, 11)), rules).windows.size(), 1U)
        << "within a millimetre";
}

TEST(PlanWindows, WithoutAHeightAreCounted) {
    const WindowsOfDrawing found =
        PlanIn(Line("") + Path("10=0 20=0 10=900 20=0 10=900 20=900") + Line("39=1500", 9000), Rules(0.9, {}));
    EXPECT_EQ(found.windows.size(), 1U);
    ASSERT_EQ(found.remarks.size(), 1U);
    EXPECT_EQ(found.remarks[0].kind, Kind::LinesWithoutHeight);
    EXPECT_EQ(found.remarks[0].count, 3U);
    const WindowsOfDrawing none = PlanIn(Line(""));
    EXPECT_EQ(CountOf(none, Kind::LinesWithoutHeight), 1U);
    EXPECT_EQ(CountOf(none, Kind::NoWindows), 1U);
    EXPECT_EQ(CountOf(none, Kind::NotAWindow), 0U);
}

TEST(PlanWindows, HaveTheNamesThatStandAtThemInPlan) {
    const std::string line = Line("5=AB 39=1500", 1000, 900);
    const std::pair<Vector3, bool> kPlaces[] = {
        {{1700, 0, 0}, true},    {{1700, 0, 900}, true},    {{1700, 0, -90000}, true}, {{1700, 199, 0}, true},
        {{1700, -199, 0}, true}, {{1700, 201, 0}, false},   {{1700, -201, 0}, false},  {{801, 0, 0}, true},
        {{799, 0, 0}, false},    {{2699, 0, 5000}, true},   {{2701, 0, 0}, false},     {{860, -140, 0}, true},
        {{850, -150, 0}, false}, {{2645, 145, 2400}, false}};
    for (const auto& [place, isAt] : kPlaces)
        EXPECT_EQ(NamesIn(line + Text("N", place.x, place.y, place.z)), Names{isAt ? "N" : "AB"})
            << place.x << " " << place.y << " " << place.z;
    EXPECT_EQ(NamesIn(line + Text("N", 1700, 0, 0, "8=NAMES")), Names{"AB"});
    EXPECT_EQ(NamesIn(line + Text("N", 1700, 0, 0, "8=窗")), Names{"AB"}) << "another layer of windows";
    EXPECT_EQ(NamesIn(line + Entity("LINE", "5=CD 8=窗 39=1500 " + At(1000, 100, 0) + At(2500, 100, 0, 11)) +
                      Text("N", 1700, 80, 0)),
              (Names{"N", "CD"}))
        << "a nearer one on another layer";
    EXPECT_EQ(NamesIn(Path("5=AB 39=1500 10=0 20=0 10=1500 20=0 10=1500 20=1500") + Text("N", 1500, 700, 0)),
              (Names{"AB", "N"}))
        << "of two segments each has its own name";
    EXPECT_EQ(NamesIn(line + Text("1", 1700, 150, 0) + Text("2", 1700, 0, 0)), Names{"1"}) << "the first text counts";
}

TEST(PlanWindows, HaveTheNameThatIsNearestInPlanThenInHeight) {
    const auto two = [](double y, double low) {
        return Line("5=A 39=1500", 1000, 900) + Line("5=B 39=1500", 1000, low, y);
    };
    EXPECT_EQ(NamesIn(two(150, 3900) + Text("N", 1700, 100, 1000)), (Names{"A", "N"})) << "plan goes before height";
    EXPECT_EQ(NamesIn(two(150, 3900) + Text("N", 1700, 70, 4000)), (Names{"N", "B"}));
    EXPECT_EQ(NamesIn(two(0, 3900) + Text("N", 1700, 50, 3000)), (Names{"N", "B"})) << "600 above one, 900 below";
    EXPECT_EQ(NamesIn(two(0, 3900) + Text("N", 1700, 50, 3300)), (Names{"A", "N"})) << "900 above one, 600 below";
    EXPECT_EQ(NamesIn(two(0.9, 3900) + Text("N", 1700, -50, 4000)), (Names{"A", "N"})) << "within a millimetre";
    EXPECT_EQ(NamesIn(two(1.1, 3900) + Text("N", 1700, -50, 4000)), (Names{"N", "B"})) << "beyond a millimetre";
    EXPECT_EQ(NamesIn(two(0, 900) + Text("N", 1700, 50, 4000)), (Names{"N", "B"})) << "then the first";
    EXPECT_EQ(NamesIn(two(-1, 900) + Text("N", 1700, 199.5, 4000)), (Names{"N", "B"})) << "the other is 200.5 away";
}

TEST(PlanWindows, ShareTheirNamesWithRectangles) {
    const auto both = [](double y) {
        return Upright("5=A 8=WINDOW", kHere, 1000, 0, 2500, 0, 900, 2400) + Line("5=B 39=1500", 1000, 900, y);
    };
    EXPECT_EQ(NamesIn(both(150) + Text("N", 1700, 100, 1000)), (Names{"A", "N"})) << "the line is nearer";
    EXPECT_EQ(NamesIn(both(150) + Text("N", 1700, 50, 1000)), (Names{"N", "B"})) << "the rectangle is nearer";
    EXPECT_EQ(NamesIn(both(150) + Text("N", 1700, 50, 0)), (Names{"A", "N"})) << "below the rectangle";
    EXPECT_EQ(NamesIn(both(0) + Text("N", 1700, 50, 1000)), (Names{"N", "B"})) << "equally near: the first";
}

TEST(PlanWindows, StandOnEachStorey) {
    const std::string plan = Line("5=A 39=1500", 1000, 900) +
                             Upright("5=B 8=WINDOW", kHere, 5000, 0, 6500, 0, 900, 2400) + Line("5=C", 9000) +
                             Text("402-1", 1700, 0, 0) + Text("3-402-2", 5500, 0, 1000);
    const WindowsOfDrawing found = PlanIn(plan, Rules(0.6, 1.8, Storeys{3, 2.9}));
    EXPECT_TRUE(found.remarks.empty());
    EXPECT_EQ(NamesOf(found), (Names{"1-402-1", "3-402-2", "1-C", "2-402-1", "2-C", "3-402-1", "3-C"}));
    ASSERT_EQ(found.windows.size(), 7U);
    ExpectBetween(found.windows[0], {1000, 0, 900}, {2500, 0, 900}, 1500, "where it is drawn");
    ExpectBetween(found.windows[3], {1000, 0, 3800}, {2500, 0, 3800}, 1500, "second storey");
    ExpectBetween(found.windows[5], {1000, 0, 6700}, {2500, 0, 6700}, 1500, "third storey");
    ExpectBetween(found.windows[6], {9000, 0, 6400}, {10500, 0, 6400}, 1800, "sill and height by the rules");
    EXPECT_FALSE(found.windows[1].isLine) << "a rectangle stands once";
    for (const std::size_t index : {0U, 3U, 5U})
        EXPECT_EQ(found.windows[index].handle, 0xAU);
}

TEST(PlanWindows, BelongToTheFlatOnTheirStoreyAndToTheBuildingAsDrawn) {
    const auto found =
        PlanIn(Line("5=A 39=1500", 1000, 900) + Line("5=B 39=1500", 5000, 900) + Line("5=C 39=1500", 9000, 900) +
                   Text("3-402-1", 1700, 0, 0) + Text("402-1", 5500, 0, 0),
               Rules({}, {}, Storeys{2, 3.0}));
    ASSERT_EQ(found.windows.size(), 6U);
    const wchar_t* const kExpected[][3] = {
        {L"1-3-402-1", L"3", L"1-402"}, {L"1-402-1", L"", L"1-402"}, {L"1-C", L"", L""},
        {L"2-3-402-1", L"3", L"2-402"}, {L"2-402-1", L"", L"2-402"}, {L"2-C", L"", L""}};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(found.windows[i].name, kExpected[i][0]) << i;
        EXPECT_EQ(found.windows[i].building, kExpected[i][1]) << i;
        EXPECT_EQ(found.windows[i].flat, kExpected[i][2]) << i;
    }
    std::vector<DrawnWindow> windows = found.windows;
    TellFloors(windows);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(windows[i].floor, i < 3 ? 1 : 2) << "of one building, through its storeys: " << i;
}

TEST(PlanWindows, OfRectanglesHaveBuildingAndFlatFromTheirNames) {
    const WindowsOfDrawing found =
        PlanIn(Upright("8=WINDOW", kHere, 1000, 0, 2500, 0, 900, 2400) + Text("A-2-402-1", 1700, 0, 1000));
    ASSERT_EQ(found.windows.size(), 1U);
    EXPECT_EQ(found.windows[0].building, L"A-2");
    EXPECT_EQ(found.windows[0].flat, L"402");
}

TEST(PlanWindows, OfOneStoreyHaveItInTheirNames) {
    EXPECT_EQ(NamesIn(Line("5=A 39=1500") + Text("402-1", 1700, 0, 0), Rules({}, {}, Storeys{1, 3.0})),
              Names{"1-402-1"});
    EXPECT_EQ(NamesIn(Line("39=1500"), Rules({}, {}, Storeys{2, 3.0})), (Names{"1-#1", "2-#1"}));
}

TEST(PlanWindows, ThatAreNotThereAreNotRepeated) {
    const WindowsOfDrawing found =
        PlanIn(Upright("5=B 8=WINDOW", kHere, 5000, 0, 6500, 0, 900, 2400), Rules({}, {}, Storeys{9, 3.0}));
    EXPECT_EQ(NamesOf(found), Names{"B"});
    ASSERT_EQ(found.remarks.size(), 1U);
    EXPECT_EQ(found.remarks[0].kind, Kind::NothingRepeated);
    EXPECT_EQ(CountOf(PlanIn(Line(""), Rules({}, {}, Storeys{9, 3.0})), Kind::NothingRepeated), 1U) << "no height";
}

TEST(PlanWindows, BeyondFiveMillionAreRefused) {
    std::vector<DrawnWindow> windows(5001);
    EXPECT_EQ(CountWithStoreys(windows, {1000, 3.0}), 5001U) << "rectangles are not repeated";
    for (DrawnWindow& window : windows)
        window.isLine = true;
    EXPECT_EQ(CountWithStoreys(windows, {1000, 3.0}), 5'001'000U);
    std::string lines;
    for (int i = 0; i < 5001; ++i)
        lines += Line("39=1500", i);
    const WindowsOfDrawing refused = PlanIn(lines, Rules({}, {}, Storeys{1000, 3.0}));
    EXPECT_TRUE(refused.areTooMany);
    EXPECT_TRUE(refused.windows.empty());
    EXPECT_FALSE(PlanIn(lines, Rules({}, {}, Storeys{2, 3.0})).areTooMany);
}

TEST(PlanWindows, FindTheSameNameAsALookAtAllOfThem) {
    std::mt19937 random(17);
    std::uniform_real_distribution<double> at(0.0, 20000.0), angle(0.0, 6.3);
    std::string entities;
    std::vector<std::pair<Vector3, Vector3>> lines;
    for (int i = 0; i < 400; ++i) {
        const double turn = angle(random);
        const Vector3 from{at(random), at(random), std::floor(at(random) / 4000.0) * 3000.0 + 900.0};
        lines.push_back({from, from + Vector3{std::cos(turn), std::sin(turn), 0.0} * 1500.0});
        entities += Entity("LINE", "8=WINDOW 39=1500 " + At(from) + At(lines.back().second, 11));
    }
    std::vector<std::string> expected(lines.size());
    for (int i = 0; i < 3000; ++i) {
        const Vector3 place{at(random), at(random), at(random)};
        entities += Text(std::to_string(i), place.x, place.y, place.z);
        std::vector<double> away;
        for (const auto& [from, to] : lines)
            away.push_back(DistanceInPlan(place, from, to));
        const double least = *std::min_element(away.begin(), away.end());
        std::size_t nearest = lines.size();
        double leastInHeight = 1e9;
        for (std::size_t k = 0; k < lines.size() && least <= 200.0; ++k) {
            const double below = lines[k].first.z - place.z, above = place.z - (lines[k].first.z + 1500.0);
            const double inHeight = std::max({below, above, 0.0});
            if (away[k] <= std::min(least + 1.0, 200.0) && inHeight < leastInHeight) {
                leastInHeight = inHeight;
                nearest = k;
            }
        }
        if (nearest < lines.size() && expected[nearest].empty())
            expected[nearest] = std::to_string(i);
    }
    const Names names = NamesIn(entities);
    ASSERT_EQ(names.size(), lines.size());
    int count = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (expected[i].empty())
            continue;
        ++count;
        EXPECT_EQ(names[i], expected[i]) << i;
    }
    EXPECT_GT(count, 50);
}
