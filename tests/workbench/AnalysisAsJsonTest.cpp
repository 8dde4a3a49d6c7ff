// The document of an analysis: its members, their order, and what it is made of for odd drawings.
#include "workbench/commands/AnalysisAsJson.h"

#include <nlohmann/json.hpp>

#include "workbench/AnalysisForTests.h"

namespace {

using Json = nlohmann::ordered_json;
using Names = std::vector<std::string>;

std::string TextOf(const AnalysisReport& report) {
    TextOutput output;
    EXPECT_TRUE(PrintAnalysisAsJson(report, output, GoOn));
    return output.Text();
}

Json DocumentOf(const AnalysisReport& report) {
    return Json::parse(TextOf(report));
}

Json WindowOf(const WindowResult& window) {
    AnalysisReport report = BareReport();
    report.answer.windows = {window};
    return DocumentOf(report)["windows"][0];
}

Names MembersOf(const Json& document) {
    Names names;
    for (const auto& [name, value] : document.items())
        names.push_back(name);
    return names;
}

}  // namespace

TEST(AnalysisAsJson, TellsWhichHeightsWereAskedFor) {
    AnalysisReport report = BareReport();
    EXPECT_FALSE(DocumentOf(report).contains("heights"));
    report.request.heights = {{L"楼", 18.5}, {L"B", 3.0}};
    EXPECT_EQ(DocumentOf(report)["heights"],
              (Json{{{"layer", "楼"}, {"metres", 18.5}}, {{"layer", "B"}, {"metres", 3.0}}}));
}

TEST(AnalysisAsJson, HasItsMembersInOrder) {
    AnalysisReport report = BareReport();
    report.answer.windows = {LitWindow(0x2A, L"1-101-1")};
    const Json document = DocumentOf(report);
    EXPECT_EQ(MembersOf(document),
              (Names{"note", "place", "date", "standard", "north", "need", "span", "beijingOffset", "windows"}));
    EXPECT_EQ(MembersOf(document["windows"][0]),
              (Names{"handle", "name", "floor", "facing", "width", "height", "sill", "corners", "sunlit", "stepped",
                     "counted", "dropped", "hidden", "total", "longest", "judged", "verdict", "color", "notes"}));
    EXPECT_EQ(MembersOf(document["windows"][0]["sunlit"][0]), (Names{"start", "end", "minutes"}));
    EXPECT_EQ(MembersOf(document["windows"][0]["hidden"][0]), (Names{"start", "end", "by"}));
}

TEST(AnalysisAsJson, TellsWhatWasAsked) {
    AnalysisReport report = BareReport();
    report.request.north = -7.5;
    report.request.need = 1.5;
    report.standardIndex = 3;
    report.isCurrentStandard = true;
    const Json document = DocumentOf(report);
    EXPECT_EQ(document["place"]["city"], "甲地");
    EXPECT_EQ(document["place"]["longitude"], 116.25);
    EXPECT_EQ(document["date"], "2026-01-20");
    EXPECT_EQ(document["standard"]["index"], 3);
    EXPECT_EQ(document["standard"]["current"], true);
    EXPECT_EQ(document["standard"]["name"], "试验标准");
    EXPECT_EQ(document["north"], -7.5);
    EXPECT_EQ(document["need"], 1.5);
    EXPECT_EQ(document["span"], (Json{{"start", 8.0}, {"end", 16.0}}));
    EXPECT_EQ(document["beijingOffset"], 0.25);
    EXPECT_EQ(document["windows"], Json::array());
    EXPECT_NE(document["note"].get<std::string>().find("甲地"), std::string::npos);
    EXPECT_EQ(DocumentOf(BareReport())["need"], nullptr);
}

