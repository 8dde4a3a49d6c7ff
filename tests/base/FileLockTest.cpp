// The lock between programs: who gets it, who waits, and what is left of it.
#include "platform/base/FileLock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <thread>
#include <vector>

#include "platform/base/Support.h"
#include "support/FileTree.h"
#include "support/OrdinaryUser.h"

namespace {

using Taken = FileLock::Taken;
constexpr std::chrono::milliseconds kNoPatience(0);
constexpr std::chrono::milliseconds kMuchPatience(60000);

class FileLocks : public testing::Test {
protected:
    bool IsLockFileThere() const { return std::filesystem::exists(m_tree / "a.lock"); }

    FileTree m_tree;
    CString m_file = m_tree.File("a");
};

}  // namespace

TEST_F(FileLocks, OneHasItAndTheOtherDoesNot) {
    FileLock one;
    FileLock other;
    EXPECT_EQ(one.Take(m_file, kNoPatience), Taken::Yes);
    EXPECT_TRUE(one.IsHeld());
    EXPECT_TRUE(IsLockFileThere());
    EXPECT_EQ(other.Take(m_file, kNoPatience), Taken::Busy);
    EXPECT_FALSE(other.IsHeld());
    EXPECT_EQ(other.Take(m_tree.File("b"), kNoPatience), Taken::Yes) << "another file, another lock";
    one.Release();
    EXPECT_EQ(other.Take(m_file, kNoPatience), Taken::Yes);
    EXPECT_FALSE(std::filesystem::exists(m_tree / "b.lock")) << "the one before was given up";
}

TEST_F(FileLocks, LeavesNothingBehind) {
    {
        FileLock lock;
        ASSERT_EQ(lock.Take(m_file, kNoPatience), Taken::Yes);
    }
    EXPECT_TRUE(std::filesystem::is_empty(m_tree.Path()));
}

TEST_F(FileLocks, WaitsForTheOther) {
    FileLock one;
    ASSERT_EQ(one.Take(m_file, kNoPatience), Taken::Yes);
    std::thread later([&one] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        one.Release();
    });
    FileLock other;
    EXPECT_EQ(other.Take(m_file, kMuchPatience), Taken::Yes);
    later.join();
    EXPECT_TRUE(IsLockFileThere()) << "the first one's going must not take the second one's away";
}

TEST_F(FileLocks, IsTheSameThroughASymbolicLink) {
    std::filesystem::create_directory(m_tree / "elsewhere");
    std::filesystem::create_symlink("elsewhere/real", m_tree / "a");
    FileLock one;
    FileLock other;
    ASSERT_EQ(one.Take(m_file, kNoPatience), Taken::Yes);
    EXPECT_TRUE(std::filesystem::exists(m_tree / "elsewhere/real.lock"));
    EXPECT_EQ(other.Take(m_tree.File("elsewhere/real"), kNoPatience), Taken::Busy);
}

TEST_F(FileLocks, OfAProcessThatWasKilledIsFree) {
    const pid_t child = fork();
    if (child == 0) {
        FileLock lock;
        lock.Take(m_file, kNoPatience);
        raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_TRUE(IsLockFileThere());
    FileLock lock;
    EXPECT_EQ(lock.Take(m_file, kNoPatience), Taken::Yes);
}

TEST_F(FileLocks, IsNeverHeldByTwoThoughEachRemovesItsFile) {
    constexpr int kTurns = 500;
    constexpr int kThreads = 3;
    std::atomic<int> inside = 0;
    std::atomic<int> collisions = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&] {
            for (int i = 0; i < kTurns; ++i) {
                FileLock lock;
                while (lock.Take(m_file, kNoPatience) != Taken::Yes)
                    std::this_thread::yield();
                if (++inside != 1)
                    ++collisions;
                std::this_thread::yield();
                --inside;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(collisions, 0);
}

TEST_F(FileLocks, IsImpossibleWhereNothingCanBeWritten) {
    FileLock lock;
    EXPECT_EQ(lock.Take(nullptr, kMuchPatience), Taken::Impossible);
    EXPECT_EQ(lock.Take(L"", kMuchPatience), Taken::Impossible);
    EXPECT_EQ(lock.Take(m_tree.File("missing/a"), kMuchPatience), Taken::Impossible);
    std::filesystem::create_directory(m_tree / "a.lock");
    EXPECT_EQ(lock.Take(m_file, kMuchPatience), Taken::Impossible);
    ASSERT_EQ(mkfifo((m_tree / "b.lock").c_str(), 0600), 0);
    EXPECT_EQ(lock.Take(m_tree.File("b"), kMuchPatience), Taken::Impossible);
    EXPECT_EQ(lock.Take(InstalledDataFolder() + L"/SunSet.xml", kMuchPatience), Taken::Impossible);
    std::filesystem::create_directory(m_tree / "closed");
    ASSERT_EQ(chmod((m_tree / "closed").c_str(), 0555), 0);
    const OrdinaryUser user(m_tree.Path());
    EXPECT_EQ(lock.Take(m_tree.File("closed/a"), kMuchPatience), Taken::Impossible);
    EXPECT_FALSE(lock.IsHeld());
}

// What another user's program left, when it was killed.
TEST_F(FileLocks, AFileThatCannotBeWrittenIsLockedAllTheSame) {
    ASSERT_EQ(close(open((m_tree / "a.lock").c_str(), O_CREAT | O_WRONLY, 0444)), 0);
    const OrdinaryUser user(m_tree.Path());
    FileLock one;
    FileLock other;
    EXPECT_EQ(one.Take(m_file, kNoPatience), Taken::Yes);
    EXPECT_EQ(other.Take(m_file, kNoPatience), Taken::Busy);
    one.Release();
    EXPECT_FALSE(IsLockFileThere());
}
