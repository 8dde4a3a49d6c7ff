// The dictionary form of the current settings.
#include <gtest/gtest.h>

#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"

namespace {

OrvoStdSet Named(const wchar_t* name) {
    OrvoStdSet standard;
    standard.m_strName = name;
    return standard;
}

// Settings with two standards and two analysed places.
void Fill(OrvoDataSet& settings) {
    settings.m_strCurCity = L"上海";
    settings.m_dgStartTime = 8.5;
    settings.m_dgEndTime = 16.75;
    settings.m_dSpace = 5.0;
    settings.m_date = OrvoDate(2010, 6, 2);
    settings.m_listCity.Append(new OrvoCity(CString(L"杭州")));
    settings.m_listCity.Append(new OrvoCity(CString(L"宁波")));
    settings.NewStd(Named(L"a"))->m_nMinValidAngle = 12;
    settings.NewStd(Named(L"b"))->m_date = OrvoDate(2011, 1, 20);
    settings.m_nCurStd = 0;
}

QcDtDictItem* Setting(QcDtDictionary& root, const wchar_t* key) {
    QcDtDictionary* settings = root.FindDict(L"CUR_SUNSETDATA");
    return settings ? settings->FindItem(key) : nullptr;
}

}  // namespace

TEST(DataSetDictionary, RefusesNoDictionary) {
    OrvoDataSet settings;
    Fill(settings);
    EXPECT_FALSE(settings.SaveSunDataSetDict(nullptr));
    EXPECT_EQ(settings.m_listStd.GetLength(), 2);
}

TEST(DataSetDictionary, HoldsTheSettingsInTheirOrder) {
    OrvoDataSet settings;
    Fill(settings);
    QcDtDictionary root;
    ASSERT_TRUE(settings.SaveSunDataSetDict(&root));
    QcDtDictionary* dict = root.FindDict(L"CUR_SUNSETDATA");
    ASSERT_NE(dict, nullptr);
    EXPECT_EQ(root.GetItem(0), dict);
    EXPECT_EQ(dict->GetLocalName(), L"当前日照设置数据");
    EXPECT_EQ(dict->GetAttributeValue(L"localname"), L"当前日照设置数据");
    struct Row {
        const wchar_t* key;
        int kind;
    };
    const Row rows[] = {{L"CUR_CITY", 5},     {L"CUR_STARTTIME", 4}, {L"CUR_ENDTIME", 4},    {L"CUR_SPACE", 4},
                        {L"CUR_STDINDEX", 3}, {L"CUR_DATA", 5},      {L"ANALYSISED_CITY", 5}};
    ASSERT_EQ(dict->GetCount(), 7);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(dict->GetItem(i)->GetName(), rows[i].key);
        EXPECT_EQ(dict->GetItem(i)->GetType(), rows[i].kind) << ToUtf8(rows[i].key);
    }
    EXPECT_EQ(Setting(root, L"CUR_CITY")->GetStringValue(), L"上海");
    EXPECT_EQ(Setting(root, L"CUR_CITY")->GetAttributeValue(L"localname"), L"当前城市");
    EXPECT_EQ(Setting(root, L"CUR_STARTTIME")->GetDoubleValue(), 8.5);
    EXPECT_EQ(Setting(root, L"CUR_ENDTIME")->GetDoubleValue(), 16.75);
    EXPECT_EQ(Setting(root, L"CUR_SPACE")->GetDoubleValue(), 5.0);
    EXPECT_EQ(Setting(root, L"CUR_STDINDEX")->GetIntValue(), 0);
    EXPECT_EQ(Setting(root, L"CUR_DATA")->GetStringValue(), L"2010- 6- 2");
    EXPECT_EQ(Setting(root, L"ANALYSISED_CITY")->GetStringValue(), L"杭州-宁波");
}

