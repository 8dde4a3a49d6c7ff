// Each system call of a save fails in turn, or is the last that the process lives to see.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>

#include "platform/base/DictionaryWriter.h"
#include "platform/base/QcDtDictionary.h"
#include "support/FileTree.h"
#include "support/Folders.h"

namespace {

constexpr const char* kText = "new";
constexpr const char* kRefused = "<not XML";
constexpr int kMostCalls = 500;  // more than any save makes: the walk over the calls ends by itself

std::string FileWith(const char* text) {
    QcDtDictionary dictionary(L"saved");
    dictionary.FindOrAddItem(L"text", QcDtKindString)->SetStringValue(FromUtf8(text));
    std::string bytes;
    EXPECT_TRUE(DictionaryWriter::Write(dictionary, bytes));
    return bytes;
}

struct Outcome {
    bool isSaved = false;
    bool isKilled = false;
    int calls = 0;
    std::string names;  // of the calls, each with a blank behind it
};

// A folder in which a save goes wrong, made anew for each.
class Scene {
public:
    explicit Scene(const char* before, bool hasBackup = false, bool isLinked = false) : m_isLinked(isLinked) {
        if (before)
            m_tree.Write(Real(), before);
        if (hasBackup)
            m_tree.Write(Real() + ".bak", FileWith("oldest"));
        if (isLinked) {
            std::filesystem::create_directory(m_tree / "behind");
            std::filesystem::create_symlink("behind/file.xml", m_tree / "file.xml");
            if (before)
                m_tree.Write(Real(), before);
        }
        m_before = Files();
    }

    Outcome Save(const char* how, int at, const std::string& more = "") const {
        std::string command = "ASAN_OPTIONS=verify_asan_link_order=0:$ASAN_OPTIONS LD_PRELOAD='" + BuildFolder() +
                              "/lib/libfailing-calls.so' FAILING_CALLS_HOW=" + std::string(how) +
                              " FAILING_CALLS_AT=" + std::to_string(at) + " " + more + " exec '" + BuildFolder() +
                              "/bin/save-driver' '" + (m_tree / "file.xml").string() + "' " + kText;
        Outcome outcome;
        std::FILE* pipe = popen(command.c_str(), "r");
        if (!pipe || std::fscanf(pipe, "%d\n", &outcome.calls) != 1)
            outcome.calls = 0;
        for (int c = pipe ? std::fgetc(pipe) : EOF; c != EOF; c = std::fgetc(pipe))
            outcome.names.push_back(static_cast<char>(c));
        const int status = pipe ? pclose(pipe) : -1;
        outcome.isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        outcome.isSaved = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        EXPECT_TRUE(outcome.isKilled || (WIFEXITED(status) && WEXITSTATUS(status) <= 1)) << status;
        return outcome;
    }

    // Every file by its name in the folder, links passed over.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_tree.Path()))
            if (entry.is_regular_file() && !entry.is_symlink())
                files[entry.path().lexically_relative(m_tree.Path()).string()] = FileBytes(entry.path());
        return files;
    }
    const std::map<std::string, std::string>& Before() const { return m_before; }
    std::string Real() const { return m_isLinked ? "behind/file.xml" : "file.xml"; }
    bool LinkStands() const { return !m_isLinked || std::filesystem::is_symlink(m_tree / "file.xml"); }

private:
    bool m_isLinked;
    FileTree m_tree;
    std::map<std::string, std::string> m_before;
};

// The content before, or none, or the new one: nothing in between.
void ExpectWhole(const Scene& scene, const Outcome& outcome) {
    const auto files = scene.Files();
    const auto now = files.find(scene.Real());
    const auto before = scene.Before().find(scene.Real());
    const bool isNew = now != files.end() && now->second == FileWith(kText);
    const bool isOld = now == files.end() ? before == scene.Before().end()
                                          : before != scene.Before().end() && now->second == before->second;
    EXPECT_TRUE(isNew || isOld);
    EXPECT_TRUE(!outcome.isSaved || isNew) << "said to be saved";
    EXPECT_TRUE(scene.LinkStands());
    if (isNew && before != scene.Before().end()) {
        bool isKept = false;
        for (const auto& [name, content] : files)
            isKept = isKept || (name != scene.Real() && content == before->second);
        EXPECT_TRUE(isKept) << "the version before is gone";
    }
}

