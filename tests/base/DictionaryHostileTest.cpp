// Files that are broken, or made to do harm: refused, and nothing is left of them.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "RandomDictionary.h"
#include "platform/base/DictionaryReader.h"
#include "platform/base/DictionaryWriter.h"
#include "platform/base/Message.h"
#include "support/FileTree.h"
#include "support/Recorder.h"

namespace {

void ExpectRefused(const std::string& bytes) {
    QcDtDictionary dictionary(L"before");
    dictionary.FindOrAddItem(L"before", QcDtKindString);
    EXPECT_FALSE(DictionaryReader(dictionary).ReadBytes(bytes)) << bytes.substr(0, 200);
    EXPECT_EQ(dictionary.GetCount(), 0);
    EXPECT_EQ(dictionary.GetTag(), L"");
    EXPECT_FALSE(DictionaryReader::AcceptsBytes(bytes));
}

void ExpectFileRefused(const std::filesystem::path& path) {
    QcDtDictionary dictionary(L"before");
    dictionary.FindOrAddItem(L"before", QcDtKindString);
    EXPECT_FALSE(dictionary.ReadFromXML(FromUtf8(path.string()))) << path;
    EXPECT_EQ(dictionary.GetCount(), 0);
    EXPECT_EQ(dictionary.GetTag(), L"");
    EXPECT_FALSE(DictionaryReader::AcceptsFile(path.c_str()));
}

std::string Repeated(const std::string& text, int count) {
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(HostileDictionary, WhatIsNoXmlIsRefused) {
    for (const char* bytes : {"",
                              " ",
                              "\n",
                              "text",
                              "<",
                              "<r",
                              "<r>",
                              "</r>",
                              "<r></q>",
                              "<r/><r/>",
                              "<r/>text",
                              "<r a=1/>",
                              "<r a='1' a='2'/>",
                              "<r><a></r></a>",
                              "<r>&nothing;</r>",
                              "<r>&#0;</r>",
                              "<r>&#xFFFE;</r>",
                              "<r>\x01</r>",
                              "<r a='<'/>",
                              "<r>]]></r>",
                              "<?xml version='1.0'?>",
                              "<!-- only -->",
                              "{\"json\": 1}",
                              "\xEF\xBB\xBF",
                              "\xFF\xFE",
                              "\xFE\xFF",
                              "\x1F\x8B\x08",
                              "<r>\xC3</r>",
                              "<r>\xED\xA0\x80</r>",
                              "<r>\xF4\x90\x80\x80</r>"})
        ExpectRefused(bytes);
    ExpectRefused(std::string("<r>\0</r>", 8));
    ExpectRefused(std::string(1000, '\0'));
}

TEST(HostileDictionary, AnyDocumentTypeDeclarationIsRefused) {
    for (const char* bytes :
         {"<!DOCTYPE r><r/>", "<!DOCTYPE r []><r/>", "<!DOCTYPE r SYSTEM 'r.dtd'><r/>",
          "<!DOCTYPE r PUBLIC '-//x//y' 'http://localhost/r.dtd'><r/>", "<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>",
          "<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><r>&e;</r>",
          "<!DOCTYPE r [<!ATTLIST r a CDATA 'default'>]><r/>", "<?xml version='1.0'?>\n<!-- x -->\n<!DOCTYPE r><r/>"})
        ExpectRefused(bytes);
}

TEST(HostileDictionary, CommentsAndInstructionsMaySpeakOfADocumentType) {
    for (const char* bytes :
         {"<!-- <!DOCTYPE r> --><r/>", "<!--><!DOCTYPE r> --><r/>", "<!-- - -> ? --><r/>", "<?p <!DOCTYPE r>?><r/>",
          "<?p ? > ? ?><!--x--><r/>", "<r><a><![CDATA[<!DOCTYPE r>]]></a><!-- <!DOCTYPE r> --></r>"})
        EXPECT_TRUE(DictionaryReader::AcceptsBytes(bytes)) << bytes;
    for (const char* bytes : {"<!-- x --><!DOCTYPE r><r/>", "<?p?><!DOCTYPE r><r/>", "<!--><!DOCTYPE r><r/>"})
        ExpectRefused(bytes);
}

TEST(HostileDictionary, EntityFloodsAreRefused) {
    std::string laughs = "<!DOCTYPE r [<!ENTITY a0 'ha'>";
    for (int i = 1; i < 30; ++i)
        laughs += "<!ENTITY a" + std::to_string(i) + " '" + Repeated("&a" + std::to_string(i - 1) + ";", 10) + "'>";
    ExpectRefused(laughs + "]><r>&a29;</r>");
    ExpectRefused("<!DOCTYPE r [<!ENTITY a '" + std::string(100000, 'x') + "'>]><r>" + Repeated("&a;", 100000) +
                  "</r>");
    ExpectRefused("<!DOCTYPE r [<!ENTITY % a '" + std::string(100000, ' ') + "'>" + Repeated("%a;", 100000) + "]><r/>");
    std::string many = "<!DOCTYPE r [";
    for (int i = 0; i < 1000000; ++i)
        many += "<!ENTITY a" + std::to_string(i) + " 'x'>";
    ExpectRefused(many + "]><r/>");
}

TEST(HostileDictionary, ElementsWithTooManyAttributesAreRefused) {
    const auto element = [](int count) {
        std::string tag = "<r";
        for (int i = 0; i < count; ++i)
            tag += " a" + std::to_string(i) + " = '>'";
        return tag + "/>";
    };
    EXPECT_TRUE(DictionaryReader::AcceptsBytes(element(1000)));
    ExpectRefused(element(1001));
    ExpectRefused(element(500000));
    // In two bytes a character as well.
    std::string wide = "\xFF\xFE";
    for (const char c : element(500000))
        wide += std::string{c, '\0'};
    ExpectRefused(wide);
    std::string wideEnough = "\xFF\xFE";
    for (const char c : element(1000))
        wideEnough += std::string{c, '\0'};
    EXPECT_TRUE(DictionaryReader::AcceptsBytes(wideEnough));
}

TEST(HostileDictionary, QuotesInTextsAndCommentsAreNotTakenForAttributes) {
    const std::string quotes = Repeated("say \"no\" or 'yes', don't = \"x\" ", 2000);
    EXPECT_TRUE(DictionaryReader::AcceptsBytes("<!-- " + quotes + " --><r><a>" + quotes + "</a><!-- " + quotes +
                                               " --><?p " + quotes + "?><b><![CDATA[" + quotes + "]]></b></r>"));
    QcDtDictionary dictionary(L"r");
    dictionary.FindOrAddItem(L"a", QcDtKindString)->SetStringValue(FromUtf8(quotes));
    std::string bytes;
    EXPECT_TRUE(DictionaryWriter::Write(dictionary, bytes));
}

TEST(HostileDictionary, TooManyNamespacesAreRefused) {
    const auto nested = [](int count) {
        std::string open;
        std::string close;
        for (int i = 0; i < count; ++i) {
            open += "<a xmlns:p" + std::to_string(i) + "='u'>";
            close += "</a>";
        }
        return open + close;
    };
    EXPECT_TRUE(DictionaryReader::AcceptsBytes(nested(100)));
    ExpectRefused(nested(101));
    // One after the other they are not in force together.
    EXPECT_TRUE(DictionaryReader::AcceptsBytes("<r>" + Repeated(nested(50), 10) + "</r>"));
}

TEST(HostileDictionary, NamesThatNobodyNeedsAreRefused) {
    ExpectRefused("<" + std::string(20000000, 'a') + "/>");
    ExpectRefused("<r " + std::string(20000000, 'a') + "='1'/>");
    ExpectRefused("<r>" + std::string(20000000, 'a') + "</r>");
    ExpectRefused("<r a='" + std::string(20000000, 'a') + "'/>");
    ExpectRefused("<r" + std::string(20000000, ' ') + "/>");
    ExpectRefused(std::string(20000000, '<'));
    ExpectRefused(Repeated("<a>", 5000000));
}

TEST(HostileDictionary, AFileThatEndsTooEarlyIsRefusedWhereverItEnds) {
    QcDtDictionary sample(L"ORVO_ZONEDATA");
    QcDtDictionary* const province = sample.FindOrAddDict(L"北京");
    province->SetAttributeValue(L"type", L"PROVINCE");
    QcDtDictItem* const city = province->FindOrAddItem(L"a b", QcDtKindString);
    city->SetAttributeValue(L"longitude", L" 116.4");
    city->SetStringValue(L"\x01 <&>\r\n");
    sample.FindOrAddItem(L"d", QcDtKindDouble)->SetDoubleValue(0.5);
    std::string bytes;
    ASSERT_TRUE(DictionaryWriter::Write(sample, bytes));
    const std::size_t end = bytes.rfind('>');
    for (std::size_t length = 0; length <= end; ++length)
        ExpectRefused(bytes.substr(0, length));
    EXPECT_TRUE(DictionaryReader::AcceptsBytes(bytes.substr(0, end + 1)));
}

TEST(HostileDictionary, RandomDamageIsEitherRefusedOrReadAsSomethingThatCanBeWritten) {
    QcDtDictionary sample;
    RandomDictionary(11).Fill(sample);
    std::string bytes;
    ASSERT_TRUE(DictionaryWriter::Write(sample, bytes));
    std::mt19937 random(5);
    const auto below = [&random](std::size_t count) { return random() % count; };
    int accepted = 0;
    for (int i = 0; i < 5000; ++i) {
        std::string damaged = bytes;
        for (std::size_t n = 1 + below(4); n > 0; --n) {
            const std::size_t at = below(damaged.size());
            if (below(3) == 0)
                damaged.erase(at, 1 + below(20));
            else if (below(2) == 0)
                damaged.insert(at, damaged.substr(below(damaged.size()), below(30)));
            else
                damaged[at] = static_cast<char>(below(256));
            if (damaged.empty())
                break;
        }
        QcDtDictionary read;
        if (!DictionaryReader(read).ReadBytes(damaged)) {
            ASSERT_EQ(read.GetCount(), 0);
            continue;
        }
        ++accepted;
        std::string again;
        ASSERT_TRUE(DictionaryWriter::Write(read, again));
        QcDtDictionary second;
        ASSERT_TRUE(DictionaryReader(second).ReadBytes(again));
        ASSERT_TRUE(AreAlike(read, second)) << damaged;
    }
    EXPECT_GT(accepted, 100);  // else the damage was no test
}

TEST(HostileDictionary, WhatIsNoOrdinaryFileIsRefusedAtOnce) {
    const FileTree tree;
    ASSERT_EQ(mkfifo((tree / "pipe.xml").c_str(), 0600), 0);
    std::filesystem::create_directory(tree / "folder.xml");
    std::filesystem::create_symlink(tree / "pipe.xml", tree / "link.xml");
    std::filesystem::create_symlink("circle.xml", tree / "circle.xml");
    for (const auto& path :
         {tree / "pipe.xml", tree / "folder.xml", tree / "link.xml", tree / "circle.xml",
          std::filesystem::path("/dev/zero"), std::filesystem::path("/dev/null"), std::filesystem::path("/dev/tty"),
          tree / "missing.xml", tree / "pipe.xml/x", std::filesystem::path()})
        ExpectFileRefused(path);
    QcDtDictionary dictionary(L"before");
    EXPECT_FALSE(dictionary.ReadFromXML(nullptr));
    EXPECT_EQ(dictionary.GetTag(), L"");
}

TEST(HostileDictionary, AFileThatMayNotBeReadIsRefused) {
    const FileTree tree;
    const auto path = tree.Write("a.xml", "<r/>");
    const uid_t user = geteuid();
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    if (user == 0) {  // who may read everything
        ASSERT_EQ(chmod(tree.Path().c_str(), 0755), 0);
        ASSERT_EQ(seteuid(65534), 0);
    }
    ExpectFileRefused(path);
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_TRUE(user != 0 || DictionaryReader::AcceptsFile(path.c_str()));
}

TEST(HostileDictionary, AFileOfMoreThan256MiBIsRefusedAndOneOf256MiBIsNot) {
    const FileTree tree;
    const auto path = tree.Write("large.xml", "<r>");
    std::FILE* const file = std::fopen(path.c_str(), "ab");
    ASSERT_NE(file, nullptr);
    const std::string comment = "<!--" + std::string((1U << 20U) - 7, ' ') + "-->";
    const std::string first = "<!--" + std::string((1U << 20U) - 14, ' ') + "--></r>";
    for (int i = 0; i < 255; ++i)
        ASSERT_EQ(std::fwrite(comment.data(), 1, comment.size(), file), comment.size());
    ASSERT_EQ(std::fwrite(first.data(), 1, first.size(), file), first.size());
    ASSERT_EQ(std::fclose(file), 0);
    ASSERT_EQ(std::filesystem::file_size(path), std::uintmax_t{256} << 20U);
    QcDtDictionary dictionary;
    EXPECT_TRUE(dictionary.ReadFromXML(FromUtf8(path.string())));
    EXPECT_EQ(dictionary.GetTag(), L"r");
    std::ofstream(path, std::ios::app) << "\n";  // still good XML
    ExpectFileRefused(path);
}

TEST(HostileDictionary, AnEnormousSparseFileIsRefused) {
    const FileTree tree;
    const auto path = tree.Write("sparse.xml", "<r/>");
    std::error_code error;
    std::filesystem::resize_file(path, std::uintmax_t{1} << 40U, error);
    if (error)
        GTEST_SKIP() << "no sparse files here";
    ExpectFileRefused(path);
    std::filesystem::resize_file(path, (std::uintmax_t{256} << 20U) + 1);
    ExpectFileRefused(path);
    std::filesystem::resize_file(path, 4);
    EXPECT_TRUE(DictionaryReader::AcceptsFile(path.c_str()));
}

TEST(HostileDictionary, NothingIsPrintedAboutARefusedFile) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (const char* bytes : {"", "<r", "<r>&x;</r>", "<!DOCTYPE r SYSTEM 'x'><r/>", "<p:r a='1' a='1'/>",
                              "<?xml version='1.0' encoding='no-such'?><r/>", "<?xml version='9.9'?><r/>",
                              "<?xml version='1.0' encoding='GB2312'?><r>\xFF\xFF</r>", "<r>\xFF</r>"})
        DictionaryReader::AcceptsBytes(bytes);
    QcDtDictionary dictionary;
    dictionary.ReadFromXML(L"/no/such/file.xml");
    dictionary.ReadFromXML(L"http://localhost:1/file.xml");
    // A save that fails is told to the sink, and nowhere else.
    Recorder messages;
    SetMessageSink(Recorder::Take, &messages);
    dictionary.SaveToXML(L"/no/such/file.xml");
    SetMessageSink(nullptr, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(messages.texts.size(), 1U);
}

}  // namespace
