// Finding standards in the settings.
#include "facts/StandardSearch.h"

#include <limits>

#include "facts/FactsStage.h"
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
