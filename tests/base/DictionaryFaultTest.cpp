// The cause that is told for a refused file.
#include "platform/base/DictionaryFault.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "platform/base/QcDtDictionary.h"
#include "support/FileTree.h"
#include "support/OrdinaryUser.h"

namespace {

class DictionaryFaults : public testing::Test {
protected:
    // The words for a file of these bytes, which has to be refused.
    std::string Words(const std::string& bytes) const {
        m_tree.Write("a", bytes);
        QcDtDictionary dictionary;
        EXPECT_FALSE(dictionary.ReadFromXML(m_tree.File("a")));
        return ToUtf8(DictionaryFaultText(m_tree.File("a")).View());
    }

    FileTree m_tree;
};

}  // namespace

TEST_F(DictionaryFaults, NoneForAGoodFile) {
    m_tree.Write("a", "<a><b>1</b></a>");
    EXPECT_EQ(DictionaryFaultText(m_tree.File("a")), L"");
}

TEST_F(DictionaryFaults, TellTheLineWhereTheXmlBreaks) {
    EXPECT_NE(Words("<a>\n<b>\n</c>\n</a>\n").find("第 3 行不是完好的 XML"), std::string::npos);
    EXPECT_NE(Words("hello\n").find("第 1 行不是完好的 XML"), std::string::npos);
    EXPECT_NE(Words("<a>\n<b>\n").find("行不是完好的 XML"), std::string::npos) << "cut off";
    EXPECT_NE(Words("<a/>\n<b/>\n").find("第 2 行不是完好的 XML"), std::string::npos);
    EXPECT_NE(Words("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xff\xfe</a>").find("XML"), std::string::npos);
}

TEST_F(DictionaryFaults, TellWhatIsNotAllowed) {
    EXPECT_NE(Words("<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>").find("有文档类型声明"), std::string::npos);
    std::string attributes = "<a>\n<b";
    for (int i = 0; i < 2000; ++i)
        attributes += " a" + std::to_string(i) + "=''";
    EXPECT_NE(Words(attributes + "/></a>").find("属性太多"), std::string::npos);
}

TEST_F(DictionaryFaults, TellAnEmptyFileAndWhatIsNoFile) {
    EXPECT_EQ(Words(""), "文件是空的");
    std::filesystem::create_directory(m_tree / "folder");
    EXPECT_EQ(DictionaryFaultText(m_tree.File("folder")), L"不是普通文件");
    ASSERT_EQ(mkfifo((m_tree / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(DictionaryFaultText(m_tree.File("pipe")), L"不是普通文件");
}

TEST_F(DictionaryFaults, TellTheSystemsOwnCause) {
    EXPECT_EQ(DictionaryFaultText(m_tree.File("missing")), L"系统报告“No such file or directory”");
    m_tree.Write("closed", "<a/>");
    ASSERT_EQ(chmod((m_tree / "closed").c_str(), 0), 0);
    const OrdinaryUser user(m_tree.Path());
    EXPECT_EQ(DictionaryFaultText(m_tree.File("closed")), L"系统报告“Permission denied”");
}
