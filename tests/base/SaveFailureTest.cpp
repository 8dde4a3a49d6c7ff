// What is told of a file that cannot be saved: one sentence with the file, the cause and the remedy.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/base/AtomicFile.h"
#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/SaveFailure.h"
#include "platform/base/Support.h"
#include "support/Environment.h"
#include "support/FileTree.h"
#include "support/Folders.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/Recorder.h"

namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

const char* const kNoFile = "占用这个名称的不是普通文件，请移走它再保存";
const char* const kNoFolder = "文件夹不存在，请先建立文件夹再保存";
const char* const kNoRights = "没有读写权限，请修改文件和文件夹的权限再保存";
const char* const kNoRoom = "磁盘空间不足，请清理磁盘再保存";

class SaveFailure : public testing::Test {
protected:
    void SetUp() override { SetMessageSink(Recorder::Take, &m_messages); }
    void TearDown() override { SetMessageSink(nullptr, nullptr); }

    std::string Path(const std::string& name) const { return (m_tree / name).string(); }
    std::string Told(const std::string& name, const char* cause) const {
        return "文件“" + Path(name) + "”没有保存：" + cause + "。";
    }
    // What there is to tell of the save of a file that must fail, which itself tells nothing.
    std::string Tell(const wchar_t* path) {
        const SaveResult result = SaveFileAtomically(path, "new", nullptr);
        EXPECT_FALSE(result) << path;
        EXPECT_EQ(m_messages.texts, Texts());
        return ToUtf8(SaveFailureText(path, result.cause).View());
    }
    std::string Tell(const std::string& name) { return Tell(FromUtf8(Path(name))); }

    FileTree m_tree;
    Recorder m_messages;
};

std::unique_ptr<QcDtDictionary> Nested(int depth) {
    auto root = std::make_unique<QcDtDictionary>(L"root");
    QcDtDictionary* level = root.get();
    for (int i = 1; i < depth; ++i)
        level = level->FindOrAddDict(L"level");
    return root;
}

}  // namespace

TEST_F(SaveFailure, TellsNothingOfASaveThatSucceeds) {
    for (const int depth : {2, 2, 3})  // new, the same again, changed
        EXPECT_TRUE(Nested(depth)->SaveToXML(m_tree.File("a.xml")));
    EXPECT_EQ(m_messages.texts, Texts());
}

TEST_F(SaveFailure, TellsOfAFolderOrAPipeInPlaceOfTheFile) {
    fs::create_directory(m_tree / "folder");
    ASSERT_EQ(mkfifo((m_tree / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Tell("folder"), Told("folder", kNoFile));
    EXPECT_EQ(Tell("pipe"), Told("pipe", kNoFile));
}

TEST_F(SaveFailure, TellsOfAFolderThatIsNotThere) {
    m_tree.Write("file", "old");
    EXPECT_EQ(Tell("none/a"), Told("none/a", kNoFolder));
    EXPECT_EQ(Tell("file/a"), Told("file/a", kNoFolder));
}

TEST_F(SaveFailure, TellsOfANameThatIsTooLong) {
    const std::string name(300, 'a');
    EXPECT_EQ(Tell(name), Told(name, "名称太长，请换一个短的名称再保存"));
}

TEST_F(SaveFailure, TellsOfLinksThatGoInACircle) {
    fs::create_symlink("b", m_tree / "a");
    fs::create_symlink("a", m_tree / "b");
    EXPECT_EQ(Tell("a"),
              Told("a", (std::string("系统报告“") + strerrordesc_np(ELOOP) + "”，请检查磁盘再保存").c_str()));
}

TEST_F(SaveFailure, TellsOfAFullDisk) {
    m_tree.Write("a", "old");
    const FullDisk full;
    EXPECT_EQ(Tell("a"), Told("a", kNoRoom));
    EXPECT_EQ(Tell("b"), Told("b", kNoRoom));
    EXPECT_EQ(m_tree.Read("a"), "old");
    EXPECT_FALSE(fs::exists(m_tree / "b"));
}

TEST_F(SaveFailure, TellsOfRightsThatAreMissing) {
    for (const char* name : {"unwritable", "unreadable", "closed/a"})
        m_tree.Write(name, "old");
    ASSERT_EQ(chmod((m_tree / "unwritable").c_str(), 0444), 0);
    ASSERT_EQ(chmod((m_tree / "unreadable").c_str(), 0200), 0);
    ASSERT_EQ(chmod((m_tree / "closed").c_str(), 0555), 0);
    const OrdinaryUser user(m_tree.Path());
    for (const char* name : {"unwritable", "unreadable", "closed/a", "closed/b"})
        EXPECT_EQ(Tell(name), Told(name, kNoRights));
    EXPECT_EQ(m_tree.Read("unwritable"), "old");
    EXPECT_EQ(m_tree.Read("closed/a"), "old");
}

TEST_F(SaveFailure, TellsOfABackupThatCannotBeMade) {
    m_tree.Write("a", "old");
    m_tree.Write("a.bak/in the way", "x");
    EXPECT_EQ(Tell("a"), Told("a", "备份（.bak）的名称被文件夹占用，请移走它再保存"));
    EXPECT_EQ(m_tree.Read("a"), "old");
}

TEST_F(SaveFailure, TellsOfAPathThatIsNone) {
    for (const wchar_t* path : {static_cast<const wchar_t*>(nullptr), L""})
        EXPECT_EQ(Tell(path), "没有保存：没有给出文件名。");
}

TEST_F(SaveFailure, TellsOfTheInstallation) {
    const CString path = InstalledDataFolder() + L"/save-failure-test.xml";
    EXPECT_EQ(Tell(path), ToUtf8((L"安装文件夹中的文件不能改写：" + path).View()));
}

TEST_F(SaveFailure, TellsOfATreeThatCouldNotBeReadAgain) {
    m_tree.Write("a.xml", "old");
    EXPECT_FALSE(Nested(300)->SaveToXML(m_tree.File("a.xml")));
    EXPECT_EQ(m_messages.texts, Texts{Told("a.xml", "内容嵌套太深或太大，请减少内容再保存")});
    EXPECT_EQ(m_tree.Read("a.xml"), "old");
    m_messages.texts.clear();
    EXPECT_TRUE(Nested(200)->SaveToXML(m_tree.File("a.xml")));
    EXPECT_EQ(m_messages.texts, Texts());
}

TEST_F(SaveFailure, TellsOfATreeOnce) {
    fs::create_directory(m_tree / "a.xml");
    EXPECT_FALSE(Nested(2)->SaveToXML(m_tree.File("a.xml")));
    EXPECT_EQ(m_messages.texts, Texts{Told("a.xml", kNoFile)});
    m_messages.texts.clear();
    EXPECT_FALSE(Nested(2)->SaveToXML(nullptr));
    EXPECT_EQ(m_messages.texts.size(), 1U);
}

TEST_F(SaveFailure, SpeaksEnglishWhereTheUserDoes) {
    const EnvironmentVariable data("ORVO_SUPPORT_PATH", SourceFolder() + "/data");
    TeskLanguageSwitch languages;
    ASSERT_TRUE(languages.SetLanguage(L"en"));
    g_pTeskLangSwitch = &languages;
    fs::create_directory(m_tree / "folder");
    const std::string text = Tell("folder");
    g_pTeskLangSwitch = nullptr;
    languages.SetLanguage(L"zh");
    EXPECT_EQ(text,
              Path("folder") + " was not saved: what has this name is no ordinary file; move it away and save again.");
}
