// Blocks that nobody drew: without end, without name, and more of them than anybody can hold.
#include "BlocksForTests.h"

namespace {

// What stands there for one INSERT that is faulty beside a sound face.
void ExpectFaultyInsert(const std::string& blocks, const std::string& insert) {
    const Scene scene = BlockScene(blocks, Entity("INSERT", insert) + Scalene());
    EXPECT_EQ(scene.faultyCount, 1U) << insert;
    EXPECT_EQ(scene.faces.size(), 1U) << insert;
    EXPECT_EQ(OtherCount(scene), 0U) << insert;
    EXPECT_TRUE(scene.tooLarge.empty()) << insert;
}

// Blocks B0 to Bcount, each of which inserts the one before so many times.
std::string Chain(int count, const std::string& array, const std::string& innermost = Scalene()) {
    std::string text = BlockText("B0", innermost);
    for (int i = 1; i <= count; ++i)
        text += BlockText("B" + std::to_string(i), Insert("2=B" + std::to_string(i - 1) + " " + array));
    return text;
}

std::vector<std::uint64_t> TooLarge(const std::string& blocks, const std::string& entities, std::size_t mostFaces) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities));
    const Scene scene = BuildScene(drawing.database, {mostFaces, {}});
    EXPECT_LE(scene.faces.size(), mostFaces);
    EXPECT_EQ(scene.faultyCount, 0U);
    std::vector<std::uint64_t> handles;
    for (const AcDbObjectId id : scene.tooLarge)
        handles.push_back(drawing.database.GetHandle(id));
    return handles;
}

using Handles = std::vector<std::uint64_t>;

}  // namespace

TEST(HostileBlocks, AnInsertWithoutASoundBlockOrPlaceIsFaulty) {
    const std::string block = BlockText("A", Scalene());
    for (const char* insert : {"",
                               "10=0 20=0",
                               "2=B 10=0 20=0",
                               "2=A",
                               "2=A 10=0",
                               "2=A 10=0 20=x",
                               "2=A 10=0 20=0 30=nan",
                               "2=A 10=0 20=0 41=0",
                               "2=A 10=0 20=0 42=0",
                               "2=A 10=0 20=0 43=-0",
                               "2=A 10=0 20=0 41=nan",
                               "2=A 10=0 20=0 41=1e400",
                               "2=A 10=0 20=0 43=x",
                               "2=A 10=0 20=0 50=x",
                               "2=A 10=0 20=0 70=-1",
                               "2=A 10=0 20=0 71=x",
                               "2=A 10=0 20=0 70=2147483648",
                               "2=A 10=0 20=0 44=inf",
                               "2=A 10=0 20=0 45=1e51",
                               "2=A 10=0 20=0 210=0 220=0 230=0",
                               "2=A 10=1e50 20=0 41=1e50"})
        ExpectFaultyInsert(block, insert);
    ExpectFaultyInsert(BlockText("A", Scalene(), "10=1"), "2=A 10=0 20=0");
    ExpectFaultyInsert(BlockText("A", Scalene(), "10=x 20=0"), "2=A 10=0 20=0");
}

TEST(HostileBlocks, ABlockThatLeadsBackToItselfIsFaultyWhereverItIsEntered) {
    ExpectFaultyInsert(BlockText("A", Scalene() + Insert("2=A 10=1 20=0")), "2=A 10=0 20=0");
    const std::string circle = BlockText("A", Scalene() + Insert("2=B")) + BlockText("B", Scalene() + Insert("2=C")) +
                               BlockText("C", Scalene() + Insert("2=A") + Insert("2=D")) +
                               BlockText("D", Insert("2=B")) + BlockText("E", Insert("2=A"));
    for (const char* name : {"A", "B", "C", "D", "E"})
        ExpectFaultyInsert(circle, std::string("2=") + name + " 10=0 20=0");
}

TEST(HostileBlocks, ACircleDoesNotSpoilTheBlocksBesideIt) {
    const Scene scene = BlockScene(BlockText("A", Insert("2=A") + Insert("2=B")) + BlockText("B", Scalene()),
                                   Insert("2=A") + Insert("2=B"));
    EXPECT_EQ(scene.faultyCount, 1U);
    EXPECT_EQ(scene.faces.size(), 1U);
}

