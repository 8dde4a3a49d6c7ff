// What an analysis says beside its answer.
#include "workbench/commands/AnalysisRemarks.h"

#include <gtest/gtest.h>

#include <set>

#include "workbench/AnalysisForTests.h"

namespace {

using Kind = AnalysisRemark::Kind;

AnalysisRemark Remark(Kind kind) {
    AnalysisRemark remark;
    remark.kind = kind;
    remark.subject = L"某层\x1b";
    remark.handle = 0x2F;
    remark.count = 3000000;
    remark.amount = 5.5;
    return remark;
}

std::vector<std::string> MessagesOf(const AnalysisReport& report) {
    std::vector<std::string> messages;
    for (const CString& message : MessagesOf(report.request, report.answer))
        messages.push_back(ToUtf8(message.View()));
    return messages;
}

std::string MessageOf(Kind kind) {
    AnalysisReport report = BareReport();
    report.answer.remarks = {Remark(kind)};
    const std::vector<std::string> messages = MessagesOf(report);
    EXPECT_EQ(messages.size(), 1U);
    return messages.empty() ? std::string() : messages[0];
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST(AnalysisRemarks, AreToldEachInItsOwnWords) {
    std::set<std::string> messages;
    for (const Kind kind : {Kind::NoWindows,
                            Kind::NoFaces,
                            Kind::LayerMissing,
                            Kind::LayerInvisible,
                            Kind::NotAWindow,
                            Kind::NoLayerToRaise,
                            Kind::NothingToRaise,
                            Kind::LinesWithoutHeight,
                            Kind::NothingRepeated,
                            Kind::TinyWindows,
                            Kind::SameNames,
                            Kind::LinesInRows,
                            Kind::Faulty,
                            Kind::TooLarge,
                            Kind::TooManyInBlock,
                            Kind::External,
                            Kind::WithoutFaces,
                            Kind::SpanUnusable,
                            Kind::StepUnusable,
                            Kind::SunBelowHorizon,
                            Kind::SunNeverSets,
                            Kind::LeftOutByScope,
                            Kind::LeftOutByAltitude,
                            Kind::ProposedMissing,
                            Kind::ProposedInvisible,
                            Kind::ProposedEmpty,
                            Kind::ProposedIsWindows,
                            Kind::AllProposed})
        messages.insert(MessageOf(kind));
    EXPECT_EQ(messages.size(), 28U);
    EXPECT_FALSE(messages.contains(""));
    for (const Kind kind :
         {Kind::LayerInvisible, Kind::LinesWithoutHeight, Kind::Faulty, Kind::WithoutFaces, Kind::LeftOutByScope,
          Kind::NoFaces, Kind::NothingToRaise, Kind::SameNames, Kind::LinesInRows, Kind::AllProposed})
        EXPECT_TRUE(Has(MessageOf(kind), "3000000"));
    for (const Kind kind :
         {Kind::LayerMissing, Kind::LayerInvisible, Kind::NoFaces, Kind::WithoutFaces, Kind::NoLayerToRaise,
          Kind::NothingToRaise, Kind::External, Kind::SameNames, Kind::Faulty, Kind::ProposedMissing,
          Kind::ProposedInvisible, Kind::ProposedEmpty, Kind::ProposedIsWindows})
        EXPECT_TRUE(Has(MessageOf(kind), "某层\xEF\xBF\xBD"));
    for (const Kind kind : {Kind::NotAWindow, Kind::TooManyInBlock, Kind::TooLarge, Kind::External})
        EXPECT_TRUE(Has(MessageOf(kind), " 2F"));
    EXPECT_TRUE(Has(MessageOf(Kind::LeftOutByAltitude), "5.5 度"));
    EXPECT_TRUE(Has(MessageOf(Kind::TinyWindows), "5.5 毫米"));
}

TEST(AnalysisRemarks, TellOfAnInsertWithItsBlock) {
    const std::string ofBlock = MessageOf(Kind::NotAWindow);
    EXPECT_TRUE(Has(ofBlock, "某层\xEF\xBF\xBD") && Has(ofBlock, " 3000000 ")) << ofBlock;
    AnalysisReport report = BareReport();
    report.answer.remarks = {Remark(Kind::NotAWindow)};
    report.answer.remarks[0].subject = CString();
    const std::string ofEntity = MessagesOf(report)[0];
    EXPECT_TRUE(Has(ofEntity, " 2F ") && !Has(ofEntity, "块")) << ofEntity;
    report.answer.remarks.assign(11, Remark(Kind::TooManyInBlock));
    for (std::uint64_t i = 0; i < 11; ++i)
        report.answer.remarks[i].handle = 0x25 + i;
    const std::vector<std::string> messages = MessagesOf(report);
    ASSERT_EQ(messages.size(), 11U);
    EXPECT_EQ(messages[10], "另有 1 个块参照的窗太多：2F");
}

TEST(AnalysisRemarks, NameTheLayersThatWereLookedAt) {
    EXPECT_TRUE(Has(MessageOf(Kind::NoWindows), "WINDOW"));
    EXPECT_TRUE(Has(MessageOf(Kind::NoWindows), "窗"));
    AnalysisReport report = BareReport();
    report.request.windowLayers = {L"外窗", L"阳台"};
    report.answer.remarks = {Remark(Kind::NoWindows)};
    const std::string message = MessagesOf(report)[0];
    EXPECT_TRUE(Has(message, "外窗") && Has(message, "阳台"));
    EXPECT_FALSE(Has(message, "WINDOW"));
}

TEST(AnalysisRemarks, TellEachNoteWithItsHandle) {
    AnalysisReport report = BareReport();
    WindowResult window = LitWindow(0x2A, L"1-101-1");
    window.notes = {WindowNote::Cut, WindowNote::Narrower};
    report.answer.windows = {window, WindowWithoutSide(0x2B, L"2B"), LitWindow(0x2C, L"x")};
    const std::vector<std::string> messages = MessagesOf(report);
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_EQ(messages[0], "窗 1-101-1 (2A)：有面穿过这个窗，按整日被遮挡计");
    EXPECT_EQ(messages[1], "窗 2B：分不清哪一侧是室外，没有分析；可用 --facing 给出朝向");
    EXPECT_EQ(messages[2], "窗 1-101-1 (2A)：比标准的最小窗宽窄");
}

TEST(AnalysisRemarks, SumUpWhatManySayWithoutLosingAHandle) {
    AnalysisReport report = BareReport();
    for (std::uint64_t handle = 0x100; handle < 0x100 + 111; ++handle) {
        report.answer.windows.push_back(WindowWithoutSide(handle, L"w"));
        report.answer.remarks.push_back(Remark(Kind::NotAWindow));
        report.answer.remarks.back().handle = handle;
    }
    const std::vector<std::string> messages = MessagesOf(report);
    // Ten by themselves, then 101 in lines of 50, 50 and 1: of the entities and of the windows.
    ASSERT_EQ(messages.size(), 2U * 13U);
    EXPECT_TRUE(Has(messages[10], "50 ")) << messages[10];
    EXPECT_TRUE(Has(messages[12], " 1 ")) << messages[12];
    for (const std::size_t first : {0U, 13U}) {
        std::string all;
        for (std::size_t i = first; i < first + 13; ++i)
            all += messages[i] + " ";
        for (std::uint64_t handle = 0x100; handle < 0x100 + 111; ++handle) {
            char text[8];
            std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(handle));
            EXPECT_TRUE(Has(all, text)) << text;
        }
    }
}

// Three windows in each of twelve blocks: those of one block that have no names are told alike.
TEST(AnalysisRemarks, SayNothingTwiceOfWhatStandsInOneBlock) {
    AnalysisReport report = BareReport();
    for (std::uint64_t handle = 0xA0; handle < 0xA0 + 12; ++handle)
        for (int i = 0; i < 3; ++i)
            report.answer.windows.push_back(WindowWithoutSide(handle, L"w"));
    const std::vector<std::string> messages = MessagesOf(report);
    ASSERT_EQ(messages.size(), 11U);
    EXPECT_EQ(std::set<std::string>(messages.begin(), messages.end()).size(), 11U);
    EXPECT_EQ(messages[10], "另有 6 个窗分不清哪一侧是室外：AA (3) AB (3)");
}

TEST(AnalysisRemarks, SayWhyThereIsNoAnswer) {
    AnalysisReport report = BareReport();
    report.answer.unit = L"英寸\x07";
    std::set<CString> texts;
    for (const AnalysisFailure failure :
         {AnalysisFailure::NoPlace, AnalysisFailure::NoStandard, AnalysisFailure::TooManyWindows,
          AnalysisFailure::UnknownUnit, AnalysisFailure::Cancelled}) {
        report.answer.failure = failure;
        texts.insert(FailureText(report.request, report.answer));
    }
    EXPECT_EQ(texts.size(), 5U);
    EXPECT_FALSE(texts.contains(CString()));
    report.answer.failure = AnalysisFailure::UnknownUnit;
    EXPECT_TRUE(Has(ToUtf8(FailureText(report.request, report.answer).View()), "“英寸\xEF\xBF\xBD”"));
    report.answer.failure = AnalysisFailure::NoPlace;
    EXPECT_TRUE(Has(ToUtf8(FailureText(report.request, report.answer).View()), "“甲地”"));
}
