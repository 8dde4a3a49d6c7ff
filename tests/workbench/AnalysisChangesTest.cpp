// What is told of a project: the columns and stretches of windows, the sums before and now, and who fails now.
#include "workbench/commands/AnalysisChanges.h"

#include <sstream>

#include "workbench/AnalysisForTests.h"
#include "workbench/commands/AnalysisTable.h"
#include "workbench/commands/AnalysisTotals.h"
#include "workbench/terminal/TextWidth.h"

namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string TableOf(const AnalysisReport& report) {
    TextOutput output;
    EXPECT_TRUE(PrintAnalysisTable(report, output, GoOn));
    return output.Text();
}

std::string ChangesOf(const AnalysisReport& report) {
    TextOutput output;
    PrintChanges(report, output);
    return output.Text();
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// A window that the project leaves alone.
WindowResult SparedWindow(std::uint64_t handle, const CString& name) {
    WindowResult window = LitWindow(handle, name);
    window.before = static_cast<const WindowHours&>(window);
    return window;
}

WindowResult On(WindowResult window, int floor) {
    window.floor = floor;
    return window;
}

}  // namespace

TEST(AnalysisChanges, StandBesideEachWindowAndBelowIt) {
    const std::string table = TableOf(ProjectReport(
        2.5, {ShadedWindow(0x2A, L"1-101-1"), SparedWindow(0x2B, L"1-101-2"), LitWindow(0x2C, L"1-102-1")}));
    EXPECT_TRUE(Has(table,
                    "结论    窗（句柄）    楼层  朝向（自东，度）  判定时数   方案前     失去\n"
                    "          真太阳时           北京时间           时:分:秒\n"
                    "不达标  1-101-1 (2A)     1          南 270.0   2:00:00  3:00:00  1:00:00  方案前达标\n"
                    "    日照  09:00:00-11:00:00  09:15:00-11:15:00  2:00:00\n"
                    "    计入  09:00:00-11:00:00  09:15:00-11:15:00  2:00:00\n"
                    "    遮挡  08:00:00-09:00:00  08:15:00-09:15:00  1:00:00  被 2F\n"
                    "    遮挡  11:00:00-16:00:00  11:15:00-16:15:00  5:00:00  被 2F, 30\n"
                    "    夺去  11:00:00-12:00:00  11:15:00-12:15:00  1:00:00  被 2F\n"
                    "达标    1-101-2 (2B)     1          南 270.0   3:00:00  3:00:00  0:00:00\n"))
        << table;
    EXPECT_TRUE(Has(table, "达标    1-102-1 (2C)     1          南 270.0   3:00:00        -        -  在方案上\n"))
        << table;
    EXPECT_TRUE(Has(table, "方案图层")) << table;
}

TEST(AnalysisChanges, AreNotToldUnlessAskedFor) {
    AnalysisReport report = ProjectReport(2.5, {SparedWindow(0x2B, L"1-101-2")});
    report.request.proposedLayers.clear();
    EXPECT_EQ(ChangesOf(report), "");
    EXPECT_FALSE(Has(TableOf(report), "方案"));
    report = ProjectReport(2.5, {});
    EXPECT_EQ(ChangesOf(report), "");
}

TEST(AnalysisChanges, OfWindowsWithoutASideAreNone) {
    WindowResult window = WindowWithoutSide(0x2A, L"x");
    window.before = static_cast<const WindowHours&>(window);
    AnalysisReport report = BareReport();
    report.request.proposedLayers = {L"方案"};
    report.answer.windows = {window};
    EXPECT_TRUE(Has(TableOf(report), "-       x (2A)         -                 -         -       -     -\n"))
        << TableOf(report);
    EXPECT_TRUE(Has(ChangesOf(report), "  -   -              1       -       -         -       -       -         -\n"))
        << ChangesOf(report);
}

// What does not fit behind a window's line stands below it.
TEST(AnalysisChanges, StayWithinAHundredColumns) {
    WindowResult window = ShadedWindow(0x2A, L"a_window_with_a_rather_long_name");
    window.part = WindowPart{0.3, 1.8};
    for (const std::string& line : Lines(TableOf(ProjectReport(2.5, {window}))))
        if (Has(line, "按从左端") || Has(line, "a_window"))
            EXPECT_LE(DisplayWidth(FromUtf8(line)), 100) << line;
    EXPECT_TRUE(
        Has(TableOf(ProjectReport(2.5, {window})), "\n    按从左端 0.30 米起、宽 1.80 米的部分判定、方案前达标\n"));
}

