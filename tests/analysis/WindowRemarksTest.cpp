// What is said of windows that are all too small, of lines in rows, and of names that stand for several.
#include "analysis/WindowRemarks.h"

#include <string>

#include "DrawingForWindows.h"
#include "scene/BlocksForTests.h"

namespace {

constexpr Site kHere;
using Kind = AnalysisRemark::Kind;

std::string Window(double x, double width, double height, const std::string& name = {}) {
    const std::string face = Upright("8=WINDOW", kHere, x, 0, x + width, 0, 0, height);
    return name.empty() ? face : face + Entity("TEXT", "8=WINDOW 1=" + name + " " + At(x + width / 2, 0, height / 2));
}

AnalysisRemark RemarkOf(const WindowsOfDrawing& found, Kind kind) {
    for (const AnalysisRemark& remark : found.remarks)
        if (remark.kind == kind)
            return remark;
    return {};
}

WindowsOfDrawing InDrawing(const std::string& text, double millimetres, const PlanRules& rules = {}) {
    const OpenDrawing drawing(text);
    return FindWindows(drawing.database, {}, millimetres, 200.0, rules);
}

}  // namespace

// 1.5 and 1.8 m, drawn in metres: tiny where the drawing says millimetres.
TEST(WindowRemarks, TellThatAllWindowsAreTiny) {
    const std::string drawing = DrawingWith(Window(0, 1.5, 1.2) + Window(9, 1.2, 1.8));
    const WindowsOfDrawing inMillimetres = InDrawing(drawing, 1.0);
    EXPECT_EQ(inMillimetres.windows.size(), 2U);
    EXPECT_EQ(CountOf(inMillimetres, Kind::TinyWindows), 1U);
    EXPECT_NEAR(RemarkOf(inMillimetres, Kind::TinyWindows).amount, 1.8, 1e-9);
    EXPECT_EQ(CountOf(InDrawing(drawing, 1000.0), Kind::TinyWindows), 0U);
    EXPECT_EQ(CountOf(InDrawing(DrawingWith(""), 1.0), Kind::TinyWindows), 0U);
    EXPECT_EQ(CountOf(InDrawing(DrawingWith(Window(0, 20, 40) + Window(900, 50, 100)), 1.0), Kind::TinyWindows), 0U)
        << "one of them is long enough";
}

// A house that is a block has the same names wherever it is inserted.
TEST(WindowRemarks, TellThatNamesStandForSeveral) {
    const std::string house = BlockText("House", Window(0, 1500, 1500, "101-1") + Window(3000, 1500, 1500, "101-2"));
    const std::string one = Insert("2=House 10=0 20=0");
    const WindowsOfDrawing two = InDrawing(BlockDrawing(house, one + Insert("2=House 10=0 20=50000")), 1.0);
    ASSERT_EQ(two.windows.size(), 4U);
    EXPECT_EQ(CountOf(two, Kind::SameNames), 1U);
    EXPECT_EQ(RemarkOf(two, Kind::SameNames).count, 4U);
    EXPECT_EQ(RemarkOf(two, Kind::SameNames).subject, L"101-1");
    EXPECT_EQ(CountOf(InDrawing(BlockDrawing(house, one), 1.0), Kind::SameNames), 0U);
}

TEST(WindowRemarks, AreNoneOfNamesWithoutFlatsNorOfStoreys) {
    const std::string type = Window(0, 1500, 1500, "C1515") + Window(3000, 1500, 1500, "C1515");
    EXPECT_EQ(CountOf(InDrawing(DrawingWith(type), 1.0), Kind::SameNames), 0U);
    PlanRules rules;
    rules.storeys = Storeys{3, 2.9};
    const std::string plan = Entity("LINE", "8=WINDOW 39=1500 " + At(0, 0, 0) + At(1500, 0, 0, 11)) +
                             Entity("TEXT", "8=WINDOW 1=402-1 " + At(700, 0, 0));
    const WindowsOfDrawing repeated = InDrawing(DrawingWith(plan), 1.0, rules);
    EXPECT_EQ(repeated.windows.size(), 3U);
    EXPECT_EQ(CountOf(repeated, Kind::SameNames), 0U);
}

// A window as plans draw it: four lines within a wall of 240 mm. One that turns a corner, one above and one across the
// street are none of it.
TEST(WindowRemarks, TellOfLinesBesideEachOther) {
    const auto line = [](const std::string& handle, double x, double y, double width, double z = 0.0) {
        return Entity("LINE", "5=" + handle + " 8=WINDOW 39=1500 " + At(x, y, z) + At(x + width, y, z, 11));
    };
    const std::string symbol =
        line("A1", 0, 0, 1500) + line("A2", 0, 80, 1500) + line("A3", 1500, 160, -1500) + line("A4", 100, 240, 1300);
    const WindowsOfDrawing found = InDrawing(DrawingWith(line("A0", 9000, 0, 1500) + symbol), 1.0);
    ASSERT_EQ(found.windows.size(), 5U);
    EXPECT_EQ(RemarkOf(found, Kind::LinesInRows).count, 4U);
    EXPECT_EQ(RemarkOf(found, Kind::LinesInRows).handle, 0xA1U);
    const std::string apart = line("B1", 0, 0, 1500) + line("B2", 1500, 0, 1500) + line("B3", 0, 600, 1500) +
                              line("B4", 0, 0, 1500, 3000) +
                              Entity("LINE", "5=B5 8=WINDOW 39=1500 " + At(0, 0, 0) + At(0, 1500, 0, 11));
    EXPECT_EQ(CountOf(InDrawing(DrawingWith(apart), 1.0), Kind::LinesInRows), 0U);
    PlanRules rules;
    rules.storeys = Storeys{3, 2.9};
    EXPECT_EQ(RemarkOf(InDrawing(DrawingWith(symbol), 1.0, rules), Kind::LinesInRows).count, 4U) << "of one storey";
    // Rectangles are drawn one by one.
    EXPECT_EQ(CountOf(InDrawing(DrawingWith(Window(0, 1500, 1500) + Window(0, 1500, 1500)), 1.0), Kind::LinesInRows),
              0U);
}
