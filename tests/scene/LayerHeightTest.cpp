// Heights for the flat outlines of layers: which outlines become bodies, how high, and which way.
#include <numbers>

#include "BlocksForTests.h"

namespace {

// In a drawing in millimetres the bodies are 3000 high.
const SceneOptions kThreeMetres{kMostSceneFaces, {{L"A", 3.0}}};

Scene RaisedScene(const std::string& entities, const SceneOptions& options = kThreeMetres,
                  const std::string& layers = {}, int unit = 4) {
    const OpenDrawing drawing(DrawingWith(entities, layers, unit));
    return BuildScene(drawing.database, options);
}

// 4 by 3, from the origin on, clockwise.
std::string Corners(int count = 4) {
    const char* const corners[] = {"10=0 20=0 ", "10=0 20=3 ", "10=4 20=3 ", "10=4 20=0 ", "10=0 20=0 "};
    std::string text;
    for (int i = 0; i < count; ++i)
        text += corners[i];
    return text;
}

std::string Rectangle(const std::string& groups) {
    return Entity("LWPOLYLINE", "70=1 " + groups + " " + Corners());
}

std::string Polyline(const std::string& groups, const std::vector<std::string>& vertices) {
    std::string text = Entity("POLYLINE", groups);
    for (const std::string& vertex : vertices)
        text += Entity("VERTEX", vertex);
    return text + Entity("SEQEND", "");
}

std::vector<std::string> LevelCorners(double z) {
    return {At(0, 0, z), At(4, 0, z), At(4, 3, z), At(0, 3, z)};
}

void ExpectOneBody(const Scene& scene, double volume, double bottom, double top, const std::string& what) {
    SCOPED_TRACE(what);
    ASSERT_EQ(scene.entities.size(), 1U);
    EXPECT_EQ(scene.layers[scene.entities[0].layer], "A");
    EXPECT_EQ(OtherCount(scene), 0U);
    EXPECT_EQ(scene.faultyCount, 0U);
    EXPECT_EQ(scene.heights[0].bodyCount, 1U);
    ExpectBody(scene.faces, volume);
    EXPECT_NEAR(scene.least.z, bottom, 1e-9);
    EXPECT_NEAR(scene.most.z, top, 1e-9);
}

void ExpectNone(const std::string& entity, const char* why) {
    const Scene scene = RaisedScene(entity);
    EXPECT_TRUE(scene.faces.empty()) << why;
    EXPECT_EQ(OtherCount(scene), 1U) << why;
    EXPECT_EQ(scene.faultyCount, 0U) << why;
    EXPECT_EQ(scene.heights[0].bodyCount, 0U) << why;
}

}  // namespace

TEST(LayerHeights, MakeBodiesOfClosedOutlines) {
    const double volume = 12.0 * 3000.0;
    ExpectOneBody(RaisedScene(Rectangle("8=A 38=50")), volume, 50, 3050, "by its flag");
    ExpectOneBody(RaisedScene(Entity("LWPOLYLINE", "8=A " + Corners(5))), volume, 0, 3000, "by its last point");
    for (const char* flags : {"70=1", "70=5"})
        ExpectOneBody(RaisedScene(Polyline(std::string("8=A 30=50 ") + flags, LevelCorners(0))), volume, 50, 3050,
                      "two-dimensional");
    ExpectOneBody(RaisedScene(Polyline("8=A 70=9", LevelCorners(50))), volume, 50, 3050, "three-dimensional");
    std::vector<std::string> comingBack = LevelCorners(50);
    comingBack.push_back(comingBack.front());
    ExpectOneBody(RaisedScene(Polyline("8=A 70=8", comingBack)), volume, 50, 3050, "three-dimensional, last point");
    comingBack.insert(comingBack.begin(), At(900, 900, 900) + "70=16");
    ExpectOneBody(RaisedScene(Polyline("8=A 70=12", comingBack)), volume, 50, 3050, "a spline's frame does not count");
    const std::string solid = At(0, 0, 50) + At(4, 0, 50, 11) + At(0, 3, 50, 12) + At(4, 3, 50, 13);
    ExpectOneBody(RaisedScene(Entity("SOLID", "8=A " + solid)), volume, 50, 3050, "SOLID");
    ExpectOneBody(RaisedScene(Entity("TRACE", "8=A " + solid)), volume, 50, 3050, "TRACE");
    // A circle with the radius 10000 has 32 chords.
    const double circle = 0.5 * 32 * 1e8 * std::sin(2.0 * std::numbers::pi / 32);
    ExpectOneBody(RaisedScene(Entity("CIRCLE", "8=A 40=10000 " + At(5, 5, 50))), circle * 3000.0, 50, 3050, "CIRCLE");
}