// Flat 101 loses its only good window, 102 keeps one, 201 had none anyway, 301 is the project's.
TEST(AnalysisChanges, AreSummedUpByFlatBuildingAndStorey) {
    WindowResult poor = ShadedWindow(0x2D, L"2-201-1");
    poor.before->judged = 125.0;
    const AnalysisReport report =
        ProjectReport(2.5, {On(ShadedWindow(0x2A, L"1-101-1"), 1), On(ShadedWindow(0x2B, L"1-102-1"), 2),
                            On(SparedWindow(0x2C, L"1-102-2"), 2), On(poor, 1), On(LitWindow(0x2E, L"3-301-1"), 1)});
    EXPECT_EQ(ChangesOf(report),
              "\n"
              "方案前后，按户\n"
              "  前      后      楼  户   窗数  前达标  后达标  新不达标   前最少   后最少  最多失去\n"
              "  达标    不达标  1   101     1       1       0         1  3:00:00  2:00:00   1:00:00\n"
              "  达标    达标    1   102     2       2       1         1  3:00:00  2:00:00   1:00:00\n"
              "  不达标  不达标  2   201     1       0       0         0  2:05:00  2:00:00   0:05:00\n"
              "\n"
              "方案前后，按楼\n"
              "  楼  新不达标户  窗数  前达标  后达标  新不达标   前最少   后最少  最多失去\n"
              "  1   1              3       3       1         2  3:00:00  2:00:00   1:00:00\n"
              "  2   0              1       0       0         0  2:05:00  2:00:00   0:05:00\n"
              "\n"
              "方案前后，按层\n"
              "  楼  楼层  窗数  前达标  后达标  新不达标   前最少   后最少  最多失去\n"
              "  1   1        1       1       0         1  3:00:00  2:00:00   1:00:00\n"
              "  1   2        2       2       1         1  3:00:00  2:00:00   1:00:00\n"
              "  2   1        1       0       0         0  2:05:00  2:00:00   0:05:00\n"
              "\n"
              "因方案不再达标的窗：2 个\n"
              "  1-101-1 (2A), 1-102-1 (2B)\n"
              "\n"
              "因方案不再达标的户：1 户\n"
              "  1-101\n");
}

// A window that the project adds to a flat has the sun that the flat needs.
TEST(AnalysisChanges, LeaveAFlatThatHasAnotherWindowNow) {
    const WindowTotals totals =
        TotalsOf(ProjectReport(2.5, {ShadedWindow(0x2A, L"1-101-1"), LitWindow(0x2B, L"1-101-2")}).answer.windows);
    ASSERT_EQ(totals.flats.size(), 1U);
    EXPECT_FALSE(totals.flats[0].FailsNow());
    EXPECT_EQ(totals.flats[0].compared, 1U);
    EXPECT_EQ(totals.flats[0].failNow, 1U);
    EXPECT_EQ(totals.buildings[0].flatsFailNow, 0U);
}

TEST(AnalysisChanges, HaveNoVerdictsWithoutANeed) {
    AnalysisReport report = BareReport();
    report.request.proposedLayers = {L"方案"};
    report.answer.windows = {ShadedWindow(0x2A, L"1-101-1")};
    const std::string text = ChangesOf(report);
    EXPECT_TRUE(Has(text, "  -   -   1   101     1       -       -         -  3:00:00  2:00:00   1:00:00\n")) << text;
    EXPECT_FALSE(Has(text, "因方案")) << text;
}

TEST(AnalysisChanges, SayWhenNobodyFailsNow) {
    EXPECT_TRUE(Has(ChangesOf(ProjectReport(1.5, {ShadedWindow(0x2A, L"1-101-1")})), "没有窗因方案不再达标"));
}

// All names, in lines that fit, and nothing that steers a terminal.
TEST(AnalysisChanges, NameEverybodyWhoFailsNow) {
    std::vector<WindowResult> windows;
    for (std::uint64_t handle = 0x1000; handle < 0x1000 + 300; ++handle)
        windows.push_back(ShadedWindow(handle, L"w\x1b"));
    const std::string text = ChangesOf(ProjectReport(2.5, windows));
    const std::string names = text.substr(text.find("因方案不再达标的窗：300 个"));
    for (std::uint64_t handle = 0x1000; handle < 0x1000 + 300; ++handle) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "(%llX)", static_cast<unsigned long long>(handle));
        EXPECT_TRUE(Has(names, digits)) << digits;
    }
    for (const std::string& line : Lines(names)) {
        EXPECT_LE(DisplayWidth(FromUtf8(line)), 100) << line;
        EXPECT_FALSE(Has(line, "\x1b"));
    }
}

TEST(AnalysisChanges, NameTheEntitiesOfTheProject) {
    AnalysisReport report = ProjectReport(2.5, {ShadedWindow(0x2A, L"1-101-1")});
    report.taking = {{0x2F, {L"INSERT", L"方案"}, 12}};
    const std::string table = TableOf(report);
    ASSERT_TRUE(Has(table, "方案中夺去日照的实体\n")) << table;
    EXPECT_TRUE(Has(table, "    2F  INSERT  方案          12")) << table;
}
