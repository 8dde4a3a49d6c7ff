// The tables in a dictionary, and in a file of one.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "ExpectedTerms.h"
#include "calendar/OrvoDate.h"
#include "platform/base/QcDtDictionary.h"
#include "support/FileTree.h"
#include "support/GermanLocale.h"

namespace {

const wchar_t* const kLeap = L"闰年节气";
const wchar_t* const kCommon = L"常年节气";

QcDtDictItem* AddTerm(QcDtDictionary* dict, const wchar_t* name, const wchar_t* date, const wchar_t* time) {
    QcDtDictItem* item = dict->FindOrAddItem(name, 5);
    item->SetAttributeValue(L"type", L"Sterm");
    item->SetAttributeValue(L"localname", name);
    item->SetAttributeValue(L"date", date);
    item->SetAttributeValue(L"dgtime", time);
    return item;
}

void ExpectBuiltIn(OrvoDate& date) {
    for (int index = 0; index < 24; ++index) {
        const OrvoSTerm* term = date.GetTerm(index);
        ASSERT_NE(term, nullptr);
        const ExpectedTerm& expected = kExpectedTerms[index];
        EXPECT_EQ(term->m_strName, expected.name);
        EXPECT_EQ(term->GetMonthDay(), (MonthDay{expected.month, date.IsLeapYear() ? expected.leapDay : expected.day}));
        EXPECT_EQ(term->m_dgTime.getDegree(), expected.equationOfTime);
        EXPECT_EQ(term->m_dgLat.getDegree(), expected.declination);
    }
}

}  // namespace

TEST(TermDictionary, HoldsATermAsSixAttributesInOrder) {
    OrvoSTerm term(CString(L"冬至"));
    term.m_strDate = L"12月22日";
    term.m_dgTime = 0.031389;
    term.m_dgLat = -23.45;
    QcDtDictStringItem item(L"冬至");
    item.SetAttributeValue(L"type", L"STERM");
    EXPECT_TRUE(term.SaveToXml(&item));
    const wchar_t* const expected[][2] = {{L"type", L"STERM"},    {L"name", L"冬至"},       {L"localname", L"冬至"},
                                          {L"date", L"12月22日"}, {L"dgtime", L"0.031389"}, {L"dglat", L"-23.45"}};
    ASSERT_EQ(item.GetAttributeCount(), 6);
    for (int index = 0; index < 6; ++index) {
        EXPECT_EQ(item.GetAttributeName(index), expected[index][0]);
        EXPECT_EQ(item.GetAttributeText(index), expected[index][1]);
    }
}

TEST(TermDictionary, RefusesItemsThatAreNoTerms) {
    OrvoSTerm term(CString(L"mine"));
    EXPECT_FALSE(term.SaveToXml(nullptr));
    EXPECT_FALSE(term.ReadFromXml(nullptr));
    QcDtDictStringItem item(L"x");
    EXPECT_FALSE(term.SaveToXml(&item));
    EXPECT_EQ(item.GetAttributeCount(), 0);
    item.SetAttributeValue(L"type", L"Sterms");
    item.SetAttributeValue(L"localname", L"other");
    EXPECT_FALSE(term.SaveToXml(&item));
    EXPECT_FALSE(term.ReadFromXml(&item));
    EXPECT_EQ(item.GetAttributeCount(), 2);
    EXPECT_EQ(term.m_strName, L"mine");
}

TEST(TermDictionary, ReadsTheNameFromTheLocalName) {
    QcDtDictStringItem item(L"x");
    item.SetAttributeValue(L"type", L"sTERM");
    item.SetAttributeValue(L"name", L"not this");
    item.SetAttributeValue(L"localname", L"this");
    item.SetAttributeValue(L"date", L"6月22日");
    item.SetAttributeValue(L"dgtime", L" 0.5h");
    item.SetAttributeValue(L"dglat", L"-8.5");
    OrvoSTerm term;
    EXPECT_TRUE(term.ReadFromXml(&item));
    EXPECT_EQ(term.m_strName, L"this");
    EXPECT_EQ(term.m_strDate, L"6月22日");
    EXPECT_EQ(term.m_dgTime.getDegree(), 0.5);
    int degree = 0;
    int minute = 0;
    int second = 0;
    term.m_dgLat.getDegree(degree, minute, second);
    EXPECT_EQ(degree, -8);
    EXPECT_EQ(minute, -30);
}

TEST(TermDictionary, ReadsMissingAttributesAsNothing) {
    QcDtDictStringItem item(L"x");
    item.SetAttributeValue(L"type", L"Sterm");
    OrvoSTerm term(CString(L"mine"));
    term.m_strDate = L"6月22日";
    term.m_dgTime = 1.0;
    term.m_dgLat = 1.0;
    EXPECT_TRUE(term.ReadFromXml(&item));
    EXPECT_EQ(term.m_strName, L"");
    EXPECT_EQ(term.m_strDate, L"");
    EXPECT_EQ(term.m_dgTime.getDegree(), 0.0);
    EXPECT_EQ(term.m_dgLat.getDegree(), 0.0);
}

