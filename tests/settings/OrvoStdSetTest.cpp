// Sunlight standards: defaults, copying and the dictionary form.
#include "settings/OrvoStdSet.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/base/QcDtDictionary.h"
#include "support/GermanLocale.h"

namespace {

struct Key {
    const wchar_t* name;
    int kind;
};

// The keys of the dictionary form in their order, with the kind of each.
const std::vector<Key> kKeys = {
    {L"SUNCOLORTABLE", 0}, {L"FullWin", 1},         {L"LimitWidth", 1},
    {L"MaxContinue", 1},   {L"BJTime", 1},          {L"AllMaxContinueTime", 1},
    {L"MaxWidth", 4},      {L"MinWidth", 4},        {L"Space", 4},
    {L"StartTime", 4},     {L"EndTime", 4},         {L"MinValidAngle", 3},
    {L"MinValidTime", 3},  {L"MinMaxValidTime", 3}, {L"MinContinueTime", 3},
    {L"ValidSunType", 3},  {L"TotalTimeType", 3},
};

// A standard of which no field has its default.
OrvoStdSet Unusual() {
    OrvoStdSet standard;
    standard.m_strName = L"杭州大寒日";
    standard.m_nFullWin = 2;
    standard.m_nLimitWidth = 3;
    standard.m_nMaxContinue = 4;
    standard.m_nBJTime = 5;
    standard.m_nAllMaxContinueTime = 6;
    standard.m_dMaxWidth = 1800.5;
    standard.m_dMinWidth = 600.25;
    standard.m_dSpace = 0.1;
    standard.m_nValidSunType = 7;
    standard.m_nMinValidAngle = 12;
    standard.m_nMinValidTime = 30;
    standard.m_nTotalTimeType = 8;
    standard.m_nMinMaxValidTime = 9;
    standard.m_nMinContinueTime = -1;
    standard.m_dgStartTime = 8.25;
    standard.m_dgEndTime = 16.1;
    standard.m_date = OrvoDate(2010, 1, 20);
    return standard;
}

void ExpectUnusualFields(const OrvoStdSet& standard) {
    EXPECT_EQ(standard.m_strName, L"杭州大寒日");
    EXPECT_EQ(standard.m_nFullWin, 2);
    EXPECT_EQ(standard.m_nLimitWidth, 3);
    EXPECT_EQ(standard.m_nMaxContinue, 4);
    EXPECT_EQ(standard.m_nBJTime, 5);
    EXPECT_EQ(standard.m_nAllMaxContinueTime, 6);
    EXPECT_EQ(standard.m_dMaxWidth, 1800.5);
    EXPECT_EQ(standard.m_dMinWidth, 600.25);
    EXPECT_EQ(standard.m_dSpace, 0.1);
    EXPECT_EQ(standard.m_nValidSunType, 7);
    EXPECT_EQ(standard.m_nMinValidAngle, 12);
    EXPECT_EQ(standard.m_nMinValidTime, 30);
    EXPECT_EQ(standard.m_nTotalTimeType, 8);
    EXPECT_EQ(standard.m_nMinMaxValidTime, 9);
    EXPECT_EQ(standard.m_nMinContinueTime, -1);
    EXPECT_EQ(standard.m_dgStartTime.getDegree(), 8.25);
    EXPECT_EQ(standard.m_dgEndTime.getDegree(), 16.1);
    EXPECT_EQ(standard.m_date.GetDateXmlString(), L"2010- 1-20");
}

void ExpectResetFields(const OrvoStdSet& standard) {
    EXPECT_EQ(standard.m_strName, L"上海标准");
    EXPECT_EQ(standard.m_nFullWin, 1);
    EXPECT_EQ(standard.m_nLimitWidth, 0);
    EXPECT_EQ(standard.m_nMaxContinue, 1);
    EXPECT_EQ(standard.m_nBJTime, 0);
    EXPECT_EQ(standard.m_nAllMaxContinueTime, 0);
    EXPECT_EQ(standard.m_dMaxWidth, 2400.0);
    EXPECT_EQ(standard.m_dMinWidth, 1200.0);
    EXPECT_EQ(standard.m_dSpace, 10.0);
    EXPECT_EQ(standard.m_nValidSunType, 0);
    EXPECT_EQ(standard.m_nMinValidAngle, 0);
    EXPECT_EQ(standard.m_nMinValidTime, 0);
    EXPECT_EQ(standard.m_nTotalTimeType, 0);
    EXPECT_EQ(standard.m_nMinMaxValidTime, 0);
    EXPECT_EQ(standard.m_nMinContinueTime, 60);
    EXPECT_EQ(standard.m_date.GetMonth(), 12);
    EXPECT_EQ(standard.m_date.m_nDay, 22);
}

// A dictionary marked as a standard's, as the settings make it.
std::unique_ptr<QcDtDictionary> Marked(const wchar_t* mark = L"SunStd") {
    auto dict = std::make_unique<QcDtDictionary>(L"new");
    dict->SetAttributeValue(L"type", mark);
    return dict;
}

std::unique_ptr<QcDtDictionary> Saved(const OrvoStdSet& standard) {
    auto dict = Marked();
    EXPECT_TRUE(standard.SaveToDict(dict.get()));
    return dict;
}

}  // namespace

