// Drawings that nobody drew: windows and walls with lines garbled, swapped and left out.
#include <random>

#include "DrawingForWindows.h"

namespace {

constexpr Site kHere;

std::string AllKinds() {
    return Upright("5=A1 8=WINDOW", kHere, 3000, 0, 4500, 0, 900, 2400) +
           Entity("LWPOLYLINE",
                  "5=A2 8=WINDOW 90=4 70=1 38=0 210=0 220=-1 230=0 10=5000 20=900 42=0 10=6500 20=900 10=6500 20=2400 "
                  "10=5000 20=2400") +
           Entity("POLYLINE", "5=A3 8=WINDOW 70=9") + Entity("VERTEX", "8=WINDOW 10=0 20=3000 30=900") +
           Entity("VERTEX", "8=WINDOW 10=0 20=4500 30=900") + Entity("VERTEX", "8=WINDOW 10=0 20=4500 30=2400") +
           Entity("VERTEX", "8=WINDOW 10=0 20=3000 30=2400") + Entity("SEQEND", "") +
           Entity("TEXT", "5=A4 8=WINDOW 10=3100 20=0 30=1000 40=200 72=1 73=2 11=3100 21=0 31=1000 1=%%u1-101-1") +
           Entity("MTEXT", "5=A5 8=WINDOW 10=5100 20=0 30=1000 3={\\fArial|b0; 1=1-101-2}\\P\\S1/2;") +
           Entity("LINE", "5=A6 8=WINDOW 39=1500 10=7000 20=0 30=900 11=8500 21=0 31=900 210=0 220=0 230=1") +
           Entity("LWPOLYLINE", "5=A7 8=WINDOW 90=3 70=0 38=0 39=0 10=9000 20=0 42=0 10=10000 20=0 10=10000 20=1500") +
           Entity("TEXT", "5=A8 8=WINDOW 10=7100 20=-100 30=0 40=200 1=1-101-3") +
           Extruded(kHere, {{0, 0}, {10000, 0}, {10000, 8000}, {0, 8000}}, 0, 9000) +
           LooseBox(kHere, 20000, 0, 30000, 8000, 0, 9000);
}

// With something to say of every line.
WindowsOfDrawing WindowsAndPlansIn(const AcDbDatabase& drawing) {
    PlanRules rules;
    rules.sill = -2.4;
    rules.windowHeight = 1.5;
    rules.storeys = Storeys{2, 2.9};
    return FindWindows(drawing, {}, 1.0, 200.0, rules);
}

// What is true of windows whatever the drawing was.
void ExpectSound(const std::vector<DrawnWindow>& windows) {
    for (const DrawnWindow& window : windows) {
        ASSERT_GT(window.width, 1.0);
        ASSERT_GT(window.height, 1.0);
        ASSERT_LE(window.width, 1e6);
        ASSERT_LE(window.height, 1e6);
        ASSERT_TRUE(std::isfinite(window.lowerLeft.x + window.lowerLeft.y + window.lowerLeft.z));
        ASSERT_NEAR(Length(window.right), 1.0, 1e-6);
        ASSERT_FALSE(window.name.IsEmpty());
        ASSERT_TRUE(window.floor);
        ASSERT_GE(*window.floor, 1);
    }
}

std::size_t Analyse(const std::string& entities) {
    const FileTree files;
    files.Write("drawing.dxf", DrawingWith(entities));
    AcDbDatabase drawing;
    CString message;
    if (drawing.dxfIn(files.File("drawing.dxf"), &message) != Acad::eOk)
        return 0;
    const OccluderSet occluders = MakeOccluders(BuildScene(drawing), drawing, {}, 1.0);
    std::vector<DrawnWindow> windows = WindowsAndPlansIn(drawing).windows;
    TellSides(windows, occluders, {});
    TellFloors(windows);
    ExpectSound(windows);
    return windows.size();
}

}  // namespace

TEST(HostileWindows, AreSoundAtFirst) {
    const OpenDrawing drawing(DrawingWith(AllKinds()));
    const OccluderSet occluders = MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0);
    EXPECT_EQ(occluders.bodyCount, 2);
    std::vector<DrawnWindow> windows = WindowsAndPlansIn(drawing.database).windows;
    TellSides(windows, occluders, {});
    TellFloors(windows);
    ASSERT_EQ(windows.size(), 9U);
    EXPECT_EQ(windows[0].name, L"1-101-1");
    EXPECT_EQ(windows[1].name, L"1-101-2 1/2");
    EXPECT_EQ(windows[2].name, L"A3");
    EXPECT_EQ(windows[3].name, L"1-1-101-3");
    EXPECT_EQ(windows[8].name, L"2-A7");
    for (const DrawnWindow& window : windows)
        EXPECT_EQ(window.hasSide, window.lowerLeft.z > 0.0) << "the second line is in the basement, where no wall is";
    ExpectSound(windows);
}

TEST(HostileWindows, BearAnyValueInAnyPlace) {
    const std::vector<std::string> lines = LinesOf(AllKinds());
    std::mt19937 random(11);
    const std::vector<std::string> values{"nan",  "inf", "-1e300", "1e50", "1e-320", "2147483647", "-2147483648", "0",
                                          "-0.0", "",    "x",      "%%",   "\\",     "{",          "\\S",         "^"};
    std::size_t found = 0;
    for (int i = 0; i < 1500; ++i) {
        std::vector<std::string> broken = lines;
        // Lines of values stand behind those of codes.
        for (int k = 0; k < 1 + i % 3; ++k)
            broken[(random() % (lines.size() / 2)) * 2 + 1] = values[random() % values.size()];
        if (i % 5 == 0)
            broken[(random() % (lines.size() / 2)) * 2] = std::to_string(random() % 100);
        std::string text;
        for (const std::string& line : broken)
            text += line + "\n";
        found += Analyse(text);
    }
    EXPECT_GT(found, 9000U) << "most windows are still there";
}
