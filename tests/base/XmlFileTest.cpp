// Dictionaries in files: saved, read, and seen by other programs.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "RandomDictionary.h"
#include "platform/base/DictionaryWriter.h"
#include "platform/base/QcDtDictionary.h"
#include "support/FileTree.h"

namespace {

namespace fs = std::filesystem;

class XmlFile : public testing::Test {
protected:
    CString Path(const char* name) const { return FromUtf8((m_tree / name).string()); }
    bool Lint(const char* name) const {
        const std::string command =
            "xmllint --noout --nonet '" + (m_tree / name).string() + "' >'" + (m_tree / "lint").string() + "' 2>&1";
        return std::system(command.c_str()) == 0 && FileBytes(m_tree / "lint").empty();
    }

    FileTree m_tree;
};

TEST_F(XmlFile, ComesBackAsItWasSaved) {
    QcDtDictionary saved;
    RandomDictionary(3).Fill(saved);
    ASSERT_TRUE(saved.SaveToXML(Path("a.xml")));
    std::string bytes;
    ASSERT_TRUE(DictionaryWriter::Write(saved, bytes));
    EXPECT_EQ(FileBytes(m_tree / "a.xml"), bytes);
    QcDtDictionary read(L"stale");
    ASSERT_TRUE(read.ReadFromXML(Path("a.xml")));
    EXPECT_TRUE(AreAlike(saved, read));
}

TEST_F(XmlFile, SavedAgainUnchangedIsNotTouched) {
    QcDtDictionary dictionary(L"r");
    dictionary.FindOrAddItem(L"a", QcDtKindString)->SetStringValue(L"1");
    ASSERT_TRUE(dictionary.SaveToXML(Path("a.xml")));
    const auto age = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    fs::last_write_time(m_tree / "a.xml", age);
    QcDtDictionary read;
    ASSERT_TRUE(read.ReadFromXML(Path("a.xml")));
    const auto before = fs::last_write_time(m_tree / "a.xml");
    EXPECT_TRUE(read.SaveToXML(Path("a.xml")));
    EXPECT_EQ(fs::last_write_time(m_tree / "a.xml"), before);
    EXPECT_FALSE(fs::exists(m_tree / "a.xml.bak"));
    read.FindItem(L"a")->SetStringValue(L"2");
    EXPECT_TRUE(read.SaveToXML(Path("a.xml")));
    EXPECT_TRUE(fs::exists(m_tree / "a.xml.bak"));
    QcDtDictionary backup;
    ASSERT_TRUE(backup.ReadFromXML(Path("a.xml.bak")));
    EXPECT_EQ(backup.FindItem(L"a")->GetStringValue(), L"1");
}

TEST_F(XmlFile, ThatWasRefusedStaysBesideItsReplacement) {
    for (const char* refused : {"", "<r>", "<!DOCTYPE r><r/>", "zone data"}) {
        fs::remove_all(m_tree / "in");
        m_tree.Write("in/a.xml", refused);
        QcDtDictionary dictionary;
        EXPECT_FALSE(dictionary.ReadFromXML(Path("in/a.xml")));
        EXPECT_EQ(FileBytes(m_tree / "in/a.xml"), refused) << "reading changes nothing";
        dictionary.SetTag(L"r");
        EXPECT_TRUE(dictionary.SaveToXML(Path("in/a.xml")));
        EXPECT_TRUE(dictionary.ReadFromXML(Path("in/a.xml")));
        EXPECT_EQ(FileBytes(m_tree / "in/a.xml.refused-1"), refused);
        EXPECT_FALSE(fs::exists(m_tree / "in/a.xml.bak"));
    }
}

TEST_F(XmlFile, ThatSomebodyWroteByHandIsTheVersionBefore) {
    const std::string byHand = "<?xml version='1.0' encoding='GB2312'?><r><a>\xE9\x46</a></r>";
    m_tree.Write("a.xml", byHand);
    QcDtDictionary dictionary;
    ASSERT_TRUE(dictionary.ReadFromXML(Path("a.xml")));
    EXPECT_TRUE(dictionary.SaveToXML(Path("a.xml")));
    EXPECT_EQ(FileBytes(m_tree / "a.xml.bak"), byHand);
    EXPECT_NE(FileBytes(m_tree / "a.xml").find("<a>\xE9\x95\x95</a>"), std::string::npos);
}

TEST_F(XmlFile, WhatTheReaderWouldRefuseIsNotSaved) {
    m_tree.Write("a.xml", "<r/>");
    QcDtDictionary dictionary(L"r");
    dictionary.FindOrAddItem(L"a", QcDtKindString)->SetStringValue(FromUtf8(std::string(11000000, 'x')));
    EXPECT_FALSE(dictionary.SaveToXML(Path("a.xml")));
    EXPECT_FALSE(dictionary.SaveToXML(Path("b.xml")));
    EXPECT_EQ(FileBytes(m_tree / "a.xml"), "<r/>");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_tree.Path()), fs::directory_iterator()), 1);
}

TEST_F(XmlFile, IsNotSavedWithoutAPath) {
    const QcDtDictionary dictionary(L"r");
    EXPECT_FALSE(dictionary.SaveToXML(nullptr));
    EXPECT_FALSE(dictionary.SaveToXML(L""));
    EXPECT_FALSE(dictionary.SaveToXML(Path("no such folder/a.xml")));
}

TEST_F(XmlFile, IsGoodXmlForOtherProgramsWithoutAnyComplaint) {
    ASSERT_EQ(std::system("xmllint --version >/dev/null 2>&1"), 0) << "Debian: libxml2-utils";
    for (unsigned seed = 1; seed <= 20; ++seed) {
        QcDtDictionary dictionary;
        RandomDictionary(seed).Fill(dictionary);
        ASSERT_TRUE(dictionary.SaveToXML(Path("a.xml")));
        EXPECT_TRUE(Lint("a.xml")) << seed << "\n" << FileBytes(m_tree / "lint");
    }
}

TEST_F(XmlFile, MayBeReadWhileADictionaryOfTheOldContentIsSavedElsewhere) {
    QcDtDictionary first(L"r");
    first.FindOrAddItem(L"a", QcDtKindString);
    ASSERT_TRUE(first.SaveToXML(Path("a.xml")));
    QcDtDictionary second;
    ASSERT_TRUE(second.ReadFromXML(Path("a.xml")));
    ASSERT_TRUE(second.SaveToXML(Path("b.xml")));
    EXPECT_EQ(FileBytes(m_tree / "a.xml"), FileBytes(m_tree / "b.xml"));
}

}  // namespace
