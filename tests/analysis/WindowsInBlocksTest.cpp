// Windows in blocks: where they come to stand, what they are called, and what is said of the others.
#include <algorithm>
#include <random>
#include <tuple>

#include "DrawingForWindows.h"
#include "analysis/WindowRectangle.h"
#include "scene/BlocksForTests.h"

namespace {

constexpr Site kHere;
using Kind = AnalysisRemark::Kind;
const std::string kLayers = Entity("LAYER", "2=OFF 62=-3") + Entity("LAYER", "2=FROZEN 70=1 62=3");

WindowsOfDrawing FindIn(const std::string& blocks, const std::string& entities, const std::vector<CString>& names = {},
                        const PlanRules& plan = {}) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities, kLayers));
    return FindWindows(drawing.database, names, 1.0, 200.0, plan);
}

// 1500 wide, 1200 high, its lower left corner at (x, y, z), to the east of it.
std::string Pane(const std::string& groups, double x = 0, double y = 0, double z = 0) {
    return Upright(groups, kHere, x, y, x + 1500, y, z, z + 1200);
}

std::string Label(const std::string& groups, double x, double y, double z) {
    return Entity("TEXT", groups + " " + At(x, y, z));
}

// The same windows, whichever end of each comes first.
void ExpectSame(std::vector<DrawnWindow> found, std::vector<DrawnWindow> expected, const std::string& why) {
    ASSERT_EQ(found.size(), expected.size()) << why;
    const auto middleIsBefore = [](const DrawnWindow& a, const DrawnWindow& b) {
        const Vector3 p = a.Middle(), q = b.Middle();
        const auto rounded = [](double value) { return std::llround(value * 100.0); };
        return std::tuple(rounded(p.x), rounded(p.y), rounded(p.z), rounded(a.width)) <
               std::tuple(rounded(q.x), rounded(q.y), rounded(q.z), rounded(b.width));
    };
    std::sort(found.begin(), found.end(), middleIsBefore);
    std::sort(expected.begin(), expected.end(), middleIsBefore);
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_LT(Length(found[i].Middle() - expected[i].Middle()), 1e-6) << why;
        EXPECT_NEAR(found[i].width, expected[i].width, 1e-6) << why;
        EXPECT_NEAR(found[i].height, expected[i].height, 1e-6) << why;
        EXPECT_NEAR(std::fabs(Dot(found[i].right, expected[i].right)), 1.0, 1e-9) << why;
    }
}

// The middle of the only window.
Vector3 MiddleIn(const std::string& blocks, const std::string& entities) {
    const WindowsOfDrawing found = FindIn(blocks, entities);
    EXPECT_EQ(found.windows.size(), 1U);
    EXPECT_TRUE(found.remarks.empty());
    return found.windows.empty() ? Vector3() : found.windows[0].Middle();
}

void ExpectAt(const Vector3& found, const Vector3& expected) {
    EXPECT_LT(Length(found - expected), 1e-6) << found.x << ", " << found.y << ", " << found.z;
}

std::string NamesIn(const WindowsOfDrawing& found) {
    std::string names;
    for (const DrawnWindow& window : found.windows)
        names += (names.empty() ? "" : " ") + ToUtf8(window.name.View());
    return names;
}

const AnalysisRemark* RemarkIn(const WindowsOfDrawing& found, Kind kind) {
    for (const AnalysisRemark& remark : found.remarks)
        if (remark.kind == kind)
            return &remark;
    return nullptr;
}

void ExpectMissed(const WindowsOfDrawing& found, std::uint64_t handle, const CString& block, std::size_t count,
                  const std::string& why) {
    ASSERT_EQ(CountOf(found, Kind::NotAWindow), 1U) << why;
    const AnalysisRemark& remark = *RemarkIn(found, Kind::NotAWindow);
    EXPECT_EQ(remark.handle, handle) << why;
    EXPECT_EQ(remark.subject, block) << why;
    EXPECT_EQ(remark.count, count) << why;
}

}  // namespace

