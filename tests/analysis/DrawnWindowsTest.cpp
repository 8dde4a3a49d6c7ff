// Which entities are windows, where these are, and what is said of the others.
#include "DrawingForWindows.h"

namespace {

constexpr Site kHere;
using Kind = AnalysisRemark::Kind;

std::string Layer(const std::string& name, const std::string& groups) {
    return Entity("LAYER", "2=" + name + " " + groups);
}

std::string Window(const std::string& groups, double x = 1000.0) {
    return Upright("8=WINDOW " + groups, kHere, x, 0, x + 1500, 0, 900, 2400);
}

// A closed polyline in the plane y = 0 of the world: with this extrusion the plane's x is the world's, its y is z.
std::string Flat(const std::string& groups, const std::vector<std::pair<double, double>>& points) {
    std::ostringstream text;
    text.precision(17);
    for (const auto& [x, y] : points)
        text << "10=" << x << " 20=" << y << ' ';
    return Entity("LWPOLYLINE", "8=WINDOW 210=0 220=-1 230=0 " + groups + " " + text.str());
}

std::string Old(const std::string& groups, const std::vector<Vector3>& points, const std::string& each = {}) {
    std::string text = Entity("POLYLINE", "8=WINDOW 66=1 " + groups);
    for (const Vector3& point : points)
        text += Entity("VERTEX", "8=WINDOW " + At(point) + each);
    return text + Entity("SEQEND", "8=WINDOW");
}

void ExpectAt(const DrawnWindow& window, const Vector3& lowerLeft, double width, double height, double within = 1e-9) {
    EXPECT_NEAR(window.lowerLeft.x, lowerLeft.x, within);
    EXPECT_NEAR(window.lowerLeft.y, lowerLeft.y, within);
    EXPECT_NEAR(window.lowerLeft.z, lowerLeft.z, within);
    EXPECT_NEAR(window.width, width, within);
    EXPECT_NEAR(window.height, height, within);
    EXPECT_NEAR(Length(window.right), 1.0, 1e-12);
    EXPECT_EQ(window.right.z, 0.0);
    EXPECT_FALSE(window.hasSide);
    EXPECT_FALSE(window.floor);
}

// The lesser x end, whichever side the window is seen from.
Vector3 LesserEnd(const DrawnWindow& window) {
    return window.right.x < 0.0 ? window.lowerLeft + window.right * window.width : window.lowerLeft;
}

void ExpectUsual(const std::string& entities, const char* why) {
    const WindowsOfDrawing found = WindowsIn(entities);
    ASSERT_EQ(found.windows.size(), 1U) << why;
    EXPECT_TRUE(found.remarks.empty()) << why;
    DrawnWindow window = found.windows[0];
    window.lowerLeft = LesserEnd(window);
    ExpectAt(window, {1000, 0, 900}, 1500, 1500);
    EXPECT_NEAR(std::fabs(window.right.x), 1.0, 1e-12) << why;
}

void ExpectNone(const std::string& entities, const std::string& why, std::uint64_t handle = 0) {
    const WindowsOfDrawing found = WindowsIn(entities);
    EXPECT_TRUE(found.windows.empty()) << why;
    ASSERT_EQ(CountOf(found, Kind::NotAWindow), 1U) << why;
    EXPECT_EQ(found.remarks[0].handle, handle) << why;
    EXPECT_EQ(CountOf(found, Kind::NoWindows), 1U) << why;
}

constexpr std::pair<double, double> kCorners[] = {{1000, 900}, {2500, 900}, {2500, 2400}, {1000, 2400}};
const std::vector<std::pair<double, double>> kFlat(std::begin(kCorners), std::end(kCorners));

std::vector<Vector3> InSpace(std::vector<std::pair<double, double>> flat) {
    std::vector<Vector3> points;
    for (const auto& [x, z] : flat)
        points.push_back({x, 0, z});
    return points;
}

}  // namespace

TEST(DrawnWindows, AreFacesAndClosedPolylines) {
    ExpectUsual(Window(""), "3DFACE");
    ExpectUsual(Flat("70=1", kFlat), "LWPOLYLINE");
    ExpectUsual(Flat("90=4 70=129 43=20 39=60", kFlat), "with a width, a thickness and linetype generation");
    ExpectUsual(Old("70=9 10=0 20=0 30=0", InSpace(kFlat)), "three-dimensional POLYLINE");
    std::vector<Vector3> inPlane;
    for (const auto& [x, y] : kFlat)
        inPlane.push_back({x, y, 77});
    ExpectUsual(Old("70=1 10=0 20=0 30=0 210=0 220=-1 230=0", inPlane), "POLYLINE; the vertices' own z does not count");
}

