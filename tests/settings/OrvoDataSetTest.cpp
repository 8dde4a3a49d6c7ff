// The current settings: defaults, standards, copying, and the one-line note.
#include "settings/OrvoDataSet.h"

#include <gtest/gtest.h>

namespace {

OrvoStdSet Named(const wchar_t* name) {
    OrvoStdSet standard;
    standard.m_strName = name;
    return standard;
}

}  // namespace

TEST(OrvoDataSet, BeginsAtItsDefaults) {
    OrvoDataSet settings;
    EXPECT_EQ(settings.CurCity(), L"北京");
    EXPECT_EQ(settings.m_strCity, L"未定义");
    EXPECT_EQ(settings.m_dgStartTime.getDegree(), 9.0);
    EXPECT_EQ(settings.m_dgEndTime.getDegree(), 15.0);
    EXPECT_EQ(settings.m_dSpace, 10.0);
    EXPECT_TRUE(settings.m_date == OrvoDate());
    EXPECT_EQ(settings.m_date.GetYear(), OrvoDate().GetYear());
    EXPECT_EQ(settings.GetCurStdIndex(), 0);
    EXPECT_EQ(settings.m_listCity.GetLength(), 0);
    EXPECT_EQ(settings.m_nStartHour, 9);
    EXPECT_EQ(settings.m_nStartMinute, 0);
    EXPECT_EQ(settings.m_nEndHour, 15);
    EXPECT_EQ(settings.m_nEndMinute, 0);
    EXPECT_EQ(settings.m_nSpace, 10);
    EXPECT_EQ(settings.m_listStd.GetLength(), 0);
}

TEST(OrvoDataSet, IsTheCurrentPlace) {
    OrvoDataSet settings;
    settings.m_strLongitude = L"116.4";
    const OrvoZoneRecord& place = settings;
    EXPECT_EQ(place.GetTotalLong(), 116.4);
}

TEST(OrvoDataSet, GivesItsCityByReference) {
    OrvoDataSet settings;
    settings.CurCity() = L"上海";
    EXPECT_EQ(settings.m_strCurCity, L"上海");
}

TEST(OrvoDataSet, TakesAnyIndexForTheCurrentStandard) {
    OrvoDataSet settings;
    for (const int index : {5, -7, 0}) {
        settings.SetCurStdIndex(index);
        EXPECT_EQ(settings.GetCurStdIndex(), index);
    }
}

TEST(OrvoDataSet, OwnsCopiesOfNewStandards) {
    OrvoDataSet settings;
    OrvoStdSet from = Named(L"a");
    from.m_nMinValidAngle = 12;
    from.m_colors.m_listType.Reset();
    OrvoStdSet* made = settings.NewStd(from);
    ASSERT_EQ(settings.m_listStd.GetLength(), 1);
    EXPECT_EQ(*settings.m_listStd.GetAt(0), made);
    EXPECT_NE(made, &from);
    EXPECT_EQ(made->m_strName, L"a");
    EXPECT_EQ(made->m_nMinValidAngle, 12);
    EXPECT_EQ(made->m_colors.m_listType.GetLength(), 5);
    settings.NewStd(Named(L"b"));
    EXPECT_EQ(settings.GetStd(1).m_strName, L"b");
    settings.SetCurStdIndex(1);
    EXPECT_EQ(&settings.CurStd(), &settings.GetStd(1));
}

TEST(OrvoDataSet, CopiesAStandardOfItsOwn) {
    OrvoDataSet settings;
    OrvoStdSet* first = settings.NewStd(Named(L"a"));
    EXPECT_EQ(settings.NewStd(*first)->m_strName, L"a");
    EXPECT_EQ(settings.m_listStd.GetLength(), 2);
}