TEST(HostileBlocks, NestingHasABound) {
    EXPECT_EQ(BlockScene(Chain(63, ""), Insert("2=B63")).faces.size(), 1U) << "64 blocks";
    ExpectFaultyInsert(Chain(64, ""), "2=B64 10=0 20=0");
    const Scene far = BlockScene(Chain(20000, ""), Insert("2=B20000") + Insert("2=B3"));
    EXPECT_EQ(far.faultyCount, 1U);
    EXPECT_EQ(far.faces.size(), 1U);
}

TEST(HostileBlocks, TooManyFacesAreLeftOutByName) {
    const std::string block = BlockText("A", Scalene());
    const std::string array = "2=A 70=1000000000 71=1000000000";
    EXPECT_EQ(TooLarge(block, Insert("5=A1 " + array) + Insert("5=A2 2=A"), kMostSceneFaces), Handles{0xA1});
    std::string arrays;
    for (int i = 0; i < 20; ++i)
        arrays += Insert("5=B1 " + array);
    EXPECT_EQ(TooLarge(block, arrays + Insert("5=A2 2=A"), 100), Handles(20, 0xB1)) << "they cost no work";
    EXPECT_EQ(TooLarge(Chain(60, "70=10"), Insert("5=A1 2=B60") + Insert("5=A2 2=B3"), kMostSceneFaces), Handles{0xA1});
    EXPECT_EQ(TooLarge(Chain(60, "70=2147483647 71=2147483647"), Insert("5=A1 2=B60"), kMostSceneFaces), Handles{0xA1});
}

TEST(HostileBlocks, TheFacesOfAWholeSceneHaveABound) {
    const std::string block = BlockText("A", Scalene() + Scalene());
    const std::string inserts =
        Insert("5=A1 2=A 70=2") + Insert("5=A2 2=A 70=2") + Insert("5=A3 2=A") + Insert("5=A4 2=A 70=3");
    EXPECT_EQ(TooLarge(block, inserts, 12), (Handles{0xA4}));
    EXPECT_EQ(TooLarge(block, inserts, 16), Handles{});
    EXPECT_EQ(TooLarge(block, inserts, 7), (Handles{0xA2, 0xA4})) << "what still fits behind it is taken";
    const Scene scene = BlockScene(block, inserts, {}, 7);
    EXPECT_EQ(scene.entities.size(), 2U);
    EXPECT_EQ(scene.faces.size(), 6U);
}

TEST(HostileBlocks, WorkWithoutResultHasABoundToo) {
    // Each is left out only once its arcs are divided: far more faces than the block has in its own size.
    const std::string block = BlockText("A", Entity("LWPOLYLINE", "39=1 10=0 20=0 42=1 10=2 20=0"));
    std::string inserts = Insert("5=100 2=A");
    Handles expected;
    for (std::uint64_t i = 0; i < 200; ++i) {
        std::ostringstream handle;
        handle << std::hex << 0x200 + i;
        inserts += Insert("5=" + handle.str() + " 2=A 41=1e7 42=1e7");
        expected.push_back(0x200 + i);
    }
    inserts += Insert("5=300 2=A");
    expected.push_back(0x300);
    EXPECT_EQ(TooLarge(block, inserts, 60), expected) << "and nothing of a block is taken any more";
}

TEST(HostileBlocks, AnyNumberOfCopiesOfNothingIsNothing) {
    const std::string array = "70=1000000000 71=1000000000";
    const Scene scene = BlockScene(Chain(50, array, Entity("LINE", "") + Entity("3DFACE", "")),
                                   Insert("2=B50 " + array) + Insert("2=B50"));
    EXPECT_TRUE(scene.faces.empty());
    EXPECT_TRUE(scene.tooLarge.empty());
    EXPECT_EQ(scene.faultyCount, 1U) << "the face of the innermost, once";
    EXPECT_EQ(scene.passedOver, (std::vector<KindCount>{{"INSERT", 52}, {"LINE", 1}}));
}

TEST(HostileBlocks, EmptyBlocksBesideAFaceAreNotWalkedForEachCopy) {
    std::string parts = Scalene();
    for (int i = 0; i < 50000; ++i)
        parts += Insert("2=E");
    const Scene scene = BlockScene(BlockText("E", "") + BlockText("A", parts), Insert("2=A 70=1000 71=1000"));
    EXPECT_EQ(scene.faces.size(), 1000000U);
    EXPECT_EQ(scene.passedOver, (std::vector<KindCount>{{"INSERT", 50000}}));
}