TEST(WindowsInBlocks, StandWhereTheirBlockIsPut) {
    // The middle of the pane is (750, 0, 600).
    const std::string block = BlockText("A", Pane("8=WINDOW"), At(100, 10, 1));
    ExpectAt(MiddleIn(block, Insert("2=A " + At(1000, 2000, 300))), {1650, 1990, 899});
    ExpectAt(MiddleIn(block, Insert("2=A 50=90 " + At(1000, 2000, 300))), {1010, 2650, 899});
    ExpectAt(MiddleIn(block, Insert("2=A 41=-1 " + At(0, 0, 0))), {-650, -10, 599});
    ExpectAt(MiddleIn(block, Insert("2=A 41=2 42=3 43=0.5 " + At(0, 0, 0))), {1300, -30, 299.5});
    // Below, with x to the west.
    ExpectAt(MiddleIn(block, Insert("2=A 210=0 220=0 230=-1 " + At(0, 0, 0))), {-650, -10, -599});
}

TEST(WindowsInBlocks, StandWhereASceneShowsThem) {
    std::mt19937 random(16);
    const auto one = [&](const std::vector<std::string>& texts) { return texts[random() % texts.size()] + " "; };
    const auto insert = [&](const std::string& block) {
        std::uniform_int_distribution<int> number(-9000, 9000);
        const int x = number(random), y = number(random), z = number(random);
        return Insert("2=" + block + " " + one({"", "41=-1", "41=2 42=-2 43=2", "42=3", "43=-1"}) +
                      one({"", "50=17", "50=-90", "50=200.5"}) + one({"", "70=2 71=2 44=9000 45=-7000"}) +
                      one({"", "210=0 220=0 230=-1", "210=0 220=-1 230=0"}) + one({"8=0", "8=WINDOW"}) + At(x, y, z));
    };
    std::size_t count = 0;
    for (int i = 0; i < 200; ++i) {
        const std::string blocks = BlockText("A", Pane("8=WINDOW", 70, 30, 10) + Pane("8=0"), At(5, 6, 7)) +
                                   BlockText("B", insert("A") + Pane("8=X") + insert("A"), At(-3, 9, 1)) +
                                   BlockText("C", insert("B") + insert("A"));
        const OpenDrawing drawing(BlockDrawing(blocks, insert("C")));
        const Scene scene = BuildScene(drawing.database);
        std::vector<DrawnWindow> expected;
        for (const SceneEntity& entity : scene.entities)
            for (std::size_t k = 0; k < entity.faceCount && scene.layers[entity.layer] == "WINDOW"; ++k) {
                const QcGeFace3dEX& face = scene.faces[entity.firstFace + k];
                std::vector<Vector3> corners;
                for (int c = 0; c < face.GetPointNum(); ++c)
                    corners.push_back({face[c].x, face[c].y, face[c].z});
                if (std::optional<DrawnWindow> window = RectangleOf(corners))
                    expected.push_back(*std::move(window));
            }
        count += expected.size();
        ExpectSame(FindWindows(drawing.database, {}, 1.0, 200.0).windows, expected, std::to_string(i));
    }
    EXPECT_GT(count, 2000U);
}

TEST(WindowsInBlocks, HaveTheHandleOfTheOutermostInsert) {
    const std::string blocks = BlockText("A", Pane("5=A1 8=WINDOW")) + BlockText("B", Insert("5=B1 2=A 50=90"));
    const WindowsOfDrawing found = FindIn(blocks, Insert("5=C1 2=B") + Pane("5=C2 8=WINDOW") + Insert("5=C3 2=A"));
    ASSERT_EQ(found.windows.size(), 3U);
    EXPECT_EQ(found.windows[0].handle, 0xC1U);
    EXPECT_EQ(found.windows[1].handle, 0xC2U);
    EXPECT_EQ(found.windows[2].handle, 0xC3U);
    EXPECT_EQ(NamesIn(found), "C1 C2 C3");
    ExpectAt(found.windows[0].Middle(), {0, 750, 600});
}