TEST(OrvoDataSet, TakesTheDayFromTheCurrentStandard) {
    OrvoDataSet settings;
    settings.NewStd(OrvoStdSet());
    settings.m_date = OrvoDate(2010, 6, 2);
    settings.m_listStd.GetAt(0)[0]->m_date = OrvoDate(2011, 1, 20);
    EXPECT_EQ(&settings.CurDate(), &settings.CurStd().m_date);
    EXPECT_EQ(settings.CurDate().GetMonth(), 1);
}

TEST(OrvoDataSet, GivesASpareStandardWhereThereIsNone) {
    OrvoDataSet settings;
    for (const int index : {0, -1, 7}) {
        settings.SetCurStdIndex(index);
        EXPECT_EQ(settings.CurStd().m_strName, L"上海标准");
    }
    settings.CurStd().m_strName = L"somebody's";
    EXPECT_EQ(settings.CurStd().m_strName, L"上海标准");
    settings.CurStd().m_dgStartTime = 3.0;
    EXPECT_EQ(settings.CurStd().m_dgStartTime.getDegree(), 0.0);
    settings.CurStd().m_dgEndTime = 4.0;
    EXPECT_EQ(settings.CurStd().m_dgEndTime.getDegree(), 0.0);
    settings.CurStd().m_colors.Reset();
    EXPECT_EQ(settings.CurStd().m_colors.GetLength(), 8);
    EXPECT_EQ(settings.CurDate().GetMonth(), 12);
    EXPECT_EQ(settings.m_listStd.GetLength(), 0);

    settings.NewStd(Named(L"a"));
    settings.SetCurStdIndex(1);
    EXPECT_EQ(settings.CurStd().m_strName, L"上海标准");
    settings.m_listStd.Append(nullptr);
    EXPECT_EQ(settings.CurStd().m_strName, L"上海标准");
}

TEST(OrvoDataSet, FindsTheFirstStandardOfANameWithRegardToCase) {
    OrvoDataSet settings;
    EXPECT_EQ(settings.FindStd(L"a"), -1);
    settings.NewStd(Named(L"A"));
    settings.m_listStd.Append(nullptr);
    settings.NewStd(Named(L"a"));
    settings.NewStd(Named(L"a"));
    EXPECT_EQ(settings.FindStd(L"A"), 0);
    EXPECT_EQ(settings.FindStd(L"a"), 2);
    EXPECT_EQ(settings.FindStd(L"b"), -1);
    EXPECT_EQ(settings.FindStd(nullptr), -1);
}

TEST(OrvoDataSet, RemovesOnlyStandardsThatItHas) {
    OrvoDataSet settings;
    settings.RemoveStd(0);
    for (const wchar_t* name : {L"a", L"b", L"c"})
        settings.NewStd(Named(name));
    settings.RemoveStd(-1);
    settings.RemoveStd(3);
    EXPECT_EQ(settings.m_listStd.GetLength(), 3);
    settings.RemoveStd(1);
    ASSERT_EQ(settings.m_listStd.GetLength(), 2);
    EXPECT_EQ(settings.GetStd(0).m_strName, L"a");
    EXPECT_EQ(settings.GetStd(1).m_strName, L"c");
    settings.RemoveStd(0);
    settings.RemoveStd(0);
    EXPECT_EQ(settings.m_listStd.GetLength(), 0);
}

