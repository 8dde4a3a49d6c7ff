// Folders that reports are written into, and those that are refused.
#include "workbench/report/ReportFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/FileTree.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"

namespace {

namespace fs = std::filesystem;

const std::string kPage = "<!DOCTYPE html><head>" + std::string(kReportMark) + "<title>1</title>";
const std::string kOther = "<!DOCTYPE html><head>" + std::string(kReportMark) + "<title>2</title>";

class ReportFolders : public testing::Test {
protected:
    std::string Save(std::string_view name, const std::string& page = kPage) const {
        return ToUtf8(SaveReport(m_tree.File(name), page).View());
    }
    std::string Fault(std::string_view name) const { return ToUtf8(ReportFolderFault(m_tree.File(name)).View()); }
    std::string Name(std::string_view name) const { return (m_tree / name).string(); }

    FileTree m_tree;
};

}  // namespace

TEST_F(ReportFolders, AreMadeWhereTheyAreMissing) {
    EXPECT_EQ(Fault("report"), "");
    EXPECT_FALSE(fs::exists(m_tree / "report")) << "looking changes nothing";
    EXPECT_EQ(Save("report"), "");
    EXPECT_EQ(m_tree.Read("report/index.html"), kPage);
    EXPECT_EQ(Save("with a slash/"), "");
    EXPECT_EQ(m_tree.Read("with a slash/index.html"), kPage);
    fs::create_directory(m_tree / "empty");
    EXPECT_EQ(Save("empty"), "");
    EXPECT_EQ(m_tree.Read("empty/index.html"), kPage);
}

TEST_F(ReportFolders, AreNotMadeWithoutAParent) {
    const std::string text =
        "文件夹“" + Name("no/report") + "”所在的文件夹不存在，没有写出报告：请先建立“" + Name("no") + "”";
    EXPECT_EQ(Fault("no/report"), text);
    EXPECT_EQ(Save("no/report"), text);
    EXPECT_TRUE(fs::is_empty(m_tree.Path()));
}

TEST_F(ReportFolders, AreNotLinksThatLeadNowhere) {
    fs::create_directory_symlink(m_tree / "nowhere", m_tree / "link");
    const std::string text =
        "链接“" + Name("link") + "”指向的文件夹不存在，没有写出报告：请先建立那个文件夹，或用 --report 给出另一个";
    EXPECT_EQ(Fault("link"), text);
    EXPECT_EQ(Save("link"), text);
    fs::create_directory(m_tree / "nowhere");
    EXPECT_EQ(Save("link"), "");
    EXPECT_EQ(m_tree.Read("nowhere/index.html"), kPage);
}

TEST_F(ReportFolders, AreTakenWhereASaveIsUnderWayOrWasKilled) {
    m_tree.Write("report/index.html.saving-4194305-0", "half a page");
    EXPECT_EQ(Save("report"), "");
    EXPECT_EQ(m_tree.Read("report/index.html"), kPage);
    m_tree.Write("other/index.html-notes", "a user's own");
    EXPECT_NE(Save("other").find("别的文件"), std::string::npos);
}

TEST_F(ReportFolders, DoNotWaitForPipes) {
    fs::create_directory(m_tree / "pipes");
    ASSERT_EQ(mkfifo(Name("pipes/index.html").c_str(), 0600), 0);
    EXPECT_NE(Fault("pipes").find("别的文件"), std::string::npos);
}

TEST_F(ReportFolders, AreToldWhereThereIsNoFolderToStartFrom) {
    const fs::path before = fs::current_path();
    fs::create_directory(m_tree / "gone");
    fs::current_path(m_tree / "gone");
    fs::remove(m_tree / "gone");
    EXPECT_NE(ToUtf8(ReportFolderFault(L"report").View()).find("没有写出报告"), std::string::npos);
    fs::current_path(before);
}

TEST_F(ReportFolders, TakeANewReportForAFormerOne) {
    ASSERT_EQ(Save("report"), "");
    EXPECT_EQ(Save("report", kOther), "");
    EXPECT_EQ(m_tree.Read("report/index.html"), kOther);
    EXPECT_EQ(m_tree.Read("report/index.html.bak"), kPage);
    m_tree.Write("report/printed.pdf", "a user's own");
    EXPECT_EQ(Save("report"), "");
    EXPECT_EQ(m_tree.Read("report/index.html"), kPage);
    EXPECT_EQ(m_tree.Read("report/printed.pdf"), "a user's own");
}

TEST_F(ReportFolders, WithSomethingElseAreLeftAlone) {
    m_tree.Write("site/index.html", "<!DOCTYPE html><title>my own</title>");
    m_tree.Write("letters/letter.txt", "Dear");
    for (const std::string name : {"site", "letters"}) {
        const std::string text = "文件夹“" + Name(name) +
                                 "”里有别的文件，而没有以前的报告，没有写出报告：请用 --report "
                                 "给出一个空的或新的文件夹";
        EXPECT_EQ(Fault(name), text);
        EXPECT_EQ(Save(name), text);
    }
    EXPECT_EQ(m_tree.Read("site/index.html"), "<!DOCTYPE html><title>my own</title>");
    EXPECT_FALSE(fs::exists(m_tree / "letters/index.html"));
}

TEST_F(ReportFolders, MustBeFolders) {
    m_tree.Write("file", "mine");
    const std::string text = "“" + Name("file") + "”不是文件夹，没有写出报告：请用 --report 给出一个文件夹";
    EXPECT_EQ(Fault("file"), text);
    EXPECT_EQ(Save("file"), text);
    EXPECT_EQ(m_tree.Read("file"), "mine");
    EXPECT_NE(Save("file/report"), "");
    fs::create_directories(m_tree / "report/index.html");
    EXPECT_NE(Save("report"), "") << "a folder of the page's name";
    EXPECT_TRUE(fs::is_empty(m_tree / "report/index.html"));
}

TEST_F(ReportFolders, ThatMayNotBeWrittenAreToldAtOnce) {
    ASSERT_EQ(Save("former"), "");
    fs::create_directory(m_tree / "closed");
    const OrdinaryUser user(m_tree.Path());
    fs::permissions(m_tree / "closed", fs::perms::owner_read | fs::perms::owner_exec);
    const std::string text =
        "文件夹“" + Name("closed") + "”不能写入，没有写出报告：请修改它的权限，或用 --report 给出另一个文件夹";
    EXPECT_EQ(Fault("closed"), text);
    EXPECT_EQ(Save("closed"), text);
    EXPECT_EQ(Fault("closed/report"), text) << "it is the parent that may not be written";
    fs::permissions(m_tree / "former", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_NE(Save("former", kOther), "");
    EXPECT_EQ(m_tree.Read("former/index.html"), kPage);
    fs::permissions(m_tree / "closed", fs::perms::none);
    EXPECT_NE(Save("closed"), "");
}

TEST_F(ReportFolders, LoseNothingToAFullDisk) {
    ASSERT_EQ(Save("former"), "");
    const FullDisk disk(10);
    const std::string cause = "没有保存：磁盘空间不足，请清理磁盘再保存。";
    EXPECT_EQ(Save("report"), "文件“" + Name("report/index.html") + "”" + cause);
    EXPECT_FALSE(fs::exists(m_tree / "report")) << "nothing is left";
    EXPECT_EQ(Save("former", kOther), "文件“" + Name("former/index.html") + "”" + cause);
    EXPECT_EQ(m_tree.Read("former/index.html"), kPage);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_tree / "former"), {}), 1);
}
