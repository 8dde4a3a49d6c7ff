// Heights of layers where outlines stand in blocks: which layer counts, and that METRES are metres in the world.
#include <numbers>

#include "BlocksForTests.h"

namespace {

const std::string kCorners = " 70=1 10=0 20=0 10=4 20=0 10=4 20=3 10=0 20=3";
const std::string kFlat = Entity("LWPOLYLINE", "8=0" + kCorners);
const std::string kSolid = Entity("SOLID", "8=0 " + At(0, 0, 0) + At(4, 0, 0, 11) + At(0, 3, 0, 12) + At(4, 3, 0, 13));
constexpr double kVolume = 12.0 * 3000.0;

Scene RaisedScene(const std::string& blocks, const std::string& entities, std::size_t mostFaces = kMostSceneFaces,
                  const std::string& layers = {}) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities, layers));
    return BuildScene(drawing.database, {mostFaces, {{L"A", 3.0}, {L"B", 6.0}}});
}

std::vector<KindCount> Kinds(const std::string& type, std::size_t count) {
    return {{type, count}};
}

}  // namespace

TEST(LayerHeightsInBlocks, AreThoseOfTheLayerAsInserted) {
    const std::string blocks = BlockText("Zero", kFlat) + BlockText("Own", Entity("LWPOLYLINE", "8=b" + kCorners)) +
                               BlockText("Nested", Insert("8=0 2=Zero") + Insert("8=B 2=Zero 10=100 20=0"));
    const Scene scene = RaisedScene(blocks, Insert("8=A 2=Zero") + Insert("8=B 2=Zero") + Insert("8=C 2=Zero") +
                                                Insert("8=A 2=Own") + Insert("8=C 2=Own") + Insert("8=A 2=Nested"));
    const double volumes[] = {1, 2, 2, 2, 1, 2};  // times 3 m
    ASSERT_EQ(scene.entities.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i)
        ExpectBody(FacesOf(scene, i), volumes[i] * kVolume);
    EXPECT_EQ(scene.entities[4].id, scene.entities[5].id) << "two runs of one INSERT";
    EXPECT_EQ(scene.passedOver, Kinds("INSERT", 1)) << "the one on C";
}

TEST(LayerHeightsInBlocks, AreInTheWorldWhateverTheScale) {
    struct Case {
        const char* insert;
        double area;
        double bottom;
    };
    for (const Case& each :
         {Case{"41=2 42=5 43=0.001", 120, 50}, Case{"43=-4", 12, 50}, Case{"41=-1", 12, 50},
          Case{"41=-2 42=-2 43=-2", 48, 50}, Case{"43=1e-40", 12, 50}, Case{"50=30 210=0 220=0 230=-1", 12, -50},
          Case{"41=-1 43=7 210=0 220=0 230=-1", 12, -50}}) {
        SCOPED_TRACE(each.insert);
        const Scene scene =
            RaisedScene(BlockText("F", kFlat), Insert("8=A 2=F 10=1 20=2 30=50 " + std::string(each.insert)));
        ExpectBody(scene.faces, each.area * 3000.0);
        EXPECT_NEAR(scene.least.z, each.bottom, 1e-9);
        EXPECT_NEAR(scene.most.z, each.bottom + 3000, 1e-9);
    }
}

TEST(LayerHeightsInBlocks, AreInTheWorldThroughNesting) {
    const std::string down = Entity("LWPOLYLINE", "8=0 210=0 220=0 230=-1" + kCorners);
    const std::string blocks = BlockText("F", down) + BlockText("G", Insert("8=0 2=F 10=0 20=0 43=-3 41=2"));
    const Scene scene = RaisedScene(blocks, Insert("8=A 2=G 10=0 20=0 42=-5 43=0.5"));
    ExpectBody(scene.faces, 10.0 * kVolume);
    EXPECT_NEAR(scene.least.z, 0, 1e-9);
    EXPECT_NEAR(scene.most.z, 3000, 1e-9);
}

TEST(LayerHeightsInBlocks, StandUprightFarFromTheOrigin) {
    const Scene scene = RaisedScene(BlockText("F", kFlat), Insert("8=A 2=F 10=5e8 20=4e9"));
    EXPECT_EQ(scene.least, QcGePoint(5e8, 4e9, 0));
    EXPECT_EQ(scene.most, QcGePoint(5e8 + 4, 4e9 + 3, 3000));
}

