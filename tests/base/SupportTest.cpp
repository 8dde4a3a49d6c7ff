// Where support files are found, and where the user's and the installed ones lie.
#include "platform/base/Support.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "base/Installation.h"

namespace {

namespace fs = std::filesystem;

using Support = Installation;

TEST_F(Support, SearchesThePathThenTheUserThenTheInstallation) {
    const fs::path installed = m_folder.Write("prefix/share/orvo/a.xml", "");
    EXPECT_EQ(Find("a.xml"), (Shipped() / "a.xml").string());
    m_folder.Write("home/.config/orvo/a.xml", "");
    EXPECT_EQ(Find("a.xml"), (User() / "a.xml").string());
    m_folder.Write("second/a.xml", "");
    m_supportPath.Set((Real() / "first").string().append(":").append(Real() / "second").c_str());
    EXPECT_EQ(Find("a.xml"), (Real() / "second/a.xml").string());
    m_folder.Write("first/a.xml", "");
    EXPECT_EQ(Find("a.xml"), (Real() / "first/a.xml").string());
}

TEST_F(Support, GivesAnEmptyPathWhenThereIsNoSuchFile) {
    const Answer answer = Ask({"find", "a.xml"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(answer.output, "");
}

TEST_F(Support, NeverSearchesTheCurrentFolder) {
    m_folder.Write("home/a.xml", "");  // where the probe runs
    EXPECT_EQ(Find("a.xml"), "");
    for (const char* entries : {"", ":", "::", ".", "./", "../home", ":."}) {
        m_supportPath.Set(entries);
        EXPECT_EQ(Find("a.xml"), "") << entries;
    }
}

TEST_F(Support, PassesOverEmptyAndRelativeEntriesOfThePath) {
    m_folder.Write("home/sub/a.xml", "");
    m_folder.Write("there/a.xml", "");
    m_supportPath.Set((":sub::" + (Real() / "there").string() + ":").c_str());
    EXPECT_EQ(Find("a.xml"), (Real() / "there/a.xml").string());
}

TEST_F(Support, TakesAnEntryThatEndsInASlash) {
    m_folder.Write("there/a.xml", "");
    m_supportPath.Set(((Real() / "there").string() + "/").c_str());
    EXPECT_EQ(Find("a.xml"), (Real() / "there/a.xml").string());
}

TEST_F(Support, FindsOnlyBareNames) {
    m_folder.Write("there/sub/a.xml", "");
    m_folder.Write("there/a.xml", "");
    m_folder.Write("there/a..xml", "");
    m_folder.Write("there/sub\\a.xml", "");
    m_supportPath.Set((Real() / "there/sub").string().append(":").append(Real() / "there").c_str());
    ASSERT_NE(Find("a.xml"), "");
    for (const std::string& name :
         {std::string("sub/a.xml"), std::string("../a.xml"), std::string("sub\\a.xml"), std::string("a..xml"),
          std::string(".."), std::string("."), std::string(), (Real() / "there/a.xml").string()})
        EXPECT_EQ(Find(name), "") << name;
}

TEST(SupportName, ThatIsNullIsNotFound) {
    CString path(L"something");
    EXPECT_FALSE(FindFile(nullptr, path));
    EXPECT_TRUE(path.IsEmpty());
    path = L"something";
    EXPECT_FALSE(FindFileInFolder(nullptr, L"a.xml", path));
    EXPECT_TRUE(path.IsEmpty());
    EXPECT_FALSE(FindFileInFolder(L"folder", nullptr, path));
}

TEST(SupportName, MayLieInTheTextThatTakesThePath) {
    const FileTree folder;
    folder.Write("a.xml", "");
    const EnvironmentVariable path("ORVO_SUPPORT_PATH", folder.Path().string());
    CString text(L"a.xml");
    EXPECT_TRUE(FindFile(text, text));
    EXPECT_EQ(ToUtf8(text.View()), (folder / "a.xml").string());
}

TEST(SupportName, MayBeChinese) {
    const FileTree folder;
    folder.Write("城市.xml", "");
    const EnvironmentVariable path("ORVO_SUPPORT_PATH", folder.Path().string());
    CString text;
    EXPECT_TRUE(FindFile(L"城市.xml", text));
    EXPECT_EQ(ToUtf8(text.View()), (folder / "城市.xml").string());
}

TEST(SupportName, IsNotFoundBelowAFolderWhosePathIsNoText) {
    const FileTree folder;
    const std::string odd = (folder / "\xff").string();
    folder.Write("\xff/a.xml", "");
    folder.Write("later/a.xml", "");
    const EnvironmentVariable path("ORVO_SUPPORT_PATH", odd + ":" + (folder / "later").string());
    CString text;
    EXPECT_TRUE(FindFile(L"a.xml", text));
    EXPECT_EQ(ToUtf8(text.View()), (folder / "later/a.xml").string());
}

TEST_F(Support, FindsRegularFilesOnlyAlsoThroughLinks) {
    m_folder.Write("elsewhere/real.xml", "");
    fs::create_directories(m_folder / "there/a.xml");  // a folder of the name
    fs::create_symlink("../elsewhere/real.xml", m_folder / "there/link.xml");
    fs::create_symlink("nowhere.xml", m_folder / "there/dangling.xml");
    m_supportPath.Set((Real() / "there").string().c_str());
    EXPECT_EQ(Find("a.xml"), "");
    EXPECT_EQ(Find("dangling.xml"), "");
    EXPECT_EQ(Find("link.xml"), (Real() / "there/link.xml").string());
    m_folder.Write("prefix/share/orvo/a.xml", "");
    EXPECT_EQ(Find("a.xml"), (Shipped() / "a.xml").string());  // the folder does not hide the file
}

TEST_F(Support, FindsAFileThatMayNotBeRead) {
    const fs::path file = m_folder.Write("there/a.xml", "");
    fs::permissions(file, fs::perms::none);
    m_supportPath.Set((Real() / "there").string().c_str());
    EXPECT_EQ(Find("a.xml"), (Real() / "there/a.xml").string());
}

TEST_F(Support, FindsInAFolderBelowEachFolderOfTheSearch) {
    m_folder.Write("prefix/share/orvo/languages/en.xml", "");
    EXPECT_EQ(Ask({"find-in", "languages", "en.xml"}).output, (Shipped() / "languages/en.xml").string());
    m_folder.Write("home/.config/orvo/languages/en.xml", "");
    EXPECT_EQ(Ask({"find-in", "languages", "en.xml"}).output, (User() / "languages/en.xml").string());
    EXPECT_EQ(Ask({"find-in", "..", "en.xml"}).code, 1);
    EXPECT_EQ(Ask({"find-in", "languages", "../en.xml"}).code, 1);
    EXPECT_EQ(Ask({"find-in", "a/languages", "en.xml"}).code, 1);
    EXPECT_EQ(Ask({"find", "en.xml"}).code, 1);
}

TEST_F(Support, PutsTheUsersFolderWhereTheEnvironmentSays) {
    EXPECT_EQ(Ask({"user"}).output, User().string());
    m_config.Set((Real() / "config").string().c_str());
    EXPECT_EQ(Ask({"user"}).output, (Real() / "config/orvo").string());
    for (const char* noPath : {"", "config", "./config"}) {
        m_config.Set(noPath);
        EXPECT_EQ(Ask({"user"}).output, User().string()) << noPath;
    }
}

TEST_F(Support, TakesTheAccountsHomeWithoutAHomeVariable) {
    const passwd* account = getpwuid(getuid());
    if (!account || !account->pw_dir || account->pw_dir[0] != '/')
        GTEST_SKIP() << "the account has no home";
    const std::string expected = std::string(account->pw_dir) + "/.config/orvo";
    for (const char* home : {static_cast<const char*>(nullptr), "", "relative"}) {
        m_home.Set(home);
        EXPECT_EQ(Ask({"user"}).output, expected);
    }
}

TEST_F(Support, FindsTheInstalledFolderFromTheLibrarysOwnPlace) {
    EXPECT_EQ(Ask({"installed"}).output, Shipped().string());
    fs::remove(Shipped());
    EXPECT_EQ(Ask({"installed"}).output, Shipped().string());
}

TEST_F(Support, ResolvesLinksToTheInstallation) {
    // The library is reached through a link to its folder, and the data folder is a link as well.
    fs::create_directories(m_folder / "other/bin");
    fs::copy_file(m_program, m_folder / "other/bin/support-probe");
    fs::create_symlink(Prefix() / "lib", m_folder / "other/lib");
    fs::rename(Shipped(), m_folder / "data");
    fs::create_symlink(Real() / "data", Shipped());
    m_program = Real() / "other/bin/support-probe";
    EXPECT_EQ(Ask({"installed"}).output, (Real() / "data").string());
    EXPECT_TRUE(IsInstalled(Shipped() / "zone.xml"));
    EXPECT_TRUE(IsInstalled(Real() / "data/zone.xml"));
}

TEST_F(Support, KnowsPathsInTheInstallation) {
    m_folder.Write("prefix/share/orvo/zone.xml", "");
    m_folder.Write("prefix/share/orvo/languages/en.xml", "");
    EXPECT_TRUE(IsInstalled(Shipped()));
    EXPECT_TRUE(IsInstalled(Shipped() / "zone.xml"));
    EXPECT_TRUE(IsInstalled(Shipped() / "languages/en.xml"));
    EXPECT_TRUE(IsInstalled(Shipped() / "new.xml"));
    EXPECT_TRUE(IsInstalled(Shipped() / "new/deeper/new.xml"));
    EXPECT_TRUE(IsInstalled(Real() / "home/../prefix/share/orvo/zone.xml"));
    EXPECT_TRUE(IsInstalled("../prefix/share/orvo/zone.xml"));  // the probe runs in home
}

TEST_F(Support, KnowsPathsOutsideTheInstallation) {
    m_folder.Write("prefix/share/orvo-extra/zone.xml", "");
    m_folder.Write("home/zone.xml", "");
    EXPECT_FALSE(IsInstalled(Prefix() / "share/orvo-extra/zone.xml"));
    EXPECT_FALSE(IsInstalled(Prefix() / "share/orvo.xml"));
    EXPECT_FALSE(IsInstalled(Prefix() / "share"));
    EXPECT_FALSE(IsInstalled(Shipped() / "../zone.xml"));
    EXPECT_FALSE(IsInstalled("zone.xml"));
    EXPECT_FALSE(IsInstalled("new.xml"));
    EXPECT_FALSE(IsInstalled("/nowhere/at/all"));
    EXPECT_FALSE(IsInstalled(""));
    EXPECT_FALSE(IsInstalledDataPath(nullptr));
}

TEST_F(Support, SeesThroughLinksIntoTheInstallation) {
    m_folder.Write("prefix/share/orvo/zone.xml", "");
    fs::create_symlink(Shipped() / "zone.xml", m_folder / "home/file.xml");
    fs::create_symlink(Shipped(), m_folder / "home/folder");
    fs::create_symlink(Shipped() / "new.xml", m_folder / "home/dangling.xml");
    fs::create_symlink("dangling.xml", m_folder / "home/twice.xml");
    fs::create_symlink("round.xml", m_folder / "home/round.xml");
    m_folder.Write("home/own.xml", "");
    fs::create_symlink(Real() / "home/own.xml", Shipped() / "out.xml");
    EXPECT_TRUE(IsInstalled(Real() / "home/file.xml"));
    EXPECT_TRUE(IsInstalled(Real() / "home/folder/zone.xml"));
    EXPECT_TRUE(IsInstalled(Real() / "home/folder/new.xml"));
    EXPECT_TRUE(IsInstalled(Real() / "home/dangling.xml"));
    EXPECT_TRUE(IsInstalled(Real() / "home/twice.xml"));
    EXPECT_FALSE(IsInstalled(Real() / "home/round.xml"));
    EXPECT_FALSE(IsInstalled(Shipped() / "out.xml"));
}

}  // namespace
