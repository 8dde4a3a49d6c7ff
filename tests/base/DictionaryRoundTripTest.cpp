// What was written is read back as it was, to the last unit and the last bit, and is written as the same bytes again.
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "RandomDictionary.h"
#include "platform/base/DictionaryReader.h"
#include "platform/base/DictionaryWriter.h"

namespace {

void ExpectComesBack(const QcDtDictionary& dictionary) {
    std::string bytes;
    ASSERT_TRUE(DictionaryWriter::Write(dictionary, bytes));
    QcDtDictionary read(L"stale");
    ASSERT_TRUE(DictionaryReader(read).ReadBytes(bytes)) << bytes;
    EXPECT_TRUE(AreAlike(dictionary, read)) << bytes;
    std::string again;
    ASSERT_TRUE(DictionaryWriter::Write(read, again));
    EXPECT_EQ(again, bytes);
}

// A text in each place that holds one.
void ExpectTextComesBack(const std::wstring& text) {
    const CString wide{std::wstring_view(text)};
    QcDtDictionary root;
    root.SetTag(wide);
    root.SetName(wide);
    root.SetLocalName(wide);
    root.SetAttributeValue(L"a", wide);
    QcDtDictItem* const item = root.FindOrAddItem(L"t", QcDtKindString);
    item->SetStringValue(wide);
    item->SetAttributeValue(wide, wide);
    QcDtDictionary* const inner = root.FindOrAddDict(L"d");
    inner->SetName(wide);
    inner->FindOrAddItem(L"t", QcDtKindString)->SetTag(wide);
    ExpectComesBack(root);
}

TEST(DictionaryRoundTrip, BringsEveryUnitOfTheBasicPlaneBackFromEveryPlace) {
    for (unsigned first = 0; first < 0x10000; first += 64) {
        QcDtDictionary root(L"r");
        for (unsigned unit = first; unit < first + 64; ++unit) {
            const CString text(std::wstring_view(std::wstring(1, static_cast<wchar_t>(unit))));
            QcDtDictItem* const item = root.FindOrAddItem(L"", QcDtKindString);
            item->SetTag(text);
            item->SetName(text);
            item->SetStringValue(text);
            item->SetAttributeValue(text, text);
        }
        ExpectComesBack(root);
    }
}

TEST(DictionaryRoundTrip, BringsCharactersOfEveryPlaneBack) {
    for (const char32_t c : {0x10000U, 0x1F600U, 0x20000U, 0xEFFFFU, 0xF0000U, 0x1FFFEU, 0x10FFFFU}) {
        std::wstring text;
        if (sizeof(wchar_t) == 2) {
            text.push_back(static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10U)));
            text.push_back(static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FFU)));
        } else {
            text.push_back(static_cast<wchar_t>(c));
        }
        ExpectTextComesBack(text);
        ExpectTextComesBack(L"a" + text + L" ");
    }
}

TEST(DictionaryRoundTrip, BringsWhatUsersTypeBack) {
    for (const wchar_t* text : {L"  leading",     L"trailing  ",   L" ",          L"\n",         L"\r",
                                L"\r\n",          L"a\nb\r\nc\rd", L"\t",         L"]]>",        L"a]]>b",
                                L"\"'<>&",        L"&lt;",         L"&#13;",      L"<!-- x -->", L"<![CDATA[x]]>",
                                L"北京市 昌平区", L"39°54′",       L"😀",          L"_x0041_",    L"_x005F_",
                                L"\x01_x0041_",   L"_x0041\x01",   L"xml",        L"xmlns",      L"xml:space",
                                L"dt:tag",        L"\xFEFF",       L"\x85\x2028", L"\x1F"})
        ExpectTextComesBack(text);
}

TEST(DictionaryRoundTrip, BringsZeroCharactersAndSurrogatesBack) {
    ExpectTextComesBack(std::wstring(1, L'\0'));
    ExpectTextComesBack(std::wstring(L"a\0b", 3));
    const auto unit = [](int value) { return std::wstring(1, static_cast<wchar_t>(value)); };
    ExpectTextComesBack(unit(0xD800));
    ExpectTextComesBack(unit(0xDFFF) + unit(0xD800));
    ExpectTextComesBack(unit(0xD83D) + unit(0xDE00));
    ExpectTextComesBack(unit(0xD83D) + L"_" + unit(0xDE00));
}

TEST(DictionaryRoundTrip, BringsDoublesBackToTheLastBit) {
    using Limits = std::numeric_limits<double>;
    QcDtDictionary root(L"r");
    for (const double value :
         {0.0, -0.0, 0.1, 1.0 / 3.0, -23.45, 1e300, 1e-300, 123456789.125, Limits::max(), Limits::min(),
          Limits::denorm_min(), Limits::lowest(), Limits::infinity(), -Limits::infinity(), 9007199254740993.0})
        root.AppendItem(QcDtDictItem::Create(QcDtKindDouble, L"d")),
            root.GetItem(root.GetCount() - 1)->SetDoubleValue(value);
    ExpectComesBack(root);
}

TEST(DictionaryRoundTrip, BringsIntegersBack) {
    QcDtDictionary root(L"r");
    for (const int value : {0, 1, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        for (const int kind : {QcDtKindFlag, QcDtKindInteger}) {
            QcDtDictItem* const item = QcDtDictItem::Create(kind, L"i");
            item->SetIntValue(value);
            ASSERT_TRUE(root.AppendItem(item));
        }
    }
    ExpectComesBack(root);
}

TEST(DictionaryRoundTrip, BringsRandomTreesBack) {
    for (unsigned seed = 1; seed <= 2000 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        QcDtDictionary root;
        RandomDictionary(seed).Fill(root);
        ExpectComesBack(root);
    }
}

TEST(DictionaryRoundTrip, ACopyOfARandomTreeIsAlikeAndItsFileTheSame) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        QcDtDictionary root;
        RandomDictionary(seed).Fill(root);
        const std::unique_ptr<QcDtDictionary> copy(root.Clone());
        ASSERT_TRUE(AreAlike(root, *copy)) << seed;
    }
}

}  // namespace
