// Random trees of every kind of item with every kind of difficult text, and the comparison of two trees.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>
#include <string>

#include "platform/base/QcDtDictionary.h"

class RandomDictionary {
public:
    explicit RandomDictionary(unsigned seed) : m_random(seed) {}

    void Fill(QcDtDictionary& root) {
        Adorn(root);
        FillLevel(root, 0);
    }

    std::wstring Text() {
        static const std::wstring pieces[] = {
            L" ",       L"  ",        L"\t",      L"\n",     L"\r",      L"\r\n",    L"]]>",    L"]]",
            L"<",       L">",         L"&",       L"&amp;",  L"&#13;",   L"\"",      L"'",      L"<!--",
            L"-->",     L"<![CDATA[", L"<?x?>",   L"_",      L"_x0041_", L"_x005F_", L"_x0041", L"x0041_",
            L"_xD800_", L"北京",      L"度分秒",  L"😀",      L"𠀀",      L"\xFEFF",  L"\xFFFD", L"\x85",
            L"\x2028",  L"\x7F",      L"\xA0",    L"\x3000", L"a",       L"0",       L"-",      L".",
            L":",       L"xmlns",     L"dt:kind", L"item",   L"%s",      L"\\",      L"/"};
        std::wstring text;
        for (unsigned n = Below(6); n > 0; --n)
            if (Below(6) == 0)
                text.push_back(static_cast<wchar_t>(Unit()));
            else
                text += pieces[Below(static_cast<unsigned>(std::size(pieces)))];
        return text;
    }

private:
    unsigned Below(unsigned count) { return std::uniform_int_distribution<unsigned>(0, count - 1)(m_random); }

    // Any unit that a text can hold: forbidden ones, surrogates, plain ones.
    unsigned Unit() {
        switch (Below(4)) {
            case 0:
                return Below(0x20);
            case 1:
                return 0xD800 + Below(0x800);
            case 2:
                return 0xFFFE + Below(2);
            default:
                return Below(0x10000);
        }
    }

    CString Wide() { return CString(std::wstring_view(Text())); }

    void Adorn(QcDtDictItem& item) {
        if (Below(3) != 0)
            item.SetTag(Wide());
        if (Below(3) != 0)
            item.SetName(Below(2) == 0 ? item.GetTag() : Wide());
        if (Below(4) == 0)
            item.SetLocalName(Wide());
        for (unsigned n = Below(4); n > 0; --n)
            item.SetAttributeValue(Wide(), Wide());
    }

    double Real() {
        const std::uint64_t bits = (static_cast<std::uint64_t>(m_random()) << 32U) | m_random();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value == value ? value : 0.0;  // a NaN keeps none of its other bits
    }

    void FillLevel(QcDtDictionary& dictionary, int depth) {
        static constexpr int kKinds[] = {0, 0, 1, 3, 4, 5, 5, 5};
        for (unsigned n = Below(depth == 0 ? 12 : 5); n > 0; --n) {
            QcDtDictItem* const item = QcDtDictItem::Create(kKinds[Below(8)], L"name");
            Adorn(*item);
            item->SetIntValue(static_cast<int>(m_random()));
            item->SetDoubleValue(Real());
            item->SetStringValue(Wide());
            EXPECT_TRUE(dictionary.AppendItem(item));
            if (item->GetType() == QcDtKindDictionary && depth < 5)
                FillLevel(static_cast<QcDtDictionary&>(*item), depth + 1);
        }
    }

    std::mt19937 m_random;
};

inline bool HaveSameBits(double left, double right) {
    return std::memcmp(&left, &right, sizeof left) == 0;
}

// Whether two items are alike in everything, to the last unit and the last bit.
inline bool AreAlike(const QcDtDictItem& left, const QcDtDictItem& right) {
    bool alike = left.GetType() == right.GetType() && left.GetTag() == right.GetTag() &&
                 left.GetName() == right.GetName() && left.GetLocalName() == right.GetLocalName() &&
                 left.GetAttributeCount() == right.GetAttributeCount() && left.GetIntValue() == right.GetIntValue() &&
                 HaveSameBits(left.GetDoubleValue(), right.GetDoubleValue()) &&
                 left.GetStringValue() == right.GetStringValue();
    for (int i = 0; alike && i < left.GetAttributeCount(); ++i)
        alike = left.GetAttributeName(i) == right.GetAttributeName(i) &&
                left.GetAttributeText(i) == right.GetAttributeText(i);
    if (!alike || left.GetType() != QcDtKindDictionary)
        return alike;
    const auto& leftTree = static_cast<const QcDtDictionary&>(left);
    const auto& rightTree = static_cast<const QcDtDictionary&>(right);
    alike = leftTree.GetCount() == rightTree.GetCount();
    for (int i = 0; alike && i < leftTree.GetCount(); ++i)
        alike = AreAlike(*leftTree.GetItem(i), *rightTree.GetItem(i));
    return alike;
}
