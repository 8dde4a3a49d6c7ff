// The bytes of a dictionary's file.
#include "platform/base/DictionaryWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

std::string Written(const QcDtDictionary& dictionary) {
    std::string bytes = "stale";
    EXPECT_TRUE(DictionaryWriter::Write(dictionary, bytes));
    return bytes;
}

// The file of a root `r` whose content is the given lines.
std::string File(const std::string& lines) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r xmlns:dt=\"urn:orvo:dictionary\">\n" + lines + "</r>\n";
}

std::string WithItem(int kind, void (*fill)(QcDtDictItem&)) {
    QcDtDictionary root(L"r");
    fill(*root.FindOrAddItem(L"a", kind));
    return Written(root);
}

TEST(DictionaryWriter, WritesUtf8WithADeclarationAndOneIndentedElementAnItem) {
    QcDtDictionary root(L"ORVO_ZONEDATA");
    QcDtDictionary* const province = root.FindOrAddDict(L"北京");
    province->SetAttributeValue(L"type", L"PROVINCE");
    QcDtDictItem* const city = province->FindOrAddItem(L"昌平", QcDtKindString);
    city->SetAttributeValue(L"type", L"CITY");
    city->SetAttributeValue(L"latitude", L"  40.2200000000");
    city->SetStringValue(L"区");
    EXPECT_EQ(Written(root),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<ORVO_ZONEDATA xmlns:dt=\"urn:orvo:dictionary\">\n"
              "  <北京 type=\"PROVINCE\">\n"
              "    <昌平 type=\"CITY\" latitude=\"  40.2200000000\">区</昌平>\n"
              "  </北京>\n"
              "</ORVO_ZONEDATA>\n");
}

TEST(DictionaryWriter, NamesTheKindWhereTheContentDoesNotShowIt) {
    QcDtDictionary root(L"r");
    root.FindOrAddItem(L"flag", QcDtKindFlag)->SetIntValue(1);
    root.FindOrAddItem(L"integer", QcDtKindInteger)->SetIntValue(-12);
    root.FindOrAddItem(L"real", QcDtKindDouble)->SetDoubleValue(0.1);
    root.FindOrAddItem(L"text", QcDtKindString)->SetStringValue(L"t");
    root.FindOrAddItem(L"nothing", QcDtKindString);
    root.FindOrAddDict(L"empty");
    EXPECT_EQ(Written(root), File("  <flag dt:kind=\"1\">1</flag>\n"
                                  "  <integer dt:kind=\"3\">-12</integer>\n"
                                  "  <real dt:kind=\"4\">0.1</real>\n"
                                  "  <text>t</text>\n"
                                  "  <nothing/>\n"
                                  "  <empty dt:kind=\"0\"/>\n"));
}

TEST(DictionaryWriter, AnEmptyRootIsADictionaryToo) {
    EXPECT_EQ(Written(QcDtDictionary(L"r")),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r xmlns:dt=\"urn:orvo:dictionary\" dt:kind=\"0\"/>\n");
    EXPECT_EQ(Written(QcDtDictionary()),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<item xmlns:dt=\"urn:orvo:dictionary\" dt:tag=\"\" dt:kind=\"0\"/>\n");
}

TEST(DictionaryWriter, ATagThatCannotNameAnElementStandsInAnAttribute) {
    for (const auto& [tag, attribute] :
         {std::pair{L"a b", "a b"}, {L"9", "9"}, {L"x:y", "x:y"}, {L"<&\">", "&lt;&amp;&quot;&gt;"}, {L"", ""}}) {
        QcDtDictionary root(L"r");
        root.FindOrAddItem(tag, QcDtKindString);
        EXPECT_EQ(Written(root), File("  <item dt:tag=\"" + std::string(attribute) + "\"/>\n"));
    }
}

