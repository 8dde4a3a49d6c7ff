// The rules of a standard, one by one and in one line, and where shipped values come from.
#include "facts/StandardWords.h"

#include <gtest/gtest.h>

#include <limits>

#include "facts/Standard.h"
#include "facts/StandardSearch.h"
#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"
#include "support/Folders.h"
#include "support/TableSwitch.h"

namespace {

OrvoStdSet Named(const wchar_t* name) {
    OrvoStdSet standard;
    standard.m_strName = name;
    standard.m_date.SetXmlDate(L"2026-12-22");
    standard.m_dgStartTime = 9.0;
    standard.m_dgEndTime = 15.0;
    return standard;
}

std::string Line(const OrvoStdSet& standard) {
    return ToUtf8(RulesInOneLine(StandardOf(standard)).View());
}

// The words under a label; a text that no rule has where the label is missing or stands there twice.
std::string Words(const Standard& standard, const wchar_t* label) {
    std::string words = "?";
    for (const Rule& rule : RulesInWords(standard))
        if (rule.label == label)
            words = words == "?" ? ToUtf8(rule.words.View()) : "twice";
    return words;
}

// A standard of the defaults.
Standard Defaults() {
    return StandardOf(Named(L"甲"));
}

}  // namespace

TEST(RulesInWordsOf, AStandardAreAllThere) {
    std::vector<std::string> rules;
    for (const Rule& rule : RulesInWords(Defaults()))
        rules.push_back(ToUtf8((rule.label + L"：" + rule.words).View()));
    const std::vector<std::string> wanted = {
        "分析日期：2026年12月22日",
        "分析时段：09:00～15:00",
        "时间基准：真太阳时",
        "计算精度：10 分钟",
        "日照窗：满窗日照分析",
        "窗宽：不限定",
        "有效日照规定：上海规定",
        "判断依据：最长有效连照分析(连续)",
        "累计方式：累计所有时间段",
        "有效时间段下限：0 分钟",
        "最长连续时间段下限：0 分钟",
        "累计超过下限的时间段：否（60 分钟）",
        "时数颜色：≥0小时:1 ≥1小时:2 ≥2小时:3 ≥3小时:4 ≥4小时:5 ≥5小时:6 ≥6小时:7 ≥7小时:8",
        "类型颜色：1 2 3 4 5"};
    EXPECT_EQ(rules, wanted);
}

TEST(RulesInWordsOf, AStandardFollowItsFields) {
    Standard standard = Defaults();
    standard.day = {2027, 1, 2};
    EXPECT_EQ(Words(standard, L"分析日期"), "2027年 1月 2日");
    standard.start = 8.0 + 20.0 / 60.0;
    standard.end = 24.0;
    EXPECT_EQ(Words(standard, L"分析时段"), "08:20～24:00");
    standard.start = standard.end = 0.0;
    EXPECT_EQ(Words(standard, L"分析时段"), "未设定");
    standard.step = 2.5;
    EXPECT_EQ(Words(standard, L"计算精度"), "2.5 分钟");
    standard.limitWidth = 7;
    standard.minWidth = 1200.5;
    standard.maxWidth = 1800.0;
    EXPECT_EQ(Words(standard, L"窗宽"), "限定宽度 1200.5～1800 毫米");
    standard.fullWindow = 0;
    EXPECT_EQ(Words(standard, L"窗宽"), "不适用（只用于满窗日照分析）");
    EXPECT_EQ(Words(standard, L"日照窗"), "窗台中点分析");
    standard.minValidAngle = 12;
    EXPECT_EQ(Words(standard, L"有效日照规定"), "上海规定") << "which has its own angles";
    standard.validSunType = ORVO_SUN_CUSTOM;
    EXPECT_EQ(Words(standard, L"有效日照规定"), "自定义，光线与墙面的水平夹角不小于 12 度");
    standard.minValidTime = 5;
    EXPECT_EQ(Words(standard, L"有效时间段下限"), "5 分钟");
    standard.minMaxValidTime = 30;
    EXPECT_EQ(Words(standard, L"最长连续时间段下限"), "30 分钟");
    standard.allMaxContinueTime = -1;
    standard.minContinueTime = 45;
    EXPECT_EQ(Words(standard, L"累计超过下限的时间段"), "是（45 分钟）");
    standard.timeColors = {{0.5, 256}, {2.0, -1}};
    EXPECT_EQ(Words(standard, L"时数颜色"), "≥0.5小时:256 ≥2小时:-1");
    standard.typeColors = {7};
    EXPECT_EQ(Words(standard, L"类型颜色"), "7");
}

