// Lines of flat entities: which there are, where they run, and how many there may be.
#include <numbers>

#include "BlocksForTests.h"

namespace {

Scene LineScene(const std::string& entities, const std::string& blocks = {}, const std::string& layers = {},
                std::size_t most = kMostSceneSegments, const std::vector<LayerHeight>& heights = {}) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities, layers));
    SceneOptions options;
    options.heights = heights;
    options.hasLines = true;
    options.mostSegments = most;
    return BuildScene(drawing.database, options);
}

using Ends = std::vector<std::array<double, 6>>;

void ExpectSegments(const Scene& scene, const Ends& expected) {
    ASSERT_EQ(scene.lines.segments.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto& [from, to] = scene.lines.segments[i];
        const std::array<double, 6> ends{from.x, from.y, from.z, to.x, to.y, to.z};
        for (std::size_t k = 0; k < ends.size(); ++k)
            EXPECT_NEAR(ends[k], expected[i][k], 1e-9) << "segment " << i << ", number " << k;
    }
}

const std::string kSquare = "90=4 10=0 20=0 10=2 20=0 10=2 20=2 10=0 20=2";
const std::string kLine = Entity("LINE", "10=1 20=2 30=3 11=4 21=5 31=6");

}  // namespace

TEST(SceneLines, AreMadeOnlyWhereTheyAreAskedFor) {
    const OpenDrawing drawing(BlockDrawing({}, kLine));
    EXPECT_TRUE(BuildScene(drawing.database).lines.segments.empty());
    EXPECT_EQ(LineScene(kLine).lines.segments.size(), 1U);
}

TEST(SceneLines, ComeOfLinesAndPolylines) {
    ExpectSegments(LineScene(kLine), {{1, 2, 3, 4, 5, 6}});
    ExpectSegments(LineScene(Entity("LWPOLYLINE", "38=7 90=3 10=0 20=0 10=2 20=0 10=2 20=2")),
                   {{0, 0, 7, 2, 0, 7}, {2, 0, 7, 2, 2, 7}});
    ExpectSegments(LineScene(Entity("LWPOLYLINE", "70=1 " + kSquare)),
                   {{0, 0, 0, 2, 0, 0}, {2, 0, 0, 2, 2, 0}, {2, 2, 0, 0, 2, 0}, {0, 2, 0, 0, 0, 0}});
    const std::string vertices = Entity("VERTEX", "10=0 20=0 30=0") + Entity("VERTEX", "10=3 20=0 30=1") +
                                 Entity("VERTEX", "10=3 20=4 30=2") + Entity("SEQEND", "");
    ExpectSegments(LineScene(Entity("POLYLINE", "66=1 70=9 10=0 20=0 30=0") + vertices),
                   {{0, 0, 0, 3, 0, 1}, {3, 0, 1, 3, 4, 2}, {3, 4, 2, 0, 0, 0}});
    ExpectSegments(LineScene(Entity("POLYLINE", "66=1 10=0 20=0 30=5") + vertices),
                   {{0, 0, 5, 3, 0, 5}, {3, 0, 5, 3, 4, 5}});
}

TEST(SceneLines, RunInTheEntitysPlane) {
    // The extrusion along -z turns x round.
    ExpectSegments(LineScene(Entity("LWPOLYLINE", "38=1 90=2 10=1 20=2 10=3 20=4 210=0 220=0 230=-1")),
                   {{-1, 2, -1, -3, 4, -1}});
}

// Every chord has its ends on the curve, and its middle close to it.
TEST(SceneLines, DivideCurvesFinelyEnoughWhateverTheirSize) {
    for (const double radius : {0.01, 5.0, 1e6}) {
        std::ostringstream groups;
        groups << "10=0 20=0 40=" << radius;
        for (const auto& [entity, turn] :
             {std::pair{Entity("CIRCLE", groups.str()), 2.0}, {Entity("ARC", groups.str() + " 50=0 51=90"), 0.5}}) {
            const Scene scene = LineScene(entity);
            double length = 0.0;
            for (const auto& [from, to] : scene.lines.segments) {
                EXPECT_NEAR(std::hypot(from.x, from.y), radius, 1e-9 * radius);
                EXPECT_GT(std::hypot((from.x + to.x) / 2, (from.y + to.y) / 2), 0.99 * radius);
                length += (to - from).Length();
            }
            EXPECT_NEAR(length, turn * std::numbers::pi * radius, 0.01 * radius);
        }
    }
}