TEST(DrawnWindows, AreClosedWhenTheLastVertexLiesOnTheFirst) {
    std::vector<std::pair<double, double>> around = kFlat;
    around.push_back(kFlat[0]);
    ExpectUsual(Flat("", around), "not flagged");
    ExpectUsual(Flat("70=1", around), "flagged as well");
    ExpectUsual(Old("70=8", InSpace(around)), "POLYLINE");
    ExpectNone(Flat("5=AB", kFlat), "an open one is no window", 0xAB);
    ExpectNone(Old("70=8", InSpace(kFlat)), "an open one is no window");
}

TEST(DrawnWindows, HaveTheirElevationAlongTheExtrusion) {
    // In the plane x = 4000, seen from the west: the plane's x runs south.
    const WindowsOfDrawing found = WindowsIn(
        Entity("LWPOLYLINE",
               "8=WINDOW 70=1 38=-4000 210=-1 220=0 230=0 10=0 20=900 10=1500 20=900 10=1500 20=2400 10=0 20=2400"));
    ASSERT_EQ(found.windows.size(), 1U);
    const DrawnWindow& window = found.windows[0];
    EXPECT_NEAR(window.lowerLeft.x, 4000, 1e-9);
    EXPECT_NEAR(std::fabs(window.right.y), 1.0, 1e-12);
    EXPECT_NEAR(std::min(window.lowerLeft.y, window.lowerLeft.y + window.right.y * 1500), -1500, 1e-9);
    EXPECT_NEAR(window.lowerLeft.z, 900, 1e-9);
}

TEST(DrawnWindows, PassOverCornersAlongTheirSides) {
    ExpectUsual(Flat("70=1", {{1700, 900},
                              {2500, 900},
                              {2500, 1000},
                              {2500, 2400},
                              {2000, 2400},
                              {1000, 2400},
                              {1000, 1100},
                              {1000, 900}}),
                "begun within a side");
    ExpectUsual(Flat("70=1", {{1000, 900}, {1000, 900}, {2500, 900}, {2500, 2400}, {1000, 2400}}), "a corner twice");
}

TEST(DrawnWindows, PassOverTheFramePointsOfASpline) {
    std::string text = Entity("POLYLINE", "8=WINDOW 70=13");
    text += Entity("VERTEX", "8=WINDOW 70=48 10=77 20=7777 30=0");
    for (const Vector3& point : InSpace(kFlat))
        text += Entity("VERTEX", "8=WINDOW 70=40 " + At(point));
    ExpectUsual(text + Entity("SEQEND", ""), "whose curve is a rectangle");
}

TEST(DrawnWindows, RunEitherWay) {
    ExpectUsual(Flat("70=1", {kFlat.rbegin(), kFlat.rend()}), "clockwise");
    for (std::size_t i = 1; i < 4; ++i) {
        std::vector<std::pair<double, double>> turned = kFlat;
        std::rotate(turned.begin(), turned.begin() + static_cast<std::ptrdiff_t>(i), turned.end());
        ExpectUsual(Flat("70=1", turned), "from another corner");
    }
}

TEST(DrawnWindows, StandInAnyDirectionInPlanAndFarAway) {
    for (const double degrees : {0.0, 1e-7, 17.0, 45.0, 89.9999999, 90.0, 133.0, 180.0, 271.0}) {
        const Site site{degrees, {5.0e8, -4.3e8, 2.0e4}};
        const WindowsOfDrawing found = WindowsIn(Upright("8=WINDOW", site, 0, 0, 2400, 0, 900, 2400));
        ASSERT_EQ(found.windows.size(), 1U) << degrees;
        const DrawnWindow& window = found.windows[0];
        const Vector3 start = site(0, 0, 900);
        const Vector3 end = site(2400, 0, 900);
        const bool isFromStart = Length(window.lowerLeft - start) < 1e-6;
        EXPECT_LT(Length(window.lowerLeft - (isFromStart ? start : end)), 1e-6) << degrees;
        EXPECT_LT(Length(window.lowerLeft + window.right * window.width - (isFromStart ? end : start)), 1e-6);
        EXPECT_NEAR(window.height, 1500, 1e-6);
        EXPECT_NEAR(Dot(window.Outward(), window.right), 0.0, 1e-12);
    }
}