TEST(WindowsInBlocks, StandInEachCopyOfAnArray) {
    const WindowsOfDrawing found =
        FindIn(BlockText("A", Pane("8=0")), Insert("5=C1 2=A 8=WINDOW 70=3 71=2 44=2000 45=5000 50=90"));
    ASSERT_EQ(found.windows.size(), 6U);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            ExpectAt(found.windows[static_cast<std::size_t>(3 * row + column)].Middle(),
                     {-5000.0 * row, 2000.0 * column + 750, 600});
}

TEST(WindowsInBlocks, AreDrawnAsOutsideOfBlocks) {
    const std::string flat = " 210=0 220=-1 230=0 10=0 20=0 10=1500 20=0 10=1500 20=1200 10=0 20=1200";
    const std::string old = Entity("POLYLINE", "8=WINDOW 70=9") + Entity("VERTEX", "8=WINDOW " + At(0, 0, 0)) +
                            Entity("VERTEX", "8=WINDOW " + At(1500, 0, 0)) +
                            Entity("VERTEX", "8=WINDOW " + At(1500, 0, 1200)) +
                            Entity("VERTEX", "8=WINDOW " + At(0, 0, 1200)) + Entity("SEQEND", "8=WINDOW");
    for (const std::string& pane : {Pane("8=WINDOW"), Entity("LWPOLYLINE", "8=WINDOW 70=1" + flat), old,
                                    Entity("LWPOLYLINE", "8=WINDOW" + flat + " 10=0 20=0"),
                                    Entity("LINE", "8=WINDOW 39=1200 " + At(0, 0, 0) + At(1500, 0, 0, 11)),
                                    Entity("LWPOLYLINE", "8=WINDOW 39=1200 10=0 20=0 10=1500 20=0")})
        ExpectAt(MiddleIn(BlockText("A", pane), Insert("2=A " + At(100, 0, 0))), {850, 0, 600});
}

TEST(WindowsInBlocks, AreJudgedWhereTheyStand) {
    // Drawn in metres: what is less than a unit apart is a window all the same once it is a thousand times as large.
    const std::string small = Upright("8=WINDOW", kHere, 0, 0, 0.9, 0, 0, 0.8) +
                              Entity("LWPOLYLINE",
                                     "8=WINDOW 70=1 210=0 220=-1 230=0 10=2 20=0 10=2.9 20=0 10=2.9 "
                                     "20=0.8 10=2 20=0.8");
    const std::string large = "2=A 41=1000 42=1000 43=1000";
    EXPECT_EQ(FindIn(BlockText("A", small), Insert(large)).windows.size(), 2U);
    EXPECT_EQ(FindIn(BlockText("A", small), Insert("2=A")).windows.size(), 0U);
    // An arc of 0.1 units is straight as it is drawn, and none a thousand times as large.
    const std::string arched = Entity("LWPOLYLINE",
                                      "8=WINDOW 70=1 210=0 220=-1 230=0 10=0 20=0 10=100 20=0 10=100 "
                                      "20=100 42=0.002 10=0 20=100");
    EXPECT_EQ(FindIn(BlockText("A", arched), Insert("2=A")).windows.size(), 1U);
    ExpectMissed(FindIn(BlockText("A", arched), Insert("5=C1 " + large)), 0xC1, L"A", 1, "arched");
    // A leaning one stands upright once it is turned, and the other way round.
    const std::string leaning = Face("8=WINDOW", {0, 0, 0}, {1500, 0, 0}, {1500, 1200, 0}, {0, 1200, 0});
    EXPECT_EQ(FindIn(BlockText("A", leaning), Insert("2=A 210=0 220=-1 230=0 " + At(0, 0, 0))).windows.size(), 1U);
    EXPECT_EQ(FindIn(BlockText("A", leaning), Insert("2=A")).windows.size(), 0U);
    EXPECT_EQ(FindIn(BlockText("A", Pane("8=WINDOW")), Insert("2=A 210=0 220=-1 230=0 " + At(0, 0, 0))).windows.size(),
              0U);
}