TEST(DataSetDictionary, HoldsTheStandardsWithTheCurrentOnesNameBehindIt) {
    OrvoDataSet settings;
    Fill(settings);
    QcDtDictionary root;
    ASSERT_TRUE(settings.SaveSunDataSetDict(&root));
    ASSERT_EQ(root.GetCount(), 4);
    const QcDtDictItem* first = root.GetItem(1);
    EXPECT_EQ(first->GetName(), L"a");
    EXPECT_EQ(first->GetType(), 0);
    ASSERT_EQ(first->GetAttributeCount(), 3);
    EXPECT_EQ(first->GetAttributeName(0), L"localname");
    EXPECT_EQ(first->GetAttributeText(0), L"a");
    EXPECT_EQ(first->GetAttributeName(1), L"date");
    EXPECT_EQ(first->GetAttributeText(1), OrvoStdSet().m_date.GetDateXmlString());
    EXPECT_EQ(first->GetAttributeName(2), L"type");
    EXPECT_EQ(first->GetAttributeText(2), L"SunStd");
    const QcDtDictItem* current = root.GetItem(2);
    EXPECT_EQ(current->GetName(), L"CUR_SUNSETSTD");
    EXPECT_EQ(current->GetType(), 5);
    EXPECT_EQ(current->GetStringValue(), L"a");
    EXPECT_EQ(current->GetAttributeValue(L"localname"), L"当前日照标准");
    EXPECT_EQ(root.GetItem(3)->GetName(), L"b");
    EXPECT_EQ(root.GetItem(3)->GetAttributeValue(L"date"), L"2011- 1-20");
    EXPECT_EQ(root.FindDict(L"a")->FindItem(L"MinValidAngle")->GetIntValue(), 12);

    settings.m_nCurStd = 1;
    ASSERT_TRUE(settings.SaveSunDataSetDict(&root));
    EXPECT_EQ(root.GetItem(3)->GetName(), L"CUR_SUNSETSTD");
    EXPECT_EQ(root.GetItem(3)->GetStringValue(), L"b");
}

TEST(DataSetDictionary, NamesNoCurrentStandardThatThereIsNot) {
    OrvoDataSet settings;
    Fill(settings);
    settings.m_nCurStd = 2;
    QcDtDictionary root;
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    EXPECT_EQ(root.FindItem(L"CUR_SUNSETSTD"), nullptr);
    EXPECT_EQ(root.GetCount(), 3);
}

TEST(DataSetDictionary, ReplacesWhatTheDictionaryHeldButKeepsItsOwnNames) {
    OrvoDataSet settings;
    QcDtDictionary root(L"ROOT");
    root.FindOrAddItem(L"CUR_SUNSETDATA", 5);
    root.FindOrAddItem(L"left over", 3);
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    ASSERT_EQ(root.GetCount(), 1);
    EXPECT_EQ(root.GetItem(0)->GetType(), 0);
    EXPECT_EQ(root.GetTag(), L"ROOT");
}

TEST(DataSetDictionary, HoldsOneDictionaryForTwoStandardsOfOneName) {
    OrvoDataSet settings;
    settings.NewStd(Named(L"a"))->m_nMinValidTime = 1;
    settings.NewStd(Named(L"b"));
    settings.NewStd(Named(L"a"))->m_nMinValidTime = 3;
    QcDtDictionary root;
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    ASSERT_EQ(root.GetCount(), 4);  // settings, a, the current one's name, b
    EXPECT_EQ(root.FindDict(L"a")->FindItem(L"MinValidTime")->GetIntValue(), 3);
}

TEST(DataSetDictionary, PassesOverNullEntries) {
    OrvoDataSet settings;
    settings.m_listCity.Append(nullptr);
    settings.m_listCity.Append(new OrvoCity(CString(L"杭州")));
    settings.m_listCity.Append(nullptr);
    settings.m_listCity.Append(new OrvoCity(CString(L"宁波")));
    settings.m_listCity.Append(nullptr);
    settings.m_listStd.Append(nullptr);
    QcDtDictionary root;
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    EXPECT_EQ(Setting(root, L"ANALYSISED_CITY")->GetStringValue(), L"杭州-宁波");
    EXPECT_EQ(root.GetCount(), 1);
}

TEST(DataSetDictionary, JoinsNoPlacesAndANamelessOne) {
    OrvoDataSet settings;
    QcDtDictionary root;
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    EXPECT_EQ(Setting(root, L"ANALYSISED_CITY")->GetStringValue(), L"");
    settings.m_listCity.Append(new OrvoCity);
    settings.m_listCity.Append(new OrvoCity(CString(L"杭州")));
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    EXPECT_EQ(Setting(root, L"ANALYSISED_CITY")->GetStringValue(), L"-杭州");
}