TEST(OrvoStdSet, BeginsAtItsDefaults) {
    const OrvoStdSet standard;
    ExpectResetFields(standard);
    EXPECT_EQ(standard.m_date.GetYear(), OrvoDate().GetYear());
    EXPECT_EQ(standard.m_dgStartTime.getDegree(), 0.0);
    EXPECT_EQ(standard.m_dgEndTime.getDegree(), 0.0);
    EXPECT_EQ(standard.m_colors.GetLength(), 8);
    EXPECT_EQ(standard.m_colors.m_listType.GetLength(), 5);
}

TEST(OrvoStdSet, ResetLeavesTimesAndColours) {
    OrvoStdSet standard = Unusual();
    standard.m_colors.m_listType.Append(77);
    standard.Reset();
    ExpectResetFields(standard);
    EXPECT_EQ(standard.m_dgStartTime.getDegree(), 8.25);
    EXPECT_EQ(standard.m_dgEndTime.getDegree(), 16.1);
    EXPECT_EQ(standard.m_colors.GetTypeColor(5), 77);
}

TEST(OrvoStdSet, CopiesEverythingButTheColours) {
    OrvoStdSet source = Unusual();
    source.m_colors.Reset();
    source.m_colors.m_listType.Reset();

    OrvoStdSet copy(source);
    ExpectUnusualFields(copy);
    EXPECT_EQ(copy.m_colors.GetLength(), 8);
    EXPECT_EQ(copy.m_colors.GetTypeColor(4), 5);

    OrvoStdSet target;
    target.m_colors.m_listType.Append(99);
    EXPECT_EQ(&(target = source), &target);
    ExpectUnusualFields(target);
    EXPECT_EQ(target.m_colors.GetTypeColor(5), 99);
    EXPECT_EQ(target.m_colors.GetLength(), 8);
}

TEST(OrvoStdSet, RefillsTheTermsOfTheDateItIsGiven) {
    OrvoStdSet source;
    source.m_date.m_listTerm.Reset();
    OrvoStdSet target;
    target.m_date.m_listTerm.Reset();
    target.m_date.m_listLeapTerm.Reset();
    target = source;
    EXPECT_EQ(target.m_date.m_listTerm.GetLength(), 24);
    EXPECT_EQ(target.m_date.m_listLeapTerm.GetLength(), 24);
}

TEST(OrvoStdSet, AssignsToItself) {
    OrvoStdSet standard = Unusual();
    const OrvoStdSet& same = standard;
    standard = same;
    ExpectUnusualFields(standard);
}

TEST(OrvoStdSet, WritesEveryKeyInItsOrderAndKind) {
    const auto dict = Saved(Unusual());
    ASSERT_EQ(dict->GetCount(), static_cast<int>(kKeys.size()));
    for (int i = 0; i < dict->GetCount(); ++i) {
        const Key& key = kKeys[static_cast<std::size_t>(i)];
        EXPECT_EQ(dict->GetItem(i)->GetName(), key.name);
        EXPECT_EQ(dict->GetItem(i)->GetTag(), key.name);
        EXPECT_EQ(dict->GetItem(i)->GetType(), key.kind) << ToUtf8(key.name);
    }
}

