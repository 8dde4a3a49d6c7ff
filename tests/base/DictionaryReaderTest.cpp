// What the reader makes of files, above all of those that people wrote.
#include "platform/base/DictionaryReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/GermanLocale.h"

namespace {

using namespace std::string_literals;

class ReadDictionary : public testing::Test {
protected:
    bool Read(const std::string& bytes) { return DictionaryReader(m_root).ReadBytes(bytes); }
    // The content of a root that declares the bookkeeping namespace.
    bool ReadInside(const std::string& content) {
        return Read("<r xmlns:dt='urn:orvo:dictionary'>" + content + "</r>");
    }
    const QcDtDictItem& Item(int index) {
        static const QcDtDictStringItem none;
        const QcDtDictItem* item = m_root.GetItem(index);
        EXPECT_NE(item, nullptr) << index;
        return item ? *item : none;
    }

    QcDtDictionary m_root;
};

TEST_F(ReadDictionary, AnElementWithChildElementsIsADictionaryAndAnyOtherAText) {
    ASSERT_TRUE(
        Read("<ORVO_ZONEDATA>\n"
             "  <!-- by hand -->\n"
             "  <?made with care?>\n"
             "  <北京 type='PROVINCE'>\n"
             "    <昌平 type='CITY' longitude=' 116.2' latitude='40.2'>  区 </昌平>\n"
             "    <空/>\n"
             "  </北京>\n"
             "  <blank>   </blank>\n"
             "</ORVO_ZONEDATA>"));
    EXPECT_EQ(m_root.GetTag(), L"ORVO_ZONEDATA");
    EXPECT_EQ(m_root.GetName(), L"ORVO_ZONEDATA");
    ASSERT_EQ(m_root.GetCount(), 2);
    const QcDtDictionary* const province = m_root.FindDict(L"北京");
    ASSERT_NE(province, nullptr);
    EXPECT_EQ(province->GetAttributeValue(L"type"), L"PROVINCE");
    ASSERT_EQ(province->GetCount(), 2);
    const QcDtDictItem* const city = province->GetItem(0);
    EXPECT_EQ(city->GetType(), QcDtKindString);
    EXPECT_EQ(city->GetName(), L"昌平");
    EXPECT_EQ(city->GetStringValue(), L"  区 ");
    EXPECT_EQ(city->GetAttributeCount(), 3);
    EXPECT_EQ(city->GetAttributeName(1), L"longitude");
    EXPECT_EQ(city->GetAttributeText(1), L" 116.2");
    EXPECT_EQ(city->GetParent(), province);
    EXPECT_EQ(province->GetItem(1)->GetType(), QcDtKindString);
    EXPECT_EQ(province->GetItem(1)->GetStringValue(), L"");
    EXPECT_EQ(Item(1).GetType(), QcDtKindString);
    EXPECT_EQ(Item(1).GetStringValue(), L"   ");
}

TEST_F(ReadDictionary, ReplacesAllThatTheDictionaryHeldAndWas) {
    m_root.SetTag(L"old");
    m_root.SetName(L"old name");
    m_root.SetLocalName(L"old local");
    m_root.SetAttributeValue(L"old", L"1");
    m_root.FindOrAddItem(L"old", QcDtKindString);
    ASSERT_TRUE(Read("<r a='1'><b/></r>"));
    EXPECT_EQ(m_root.GetTag(), L"r");
    EXPECT_EQ(m_root.GetName(), L"r");
    EXPECT_EQ(m_root.GetLocalName(), L"");
    EXPECT_EQ(m_root.GetAttributeCount(), 1);
    EXPECT_EQ(m_root.GetCount(), 1);
    EXPECT_EQ(m_root.FindItem(L"old"), nullptr);
}

TEST_F(ReadDictionary, IsLeftWithNothingByARefusedFile) {
    ASSERT_TRUE(Read("<r a='1' xmlns:dt='urn:orvo:dictionary' dt:name='n' dt:local='l'><b/></r>"));
    EXPECT_EQ(m_root.GetLocalName(), L"l");
    EXPECT_FALSE(Read("<q a='1'><b/><c>"));
    EXPECT_EQ(m_root.GetTag(), L"");
    EXPECT_EQ(m_root.GetName(), L"");
    EXPECT_EQ(m_root.GetLocalName(), L"");
    EXPECT_EQ(m_root.GetAttributeCount(), 0);
    EXPECT_EQ(m_root.GetCount(), 0);
}

TEST_F(ReadDictionary, InsideAnotherIsFoundUnderItsNewName) {
    QcDtDictionary outer;
    QcDtDictionary* const inner = outer.FindOrAddDict(L"before");
    ASSERT_TRUE(DictionaryReader(*inner).ReadBytes("<after/>"));
    EXPECT_EQ(outer.FindDict(L"after"), inner);
    EXPECT_EQ(outer.FindDict(L"before"), nullptr);
}

TEST_F(ReadDictionary, ARootIsADictionaryWhateverItHolds) {
    ASSERT_TRUE(Read("<r>text</r>"));
    EXPECT_EQ(m_root.GetCount(), 0);
    ASSERT_TRUE(Read("<r/>"));
    EXPECT_EQ(m_root.GetTag(), L"r");
    ASSERT_TRUE(Read("<r xmlns:dt='urn:orvo:dictionary' dt:kind='5'>text</r>"));
    EXPECT_EQ(m_root.GetCount(), 0);
}

TEST_F(ReadDictionary, BookkeepingNamesTheKind) {
    ASSERT_TRUE(
        ReadInside("<a dt:kind='1'>1</a><b dt:kind='3'> -7 </b><c dt:kind='4'>2.5e3</c><d dt:kind='5'>x</d>"
                   "<e dt:kind='0'/><f dt:kind='0'> text </f><g dt:kind='1'/>"));
    EXPECT_EQ(Item(0).GetType(), QcDtKindFlag);
    EXPECT_EQ(Item(0).GetIntValue(), 1);
    EXPECT_EQ(Item(1).GetType(), QcDtKindInteger);
    EXPECT_EQ(Item(1).GetIntValue(), -7);
    EXPECT_EQ(Item(2).GetType(), QcDtKindDouble);
    EXPECT_EQ(Item(2).GetDoubleValue(), 2500.0);
    EXPECT_EQ(Item(3).GetType(), QcDtKindString);
    EXPECT_EQ(Item(3).GetStringValue(), L"x");
    EXPECT_EQ(Item(4).GetType(), QcDtKindDictionary);
    EXPECT_EQ(Item(5).GetType(), QcDtKindDictionary);
    EXPECT_EQ(Item(6).GetType(), QcDtKindFlag);
    EXPECT_EQ(Item(6).GetIntValue(), 0);
    EXPECT_EQ(Item(0).GetAttributeCount(), 0);
}

TEST_F(ReadDictionary, ChildElementsMakeADictionaryWhateverTheKindSays) {
    ASSERT_TRUE(ReadInside("<a dt:kind='5'>text<b/>more</a><c dt:kind='3'>1<d>2</d></c>"));
    EXPECT_EQ(Item(0).GetType(), QcDtKindDictionary);
    EXPECT_EQ(Item(1).GetType(), QcDtKindDictionary);
    EXPECT_EQ(m_root.FindDict(L"c")->FindItem(L"d")->GetStringValue(), L"2");
}

TEST_F(ReadDictionary, AKindThatIsNoneCountsAsNone) {
    ASSERT_TRUE(ReadInside("<a dt:kind='2'>x</a><b dt:kind=''>x</b><c dt:kind='33'>x</c><d dt:kind='text'>x</d>"));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Item(i).GetType(), QcDtKindString);
        EXPECT_EQ(Item(i).GetStringValue(), L"x");
    }
}