TEST(WindowsInBlocks, AreLinesWhoseThicknessIsScaledAndWhoseSillIsNot) {
    const std::string line = Entity("LINE", "8=WINDOW 39=1 " + At(0, 0, 0) + At(1.5, 0, 0, 11));
    const std::string bare = Entity("LINE", "8=WINDOW " + At(0, 0, 0) + At(1.5, 0, 0, 11));
    const std::string insert = Insert("2=A 41=1000 42=1000 43=1200 " + At(0, 0, 3000));
    PlanRules plan;
    plan.sill = 0.9;
    plan.windowHeight = 1.4;
    for (const auto& [drawn, height] : {std::pair(line, 1200.0), std::pair(bare, 1400.0)}) {
        const WindowsOfDrawing found = FindIn(BlockText("A", drawn), insert, {}, plan);
        ASSERT_EQ(found.windows.size(), 1U);
        EXPECT_NEAR(found.windows[0].lowerLeft.z, 3900, 1e-9);
        EXPECT_NEAR(found.windows[0].height, height, 1e-9);
        EXPECT_NEAR(found.windows[0].width, 1500, 1e-9);
    }
    const WindowsOfDrawing none = FindIn(BlockText("A", bare), insert + Insert("2=A 8=WINDOW 41=1000 42=1000"));
    EXPECT_TRUE(none.windows.empty());
    ASSERT_EQ(CountOf(none, Kind::LinesWithoutHeight), 1U);
    EXPECT_EQ(RemarkIn(none, Kind::LinesWithoutHeight)->count, 2U);
    EXPECT_EQ(CountOf(none, Kind::NotAWindow), 0U);
}

TEST(WindowsInBlocks, AreLinesInCopiesOfDifferentSizes) {
    // In the small copy the arc is as good as straight: both are windows there, one in the large copy.
    const std::string path = Entity("LWPOLYLINE", "8=WINDOW 39=1200 10=0 20=0 10=100 20=0 42=0.01 10=100 20=50");
    const WindowsOfDrawing found =
        FindIn(BlockText("A", path), Insert("5=C1 2=A") + Insert("5=C2 2=A 41=10 42=10") + Insert("5=C3 2=A") +
                                         Insert("5=C4 2=A 41=10 42=10"));
    EXPECT_EQ(NamesIn(found), "C1 C1 C2 C3 C3 C4");
    EXPECT_EQ(CountOf(found, Kind::NotAWindow), 2U) << "of the large copies";
}

TEST(WindowsInBlocks, LieOnTheLayerThatIsHandedDown) {
    const auto count = [](const std::string& pane, const std::string& inner, const std::string& outer) {
        return FindIn(BlockText("A", Pane(pane)) + BlockText("B", Insert("2=A " + inner)), Insert("2=B " + outer))
            .windows.size();
    };
    EXPECT_EQ(count("8=0", "8=WINDOW", "8=X"), 1U);
    EXPECT_EQ(count("8=0", "8=0", "8=WINDOW"), 1U);
    EXPECT_EQ(count("8=0", "8=X", "8=WINDOW"), 0U);
    EXPECT_EQ(count("8=X", "8=WINDOW", "8=WINDOW"), 0U);
    EXPECT_EQ(count("8=WINDOW", "8=X", "8=X"), 1U);
    EXPECT_EQ(count("8=WINDOW", "8=OFF", "8=OFF"), 1U) << "off hides only what lies on it";
    EXPECT_EQ(count("8=WINDOW", "8=FROZEN", "8=X"), 0U);
    EXPECT_EQ(count("8=WINDOW", "8=X", "8=FROZEN"), 0U);
    EXPECT_EQ(count("8=WINDOW 60=1", "8=X", "8=X"), 0U);
    EXPECT_EQ(count("8=WINDOW", "60=1", "8=X"), 0U);
    EXPECT_EQ(count("8=WINDOW", "8=X", "67=1"), 0U);
    EXPECT_EQ(FindIn(BlockText("A", Pane("8=0")), Insert("2=A 8=0"), {L"0"}).windows.size(), 1U);
}