TEST(DataSetDictionary, ComesBackWhole) {
    OrvoDataSet source;
    Fill(source);
    source.m_nCurStd = 1;
    QcDtDictionary root;
    ASSERT_TRUE(source.SaveSunDataSetDict(&root));

    OrvoDataSet settings;
    settings.NewStd(Named(L"old"));
    settings.m_listCity.Append(new OrvoCity(CString(L"old")));
    EXPECT_TRUE(settings.LoadSunDataSetDict(&root));
    EXPECT_EQ(settings.m_strCurCity, L"上海");
    EXPECT_EQ(settings.m_dgStartTime.getDegree(), 8.5);
    EXPECT_EQ(settings.m_nStartHour, 8);
    EXPECT_EQ(settings.m_nStartMinute, 30);
    EXPECT_EQ(settings.m_dgEndTime.getDegree(), 16.75);
    EXPECT_EQ(settings.m_nEndHour, 16);
    EXPECT_EQ(settings.m_nEndMinute, 45);
    EXPECT_EQ(settings.m_dSpace, 5.0);
    EXPECT_EQ(settings.m_nSpace, 10);  // the whole-number step is not refreshed
    EXPECT_EQ(settings.m_nCurStd, 1);
    EXPECT_EQ(settings.m_date.GetDateXmlString(), L"2010- 6- 2");
    ASSERT_EQ(settings.m_listCity.GetLength(), 2);
    EXPECT_EQ((*settings.m_listCity.GetAt(0))->m_strName, L"杭州");
    EXPECT_EQ((*settings.m_listCity.GetAt(1))->m_strName, L"宁波");
    ASSERT_EQ(settings.m_listStd.GetLength(), 2);
    EXPECT_EQ(settings.GetStd(0).m_strName, L"a");
    EXPECT_EQ(settings.GetStd(0).m_nMinValidAngle, 12);
    EXPECT_EQ(settings.GetStd(1).m_strName, L"b");
    EXPECT_EQ(settings.GetStd(1).m_date.GetDateXmlString(), L"2011- 1-20");
}

TEST(DataSetDictionary, EmptiesBothListsEvenWhenThereIsNothingToRead) {
    QcDtDictionary foreign;
    foreign.FindOrAddDict(L"a")->SetAttributeValue(L"type", L"SunStd");
    QcDtDictionary textual;
    textual.FindOrAddItem(L"CUR_SUNSETDATA", 5);
    for (QcDtDictionary* dict : {static_cast<QcDtDictionary*>(nullptr), &foreign, &textual}) {
        OrvoDataSet settings;
        Fill(settings);
        EXPECT_FALSE(settings.LoadSunDataSetDict(dict));
        EXPECT_EQ(settings.m_listCity.GetLength(), 0);
        EXPECT_EQ(settings.m_listStd.GetLength(), 0);
        EXPECT_EQ(settings.m_strCurCity, L"上海");
        EXPECT_EQ(settings.m_dgStartTime.getDegree(), 8.5);
        EXPECT_EQ(settings.m_date.GetDateXmlString(), L"2010- 6- 2");
    }
}

TEST(DataSetDictionary, KeepsAFieldWhoseItemIsMissingOrOfAnotherKind) {
    QcDtDictionary empty;
    empty.FindOrAddDict(L"CUR_SUNSETDATA");
    QcDtDictionary wrong;
    QcDtDictionary* dict = wrong.FindOrAddDict(L"CUR_SUNSETDATA");
    for (const wchar_t* key : {L"CUR_CITY", L"CUR_DATA", L"ANALYSISED_CITY", L"CUR_STARTTIME"})
        dict->FindOrAddItem(key, 3)->SetIntValue(1);
    for (const wchar_t* key : {L"CUR_ENDTIME", L"CUR_SPACE", L"CUR_STDINDEX"})
        dict->FindOrAddItem(key, 5)->SetStringValue(L"1");
    for (QcDtDictionary* root : {&empty, &wrong}) {
        OrvoDataSet settings;
        Fill(settings);
        settings.m_nCurStd = 1;
        EXPECT_TRUE(settings.LoadSunDataSetDict(root));
        EXPECT_EQ(settings.m_strCurCity, L"上海");
        EXPECT_EQ(settings.m_dgStartTime.getDegree(), 8.5);
        EXPECT_EQ(settings.m_dgEndTime.getDegree(), 16.75);
        EXPECT_EQ(settings.m_nStartHour, 9);
        EXPECT_EQ(settings.m_dSpace, 5.0);
        EXPECT_EQ(settings.m_nCurStd, 1);
        EXPECT_EQ(settings.m_date.GetDateXmlString(), L"2010- 6- 2");
        EXPECT_EQ(settings.m_listCity.GetLength(), 0);
        EXPECT_EQ(settings.m_listStd.GetLength(), 0);
    }
}

TEST(DataSetDictionary, TruncatesTheStepTowardZero) {
    for (const auto& [stored, expected] : {std::pair(7.9, 7.0), std::pair(-7.9, -7.0), std::pair(0.5, 0.0)}) {
        QcDtDictionary root;
        root.FindOrAddDict(L"CUR_SUNSETDATA")->FindOrAddItem(L"CUR_SPACE", 4)->SetDoubleValue(stored);
        OrvoDataSet settings;
        EXPECT_TRUE(settings.LoadSunDataSetDict(&root));
        EXPECT_EQ(settings.m_dSpace, expected);
        EXPECT_EQ(settings.m_nSpace, 10);
    }
}