TEST(OrvoDataSet, CopiesFieldsAndListsButSharesNothing) {
    OrvoDataSet source;
    source.m_strCity = L"上海市";
    source.m_strComment = L"c";
    source.m_strCurCity = L"上海";
    source.m_dgStartTime = 8.5;
    source.m_dgEndTime = 16.5;
    source.m_dSpace = 2.5;
    source.m_date = OrvoDate(2012, 3, 4);
    source.m_nCurStd = 1;
    source.m_nStartHour = 1;
    source.m_nStartMinute = 2;
    source.m_nEndHour = 3;
    source.m_nEndMinute = 4;
    source.m_nSpace = 5;
    source.m_listCity.Append(new OrvoCity(CString(L"杭州")));
    source.NewStd(Named(L"a"))->m_colors.m_listType.Reset();

    OrvoDataSet assigned;
    assigned.NewStd(Named(L"old"));
    EXPECT_EQ(&(assigned = source), &assigned);
    OrvoDataSet constructed(source);
    for (OrvoDataSet* copy : {&assigned, &constructed}) {
        EXPECT_EQ(copy->m_strCity, L"上海市");
        EXPECT_EQ(copy->m_strComment, L"c");
        EXPECT_EQ(copy->m_strCurCity, L"上海");
        EXPECT_EQ(copy->m_dgStartTime.getDegree(), 8.5);
        EXPECT_EQ(copy->m_dgEndTime.getDegree(), 16.5);
        EXPECT_EQ(copy->m_dSpace, 2.5);
        EXPECT_EQ(copy->m_date.GetDateXmlString(), L"2012- 3- 4");
        EXPECT_EQ(copy->m_date.m_listTerm.GetLength(), 24);
        EXPECT_EQ(copy->m_nCurStd, 1);
        EXPECT_EQ(copy->m_nStartHour, 1);
        EXPECT_EQ(copy->m_nStartMinute, 2);
        EXPECT_EQ(copy->m_nEndHour, 3);
        EXPECT_EQ(copy->m_nEndMinute, 4);
        EXPECT_EQ(copy->m_nSpace, 5);
        ASSERT_EQ(copy->m_listCity.GetLength(), 1);
        EXPECT_EQ((*copy->m_listCity.GetAt(0))->m_strName, L"杭州");
        EXPECT_NE(*copy->m_listCity.GetAt(0), *source.m_listCity.GetAt(0));
        ASSERT_EQ(copy->m_listStd.GetLength(), 1);
        EXPECT_NE(&copy->GetStd(0), &source.GetStd(0));
        EXPECT_EQ(copy->GetStd(0).m_strName, L"a");
        // A copied standard has default colours.
        EXPECT_EQ(copy->GetStd(0).m_colors.m_listType.GetLength(), 5);
    }
}

TEST(OrvoDataSet, AssignsToItself) {
    OrvoDataSet settings;
    settings.NewStd(Named(L"a"));
    const OrvoDataSet& same = settings;
    settings = same;
    ASSERT_EQ(settings.m_listStd.GetLength(), 1);
    EXPECT_EQ(settings.GetStd(0).m_strName, L"a");
}

TEST(OrvoDataSet, NotesTheSettingsOfATermDay) {
    OrvoDataSet settings;
    settings.NewStd(Named(L"国标"));
    settings.m_date = OrvoDate(2010, 12, 22);
    EXPECT_EQ(settings.GetNoteString(),
              L"分析标准:国标;地区:北京;时间:2010年12月22日(冬至)09:00～15:00,计算精度:10分钟");
}

TEST(OrvoDataSet, NotesTheSettingsOfAnyOtherDay) {
    OrvoDataSet settings;
    settings.m_date = OrvoDate(2010, 6, 2);
    settings.m_nStartHour = 8;
    settings.m_nStartMinute = 5;
    settings.m_nEndHour = 16;
    settings.m_nEndMinute = 30;
    settings.m_nSpace = 1;
    // The decimal fields play no part.
    settings.m_dgStartTime = 1.0;
    settings.m_dSpace = 7.0;
    EXPECT_EQ(settings.GetNoteString(), L"分析标准:上海标准;地区:北京;时间:2010年 6月 2日08:05～16:30,计算精度:1分钟");
}

TEST(OrvoDataSet, TakesTheTermsNameInTheNoteFromTheCurrentStandard) {
    OrvoDataSet settings;
    settings.NewStd(Named(L"s"));
    settings.m_date = OrvoDate(2010, 12, 22);
    settings.CurDate().SetYear(2010);
    settings.CurDate().GetTerm(0)->m_strName = L"最短日";
    EXPECT_EQ(settings.GetNoteString(),
              L"分析标准:s;地区:北京;时间:2010年12月22日(最短日)09:00～15:00,计算精度:10分钟");
}