TEST(WindowsInBlocks, AreWhatCastsNoShadow) {
    // Each pane is a window or casts a shadow, as far as it is seen.
    const std::vector<std::string> layers = {"0", "WINDOW", "X", "OFF", "FROZEN"};
    for (const std::string& pane : layers)
        for (const std::string& inner : layers)
            for (const std::string& outer : layers) {
                const OpenDrawing drawing(
                    BlockDrawing(BlockText("A", Pane("8=" + pane)) + BlockText("B", Insert("2=A 8=" + inner)),
                                 Insert("2=B 8=" + outer), kLayers));
                const Scene scene = BuildScene(drawing.database);
                const std::size_t shadows = MakeOccluders(scene, drawing.database, {}, 1.0).faces.size();
                const std::size_t windows = FindWindows(drawing.database, {}, 1.0, 200.0).windows.size();
                EXPECT_EQ(windows + shadows, scene.faces.size()) << pane << " " << inner << " " << outer;
            }
}

TEST(WindowsInBlocks, AreNamedByTextsInEachCopy) {
    const std::string block = BlockText("A", Pane("8=WINDOW") + Label("8=WINDOW 1=left", 100, 0, 100) +
                                                 Pane("8=WINDOW", 2000) + Label("8=X 1=no", 2100, 0, 100));
    EXPECT_EQ(NamesIn(FindIn(block, Insert("5=C1 2=A 50=30 41=-2 42=2 43=2 70=2 44=90000"))), "left C1 left C1");
    const std::string onLayer0 = BlockText("A", Pane("8=0") + Label("8=0 1=name", 100, 0, 100));
    EXPECT_EQ(NamesIn(FindIn(onLayer0, Insert("2=A 8=WINDOW"))), "name");
    EXPECT_EQ(NamesIn(FindIn(onLayer0 + BlockText("B", Label("8=WINDOW 1=other", 0, 0, 0)),
                             Insert("2=B " + At(200, 50, 200)) + Insert("2=A 8=WINDOW"))),
              "other")
        << "a text of another INSERT, drawn before it";
    EXPECT_EQ(NamesIn(FindIn(BlockText("A", Pane("8=WINDOW")),
                             Insert("2=A " + At(500, 0, 0)) + Label("8=WINDOW 1=outside", 600, 0, 100))),
              "outside");
}

TEST(WindowsInBlocks, AreNamedByAttributes) {
    const std::string block = BlockText("A", Pane("8=0") + Label("8=0 1=type", 100, 0, 100));
    const auto named = [&](const std::string& attribute, const std::string& insert) {
        return NamesIn(FindIn(
            block, Insert("5=C1 2=A 8=WINDOW 66=1 " + insert) + Entity("ATTRIB", attribute) + Entity("SEQEND", "")));
    };
    const std::string here = " " + At(1100, 0, 100);
    EXPECT_EQ(named("8=WINDOW 1=1-101-1 2=TAG" + here, At(1000, 0, 0)), "1-101-1");
    EXPECT_EQ(named("8=0 1=1-101-1 2=TAG" + here, At(1000, 0, 0)), "1-101-1") << "on the INSERT's layer";
    EXPECT_EQ(named("8=X 1=1-101-1 2=TAG" + here, At(1000, 0, 0)), "type");
    EXPECT_EQ(named("8=WINDOW 70=1 1=1-101-1" + here, At(1000, 0, 0)), "type") << "not shown";
    EXPECT_EQ(named("8=WINDOW 60=1 1=1-101-1" + here, At(1000, 0, 0)), "type");
    EXPECT_EQ(named("8=WINDOW 1=1-101-1 " + At(100, 0, 100), At(1000, 0, 0)), "type") << "it stands in the world";
    EXPECT_EQ(named("8=WINDOW 70=0 1=one 101=Embedded 1=two" + here, At(1000, 0, 0)), "one");
    EXPECT_EQ(named("8=WINDOW 1=1-101-1 74=2 11=1100 21=0 31=100 " + At(0, 9999, 0), At(1000, 0, 0)), "1-101-1")
        << "justified";
    EXPECT_EQ(named("8=WINDOW 1=1-101-1 73=2 11=1100 21=0 31=100 " + At(0, 9999, 0), At(1000, 0, 0)), "type")
        << "of an attribute, 73 is the length of its field";
}