TEST(LayerHeightsInBlocks, HaveTheChordsOfTheirSize) {
    // With the radius 10000 a circle has 32 chords, with 100 it has the least number, 8.
    const std::string block = BlockText("F", Entity("CIRCLE", "8=0 40=100 " + At(0, 0, 0)));
    const auto volume = [](double radius, int sides) {
        return 0.5 * sides * radius * radius * std::sin(2.0 * std::numbers::pi / sides) * 3000.0;
    };
    const Scene scene = RaisedScene(block, Insert("8=A 2=F") + Insert("8=A 2=F 41=100 42=100") + Insert("8=A 2=F"));
    ASSERT_EQ(scene.entities.size(), 3U);
    ExpectBody(FacesOf(scene, 0), volume(100, 8));
    ExpectBody(FacesOf(scene, 1), volume(10000, 32));
}

TEST(LayerHeightsInBlocks, TakeTheFaceOfASolidOnlyWhereTheyRaiseIt) {
    const Scene scene = RaisedScene(BlockText("S", kSolid), Insert("8=A 2=S") + Insert("8=C 2=S") + Insert("8=B 2=S"));
    ASSERT_EQ(scene.entities.size(), 3U);
    ExpectBody(FacesOf(scene, 0), kVolume);
    EXPECT_EQ(scene.entities[1].faceCount, 1U);
    ExpectBody(FacesOf(scene, 2), 2.0 * kVolume);
    EXPECT_EQ(OtherCount(scene), 0U);
}

TEST(LayerHeightsInBlocks, CountEachOutlineOnce) {
    const std::string open =
        Entity("LWPOLYLINE", "8=0 10=0 20=0 10=4 20=0") + Entity("ARC", "8=0") + Entity("LINE", "8=B");
    const std::string blocks = BlockText("F", kFlat + open) + BlockText("G", Insert("8=0 2=F"));
    const Scene raised = RaisedScene(blocks, Insert("8=A 2=F 70=3") + Insert("8=A 2=F") + Insert("8=A 2=G"));
    EXPECT_EQ(raised.heights[0].bodyCount, 1U);
    EXPECT_EQ(raised.heights[0].openCount, 2U);
    EXPECT_EQ(raised.heights[1].bodyCount, 0U);
    EXPECT_EQ(raised.heights[1].openCount, 1U);
    EXPECT_EQ(raised.flatOutlineCount, 0U);
    EXPECT_EQ(raised.passedOver, (std::vector<KindCount>{{"ARC", 1}, {"LINE", 1}, {"LWPOLYLINE", 1}}))
        << "the open ones";

    const Scene flat =
        RaisedScene(BlockText("F", kFlat) + BlockText("G", Insert("8=0 2=F")), Insert("8=C 2=G") + Insert("8=C 2=F"));
    EXPECT_EQ(flat.passedOver, (std::vector<KindCount>{{"INSERT", 3}, {"LWPOLYLINE", 1}}));
    EXPECT_EQ(flat.flatOutlineCount, 1U);
    EXPECT_EQ(flat.heights[0].bodyCount, 0U);
    const std::string upright = Entity("LWPOLYLINE", "8=0 210=1 220=0 230=0" + kCorners);
    EXPECT_EQ(RaisedScene(BlockText("F", upright), Insert("8=C 2=F")).flatOutlineCount, 0U);
    const Scene both =
        RaisedScene(BlockText("F", kFlat) + BlockText("G", Insert("8=0 2=F")), Insert("8=A 2=G") + Insert("8=C 2=G"));
    EXPECT_EQ(both.passedOver, Kinds("INSERT", 1)) << "the one on C, and not the one in G";
    EXPECT_EQ(both.flatOutlineCount, 0U);
    EXPECT_EQ(BlockScene(BlockText("F", kFlat), Insert("2=F") + Insert("2=F")).flatOutlineCount, 1U);
}

TEST(LayerHeightsInBlocks, RaiseNothingOnALayerThatIsOff) {
    const Scene scene =
        RaisedScene(BlockText("F", kFlat + kSolid), Insert("8=A 2=F"), kMostSceneFaces, Entity("LAYER", "2=A 62=-1"));
    EXPECT_TRUE(scene.faces.empty());
    EXPECT_EQ(scene.heights[0].bodyCount, 0U);
}

