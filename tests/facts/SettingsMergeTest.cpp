// Two programs' changes of the same settings put together: every item by itself.
#include "facts/SettingsMerge.h"

#include <gtest/gtest.h>

#include <string>

#include "facts/SettingsForm.h"
#include "settings/OrvoDataSet.h"

namespace {

OrvoStdSet& AddStandard(OrvoDataSet& settings, const wchar_t* name) {
    OrvoStdSet standard;
    standard.m_strName = name;
    return *settings.NewStd(standard);
}

OrvoStdSet& Standard(OrvoDataSet& settings, const wchar_t* name) {
    return settings.GetStd(settings.FindStd(name));
}

// The same settings thrice, for a test to change, and what they are merged to.
class SettingsMerging : public testing::Test {
protected:
    SettingsMerging() {
        for (OrvoDataSet* each : {&m_known, &m_mine, &m_theirs}) {
            for (const wchar_t* name : {L"A", L"B", L"C"})
                AddStandard(*each, name);
            each->m_date.SetXmlDate(L"2026-12-22");
        }
    }

    void Merge() {
        MergedSettings merged = MergeSettings(*FormOf(m_known), *FormOf(m_mine), *FormOf(m_theirs));
        m_merged.LoadSunDataSetDict(merged.form.get());
        m_conflicts = merged.conflicts;
    }
    std::string Names() const {
        const std::unique_ptr<QcDtDictionary> form = FormOf(m_merged);
        std::string names;
        for (const QcDtDictionary* standard : StandardsIn(*form))
            names += ToUtf8(standard->GetName().View());
        return names;
    }
    std::string Current() {
        return m_merged.m_listStd.GetAt(m_merged.m_nCurStd) ? ToUtf8(m_merged.CurStd().m_strName.View()) : "none";
    }
    // "standard/label", with a blank behind each.
    std::string Conflicts() const {
        std::string words;
        for (const SettingsConflict& conflict : m_conflicts)
            words += ToUtf8(conflict.standard.View()) + "/" + (conflict.label ? ToUtf8(conflict.label) : "") + " ";
        return words;
    }

    OrvoDataSet m_known;
    OrvoDataSet m_mine;
    OrvoDataSet m_theirs;
    OrvoDataSet m_merged;
    std::vector<SettingsConflict> m_conflicts;
};

}  // namespace

TEST_F(SettingsMerging, WhoChangedNothingGetsWhatTheOtherHas) {
    m_theirs.m_strCurCity = L"上海";
    m_theirs.m_dgStartTime = 8.5;
    m_theirs.m_dgEndTime = 16.25;
    m_theirs.m_dSpace = 4.0;
    m_theirs.m_date.SetXmlDate(L"2025- 3- 1");
    m_theirs.SetCurStdIndex(2);
    Standard(m_theirs, L"B").m_nFullWin = 0;
    AddStandard(m_theirs, L"D");
    m_theirs.RemoveStd(0);
    m_theirs.SetCurStdIndex(1);  // C
    Merge();
    EXPECT_TRUE(IsSameItem(FormOf(m_merged).get(), FormOf(m_theirs).get()));
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, WhatOnlyThisOneChangedStays) {
    m_mine.m_strCurCity = L"上海";
    m_mine.m_dgStartTime = 8.5;
    m_mine.m_dSpace = 4.0;
    m_mine.m_listCity.Append(new OrvoCity(L"上海"));
    Standard(m_mine, L"B").m_nFullWin = 0;
    AddStandard(m_mine, L"D");
    m_mine.RemoveStd(0);
    m_mine.SetCurStdIndex(1);
    Merge();
    EXPECT_TRUE(IsSameItem(FormOf(m_merged).get(), FormOf(m_mine).get()));
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, DifferentSettingsOfBothGoTogether) {
    m_mine.m_strCurCity = L"上海";
    m_theirs.m_dSpace = 4.0;
    m_mine.m_dgStartTime = 8.0;
    m_theirs.m_dgEndTime = 14.0;
    m_theirs.m_date.SetXmlDate(L"2025- 3- 1");
    Merge();
    EXPECT_EQ(m_merged.m_strCurCity, L"上海");
    EXPECT_EQ(m_merged.m_dSpace, 4.0);
    EXPECT_EQ(m_merged.m_dgStartTime.getDegree(), 8.0);
    EXPECT_EQ(m_merged.m_dgEndTime.getDegree(), 14.0);
    EXPECT_EQ(m_merged.m_date.GetDateXmlString(), L"2025- 3- 1");
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, OfASettingThatBothChangedThisOnesCountsAndIsTold) {
    m_mine.m_strCurCity = L"上海";
    m_theirs.m_strCurCity = L"杭州";
    m_mine.m_dSpace = 4.0;
    m_theirs.m_dSpace = 5.0;
    m_mine.m_dgEndTime = 13.0;
    m_theirs.m_dgEndTime = 13.0;
    Merge();
    EXPECT_EQ(m_merged.m_strCurCity, L"上海");
    EXPECT_EQ(m_merged.m_dSpace, 4.0);
    EXPECT_EQ(Conflicts(), "/地区 /计算精度 ") << "the same change on both sides is no conflict";
}