TEST(TermDictionary, HoldsBothTables) {
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    QcDtDictionary dict(L"SunTerm");
    EXPECT_TRUE(date.SaveTermDatatoDict(&dict));
    ASSERT_EQ(dict.GetCount(), 2);
    EXPECT_EQ(dict.GetItem(0)->GetName(), kLeap);
    EXPECT_EQ(dict.GetItem(1)->GetName(), kCommon);
    for (const wchar_t* name : {kLeap, kCommon}) {
        QcDtDictionary* terms = dict.FindDict(name);
        ASSERT_EQ(terms->GetCount(), 24);
        for (int index = 0; index < 24; ++index) {
            const QcDtDictItem* item = terms->GetItem(index);
            EXPECT_EQ(item->GetType(), 5);
            EXPECT_EQ(item->GetName(), kExpectedTerms[index].name);
            EXPECT_EQ(item->GetAttributeValue(L"type"), L"Sterm");
            EXPECT_EQ(item->GetAttributeName(0), L"type");
        }
    }
    EXPECT_EQ(dict.FindDict(kLeap)->GetItem(0)->GetAttributeValue(L"date"), L"12月21日");
    EXPECT_EQ(dict.FindDict(kCommon)->GetItem(0)->GetAttributeValue(L"date"), L"12月22日");
}

TEST(TermDictionary, GivesBothTablesBack) {
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    QcDtDictionary dict;
    ASSERT_TRUE(date.SaveTermDatatoDict(&dict));
    for (const int year : {2011, 2012}) {
        OrvoDate read(year, 1, 1);
        EXPECT_TRUE(read.LoadTermDataFromDict(&dict));
        EXPECT_EQ(read.m_listTerm.GetLength(), 24);
        EXPECT_EQ(read.m_listLeapTerm.GetLength(), 24);
        ExpectBuiltIn(read);
        EXPECT_EQ(read.m_listTerm.GetLength(), 24) << "loaded tables need no filling";
    }
}

TEST(TermDictionary, ReplacesWhatTheTablesHeldAndLeavesTheRestAlone) {
    QcDtDictionary dict;
    dict.FindOrAddItem(L"other", 5)->SetStringValue(L"kept");
    AddTerm(dict.FindOrAddDict(kCommon), L"stale", L"1月1日", L"1");
    AddTerm(dict.FindOrAddDict(kLeap), L"stale", L"1月1日", L"1");
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    EXPECT_TRUE(date.SaveTermDatatoDict(&dict));
    EXPECT_EQ(dict.FindDict(kCommon)->FindItem(L"stale"), nullptr);
    EXPECT_EQ(dict.FindDict(kLeap)->FindItem(L"stale"), nullptr);
    EXPECT_EQ(dict.FindItem(L"other")->GetStringValue(), L"kept");
    EXPECT_EQ(dict.GetCount(), 3);
}

TEST(TermDictionary, GetsTwoEmptyTablesFromADateWithoutAny) {
    QcDtDictionary dict;
    AddTerm(dict.FindOrAddDict(kCommon), L"stale", L"1月1日", L"1");
    EXPECT_TRUE(OrvoDate(2011, 1, 1).SaveTermDatatoDict(&dict));
    ASSERT_NE(dict.FindDict(kCommon), nullptr);
    ASSERT_NE(dict.FindDict(kLeap), nullptr);
    EXPECT_EQ(dict.FindDict(kCommon)->GetCount(), 0);
    EXPECT_EQ(dict.FindDict(kLeap)->GetCount(), 0);
}

TEST(TermDictionary, GetsNoItemForANullRowAndOneForRowsOfOneName) {
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    date.LoadTermData();
    (*date.m_listTerm.GetAt(24))->m_strDate = L"12月1日";
    date.m_listTerm.Append(nullptr);
    QcDtDictionary dict;
    EXPECT_TRUE(date.SaveTermDatatoDict(&dict));
    EXPECT_EQ(dict.FindDict(kCommon)->GetCount(), 24);
    EXPECT_EQ(dict.FindDict(kCommon)->GetItem(0)->GetAttributeValue(L"date"), L"12月1日");
    EXPECT_EQ(dict.FindDict(kCommon)->GetItem(0)->GetAttributeCount(), 6);
}