TEST(DrawnWindows, AreTakenInTheDrawingsUnit) {
    const WindowsOfDrawing found = WindowsIn(Upright("8=WINDOW", kHere, 1, 0, 2.5, 0, 0.9, 2.4), {}, {}, 1000.0);
    ASSERT_EQ(found.windows.size(), 1U);
    EXPECT_NEAR(found.windows[0].width, 1500, 1e-9);
    EXPECT_NEAR(found.windows[0].lowerLeft.z, 900, 1e-9);
}

TEST(DrawnWindows, AreRectanglesToWithinAMillimetre) {
    const auto isWindow = [](const std::vector<Vector3>& points) {
        return !WindowsIn(Old("70=9", points)).windows.empty();
    };
    const auto withCornerMoved = [](const Vector3& by) {
        std::vector<Vector3> points = InSpace(kFlat);
        points[2] = points[2] + by;
        return points;
    };
    EXPECT_TRUE(isWindow(withCornerMoved({0.9, 0, 0})));
    EXPECT_TRUE(isWindow(withCornerMoved({0, 0, -0.9})));
    EXPECT_TRUE(isWindow(withCornerMoved({0, 0.9, 0})));
    for (const Vector3& by :
         {Vector3{3, 0, 0}, Vector3{-3, 0, 0}, Vector3{0, 3, 0}, Vector3{0, 0, 3}, Vector3{0, 0, -3}})
        EXPECT_FALSE(isWindow(withCornerMoved(by))) << by.x << " " << by.y << " " << by.z;
}

TEST(DrawnWindows, AreNotWhatIsNoVerticalRectangle) {
    ExpectNone(Level("5=1F 8=WINDOW", kHere, 0, 0, 1500, 1500, 900), "level", 0x1F);
    ExpectNone(Face("8=WINDOW", {0, 0, 900}, {1500, 0, 900}, {1500, 700, 2400}, {0, 700, 2400}), "leaning");
    ExpectNone(Face("8=WINDOW", {0, 0, 900}, {1500, 0, 900}, {1500, 0, 2400}, {1500, 0, 2400}), "a triangle");
    ExpectNone(Face("8=WINDOW", {0, 0, 900}, {1500, 0, 2400}, {1500, 0, 900}, {0, 0, 2400}), "crossed");
    ExpectNone(Face("8=WINDOW", {0, 0, 900}, {1500, 0, 1900}, {1500, 0, 3400}, {0, 0, 2400}), "a parallelogram");
    ExpectNone(Face("8=WINDOW", {700, 0, 900}, {1400, 0, 1600}, {700, 0, 2300}, {0, 0, 1600}), "on a corner");
    ExpectNone(Entity("3DFACE", "8=WINDOW " + At(0, 0, 0) + At(1, 0, 0, 11) + At(0, 0, 1, 12)), "three corners");
    ExpectNone(Flat("70=1", {{0, 0}, {1500, 0}, {1500, 700}, {700, 700}, {700, 1500}, {0, 1500}}), "an L");
    ExpectNone(Flat("70=1", {{0, 0}, {1500, 0}, {1500, 1500}, {700, 800}, {0, 1500}}), "a notch in the lintel");
    ExpectNone(Flat("70=1", {{0, 0}, {1500, 0}}), "two corners");
    ExpectNone(Flat("70=1", {}), "none");
    ExpectNone(Flat("70=1", {{1000, 900}, {1700, 2400}, {2500, 900}, {2500, 2400}, {1000, 2400}}),
               "up to the lintel and back between the lower corners");
    std::vector<std::pair<double, double>> twice = kFlat;
    twice.insert(twice.end(), kFlat.begin(), kFlat.end());
    ExpectNone(Flat("70=1", twice), "around it twice");
    std::vector<std::pair<double, double>> circle;
    for (int i = 0; i < 200; ++i)
        circle.emplace_back(1000 * std::cos(i * 0.0314159), 1000 * std::sin(i * 0.0314159));
    ExpectNone(Flat("70=1", circle), "a circle");
}

