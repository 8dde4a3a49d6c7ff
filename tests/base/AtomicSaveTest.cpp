// Saving a file: what is replaced, what is kept, what is left alone.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "platform/base/AtomicFile.h"
#include "platform/base/Support.h"
#include "support/FileTree.h"
#include "support/OrdinaryUser.h"

namespace {

namespace fs = std::filesystem;

bool IsGood(const char* path) {
    return FileBytes(path).rfind("good", 0) == 0;
}

class AtomicSave : public testing::Test {
protected:
    bool Save(const char* name, const std::string& bytes, FileJudge judge = IsGood) const {
        return static_cast<bool>(SaveFileAtomically(FromUtf8((m_tree / name).string()), bytes, judge));
    }
    std::string Bytes(const char* name) const { return FileBytes(m_tree / name); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(m_tree.Path()))
            names.push_back(entry.path().lexically_relative(m_tree.Path()).string());
        std::sort(names.begin(), names.end());
        return names;
    }
    mode_t Mode(const char* name) const {
        struct stat status = {};
        EXPECT_EQ(stat((m_tree / name).c_str(), &status), 0);
        return status.st_mode & 07777;
    }
    // Long ago, so that any change of the file shows.
    fs::file_time_type Age(const char* name) const {
        fs::last_write_time(m_tree / name, fs::file_time_type::clock::now() - std::chrono::hours(1000));
        return fs::last_write_time(m_tree / name);
    }

    using NameList = std::vector<std::string>;
    FileTree m_tree;
};

TEST_F(AtomicSave, MakesAFileThatIsNotThere) {
    const mode_t mask = umask(027);
    EXPECT_TRUE(Save("a", "good"));
    umask(mask);
    EXPECT_EQ(Bytes("a"), "good");
    EXPECT_EQ(Mode("a"), mode_t{0640});
    EXPECT_EQ(Names(), NameList{"a"});
}

TEST_F(AtomicSave, MakesAnEmptyFileAndALargeOne) {
    EXPECT_TRUE(Save("empty", ""));
    EXPECT_TRUE(fs::exists(m_tree / "empty"));
    const std::string large(3000000, 'x');
    EXPECT_TRUE(Save("large", large));
    EXPECT_EQ(Bytes("large"), large);
}

TEST_F(AtomicSave, KeepsTheVersionBeforeAsABackup) {
    m_tree.Write("a", "good 1");
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_EQ(Bytes("a"), "good 2");
    EXPECT_EQ(Bytes("a.bak"), "good 1");
    EXPECT_TRUE(Save("a", "good 3"));
    EXPECT_EQ(Bytes("a"), "good 3");
    EXPECT_EQ(Bytes("a.bak"), "good 2");
    EXPECT_EQ(Names(), (NameList{"a", "a.bak"}));
}

TEST_F(AtomicSave, KeepsARefusedVersionUnderANumberAndTheBackupToo) {
    m_tree.Write("a", "bad 1");
    m_tree.Write("a.bak", "good 0");
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_EQ(Bytes("a.refused-1"), "bad 1");
    EXPECT_EQ(Bytes("a.bak"), "good 0");
    m_tree.Write("a", "bad 2");
    EXPECT_TRUE(Save("a", "good 3"));
    EXPECT_EQ(Bytes("a.refused-1"), "bad 1");
    EXPECT_EQ(Bytes("a.refused-2"), "bad 2");
    EXPECT_EQ(Bytes("a.bak"), "good 0");
    EXPECT_EQ(Bytes("a"), "good 3");
    EXPECT_EQ(Names(), (NameList{"a", "a.bak", "a.refused-1", "a.refused-2"}));
}

TEST_F(AtomicSave, TakesTheNextFreeNumberWhateverBearsTheOthers) {
    m_tree.Write("a", "bad");
    fs::create_directory(m_tree / "a.refused-1");
    fs::create_symlink("nowhere", m_tree / "a.refused-2");
    EXPECT_TRUE(Save("a", "good"));
    EXPECT_EQ(Bytes("a.refused-3"), "bad");
    EXPECT_TRUE(fs::is_symlink(m_tree / "a.refused-2"));
    EXPECT_FALSE(fs::exists(m_tree / "nowhere"));
}

