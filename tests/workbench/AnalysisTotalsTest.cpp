// Windows summed up by flat, building and storey.
#include "workbench/commands/AnalysisTotals.h"

#include "workbench/AnalysisForTests.h"

namespace {

WindowResult Window(const wchar_t* name, int floor, double judged, bool passes) {
    WindowResult window = LitWindow(1, name);
    window.floor = floor;
    window.judged = judged;
    window.passes = passes;
    return window;
}

std::string TextOf(const std::vector<WindowResult>& windows) {
    TextOutput output;
    PrintTotals(windows, output);
    return output.Text();
}

}  // namespace

TEST(AnalysisTotals, SumUpFlatsBuildingsAndStoreys) {
    const WindowTotals totals =
        TotalsOf({Window(L"2-201-1", 2, 130, true), Window(L"1-101-1", 1, 90, false), Window(L"1-101-2", 1, 150, true),
                  Window(L"1-102-1", 1, 20, false), Window(L"2-101-1", 1, 10, false), Window(L"2-201-2", 2, 0, false)});
    ASSERT_EQ(totals.flats.size(), 4U) << "in the drawing's order";
    EXPECT_EQ(totals.flats[0].building, L"2");
    EXPECT_EQ(totals.flats[0].flat, L"201");
    EXPECT_EQ(totals.flats[1].flat, L"101");
    EXPECT_EQ(totals.flats[1].windows, 2U);
    EXPECT_EQ(totals.flats[1].passing, 1U);
    EXPECT_EQ(totals.flats[1].least, 90.0);
    EXPECT_EQ(totals.flats[1].most, 150.0);
    ASSERT_EQ(totals.buildings.size(), 2U);
    EXPECT_EQ(totals.buildings[0].building, L"2");
    EXPECT_EQ(totals.buildings[0].flats, 2U);
    EXPECT_EQ(totals.buildings[0].passingFlats, 1U);
    EXPECT_EQ(totals.buildings[1].windows, 3U);
    EXPECT_EQ(totals.buildings[1].passing, 1U);
    EXPECT_EQ(totals.buildings[1].least, 20.0);
    EXPECT_EQ(totals.buildings[1].flats, 2U);
    EXPECT_EQ(totals.buildings[1].passingFlats, 1U);
    ASSERT_EQ(totals.storeys.size(), 3U) << "by building, from below";
    EXPECT_EQ(totals.storeys[0].building, L"2");
    EXPECT_EQ(totals.storeys[0].floor, 1);
    EXPECT_EQ(totals.storeys[1].floor, 2);
    EXPECT_EQ(totals.storeys[1].least, 0.0);
    EXPECT_EQ(totals.storeys[1].most, 130.0);
    EXPECT_EQ(totals.storeys[2].building, L"1");
    EXPECT_EQ(totals.storeys[2].windows, 3U);
}

TEST(AnalysisTotals, TellFlatsOfOneNameInTwoBuildingsApart) {
    const WindowTotals totals = TotalsOf({Window(L"1-101-1", 1, 10, false), Window(L"2-101-1", 1, 150, true)});
    ASSERT_EQ(totals.flats.size(), 2U);
    EXPECT_EQ(totals.flats[0].passing, 0U);
    EXPECT_EQ(totals.flats[1].passing, 1U);
}

TEST(AnalysisTotals, CountWindowsWithoutASideButNotTheirSun) {
    WindowResult without = WindowWithoutSide(2, L"1-101-2");
    without.floor = 1;
    const WindowTotals totals = TotalsOf({without, Window(L"1-101-1", 1, 150, true)});
    ASSERT_EQ(totals.flats.size(), 1U);
    EXPECT_EQ(totals.flats[0].windows, 2U);
    EXPECT_EQ(totals.flats[0].analysed, 1U);
    EXPECT_EQ(totals.flats[0].least, 150.0);
    EXPECT_EQ(totals.storeys[0].windows, 2U);
}