TEST(SceneLines, ComeOfEllipsesAndSplines) {
    const Scene ellipse =
        LineScene(Entity("ELLIPSE", "10=1 20=0 30=0 11=4 21=0 31=0 40=0.5 41=0 42=6.283185307179586"));
    ASSERT_GT(ellipse.lines.segments.size(), 30U);
    for (const auto& [from, to] : ellipse.lines.segments)
        EXPECT_NEAR(std::pow((from.x - 1) / 4, 2) + std::pow(from.y / 2, 2), 1.0, 1e-9);
    const std::string control = "70=0 10=0 20=0 30=0 10=1 20=1 30=0 10=2 20=0 30=0 ";
    ExpectSegments(LineScene(Entity("SPLINE", control)), {{0, 0, 0, 1, 1, 0}, {1, 1, 0, 2, 0, 0}});
    ExpectSegments(LineScene(Entity("SPLINE", control + "11=5 21=6 31=7 11=8 21=9 31=1")), {{5, 6, 7, 8, 9, 1}});
}

TEST(SceneLines, DoNotRepeatWhatGivesFaces) {
    const Scene scene =
        LineScene(Entity("LWPOLYLINE", "39=3 70=1 " + kSquare) + Entity("LINE", "39=2 10=0 20=0 11=1 21=0"));
    EXPECT_FALSE(scene.faces.empty());
    EXPECT_TRUE(scene.lines.segments.empty());
    const std::string block = BlockText("B", Entity("LINE", "39=2 10=0 20=0 11=1 21=0"));
    const Scene inserted = LineScene(Insert("2=B 10=0 20=0"), block);
    EXPECT_EQ(inserted.faces.size(), 1U);
    EXPECT_TRUE(inserted.lines.segments.empty()) << "in a block, too";
    // With a height the closed one is a body; the open one stays a line.
    const Scene raised =
        LineScene(Entity("LWPOLYLINE", "8=A 70=1 " + kSquare) + Entity("LINE", "8=A 10=0 20=0 11=1 21=0"), {}, {},
                  kMostSceneSegments, {{L"A", 3.0}});
    EXPECT_EQ(raised.heights[0].bodyCount, 1U);
    ExpectSegments(raised, {{0, 0, 0, 1, 0, 0}});
    // In a block, too, also where it is the INSERT's layer that has the height.
    const std::string flat = BlockText("F", Entity("LWPOLYLINE", "8=0 70=1 " + kSquare));
    const Scene both = LineScene(Insert("2=F 8=A 10=0 20=0") + Insert("2=F 8=B 10=9 20=0"), flat, {},
                                 kMostSceneSegments, {{L"A", 3.0}});
    EXPECT_EQ(both.faces.size(), 6U);
    ASSERT_EQ(both.lines.segments.size(), 4U);
    EXPECT_EQ(both.lines.least.x, 9.0);
}

TEST(SceneLines, AreHiddenWithTheirLayer) {
    const std::string layers = Entity("LAYER", "2=OFF 70=0 62=-3") + Entity("LAYER", "2=ICE 70=1 62=3");
    const std::string line = "10=0 20=0 11=1 21=0";
    EXPECT_TRUE(LineScene(Entity("LINE", "8=OFF " + line) + Entity("LINE", "8=ICE " + line) +
                              Entity("LINE", "60=1 " + line) + Entity("LINE", "67=1 " + line),
                          {}, layers)
                    .lines.segments.empty());
    // In a block, too; there layer 0 is the INSERT's.
    const std::string block = BlockText("B", Entity("LINE", "8=OFF 10=7 20=0 11=8 21=0") + Entity("LINE", line));
    ExpectSegments(LineScene(Insert("2=B 10=5 20=0"), block, layers), {{5, 0, 0, 6, 0, 0}});
    EXPECT_TRUE(LineScene(Insert("2=B 8=OFF") + Insert("2=B 8=ICE"), block, layers).lines.segments.empty());
}