TEST(AnalysisAsJson, TellsAWindowWithoutRounding) {
    WindowResult window = LitWindow(0x2AF, L"1-101-1");
    window.sunlit = {{8.1 + 0.2, 12.0 + 1.0 / 3.0}};
    window.passes = false;
    window.part = WindowPart{0.1 + 0.2, 1.8};
    window.dropped = {{{14.0, 14.05}, DropReason::Facing},
                      {{14.5, 14.6}, DropReason::Angle},
                      {{15.0, 15.1}, DropReason::Short},
                      {{15.2, 15.3}, DropReason::NotAmongLongest},
                      {{15.4, 15.5}, DropReason::Threshold}};
    window.notes = {WindowNote::Cut, WindowNote::Inside, WindowNote::NoSide, WindowNote::Narrower};
    const Json document = WindowOf(window);
    EXPECT_EQ(document["handle"], "2AF");
    EXPECT_EQ(document["name"], "1-101-1");
    EXPECT_EQ(document["floor"], 1);
    EXPECT_EQ(document["facing"], 270.0);
    EXPECT_EQ(document["corners"], (Json{{1.0, 2.0, 0.9}, {2.5, 2.0, 0.9}, {2.5, 2.0, 2.15}, {1.0, 2.0, 2.15}}));
    EXPECT_EQ(document["sunlit"][0]["start"], 8.1 + 0.2);
    EXPECT_EQ(document["sunlit"][0]["end"], 12.0 + 1.0 / 3.0);
    EXPECT_EQ(document["counted"][0]["minutes"], 180.0);
    EXPECT_EQ(document["hidden"][1]["by"], (Json{"2F", "30"}));
    Names reasons;
    for (const Json& dropped : document["dropped"])
        reasons.push_back(dropped["reason"]);
    EXPECT_EQ(reasons, (Names{"facing", "angle", "short", "not among the longest", "threshold"}));
    EXPECT_EQ(document["judged"], 180.0);
    EXPECT_EQ(document["verdict"], "fail");
    EXPECT_EQ(document["color"], 4);
    EXPECT_EQ(document["part"], (Json{{"from", 0.1 + 0.2}, {"width", 1.8}}));
    EXPECT_EQ(document["notes"], (Json{"cut", "inside", "no side", "narrower"}));
    EXPECT_EQ(MembersOf(document)[18], "part");
    window.passes = true;
    EXPECT_EQ(WindowOf(window)["verdict"], "pass");
}

TEST(AnalysisAsJson, HasNullWhereThereIsNothing) {
    const Json document = WindowOf(WindowWithoutSide(0, L""));
    for (const char* member : {"handle", "floor", "facing", "verdict"})
        EXPECT_EQ(document[member], nullptr) << member;
    for (const char* member : {"sunlit", "stepped", "counted", "dropped", "hidden"})
        EXPECT_EQ(document[member], Json::array()) << member;
    EXPECT_FALSE(document.contains("part"));
    WindowResult window = LitWindow(1, L"a");
    window.hidden = {{{8.0, 9.0}, {0}}};
    EXPECT_EQ(WindowOf(window)["hidden"][0]["by"], Json::array({nullptr}));
}

TEST(AnalysisAsJson, IsSoundForAnyName) {
    const wchar_t surrogate[] = {L'a', static_cast<wchar_t>(0xDC80), L'b', 0};
    const std::pair<CString, std::string> names[] = {{L"a\"b\\c", "a\"b\\c"},
                                                     {L"line\nend\r\ttab\x1b", "line\nend\r\ttab\x1b"},
                                                     {surrogate,
                                                      "a\xEF\xBF\xBD"
                                                      "b"},
                                                     {L"窗😀", "窗😀"}};
    for (const auto& [name, read] : names)
        EXPECT_EQ(WindowOf(LitWindow(1, name))["name"], read);
}

TEST(AnalysisAsJson, IsLaidOutLikeOneDocument) {
    AnalysisReport report = BareReport();
    EXPECT_EQ(TextOf(report), DocumentOf(report).dump(2) + "\n");
    report.answer.windows = {LitWindow(1, L"a\nb"), WindowWithoutSide(2, L"c")};
    report.request.isScoped = true;
    EXPECT_EQ(TextOf(report), DocumentOf(report).dump(2) + "\n");
}

