// The rules of a standard in one line.
#include "facts/StandardWords.h"

#include <gtest/gtest.h>

#include "facts/Standard.h"
#include "settings/OrvoStdSet.h"

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

}  // namespace

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
