// What an analysis says of the shadows that a scene lacks.
#include "analysis/SceneRemarks.h"

#include "DrawingForWindows.h"
#include "scene/BlocksForTests.h"

namespace {

using Kind = AnalysisRemark::Kind;

std::vector<AnalysisRemark> RemarksOf(const std::string& drawingText, bool hasShadows = true,
                                      const std::vector<LayerHeight>& heights = {}) {
    const OpenDrawing drawing(drawingText);
    return RemarksOn(BuildScene(drawing.database, {10, heights}), drawing.database, heights, hasShadows);
}

}  // namespace

TEST(SceneRemarks, AreNoneOfASoundScene) {
    EXPECT_TRUE(RemarksOf(DrawingWith(Triangle("") + Entity("LINE", "") + Entity("TEXT", ""))).empty());
}

TEST(SceneRemarks, TellWhatADrawingWithoutFacesHolds) {
    const auto remarks = RemarksOf(DrawingWith(Entity("TEXT", "") + Entity("LINE", "") + Entity("LINE", "")), false);
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_EQ(remarks[0].kind, Kind::NoFaces);
    EXPECT_EQ(remarks[0].subject, L"2 LINE, 1 TEXT");
    const auto empty = RemarksOf(DrawingWith(""), false);
    ASSERT_EQ(empty.size(), 1U);
    EXPECT_EQ(empty[0].subject, L"");
}

TEST(SceneRemarks, NameTheBodiesThatAreNotRead) {
    const auto remarks =
        RemarksOf(BlockDrawing(BlockText("A", Entity("REGION", "") + Scalene()),
                               Insert("2=A") + Entity("3DSOLID", "") + Entity("3DSOLID", "") + Entity("LINE", "")));
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_EQ(remarks[0].kind, Kind::WithoutFaces);
    EXPECT_EQ(remarks[0].count, 3U);
    EXPECT_EQ(remarks[0].subject, L"2 3DSOLID, 1 REGION");
}

TEST(SceneRemarks, NameEachInsertThatIsTooLarge) {
    const auto remarks =
        RemarksOf(BlockDrawing(BlockText("A", Scalene()), Insert("5=A1 2=A 70=11") + Insert("5=A2 2=A") +
                                                              Insert("5=A3 2=A 71=12") + Entity("3DFACE", "")));
    ASSERT_EQ(remarks.size(), 3U);
    EXPECT_EQ(remarks[0].kind, Kind::Faulty);
    EXPECT_EQ(remarks[0].count, 1U);
    EXPECT_EQ(remarks[1].kind, Kind::TooLarge);
    EXPECT_EQ(remarks[1].handle, 0xA1U);
    EXPECT_EQ(remarks[2].handle, 0xA3U);
}

// An attached and an overlaid one, and one within another block; one that has its content is a block like any other,
// and so is an empty one.
TEST(SceneRemarks, NameEachInsertOfAnExternalReference) {
    const std::string blocks = BlockText("Site", "", "70=4 1=site.dwg") + BlockText("Road", "", "70=12 1=road.dwg") +
                               BlockText("Bound", Scalene(), "70=4") + BlockText("Empty", "", "70=2") +
                               BlockText("Outer", Scalene() + Insert("2=Empty") + Insert("2=site"));
    const auto remarks =
        RemarksOf(BlockDrawing(blocks,
                               Insert("5=A1 2=SITE") + Insert("5=A2 2=Road") + Insert("5=A3 2=Bound") +
                                   Insert("5=A4 2=Empty") + Insert("5=A5 2=Outer") + Insert("5=A6 2=Site 8=Frozen"),
                               "0\nLAYER\n2\nFrozen\n70\n1\n62\n7\n"));
    ASSERT_EQ(remarks.size(), 3U);
    const std::uint64_t handles[] = {0xA1, 0xA2, 0xA5};
    const wchar_t* const names[] = {L"Site", L"Road", L"Site"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(remarks[i].kind, Kind::External);
        EXPECT_EQ(remarks[i].handle, handles[i]);
        EXPECT_EQ(remarks[i].subject, names[i]);
    }
}

// What is faulty by itself, an INSERT of no block and one of a block that leads back to itself, and those of blocks
// with something faulty in them or further down: counted once for all copies, each copy named.
TEST(SceneRemarks, NameWhatIsFaulty) {
    const std::string blocks = BlockText("Bad", Scalene() + Entity("3DFACE", "")) +
                               BlockText("Round", Insert("2=Round")) + BlockText("Outer", Insert("2=Bad")) +
                               BlockText("Sound", Scalene());
    const auto remarks = RemarksOf(BlockDrawing(
        blocks, Entity("3DFACE", "5=A1") + Insert("5=A2 2=Nowhere") + Insert("5=A3 2=Round") + Insert("5=A4 2=Outer") +
                    Insert("5=A5 2=Bad") + Insert("5=A6 2=Sound") + Triangle("")));
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_EQ(remarks[0].kind, Kind::Faulty);
    EXPECT_EQ(remarks[0].count, 4U);
    EXPECT_EQ(remarks[0].subject, L"A1 A2 A3 A4 A5");
    std::string many;
    for (int i = 0; i < 21; ++i)
        many += Insert("5=" + std::to_string(50 + i) + " 2=Nowhere");
    const auto first = RemarksOf(DrawingWith(many));
    ASSERT_EQ(first.size(), 1U);
    EXPECT_EQ(first[0].count, 21U);
    EXPECT_EQ(first[0].subject, L"50 51 52 53 54 55 56 57 58 59 60 61 62 63 64 65 66 67 68 69 ...");
}

TEST(SceneRemarks, TellWhichHeightsAreOfNoUse) {
    const std::string square = " 10=0 20=0 10=4 20=0 10=4 20=3";
    const auto remarks = RemarksOf(DrawingWith(Entity("LWPOLYLINE", "8=A 70=1" + square) + Triangle("8=B") +
                                               Entity("LWPOLYLINE", "8=C" + square) + Entity("LINE", "8=C")),
                                   true, {{L"A", 3.0}, {L" b", 3.0}, {L"C", 3.0}, {L"D", 3.0}});
    ASSERT_EQ(remarks.size(), 3U);
    EXPECT_EQ(remarks[0].kind, Kind::NothingToRaise);
    EXPECT_EQ(remarks[0].subject, L" b") << "as it was asked for";
    EXPECT_EQ(remarks[0].count, 0U);
    EXPECT_EQ(remarks[1].kind, Kind::NothingToRaise);
    EXPECT_EQ(remarks[1].subject, L"C");
    EXPECT_EQ(remarks[1].count, 2U);
    EXPECT_EQ(remarks[2].kind, Kind::NoLayerToRaise);
    EXPECT_EQ(remarks[2].subject, L"D");
}

TEST(SceneRemarks, CountTheFlatOutlinesOfADrawingWithoutFaces) {
    const auto remarks = RemarksOf(DrawingWith(Entity("CIRCLE", "10=0 20=0 40=3") + Entity("LINE", "")), false);
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_EQ(remarks[0].kind, Kind::NoFaces);
    EXPECT_EQ(remarks[0].subject, L"1 CIRCLE, 1 LINE");
    EXPECT_EQ(remarks[0].count, 1U);
}