// After a save that failed: the files before, and at most a backup with the content that the file itself has.
void ExpectNothingLeft(const Scene& scene) {
    auto expected = scene.Before();
    auto files = scene.Files();
    const std::string backup = scene.Real() + ".bak";
    if (files.count(backup) != 0 && expected.count(scene.Real()) != 0 && files.at(backup) == expected.at(scene.Real()))
        expected[backup] = files.at(backup);
    EXPECT_EQ(files, expected);
}

// Whether the call of that number is one that a signal can interrupt.
bool CanBeInterrupted(const Outcome& outcome, int at) {
    std::istringstream names(outcome.names);
    std::string name;
    for (int i = 0; i < at && names >> name; ++i) {
    }
    return name == "open" || name == "read" || name == "write" || name == "fsync" || name == "close" || name == "flock";
}

struct Case {
    const char* name;
    const char* before;  // null: no file; empty: a good file
    bool hasBackup;
    bool isLinked;
    const char* environment;
};

class AtomicFailure : public testing::TestWithParam<Case> {
protected:
    static Scene Make() {
        const Case& it = GetParam();
        static const std::string old = FileWith("old");
        return Scene(it.before && !*it.before ? old.c_str() : it.before, it.hasBackup, it.isLinked);
    }
};

TEST_P(AtomicFailure, ASaveWithoutAnyFailureSucceedsAndKeepsTheVersionBefore) {
    const Scene scene = Make();
    const Outcome outcome = scene.Save("error", 0, GetParam().environment);
    EXPECT_TRUE(outcome.isSaved);
    EXPECT_GT(outcome.calls, 5);
    ExpectWhole(scene, outcome);
}

TEST_P(AtomicFailure, TheNewFileIsOnTheDiskBeforeItTakesItsNameAndTheNameIsAfterwards) {
    const Outcome outcome = Make().Save("error", 0, GetParam().environment);
    ASSERT_TRUE(outcome.isSaved);
    const std::size_t written = outcome.names.find("write ");
    const std::size_t flushed = outcome.names.find("fsync ");
    const std::size_t renamed = outcome.names.rfind("rename ");
    const std::size_t flushedFolder = outcome.names.rfind("fsync ");
    ASSERT_NE(written, std::string::npos) << outcome.names;
    ASSERT_NE(flushed, std::string::npos) << outcome.names;
    ASSERT_NE(renamed, std::string::npos) << outcome.names;
    EXPECT_LT(written, flushed) << outcome.names;
    EXPECT_LT(flushed, renamed) << outcome.names;
    EXPECT_LT(renamed, flushedFolder) << outcome.names;
}

TEST_P(AtomicFailure, AnyOneCallThatFailsLeavesTheOldFileWholeAndNothingBesideIt) {
    int failures = 0;
    for (int at = 1;; ++at) {
        SCOPED_TRACE(at);
        ASSERT_LT(at, kMostCalls);
        const Scene scene = Make();
        const Outcome outcome = scene.Save("error", at, GetParam().environment);
        ExpectWhole(scene, outcome);
        if (!outcome.isSaved) {
            ++failures;
            ExpectNothingLeft(scene);
        }
        if (at > outcome.calls)
            break;
    }
    EXPECT_GT(failures, 5);  // writing, flushing, closing, renaming, flushing the folder at the least
}

TEST_P(AtomicFailure, AProcessThatDiesAtAnyCallLeavesAWholeFileAndTheNextSaveSucceeds) {
    for (int at = 1;; ++at) {
        SCOPED_TRACE(at);
        ASSERT_LT(at, kMostCalls);
        const Scene scene = Make();
        const Outcome outcome = scene.Save("kill", at, GetParam().environment);
        ExpectWhole(scene, outcome);
        if (!outcome.isKilled)
            break;
        const Outcome next = scene.Save("error", 0, GetParam().environment);
        EXPECT_TRUE(next.isSaved);
        const auto files = scene.Files();
        EXPECT_EQ(files.at(scene.Real()), FileWith(kText));
        for (const auto& [name, content] : files)
            EXPECT_EQ(name.find(".saving-"), std::string::npos) << name << " is left of the save that died";
    }
}

