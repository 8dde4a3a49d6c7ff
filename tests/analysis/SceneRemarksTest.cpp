// What an analysis says of the shadows that a scene lacks.
#include "analysis/SceneRemarks.h"

#include "DrawingForWindows.h"
#include "scene/BlocksForTests.h"

namespace {

using Kind = AnalysisRemark::Kind;

std::vector<AnalysisRemark> RemarksOf(const std::string& drawingText, bool hasShadows = true) {
    const OpenDrawing drawing(drawingText);
    return RemarksOn(BuildScene(drawing.database, {10, {}}), drawing.database, hasShadows);
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
