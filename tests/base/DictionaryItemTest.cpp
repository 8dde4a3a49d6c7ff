// Items: names, attributes, values of each kind.
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "platform/base/QcDtDictionary.h"

namespace {

constexpr int kKinds[] = {0, 1, 3, 4, 5};

std::unique_ptr<QcDtDictItem> Make(int kind, const wchar_t* name = L"n") {
    return std::unique_ptr<QcDtDictItem>(QcDtDictItem::Create(kind, name));
}

TEST(DictionaryItem, IsMadeByTheCodeOfItsKindWithTagAndNameAlike) {
    for (const int kind : kKinds) {
        const auto item = Make(kind, L"键");
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->GetType(), kind);
        EXPECT_EQ(item->GetTag(), L"键");
        EXPECT_EQ(item->GetName(), L"键");
        EXPECT_EQ(item->GetLocalName(), L"");
        EXPECT_EQ(item->GetParent(), nullptr);
        EXPECT_EQ(item->GetAttributeCount(), 0);
    }
}

TEST(DictionaryItem, OfACodeThatIsNoKindIsNotMade) {
    for (const int kind : {-1, 2, 6, 100, std::numeric_limits<int>::max()})
        EXPECT_EQ(Make(kind), nullptr) << kind;
}

TEST(DictionaryItem, ConstructorsTakeANullNameAsEmpty) {
    EXPECT_EQ(QcDtDictStringItem(nullptr).GetName(), L"");
    EXPECT_EQ(QcDtDictionary(nullptr, nullptr).GetLocalName(), L"");
    EXPECT_EQ(QcDtDictStringItem(L"北京").GetTag(), L"北京");
    const QcDtDictionary named(L"a", L"甲");
    EXPECT_EQ(named.GetTag(), L"a");
    EXPECT_EQ(named.GetName(), L"a");
    EXPECT_EQ(named.GetLocalName(), L"甲");
}

TEST(DictionaryItem, TagNameAndLocalNameAreIndependentOnceSet) {
    QcDtDictStringItem item(L"a");
    item.SetName(L"b");
    EXPECT_EQ(item.GetTag(), L"a");
    item.SetTag(L"c");
    EXPECT_EQ(item.GetName(), L"b");
    item.SetLocalName(L"d");
    EXPECT_EQ(item.GetTag(), L"c");
    EXPECT_EQ(item.GetName(), L"b");
    EXPECT_EQ(item.GetLocalName(), L"d");
}

