// The table of an analysis, as somebody at a terminal of a hundred columns sees it.
#include "workbench/commands/AnalysisTable.h"

#include <sstream>

#include "facts/StandardWords.h"
#include "workbench/AnalysisForTests.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/terminal/TextWidth.h"

namespace {

std::vector<std::string> LinesOf(const AnalysisReport& report) {
    TextOutput output;
    EXPECT_TRUE(PrintAnalysisTable(report, output, GoOn));
    std::vector<std::string> lines;
    std::istringstream text(output.Text());
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

// The lines of the windows: from the headings on to the blank line behind them.
std::string WindowLinesOf(const AnalysisReport& report) {
    std::string text;
    bool isWithin = false;
    for (const std::string& line : LinesOf(report)) {
        isWithin = (isWithin || line.find("判定时数") != std::string::npos) && !line.empty();
        if (isWithin)
            text += line + "\n";
    }
    return text;
}

bool HasLine(const AnalysisReport& report, const std::string& wanted) {
    for (const std::string& line : LinesOf(report))
        if (line.find(wanted) != std::string::npos)
            return true;
    return false;
}

}  // namespace

TEST(AnalysisTable, TellsEachWindowWithItsDay) {
    AnalysisReport report = BareReport();
    WindowResult window = LitWindow(0x2A, L"1-101-1");
    window.passes = true;
    window.counted = {{9.0, 11.5}};
    window.judged = 150.0;
    window.dropped = {{{14.0, 14.05}, DropReason::Short}};
    window.part = WindowPart{0.3, 1.8};
    WindowResult other = LitWindow(0x2B, L"东楼-102-12");
    other.passes = false;
    other.facing = 359.97;
    other.floor = 12;
    other.judged = 59.5;
    other.sunlit.clear();
    other.counted.clear();
    other.hidden.clear();
    other.notes = {WindowNote::Narrower};
    report.answer.windows = {window, other};
    EXPECT_EQ(WindowLinesOf(report),
              "结论    窗（句柄）        楼层  朝向（自东，度）  判定时数\n"
              "          真太阳时           北京时间           时:分:秒\n"
              "达标    1-101-1 (2A)         1          南 270.0   2:30:00  按从左端 0.30 米起、宽 1.80 米的部分判定\n"
              "    日照  09:00:00-12:00:00  09:15:00-12:15:00  3:00:00\n"
              "    计入  09:00:00-11:30:00  09:15:00-11:45:00  2:30:00\n"
              "    不计  14:00:00-14:03:00  14:15:00-14:18:00  0:03:00  时间段太短\n"
              "    遮挡  08:00:00-09:00:00  08:15:00-09:15:00  1:00:00  被 2F\n"
              "    遮挡  12:00:00-16:00:00  12:15:00-16:15:00  4:00:00  被 2F, 30\n"
              "不达标  东楼-102-12 (2B)    12            东 0.0   0:59:30\n"
              "    比标准的最小窗宽窄\n");
}

TEST(AnalysisTable, TellsWhichHeightsWereAskedFor) {
    AnalysisReport report = BareReport();
    EXPECT_FALSE(HasLine(report, "图层高度"));
    report.request.heights = {{L"A\x1b", 18.5}, {L"B", 3.0}};
    EXPECT_TRUE(HasLine(report, "图层高度"));
    EXPECT_TRUE(HasLine(report, "A\xEF\xBF\xBD 高 18.5 米、B 高 3 米"));
    report.answer.remarks = {{AnalysisRemark::Kind::NothingToRaise, L"B", 0, 0, 0.0},
                             {AnalysisRemark::Kind::NoWindows, L"A\x1b", 0, 0, 0.0}};
    EXPECT_TRUE(HasLine(report, "A\xEF\xBF\xBD 高 18.5 米、B 高 3 米（没有用上）"));
    report.answer.remarks[0] = {AnalysisRemark::Kind::NoLayerToRaise, L"B", 0, 0, 0.0};
    EXPECT_TRUE(HasLine(report, "B 高 3 米（没有用上）")) << "there is no such layer";
}

TEST(AnalysisTable, HasAWindowWithoutASideToo) {
    AnalysisReport report = BareReport();
    report.answer.windows = {WindowWithoutSide(0x2A, L"2A")};
    EXPECT_EQ(WindowLinesOf(report),
              "结论    窗（句柄）  楼层  朝向（自东，度）  判定时数\n"
              "          真太阳时           北京时间           时:分:秒\n"
              "-       2A             -                 -         -\n"
              "    分不清哪一侧是室外，没有分析；可用 --facing 给出朝向\n");
}

TEST(AnalysisTable, IsNotPushedAsideByOneLongName) {
    AnalysisReport report = BareReport();
    const CString longName(L'n', 80);
    WindowResult window = LitWindow(0x2B, L"a");
    window.hidden.clear();
    window.sunlit.clear();
    window.counted.clear();
    report.answer.windows = {window, window};
    report.answer.windows[0].name = longName;
    const std::string blanks(40 - 6, ' ');  // behind "a (2B)"
    EXPECT_TRUE(HasLine(report, "-       a (2B)" + blanks + "     1          南 270.0"));
    EXPECT_TRUE(HasLine(report, "-       " + ToUtf8(longName.View()) + " (2B)     1          南 270.0"));
}

TEST(AnalysisTable, StaysWithinAHundredColumns) {
    AnalysisReport report = BareReport();
    WindowResult window = LitWindow(0x2A, L"1-101-1");
    window.hidden = {{{8.0, 9.0}, {}}};
    for (std::uint64_t handle = 0x10000; handle < 0x10040; ++handle)
        window.hidden[0].by.push_back(handle);
    report.answer.windows = {window};
    int handles = 0;
    bool isWithin = false;
    for (const std::string& line : LinesOf(report)) {
        isWithin = (isWithin || line.find("遮挡  ") != std::string::npos) && !line.empty();
        if (!isWithin)
            continue;
        EXPECT_LE(DisplayWidth(FromUtf8(line)), 100) << line;
        for (std::size_t at = line.find("100"); at != std::string::npos; at = line.find("100", at + 1))
            ++handles;
    }
    EXPECT_EQ(handles, 0x40);
}

TEST(AnalysisTable, ShowsNothingThatSteersATerminal) {
    AnalysisReport report = BareReport();
    report.answer.windows = {LitWindow(0x2A, L"a\x1b[31m-b\n-c")};
    report.shading = {{0x2F, {L"LWPOLY\x07LINE", L"层\x1b[0m"}, 1}};
    for (const std::string& line : LinesOf(report))
        for (const char character : line)
            EXPECT_GE(static_cast<unsigned char>(character), 0x20) << line;
    EXPECT_TRUE(HasLine(report, "a\xEF\xBF\xBD[31m-b\xEF\xBF\xBD-c (2A)"));
}

TEST(AnalysisTable, TellsWhatWasAsked) {
    AnalysisReport report = BareReport();
    EXPECT_TRUE(HasLine(report, "某省/甲地"));
    EXPECT_TRUE(HasLine(report, "2026年 1月20日"));
    EXPECT_TRUE(HasLine(report, "真太阳时 08:00:00-16:00:00，北京时间 08:15:00-16:15:00"));
    EXPECT_TRUE(HasLine(report, "没有给出（--need）"));
    EXPECT_TRUE(HasLine(report, ToUtf8(RulesInOneLine(*report.request.settings.standard).View())));
    EXPECT_EQ(LinesOf(report).back(), ToUtf8(SourceWarning().View()));
    EXPECT_FALSE(HasLine(report, "正北"));
    EXPECT_FALSE(HasLine(report, "图形 "));
    report.drawing = L"/home/a/小区\x1b.dxf";
    EXPECT_TRUE(HasLine(report, "图形      小区\xEF\xBF\xBD.dxf"));
    report.drawing = L"b.dxf";
    EXPECT_TRUE(HasLine(report, "图形      b.dxf"));
    report.request.north = -7.5;
    report.request.need = 1.5;
    EXPECT_TRUE(HasLine(report, "从图形的 y 轴起逆时针 -7.5 度"));
    EXPECT_TRUE(HasLine(report, "1:30:00（时:分:秒）"));
}

TEST(AnalysisTable, TellsWhatHidesTheSunAndWhatWasLeftOut) {
    AnalysisReport report = BareReport();
    EXPECT_FALSE(HasLine(report, "遮挡日照的实体"));
    report.shading = {{0x2F, {L"LWPOLYLINE", L"建筑"}, 12}, {0, {L"3DFACE", L"0"}, 1}};
    EXPECT_TRUE(HasLine(report, "    2F  LWPOLYLINE  建筑          12"));
    EXPECT_TRUE(HasLine(report, "     -  3DFACE      0              1"));
    EXPECT_FALSE(HasLine(report, "--scope"));
    EXPECT_FALSE(HasLine(report, "太阳高度角低于"));
    report.request.isScoped = true;
    report.request.leastAltitude = 5.0;
    AnalysisRemark remark;
    remark.kind = AnalysisRemark::Kind::LeftOutByScope;
    remark.count = 1234567;
    report.answer.remarks = {remark};
    EXPECT_TRUE(HasLine(report, "1234567 个实体"));
    EXPECT_TRUE(HasLine(report, "太阳高度角低于 5 度"));
}

TEST(AnalysisTable, StopsWhenNobodyWantsIt) {
    AnalysisReport report = BareReport();
    report.answer.windows = {LitWindow(1, L"a")};
    TextOutput output;
    EXPECT_FALSE(PrintAnalysisTable(report, output, [](std::size_t, std::size_t) { return false; }));
}

TEST(AnalysisWords, TellDurationsToTheSecond) {
    const struct {
        double minutes;
        const char* text;
        const char* shortText;
    } kDurations[] = {{0.0, "0:00:00", "0:00"},          {5.0, "0:05:00", "0:05"},     {60.0, "1:00:00", "1:00"},
                      {119.5, "1:59:30", "1:59:30"},     {119.999, "2:00:00", "2:00"}, {1440.0, "24:00:00", "24:00"},
                      {1.0 / 60.0, "0:00:01", "0:00:01"}};
    for (const auto& each : kDurations) {
        EXPECT_EQ(ToUtf8(DurationText(each.minutes).View()), each.text) << each.minutes;
        EXPECT_EQ(ToUtf8(ShortDurationText(each.minutes).View()), each.shortText) << each.minutes;
    }
}

TEST(AnalysisWords, TellDirectionsWithinOneTurn) {
    const std::pair<double, std::string> directions[] = {
        {0.0, "0.0"}, {-0.0, "0.0"}, {359.94, "359.9"}, {359.96, "0.0"}, {270.04, "270.0"}};
    for (const auto& [direction, text] : directions)
        EXPECT_EQ(ToUtf8(DegreesText(direction).View()), text) << direction;
}
