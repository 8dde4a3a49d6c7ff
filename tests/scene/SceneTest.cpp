// Which entities are in a scene, in which colours, and what the scene says of them as a whole.
#include "scene/Scene.h"

#include "SceneForTests.h"

namespace {

std::string Layer(const std::string& name, const std::string& groups) {
    return Entity("LAYER", "2=" + name + " " + groups);
}

// The colours of the one entity of a drawing.
std::pair<int, int> ColorsOf(const std::string& groups, const std::string& layers = {}) {
    const Scene scene = SceneOf(Triangle(groups), layers);
    EXPECT_EQ(scene.entities.size(), 1U) << groups;
    return scene.entities.empty() ? std::pair(0, 0)
                                  : std::pair(scene.entities[0].colorIndex, scene.entities[0].trueColor);
}

using Colors = std::pair<int, int>;

// Everything that could be counted.
std::size_t CountOf(const Scene& scene) {
    return scene.entities.size() + OtherCount(scene) + scene.faultyCount + scene.faces.size();
}

}  // namespace

TEST(Scene, IsEmptyForAnEmptyDrawing) {
    const Scene none = BuildScene(AcDbDatabase());
    EXPECT_EQ(CountOf(none), 0U);
    const Scene scene = SceneOf("");
    EXPECT_EQ(CountOf(scene), 0U);
    EXPECT_EQ(scene.least, QcGePoint());
    EXPECT_EQ(scene.most, QcGePoint());
}

TEST(Scene, ListsEntitiesInTheDrawingsOrderWithTheirFaces) {
    const OpenDrawing drawing(DrawingWith(Triangle("5=A1") + Entity("LINE", "5=A2") +
                                          Entity("LWPOLYLINE", "5=A3 39=1 10=0 20=0 10=1 20=0 10=1 20=1") +
                                          Triangle("")));
    const Scene scene = BuildScene(drawing.database);
    ASSERT_EQ(scene.entities.size(), 3U);
    EXPECT_EQ(scene.entities[0].id, drawing.Handle(0xA1));
    EXPECT_EQ(scene.entities[1].id, drawing.Handle(0xA3));
    EXPECT_EQ(scene.entities[2].id, drawing.database.GetEntityId(3)) << "it has no handle";
    std::size_t next = 0;
    for (const SceneEntity& entity : scene.entities) {
        EXPECT_EQ(entity.firstFace, next);
        next += entity.faceCount;
    }
    EXPECT_EQ(scene.entities[1].faceCount, 2U);
    EXPECT_EQ(next, scene.faces.size());
    EXPECT_EQ(OtherCount(scene), 1U);
}

TEST(Scene, CountsKindsWithoutFacesOnceEach) {
    const Scene scene = SceneOf(Entity("LINE", "") + Entity("ATTDEF", "") + Entity("ATTRIB", "") +
                                Entity("SOMETHING", "") + Entity("POLYLINE", "70=0") + Entity("VERTEX", "10=0 20=0") +
                                Entity("SEQEND", "") + Entity(" LINE ", ""));
    EXPECT_EQ(scene.passedOver,
              (std::vector<KindCount>{{"LINE", 2}, {"ATTDEF", 1}, {"POLYLINE", 1}, {"SOMETHING", 1}}));
    EXPECT_EQ(scene.faultyCount, 0U);
    EXPECT_TRUE(scene.faces.empty());
}

TEST(Scene, CountsFaultyEntitiesAndGoesOn) {
    const Scene scene = SceneOf(Triangle("") + Entity("3DFACE", "") + Entity("MESH", "") + Triangle(""));
    EXPECT_EQ(scene.faultyCount, 2U);
    EXPECT_EQ(scene.entities.size(), 2U);
    EXPECT_EQ(scene.faces.size(), 2U);
}