TEST(WindowsInBlocks, AreNamedByAttributesOfInnerInserts) {
    // These stand in the coordinates of the block that the inner INSERT is in.
    const std::string house =
        BlockText("A", Pane("8=0")) +
        BlockText("HOUSE", Insert("2=A 8=WINDOW 66=1 " + At(1000, 0, 0)) +
                               Entity("ATTRIB", "8=0 1=first " + At(1100, 0, 100)) + Entity("SEQEND", "") +
                               Insert("2=A 8=WINDOW 66=1 " + At(5000, 0, 0)) +
                               Entity("ATTRIB", "8=WINDOW 1=second " + At(5100, 0, 100)) + Entity("SEQEND", ""));
    EXPECT_EQ(NamesIn(FindIn(house, Insert("2=HOUSE 50=90 " + At(70000, 0, 3000)))), "first second");
    const std::string onLayer0 =
        BlockText("A", Pane("8=0")) +
        BlockText("HOUSE",
                  Insert("2=A 66=1") + Entity("ATTRIB", "8=0 1=name " + At(100, 0, 100)) + Entity("SEQEND", ""));
    EXPECT_EQ(NamesIn(FindIn(onLayer0, Insert("2=HOUSE 8=WINDOW"))), "name");
    EXPECT_EQ(FindIn(onLayer0, Insert("2=HOUSE 8=X")).windows.size(), 0U);
}

TEST(WindowsInBlocks, AnInsertThatIsMeantForSomeAndGivesNoneIsTold) {
    const std::string nothing = BlockText("A", Entity("CIRCLE", "8=X 39=5 10=0 20=0 40=3"));
    ExpectMissed(FindIn(nothing, Insert("5=C1 2=A 8=WINDOW")), 0xC1, L"A", 1, "nothing on a layer of windows");
    ExpectMissed(FindIn(nothing, Insert("5=C1 2=A 8=WINDOW 70=9")), 0xC1, L"A", 1, "once for all copies");
    ExpectMissed(FindIn(nothing, Insert("5=C1 2=gone 8=WINDOW")), 0xC1, L"gone", 1, "no such block");
    ExpectMissed(FindIn(BlockText("A", Insert("2=A") + Pane("8=WINDOW")), Insert("5=C1 2=A 8=WINDOW")), 0xC1, L"A", 1,
                 "a circle");
    ExpectMissed(FindIn(nothing, Insert("5=C1 2=A 8=WINDOW 41=0")), 0xC1, L"", 1, "no scale");
    ExpectMissed(FindIn(BlockText("A", Label("8=0 1=text", 0, 0, 0)), Insert("5=C1 2=A 8=WINDOW")), 0xC1, L"A", 1,
                 "a text");
    for (const char* layer : {"X", "OFF", "FROZEN"})
        EXPECT_EQ(CountOf(FindIn(nothing, Insert("2=A 8=" + std::string(layer))), Kind::NotAWindow), 0U) << layer;
    EXPECT_EQ(CountOf(FindIn(BlockText("A", Pane("8=0") + Scalene("8=X")), Insert("2=A 8=WINDOW")), Kind::NotAWindow),
              0U);
}

