// New handles: above all that there are, with $HANDSEED above those.
#include <gtest/gtest.h>

#include "RedrawText.h"

namespace {

std::string Drawing(std::string_view seed, std::string_view more = {}) {
    return DrawingOf(HeaderOf("AC1015", seed) + Section("ENTITIES", "  0\nPOINT\n  5\n1F\n  8\n0\n") +
                     std::string(more));
}

// The handle of the line that is added, and the seed afterwards.
std::pair<std::uint64_t, std::string> Added(const std::string& text) {
    OpenDrawing drawing(text);
    MustRedraw(drawing, ChangeOf({}, {NewLine()}));
    std::vector<DxfGroup> seed;
    EXPECT_TRUE(drawing.database.GetHeaderVariable("$HANDSEED", seed));
    EXPECT_EQ(seed.size(), 1U);
    return {drawing.database.GetHandle(drawing.database.GetEntityId(1)), seed.empty() ? "" : seed[0].value};
}
using Result = std::pair<std::uint64_t, std::string>;

}  // namespace

TEST(RedrawHandles, BeginAtTheSeedOrAboveWhatIsInUse) {
    EXPECT_EQ(Added(Drawing("30")), Result(0x30, "31"));
    EXPECT_EQ(Added(Drawing("abc")), Result(0xABC, "ABD"));
    for (const char* seed : {"0", "1", "1F", "20", "text", "-5", " ", "1FFFFFFFFFFFFFFFF"})
        EXPECT_EQ(Added(Drawing(seed)), Result(0x20, "21")) << seed;
    EXPECT_EQ(Added(Drawing("")), Result(0x20, "21")) << "made where it lacks";
}

TEST(RedrawHandles, HaveSixtyFourBits) {
    EXPECT_EQ(Added(Drawing("100000000")), Result(0x100000000, "100000001"));
    EXPECT_EQ(Added(Drawing("FFFFFFFFFFFFFFFE")), Result(UINT64_MAX - 1, "FFFFFFFFFFFFFFFF"));
    EXPECT_EQ(Added(Drawing("2", Section("OBJECTS", "  0\nX\n  5\nFFFFFFFFFFFFFFF0\n"))),
              Result(0xFFFFFFFFFFFFFFF1, "FFFFFFFFFFFFFFF2"));
}

TEST(RedrawHandles, AreRefusedWhereNoneAreLeft) {
    const std::string texts[] = {Drawing("FFFFFFFFFFFFFFFF"),
                                 Drawing("2", Section("OBJECTS", "  0\nX\n  5\nFFFFFFFFFFFFFFFF\n"))};
    for (const std::string& text : texts) {
        OpenDrawing drawing(text);
        CString message;
        EXPECT_EQ(drawing.database.Redraw(ChangeOf({}, {NewLine()}), &message), Acad::eInvalidInput);
        EXPECT_EQ(ToUtf8(message.View()),
                  "图形中的句柄已到上限，不能再加实体：请在绘图软件中把内容复制到新图形，另存后再试。图形没有改变。");
        EXPECT_FALSE(drawing.database.IsModified());
        EXPECT_EQ(drawing.database.GetEntityCount(), 1U);
        EXPECT_EQ(drawing.Saved(), text);
        DrawingChange emptying;
        emptying.emptiedLayers = {L"0"};
        MustRedraw(drawing, emptying);
        EXPECT_EQ(drawing.database.GetEntityCount(), 0U) << "what needs no handle is done";
    }
    // One is left, two are asked for.
    OpenDrawing drawing(Drawing("FFFFFFFFFFFFFFFE"));
    EXPECT_EQ(drawing.database.Redraw(ChangeOf({}, {NewLine(), NewLine()})), Acad::eInvalidInput);
    MustRedraw(drawing, ChangeOf({}, {NewLine()}));
}

TEST(RedrawHandles, AreNotThoseThatSomethingPointsTo) {
    for (const char* code : {"320", "330", "340", "350", "360", "369", "390", "480", "1005"})
        EXPECT_EQ(Added(Drawing("2", Section("OBJECTS", "  0\nX\n  5\n3\n" + std::string(code) + "\n77\n"))),
                  Result(0x78, "79"))
            << code;
    EXPECT_EQ(Added(Drawing("2", Section("OBJECTS", "  0\nX\n  5\n3\n  5\n88\n310\n99\n"))), Result(0x89, "8A"));
    EXPECT_EQ(Added(Drawing("2", Section("CLASSES", "  0\nX\n  5\n66\n"))), Result(0x67, "68"));
    EXPECT_EQ(Added(Drawing("2", Section("OBJECTS", "  0\nX\n330\n7FFFFFFFFFFFFFFF\n"))),
              Result(0x8000000000000000, "8000000000000001"));
    for (const char* nothing : {"8000000000000000", "FFFFFFFFFFFFFFFE", "FFFFFFFFFFFFFFFF"})
        EXPECT_EQ(Added(Drawing("2", Section("OBJECTS", "  0\nX\n330\n" + std::string(nothing) + "\n"))),
                  Result(0x20, "21"))
            << nothing << ": no object has got that far";
    // Also what is set by hand.
    OpenDrawing drawing(Drawing("2"));
    const AcDbObjectId point = drawing.database.GetEntityId(0);
    ASSERT_TRUE(drawing.database.SetGroups(point, {{0, "POINT"}, {5, "1F"}, {8, "0"}, {1005, "55"}}));
    MustRedraw(drawing, ChangeOf({}, {NewLine()}));
    EXPECT_EQ(drawing.database.GetHandle(drawing.database.GetEntityId(1)), 0x56U);
}

TEST(RedrawHandles, SeedsOfAnyShapeBecomeOne) {
    const auto header = [](const std::string& body) {
        return DrawingOf(Section("HEADER", "  9\n$ACADVER\n  1\nAC1015\n" + body + "  9\n$LUNITS\n 70\n2\n"));
    };
    const std::string line =
        "  0\nLINE\n  5\n40\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n0.0\n 20\n0.5\n 30\n1.0\n"
        " 11\n2.0\n 21\n-3.25\n 31\n1e-07\n";
    const auto after = [&](const std::string& text) {
        return text.substr(0, text.size() - 8) + Section("ENTITIES", line) + "  0\nEOF\n";
    };
    const DrawingChange change = ChangeOf({}, {NewLine()});
    EXPECT_EQ(Redrawn(header("  9\n$HANDSEED\n  5\n20\n  9\n$HANDSEED\n  5\n40\n"), change),
              after(header("  9\n$HANDSEED\n  5\n41\n  9\n$HANDSEED\n  5\n41\n")));
    EXPECT_EQ(Redrawn(header("  9\n $HANDSEED \n999\nremark\n  5\n 40 \n"), change),
              after(header("  9\n $HANDSEED \n999\nremark\n  5\n41\n")));
    EXPECT_EQ(Redrawn(header("  9\n$HANDSEED\n 70\n7\n  5\n40\n"), change), after(header("  9\n$HANDSEED\n  5\n41\n")));
}