TEST(DictionaryWriter, ATagOfMoreThan200CharactersStandsInAnAttribute) {
    const std::string longest(200, 'a');
    QcDtDictionary root(L"r");
    root.FindOrAddItem(FromUtf8(longest), QcDtKindString);
    root.FindOrAddItem(FromUtf8(longest + "b"), QcDtKindString);
    EXPECT_EQ(Written(root), File("  <" + longest + "/>\n  <item dt:tag=\"" + longest + "b\"/>\n"));
}

TEST(DictionaryWriter, CharactersBeyondTheBasicPlaneCountOnceInATag) {
    std::wstring longest;
    std::string bytes;
    for (int i = 0; i < 200; ++i) {
        longest += L"𠀀";
        bytes += "𠀀";
    }
    QcDtDictionary root(L"r");
    root.FindOrAddItem(longest.c_str(), QcDtKindString);
    EXPECT_EQ(Written(root), File("  <" + bytes + "/>\n"));
}

TEST(DictionaryWriter, NamesUnlikeTheTagAndLocalNamesAreAttributes) {
    QcDtDictionary root(L"r");
    QcDtDictItem* const item = root.FindOrAddItem(L"name", QcDtKindString);
    item->SetTag(L"tag");
    item->SetLocalName(L"本地");
    item->SetAttributeValue(L"z", L"1");
    item->SetAttributeValue(L"a", L"2");
    root.FindOrAddItem(L"", QcDtKindString)->SetTag(L"t");
    EXPECT_EQ(Written(root), File("  <tag z=\"1\" a=\"2\" dt:name=\"name\" dt:local=\"本地\"/>\n"
                                  "  <t dt:name=\"\"/>\n"));
}

TEST(DictionaryWriter, AttributeNamesThatAreNoXmlNamesAreEscaped) {
    EXPECT_EQ(WithItem(QcDtKindString,
                       [](QcDtDictItem& item) {
                           item.SetAttributeValue(L"a b", L"1");
                           item.SetAttributeValue(L"dt:kind", L"2");
                           item.SetAttributeValue(L"xmlns", L"3");
                           item.SetAttributeValue(L"_x0041_", L"4");
                       }),
              File("  <a a_x0020_b=\"1\" dt_x003A_kind=\"2\" _x0078_mlns=\"3\" _x005F_x0041_=\"4\"/>\n"));
}

TEST(DictionaryWriter, TextsKeepBlanksAndLineBreaks) {
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetStringValue(L"  a\n\tb\r\nc  "); }),
              File("  <a>  a\n\tb&#13;\nc  </a>\n"));
}

TEST(DictionaryWriter, LineEndsInAttributesAreReferences) {
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetAttributeValue(L"t", L"a\tb\nc\rd\r\n"); }),
              File("  <a t=\"a&#9;b&#10;c&#13;d&#13;&#10;\"/>\n"));
}

TEST(DictionaryWriter, MarkupInTextsIsNoMarkup) {
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetStringValue(L"]]><a>&amp;"); }),
              File("  <a>]]&gt;&lt;a&gt;&amp;amp;</a>\n"));
}

TEST(DictionaryWriter, ForbiddenCharactersAreEscapedAndTheElementSaysSo) {
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetStringValue(L"\x01 _x0041_"); }),
              File("  <a dt:escaped=\"1\">_x0001_ _x005F_x0041_</a>\n"));
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetAttributeValue(L"t", L"\xFFFE"); }),
              File("  <a t=\"_xFFFE_\" dt:escaped=\"1\"/>\n"));
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetLocalName(L"\x02"); }),
              File("  <a dt:local=\"_x0002_\" dt:escaped=\"1\"/>\n"));
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetName(L"\x03"); }),
              File("  <a dt:name=\"_x0003_\" dt:escaped=\"1\"/>\n"));
    EXPECT_EQ(WithItem(QcDtKindString, [](QcDtDictItem& item) { item.SetTag(L"\x04"); }),
              File("  <item dt:tag=\"_x0004_\" dt:name=\"a\" dt:escaped=\"1\"/>\n"));
}