TEST(LayerHeightsInBlocks, KeepToTheLimits) {
    const std::string array = "70=1000000000 71=1000000000 44=10 45=10 2=F";
    for (const std::string& outline : {kFlat, Entity("LWPOLYLINE", "8=A" + kCorners)}) {
        const Scene scene = RaisedScene(BlockText("F", outline), Insert("8=A " + array) + Insert("8=A 2=F"), 12);
        EXPECT_EQ(scene.tooLarge.size(), 1U);
        EXPECT_EQ(scene.faces.size(), 6U);
    }
    const Scene none = RaisedScene(BlockText("F", kFlat), Insert("8=C " + array) + Insert("8=A 70=2 2=F"), 12);
    EXPECT_TRUE(none.tooLarge.empty()) << "copies of what is not raised are nothing";
    EXPECT_EQ(none.faces.size(), 12U);
    EXPECT_EQ(none.passedOver, Kinds("INSERT", 1));
    EXPECT_EQ(RaisedScene(BlockText("F", kSolid), Insert("8=A 70=2 2=F") + Insert("8=C 70=12 2=F"), 12).tooLarge.size(),
              1U)
        << "12 faces as bodies, and 12 as they are";
    EXPECT_EQ(RaisedScene(BlockText("F", kSolid), Insert("8=A 70=2 2=F"), 12).faces.size(), 12U)
        << "no face beside them";
    const std::string nested = BlockText("F", kFlat) + BlockText("G", Insert("8=0 70=100 2=F"));
    EXPECT_EQ(RaisedScene(nested, Insert("8=A 2=G"), 599).tooLarge.size(), 1U);
    EXPECT_EQ(RaisedScene(nested, Insert("8=A 2=G"), 600).faces.size(), 600U);
}

TEST(LayerHeightsInBlocks, FindFaultWithWhatComesOutTooFarAway) {
    const Scene scene = RaisedScene(BlockText("F", kFlat), Insert("8=A 2=F 10=1e50 20=0 41=1e50") + Insert("8=A 2=F"));
    EXPECT_EQ(scene.faultyCount, 1U);
    EXPECT_EQ(scene.faces.size(), 6U);
    const Scene unsound = RaisedScene(BlockText("F", Entity("CIRCLE", "8=A 10=x 20=0 40=1") + kSolid), Insert("2=F"));
    EXPECT_EQ(unsound.faultyCount, 1U);
    EXPECT_EQ(unsound.faces.size(), 1U);
    // Walls six metres high and a thousandth of a thousandth wide have no area.
    const std::string thread = Entity("LWPOLYLINE", "8=B 70=1 10=0 20=0 10=1.5e-6 20=0");
    EXPECT_EQ(RaisedScene("", thread).faultyCount, 1U);
    EXPECT_EQ(RaisedScene(BlockText("F", thread), Insert("2=F") + Insert("2=F")).faultyCount, 1U);
}

TEST(LayerHeightsInBlocks, MayComeToAnyValue) {
    const std::vector<std::string> lines = LinesOf(
        BlockText("F", Entity("LWPOLYLINE", "8=0 38=2 42=1 210=0 220=0.1 230=1" + kCorners) + kSolid +
                           Entity("CIRCLE", "8=B 40=900 " + At(1, 2, 3)) + Entity("POLYLINE", "8=0 70=9") +
                           Entity("VERTEX", At(0, 0, 1)) + Entity("VERTEX", At(3, 0, 1)) +
                           Entity("VERTEX", At(0, 4, 1)) + Entity("SEQEND", "")) +
        Entity("BLOCK", "2=G") + Entity("INSERT", "8=0 2=F 41=-1 42=2 43=3 44=5 45=6 50=7 70=2 71=2 " + At(0, 0, 0)));
    for (const char* value : {"", "x", "-1", "0", "1e50", "-1e50", "nan", "2147483647", "1e-320", "7", "A", "B", "F"})
        for (std::size_t i = 3; i < lines.size(); i += 2) {
            if (lines[i - 1] == "0")
                continue;
            std::string blocks;
            for (std::size_t k = 0; k < lines.size(); ++k)
                blocks += (k == i ? value : lines[k]) + "\n";
            const Scene scene = RaisedScene(blocks + Entity("ENDBLK", ""), Insert("8=A 2=G") + Scalene(), 1000);
            ExpectSound(scene);
            EXPECT_GE(scene.faces.size(), 1U);
            EXPECT_LE(scene.faces.size(), 1001U);
        }
}