TEST(DictionaryItem, FlagsAndIntegersHoldWholeNumbers) {
    for (const int kind : {QcDtKindFlag, QcDtKindInteger}) {
        const auto item = Make(kind);
        EXPECT_EQ(item->GetIntValue(), 0);
        for (const int value : {1, -7, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
            item->SetIntValue(value);
            EXPECT_EQ(item->GetIntValue(), value);
        }
    }
}

TEST(DictionaryItem, DoublesHoldRealNumbers) {
    const auto item = Make(QcDtKindDouble);
    EXPECT_EQ(item->GetDoubleValue(), 0.0);
    item->SetDoubleValue(0.1);
    EXPECT_EQ(item->GetDoubleValue(), 0.1);
}

TEST(DictionaryItem, TextsHoldTexts) {
    const auto item = Make(QcDtKindString);
    EXPECT_EQ(item->GetStringValue(), L"");
    item->SetStringValue(L" 上海 ");
    EXPECT_EQ(item->GetStringValue(), L" 上海 ");
    item->SetStringValue(nullptr);
    EXPECT_EQ(item->GetStringValue(), L"");
}

TEST(DictionaryItem, AValueThatTheKindDoesNotHaveReadsAsNothingAndCannotBeSet) {
    for (const int kind : kKinds) {
        const auto item = Make(kind);
        if (kind != QcDtKindFlag && kind != QcDtKindInteger) {
            item->SetIntValue(5);
            EXPECT_EQ(item->GetIntValue(), 0) << kind;
        }
        if (kind != QcDtKindDouble) {
            item->SetDoubleValue(5.5);
            EXPECT_EQ(item->GetDoubleValue(), 0.0) << kind;
        }
        if (kind != QcDtKindString) {
            item->SetStringValue(L"5");
            EXPECT_EQ(item->GetStringValue(), L"") << kind;
        }
        EXPECT_EQ(item->GetIntValue(), 0) << kind;
        EXPECT_EQ(item->GetDoubleValue(), 0.0) << kind;
        EXPECT_EQ(item->GetStringValue(), L"") << kind;
    }
}

TEST(DictionaryItem, AttributesKeepTheOrderInWhichTheyWereFirstSet) {
    QcDtDictStringItem item(L"a");
    item.SetAttributeValue(L"type", L"CITY");
    item.SetAttributeValue(L"latitude", L"39.9");
    item.SetAttributeValue(L"longitude", L"116.4");
    item.SetAttributeValue(L"type", L"PROVINCE");
    ASSERT_EQ(item.GetAttributeCount(), 3);
    EXPECT_EQ(item.GetAttributeName(0), L"type");
    EXPECT_EQ(item.GetAttributeText(0), L"PROVINCE");
    EXPECT_EQ(item.GetAttributeName(1), L"latitude");
    EXPECT_EQ(item.GetAttributeName(2), L"longitude");
    EXPECT_EQ(item.GetAttributeText(2), L"116.4");
    EXPECT_EQ(item.GetAttributeValue(L"latitude"), L"39.9");
}

TEST(DictionaryItem, AMissingAttributeReadsAsNothing) {
    QcDtDictStringItem item(L"a");
    item.SetAttributeValue(L"type", nullptr);
    EXPECT_TRUE(item.HasAttribute(L"type"));
    EXPECT_EQ(item.GetAttributeValue(L"type"), L"");
    EXPECT_FALSE(item.HasAttribute(L"Type"));
    EXPECT_EQ(item.GetAttributeValue(L"Type"), L"");
    EXPECT_EQ(item.GetAttributeValue(nullptr), L"");
    EXPECT_EQ(item.GetAttributeInt(L"Type"), 0);
    EXPECT_EQ(item.GetAttributeName(-1), L"");
    EXPECT_EQ(item.GetAttributeName(1), L"");
    EXPECT_EQ(item.GetAttributeText(-1), L"");
    EXPECT_EQ(item.GetAttributeText(1), L"");
}

TEST(DictionaryItem, NoAttributeHasAnEmptyName) {
    QcDtDictStringItem item(L"a");
    item.SetAttributeValue(L"", L"x");
    item.SetAttributeValue(nullptr, L"x");
    EXPECT_EQ(item.GetAttributeCount(), 0);
}

TEST(DictionaryItem, NumbersInAttributesAreTexts) {
    QcDtDictStringItem item(L"a");
    item.SetAttributeDouble(L"d", 0.1);
    EXPECT_EQ(item.GetAttributeValue(L"d"), L"0.1");
    item.SetAttributeDouble(L"d", -23.45);
    EXPECT_EQ(item.GetAttributeValue(L"d"), L"-23.45");
    item.SetAttributeInt(L"i", -12);
    EXPECT_EQ(item.GetAttributeValue(L"i"), L"-12");
    EXPECT_EQ(item.GetAttributeInt(L"i"), -12);
    item.SetAttributeValue(L"i", L"  42 Grad");
    EXPECT_EQ(item.GetAttributeInt(L"i"), 42);
    item.SetAttributeValue(L"i", L"Grad");
    EXPECT_EQ(item.GetAttributeInt(L"i"), 0);
}

TEST(DictionaryItem, ACopyOfEachKindHasEverythingButTheParent) {
    for (const int kind : kKinds) {
        QcDtDictionary parent;
        QcDtDictItem* const item = parent.FindOrAddItem(L"n", kind);
        item->SetTag(L"t");
        item->SetLocalName(L"l");
        item->SetAttributeValue(L"b", L"1");
        item->SetAttributeValue(L"a", L"2");
        item->SetIntValue(-3);
        item->SetDoubleValue(2.5);
        item->SetStringValue(L"s");
        const std::unique_ptr<QcDtDictItem> copy(item->Clone());
        EXPECT_EQ(copy->GetParent(), nullptr);
        EXPECT_EQ(copy->GetType(), kind);
        EXPECT_EQ(copy->GetTag(), L"t");
        EXPECT_EQ(copy->GetName(), L"n");
        EXPECT_EQ(copy->GetLocalName(), L"l");
        ASSERT_EQ(copy->GetAttributeCount(), 2);
        EXPECT_EQ(copy->GetAttributeName(0), L"b");
        EXPECT_EQ(copy->GetAttributeText(1), L"2");
        EXPECT_EQ(copy->GetIntValue(), item->GetIntValue());
        EXPECT_EQ(copy->GetDoubleValue(), item->GetDoubleValue());
        EXPECT_EQ(copy->GetStringValue(), item->GetStringValue());
        copy->SetAttributeValue(L"b", L"other");
        EXPECT_EQ(item->GetAttributeValue(L"b"), L"1");
    }
}

}  // namespace