TEST(RulesInWordsOf, AStandardHaveWordsForEveryChoice) {
    Standard standard = Defaults();
    const std::vector<std::string> counts = {"总有效日照分析(累计)", "最长有效连照分析(连续)", "未知的选择 2"};
    const std::vector<std::string> bases = {"真太阳时", "北京时间", "未知的选择 2"};
    const std::vector<std::string> totals = {"累计所有时间段", "累计最长两个时间段", "累计最长三个时间段",
                                             "未知的选择 3"};
    for (int i = 0; i < 3; ++i) {
        standard.maxContinue = standard.beijingTime = i;
        EXPECT_EQ(Words(standard, L"判断依据"), counts[static_cast<std::size_t>(i)]);
        EXPECT_EQ(Words(standard, L"时间基准"), bases[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < 4; ++i) {
        standard.totalTimeType = i;
        EXPECT_EQ(Words(standard, L"累计方式"), totals[static_cast<std::size_t>(i)]);
    }
    standard.validSunType = -1;
    EXPECT_EQ(Words(standard, L"有效日照规定"), "未知的选择 -1，光线与墙面的水平夹角不小于 0 度");
}

TEST(RulesInWordsOf, AStandardOfAbsurdNumbersAreWordsAllTheSame) {
    for (const double absurd : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300, -5.0}) {
        for (const int whole : {std::numeric_limits<int>::min(), -1, std::numeric_limits<int>::max()}) {
            Standard standard = Defaults();
            standard.day = {whole, whole, whole};
            standard.start = standard.end = standard.step = standard.minWidth = standard.maxWidth = absurd;
            standard.maxContinue = standard.beijingTime = standard.validSunType = standard.totalTimeType = whole;
            standard.limitWidth = 1;
            standard.timeColors = {{absurd, whole}};
            for (const Rule& rule : RulesInWords(standard))
                EXPECT_FALSE(rule.words.IsEmpty()) << ToUtf8(rule.label.View());
            EXPECT_FALSE(RulesInOneLine(standard).IsEmpty());
        }
    }
    Standard standard = Defaults();
    standard.step = -1e300;
    EXPECT_EQ(Words(standard, L"计算精度"), "-1e+300 分钟") << "as it is";
    standard.timeColors.clear();
    EXPECT_EQ(Words(standard, L"时数颜色"), "");
}

TEST(RulesInWordsOf, AStandardAreInTheLanguageOfTheInterface) {
    const TableSwitch english(
        {{L"时间基准", L"Time base"}, {L"真太阳时", L"true solar time"}, {L"%s 分钟", L"%s minutes"}});
    EXPECT_EQ(Words(Defaults(), L"Time base"), "true solar time");
    EXPECT_EQ(Words(Defaults(), L"计算精度"), "10 minutes");
}

TEST(TheSourceOf, EveryShippedStandardIsNamed) {
    QcDtDictionary file;
    OrvoDataSet shipped;
    ASSERT_TRUE(file.ReadFromXML(FromUtf8(SourceFolder() + "/data/SunSet.xml")));
    ASSERT_TRUE(shipped.LoadSunDataSetDict(&file));
    const std::vector<CString> names = NamesOfStandards(shipped);
    EXPECT_EQ(names.size(), 6U);
    for (const CString& name : names) {
        EXPECT_FALSE(SourceOf(name).IsEmpty()) << ToUtf8(name.View());
        const bool isNational = name.Left(2) == L"国标";
        EXPECT_EQ(SourceOf(name).Find(L"GB 50180") >= 0, isNational) << ToUtf8(name.View());
    }
    for (const wchar_t* other : {L"", L"上海标准 ", L"上海", L"我的标准"})
        EXPECT_TRUE(SourceOf(other).IsEmpty()) << ToUtf8(other);
}

TEST(TheSourceOf, StandardsIsToBeChecked) {
    EXPECT_GE(SourceWarning().Find(L"须与现行有效的文本核对"), 0);
    const TableSwitch english({{SourceWarning(), L"check them"}});
    EXPECT_EQ(SourceWarning(), L"check them");
}

TEST(RulesInOneLineOf, AStandardOfTheLongestPeriod) {
    OrvoStdSet standard = Named(L"甲");
    EXPECT_EQ(Line(standard),
              "当前标准“甲”：整个日照窗都须照到（满窗日照分析）；最长有效连照分析(连续)；上海规定；"
              "2026年12月22日；真太阳时 09:00～15:00；计算精度 10 分钟。");
    standard.m_nAllMaxContinueTime = 1;
    EXPECT_NE(Line(standard).find("(连续)；累计超过 60 分钟的时间段；上海规定"), std::string::npos) << Line(standard);
    standard.m_nMinValidTime = 5;
    EXPECT_EQ(Line(standard).find("不短于"), std::string::npos) << "only totals have a least period";
}

TEST(RulesInOneLineOf, AStandardOfTheTotal) {
    OrvoStdSet standard = Named(L"乙");
    standard.m_nFullWin = 0;
    standard.m_nLimitWidth = 1;
    standard.m_nMaxContinue = ORVO_COUNT_TOTAL;
    standard.m_nAllMaxContinueTime = 1;
    standard.m_nTotalTimeType = ORVO_TOTAL_LONGEST_TWO;
    standard.m_nMinValidTime = 5;
    standard.m_nMinMaxValidTime = 30;
    standard.m_nValidSunType = ORVO_SUN_CUSTOM;
    standard.m_nMinValidAngle = 12;
    standard.m_nBJTime = ORVO_BEIJING_TIME;
    standard.m_dSpace = 1.0;
    EXPECT_EQ(Line(standard),
              "当前标准“乙”：窗台中点照到即可（窗台中点分析）；总有效日照分析(累计)；累计最长两个时间段；"
              "有效时间段不短于 5 分钟；最长的时间段不短于 30 分钟；自定义，光线与墙面的水平夹角不小于 12 度；"
              "2026年12月22日；北京时间 09:00～15:00；计算精度 1 分钟。");
    standard.m_nFullWin = 1;
    EXPECT_NE(Line(standard).find("（满窗日照分析）；限定宽度 1200～2400 毫米；"), std::string::npos) << Line(standard);
}

TEST(RulesInOneLineOf, AForeignStandardIsOneLine) {
    OrvoStdSet standard = Named(L"第一行\n第二行\x1b[31m");
    standard.m_nMaxContinue = 77;
    EXPECT_EQ(Line(standard).find('\n'), std::string::npos);
    EXPECT_EQ(Line(standard).find('\x1b'), std::string::npos);
    EXPECT_NE(Line(standard).find("未知的选择 77"), std::string::npos) << Line(standard);
}