TEST(OrvoStdSet, WritesEveryFieldUnderItsKey) {
    const auto dict = Saved(Unusual());
    EXPECT_EQ(dict->GetName(), L"杭州大寒日");
    EXPECT_EQ(dict->GetAttributeValue(L"date"), L"2010- 1-20");
    const auto whole = [&dict](const wchar_t* key) { return dict->FindItem(key)->GetIntValue(); };
    const auto real = [&dict](const wchar_t* key) { return dict->FindItem(key)->GetDoubleValue(); };
    EXPECT_EQ(whole(L"FullWin"), 2);
    EXPECT_EQ(whole(L"LimitWidth"), 3);
    EXPECT_EQ(whole(L"MaxContinue"), 4);
    EXPECT_EQ(whole(L"BJTime"), 5);
    EXPECT_EQ(whole(L"AllMaxContinueTime"), 6);
    EXPECT_EQ(real(L"MaxWidth"), 1800.5);
    EXPECT_EQ(real(L"MinWidth"), 600.25);
    EXPECT_EQ(real(L"Space"), 0.1);
    EXPECT_EQ(real(L"StartTime"), 8.25);
    EXPECT_EQ(real(L"EndTime"), 16.1);
    EXPECT_EQ(whole(L"MinValidAngle"), 12);
    EXPECT_EQ(whole(L"MinValidTime"), 30);
    EXPECT_EQ(whole(L"MinMaxValidTime"), 9);
    EXPECT_EQ(whole(L"MinContinueTime"), -1);
    EXPECT_EQ(whole(L"ValidSunType"), 7);
    EXPECT_EQ(whole(L"TotalTimeType"), 8);
    const QcDtDictionary* colors = dict->FindDict(L"SUNCOLORTABLE");
    ASSERT_NE(colors, nullptr);
    EXPECT_EQ(colors->FindItem(L"SUN_TYPECOLOR")->GetStringValue(), L"1;2;3;4;5");
}

TEST(OrvoStdSet, ComesBackWhole) {
    OrvoStdSet source = Unusual();
    source.m_colors.m_listType.Append(77);
    const auto dict = Saved(source);
    OrvoStdSet target;
    EXPECT_TRUE(target.ReadFromDict(dict.get()));
    ExpectUnusualFields(target);
    EXPECT_EQ(target.m_colors.GetTypeColor(5), 77);
}

TEST(OrvoStdSet, ComesBackWholeUnderAGermanLocale) {
    const GermanLocale german;
    const auto dict = Saved(Unusual());
    OrvoStdSet target;
    EXPECT_TRUE(target.ReadFromDict(dict.get()));
    ExpectUnusualFields(target);
}

TEST(OrvoStdSet, RefusesNoDictionary) {
    OrvoStdSet standard = Unusual();
    EXPECT_FALSE(standard.SaveToDict(nullptr));
    EXPECT_FALSE(standard.ReadFromDict(nullptr));
    ExpectUnusualFields(standard);
}

TEST(OrvoStdSet, LeavesAnUnmarkedDictionaryEmptyAndCallsThatSuccess) {
    for (const wchar_t* mark : {L"", L"Sterm", L"SunStd "}) {
        const auto dict = Marked(mark);
        dict->FindOrAddItem(L"old", 3);
        EXPECT_TRUE(Unusual().SaveToDict(dict.get()));
        EXPECT_EQ(dict->GetCount(), 0);
        EXPECT_EQ(dict->GetName(), L"new");
        EXPECT_FALSE(dict->HasAttribute(L"date"));
    }
}

TEST(OrvoStdSet, ReadsNothingFromAnUnmarkedDictionary) {
    const auto dict = Saved(Unusual());
    dict->SetAttributeValue(L"type", L"CITY");
    OrvoStdSet standard;
    EXPECT_FALSE(standard.ReadFromDict(dict.get()));
    ExpectResetFields(standard);
}

TEST(OrvoStdSet, TakesTheMarkInAnyCase) {
    const auto dict = Marked(L"SUNstd");
    EXPECT_TRUE(Unusual().SaveToDict(dict.get()));
    EXPECT_EQ(dict->GetCount(), static_cast<int>(kKeys.size()));
    OrvoStdSet standard;
    EXPECT_TRUE(standard.ReadFromDict(dict.get()));
    ExpectUnusualFields(standard);
}

TEST(OrvoStdSet, DropsWhatTheDictionaryHeld) {
    const auto dict = Marked();
    dict->FindOrAddItem(L"MaxWidth", 3)->SetIntValue(5);
    dict->FindOrAddItem(L"left over", 5);
    EXPECT_TRUE(Unusual().SaveToDict(dict.get()));
    EXPECT_EQ(dict->FindItem(L"left over"), nullptr);
    EXPECT_EQ(dict->FindItem(L"MaxWidth")->GetType(), 4);
}