TEST_P(AtomicFailure, ADiskThatDiesAtAnyCallLeavesAWholeFile) {
    for (int at = 1;; ++at) {
        SCOPED_TRACE(at);
        ASSERT_LT(at, kMostCalls);
        const Scene scene = Make();
        const Outcome outcome = scene.Save("dead", at, GetParam().environment);
        ExpectWhole(scene, outcome);
        if (at > outcome.calls)
            break;
    }
}

TEST_P(AtomicFailure, ADiskThatFillsUpAtAnyCallLeavesAWholeFileAndNothingBesideTheOldOne) {
    int failures = 0;
    for (int at = 1;; ++at) {
        SCOPED_TRACE(at);
        ASSERT_LT(at, kMostCalls);
        const Scene scene = Make();
        const Outcome outcome = scene.Save("full", at, GetParam().environment);
        if (at > outcome.calls)
            break;
        ExpectWhole(scene, outcome);
        if (outcome.isSaved)
            continue;
        ++failures;
        // (Putting the old file back takes room too.)
        if (scene.Files().count(scene.Real()) == 0 || scene.Files().at(scene.Real()) != FileWith(kText))
            ExpectNothingLeft(scene);
    }
    EXPECT_GT(failures, 3);
}

TEST_P(AtomicFailure, AnInterruptedCallIsMadeAgainOrLeavesTheOldFile) {
    for (int at = 1;; ++at) {
        SCOPED_TRACE(at);
        ASSERT_LT(at, kMostCalls);
        const Scene scene = Make();
        const Outcome outcome = scene.Save("interrupt", at, GetParam().environment);
        ExpectWhole(scene, outcome);
        EXPECT_TRUE(outcome.isSaved || !CanBeInterrupted(outcome, at)) << outcome.names;
        if (!outcome.isSaved)
            ExpectNothingLeft(scene);
        if (at > outcome.calls)
            break;
    }
}

TEST_P(AtomicFailure, ACallThatWritesOrReadsLessThanAskedForIsCarriedOn) {
    for (int at = 1;; ++at) {
        SCOPED_TRACE(at);
        ASSERT_LT(at, kMostCalls);
        const Scene scene = Make();
        const Outcome outcome = scene.Save("short", at, GetParam().environment);
        EXPECT_TRUE(outcome.isSaved);
        ExpectWhole(scene, outcome);
        if (at > outcome.calls)
            break;
    }
}

TEST_P(AtomicFailure, ATemporaryFileThatIsTakenForAbandonedIsMadeAnew) {
    const Outcome plain = Make().Save("error", 0, GetParam().environment);
    std::istringstream names(plain.names);
    int at = 1;
    for (std::string name; names >> name && name != "flock"; ++at) {
    }
    ASSERT_LE(at, plain.calls) << "no lock is taken: " << plain.names;
    const Scene scene = Make();
    const Outcome outcome = scene.Save("swept", at, GetParam().environment);
    EXPECT_TRUE(outcome.isSaved);
    EXPECT_GT(outcome.calls, plain.calls);
    ExpectWhole(scene, outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Scenes, AtomicFailure,
    testing::Values(Case{"NoFileBefore", nullptr, false, false, ""}, Case{"GoodFileBefore", "", false, false, ""},
                    Case{"FileWithBackup", "", true, false, ""}, Case{"RefusedFileBefore", kRefused, true, false, ""},
                    Case{"NoHardLinks", "", true, false, "FAILING_CALLS_NO_LINKS=1"},
                    Case{"RefusedWithoutHardLinks", kRefused, false, false, "FAILING_CALLS_NO_LINKS=1"},
                    Case{"BehindALink", "", false, true, ""}),
    [](const auto& scene) { return std::string(scene.param.name); });

}  // namespace