TEST(AnalysisTotals, TakeNamesThatTellNothingAsOneBuilding) {
    const WindowTotals totals = TotalsOf({Window(L"2A", 1, 10, false), Window(L"2B", 2, 20, true)});
    EXPECT_TRUE(totals.flats.empty());
    ASSERT_EQ(totals.buildings.size(), 1U);
    EXPECT_EQ(totals.buildings[0].building, L"");
    EXPECT_EQ(totals.buildings[0].windows, 2U);
    EXPECT_EQ(totals.storeys.size(), 2U);
}

TEST(AnalysisTotals, StandInThreeTables) {
    EXPECT_EQ(TextOf({}), "");
    EXPECT_EQ(
        TextOf({Window(L"1-101-1", 1, 90, false), Window(L"1-101-2", 1, 150, true), Window(L"1-102-1", 2, 20, false)}),
        "\n按户合计（一户有一个窗达标即达标）\n"
        "  结论    楼  户   窗数  已分析  达标窗     最少     最多\n"
        "  达标    1   101     2       2       1  1:30:00  2:30:00\n"
        "  不达标  1   102     1       1       0  0:20:00  0:20:00\n"
        "\n按楼合计\n"
        "  楼  户数  达标户  窗数  已分析  达标窗     最少     最多\n"
        "  1      2       1     3       3       1  0:20:00  2:30:00\n"
        "\n按层合计\n"
        "  楼  楼层  窗数  已分析  达标窗     最少     最多\n"
        "  1      1     2       2       1  1:30:00  2:30:00\n"
        "  1      2     1       1       0  0:20:00  0:20:00\n");
}

TEST(AnalysisTotals, HaveNoVerdictsWhereNothingWasAskedFor) {
    WindowResult window = LitWindow(1, L"101-1");
    window.floor.reset();
    EXPECT_EQ(TextOf({window}),
              "\n按户合计（一户有一个窗达标即达标）\n"
              "  结论  楼  户   窗数  已分析  达标窗     最少     最多\n"
              "  -     -   101     1       1       -  3:00:00  3:00:00\n"
              "\n按楼合计\n"
              "  楼  户数  达标户  窗数  已分析  达标窗     最少     最多\n"
              "  -      1       -     1       1       -  3:00:00  3:00:00\n");
}

namespace {

std::string SummaryOf(const std::vector<WindowResult>& windows) {
    TextOutput output;
    PrintSummary(windows, output);
    return output.Text();
}

}  // namespace

TEST(AnalysisSummary, NamesTheWindowsThatFail) {
    EXPECT_EQ(SummaryOf({Window(L"1-101-1", 1, 90, false), Window(L"1-101-2", 1, 150, true), Window(L"1", 1, 0, false),
                         WindowWithoutSide(2, L"x")}),
              "共 4 个窗，已分析 3 个：达标 1 个，不达标 2 个。\n不达标的窗：1-101-1 (1), 1\n");
    EXPECT_EQ(SummaryOf({Window(L"1-101-2", 1, 150, true)}), "共 1 个窗，已分析 1 个：达标 1 个，不达标 0 个。\n");
    EXPECT_EQ(SummaryOf({LitWindow(1, L"a"), WindowWithoutSide(2, L"x")}), "共 2 个窗，已分析 1 个。\n");
    EXPECT_EQ(SummaryOf({}), "共 0 个窗，已分析 0 个。\n");
}

TEST(AnalysisSummary, NamesTenOfMany) {
    const std::string ten = "1, 1, 1, 1, 1, 1, 1, 1, 1, 1";
    EXPECT_EQ(SummaryOf(std::vector<WindowResult>(10, Window(L"1", 1, 0, false))),
              "共 10 个窗，已分析 10 个：达标 0 个，不达标 10 个。\n不达标的窗：" + ten + "\n");
    EXPECT_EQ(SummaryOf(std::vector<WindowResult>(500, Window(L"1", 1, 0, false))),
              "共 500 个窗，已分析 500 个：达标 0 个，不达标 500 个。\n不达标的窗：" + ten + ", ...\n");
}