namespace {

// A key, the value that it has in a file, and the field that it fills.
struct FiledValue {
    const wchar_t* key;
    int kind;
    double value;
    double (*field)(const OrvoStdSet&);
};

// No value is a default, and none is one of Unusual's.
const std::vector<FiledValue> kFiled = {
    {L"FullWin", 1, 20, [](const OrvoStdSet& s) -> double { return s.m_nFullWin; }},
    {L"LimitWidth", 1, 21, [](const OrvoStdSet& s) -> double { return s.m_nLimitWidth; }},
    {L"MaxContinue", 1, 22, [](const OrvoStdSet& s) -> double { return s.m_nMaxContinue; }},
    {L"BJTime", 1, 23, [](const OrvoStdSet& s) -> double { return s.m_nBJTime; }},
    {L"AllMaxContinueTime", 1, 24, [](const OrvoStdSet& s) -> double { return s.m_nAllMaxContinueTime; }},
    {L"MaxWidth", 4, 2525.5, [](const OrvoStdSet& s) { return s.m_dMaxWidth; }},
    {L"MinWidth", 4, 262.5, [](const OrvoStdSet& s) { return s.m_dMinWidth; }},
    {L"Space", 4, 2.75, [](const OrvoStdSet& s) { return s.m_dSpace; }},
    {L"StartTime", 4, 7.25, [](const OrvoStdSet& s) { return s.m_dgStartTime.getDegree(); }},
    {L"EndTime", 4, 17.75, [](const OrvoStdSet& s) { return s.m_dgEndTime.getDegree(); }},
    {L"MinValidAngle", 3, 31, [](const OrvoStdSet& s) -> double { return s.m_nMinValidAngle; }},
    {L"MinValidTime", 3, 32, [](const OrvoStdSet& s) -> double { return s.m_nMinValidTime; }},
    {L"MinMaxValidTime", 3, 33, [](const OrvoStdSet& s) -> double { return s.m_nMinMaxValidTime; }},
    {L"MinContinueTime", 3, 34, [](const OrvoStdSet& s) -> double { return s.m_nMinContinueTime; }},
    {L"ValidSunType", 3, 35, [](const OrvoStdSet& s) -> double { return s.m_nValidSunType; }},
    {L"TotalTimeType", 3, 36, [](const OrvoStdSet& s) -> double { return s.m_nTotalTimeType; }},
};

// A file with all values but one.
std::unique_ptr<QcDtDictionary> FiledWithout(const wchar_t* missing) {
    auto dict = Marked();
    for (const FiledValue& filed : kFiled) {
        if (filed.key == missing)
            continue;
        QcDtDictItem* item = dict->FindOrAddItem(filed.key, filed.kind);
        if (filed.kind == 4)
            item->SetDoubleValue(filed.value);
        else
            item->SetIntValue(static_cast<int>(filed.value));
    }
    return dict;
}

}  // namespace

TEST(OrvoStdSet, KeepsAFieldWhoseKeyIsMissing) {
    const OrvoStdSet unusual = Unusual();
    ASSERT_EQ(kFiled.size() + 1, kKeys.size()) << "and the table of colours";
    for (const FiledValue& missing : kFiled) {
        OrvoStdSet standard = unusual;
        EXPECT_TRUE(standard.ReadFromDict(FiledWithout(missing.key).get()));
        for (const FiledValue& filed : kFiled) {
            const double expected = filed.key == missing.key ? filed.field(unusual) : filed.value;
            EXPECT_EQ(filed.field(standard), expected) << ToUtf8(filed.key) << " without " << ToUtf8(missing.key);
        }
    }
}

TEST(OrvoStdSet, KeepsItsColoursWhereTheirTableIsMissing) {
    OrvoStdSet standard;
    standard.m_colors.m_listType.Append(77);
    const auto dict = FiledWithout(nullptr);
    EXPECT_TRUE(standard.ReadFromDict(dict.get()));
    EXPECT_EQ(standard.m_colors.GetTypeColor(5), 77);
    // With one, the colours are the file's: five of the types have one, and any other has the colour 256.
    EXPECT_TRUE(OrvoColorTable().SaveToXml(dict->FindOrAddDict(L"SUNCOLORTABLE")));
    EXPECT_TRUE(standard.ReadFromDict(dict.get()));
    EXPECT_EQ(standard.m_colors.GetTypeColor(5), 256);
}

