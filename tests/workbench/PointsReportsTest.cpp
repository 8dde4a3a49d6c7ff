// What orvo points prints of an answer: the table, the document, the lines for spreadsheets, and the messages.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "platform/base/PlainText.h"
#include "workbench/AnalysisForTests.h"
#include "workbench/commands/PointRemarks.h"
#include "workbench/commands/PointsAsCsv.h"
#include "workbench/commands/PointsAsJson.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/PointsTable.h"

namespace {

using Json = nlohmann::json;
using Kind = AreaRemark::Kind;

PointResult PointAt(double x, std::uint32_t outline, std::vector<SunPeriod> sunlit, double total) {
    PointResult point;
    point.place = QcGePoint(x, 2.0, 0.5);
    point.outline = outline;
    point.sunlit = std::move(sunlit);
    point.total = total;
    return point;
}

// An outline of two points, one of which has enough, and one without any.
PointsReport TwoOutlines() {
    const AnalysisReport bare = BareReport();
    PointsReport report;
    static_cast<DayRequest&>(report.request) = bare.request;
    static_cast<DayAnswer&>(report.answer) = bare.answer;
    report.request.areaLayers = {L"GREEN"};
    report.request.spacing = 2.5;
    report.request.need = 2.0;
    report.answer.points = {PointAt(1.25, 0, {{9.0, 12.0}}, 180.0),
                            PointAt(3.75, 0, {{9.0, 9.5}, {11.0, 11.25}}, 45.0)};
    OutlineResult lit;
    lit.handle = 0x2F;
    lit.area = 12.5;
    lit.pointCount = 2;
    lit.least = 45.0;
    lit.mean = 112.5;
    lit.most = 180.0;
    lit.share = 0.5;
    OutlineResult upright;
    upright.handle = 0x30;
    upright.area = 4.0;
    upright.firstPoint = 2;
    report.answer.outlines = {lit, upright};
    return report;
}

template <class Print>
std::string Printed(const PointsReport& report, const Print& print) {
    TextOutput output;
    EXPECT_TRUE(print(report, output, GoOn));
    return output.Text();
}

std::string Utf8(const CString& text) {
    return ToUtf8(text.View());
}

}  // namespace

TEST(PointsAsJson, HasOutlinesAndPoints) {
    const Json document = Json::parse(Printed(TwoOutlines(), PrintPointsAsJson));
    EXPECT_EQ(document["need"], 2.0);
    EXPECT_EQ(document["spacing"], 2.5);
    EXPECT_TRUE(document["level"].is_null());
    EXPECT_EQ(document["span"], (Json{{"start", 8.0}, {"end", 16.0}}));
    EXPECT_EQ(document["outlines"],
              Json::parse(R"([{"handle": "2F", "area": 12.5, "share": 0.5, "points": 2, "least": 45.0, "mean": 112.5,
                               "most": 180.0},
                              {"handle": "30", "area": 4.0, "share": null, "points": 0, "least": null, "mean": null,
                               "most": null}])"));
    EXPECT_EQ(document["points"], Json::parse(R"([{"outline": 0, "x": 1.25, "y": 2.0, "z": 0.5, "total": 180.0,
                               "sunlit": [{"start": 9.0, "end": 12.0, "minutes": 180.0}]},
                              {"outline": 0, "x": 3.75, "y": 2.0, "z": 0.5, "total": 45.0,
                               "sunlit": [{"start": 9.0, "end": 9.5, "minutes": 30.0},
                                          {"start": 11.0, "end": 11.25, "minutes": 15.0}]}])"));
    PointsReport report = TwoOutlines();
    report.request.level = 0.0;
    report.answer.outlines.clear();
    report.answer.points.clear();
    const Json empty = Json::parse(Printed(report, PrintPointsAsJson));
    EXPECT_EQ(empty["level"], 0.0);
    EXPECT_EQ(empty["points"], Json::array());
    EXPECT_EQ(empty["outlines"], Json::array());
}

TEST(PointsAsCsv, HasOneLineForEachPoint) {
    EXPECT_EQ(Printed(TwoOutlines(), PrintPointsAsCsv),
              "outline,handle,x,y,z,total,sunlit,sunlitBeijing\r\n"
              "0,2F,1.25,2,0.5,180,09:00:00-12:00:00,09:15:00-12:15:00\r\n"
              "0,2F,3.75,2,0.5,45,09:00:00-09:30:00; 11:00:00-11:15:00,09:15:00-09:45:00; 11:15:00-11:30:00\r\n");
}

TEST(PointsPrinting, StopsWhenAskedTo) {
    for (const auto print : {PrintPointsAsJson, PrintPointsAsCsv}) {
        TextOutput output;
        std::size_t last = 9;
        EXPECT_FALSE(print(TwoOutlines(), output, [&](std::size_t done, std::size_t total) {
            EXPECT_EQ(total, 2U);
            last = done;
            return done == 0;
        }));
        EXPECT_EQ(last, 1U);
    }
}

