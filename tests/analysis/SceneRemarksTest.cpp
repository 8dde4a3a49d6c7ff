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