TEST(DrawnWindows, HaveStraightSides) {
    const auto bulged = [](const std::string& bulge) {
        return Entity("LWPOLYLINE",
                      "8=WINDOW 70=1 210=0 220=-1 230=0 10=1000 20=900 10=2500 20=900 10=2500 20=2400 42=" + bulge +
                          " 10=1000 20=2400");
    };
    ExpectNone(bulged("0.4"), "an arch");
    ExpectNone(bulged("-0.01"), "a flat one, 7.5 mm high");
    ExpectUsual(bulged("0.001"), "0.75 mm high");
    // The bulge of the last vertex of one that is not closed leads nowhere.
    ExpectUsual(Flat("", {{1000, 900}, {2500, 900}, {2500, 2400}, {1000, 2400}, {1000, 900}}), "without");
    ExpectUsual(Entity("LWPOLYLINE",
                       "8=WINDOW 210=0 220=-1 230=0 10=1000 20=900 10=2500 20=900 10=2500 20=2400 10=1000 "
                       "20=2400 10=1000 20=900 42=1"),
                "with one behind the end");
}

TEST(DrawnWindows, AreNeitherTooWideNorTooSmall) {
    const auto sized = [](double width, double height) {
        return Upright("8=WINDOW", kHere, 0, 0, width, 0, 0, height);
    };
    EXPECT_EQ(WindowsIn(sized(999999, 1500)).windows.size(), 1U);
    EXPECT_EQ(WindowsIn(sized(1500, 2)).windows.size(), 1U);
    for (const auto& [width, height] : std::vector<std::pair<double, double>>{
             {1000001, 1500}, {1500, 1000001}, {1500, 0.5}, {0.5, 1500}, {0, 1500}, {1500, 0}, {0, 0}, {1e40, 1e40}})
        ExpectNone(sized(width, height), std::to_string(width) + " x " + std::to_string(height));
}

TEST(DrawnWindows, RefuseNumbersThatAreNone) {
    for (const char* number : {"nan", "inf", "-inf", "1e300", "1e51", "x", "", "0x10", "1,5"}) {
        ExpectNone(Entity("3DFACE", "8=WINDOW " + At(0, 0, 900) + At(1500, 0, 900, 11) + At(1500, 0, 2400, 12) +
                                        "13=0 23=0 33=" + number),
                   number);
        ExpectNone(Entity("LWPOLYLINE", "8=WINDOW 70=1 210=0 220=-1 230=0 10=0 20=0 10=9 20=0 10=9 20=9 10=0 20=" +
                                            std::string(number)),
                   number);
        ExpectNone(Entity("POLYLINE", "8=WINDOW 70=9") +
                       Entity("VERTEX", "8=WINDOW 10=0 20=0 30=" + std::string(number)) + Entity("SEQEND", "8=WINDOW"),
                   number);
    }
    ExpectNone(Entity("LWPOLYLINE", "8=WINDOW 90=2147483647 70=1 10=0 20=0"), "counts that are not what follows");
    ExpectNone(Entity("LWPOLYLINE", "8=WINDOW 70=1 210=0 220=0 230=0 10=0 20=0"), "an extrusion without a direction");
    ExpectNone(Entity("POLYLINE", "8=WINDOW 70=x"), "flags that are none");
    ExpectNone(Entity("POLYLINE", "8=WINDOW 70=9"), "no vertices");
    ExpectNone(Entity("3DFACE", "8=WINDOW"), "nothing at all");
    // So far away that their corners fall together.
    ExpectNone(Upright("8=WINDOW", {0, {1e49, 0, 0}}, 0, 0, 1500, 0, 900, 2400), "1e49");
}

TEST(DrawnWindows, AreNeitherMeshesNorBlocksNorMarks) {
    for (const char* kind :
         {"MESH", "SOLID", "TRACE", "INSERT", "REGION", "HATCH", "3DSOLID", "CIRCLE", "ELLIPSE", "ARC", "LINE"})
        ExpectNone(Entity(kind, "5=C0FFEE 8=WINDOW"), kind, 0xC0FFEE);
    ExpectNone(Old("70=64", {}), "polyface");
    for (const char* kind : {"TEXT", "MTEXT", "POINT", "DIMENSION", "LEADER", "ATTDEF"}) {
        const WindowsOfDrawing found = WindowsIn(Entity(kind, "8=WINDOW"));
        EXPECT_EQ(found.remarks.size(), 1U) << kind;
        EXPECT_EQ(CountOf(found, Kind::NoWindows), 1U) << kind;
    }
}