TEST(PointsTable, HasARowForEachOutline) {
    PointsReport report = TwoOutlines();
    TextOutput output;
    PrintPointsTable(report, output);
    const std::string& table = output.Text();
    EXPECT_NE(table.find("  2F           12.50     2  0:45:00  1:52:30  3:00:00     50.0%\n"), std::string::npos)
        << table;
    EXPECT_NE(table.find("  30            4.00     0        -        -        -         -\n"), std::string::npos)
        << table;
    EXPECT_NE(table.find("共 2 个轮廓，2 个点。"), std::string::npos);
    EXPECT_NE(table.find("点距 2.5 米，在各轮廓自己的平面上"), std::string::npos);
    report.request.level = -1.5;
    TextOutput level;
    PrintPointsTable(report, level);
    EXPECT_NE(level.Text().find("投影到标高 -1.5 米"), std::string::npos);
}

// Every kind has a message of its own, which names the entity, the layer or the number.
TEST(PointRemarks, EachKindIsToldOnce) {
    PointsReport report = TwoOutlines();
    std::set<std::string> texts;
    for (const Kind kind : {Kind::NoAreas, Kind::LayerMissing, Kind::LayerInvisible, Kind::NotAnOutline, Kind::Open,
                            Kind::Empty, Kind::NotFlat, Kind::Crossed, Kind::TooManyCorners, Kind::TooManyInBlock,
                            Kind::NoSide, Kind::PointsInside, Kind::TooManyIsolines}) {
        report.answer.areaRemarks = {{kind, L"LAWN", 0x2AF, 17}};
        const std::vector<CString> messages = MessagesOf(report.request, report.answer);
        ASSERT_EQ(messages.size(), 1U);
        const std::string text = Utf8(messages[0]);
        const bool isOfLayers = kind == Kind::LayerMissing || kind == Kind::LayerInvisible;
        EXPECT_NE(text.find(kind == Kind::NoAreas ? "GREEN" : isOfLayers ? "LAWN" : "2AF"), std::string::npos) << text;
        if (kind == Kind::LayerInvisible || kind == Kind::PointsInside)
            EXPECT_NE(text.find("17"), std::string::npos) << text;
        EXPECT_TRUE(texts.insert(text).second) << text;
    }
}

TEST(PointRemarks, ManyOfOneKindAreToldTogether) {
    PointsReport report = TwoOutlines();
    for (std::uint64_t i = 0; i < 70; ++i)
        report.answer.areaRemarks.push_back({Kind::Open, {}, 0x100 + i, 1});
    const std::vector<CString> messages = MessagesOf(report.request, report.answer);
    ASSERT_EQ(messages.size(), 12U);  // ten alone, fifty, and ten
    EXPECT_NE(Utf8(messages[10]).find("50"), std::string::npos);
    EXPECT_NE(Utf8(messages[11]).find("145"), std::string::npos);
}

TEST(PointRemarks, TheDrawingsOwnSpeakOfPoints) {
    PointsReport report = TwoOutlines();
    report.answer.remarks = {{AnalysisRemark::Kind::NoFaces, {}, 0, 0, 0.0},
                             {AnalysisRemark::Kind::NoFaces, L"LINE (2)", 0, 0, 0.0},
                             {AnalysisRemark::Kind::NoFaces, L"LINE (2)", 0, 3, 0.0},
                             {AnalysisRemark::Kind::SunNeverSets, {}, 0, 0, 0.0}};
    const std::vector<CString> messages = MessagesOf(report.request, report.answer);
    ASSERT_EQ(messages.size(), 4U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Utf8(messages[i]).find("窗"), std::string::npos) << Utf8(messages[i]);
        EXPECT_EQ(Utf8(messages[i]).find("LINE (2)") != std::string::npos, i > 0);
        EXPECT_EQ(Utf8(messages[i]).find("--height") != std::string::npos, i == 2);
    }
}

TEST(PointRemarks, FailuresSayWhy) {
    PointsReport report = TwoOutlines();
    report.answer.failure = AnalysisFailure::TooManyPoints;
    for (const auto& [count, text] : {std::pair(5000001.0, "5000001"), std::pair(1e18, "1.00e+18")}) {
        report.answer.pointCount = count;
        EXPECT_NE(Utf8(PointFailureText(report.request, report.answer)).find(text), std::string::npos);
    }
    for (const AnalysisFailure failure : {AnalysisFailure::NoPlace, AnalysisFailure::NoStandard,
                                          AnalysisFailure::UnknownUnit, AnalysisFailure::Cancelled}) {
        report.answer.failure = failure;
        EXPECT_FALSE(PointFailureText(report.request, report.answer).IsEmpty());
    }
}