TEST(WindowsInBlocks, WhatIsNoneInABlockIsToldOnceForEachInsert) {
    const std::string block = BlockText("A", Pane("8=WINDOW") + Scalene("8=WINDOW") + Scalene("8=0") +
                                                 Entity("SOLID", "8=WINDOW") + Entity("POINT", "8=WINDOW"));
    const WindowsOfDrawing found = FindIn(block, Insert("5=C1 2=A 8=X 70=2"));
    ExpectMissed(found, 0xC1, L"A", 4, "two copies of two");
    EXPECT_EQ(found.windows.size(), 2U);
    ExpectMissed(FindIn(block, Insert("5=C1 2=A 8=WINDOW")), 0xC1, L"A", 3, "with the one on layer 0");
    EXPECT_EQ(CountOf(FindIn(block, Insert("2=A") + Insert("2=A")), Kind::NotAWindow), 2U);
    ExpectMissed(FindIn(BlockText("A", "") + BlockText("B", Pane("8=WINDOW") + Insert("2=A 8=WINDOW") +
                                                                Insert("2=gone 8=WINDOW") + Insert("2=gone 8=X")),
                        Insert("5=C1 2=B")),
                 0xC1, L"B", 2, "INSERTs in it that are meant for windows");
    // Only one of two inserted windows keeps its right angles.
    ExpectMissed(FindIn(BlockText("A", Pane("8=WINDOW")) +
                            BlockText("B", Insert("2=A 50=30") + Insert("2=A 210=0 220=0.6 230=0.8 " + At(0, 0, 0))),
                        Insert("5=C1 2=B")),
                 0xC1, L"B", 1, "leaning");
}

TEST(WindowsInBlocks, OnLayersThatAreOffOrFrozenAreCounted) {
    const auto hidden = [](const std::string& blocks, const std::string& entities) {
        const WindowsOfDrawing found = FindIn(blocks, entities, {L"OFF", L"FROZEN"});
        EXPECT_TRUE(found.windows.empty());
        EXPECT_EQ(CountOf(found, Kind::NotAWindow), 0U);
        std::size_t count = 0;
        for (const AnalysisRemark& remark : found.remarks)
            count += remark.kind == Kind::LayerInvisible ? remark.count : 0;
        return count;
    };
    EXPECT_EQ(hidden(BlockText("A", Pane("8=OFF") + Pane("8=FROZEN") + Pane("8=X") + Entity("POINT", "8=OFF")),
                     Insert("2=A")),
              2U);
    EXPECT_EQ(hidden(BlockText("A", Pane("8=OFF")), Insert("2=A 70=3")), 3U) << "each copy";
    EXPECT_EQ(hidden(BlockText("A", Pane("8=0")), Insert("2=A 8=OFF")), 1U);
    EXPECT_EQ(hidden(BlockText("A", Pane("8=X")), Insert("2=A 8=OFF")), 1U) << "the INSERT itself";
    EXPECT_EQ(hidden(BlockText("A", Pane("8=OFF") + Pane("8=0")), Insert("2=A 8=FROZEN")), 1U) << "it hides all";
    EXPECT_EQ(hidden(BlockText("A", Pane("8=0")) + BlockText("B", Insert("2=A 8=FROZEN")), Insert("2=B")), 1U);
    EXPECT_EQ(hidden("", Insert("2=A 8=OFF")), 1U);
}

TEST(WindowsInBlocks, ShowThatTheirLayerIsThere) {
    const std::string block = BlockText("A", Pane("8=glass"));
    EXPECT_EQ(CountOf(FindIn(block, Insert("2=A"), {L"Glass", L"nowhere"}), Kind::LayerMissing), 1U);
}
