// Windows in blocks that nobody drew: circles, numbers that are none, and more copies than anybody can hold.
#include "DrawingForWindows.h"
#include "scene/BlocksForTests.h"

namespace {

constexpr Site kHere;
using Kind = AnalysisRemark::Kind;

WindowsOfDrawing FindIn(const std::string& blocks, const std::string& entities, const std::string& layers = {},
                        std::size_t most = kMostWindows) {
    const OpenDrawing drawing(BlockDrawing(blocks, entities, layers));
    return FindWindows(drawing.database, {}, 1.0, 200.0, {}, most);
}

std::string Pane(const std::string& groups) {
    return Upright(groups, kHere, 0, 0, 1500, 0, 900, 2400);
}

std::vector<std::uint64_t> HandlesOf(const WindowsOfDrawing& found, Kind kind) {
    std::vector<std::uint64_t> handles;
    for (const AnalysisRemark& remark : found.remarks)
        if (remark.kind == kind)
            handles.push_back(remark.handle);
    return handles;
}

using Handles = std::vector<std::uint64_t>;
const std::string kHuge = "70=2147483647 71=2147483647 ";

}  // namespace

TEST(HostileBlockWindows, ArraysOfBlocksWithoutWindowsCostNothing) {
    const std::string tree =
        BlockText("LEAF", Scalene("8=0") + Pane("8=0") + Entity("TEXT", "8=0 1=x " + At(0, 0, 0))) +
        BlockText("TREE", Insert(kHuge + "2=LEAF"));
    const WindowsOfDrawing found = FindIn(tree + BlockText("HOUSE", Pane("8=WINDOW") + Insert(kHuge + "2=TREE 8=X")),
                                          Insert(kHuge + "2=TREE 8=X") + Insert("5=C1 2=HOUSE 70=3"));
    EXPECT_EQ(found.windows.size(), 3U);
    EXPECT_TRUE(found.remarks.empty());
}

TEST(HostileBlockWindows, ArraysOfTooManyAreLeftOutByName) {
    std::string blocks = BlockText("B0", Pane("8=WINDOW"));
    for (int i = 1; i <= 60; ++i)
        blocks += BlockText("B" + std::to_string(i), Insert(kHuge + "2=B" + std::to_string(i - 1)));
    const WindowsOfDrawing found =
        FindIn(blocks, Insert("5=A1 2=B60") + Insert("5=A2 2=B0") + Insert("5=A3 " + kHuge + "2=B0") +
                           Insert("5=A4 2=B0 70=5000001") + Insert("5=A5 2=B1 8=WINDOW"));
    EXPECT_EQ(HandlesOf(found, Kind::TooManyInBlock), (Handles{0xA1, 0xA3, 0xA4, 0xA5}));
    ASSERT_EQ(found.windows.size(), 1U);
    EXPECT_EQ(found.windows[0].handle, 0xA2U);
    EXPECT_EQ(CountOf(found, Kind::NotAWindow), 0U) << "nobody knows what they would have given";
}

TEST(HostileBlockWindows, TheWindowsOfAWholeDrawingHaveABound) {
    const std::string block = BlockText("A", Pane("8=WINDOW") + Entity("TEXT", "8=WINDOW 1=x " + At(9, 9, 9999)));
    const std::string inserts =
        Pane("5=B1 8=WINDOW") + Insert("5=A1 2=A 70=3") + Insert("5=A2 2=A 70=2") + Insert("5=A3 2=A");
    const auto tooMany = [&](std::size_t most) {
        const WindowsOfDrawing found = FindIn(block, inserts, {}, most);
        EXPECT_LE(found.windows.size(), most);
        for (const AnalysisRemark& remark : found.remarks)
            EXPECT_EQ(remark.count, most);
        return HandlesOf(found, Kind::TooManyInBlock);
    };
    EXPECT_EQ(tooMany(13), Handles{}) << "a text counts like a window";
    EXPECT_EQ(tooMany(12), (Handles{0xA3}));
    EXPECT_EQ(tooMany(10), (Handles{0xA2})) << "what still fits behind it is taken";
    EXPECT_EQ(tooMany(6), (Handles{0xA1, 0xA3}));
    EXPECT_EQ(tooMany(1), (Handles{0xA1, 0xA2, 0xA3}));
}

TEST(HostileBlockWindows, WorkWithoutResultHasABoundToo) {
    const std::string off = Entity("LAYER", "2=WINDOW 62=-3");
    std::string inserts;
    for (int i = 1; i <= 6; ++i)
        inserts += Insert("5=C" + std::to_string(i) + " 2=A 70=20");
    const WindowsOfDrawing found = FindIn(BlockText("A", Pane("8=WINDOW")), inserts, off, 60);
    // Each copy is three steps: into it, and two for the pane. There are four for each window that may be.
    EXPECT_EQ(HandlesOf(found, Kind::TooManyInBlock), (Handles{0xC5, 0xC6}));
    ASSERT_EQ(CountOf(found, Kind::LayerInvisible), 1U);
    EXPECT_EQ(found.remarks[2].count, 80U);
}