TEST(AnalysisAsJson, TellsWhatWasLeftOutOnlyWhenAsked) {
    AnalysisReport report = BareReport();
    EXPECT_FALSE(DocumentOf(report).contains("leftOut"));
    report.request.leastAltitude = 5.5;
    EXPECT_EQ(DocumentOf(report)["leftOut"], (Json{{"scope", nullptr}, {"belowAltitude", 5.5}}));
    report.request.isScoped = true;
    EXPECT_EQ(DocumentOf(report)["leftOut"]["scope"], 0);
    AnalysisRemark remark;
    remark.kind = AnalysisRemark::Kind::LeftOutByScope;
    remark.count = 12;
    report.answer.remarks = {remark};
    EXPECT_EQ(DocumentOf(report)["leftOut"]["scope"], 12);
    // The parameters may bring a least altitude of their own.
    report.request.leastAltitude.reset();
    remark.kind = AnalysisRemark::Kind::LeftOutByAltitude;
    remark.amount = 3.0;
    report.answer.remarks = {remark};
    EXPECT_EQ(DocumentOf(report)["leftOut"], (Json{{"scope", 0}, {"belowAltitude", 3.0}}));
}

TEST(AnalysisAsJson, StopsWhenNobodyWantsIt) {
    AnalysisReport report = BareReport();
    report.answer.windows = {LitWindow(1, L"a"), LitWindow(2, L"b")};
    TextOutput output;
    EXPECT_FALSE(PrintAnalysisAsJson(report, output, [](std::size_t done, std::size_t total) {
        EXPECT_EQ(total, 2U);
        return done == 0;
    }));
    EXPECT_EQ(output.Text().find("\"b\""), std::string::npos);
}

TEST(AnalysisAsJson, ComparesWindowsOnlyWithAProject) {
    const Json plain = WindowOf(ShadedWindow(1, L"a"));
    EXPECT_FALSE(plain.contains("before") || plain.contains("change"));
    AnalysisReport report = BareReport();
    EXPECT_FALSE(DocumentOf(report).contains("proposed"));
    report.request.proposedLayers = {L"方案", L"B"};
    EXPECT_EQ(DocumentOf(report)["proposed"], (Json{"方案", "B"}));
    EXPECT_EQ(MembersOf(DocumentOf(report))[8], "proposed");
}

TEST(AnalysisAsJson, HasBeforeAllMembersOfAWindow) {
    const AnalysisReport report = ProjectReport(2.5, {ShadedWindow(0x2A, L"1-101-1"), LitWindow(0x2B, L"on")});
    const Json windows = DocumentOf(report)["windows"];
    const Json& now = windows[0];
    const Json& before = now["before"];
    Names members = MembersOf(now);
    ASSERT_EQ(members.back(), "change");
    members.pop_back();
    ASSERT_EQ(members.back(), "before");
    members.pop_back();
    EXPECT_EQ(MembersOf(before), members);
    for (const char* member : {"handle", "name", "floor", "facing", "width", "height", "sill", "corners"})
        EXPECT_EQ(before[member], now[member]) << member;
    EXPECT_EQ(before["judged"], 180.0);
    EXPECT_EQ(before["color"], 4);
    EXPECT_EQ(before["verdict"], "pass");
    EXPECT_EQ(before["sunlit"][0]["end"], 12.0);
    EXPECT_EQ(before["hidden"][1]["start"], 12.0);
    EXPECT_EQ(now["judged"], 120.0);
    EXPECT_EQ(now["verdict"], "fail");
    EXPECT_EQ(now["change"], (Json{{"minutes", -60.0}, {"from", "pass"}, {"to", "fail"}}));
    EXPECT_EQ(windows[1]["before"], nullptr);
    EXPECT_EQ(windows[1]["change"], nullptr);
    EXPECT_EQ(MembersOf(windows[1]).back(), "change");
}

TEST(AnalysisAsJson, HasNoVerdictsToCompareWithoutANeed) {
    AnalysisReport report = BareReport();
    report.request.proposedLayers = {L"a"};
    report.answer.windows = {ShadedWindow(1, L"a")};
    EXPECT_EQ(DocumentOf(report)["windows"][0]["change"],
              (Json{{"minutes", -60.0}, {"from", nullptr}, {"to", nullptr}}));
    EXPECT_EQ(TextOf(report), DocumentOf(report).dump(2) + "\n");
}