TEST_F(ReadDictionary, TextsThatAreNoNumbersReadLeniently) {
    ASSERT_TRUE(
        ReadInside("<a dt:kind='3'>zwölf</a><b dt:kind='3'>12 Grad</b><c dt:kind='4'>1,5</c>"
                   "<d dt:kind='3'>99999999999</d><e dt:kind='4'>x</e><f dt:kind='1'>true</f>"));
    EXPECT_EQ(Item(0).GetIntValue(), 0);
    EXPECT_EQ(Item(1).GetIntValue(), 12);
    EXPECT_EQ(Item(2).GetDoubleValue(), 1.0);
    EXPECT_EQ(Item(3).GetIntValue(), std::numeric_limits<int>::max());
    EXPECT_EQ(Item(4).GetDoubleValue(), 0.0);
    EXPECT_EQ(Item(5).GetIntValue(), 0);
}

TEST_F(ReadDictionary, DoublesDoNotDependOnTheLocale) {
    const GermanLocale german;
    ASSERT_TRUE(ReadInside("<a dt:kind='4'>1.5</a>"));
    EXPECT_EQ(Item(0).GetDoubleValue(), 1.5);
}

TEST_F(ReadDictionary, DoublesThatAreNotFiniteComeBack) {
    ASSERT_TRUE(ReadInside("<a dt:kind='4'>inf</a><b dt:kind='4'>-inf</b><c dt:kind='4'>nan</c>"));
    EXPECT_EQ(Item(0).GetDoubleValue(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Item(1).GetDoubleValue(), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(Item(2).GetDoubleValue()));
}

TEST_F(ReadDictionary, BookkeepingNamesTagNameAndLocalName) {
    ASSERT_TRUE(
        ReadInside("<item dt:tag='a b'/><x dt:name='y'/><x dt:name=''/><item dt:name='n' dt:tag=''/>"
                   "<x dt:local='本地' own='1'/><item/>"));
    EXPECT_EQ(Item(0).GetTag(), L"a b");
    EXPECT_EQ(Item(0).GetName(), L"a b");
    EXPECT_EQ(Item(1).GetTag(), L"x");
    EXPECT_EQ(Item(1).GetName(), L"y");
    EXPECT_EQ(Item(2).GetName(), L"");
    EXPECT_EQ(Item(3).GetTag(), L"");
    EXPECT_EQ(Item(3).GetName(), L"n");
    EXPECT_EQ(Item(4).GetLocalName(), L"本地");
    EXPECT_EQ(Item(4).GetAttributeCount(), 1);
    EXPECT_EQ(Item(5).GetTag(), L"item");
    EXPECT_EQ(m_root.FindItem(L"y"), m_root.GetItem(1));
}

TEST_F(ReadDictionary, EscapesCountOnlyWhereTheElementSaysSo) {
    ASSERT_TRUE(
        ReadInside("<a t='_x0041_'>_x0042_</a><a t='_x0041_' dt:escaped='1'>_x0042_</a>"
                   "<item dt:tag='_x0001_' dt:local='_x0002_' dt:escaped='1'/>"
                   "<a dt:escaped='1' dt:name='_x0003_' dt:kind='3'>_x0037_</a><a dt:escaped='0'>_x0041_</a>"));
    EXPECT_EQ(Item(0).GetAttributeValue(L"t"), L"_x0041_");
    EXPECT_EQ(Item(0).GetStringValue(), L"_x0042_");
    EXPECT_EQ(Item(1).GetAttributeValue(L"t"), L"A");
    EXPECT_EQ(Item(1).GetStringValue(), L"B");
    EXPECT_EQ(Item(2).GetTag(), L"\x01");
    EXPECT_EQ(Item(2).GetName(), L"\x01");
    EXPECT_EQ(Item(2).GetLocalName(), L"\x02");
    EXPECT_EQ(Item(3).GetName(), L"\x03");
    EXPECT_EQ(Item(3).GetIntValue(), 7);
    EXPECT_EQ(Item(4).GetStringValue(), L"_x0041_");
}

TEST_F(ReadDictionary, TheNameOfAnElementIsNeverUnescaped) {
    ASSERT_TRUE(ReadInside("<_x0041_ dt:escaped='1'>_x0042_</_x0041_>"));
    EXPECT_EQ(Item(0).GetTag(), L"_x0041_");
    EXPECT_EQ(Item(0).GetName(), L"_x0041_");
    EXPECT_EQ(Item(0).GetStringValue(), L"B");
}

TEST_F(ReadDictionary, TheEscapedMarkOfADictionaryDoesNotReachItsItems) {
    ASSERT_TRUE(ReadInside("<a dt:escaped='1' t='_x0041_'><b>_x0042_</b></a>"));
    EXPECT_EQ(Item(0).GetAttributeValue(L"t"), L"A");
    EXPECT_EQ(m_root.FindDict(L"a")->GetItem(0)->GetStringValue(), L"_x0042_");
}

TEST_F(ReadDictionary, EscapesInAttributeNamesAlwaysCount) {
    ASSERT_TRUE(ReadInside("<a a_x0020_b='1' _x005F_x0041_='2' A='3' _x0041_='4'/>"));
    EXPECT_EQ(Item(0).GetAttributeValue(L"a b"), L"1");
    EXPECT_EQ(Item(0).GetAttributeValue(L"_x0041_"), L"2");
    EXPECT_EQ(Item(0).GetAttributeValue(L"A"), L"4");  // one name, written twice: the last counts
    EXPECT_EQ(Item(0).GetAttributeCount(), 3);
}

TEST_F(ReadDictionary, TheBookkeepingIsKnownByItsNamespaceAndNotByItsPrefix) {
    ASSERT_TRUE(Read("<r xmlns:q='urn:orvo:dictionary' xmlns:dt='urn:other'><a q:kind='3' dt:kind='4'>5</a></r>"));
    EXPECT_EQ(Item(0).GetType(), QcDtKindInteger);
    EXPECT_EQ(Item(0).GetAttributeCount(), 1);
    EXPECT_EQ(Item(0).GetAttributeValue(L"dt:kind"), L"4");
}

TEST_F(ReadDictionary, BookkeepingThatIsNotKnownIsIgnored) {
    ASSERT_TRUE(ReadInside("<a dt:version='9' dt:Kind='3' own='1'>x</a>"));
    EXPECT_EQ(Item(0).GetType(), QcDtKindString);
    EXPECT_EQ(Item(0).GetAttributeCount(), 1);
}

TEST_F(ReadDictionary, OtherNamespacesKeepTheirPrefixes) {
    ASSERT_TRUE(Read("<p:r xmlns:p='urn:p' xmlns='urn:d'><p:a p:b='1' c='2'/><d/></p:r>"));
    EXPECT_EQ(m_root.GetTag(), L"p:r");
    EXPECT_EQ(m_root.GetAttributeCount(), 0);
    EXPECT_EQ(Item(0).GetTag(), L"p:a");
    EXPECT_EQ(Item(0).GetAttributeValue(L"p:b"), L"1");
    EXPECT_EQ(Item(1).GetTag(), L"d");
}

TEST_F(ReadDictionary, APrefixWithoutADeclarationIsPartOfTheName) {
    ASSERT_TRUE(Read("<r><x:a y:b='1'/></r>"));
    EXPECT_EQ(Item(0).GetTag(), L"x:a");
    EXPECT_EQ(Item(0).GetAttributeValue(L"y:b"), L"1");
}

TEST_F(ReadDictionary, TextIsJoinedFromAllItsPieces) {
    ASSERT_TRUE(Read("<r><a>1<!-- x -->2<?y z?>3<![CDATA[<4>&amp;]]>5&lt;6&#55;&#x38;</a><b><![CDATA[]]></b></r>"));
    EXPECT_EQ(Item(0).GetStringValue(), L"123<4>&amp;5<678");
    EXPECT_EQ(Item(1).GetStringValue(), L"");
}

TEST_F(ReadDictionary, LineEndsAreReadAsXmlReadsThem) {
    ASSERT_TRUE(Read("<r><a t='x\r\ny&#13;&#10;z'>1\r\n2\r3&#13;4\n</a></r>"));
    EXPECT_EQ(Item(0).GetStringValue(), L"1\n2\n3\r4\n");
    EXPECT_EQ(Item(0).GetAttributeValue(L"t"), L"x y\r\nz");
}

TEST_F(ReadDictionary, TextBesideChildElementsIsIgnored) {
    ASSERT_TRUE(Read("<r>before<a>1</a>between<b>2</b>after</r>"));
    EXPECT_EQ(m_root.GetCount(), 2);
    EXPECT_EQ(Item(0).GetStringValue(), L"1");
    EXPECT_EQ(Item(1).GetStringValue(), L"2");
}

TEST_F(ReadDictionary, TextBeforeAnItemIsNotItsValue) {
    ASSERT_TRUE(Read("<r>x<a/>y<b></b></r>"));
    EXPECT_EQ(Item(0).GetStringValue(), L"");
    EXPECT_EQ(Item(1).GetStringValue(), L"");
}

TEST_F(ReadDictionary, ANameMayStandTwice) {
    ASSERT_TRUE(Read("<r><a>1</a><a>2</a><a><b/></a></r>"));
    EXPECT_EQ(m_root.GetCount(), 3);
    EXPECT_EQ(m_root.FindItem(L"a")->GetStringValue(), L"1");
    EXPECT_EQ(m_root.FindDict(L"a"), m_root.GetItem(2));
}

TEST_F(ReadDictionary, TreesOf256LevelsAreReadAndDeeperOnesAreNot) {
    for (const int depth : {1, 255, 256, 257, 258, 1000, 100000}) {
        std::string bytes;
        for (int i = 0; i < depth; ++i)
            bytes += "<a>";
        for (int i = 0; i < depth; ++i)
            bytes += "</a>";
        EXPECT_EQ(Read(bytes), depth <= 256) << depth;
        // An empty element is a level as well.
        bytes.clear();
        for (int i = 0; i < depth - 1; ++i)
            bytes += "<a>";
        bytes += "<a/>";
        for (int i = 0; i < depth - 1; ++i)
            bytes += "</a>";
        EXPECT_EQ(Read(bytes), depth <= 256) << depth;
        EXPECT_EQ(DictionaryReader::AcceptsBytes(bytes), depth <= 256) << depth;
    }
}

// --- Encodings. The expected text is always the same: 北京 and 镕 (which is in GBK and not in GB2312) as code points.

constexpr const wchar_t* kCity = L"\x5317\x4EAC";

std::string InUtf16(const std::string& ascii, bool isBigEndian, bool hasMark) {
    std::u16string units = hasMark ? u"\xFEFF" : u"";
    for (const char c : ascii)
        if (c == '@')
            units += u"\x5317\x4EAC";  // stands for the city
        else
            units.push_back(static_cast<char16_t>(c));
    std::string bytes;
    for (const char16_t unit : units) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += isBigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

TEST_F(ReadDictionary, Utf8WithAndWithoutAMarkIsRead) {
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
        for (const std::string declaration : {"", "<?xml version='1.0' encoding='utf-8'?>"}) {
            ASSERT_TRUE(Read(mark + declaration + "<r><\xE5\x8C\x97\xE4\xBA\xAC/></r>"));
            EXPECT_EQ(Item(0).GetTag(), kCity);
        }
    }
}

TEST_F(ReadDictionary, Utf16OfBothByteOrdersIsRead) {
    const std::string text = "<?xml version='1.0' encoding='UTF-16'?>\n<r>\n<@ t='@'>@</@></r>";
    for (const bool isBigEndian : {false, true}) {
        for (const bool hasMark : {false, true}) {
            // Without a mark the declaration has to name the byte order.
            std::string declared = text;
            if (!hasMark)
                declared.replace(declared.find("UTF-16"), 6, isBigEndian ? "UTF-16BE" : "UTF-16LE");
            ASSERT_TRUE(Read(InUtf16(declared, isBigEndian, hasMark))) << isBigEndian << hasMark;
            EXPECT_EQ(Item(0).GetTag(), kCity);
            EXPECT_EQ(Item(0).GetAttributeValue(L"t"), kCity);
            EXPECT_EQ(Item(0).GetStringValue(), kCity);
        }
    }
}

TEST_F(ReadDictionary, TheChineseEncodingsAreRead) {
    for (const std::string encoding : {"GB2312", "gb2312", "GBK", "GB18030"}) {
        ASSERT_TRUE(Read("<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><r><a>\xB1\xB1\xBE\xA9</a></r>"))
            << encoding;
        EXPECT_EQ(Item(0).GetStringValue(), kCity) << encoding;
    }
    ASSERT_TRUE(Read("<?xml version='1.0' encoding='GB18030'?><r><a>\x81\x39\xEE\x39\x95\x32\x82\x36</a></r>"));
    EXPECT_EQ(Item(0).GetStringValue(), L"\x3400\U00020000");
    ASSERT_TRUE(Read("<?xml version='1.0' encoding='Big5'?><r><a>\xA5\x5F\xA8\xCA</a></r>"));
    EXPECT_EQ(Item(0).GetStringValue(), kCity);
}

TEST_F(ReadDictionary, Gb2312ThatIsReallyGbkIsReadAllTheSame) {
    const std::string body = "<r>\n<\xE9\x46 t=\"\xE9\x46\">\xB1\xB1\xBE\xA9\xE9\x46\x81\x39\xEE\x39</\xE9\x46></r>";
    for (const std::string declaration :
         {"<?xml version=\"1.0\" encoding=\"GB2312\"?>", "<?xml version='1.0' encoding='gb2312' standalone='yes'?>"}) {
        ASSERT_TRUE(Read(declaration + body)) << declaration;
        EXPECT_EQ(Item(0).GetTag(), L"\x9555");
        EXPECT_EQ(Item(0).GetAttributeValue(L"t"), L"\x9555");
        EXPECT_EQ(Item(0).GetStringValue(), L"\x5317\x4EAC\x9555\x3400");
    }
    // Far behind the beginning as well.
    std::string large = "<?xml version=\"1.0\" encoding=\"GB2312\"?><r>";
    for (int i = 0; i < 5000; ++i)
        large += "<a>\xB1\xB1</a>";
    ASSERT_TRUE(Read(large + "<a>\xE9\x46</a></r>"));
    EXPECT_EQ(m_root.GetCount(), 5001);
    EXPECT_EQ(Item(5000).GetStringValue(), L"\x9555");
    EXPECT_FALSE(Read(large + "<a>\xE9\x46</a>"));
}

TEST_F(ReadDictionary, NoOtherEncodingIsGuessed) {
    EXPECT_FALSE(Read("<?xml version='1.0' encoding='UTF-8'?><r><a>\xB1\xB1</a></r>"));
    EXPECT_FALSE(Read("<r><a>\xB1\xB1</a></r>"));
    EXPECT_FALSE(Read("<?xml version='1.0' encoding='US-ASCII'?><r><a>\xE9\x46</a></r>"));
    EXPECT_FALSE(Read("<?xml version='1.0' encoding='no-such'?><r/>"));
    EXPECT_FALSE(Read("<?xml version='1.0' encoding='GB2312'?><r><a>\xFF\xFF</a></r>"));
}

}  // namespace