TEST(Scene, KeepsNoFacesOfAFaultyEntity) {
    const std::string mesh = Entity("MESH",
                                    "100=AcDbSubDMesh 92=3 10=0 20=0 30=0 10=1 20=0 30=0 10=0 20=1 30=0 "
                                    "93=8 90=3 90=0 90=1 90=2 90=3 90=0 90=1 90=7");
    const Scene scene = SceneOf(mesh + Triangle(""));
    EXPECT_EQ(scene.faultyCount, 1U);
    ASSERT_EQ(scene.entities.size(), 1U);
    EXPECT_EQ(scene.entities[0].firstFace, 0U);
    EXPECT_EQ(scene.faces.size(), 1U);
}

TEST(Scene, PassesOverWhatIsInvisible) {
    for (const char* hidden : {"60=1", "67=1", "8=OFF", "8=frozen", "8=Frozen"}) {
        const Scene scene = SceneOf(Triangle(hidden) + Entity("LINE", hidden) + Entity("3DFACE", hidden) +
                                        Entity("POLYLINE", std::string(hidden) + " 70=64") + Entity("VERTEX", "70=x"),
                                    Layer("Off", "62=-3") + Layer("FROZEN", "70=1 62=3"));
        EXPECT_EQ(CountOf(scene), 0U) << hidden;
    }
}

// By how their names begin; an INSERT that lies on one hides all of its block, whatever layers that has.
TEST(Scene, SeesNothingOnLayersThatAreAskedAway) {
    const std::string block = Section(
        "BLOCKS", Entity("BLOCK", "2=B 10=0 20=0") + Triangle("8=WALL") + Triangle("8=Mark_2") + Entity("ENDBLK", ""));
    const OpenDrawing drawing(
        DrawingOf(block + Section("ENTITIES", Triangle("8=MARK 62=1") + Triangle("8=mark_faces 62=2") +
                                                  Triangle("8=REMARK 62=3") + Entity("LINE", "8=MARK") +
                                                  Entity("INSERT", "8=MARK 2=B 10=0 20=0") +
                                                  Entity("INSERT", "8=WALL 2=B 10=0 20=0"))));
    EXPECT_EQ(BuildScene(drawing.database).faces.size(), 7U);
    const Scene scene = BuildScene(drawing.database, {kMostSceneFaces, {}, L"Mark"});
    ASSERT_EQ(scene.entities.size(), 2U);
    EXPECT_EQ(scene.entities[0].colorIndex, 3);
    EXPECT_EQ(scene.entities[1].faceCount, 1U);
    EXPECT_TRUE(scene.passedOver.empty());
}

TEST(Scene, ShowsWhatIsNotInvisible) {
    for (const char* shown : {"60=0", "67=0", "8=locked", "8=later", "8=none", "60=x", ""})
        EXPECT_EQ(SceneOf(Triangle(shown), Layer("locked", "70=4 62=3") + Layer("later", "70=66 62=3")).faces.size(),
                  1U)
            << shown;
}

TEST(Scene, ComparesTheNamesOfLayersAsTexts) {
    // One name in two spellings: as it is, and with the number of its character.
    const std::string layers = Layer("\\U+5899", "62=-3");
    EXPECT_EQ(CountOf(SceneOf(Triangle("8=墙"), layers)), 0U);
    EXPECT_EQ(SceneOf(Triangle("8=墙体"), layers).faces.size(), 1U);
}

TEST(Scene, TakesTheFirstOfTwoLayersWithOneName) {
    EXPECT_EQ(ColorsOf("8=A", Layer("a", "62=3") + Layer("A", "62=4")), Colors(3, -1));
}

TEST(Scene, GivesAnEntityItsOwnColor) {
    const std::string layer = Layer("A", "62=3 420=255");
    EXPECT_EQ(ColorsOf("8=A 62=1", layer), Colors(1, -1));
    EXPECT_EQ(ColorsOf("8=A 62=255", layer), Colors(255, -1));
    EXPECT_EQ(ColorsOf("8=A 62=5 420=16711680", layer), Colors(5, 0xFF0000));
    EXPECT_EQ(ColorsOf("8=A 420=0", layer), Colors(3, 0));
}

