// Which items of one tree of places come into another, and what changes in those that are there.
#include "zone/ZoneMerge.h"

#include <gtest/gtest.h>

#include "platform/base/QcDtDictionary.h"

namespace {

QcDtDictItem& Append(QcDtDictionary& parent, int kind, const wchar_t* name) {
    QcDtDictItem* item = QcDtDictItem::Create(kind, name);
    EXPECT_TRUE(parent.AppendItem(item));
    return *item;
}

QcDtDictionary& Province(QcDtDictionary& parent, const wchar_t* name) {
    return static_cast<QcDtDictionary&>(Append(parent, 0, name));
}

QcDtDictItem& City(QcDtDictionary& parent, const wchar_t* name, const wchar_t* position) {
    QcDtDictItem& city = Append(parent, 5, name);
    city.SetAttributeValue(L"longitude", position);
    city.SetAttributeValue(L"latitude", position);
    return city;
}

}  // namespace

TEST(ZoneMerge, TakesTagAndPositionAndNothingElse) {
    QcDtDictionary target;
    QcDtDictionary source;
    QcDtDictItem& old = City(target, L"A", L"1");
    old.SetAttributeValue(L"comment", L"kept");
    old.SetAttributeValue(L"type", L"kept");
    old.SetStringValue(L"kept");
    QcDtDictItem& changed = City(source, L"A", L"2");
    changed.SetTag(L"tag");
    changed.SetStringValue(L"other");
    for (const wchar_t* name : {L"comment", L"type", L"more"})
        changed.SetAttributeValue(name, L"other");
    MergeZones(target, source);
    ASSERT_EQ(target.GetCount(), 1);
    EXPECT_EQ(target.GetItem(0), &old);
    EXPECT_EQ(old.GetName(), L"A");
    EXPECT_EQ(old.GetTag(), L"tag");
    EXPECT_EQ(old.GetAttributeValue(L"longitude"), L"2");
    EXPECT_EQ(old.GetAttributeValue(L"latitude"), L"2");
    EXPECT_EQ(old.GetAttributeValue(L"comment"), L"kept");
    EXPECT_EQ(old.GetAttributeValue(L"type"), L"kept");
    EXPECT_EQ(old.GetStringValue(), L"kept");
    EXPECT_FALSE(old.HasAttribute(L"more"));
}

TEST(ZoneMerge, CopiesNewItemsWithEverythingInThem) {
    QcDtDictionary target;
    QcDtDictionary source;
    QcDtDictionary& province = Province(source, L"P");
    province.SetAttributeValue(L"type", L"PROVINCE");
    QcDtDictItem& city = City(Province(province, L"inner"), L"A", L"1");
    city.SetStringValue(L"value");
    city.SetAttributeValue(L"more", L"1");
    Append(source, 3, L"number").SetIntValue(7);
    MergeZones(target, source);
    ASSERT_EQ(target.GetCount(), 2);
    const QcDtDictionary* copy = target.FindDict(L"P");
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, &province);
    EXPECT_EQ(copy->GetAttributeValue(L"type"), L"PROVINCE");
    const QcDtDictItem* copied = copy->FindDict(L"inner")->FindItem(L"A");
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(copied->GetStringValue(), L"value");
    EXPECT_EQ(copied->GetAttributeValue(L"more"), L"1");
    EXPECT_EQ(target.FindItem(L"number")->GetIntValue(), 7);
    EXPECT_EQ(source.GetCount(), 2) << "the source stays as it was";
    EXPECT_EQ(city.GetParent()->GetName(), L"inner");
}

TEST(ZoneMerge, LeavesAProvincesOwnAttributesAlone) {
    QcDtDictionary target;
    QcDtDictionary source;
    Province(target, L"P").SetAttributeValue(L"type", L"kept");
    QcDtDictionary& other = Province(source, L"P");
    other.SetTag(L"tag");
    other.SetAttributeValue(L"type", L"other");
    MergeZones(target, source);
    EXPECT_EQ(target.GetItem(0)->GetAttributeValue(L"type"), L"kept");
    EXPECT_EQ(target.GetItem(0)->GetTag(), L"P");
}

TEST(ZoneMerge, LeavesItemsOfDifferentOrOtherKindsAlone) {
    QcDtDictionary target;
    QcDtDictionary source;
    City(target, L"x", L"1");
    City(Province(source, L"x"), L"A", L"2");
    Append(target, 3, L"n").SetIntValue(1);
    Append(source, 3, L"n").SetIntValue(2);
    MergeZones(target, source);
    EXPECT_EQ(target.GetCount(), 2);
    EXPECT_EQ(target.FindItem(L"x")->GetAttributeValue(L"longitude"), L"1");
    EXPECT_EQ(target.FindItem(L"n")->GetIntValue(), 1);
}

TEST(ZoneMerge, NeverTakesAPositionAway) {
    QcDtDictionary target;
    QcDtDictionary source;
    City(target, L"A", L"1");
    Append(source, 5, L"A").SetAttributeValue(L"latitude", L"");
    MergeZones(target, source);
    EXPECT_EQ(target.GetItem(0)->GetAttributeValue(L"longitude"), L"1") << "the source has none";
    EXPECT_EQ(target.GetItem(0)->GetAttributeValue(L"latitude"), L"") << "the source has an empty one";
}

TEST(ZoneMerge, DeletesNothing) {
    QcDtDictionary target;
    City(Province(target, L"P"), L"A", L"1");
    City(target, L"B", L"1");
    MergeZones(target, QcDtDictionary());
    EXPECT_EQ(target.GetCount(), 2);
    EXPECT_EQ(target.FindDict(L"P")->GetCount(), 1);
}

TEST(ZoneMerge, TakesTheLastOfSeveralOfOneName) {
    QcDtDictionary target;
    QcDtDictionary source;
    City(source, L"A", L"1");
    City(source, L"A", L"2");
    MergeZones(target, source);
    ASSERT_EQ(target.GetCount(), 1) << "the second one finds the first";
    EXPECT_EQ(target.GetItem(0)->GetAttributeValue(L"longitude"), L"2");
}