TEST(LayerHeights, AreInMetresWhateverTheDrawingsUnit) {
    ExpectOneBody(RaisedScene(Rectangle("8=A"), kThreeMetres, {}, 6), 12.0 * 3.0, 0, 3, "metres");
    ExpectOneBody(RaisedScene(Rectangle("8=A"), kThreeMetres, {}, 5), 12.0 * 300.0, 0, 300, "centimetres");
    ExpectOneBody(RaisedScene(Rectangle("8=A"), kThreeMetres, {}, 0), 12.0 * 3000.0, 0, 3000, "none is millimetres");
}

TEST(LayerHeights, AreNothingToWhatIsOpen) {
    ExpectNone(Entity("LWPOLYLINE", "8=A " + Corners()), "open");
    ExpectNone(Entity("LWPOLYLINE", "8=A 70=1 10=5 20=5 10=5 20=5"), "closed, of one point");
    ExpectNone(Polyline("8=A", LevelCorners(0)), "open");
    ExpectNone(Polyline("8=A 70=8", LevelCorners(0)), "open in space");
    ExpectNone(Polyline("8=A 70=9", {At(0, 0, 0), At(4, 0, 0), At(4, 3, 1), At(0, 3, 1)}), "sloping");
    ExpectNone(Entity("LINE", "8=A " + At(0, 0, 0) + At(4, 0, 0, 11)), "LINE");
    ExpectNone(Entity("ARC", "8=A 40=2 50=0 51=360 " + At(0, 0, 0)), "ARC");
    ExpectNone(Entity("TEXT", "8=A " + At(0, 0, 0)), "TEXT");
    ExpectNone(Rectangle("8=B"), "another layer");
}

TEST(LayerHeights, LeaveWhatHasFacesOfItsOwn) {
    ExpectBody(RaisedScene(Rectangle("8=A 39=5")).faces, 12.0 * 5.0);
    const Scene down = RaisedScene(Rectangle("8=A 39=-5"));
    ExpectBody(down.faces, 12.0 * 5.0);
    EXPECT_EQ(down.least.z, -5.0);
    ExpectOneBody(RaisedScene(Rectangle("8=A 39=0")), 12.0 * 3000.0, 0, 3000, "no thickness");
    const Scene old = RaisedScene(Polyline("8=A 70=1 39=-5", LevelCorners(0)));
    ExpectBody(old.faces, 12.0 * 5.0);
    EXPECT_EQ(old.least.z, -5.0);
    const Scene triangle = RaisedScene(Triangle("8=A"));
    EXPECT_EQ(triangle.faces.size(), 1U);
    EXPECT_EQ(triangle.heights[0].bodyCount, 0U);
}

TEST(LayerHeights, FindTheirLayersAsEverywhere) {
    const Scene scene =
        RaisedScene(Rectangle("8=haus") + Rectangle("8=HAUS") + Rectangle("8=Hausdach") + Rectangle("8=0"),
                    {kMostSceneFaces, {{L" Haus ", 3.0}, {L"0", 1.0}}});
    ASSERT_EQ(scene.entities.size(), 3U);
    ExpectBody(FacesOf(scene, 0), 12.0 * 3000.0);
    ExpectBody(FacesOf(scene, 1), 12.0 * 3000.0);
    ExpectBody(FacesOf(scene, 2), 12.0 * 1000.0);
    EXPECT_EQ(scene.heights[0].bodyCount, 2U);
    EXPECT_EQ(scene.heights[1].bodyCount, 1U);
}