TEST(DrawnWindows, LieOnTheUsualLayersWhenNoneIsNamed) {
    EXPECT_EQ(WindowsIn(Window("")).windows.size(), 1U);
    EXPECT_EQ(WindowsIn(Upright("8=window", kHere, 0, 0, 9, 0, 0, 9)).windows.size(), 1U);
    EXPECT_EQ(WindowsIn(Upright("8=窗", kHere, 0, 0, 9, 0, 0, 9)).windows.size(), 1U);
    EXPECT_EQ(WindowsIn(Upright("8=\\U+7A97", kHere, 0, 0, 9, 0, 0, 9)).windows.size(), 1U);
    EXPECT_EQ(WindowsIn(Upright("8=WINDOWS", kHere, 0, 0, 9, 0, 0, 9)).windows.size(), 0U);
    EXPECT_EQ(WindowsIn(Upright("8=窗", kHere, 0, 0, 9, 0, 0, 9) + Window("")).windows.size(), 2U);
}

TEST(DrawnWindows, LieOnTheLayersThatAreNamed) {
    const std::string both = Window("") + Upright("8=Glass", kHere, 0, 0, 900, 0, 0, 900);
    const WindowsOfDrawing found = WindowsIn(both, {}, {L" gLASS "});
    ASSERT_EQ(found.windows.size(), 1U);
    EXPECT_NEAR(found.windows[0].width, 900.0, 1e-12);
    EXPECT_TRUE(found.remarks.empty());
    EXPECT_EQ(WindowsIn(both, {}, {L"glass", L"window"}).windows.size(), 2U);
}

TEST(DrawnWindows, TellWhichLayerThereIsNot) {
    const WindowsOfDrawing found = WindowsIn(Window(""), Layer("Empty", ""), {L"window", L"empty", L"nowhere"});
    ASSERT_EQ(found.remarks.size(), 1U);
    EXPECT_EQ(found.remarks[0].kind, Kind::LayerMissing);
    EXPECT_EQ(found.remarks[0].subject, L"nowhere");
    EXPECT_EQ(CountOf(WindowsIn(Window("")), Kind::LayerMissing), 0U) << "a usual one may be missing";
    const WindowsOfDrawing none = WindowsIn("");
    ASSERT_EQ(none.remarks.size(), 1U);
    EXPECT_EQ(none.remarks[0].kind, Kind::NoWindows);
}

TEST(DrawnWindows, AreNotOnLayersThatAreOffOrFrozen) {
    const std::string windows = Window("") + Window("") + Entity("LINE", "8=WINDOW") +
                                Upright("8=窗", kHere, 0, 0, 900, 0, 0, 900) + Old("70=9", InSpace(kFlat));
    for (const char* hidden : {"62=-7", "70=1"}) {
        const WindowsOfDrawing found = WindowsIn(windows, Layer("Window", hidden));
        EXPECT_EQ(found.windows.size(), 1U);
        ASSERT_EQ(found.remarks.size(), 1U);
        EXPECT_EQ(found.remarks[0].kind, Kind::LayerInvisible);
        EXPECT_EQ(found.remarks[0].subject, L"WINDOW");
        EXPECT_EQ(found.remarks[0].count, 4U) << "the line, too, and no vertices";
    }
    const WindowsOfDrawing all = WindowsIn(windows, Layer("WINDOW", "62=-7") + Layer("窗", "70=1"));
    EXPECT_EQ(CountOf(all, Kind::LayerInvisible), 2U);
    EXPECT_EQ(CountOf(all, Kind::NoWindows), 1U);
}

TEST(DrawnWindows, AreNotWhatIsInvisibleOrInPaperSpace) {
    for (const char* hidden : {"60=1", "67=1"}) {
        const WindowsOfDrawing found =
            WindowsIn(Window(hidden) + Level(std::string("8=WINDOW ") + hidden, kHere, 0, 0, 9, 9, 0));
        EXPECT_TRUE(found.windows.empty()) << hidden;
        EXPECT_EQ(found.remarks.size(), 1U) << "only that there are none";
    }
}

TEST(DrawnWindows, ComeInTheDrawingsOrderWithTheirHandles) {
    const WindowsOfDrawing found = WindowsIn(Window("5=B", 0) + Entity("POINT", "8=WINDOW 5=A") + Window("5=9", 5000) +
                                             Level("8=WINDOW 5=F", kHere, 0, 0, 9, 9, 0) + Window("", 9000));
    ASSERT_EQ(found.windows.size(), 3U);
    EXPECT_EQ(found.windows[0].handle, 0xBU);
    EXPECT_EQ(found.windows[1].handle, 0x9U);
    EXPECT_EQ(found.windows[2].handle, 0U);
    EXPECT_EQ(CountOf(found, Kind::NotAWindow), 1U);
}