TEST(SceneLines, LookAsTheDrawingSays) {
    const std::string layers = Entity("LAYER", "2=RED 70=0 62=1") + Entity("LAYER", "2=BLUE 70=0 62=5");
    const std::string block =
        BlockText("B", Entity("LINE", "8=BLUE 10=0 20=0 11=1 21=0") + Entity("LINE", "8=0 62=0 10=0 20=0 11=1 21=0") +
                           Entity("LINE", "8=0 10=0 20=0 11=1 21=0"));
    const Scene scene =
        LineScene(Entity("LINE", "8=RED 10=0 20=0 11=1 21=0") +
                      Entity("LINE", "8=RED 62=3 420=255 10=0 20=0 11=1 21=0") + Insert("2=B 8=RED 62=4"),
                  block, layers);
    ASSERT_EQ(scene.lines.runs.size(), 5U);
    const auto expect = [&](std::size_t run, const std::string& layer, int color, int trueColor) {
        const SceneLineRun& each = scene.lines.runs[run];
        EXPECT_EQ(scene.layers[each.layer], layer) << run;
        EXPECT_EQ(each.colorIndex, color) << run;
        EXPECT_EQ(each.trueColor, trueColor) << run;
        EXPECT_EQ(each.first, run);
        EXPECT_EQ(each.count, 1U);
    };
    expect(0, "RED", 1, -1);
    expect(1, "RED", 3, 255);
    expect(2, "BLUE", 5, -1);
    expect(3, "RED", 4, -1);
    expect(4, "RED", 1, -1);
    EXPECT_EQ(scene.lines.runs[2].id, scene.lines.runs[4].id) << "the INSERT's";
    ASSERT_EQ(scene.looks.size(), scene.layers.size());
    for (std::size_t i = 0; i < scene.layers.size(); ++i)
        EXPECT_EQ(scene.looks[i].colorIndex, scene.layers[i] == "RED" ? 1 : scene.layers[i] == "BLUE" ? 5 : 7);
}

TEST(SceneLines, StandWhereTheirBlockIsPut) {
    const std::string block = BlockText("B", Entity("LINE", "10=0 20=0 11=1 21=0"), "10=0 20=0");
    ExpectSegments(LineScene(Insert("2=B 10=10 20=0 41=2 42=2 50=90"), block), {{10, 0, 0, 10, 2, 0}});
    ExpectSegments(LineScene(Insert("2=B 10=0 20=0 70=2 44=5"), block), {{0, 0, 0, 1, 0, 0}, {5, 0, 0, 6, 0, 0}});
    const std::string outer = block + BlockText("C", Insert("2=B 10=0 20=1"));
    ExpectSegments(LineScene(Insert("2=C 10=0 20=10"), outer), {{0, 11, 0, 1, 11, 0}});
    // What shows lines only is still told of, as a kind without faces.
    EXPECT_EQ(OtherCount(LineScene(Insert("2=B 10=0 20=0"), block)), 2U);
}

TEST(SceneLines, AreBoundedAndTheRestCounted) {
    const std::string block = BlockText("B", Entity("LINE", "10=0 20=0 11=1 21=0"));
    const Scene scene = LineScene(kLine + Insert("2=B 70=30000 71=30000 44=1 45=1") + kLine, block, {}, 10);
    EXPECT_EQ(scene.lines.segments.size(), 2U) << "what comes behind the array is there";
    EXPECT_EQ(scene.lines.leftOutCount, 1U);
    EXPECT_EQ(LineScene(kLine + kLine, {}, {}, 1).lines.leftOutCount, 1U);
    // An array of nothing costs nothing, and is not said to be left out.
    const std::string empty =
        BlockText("A", Entity("POINT", "10=0 20=0")) + BlockText("C", Insert("2=A") + Insert("2=A"));
    const Scene none = LineScene(Insert("2=C 70=30000 71=30000 44=1 45=1"), empty, {}, 10);
    EXPECT_EQ(none.lines.leftOutCount, 0U);
    EXPECT_TRUE(none.lines.segments.empty());
}

TEST(SceneLines, OfUnsoundDataAreNone) {
    for (const char* groups : {"10=a 20=0 11=1 21=0", "10=0 20=0", "10=1e60 20=0 11=1 21=0"})
        EXPECT_TRUE(LineScene(Entity("LINE", groups)).lines.segments.empty()) << groups;
    EXPECT_TRUE(LineScene(Entity("LWPOLYLINE", "90=9 10=0 20=0 10=1 20=0")).lines.segments.empty());
    EXPECT_TRUE(LineScene(Entity("CIRCLE", "10=0 20=0 40=0")).lines.segments.empty());
    EXPECT_TRUE(LineScene(Entity("SPLINE", "20=1 10=0 20=0")).lines.segments.empty());
    EXPECT_TRUE(LineScene(Entity("ELLIPSE", "10=0 20=0 11=1e40 21=0 40=1e40")).lines.segments.empty());
    // Placed beyond all coordinates.
    const std::string block = BlockText("B", Entity("LINE", "10=0 20=0 11=1e30 21=0"));
    EXPECT_TRUE(LineScene(Insert("2=B 41=1e30"), block).lines.segments.empty());
}

TEST(SceneLines, HaveABoxOfTheirOwn) {
    const Scene scene = LineScene(kLine + Triangle("8=0"));
    EXPECT_TRUE(scene.lines.least == QcGePoint(1, 2, 3));
    EXPECT_TRUE(scene.lines.most == QcGePoint(4, 5, 6));
    EXPECT_TRUE(scene.most == QcGePoint(1, 1, 0)) << "that of the faces is theirs alone";
}