TEST(HostileBlocks, FacesThatComeOutWithoutAnAreaAreLeftOut) {
    const Scene scene = BlockScene(BlockText("A", Scalene()), Insert("2=A 41=1e-9 42=1e-9") + Insert("2=A"));
    EXPECT_EQ(scene.faces.size(), 1U);
}

TEST(HostileBlocks, WhatIsFaultyInABlockCountsOnceAndLeavesTheRest) {
    const std::string parts = Scalene() + Entity("3DFACE", "") + Insert("2=missing") + Entity("INSERT", "2=A") +
                              Entity("LINE", "") + Entity("ATTDEF", "") + Entity("LINE", "60=1");
    const Scene scene = BlockScene(BlockText("A", parts), Insert("2=A") + Insert("2=A 70=3 44=9"));
    EXPECT_EQ(scene.faces.size(), 4U);
    EXPECT_EQ(scene.faultyCount, 3U);
    EXPECT_EQ(scene.passedOver, (std::vector<KindCount>{{"LINE", 1}}));
}

TEST(HostileBlocks, WhatLiesOnALayerThatIsOffIsNotCounted) {
    const std::string layers = Entity("LAYER", "2=OFF 62=-3") + Entity("LAYER", "2=FROZEN 70=1 62=3");
    const std::string parts = Scalene() + Entity("LINE", "8=OFF") + Entity("3DFACE", "8=OFF") +
                              Insert("2=missing 8=FROZEN") + Entity("3DFACE", "8=FROZEN");
    const Scene scene = BlockScene(BlockText("A", parts), Insert("2=A"), layers);
    EXPECT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(scene.faultyCount + OtherCount(scene), 0U);
    EXPECT_EQ(BlockScene(BlockText("A", Insert("2=missing 8=OFF")), Insert("2=A"), layers).faultyCount, 1U)
        << "what such an INSERT holds may be seen";
}

TEST(HostileBlocks, WhatNobodyInsertsIsNotCounted) {
    const Scene scene = BlockScene(BlockText("A", Entity("3DFACE", "") + Entity("LINE", "")), Scalene());
    EXPECT_EQ(scene.faultyCount + OtherCount(scene), 0U);
}

TEST(HostileBlocks, OfTwoWithOneNameTheFirstCounts) {
    EXPECT_EQ(BlockScene(BlockText("a", Scalene()) + BlockText("A", Scalene() + Scalene()), Insert("2=A")).faces.size(),
              1U);
    EXPECT_EQ(BlockScene(BlockText("墙", Scalene()), Insert("2=\\U+5899")).faces.size(), 1U);
}

TEST(HostileBlocks, AttributesBehindAnInsertAreNothing) {
    const Scene scene =
        BlockScene(BlockText("A", Scalene()), Insert("2=A 66=1") + Entity("ATTRIB", "1=x") + Entity("SEQEND", ""));
    EXPECT_EQ(scene.faces.size(), 1U);
    EXPECT_EQ(scene.faultyCount + OtherCount(scene), 0U);
}

TEST(HostileBlocks, EveryValueOfAnInsertAndItsBlockMayBeAnything) {
    const std::vector<std::string> lines = LinesOf(
        BlockText("A", Scalene("8=0 62=0") + Entity("CIRCLE", "39=2 40=900 " + At(1, 2, 3)), At(1, 1, 1)) +
        BlockText("B", Entity("INSERT", "8=0 62=0 2=A 41=-1 42=2 43=3 44=5 45=6 50=7 70=2 71=2 " + At(0, 0, 0))) +
        Entity("BLOCK", "2=C") + Entity("INSERT", "8=X 62=3 2=B 210=0 220=0.1 230=1 41=2 " + At(5, 6, 7)));
    for (const char* value : {"", "x", "-1", "0", "1e50", "-1e50", "nan", "2147483647", "1e-320", "7", "A", "B", "C"})
        for (std::size_t i = 3; i < lines.size(); i += 2) {
            if (lines[i - 1] == "0")
                continue;
            std::string blocks;
            for (std::size_t k = 0; k < lines.size(); ++k)
                blocks += (k == i ? value : lines[k]) + "\n";
            const Scene scene = BlockScene(blocks + Entity("ENDBLK", ""), Insert("2=C") + Scalene(), {}, 1000);
            ExpectSound(scene);
            EXPECT_GE(scene.faces.size(), 1U);
            EXPECT_LE(scene.faces.size(), 1001U);
        }
}
