// Finding standards in the settings, and making one the current one.
#include "facts/StandardSearch.h"

#include <limits>

#include "facts/FactsStage.h"
#include "facts/Settings.h"
#include "settings/OrvoStdSet.h"

namespace {

class StandardSearch : public FactsStage {
protected:
    StandardSearch() {
        for (const wchar_t* name : {L"上海标准", L"国标大寒日", L"国标冬至日"})
            Add(name);
    }

    OrvoStdSet& Add(const wchar_t* name) {
        OrvoStdSet standard;
        standard.m_strName = name;
        return *m_settings.NewStd(standard);
    }
    std::string Unknown(const wchar_t* name) const { return ToUtf8(UnknownStandardText(m_settings, name).View()); }

    OrvoDataSet m_settings;
};

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

}  // namespace

TEST_F(StandardSearch, GivesTheStandardsOfTheSettingsThemselves) {
    EXPECT_EQ(NamesOfStandards(m_settings), (std::vector<CString>{L"上海标准", L"国标大寒日", L"国标冬至日"}));
    EXPECT_EQ(StandardAt(m_settings, 0), &m_settings.GetStd(0));
    EXPECT_EQ(StandardAt(m_settings, 2), &m_settings.GetStd(2));
    EXPECT_EQ(FindStandard(m_settings, L"国标冬至日"), &m_settings.GetStd(2));
    EXPECT_TRUE(NamesOfStandards(OrvoDataSet()).empty());
}

TEST_F(StandardSearch, GivesNoneForWhatIsNotThere) {
    for (const int index : {kLeast, -1, 3, kMost})
        EXPECT_EQ(StandardAt(m_settings, index), nullptr) << index;
    for (const wchar_t* name : {L"", L"国标", L"国标冬至日 ", L"广州"})
        EXPECT_EQ(FindStandard(m_settings, name), nullptr) << ToUtf8(name);
    m_settings.m_listStd.Append(nullptr);
    EXPECT_EQ(StandardAt(m_settings, 3), nullptr);
    EXPECT_EQ(NamesOfStandards(m_settings).size(), 3U);
}

TEST_F(StandardSearch, GivesTheFirstOfAName) {
    Add(L"国标大寒日");
    EXPECT_EQ(FindStandard(m_settings, L"国标大寒日"), &m_settings.GetStd(1));
}

TEST_F(StandardSearch, KnowsWhetherThereIsACurrentOne) {
    for (const auto& [index, isThere] : {std::pair(0, true), {2, true}, {3, false}, {-1, false}, {kMost, false}}) {
        m_settings.m_nCurStd = index;
        EXPECT_EQ(HasCurrentStandard(m_settings), isThere) << index;
    }
}

TEST_F(StandardSearch, TellsNearNamesOrAllOfThem) {
    EXPECT_EQ(Unknown(L"国标大寒"), "没有名为“国标大寒”的标准。相近的有：国标大寒日");
    EXPECT_EQ(Unknown(L"广州"), "没有名为“广州”的标准。现有的标准：上海标准、国标大寒日、国标冬至日");
    EXPECT_EQ(Unknown(L"\n"), "没有名为“\uFFFD”的标准。现有的标准：上海标准、国标大寒日、国标冬至日");
    m_settings.m_listStd.Reset();
    EXPECT_EQ(Unknown(L"广州"), "没有名为“广州”的标准：设置中没有任何标准；orvo set --reset 恢复随程序提供的标准。");
}

TEST_F(StandardSearch, TakesOverWhatTheChosenOneHas) {
    OrvoStdSet& standard = m_settings.GetStd(1);
    standard.m_date = OrvoDate(2026, 1, 20);
    standard.m_dgStartTime = 8.0 + 20.0 / 60.0;
    standard.m_dgEndTime = 24.0;
    standard.m_dSpace = 2.75;
    UseStandard(m_settings, 1);
    EXPECT_EQ(m_settings.m_nCurStd, 1);
    const Settings settings = ReadSettings(m_settings);
    EXPECT_EQ(settings.ownDay, (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(settings.start.hour, 8);
    EXPECT_EQ(settings.start.minute, 20);
    EXPECT_EQ(settings.end.hour, 24);
    EXPECT_EQ(settings.end.minute, 0);
    EXPECT_EQ(settings.step, 2) << "whole minutes";
    EXPECT_EQ(m_settings.m_dSpace, 2.0);
    EXPECT_EQ(m_settings.m_dgStartTime.getDegree(), OrvoDegree(8, 20, 0).getDegree());
    EXPECT_EQ(m_settings.m_dgEndTime.getDegree(), 24.0);
    EXPECT_EQ(standard.m_dSpace, 2.75) << "the standard itself stays";
}

TEST_F(StandardSearch, TakesOverNoSpanAndNoStepThatMakeNoSense) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, double> spans[] = {{0.0, 0.0}, {9.0, 9.0},   {15.0, 9.0}, {-1.0, 9.0},       {9.0, 24.5},
                                               {nan, 9.0}, {9.0, 1e300}, {9.0, nan},  {-infinity, 1e300}};
    for (const auto& [start, end] : spans) {
        for (const double step : {nan, infinity, -infinity, 1e300, -1e300, -5.0, 0.0, 0.99, 60.01}) {
            OrvoStdSet& standard = m_settings.GetStd(2);
            standard.m_dgStartTime = start;
            standard.m_dgEndTime = end;
            standard.m_dSpace = step;
            UseStandard(m_settings, 2);
            const Settings settings = ReadSettings(m_settings);
            EXPECT_EQ(settings.start.hour, 9) << start << " " << end;
            EXPECT_EQ(settings.end.hour, 15) << start << " " << end;
            EXPECT_EQ(settings.step, 10) << step;
            EXPECT_EQ(m_settings.m_dSpace, 10.0) << step;
        }
    }
}

TEST_F(StandardSearch, LeavesTheOwnFieldsAloneWhereThereIsNoSuchStandard) {
    m_settings.m_date = OrvoDate(2025, 3, 1);
    m_settings.m_dSpace = 4.0;
    m_settings.m_nSpace = 4;
    for (const int index : {-1, 3, kLeast, kMost}) {
        UseStandard(m_settings, index);
        EXPECT_EQ(m_settings.m_nCurStd, index);
        EXPECT_FALSE(HasCurrentStandard(m_settings));
        EXPECT_EQ(ReadSettings(m_settings).Day(), (CalendarDay{2025, 3, 1}));
        EXPECT_EQ(m_settings.m_dSpace, 4.0);
    }
}
