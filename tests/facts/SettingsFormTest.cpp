// Settings and standards as dictionaries: their fields one by one, and what counts as the same.
#include "facts/SettingsForm.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "settings/OrvoDataSet.h"

namespace {

// A standard none of whose fields has its default, save the colours, which would not outlive a copy.
OrvoStdSet Another() {
    OrvoStdSet standard;
    standard.m_date = OrvoDate(2001, 2, 3);
    for (int OrvoStdSet::*field :
         {&OrvoStdSet::m_nFullWin, &OrvoStdSet::m_nLimitWidth, &OrvoStdSet::m_nMaxContinue, &OrvoStdSet::m_nBJTime,
          &OrvoStdSet::m_nAllMaxContinueTime, &OrvoStdSet::m_nValidSunType, &OrvoStdSet::m_nMinValidAngle,
          &OrvoStdSet::m_nMinValidTime, &OrvoStdSet::m_nTotalTimeType, &OrvoStdSet::m_nMinMaxValidTime,
          &OrvoStdSet::m_nMinContinueTime})
        standard.*field += 7;
    for (double OrvoStdSet::*field : {&OrvoStdSet::m_dMaxWidth, &OrvoStdSet::m_dMinWidth, &OrvoStdSet::m_dSpace})
        standard.*field += 0.5;
    standard.m_dgStartTime = 8.25;
    standard.m_dgEndTime = 15.75;
    return standard;
}

}  // namespace

TEST(FieldsOfAStandard, AreAllThatItHas) {
    OrvoStdSet another = Another();
    another.m_colors.m_listType.Append(99);
    const OrvoStdSet defaults;
    EXPECT_EQ(StandardFields().size(), static_cast<std::size_t>(FormOf(defaults)->GetCount()) + 1) << "and the date";
    EXPECT_EQ(DifferingFields(defaults, another).size(), StandardFields().size());
    EXPECT_TRUE(DifferingFields(defaults, OrvoStdSet()).empty());
    std::set<std::wstring> keys;
    std::set<std::string> jsonKeys;
    std::set<std::wstring> labels;
    for (const StandardField& field : StandardFields()) {
        keys.insert(field.key);
        jsonKeys.insert(field.jsonKey);
        labels.insert(field.label);
    }
    for (const std::size_t names : {keys.size(), jsonKeys.size(), labels.size()})
        EXPECT_EQ(names, StandardFields().size()) << "each by a name of its own";
}

TEST(FieldsOfAStandard, GoFromOneToTheOtherOneByOne) {
    OrvoStdSet another = Another();
    another.m_colors.m_listType.Append(99);
    const std::unique_ptr<QcDtDictionary> from = FormOf(another);
    for (const StandardField& field : StandardFields()) {
        const std::unique_ptr<QcDtDictionary> to = FormOf(OrvoStdSet());
        SetFieldValue(*to, field, FieldValue(*from, field).get());
        OrvoStdSet changed;
        ASSERT_TRUE(changed.ReadFromDict(to.get()));
        const std::vector<const StandardField*> fields = DifferingFields(changed, OrvoStdSet());
        ASSERT_EQ(fields.size(), 1U) << field.jsonKey;
        EXPECT_EQ(fields[0], &field);
    }
}

TEST(FieldsOfAStandard, MayBeMissing) {
    const StandardField unknown = {L"nothing", "nothing", L"nothing"};
    const StandardField ownDate = {L"date", "date", L"of a caller's own"};
    const std::unique_ptr<QcDtDictionary> form = FormOf(Another());
    const std::unique_ptr<QcDtDictionary> before(form->Clone());
    EXPECT_EQ(FieldValue(*form, unknown), nullptr);
    SetFieldValue(*form, StandardFields().back(), nullptr);
    EXPECT_TRUE(IsSameItem(form.get(), before.get()));
    ASSERT_NE(FieldValue(*form, ownDate), nullptr);
    EXPECT_EQ(FieldValue(*form, ownDate)->GetStringValue(), L"2001- 2- 3");
}

TEST(FormsOfSettings, HoldStandardsByTheirNames) {
    OrvoDataSet settings;
    for (const wchar_t* name : {L"甲", L"乙"}) {
        OrvoStdSet standard;
        standard.m_strName = name;
        settings.NewStd(standard);
    }
    const std::unique_ptr<QcDtDictionary> form = FormOf(settings);
    const std::vector<const QcDtDictionary*> standards = StandardsIn(*form);
    ASSERT_EQ(standards.size(), 2U);
    EXPECT_EQ(FindStandardIn(*form, L"乙"), standards[1]);
    EXPECT_EQ(FindStandardIn(*form, L"CUR_SUNSETDATA"), nullptr) << "no standard";
    EXPECT_EQ(FindStandardIn(*form, L"丙"), nullptr);
}

TEST(SameItems, AreSoInEveryPart) {
    QcDtDictionary left(L"d");
    left.FindOrAddItem(L"a", QcDtKindDouble)->SetDoubleValue(std::numeric_limits<double>::quiet_NaN());
    left.FindOrAddItem(L"b", QcDtKindString)->SetStringValue(L"x");
    left.SetAttributeValue(L"k", L"v");
    const std::unique_ptr<QcDtDictionary> same(left.Clone());
    EXPECT_TRUE(IsSameItem(&left, same.get())) << "no number is no number";
    EXPECT_TRUE(IsSameItem(nullptr, nullptr));
    EXPECT_FALSE(IsSameItem(&left, nullptr));
    EXPECT_FALSE(IsSameItem(nullptr, &left));
    same->FindItem(L"a")->SetDoubleValue(0.0);
    EXPECT_FALSE(IsSameItem(&left, same.get()));
    const auto differs = [&left](const auto& change) {
        const std::unique_ptr<QcDtDictionary> other(left.Clone());
        change(*other);
        return !IsSameItem(&left, other.get());
    };
    EXPECT_TRUE(differs([](QcDtDictionary& other) { other.FindItem(L"b")->SetStringValue(L"y"); }));
    EXPECT_TRUE(differs([](QcDtDictionary& other) { other.SetAttributeValue(L"k", L"w"); }));
    EXPECT_TRUE(differs([](QcDtDictionary& other) { other.SetAttributeValue(L"l", L"v"); }));
    EXPECT_TRUE(differs([](QcDtDictionary& other) { other.FindItem(L"b")->SetName(L"c"); }));
    EXPECT_TRUE(differs([](QcDtDictionary& other) { other.RemoveItem(other.FindItem(L"b")); }));
    EXPECT_TRUE(differs([](QcDtDictionary& other) {
        other.RemoveItem(other.FindItem(L"a"));
        other.FindOrAddItem(L"a", QcDtKindDouble)->SetDoubleValue(std::numeric_limits<double>::quiet_NaN());
    })) << "another order";
}