TEST_F(SettingsMerging, FieldsOfOneStandardGoTogether) {
    Standard(m_mine, L"B").m_nFullWin = 0;
    Standard(m_mine, L"B").m_date.SetXmlDate(L"2025- 3- 1");
    Standard(m_theirs, L"B").m_dSpace = 3.0;
    Standard(m_theirs, L"B").m_colors.m_listType.Append(77);
    Standard(m_mine, L"A").m_nMinValidTime = 11;
    Standard(m_theirs, L"A").m_nMinValidTime = 12;
    Merge();
    const OrvoStdSet& standard = Standard(m_merged, L"B");
    EXPECT_EQ(standard.m_nFullWin, 0);
    EXPECT_EQ(standard.m_date.GetDateXmlString(), L"2025- 3- 1");
    EXPECT_EQ(standard.m_dSpace, 3.0);
    EXPECT_EQ(standard.m_colors.m_listType.GetLength(), 6);
    EXPECT_EQ(Standard(m_merged, L"A").m_nMinValidTime, 11);
    EXPECT_EQ(Conflicts(), "A/有效时间段下限 ");
}

TEST_F(SettingsMerging, EveryFieldOfAStandardIsTakenOver) {
    OrvoStdSet& standard = Standard(m_theirs, L"C");
    standard.m_nFullWin = 0;
    standard.m_nLimitWidth = standard.m_nAllMaxContinueTime = standard.m_nBJTime = 1;
    standard.m_nMaxContinue = standard.m_nTotalTimeType = 2;
    standard.m_dMaxWidth = standard.m_dMinWidth = standard.m_dSpace = 1.5;
    standard.m_dgStartTime = 7.0;
    standard.m_dgEndTime = 17.0;
    standard.m_nMinValidAngle = standard.m_nMinValidTime = standard.m_nMinMaxValidTime = 3;
    standard.m_nMinContinueTime = standard.m_nValidSunType = 4;
    standard.m_date.SetXmlDate(L"2025- 3- 1");
    standard.m_colors.m_listType.Append(77);
    EXPECT_EQ(DifferingFields(standard, Standard(m_mine, L"C")).size(), StandardFields().size());
    m_mine.m_strCurCity = L"上海";
    Merge();
    EXPECT_TRUE(DifferingFields(standard, Standard(m_merged, L"C")).empty());
    EXPECT_EQ(m_merged.m_strCurCity, L"上海");
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, StandardsOfBothAreAddedEachInItsPlace) {
    Standard(m_mine, L"B").m_strName = L"b";  // renamed
    AddStandard(m_mine, L"D");
    AddStandard(m_theirs, L"E");
    Merge();
    EXPECT_EQ(Names(), "AbCDE");
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, AStandardThatOneDeletedIsGone) {
    m_mine.RemoveStd(0);
    m_theirs.RemoveStd(1);
    Merge();
    EXPECT_EQ(Names(), "C");
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, DeletingWhatTheOtherChangedIsTold) {
    m_mine.RemoveStd(0);
    Standard(m_theirs, L"A").m_dSpace = 3.0;
    Standard(m_mine, L"B").m_dSpace = 3.0;
    m_theirs.RemoveStd(1);
    Merge();
    EXPECT_EQ(Names(), "BC");
    EXPECT_EQ(Standard(m_merged, L"B").m_dSpace, 3.0);
    EXPECT_EQ(Conflicts(), "A/ B/ ");
}

TEST_F(SettingsMerging, AddingTheSameNameIsToldWhereTheyDiffer) {
    AddStandard(m_mine, L"D").m_dSpace = 3.0;
    AddStandard(m_theirs, L"D").m_dSpace = 4.0;
    AddStandard(m_mine, L"E");
    AddStandard(m_theirs, L"E");
    Merge();
    EXPECT_EQ(Names(), "ABCDE");
    EXPECT_EQ(Standard(m_merged, L"D").m_dSpace, 3.0);
    EXPECT_EQ(Conflicts(), "D/计算精度 ");
}

