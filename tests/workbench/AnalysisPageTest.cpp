// The page of an analysis: what it says of windows, in words that people who never saw the program understand.
#include "workbench/commands/AnalysisPage.h"

#include <regex>

#include "platform/host/AcDbDatabase.h"
#include "workbench/AnalysisForTests.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/SkyChoice.h"

namespace {

std::string PageOf(const AnalysisReport& report) {
    return AnalysisPage(report, AcDbDatabase(), PageRequest(), SkyChoice(), nullptr);
}

bool Has(const std::string& page, const char* text) {
    return page.find(text) != std::string::npos;
}

}  // namespace

TEST(AnalysisPageTest, SaysTheSideOfAWindowInAWordBeforeItsDegrees) {
    AnalysisReport report = BareReport();
    report.answer.windows = {LitWindow(0x2A, L"1-101-1")};
    report.answer.windows[0].facing = 315.0;
    const std::string page = PageOf(report);
    EXPECT_TRUE(Has(page, ">朝向（自东，度）</th>")) << page;
    EXPECT_TRUE(Has(page, ">东南 315.0</td>")) << page;
    EXPECT_TRUE(Has(page, ">朝东南</span>")) << "beside its day";
    EXPECT_FALSE(Has(page, "315.0 东南"));
    EXPECT_TRUE(Has(page, "度数从正东起逆时针计：北 90，西 180，南 270。"));
}

// With a window that has seconds and one that has none.
TEST(AnalysisPageTest, WritesDurationsInOneForm) {
    AnalysisReport report = BareReport();
    report.request.need = 2.0;
    report.answer.windows = {LitWindow(0x2A, L"1-101-1"), LitWindow(0x2B, L"1-101-2")};
    report.answer.windows[1].judged = 59.5;
    report.answer.windows[1].passes = false;
    const std::string page = PageOf(report);
    EXPECT_TRUE(Has(page, "2:00:00（时:分:秒）"));
    EXPECT_TRUE(Has(page, "3:00:00</td>")) << "the window's";
    EXPECT_TRUE(Has(page, "0:59:30</td>"));
    EXPECT_TRUE(Has(page,
                    "12:00:00-16:00:00 / 12:15:00-16:15:00\xE2\x80\x83"
                    "4:00:00"));
    EXPECT_FALSE(std::regex_search(page, std::regex("[> ]\\d+:\\d\\d</(td|span|dd)>"))) << "hours and minutes alone";
}
