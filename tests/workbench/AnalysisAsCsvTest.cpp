// The lines for spreadsheets: their cells, quoting, and no formulas.
#include "workbench/commands/AnalysisAsCsv.h"

#include "workbench/AnalysisForTests.h"

namespace {

constexpr const char* kHeadings =
    "verdict,name,building,flat,handle,floor,facing,width,height,sill,judged,total,longest,counted,countedBeijing,"
    "sunlit,sunlitBeijing,dropped,droppedBeijing,hidden,hiddenBeijing,partFrom,partWidth,color,notes\r\n";

std::string LinesOf(const std::vector<WindowResult>& windows) {
    AnalysisReport report = BareReport();
    report.answer.windows = windows;
    TextOutput output;
    EXPECT_TRUE(PrintAnalysisAsCsv(report, output, GoOn));
    const std::string headings = kHeadings;
    EXPECT_EQ(output.Text().substr(0, headings.size()), headings);
    return output.Text().substr(headings.size());
}

// The second cell of the one line.
std::string NameCell(const CString& name) {
    const std::string line = LinesOf({LitWindow(1, name)});
    const std::string after = ",,,1,1,270,";
    const std::size_t end = line.find(after);
    EXPECT_NE(end, std::string::npos) << line;
    return line.substr(1, end - 1);
}

}  // namespace

TEST(AnalysisAsCsv, HasOneLineForEachWindow) {
    EXPECT_EQ(LinesOf({}), "");
    WindowResult window = LitWindow(0x2AF, L"3-402-1");
    window.passes = true;
    window.counted = {{9.0, 10.5}, {11.0, 12.0}};
    window.dropped = {{{14.0, 14.05}, DropReason::Short}, {{14.5, 15.0}, DropReason::NotAmongLongest}};
    window.part = WindowPart{0.6, 1.8};
    window.notes = {WindowNote::Cut, WindowNote::Narrower};
    EXPECT_EQ(LinesOf({window, WindowWithoutSide(0, L"x")}),
              "pass,3-402-1,3,402,2AF,1,270,1.5,1.25,0.9,180,180,180,"
              "09:00:00-10:30:00; 11:00:00-12:00:00,09:15:00-10:45:00; 11:15:00-12:15:00,"
              "09:00:00-12:00:00,09:15:00-12:15:00,"
              "14:00:00-14:03:00 short; 14:30:00-15:00:00 not among the longest,"
              "14:15:00-14:18:00 short; 14:45:00-15:15:00 not among the longest,"
              "08:00:00-09:00:00 by 2F; 12:00:00-16:00:00 by 2F 30,"
              "08:15:00-09:15:00 by 2F; 12:15:00-16:15:00 by 2F 30,0.6,1.8,4,cut; narrower\r\n"
              ",x,,,,,,0,0,0,0,0,0,,,,,,,,,,,0,no side\r\n");
}

TEST(AnalysisAsCsv, QuotesWhatItMust) {
    EXPECT_EQ(NameCell(L"plain"), "plain");
    EXPECT_EQ(NameCell(L"a,b"), "\"a,b\"");
    EXPECT_EQ(NameCell(L"a\"b"), "\"a\"\"b\"");
    EXPECT_EQ(NameCell(L"a\nb"), "\"a\nb\"");
    EXPECT_EQ(NameCell(L"a\rb"), "\"a\rb\"");
    EXPECT_EQ(NameCell(L"东窗，一"), "东窗，一");
    const wchar_t surrogate[] = {L'a', static_cast<wchar_t>(0xDC80), 0};
    EXPECT_EQ(NameCell(surrogate), "a\xEF\xBF\xBD");
}

