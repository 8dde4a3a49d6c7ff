// What messages call an option where there are fields and no options.
#include <gtest/gtest.h>

#include "platform/host/AcDbDatabase.h"
#include "workbench/AnalysisForTests.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisPage.h"
#include "workbench/commands/AnalysisRemarks.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/commands/AskedReport.h"
#include "workbench/commands/PointRemarks.h"
#include "workbench/commands/PointsPage.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/SkyChoice.h"

namespace {

// Every message that an analysis can have, of windows and of points.
std::vector<CString> AllMessages() {
    std::vector<CString> messages;
    const auto add = [&messages](const std::vector<CString>& some) {
        messages.insert(messages.end(), some.begin(), some.end());
    };
    for (int kind = 0; kind <= static_cast<int>(AnalysisRemark::Kind::LeftOutByAltitude); ++kind)
        for (const std::size_t count : {0, 7}) {
            AnalysisReport report = BareReport();
            report.answer.remarks = {{static_cast<AnalysisRemark::Kind>(kind), L"WALLS", 0x2F, count, 5.5}};
            add(MessagesOf(report.request, report.answer));
            PointAnswer points;
            points.remarks = report.answer.remarks;
            add(MessagesOf(PointRequest(), points));
        }
    for (int kind = 0; kind <= static_cast<int>(AreaRemark::Kind::TooManyIsolines); ++kind) {
        PointAnswer points;
        points.areaRemarks = {{static_cast<AreaRemark::Kind>(kind), L"WALLS", 0x2F, 7}};
        add(MessagesOf(PointRequest(), points));
    }
    for (int failure = 1; failure <= static_cast<int>(AnalysisFailure::Cancelled); ++failure) {
        PointAnswer answer;
        answer.failure = static_cast<AnalysisFailure>(failure);
        messages.push_back(PointFailureText(PointRequest(), answer));
    }
    for (const WindowNote note : {WindowNote::Cut, WindowNote::Inside, WindowNote::NoSide, WindowNote::Narrower})
        messages.push_back(NoteWord(note));
    return messages;
}

bool NamesAnOption(CString message) {
    message.Replace(L"points --level", L"");  // of the window's command line
    return message.Find(L"--") >= 0 || message.Find(L"orvo ") >= 0;
}

int CountWithOptions(const std::vector<CString>& messages) {
    return static_cast<int>(std::count_if(messages.begin(), messages.end(), NamesAnOption));
}

}  // namespace

TEST(FieldWordsTest, StandInEveryMessageThatNamesAnOption) {
    const std::vector<CString> typed = AllMessages();
    EXPECT_GT(CountWithOptions(typed), 20);
    {
        const FieldWords words;
        for (const CString& message : AllMessages())
            EXPECT_FALSE(NamesAnOption(message)) << ToUtf8(message.View());
    }
    EXPECT_EQ(AllMessages(), typed) << "and in none of the command line";
}

TEST(FieldWordsTest, StandInTextsAndNotInValues) {
    const FieldWords words;
    const FieldWords again;
    EXPECT_EQ(ToUtf8(SayFormat(L"图形中没有图层“%s”（--height）", L"--windows").View()),
              "图形中没有图层“--windows”（图层列表的“高度（米）”）");
    EXPECT_EQ(ToUtf8(Say(L"--window-height --windows --report-date orvo set --step orvo set").View()),
              "“窗高（米）” “窗的图层” --report-date “日照设置” “日照设置”");
    EXPECT_EQ(OptionWord(L"--sill"), L"“窗台标高（米）”");
    EXPECT_EQ(OptionWord(L"--sills"), L"--sills");
}

TEST(FieldWordsTest, StandOnPages) {
    AnalysisReport report = BareReport();
    report.answer.remarks = {{AnalysisRemark::Kind::NoWindows, {}, 0, 0, 0.0}};
    const AcDbDatabase drawing;
    const std::string page = AnalysisPage(report, drawing, PageRequest(), SkyChoice(), nullptr);
    EXPECT_NE(page.find("“窗的图层”"), std::string::npos);
    EXPECT_EQ(page.find("--windows"), std::string::npos);
    EXPECT_EQ(page.find("--need"), std::string::npos);
    EXPECT_NE(page.find("没有分析任何窗，所以没有结论"), std::string::npos);
    EXPECT_EQ(page.find("共 0 个窗"), std::string::npos);
    PointsReport points;
    static_cast<DayRequest&>(points.request) = report.request;
    static_cast<DayAnswer&>(points.answer) = report.answer;
    points.answer.remarks.clear();
    points.answer.areaRemarks = {{AreaRemark::Kind::NoAreas, {}, 0, 0}};
    const std::string other = PointsPage(points, drawing, PageRequest());
    EXPECT_NE(other.find("“区域图层”"), std::string::npos);
    EXPECT_EQ(other.find("--areas"), std::string::npos);
}