TEST(DataSetDictionary, SplitsAnalysedPlaces) {
    struct Row {
        const wchar_t* text;
        int count;
    };
    for (const Row& row : {Row{L"杭州-宁波-温州", 3}, Row{L"", 0}, Row{L"杭州", 1}, Row{L"杭州--温州", 3}}) {
        QcDtDictionary root;
        root.FindOrAddDict(L"CUR_SUNSETDATA")->FindOrAddItem(L"ANALYSISED_CITY", 5)->SetStringValue(row.text);
        OrvoDataSet settings;
        EXPECT_TRUE(settings.LoadSunDataSetDict(&root));
        ASSERT_EQ(settings.m_listCity.GetLength(), row.count);
        if (row.count > 0)
            EXPECT_EQ((*settings.m_listCity.GetAt(0))->m_strName, L"杭州");
        if (row.count == 3)
            EXPECT_EQ((*settings.m_listCity.GetAt(2))->m_strName, L"温州");
    }
}

TEST(DataSetDictionary, ReadsEveryChildThatIsMarkedInAnyCase) {
    QcDtDictionary root;
    root.FindOrAddDict(L"first")->SetAttributeValue(L"type", L"SUNSTD");
    root.FindOrAddDict(L"CUR_SUNSETDATA");
    root.FindOrAddDict(L"other")->SetAttributeValue(L"type", L"CITY");
    QcDtDictionary* broken = root.FindOrAddDict(L"broken");
    broken->SetAttributeValue(L"type", L"SunStd");
    broken->FindOrAddItem(L"FullWin", 5);
    root.FindOrAddItem(L"text", 5)->SetAttributeValue(L"type", L"sunstd");
    root.FindOrAddItem(L"CUR_SUNSETSTD", 5)->SetStringValue(L"broken");
    OrvoDataSet settings;
    EXPECT_TRUE(settings.LoadSunDataSetDict(&root));
    // A standard that could not be read to its end is there all the same, and so is one that could not be read at all.
    ASSERT_EQ(settings.m_listStd.GetLength(), 3);
    EXPECT_EQ(settings.GetStd(0).m_strName, L"first");
    EXPECT_EQ(settings.GetStd(1).m_strName, L"broken");
    EXPECT_EQ(settings.GetStd(2).m_strName, L"上海标准");
    EXPECT_EQ(settings.m_nCurStd, 0);
}

TEST(DataSetDictionary, TakesTheIndexUnchecked) {
    QcDtDictionary root;
    root.FindOrAddDict(L"CUR_SUNSETDATA")->FindOrAddItem(L"CUR_STDINDEX", 3)->SetIntValue(-5);
    OrvoDataSet settings;
    EXPECT_TRUE(settings.LoadSunDataSetDict(&root));
    EXPECT_EQ(settings.GetCurStdIndex(), -5);
    EXPECT_EQ(settings.CurStd().m_strName, L"上海标准");
}

TEST(DataSetDictionary, BearsStandardsNamedLikeItsOwnKeys) {
    OrvoDataSet settings;
    settings.NewStd(Named(L"CUR_SUNSETSTD"))->m_nMinValidTime = 1;
    settings.NewStd(Named(L"CUR_SUNSETDATA"))->m_nMinValidTime = 2;
    QcDtDictionary root;
    EXPECT_TRUE(settings.SaveSunDataSetDict(&root));
    // One name is one entry, and whoever comes later has it; nothing else is lost.
    ASSERT_EQ(root.GetCount(), 2);
    EXPECT_EQ(root.GetItem(0)->GetName(), L"CUR_SUNSETDATA");
    EXPECT_EQ(root.GetItem(1)->GetName(), L"CUR_SUNSETSTD");
    OrvoDataSet loaded;
    EXPECT_TRUE(loaded.LoadSunDataSetDict(&root));
    EXPECT_EQ(loaded.m_strCurCity, L"北京");
    ASSERT_EQ(loaded.m_listStd.GetLength(), 2);
    EXPECT_EQ(loaded.GetStd(0).m_nMinValidTime, 2);
    EXPECT_EQ(loaded.GetStd(1).m_nMinValidTime, 1);

    // Behind the current standard's name there is no room for a standard of that name.
    OrvoDataSet other;
    other.NewStd(Named(L"a"));
    other.NewStd(Named(L"CUR_SUNSETSTD"));
    EXPECT_TRUE(other.SaveSunDataSetDict(&root));
    ASSERT_EQ(root.GetCount(), 3);
    EXPECT_EQ(root.GetItem(2)->GetType(), 5);
    EXPECT_EQ(root.GetItem(2)->GetStringValue(), L"a");
}