TEST(HostileBlockWindows, LongTextsAndOutlinesCountForWhatTheyAre) {
    const std::string text = "0\nTEXT\n8\nWINDOW\n10\n0\n20\n0\n1\n" + std::string(640000, 'x') + "\n";
    std::string path = "8=WINDOW 39=900 ";
    for (int i = 0; i < 20000; ++i)
        path += "10=" + std::to_string(i * 10) + " 20=" + std::to_string(i % 2) + " ";
    const WindowsOfDrawing found = FindIn(
        BlockText("T", text) + BlockText("P", Entity("LWPOLYLINE", path)),
        Insert("5=A1 2=T 70=11") + Insert("5=A2 2=P 70=6") + Insert("5=A3 2=T") + Insert("5=A4 2=P"), {}, 100000);
    EXPECT_EQ(HandlesOf(found, Kind::TooManyInBlock), (Handles{0xA1, 0xA2}));
    EXPECT_EQ(found.windows.size(), 19999U);
}

TEST(HostileBlockWindows, CirclesAndDepthsGiveNone) {
    std::string blocks = BlockText("A", Insert("2=B") + Pane("8=WINDOW")) + BlockText("B", Insert("2=A"));
    blocks += BlockText("C0", Pane("8=WINDOW"));
    for (int i = 1; i <= 20000; ++i)
        blocks += BlockText("C" + std::to_string(i), Insert("2=C" + std::to_string(i - 1)));
    const WindowsOfDrawing found =
        FindIn(blocks, Insert("2=A") + Insert("2=B") + Insert("2=C20000") + Insert("2=C64") + Insert("5=C1 2=C63"));
    ASSERT_EQ(found.windows.size(), 1U);
    EXPECT_EQ(found.windows[0].handle, 0xC1U);
    EXPECT_TRUE(found.remarks.empty());
}

TEST(HostileBlockWindows, WhatComesToLieTooFarAwayIsNone) {
    const std::string block = BlockText("A", Pane("8=WINDOW") + Entity("TEXT", "8=WINDOW 1=x " + At(0, 0, 0)) +
                                                 Entity("LINE", "8=WINDOW 39=9 " + At(0, 0, 0) + At(9, 0, 0, 11)));
    std::string nested = block;
    for (int i = 1; i <= 20; ++i)
        nested += BlockText("A" + std::to_string(i),
                            Insert("2=A" + (i > 1 ? std::to_string(i - 1) : "") + " 41=1e30 42=1e30 43=1e30"));
    for (const std::string& insert : {Insert("5=C1 2=A " + At(1e50, 0, 0)), Insert("5=C1 2=A 41=1e50 42=1e50 43=1e50"),
                                      Insert("5=C1 2=A20"), Insert("5=C1 2=A 41=1e-300 42=1e-300 43=1e-300")}) {
        const WindowsOfDrawing found = FindIn(nested, insert + Pane("5=C2 8=WINDOW"));
        ASSERT_EQ(found.windows.size(), 1U);
        EXPECT_EQ(found.windows[0].name, L"C2");
        EXPECT_EQ(HandlesOf(found, Kind::NotAWindow), (Handles{0xC1}));
    }
}

TEST(HostileBlockWindows, EveryValueMayBeAnything) {
    const std::vector<std::string> lines =
        LinesOf(BlockText("A",
                          Pane("8=0") +
                              Entity("LWPOLYLINE",
                                     "8=WINDOW 90=3 70=0 38=0 39=900 10=0 20=0 42=0 10=900 20=0 10=900 "
                                     "20=700") +
                              Entity("TEXT", "8=0 1=name 72=1 73=2 11=5 21=0 31=950 " + At(0, 0, 0)),
                          At(1, 1, 1)) +
                Entity("BLOCK", "2=B") +
                Entity("INSERT", "8=0 66=1 2=A 41=-1 42=2 43=3 44=5000 45=6000 50=7 70=2 71=2 " + At(0, 0, 0)) +
                Entity("ATTRIB", "8=0 70=0 74=0 1=more " + At(9, 9, 950)) + Entity("SEQEND", ""));
    for (const char* value : {"", "x", "-1", "0", "1e50", "-1e50", "nan", "2147483647", "1e-320", "7", "A", "B"})
        for (std::size_t i = 3; i < lines.size(); i += 2) {
            std::string blocks;
            for (std::size_t k = 0; k < lines.size(); ++k)
                blocks += (k == i && lines[k - 1] != "0" ? value : lines[k]) + "\n";
            const WindowsOfDrawing found =
                FindIn(blocks + Entity("ENDBLK", ""), Insert("5=C1 2=B 8=WINDOW") + Pane("5=C2 8=WINDOW"));
            ASSERT_GE(found.windows.size(), 1U);
            EXPECT_LE(found.windows.size(), 43U) << "three for each of 7 x 2 copies";
            EXPECT_EQ(found.windows.back().handle, 0xC2U);
            for (const DrawnWindow& window : found.windows) {
                EXPECT_TRUE(std::isfinite(window.lowerLeft.x + window.lowerLeft.y + window.lowerLeft.z));
                EXPECT_FALSE(window.name.IsEmpty());
            }
        }
}