TEST(DictionaryWriter, NothingIsEscapedWhereNothingIsForbidden) {
    EXPECT_EQ(WithItem(QcDtKindString,
                       [](QcDtDictItem& item) {
                           item.SetStringValue(L"_x0041_ 😀");
                           item.SetAttributeValue(L"t", L"_x0042_");
                       }),
              File("  <a t=\"_x0042_\">_x0041_ 😀</a>\n"));
}

TEST(DictionaryWriter, DoublesAreTheShortestTextThatReadsBack) {
    const auto written = [](double value) {
        QcDtDictionary root(L"r");
        root.FindOrAddItem(L"a", QcDtKindDouble)->SetDoubleValue(value);
        const std::string bytes = Written(root);
        const std::size_t from = bytes.find("\"4\">") + 4;
        return bytes.substr(from, bytes.find("</a>") - from);
    };
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(116.4), "116.4");
    EXPECT_EQ(written(-0.0), "-0");
    EXPECT_EQ(written(2.0), "2");
    EXPECT_EQ(written(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "nan");
}

QcDtDictionary* Nest(QcDtDictionary& root, int levels) {
    QcDtDictionary* innermost = &root;
    for (int i = 0; i < levels; ++i)
        innermost = innermost->FindOrAddDict(L"n");
    return innermost;
}

TEST(DictionaryWriter, RefusesATreeThatIsTooDeepToBeRead) {
    std::string bytes;
    QcDtDictionary deepest(L"r");
    Nest(deepest, 255);
    EXPECT_TRUE(DictionaryWriter::Write(deepest, bytes));
    QcDtDictionary tooDeep(L"r");
    Nest(tooDeep, 256);
    EXPECT_FALSE(DictionaryWriter::Write(tooDeep, bytes));
    EXPECT_EQ(bytes, "");
    QcDtDictionary leafTooDeep(L"r");
    Nest(leafTooDeep, 255)->FindOrAddItem(L"a", QcDtKindString);
    EXPECT_FALSE(DictionaryWriter::Write(leafTooDeep, bytes));
}

TEST(DictionaryWriter, ATreeOfAnyDepthIsRefusedWithoutHarm) {
    QcDtDictionary root(L"r");
    Nest(root, 200000);
    std::string bytes;
    EXPECT_FALSE(DictionaryWriter::Write(root, bytes));
}

TEST(DictionaryWriter, RefusesATextThatTheReaderWouldRefuse) {
    QcDtDictionary root(L"r");
    QcDtDictItem* const item = root.FindOrAddItem(L"a", QcDtKindString);
    std::string bytes;
    item->SetStringValue(FromUtf8(std::string(9000000, 'x')));
    EXPECT_TRUE(DictionaryWriter::Write(root, bytes));
    item->SetStringValue(FromUtf8(std::string(11000000, 'x')));
    EXPECT_FALSE(DictionaryWriter::Write(root, bytes));
    EXPECT_EQ(bytes, "");
    item->SetStringValue(L"");
    item->SetAttributeValue(L"t", FromUtf8(std::string(11000000, 'x')));
    EXPECT_FALSE(DictionaryWriter::Write(root, bytes));
    item->SetAttributeValue(L"t", L"");
    item->SetAttributeValue(FromUtf8(std::string(60000, 'x')), L"1");
    EXPECT_FALSE(DictionaryWriter::Write(root, bytes));
}

TEST(DictionaryWriter, RefusesMoreAttributesThanTheReaderTakes) {
    QcDtDictionary root(L"r");
    QcDtDictItem* const item = root.FindOrAddItem(L"a", QcDtKindString);
    for (int i = 0; i < 1000; ++i)
        item->SetAttributeInt(FromUtf8("a" + std::to_string(i)), i);
    std::string bytes;
    EXPECT_TRUE(DictionaryWriter::Write(root, bytes));
    item->SetAttributeInt(L"one more", 1);
    EXPECT_FALSE(DictionaryWriter::Write(root, bytes));
}

}  // namespace