TEST_F(AtomicSave, WithoutAJudgeEveryVersionIsGood) {
    m_tree.Write("a", "bad");
    EXPECT_TRUE(Save("a", "good", nullptr));
    EXPECT_EQ(Bytes("a.bak"), "bad");
}

TEST_F(AtomicSave, TouchesNothingWhenTheBytesAreTheSame) {
    m_tree.Write("a", "bad");
    m_tree.Write("a.bak", "good 0");
    m_tree.Write("a.saving-1-0", "left");
    const auto age = Age("a");
    const auto backupAge = Age("a.bak");
    struct stat before = {};
    struct stat after = {};
    ASSERT_EQ(stat((m_tree / "a").c_str(), &before), 0);
    EXPECT_TRUE(Save("a", "bad"));
    ASSERT_EQ(stat((m_tree / "a").c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(fs::last_write_time(m_tree / "a"), age);
    EXPECT_EQ(fs::last_write_time(m_tree / "a.bak"), backupAge);
    EXPECT_EQ(Names(), (NameList{"a", "a.bak", "a.saving-1-0"}));
}

TEST_F(AtomicSave, SeesTheSmallestDifference) {
    const std::string first = "good" + std::string(200000, 'x');
    std::string second = first;
    second.back() = 'y';
    m_tree.Write("a", first);
    EXPECT_TRUE(Save("a", second));
    EXPECT_EQ(Bytes("a"), second);
    EXPECT_EQ(Bytes("a.bak"), first);
    EXPECT_TRUE(Save("a", second + "z"));
    EXPECT_EQ(Bytes("a"), second + "z");
    EXPECT_TRUE(Save("a", first));
    EXPECT_EQ(Bytes("a"), first);
}

TEST_F(AtomicSave, KeepsPermissions) {
    for (const mode_t mode : {0600, 0640, 0664, 0755, 0606}) {
        fs::remove(m_tree / "a");
        m_tree.Write("a", "good 1");
        ASSERT_EQ(chmod((m_tree / "a").c_str(), mode), 0);
        EXPECT_TRUE(Save("a", "good 2"));
        EXPECT_EQ(Mode("a"), mode);
        EXPECT_EQ(Mode("a.bak"), mode);
    }
}

TEST_F(AtomicSave, KeepsOwnerAndGroupWhereThatIsAllowed) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the administrator can give files away";
    m_tree.Write("a", "good 1");
    ASSERT_EQ(chown((m_tree / "a").c_str(), 12345, 23456), 0);
    ASSERT_EQ(chmod((m_tree / "a").c_str(), 04750), 0);
    EXPECT_TRUE(Save("a", "good 2"));
    struct stat status = {};
    ASSERT_EQ(stat((m_tree / "a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, uid_t{12345});
    EXPECT_EQ(status.st_gid, gid_t{23456});
    EXPECT_EQ(Mode("a"), mode_t{04750});
}

TEST_F(AtomicSave, ReplacesWhatASymbolicLinkLeadsTo) {
    m_tree.Write("real/b", "good 1");
    fs::create_symlink("real/b", m_tree / "middle");
    fs::create_symlink(m_tree / "middle", m_tree / "a");
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_TRUE(fs::is_symlink(m_tree / "a"));
    EXPECT_TRUE(fs::is_symlink(m_tree / "middle"));
    EXPECT_EQ(Bytes("real/b"), "good 2");
    EXPECT_EQ(Bytes("real/b.bak"), "good 1");
    EXPECT_EQ(Names(), (NameList{"a", "middle", "real", "real/b", "real/b.bak"}));
}

TEST_F(AtomicSave, TellsWhereTheBackupLies) {
    const auto path = [this](const char* name) { return FromUtf8((m_tree / name).string()); };
    EXPECT_EQ(BackupPath(path("a")), path("a.bak")) << "before there is anything";
    EXPECT_EQ(BackupPath(L"a"), L"a.bak");
    fs::create_directory(m_tree / "real");
    fs::create_symlink("real/b", m_tree / "middle");
    fs::create_symlink(m_tree / "middle", m_tree / "a");
    EXPECT_EQ(BackupPath(path("a")), path("real/b.bak"));
    fs::create_symlink("circle", m_tree / "circle");
    EXPECT_EQ(BackupPath(path("circle")), L"");
    EXPECT_EQ(BackupPath(L""), L"");
    EXPECT_EQ(BackupPath(nullptr), L"");
}

TEST_F(AtomicSave, MakesTheFileThatADanglingLinkNames) {
    fs::create_directory(m_tree / "real");
    fs::create_symlink("real/b", m_tree / "a");
    EXPECT_TRUE(Save("a", "good"));
    EXPECT_TRUE(fs::is_symlink(m_tree / "a"));
    EXPECT_EQ(Bytes("real/b"), "good");
}

TEST_F(AtomicSave, RefusesACircleOfLinks) {
    fs::create_symlink("b", m_tree / "a");
    fs::create_symlink("a", m_tree / "b");
    EXPECT_FALSE(Save("a", "good"));
    EXPECT_TRUE(fs::is_symlink(m_tree / "a"));
    EXPECT_TRUE(fs::is_symlink(m_tree / "b"));
    EXPECT_EQ(std::distance(fs::directory_iterator(m_tree.Path()), fs::directory_iterator()), 2);
}

TEST_F(AtomicSave, RefusesWhatIsNoOrdinaryFile) {
    fs::create_directory(m_tree / "folder");
    ASSERT_EQ(mkfifo((m_tree / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(Save("folder", "good"));
    EXPECT_FALSE(Save("folder/", "good"));
    EXPECT_FALSE(Save("pipe", "good"));
    EXPECT_FALSE(SaveFileAtomically(L"/dev/null", "good", nullptr));
    EXPECT_TRUE(fs::is_fifo(m_tree / "pipe"));
    EXPECT_EQ(Names(), (NameList{"folder", "pipe"}));
}

TEST_F(AtomicSave, RefusesAPlaceThatIsNone) {
    m_tree.Write("file", "good");
    EXPECT_FALSE(Save("missing/a", "good"));
    EXPECT_FALSE(Save("file/a", "good"));
    EXPECT_FALSE(Save(std::string(300, 'a').c_str(), "good"));
    EXPECT_FALSE(SaveFileAtomically(nullptr, "good", nullptr));
    EXPECT_FALSE(SaveFileAtomically(L"", "good", nullptr));
    EXPECT_EQ(Names(), NameList{"file"});
}

TEST_F(AtomicSave, FailsWhenTheBackupCannotBeMade) {
    m_tree.Write("a", "good 1");
    m_tree.Write("a.bak/in the way", "x");
    EXPECT_FALSE(Save("a", "good 2"));
    EXPECT_EQ(Bytes("a"), "good 1");
    EXPECT_EQ(Names(), (NameList{"a", "a.bak", "a.bak/in the way"}));
}

TEST_F(AtomicSave, ABackupThatIsTheSameFileAlreadyIsNoHindrance) {
    m_tree.Write("a", "good 1");
    fs::create_hard_link(m_tree / "a", m_tree / "a.bak");
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_EQ(Bytes("a"), "good 2");
    EXPECT_EQ(Bytes("a.bak"), "good 1");
    EXPECT_EQ(Names(), (NameList{"a", "a.bak"}));
}

TEST_F(AtomicSave, ARefusedVersionIsKeptOnceThoughTheSaveBeforeDied) {
    m_tree.Write("a", "bad");
    fs::create_hard_link(m_tree / "a", m_tree / "a.refused-1");
    EXPECT_TRUE(Save("a", "good"));
    EXPECT_EQ(Names(), (NameList{"a", "a.refused-1"}));
    EXPECT_EQ(Bytes("a.refused-1"), "bad");
}

TEST_F(AtomicSave, LeavesTheFilesOfASaveThatGoesOnAlone) {
    const std::string other = "a.saving-" + std::to_string(getpid()) + "-0";
    const fs::path path = m_tree.Write(other, "theirs");
    m_tree.Write(other + ".bak", "their copy");
    m_tree.Write("a", "good 1");
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_EX | LOCK_NB), 0);
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_EQ(Bytes("a"), "good 2");
    EXPECT_EQ(Bytes(other.c_str()), "theirs");
    EXPECT_EQ(Bytes((other + ".bak").c_str()), "their copy");
    close(file);
    EXPECT_TRUE(Save("a", "good 3"));
    EXPECT_EQ(Names(), (NameList{"a", "a.bak"})) << "the other one is gone by now";
}

TEST_F(AtomicSave, RemovesTheFilesOfSavesThatDied) {
    m_tree.Write("a", "good 1");
    for (const char* name : {"a.saving-1-0", "a.saving-1-0.bak", "a.saving-22-333", "a.saving-4-5.bak"})
        m_tree.Write(name, "left");
    m_tree.Write("a.saving-9-9", "locked for itself alone");
    ASSERT_EQ(chmod((m_tree / "a.saving-9-9").c_str(), 0400), 0);
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_EQ(Names(), (NameList{"a", "a.bak"}));
    EXPECT_EQ(Bytes("a.bak"), "good 1");
}

TEST_F(AtomicSave, RemovesThemWhereALinkLeads) {
    m_tree.Write("real/b", "good 1");
    m_tree.Write("real/b.saving-1-0", "left");
    m_tree.Write("a.saving-1-0", "of another file");
    fs::create_symlink("real/b", m_tree / "a");
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_EQ(Names(), (NameList{"a", "a.saving-1-0", "real", "real/b", "real/b.bak"}));
}

TEST_F(AtomicSave, RemovesNothingThatOnlyLooksAlike) {
    NameList expected = {"a"};
    for (const char* name :
         {"a.saving-", "a.saving-1", "a.saving-1-", "a.saving--1", "a.saving-1-x", "a.saving-1-0.txt",
          "a.saving-1-0.bak.bak", "aa.saving-1-0", "b.saving-1-0", "saving-1-0", "a.refused-1"}) {
        m_tree.Write(name, "mine");
        expected.emplace_back(name);
    }
    fs::create_directory(m_tree / "a.saving-5-0");
    ASSERT_EQ(mkfifo((m_tree / "a.saving-6-0").c_str(), 0600), 0);
    m_tree.Write("elsewhere", "mine");
    fs::create_symlink("elsewhere", m_tree / "a.saving-7-0");
    for (const char* name : {"a.saving-5-0", "a.saving-6-0", "a.saving-7-0", "elsewhere"})
        expected.emplace_back(name);
    std::sort(expected.begin(), expected.end());
    EXPECT_TRUE(Save("a", "good"));
    EXPECT_EQ(Names(), expected);
}

TEST_F(AtomicSave, SavesAtTheSameTimeDoNotTakeEachOtherForDead) {
    constexpr int kWriters = 4;
    constexpr int kSaves = 40;
    m_tree.Write("a", "good");
    const CString path = m_tree.File("a");
    std::atomic<int> failures = 0;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < kWriters; ++writer)
        writers.emplace_back([&, writer] {
            for (int i = 0; i < kSaves; ++i) {
                const std::string bytes = "good " + std::to_string(writer) + "/" + std::to_string(i);
                if (!SaveFileAtomically(path, bytes, IsGood))
                    ++failures;
            }
        });
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(Names(), (NameList{"a", "a.bak"}));
    EXPECT_NE(Bytes("a").find("/" + std::to_string(kSaves - 1)), std::string::npos);
}

TEST_F(AtomicSave, TakesRelativePathsFromTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(m_tree.Path());
    m_tree.Write("a", "good 1");
    EXPECT_TRUE(SaveFileAtomically(L"a", "good 2", IsGood));
    fs::current_path(before);
    EXPECT_EQ(Bytes("a"), "good 2");
    EXPECT_EQ(Bytes("a.bak"), "good 1");
}

TEST_F(AtomicSave, TakesNamesThatAreNotAscii) {
    EXPECT_TRUE(Save("日照 设置.xml", "good 1"));
    EXPECT_TRUE(Save("日照 设置.xml", "good 2"));
    EXPECT_EQ(Names(), (NameList{"日照 设置.xml", "日照 设置.xml.bak"}));
}

TEST_F(AtomicSave, KeepsAFileAsRefusedForWhoeverKnowsMoreThanItsReader) {
    m_tree.Write("a", "good 1");
    m_tree.Write("a.refused-1", "older");
    EXPECT_TRUE(KeepRefusedFile(m_tree.File("a")));
    EXPECT_TRUE(KeepRefusedFile(m_tree.File("a"))) << "once is enough";
    EXPECT_EQ(Names(), (NameList{"a", "a.refused-1", "a.refused-2"}));
    EXPECT_TRUE(Save("a", "good 2"));
    EXPECT_TRUE(Save("a", "good 3"));
    EXPECT_EQ(Bytes("a.refused-1"), "older");
    EXPECT_EQ(Bytes("a.refused-2"), "good 1");
    EXPECT_FALSE(KeepRefusedFile(m_tree.File("missing")));
    EXPECT_FALSE(KeepRefusedFile(FromUtf8(m_tree.Path().string())));
    EXPECT_FALSE(KeepRefusedFile(nullptr));
}

TEST_F(AtomicSave, RespectsAFileThatMayNotBeWritten) {
    m_tree.Write("a", "good 1");
    ASSERT_EQ(chmod((m_tree / "a").c_str(), 0444), 0);
    const OrdinaryUser user(m_tree.Path());
    EXPECT_FALSE(Save("a", "good 2"));
    EXPECT_TRUE(Save("a", "good 1")) << "nothing is to be written";
    EXPECT_EQ(Bytes("a"), "good 1");
    EXPECT_EQ(Names(), NameList{"a"});
}

TEST_F(AtomicSave, RespectsAFileThatMayNotBeRead) {
    m_tree.Write("a", "good 1");
    ASSERT_EQ(chmod((m_tree / "a").c_str(), 0200), 0);
    {
        const OrdinaryUser user(m_tree.Path());
        EXPECT_FALSE(Save("a", "good 2"));
    }
    ASSERT_EQ(chmod((m_tree / "a").c_str(), 0600), 0);
    EXPECT_EQ(Bytes("a"), "good 1");
}

TEST_F(AtomicSave, RespectsAFolderThatMayNotBeWritten) {
    m_tree.Write("in/a", "good 1");
    ASSERT_EQ(chmod((m_tree / "in").c_str(), 0555), 0);
    const OrdinaryUser user(m_tree.Path());
    EXPECT_FALSE(Save("in/a", "good 2"));
    EXPECT_FALSE(Save("in/b", "good 2"));
    EXPECT_EQ(Bytes("in/a"), "good 1");
    EXPECT_EQ(Names(), (NameList{"in", "in/a"}));
}

TEST_F(AtomicSave, NeverWritesIntoTheInstalledDataFolder) {
    const std::string folder = ToUtf8(InstalledDataFolder().View());
    const fs::path target = fs::path(folder) / "atomic-save-test.xml";
    fs::create_directory_symlink(folder, m_tree / "linked folder");
    fs::create_symlink(target, m_tree / "linked file");
    for (const fs::path& path : {target, m_tree / "linked folder/atomic-save-test.xml", m_tree / "linked file"})
        EXPECT_EQ(SaveFileAtomically(FromUtf8(path.string()), "good", IsGood).cause, kInstalledData) << path;
    EXPECT_FALSE(fs::remove(target)) << "it was written";
}

}  // namespace