TEST(AnalysisAsCsv, HasNoFormulas) {
    for (const wchar_t* start : {L"=", L"+", L"@", L"＝", L"＋", L"－", L"＠", L"\t", L" =", L"　@", L"\xFEFF="})
        EXPECT_EQ(NameCell(CString(start) + L"1"), "'" + ToUtf8(start) + "1");
    EXPECT_EQ(NameCell(L"\r1"), "\"'\r1\"");
    EXPECT_EQ(NameCell(L"=HYPERLINK(\"a\",\"b\")"), "\"'=HYPERLINK(\"\"a\"\",\"\"b\"\")\"");
    for (const wchar_t* harmless : {L"1=2", L"a+b", L"'=1", L" a"})
        EXPECT_EQ(NameCell(harmless), ToUtf8(harmless));
    const std::string line = LinesOf({LitWindow(1, L"-5")});
    EXPECT_EQ(line.substr(0, 4), ",'-5");
    // A building of its own makes a cell of its own.
    EXPECT_EQ(LinesOf({LitWindow(1, L"=A-@B-1")}).substr(0, 21), ",'=A-@B-1,'=A,'@B,1,1");
}

TEST(AnalysisAsCsv, LeavesNumbersNumbers) {
    WindowResult window = LitWindow(1, L"a");
    window.sill = -1.25;
    EXPECT_NE(LinesOf({window}).find(",1.25,-1.25,180,"), std::string::npos);
}

TEST(AnalysisAsCsv, RoundsNumbersToSixDecimals) {
    WindowResult window = LitWindow(1, L"a");
    window.facing = 359.9999999;
    window.sill = -1e-9;
    window.judged = 160.99999999999991;
    window.total = 1.2345678;
    window.longest = 2.5;
    EXPECT_NE(LinesOf({window}).find(",360,1.5,1.25,0,161,1.234568,2.5,"), std::string::npos);
}

TEST(AnalysisAsCsv, GoesOnBeyondMidnight) {
    WindowResult window = LitWindow(1, L"a");
    window.sunlit = {{23.5, 24.25}};
    window.counted = {{-0.75, 1.0}};
    window.hidden.clear();
    EXPECT_NE(LinesOf({window}).find("'-00:45:00-01:00:00,'-00:30:00-01:15:00,23:30:00-24:15:00,23:45:00-24:30:00,"),
              std::string::npos);
}

TEST(AnalysisAsCsv, StopsWhenNobodyWantsIt) {
    AnalysisReport report = BareReport();
    report.answer.windows = {LitWindow(1, L"a")};
    TextOutput output;
    EXPECT_FALSE(PrintAnalysisAsCsv(report, output, [](std::size_t, std::size_t) { return false; }));
    EXPECT_EQ(output.Text(), kHeadings);
}

TEST(AnalysisAsCsv, TellsWhatAProjectTakesBehindEverythingElse) {
    WindowResult own = LitWindow(0x2C, L"c");
    AnalysisReport report = ProjectReport(2.5, {ShadedWindow(0x2A, L"a"), own});
    TextOutput output;
    EXPECT_TRUE(PrintAnalysisAsCsv(report, output, GoOn));
    std::string headings = kHeadings;
    headings.insert(headings.size() - 2, ",before,lost,from,to,by");
    const std::string text = output.Text();
    ASSERT_EQ(text.substr(0, headings.size()), headings);
    const std::size_t end = text.find("\r\n", headings.size());
    const std::string line = text.substr(headings.size(), end - headings.size());
    const std::string cells = ",3,,180,60,pass,fail,11:00:00-12:00:00 by 2F";  // from the colour and the notes on
    ASSERT_GT(line.size(), cells.size());
    EXPECT_EQ(line.substr(line.size() - cells.size()), cells);
    // A window on the project has nothing to compare with.
    const std::string last = ",4,,,,,,\r\n";
    EXPECT_EQ(text.substr(text.size() - last.size()), last);
    // Without a need there are no verdicts.
    report.request.need.reset();
    report.answer.windows[0].passes.reset();
    report.answer.windows[0].before->passes.reset();
    TextOutput bare;
    EXPECT_TRUE(PrintAnalysisAsCsv(report, bare, GoOn));
    EXPECT_NE(bare.Text().find(",3,,180,60,,,11:00:00-12:00:00 by 2F\r\n"), std::string::npos) << bare.Text();
}