TEST(Scene, GivesAnEntityItsLayersColor) {
    EXPECT_EQ(ColorsOf("8=A", Layer("A", "62=3")), Colors(3, -1));
    EXPECT_EQ(ColorsOf("8=A 62=256", Layer("A", "62=30 420=10506797")), Colors(30, 10506797));
    EXPECT_EQ(ColorsOf("", Layer("0", "62=140")), Colors(140, -1)) << "without a layer it lies on 0";
    for (const char* odd : {"62=257", "62=-5", "62=x", "62=2147483647"})
        EXPECT_EQ(ColorsOf("8=A " + std::string(odd), Layer("A", "62=3")), Colors(3, -1)) << odd;
}

TEST(Scene, GivesColorSevenWhereThereIsNone) {
    EXPECT_EQ(ColorsOf("8=A 62=0", Layer("A", "62=3 420=255")), Colors(7, -1)) << "by block";
    EXPECT_EQ(ColorsOf("8=B", Layer("A", "62=3")), Colors(7, -1)) << "no such layer";
    EXPECT_EQ(ColorsOf("8=A", Layer("A", "")), Colors(7, -1));
    for (const char* odd : {"62=0", "62=256", "62=999", "62=x"})
        EXPECT_EQ(ColorsOf("8=A", Layer("A", odd)), Colors(7, -1)) << odd;
    for (const char* odd : {"420=-1", "420=16777216", "420=x"})
        EXPECT_EQ(ColorsOf("8=A 62=2 " + std::string(odd), Layer("A", "62=3")), Colors(2, -1)) << odd;
}

TEST(Scene, BoxesAllFaces) {
    const Scene scene = SceneOf(Entity("3DFACE", At(5, -3, 2) + At(6, -3, 2, 11) + At(5, -2, 9, 12)) +
                                Entity("3DFACE", At(-1, 0, 3) + At(0, 0, 3, 11) + At(-1, 1, 4, 12)) +
                                Entity("LINE", At(-100, -100, -100)));
    EXPECT_EQ(scene.least, QcGePoint(-1, -3, 2));
    EXPECT_EQ(scene.most, QcGePoint(6, 1, 9));
}

TEST(Scene, HasTheNormalsReady) {
    const Scene scene =
        SceneOf(Triangle("") + Entity("LWPOLYLINE", "39=3 70=1 10=0 20=0 10=4 20=0 10=4 20=4 10=0 20=4"));
    ASSERT_EQ(scene.faces.size(), 7U);
    for (const QcGeFace3dEX& face : scene.faces) {
        ASSERT_TRUE(face.IsNormalReady());
        const Vector area = AreaVectorOf(face);
        EXPECT_NEAR(face.Normal().x * AreaOf(face), area[0], 1e-12);
        EXPECT_NEAR(face.Normal().y * AreaOf(face), area[1], 1e-12);
        EXPECT_NEAR(face.Normal().z * AreaOf(face), area[2], 1e-12);
        EXPECT_FALSE(face.IsMaterialReady());
    }
}

TEST(Scene, SeesWhatHasBeenChangedInTheDrawing) {
    OpenDrawing drawing(DrawingWith(Triangle("5=A1 62=1")));
    std::vector<DxfGroup> groups = drawing.Groups(drawing.Handle(0xA1));
    for (DxfGroup& group : groups)
        if (group.code == 62)
            group.value = "4";
    ASSERT_TRUE(drawing.database.SetGroups(drawing.Handle(0xA1), groups));
    const Scene scene = BuildScene(drawing.database);
    ASSERT_EQ(scene.entities.size(), 1U);
    EXPECT_EQ(scene.entities[0].colorIndex, 4);
}