TEST(TermDictionary, RefusesToSaveWhereItCannot) {
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    EXPECT_FALSE(date.SaveTermDatatoDict(nullptr));
    for (const wchar_t* taken : {kLeap, kCommon}) {
        QcDtDictionary dict;
        dict.FindOrAddItem(taken, 5)->SetStringValue(L"kept");
        EXPECT_FALSE(date.SaveTermDatatoDict(&dict));
        EXPECT_EQ(dict.FindItem(taken)->GetStringValue(), L"kept");
        const QcDtDictionary* other = dict.FindDict(taken == kLeap ? kCommon : kLeap);
        EXPECT_TRUE(!other || other->GetCount() == 0);
    }
}

TEST(TermDictionary, IsRefusedWhenATableIsMissing) {
    OrvoDate date(2011, 1, 1);
    EXPECT_FALSE(date.LoadTermDataFromDict(nullptr));
    for (const wchar_t* name : {kLeap, kCommon}) {
        QcDtDictionary dict;
        AddTerm(dict.FindOrAddDict(name), L"冬至", L"12月22日", L"1");
        EXPECT_FALSE(date.LoadTermDataFromDict(&dict));
    }
    EXPECT_EQ(date.m_listTerm.GetLength(), 0);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 0);
}

TEST(TermDictionary, IsReadUpToTheFirstItemThatIsNoTerm) {
    QcDtDictionary dict;
    QcDtDictionary* common = dict.FindOrAddDict(kCommon);
    AddTerm(common, L"a", L"12月22日", L"1");
    AddTerm(common, L"b", L"1月6日", L"2");
    common->FindOrAddItem(L"foreign", 5);
    AddTerm(common, L"c", L"1月20日", L"3");
    AddTerm(dict.FindOrAddDict(kLeap), L"d", L"12月21日", L"4");
    OrvoDate date(2011, 1, 1);
    EXPECT_FALSE(date.LoadTermDataFromDict(&dict));
    EXPECT_EQ(date.m_listTerm.GetLength(), 2);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 0);
}

TEST(TermDictionary, KeepsTheCommonRowsWhenALeapRowIsRefused) {
    QcDtDictionary dict;
    AddTerm(dict.FindOrAddDict(kCommon), L"a", L"12月22日", L"1");
    AddTerm(dict.FindOrAddDict(kLeap), L"b", L"12月21日", L"1");
    dict.FindDict(kLeap)->FindOrAddItem(L"foreign", 4);
    OrvoDate date(2011, 1, 1);
    EXPECT_FALSE(date.LoadTermDataFromDict(&dict));
    EXPECT_EQ(date.m_listTerm.GetLength(), 1);
    EXPECT_EQ(date.m_listLeapTerm.GetLength(), 1);
}

TEST(TermDictionary, LandsBehindTablesThatAreThere) {
    QcDtDictionary dict;
    AddTerm(dict.FindOrAddDict(kCommon), L"late", L"12月22日", L"9");
    AddTerm(dict.FindOrAddDict(kLeap), L"late", L"12月21日", L"9");
    OrvoDate date(2011, 12, 22);
    date.LoadTermData();
    EXPECT_TRUE(date.LoadTermDataFromDict(&dict));
    EXPECT_EQ(date.m_listTerm.GetLength(), 25);
    EXPECT_EQ(date.GetDgTime(), 0.031389);
}

TEST(TermDictionary, IsHonouredOnAFreshDate) {
    OrvoDate source(2011, 1, 1);
    source.GetTerm(12)->m_dgTime = 0.75;
    source.GetTerm(12)->m_dgLat = 20.0;
    QcDtDictionary dict;
    ASSERT_TRUE(source.SaveTermDatatoDict(&dict));
    OrvoDate date(2011, 6, 22);
    ASSERT_TRUE(date.LoadTermDataFromDict(&dict));
    EXPECT_EQ(date.GetDgTime(), 0.75);
    EXPECT_EQ(date.GetDgLat(), 20.0);
}

TEST(TermDictionary, GoesThroughAFileInEveryLocale) {
    const GermanLocale german;
    const FileTree folder;
    const CString path = FromUtf8((folder.Path() / "SunTerm.xml").string());
    OrvoDate date(2011, 1, 1);
    date.LoadTermData();
    QcDtDictionary dict(L"SunTerm");
    ASSERT_TRUE(date.SaveTermDatatoDict(&dict));
    ASSERT_TRUE(dict.SaveToXML(path));
    QcDtDictionary again;
    ASSERT_TRUE(again.ReadFromXML(path));
    for (const int year : {2011, 2012}) {
        OrvoDate read(year, 1, 1);
        EXPECT_TRUE(read.LoadTermDataFromDict(&again));
        EXPECT_EQ(read.m_listTerm.GetLength(), 24);
        EXPECT_EQ(read.m_listLeapTerm.GetLength(), 24);
        ExpectBuiltIn(read);
    }
}