TEST(LayerHeights, GoUpwards) {
    // Seen from below the plane's axes are mirrored, and its height 7 lies at -7.
    ExpectOneBody(RaisedScene(Rectangle("8=A 38=7 210=0 220=0 230=-1")), 12.0 * 3000.0, -7, 2993, "from below");
    const Scene leaning = RaisedScene(Entity("CIRCLE", "8=A 40=0.001 10=0 20=0 210=0.6 220=0 230=-0.8"));
    EXPECT_NEAR(leaning.least.x, -0.6 * 3000, 0.01);
    EXPECT_NEAR(leaning.most.z, 0.8 * 3000, 0.01);
    EXPECT_GT(VolumeOf(leaning.faces), 0.0);
    for (const double side : {1.0, -1.0}) {
        const Scene upright = RaisedScene(Rectangle("8=A 220=0 230=0 210=" + std::to_string(side)));
        ExpectBody(upright.faces, 12.0 * 3000.0);
        EXPECT_NEAR(side > 0 ? upright.most.x : upright.least.x, side * 3000, 1e-9) << "along a level extrusion";
        EXPECT_NEAR(side > 0 ? upright.least.x : upright.most.x, 0, 1e-9);
    }
    EXPECT_NEAR(RaisedScene(Rectangle("8=A 210=1 220=0 230=-1e-12")).most.x, 3000, 1e-9) << "level but for rounding";
}

TEST(LayerHeights, TellWhatBecameOfThem) {
    const Scene scene =
        RaisedScene(Rectangle("8=A") + Rectangle("8=A") + Entity("LWPOLYLINE", "8=B " + Corners()) +
                        Entity("LINE", "8=B") + Entity("ARC", "8=B") + Rectangle("8=Off"),
                    {kMostSceneFaces, {{L"A", 1}, {L"B", 2}, {L"Table", 3}, {L"Nowhere", 4}, {L"off", 5}}},
                    Entity("LAYER", "2=Table") + Entity("LAYER", "2=Off 62=-3"));
    ASSERT_EQ(scene.heights.size(), 5U);
    const std::size_t bodies[] = {2, 0, 0, 0, 0};
    const std::size_t open[] = {0, 3, 0, 0, 0};
    const bool isThere[] = {true, true, true, false, true};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(scene.heights[i].bodyCount, bodies[i]) << i;
        EXPECT_EQ(scene.heights[i].openCount, open[i]) << i;
        EXPECT_EQ(scene.heights[i].isLayerThere, isThere[i]) << i;
    }
    EXPECT_EQ(scene.faces.size(), 12U) << "nothing of what is off";
}

TEST(LayerHeights, AreMissingWhereFlatOutlinesAreCounted) {
    const std::string entities = Rectangle("8=B") + Entity("CIRCLE", "8=B 40=2 10=0 20=0") + Rectangle("8=A") +
                                 Polyline("8=B 70=9", LevelCorners(2)) + Entity("LWPOLYLINE", "8=B " + Corners()) +
                                 Entity("SOLID", "8=B " + At(0, 0, 0) + At(4, 0, 0, 11) + At(0, 3, 0, 12)) +
                                 Polyline("8=B 70=9", {At(0, 0, 0), At(4, 0, 0), At(4, 3, 1)}) +
                                 Rectangle("8=B 210=0.6 220=0.8 230=0");
    EXPECT_EQ(RaisedScene(entities).flatOutlineCount, 3U);
    EXPECT_EQ(SceneOf(entities).flatOutlineCount, 4U);
    EXPECT_EQ(RaisedScene(entities, {kMostSceneFaces, {{L"A", 1}, {L"B", 1}}}).flatOutlineCount, 0U);
}

TEST(LayerHeights, FindFaultWithUnsoundOutlines) {
    for (const char* entity : {"LWPOLYLINE", "CIRCLE", "SOLID"}) {
        const std::string unsound = Entity(entity, "8=A 70=1 10=x 20=0 10=1 20=1 40=2");
        const Scene scene = RaisedScene(unsound);
        EXPECT_EQ(scene.faultyCount, 1U) << entity;
        EXPECT_EQ(OtherCount(scene), 0U) << entity;
        EXPECT_TRUE(scene.faces.empty()) << entity;
    }
    EXPECT_EQ(OtherCount(SceneOf(Entity("CIRCLE", "8=A 10=x 20=0 40=2"))), 1U) << "without a height nobody reads it";
    EXPECT_EQ(RaisedScene(Polyline("8=A 70=9", {At(0, 0, 0), "10=1", At(1, 1, 0)})).faultyCount, 1U);
    EXPECT_EQ(RaisedScene(Rectangle("8=A 38=1e25")).faultyCount, 1U) << "lost in the rounding";
    EXPECT_EQ(RaisedScene(Rectangle("8=A 38=1e50 210=1 220=1 230=1")).faces.size(), 0U);
}