TEST_F(SettingsMerging, AllStandardsThatTheOtherDeletedAreGone) {
    for (int i = 0; i < 3; ++i)
        m_theirs.RemoveStd(0);
    Merge();
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(Conflicts(), "");
}

TEST_F(SettingsMerging, TheListIsNotEmptiedByDeletingOnBothSides) {
    m_mine.RemoveStd(0);
    m_mine.RemoveStd(0);
    m_theirs.RemoveStd(2);
    Merge();
    EXPECT_EQ(Names(), "C");
    EXPECT_EQ(Current(), "C");
    EXPECT_EQ(Conflicts(), "C/ ");
}

TEST_F(SettingsMerging, TheCurrentStandardIsANameAndNotAnIndex) {
    m_mine.SetCurStdIndex(2);
    m_theirs.RemoveStd(0);
    Merge();
    EXPECT_EQ(Current(), "C");
    EXPECT_EQ(m_merged.m_nCurStd, 1);
    m_mine.SetCurStdIndex(0);
    m_theirs.SetCurStdIndex(0);  // the first one is B there
    Merge();
    EXPECT_EQ(Current(), "B");
}

TEST_F(SettingsMerging, WhereTheChosenStandardIsGoneTheOthersChoiceCounts) {
    m_mine.SetCurStdIndex(2);
    m_theirs.RemoveStd(2);
    m_theirs.SetCurStdIndex(1);
    Merge();
    EXPECT_EQ(Names(), "AB");
    EXPECT_EQ(Current(), "B");
    EXPECT_EQ(Conflicts(), "/当前标准 ");
}

TEST_F(SettingsMerging, NoCurrentStandardStaysNone) {
    for (OrvoDataSet* each : {&m_known, &m_mine, &m_theirs})
        each->SetCurStdIndex(3);
    AddStandard(m_theirs, L"D");
    m_theirs.SetCurStdIndex(9);
    Merge();
    EXPECT_EQ(Current(), "none");
    m_theirs.SetCurStdIndex(3);
    Merge();
    EXPECT_EQ(Current(), "D") << "their choice";
    m_theirs.RemoveStd(3);
    AddStandard(m_mine, L"E");
    m_mine.SetCurStdIndex(-1);
    Merge();
    EXPECT_EQ(Current(), "none");
}

TEST_F(SettingsMerging, NoneDoesNotComeToMeanAStandardThatTheOtherAdded) {
    m_mine.SetCurStdIndex(3);
    AddStandard(m_theirs, L"D");
    Merge();
    EXPECT_EQ(Names(), "ABCD");
    EXPECT_EQ(Current(), "none");
}

TEST_F(SettingsMerging, TheAnalysedPlacesAreThoseOfBoth) {
    for (OrvoDataSet* each : {&m_known, &m_mine, &m_theirs}) {
        each->m_listCity.Append(new OrvoCity(L"一"));
        each->m_listCity.Append(new OrvoCity(L"二"));
    }
    m_mine.m_listCity.Append(new OrvoCity(L"三"));
    m_theirs.m_listCity.Append(new OrvoCity(L"四"));
    m_theirs.m_listCity.Append(new OrvoCity(L"三"));
    Merge();
    EXPECT_EQ(m_merged.JoinCities(), L"一-二-四-三");
    m_mine.m_listCity.Reset();
    m_mine.m_listCity.Append(new OrvoCity(L"二"));
    Merge();
    EXPECT_EQ(m_merged.JoinCities(), L"二-四-三") << "what was removed here stays away";
    m_theirs.m_listCity.Reset();
    m_theirs.m_listCity.Append(new OrvoCity(L"四"));
    Merge();
    EXPECT_EQ(m_merged.JoinCities(), L"四") << "and so does what was removed there";
}

TEST_F(SettingsMerging, SomeStandardsAlwaysStay) {
    for (OrvoDataSet* each : {&m_known, &m_mine, &m_theirs})
        each->RemoveStd(2);
    m_mine.RemoveStd(0);
    m_theirs.RemoveStd(1);
    Merge();
    EXPECT_EQ(Names(), "B");
    EXPECT_EQ(Conflicts(), "B/ ");
}

TEST_F(SettingsMerging, NumbersThatAreNoneAreNoChange) {
    for (OrvoDataSet* each : {&m_known, &m_mine, &m_theirs})
        each->m_dgStartTime = std::numeric_limits<double>::quiet_NaN();
    m_theirs.m_strCurCity = L"上海";
    Merge();
    EXPECT_EQ(Conflicts(), "");
    EXPECT_EQ(m_merged.m_strCurCity, L"上海");
}