TEST(OrvoStdSet, StopsReadingAtAnItemOfAnotherKind) {
    const auto dict = Marked();
    dict->SetAttributeValue(L"date", L"2010-1-20");
    dict->FindOrAddItem(L"FullWin", 1)->SetIntValue(0);
    dict->FindOrAddItem(L"AllMaxContinueTime", 1)->SetIntValue(1);
    dict->FindOrAddItem(L"MaxWidth", 3)->SetIntValue(1800);
    dict->FindOrAddItem(L"MinWidth", 4)->SetDoubleValue(600);
    dict->FindOrAddItem(L"TotalTimeType", 3)->SetIntValue(2);
    OrvoStdSet standard;
    EXPECT_FALSE(standard.ReadFromDict(dict.get()));
    EXPECT_EQ(standard.m_strName, L"new");
    EXPECT_EQ(standard.m_date.GetMonth(), 1);
    EXPECT_EQ(standard.m_nFullWin, 0);
    EXPECT_EQ(standard.m_nAllMaxContinueTime, 1);
    EXPECT_EQ(standard.m_dMaxWidth, 2400.0);
    EXPECT_EQ(standard.m_dMinWidth, 1200.0);
    EXPECT_EQ(standard.m_nTotalTimeType, 0);
}

TEST(OrvoStdSet, StopsAtEachKeyThatHasAnotherKind) {
    for (std::size_t wrong = 1; wrong < kKeys.size(); ++wrong) {
        const auto dict = Marked();
        const auto full = Saved(Unusual());
        for (std::size_t i = 1; i < kKeys.size(); ++i)
            if (i == wrong)
                dict->FindOrAddItem(kKeys[i].name, 5)->SetStringValue(L"12");
            else
                dict->AppendItem(full->FindItem(kKeys[i].name)->Clone());
        OrvoStdSet standard;
        EXPECT_FALSE(standard.ReadFromDict(dict.get()));
        const auto after = Saved(standard);
        const auto fresh = Saved(OrvoStdSet());
        for (std::size_t i = 1; i < kKeys.size(); ++i) {
            const QcDtDictionary* expected = i < wrong ? full.get() : fresh.get();
            EXPECT_EQ(after->FindItem(kKeys[i].name)->GetIntValue(), expected->FindItem(kKeys[i].name)->GetIntValue());
            EXPECT_EQ(after->FindItem(kKeys[i].name)->GetDoubleValue(),
                      expected->FindItem(kKeys[i].name)->GetDoubleValue());
        }
    }
}

namespace {

OrvoDate DateReadFrom(const wchar_t* attribute) {
    const auto dict = Marked();
    dict->SetAttributeValue(L"date", attribute);
    OrvoStdSet standard;
    EXPECT_TRUE(standard.ReadFromDict(dict.get()));
    return standard.m_date;
}

void ExpectDate(const OrvoDate& date, int year, int month, int day) {
    EXPECT_EQ(date.GetYear(), year);
    EXPECT_EQ(date.GetMonth(), month);
    EXPECT_EQ(date.m_nDay, day);
}

}  // namespace

TEST(OrvoStdSet, ReadsADateWithDashes) {
    ExpectDate(DateReadFrom(L"2010-12-22"), 2010, 12, 22);
    ExpectDate(DateReadFrom(L"2010- 6- 2"), 2010, 6, 2);
}

TEST(OrvoStdSet, ReadsADateWithoutDashesAsItStands) {
    ExpectDate(DateReadFrom(L"2010年6月2"), 2010, 6, 2);
    ExpectDate(DateReadFrom(L"6月2"), OrvoDate().GetYear(), 6, 2);
}

TEST(OrvoStdSet, ReadsADateWithTooManyDashesWithoutHanging) {
    // The third dash stays where it is; the day ends in front of it.
    ExpectDate(DateReadFrom(L"2010-12-22-9"), 2010, 12, 22);
    ExpectDate(DateReadFrom(L"2010-12-22-9-9-9"), 2010, 12, 22);
}

TEST(OrvoStdSet, StopsRewritingADateAtALeadingDash) {
    // What is parsed is "-2010-12-22日": no mark of a year, so this year; no mark of a month, so no digits of one; and
    // the number before the mark of the day ends at the second dash.
    ExpectDate(DateReadFrom(L"-2010-12-22"), OrvoDate().GetYear(), 0, -2010);
}
