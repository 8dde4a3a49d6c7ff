// What the faces of blocks inherit: layers, whether they are seen, colours.
#include "BlocksForTests.h"

namespace {

const std::string kLayers = Entity("LAYER", "2=0 62=8") + Entity("LAYER", "2=RED 62=1 420=100") +
                            Entity("LAYER", "2=BLUE 62=5") + Entity("LAYER", "2=OFF 62=-3") +
                            Entity("LAYER", "2=FROZEN 70=1 62=3");

// Layer and colours of the one face of a drawing; empty when there is none.
std::string LookOf(const std::string& part, const std::string& insert, const std::string& nested = {}) {
    const std::string inner = BlockText("A", Scalene(part));
    const Scene scene =
        nested.empty() ? BlockScene(inner, Insert("2=A " + insert), kLayers)
                       : BlockScene(inner + BlockText("B", Insert("2=A " + nested)), Insert("2=B " + insert), kLayers);
    EXPECT_LE(scene.entities.size(), 1U);
    if (scene.entities.empty())
        return {};
    const SceneEntity& entity = scene.entities[0];
    return scene.layers[entity.layer] + " " + std::to_string(entity.colorIndex) + " " +
           std::to_string(entity.trueColor);
}

}  // namespace

TEST(BlockLooks, OnLayer0AreThoseOfTheInsertsLayer) {
    EXPECT_EQ(LookOf("8=0", "8=RED"), "RED 1 100");
    EXPECT_EQ(LookOf("", "8=BLUE"), "BLUE 5 -1");
    EXPECT_EQ(LookOf("8=0", "8=0"), "0 8 -1");
    EXPECT_EQ(LookOf("8=BLUE", "8=RED"), "BLUE 5 -1");
    EXPECT_EQ(LookOf("8=0 62=3", "8=RED 62=4"), "RED 3 -1") << "a colour of its own";
    EXPECT_EQ(LookOf("8=0", "8=RED 62=4"), "RED 1 100") << "the layer's colour, not the INSERT's";
}

TEST(BlockLooks, ByBlockAreThoseOfTheInsert) {
    EXPECT_EQ(LookOf("8=BLUE 62=0", "8=RED 62=4"), "BLUE 4 -1");
    EXPECT_EQ(LookOf("8=BLUE 62=0", "8=RED 62=4 420=77"), "BLUE 4 77");
    EXPECT_EQ(LookOf("8=BLUE 62=0 420=55", "8=RED 62=4 420=77"), "BLUE 4 55");
    EXPECT_EQ(LookOf("8=BLUE 62=0", "8=RED"), "BLUE 1 100") << "the INSERT's is its layer's";
    EXPECT_EQ(LookOf("8=BLUE 62=0", "8=RED 62=0"), "BLUE 7 -1") << "nobody gives it one";
}

TEST(BlockLooks, ComeThroughBlocksWithinBlocks) {
    EXPECT_EQ(LookOf("8=0 62=0", "8=RED 62=4", "8=0 62=0"), "RED 4 -1");
    EXPECT_EQ(LookOf("8=0 62=0", "8=RED 62=4", "8=BLUE 62=6"), "BLUE 6 -1");
    EXPECT_EQ(LookOf("8=0 62=0", "8=RED 62=4", "8=BLUE"), "BLUE 5 -1");
    EXPECT_EQ(LookOf("8=0", "8=RED", "8=0"), "RED 1 100");
}

TEST(BlockLooks, HideWhatLiesOnALayerThatIsOff) {
    EXPECT_EQ(LookOf("8=OFF", "8=RED"), "");
    EXPECT_EQ(LookOf("8=0", "8=OFF"), "") << "it lies on the INSERT's layer";
    EXPECT_EQ(LookOf("8=0", "8=RED", "8=OFF"), "");
    EXPECT_EQ(LookOf("8=RED", "8=OFF"), "RED 1 100") << "off hides only what lies on it";
    EXPECT_EQ(LookOf("8=RED", "8=RED", "8=OFF"), "RED 1 100");
}

TEST(BlockLooks, HideAllOfAnInsertOnAFrozenLayer) {
    EXPECT_EQ(LookOf("8=FROZEN", "8=RED"), "");
    EXPECT_EQ(LookOf("8=RED", "8=FROZEN"), "");
    EXPECT_EQ(LookOf("8=RED", "8=RED", "8=FROZEN"), "");
    EXPECT_EQ(LookOf("8=RED", "8=FROZEN", "8=0"), "");
}

TEST(BlockLooks, HideWhatIsInvisibleByItself) {
    EXPECT_EQ(LookOf("60=1", ""), "");
    EXPECT_EQ(LookOf("", "60=1"), "");
    EXPECT_EQ(LookOf("", "67=1"), "");
    EXPECT_EQ(LookOf("", "", "60=1"), "");
}
