// The first start: the user gets copies of the shipped files, and nothing that is there is ever touched.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "base/Installation.h"

namespace {

namespace fs = std::filesystem;

class CopyShipped : public Installation {
protected:
    void SetUp() override {
        Installation::SetUp();
        m_folder.Write("prefix/share/orvo/zone.xml", "<zone/>");
        m_folder.Write("prefix/share/orvo/SunTerm.xml", std::string(200000, 't'));
        m_folder.Write("prefix/share/orvo/SunSet.xml", "<set/>");
    }

    std::vector<std::string> UserFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(User()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
};

const std::vector<std::string> kAllThree = {"SunSet.xml", "SunTerm.xml", "zone.xml"};

TEST_F(CopyShipped, FillsAnEmptyUsersFolderByteForByte) {
    const Answer answer = Ask({"copy"});
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.errors, "");
    EXPECT_EQ(UserFiles(), kAllThree);
    EXPECT_EQ(FileBytes(User() / "zone.xml"), "<zone/>");
    EXPECT_EQ(FileBytes(User() / "SunTerm.xml"), std::string(200000, 't'));
    EXPECT_EQ(FileBytes(User() / "SunSet.xml"), "<set/>");
}

TEST_F(CopyShipped, MakesTheFoldersForTheUserAlone) {
    m_config.Set((Real() / "one/two").string().c_str());
    ASSERT_EQ(Ask({"copy"}).code, 0);
    for (const char* folder : {"one", "one/two", "one/two/orvo"}) {
        struct stat status {};
        ASSERT_EQ(stat((m_folder / folder).c_str(), &status), 0) << folder;
        EXPECT_EQ(status.st_mode & 0777U, 0700U) << folder;
    }
}

TEST_F(CopyShipped, MakesCopiesThatTheirOwnerCanChange) {
    fs::permissions(Shipped() / "zone.xml", fs::perms::owner_read);
    ASSERT_EQ(Ask({"copy"}).code, 0);
    struct stat status {};
    ASSERT_EQ(stat((User() / "zone.xml").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0600U, 0600U);
}

TEST_F(CopyShipped, NeverReplacesWhatIsThere) {
    m_folder.Write("home/.config/orvo/zone.xml", "mine");
    m_folder.Write("home/.config/orvo/SunTerm.xml", "");
    ASSERT_EQ(Ask({"copy"}).code, 0);
    EXPECT_EQ(FileBytes(User() / "zone.xml"), "mine");
    EXPECT_EQ(FileBytes(User() / "SunTerm.xml"), "");
    EXPECT_EQ(FileBytes(User() / "SunSet.xml"), "<set/>");
}

TEST_F(CopyShipped, LeavesDanglingLinksAndFoldersOfTheNameAlone) {
    fs::create_directories(User() / "zone.xml");
    fs::create_symlink(Real() / "later.xml", User() / "SunSet.xml");
    EXPECT_EQ(Ask({"copy"}).code, 0);
    EXPECT_TRUE(fs::is_directory(User() / "zone.xml"));
    EXPECT_TRUE(fs::is_symlink(User() / "SunSet.xml"));
    EXPECT_FALSE(fs::exists(Real() / "later.xml"));
}

TEST_F(CopyShipped, DoesNothingTheSecondTime) {
    ASSERT_EQ(Ask({"copy"}).code, 0);
    m_folder.Write("prefix/share/orvo/zone.xml", "newer");
    ASSERT_EQ(Ask({"copy"}).code, 0);
    EXPECT_EQ(FileBytes(User() / "zone.xml"), "<zone/>");
    EXPECT_EQ(UserFiles(), kAllThree);
}

TEST_F(CopyShipped, IsNotStoppedByAFileOnTheSearchPath) {
    m_folder.Write("there/zone.xml", "other");
    m_supportPath.Set((Real() / "there").string().c_str());
    ASSERT_EQ(Ask({"copy"}).code, 0);
    EXPECT_EQ(FileBytes(User() / "zone.xml"), "<zone/>");
}

TEST_F(CopyShipped, NamesAShippedFileThatIsMissingAndCopiesTheOthers) {
    fs::remove(Shipped() / "zone.xml");
    const Answer answer = Ask({"copy"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_NE(answer.errors.find((Shipped() / "zone.xml").string()), std::string::npos) << answer.errors;
    EXPECT_NE(answer.errors.find("No such file or directory"), std::string::npos) << answer.errors;
    EXPECT_EQ(UserFiles(), (std::vector<std::string>{"SunSet.xml", "SunTerm.xml"}));
}

TEST_F(CopyShipped, DoesNotCopyAFolder) {
    fs::remove(Shipped() / "zone.xml");
    fs::create_directories(Shipped() / "zone.xml");
    const Answer answer = Ask({"copy"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_NE(answer.errors.find((Shipped() / "zone.xml").string()), std::string::npos) << answer.errors;
    EXPECT_EQ(UserFiles(), (std::vector<std::string>{"SunSet.xml", "SunTerm.xml"}));
}

TEST_F(CopyShipped, NamesAFolderThatCannotBeMade) {
    m_folder.Write("home/.config", "a file where a folder should be");
    const Answer answer = Ask({"copy"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_NE(answer.errors.find(User().string()), std::string::npos) << answer.errors;
    EXPECT_NE(answer.errors.find("Not a directory"), std::string::npos) << answer.errors;
}

// The user's folder leads to one in which nobody, not even the superuser, can make a file.
TEST_F(CopyShipped, NamesEachFileThatCannotBeWritten) {
    fs::create_directories(User().parent_path());
    fs::create_symlink("/proc", User());
    const Answer answer = Ask({"copy"});
    EXPECT_EQ(answer.code, 1);
    for (const std::string& name : kAllThree)
        EXPECT_NE(answer.errors.find((User() / name).string()), std::string::npos) << answer.errors;
    EXPECT_EQ(std::count(answer.errors.begin(), answer.errors.end(), '\n'), 3) << answer.errors;
}

// A limit on the size of files stops the copy of the large one in the middle.
TEST_F(CopyShipped, LeavesNoHalfFileWhenWritingFails) {
    const fs::path script = m_folder.Write(
        "limited.sh", "#!/bin/sh\ntrap '' XFSZ\nulimit -f 100\nexec '" + m_program.string() + "' \"$@\"\n");
    fs::permissions(script, fs::perms::owner_all);
    m_program = fs::canonical(script);
    const Answer answer = Ask({"copy"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_NE(answer.errors.find((User() / "SunTerm.xml").string()), std::string::npos) << answer.errors;
    EXPECT_NE(answer.errors.find("File too large"), std::string::npos) << answer.errors;
    EXPECT_EQ(UserFiles(), (std::vector<std::string>{"SunSet.xml", "zone.xml"}));
}

}  // namespace
