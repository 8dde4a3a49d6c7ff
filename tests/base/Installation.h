// An installation of the platform in a temporary folder, with a program in it that asks the platform questions: so the
// installed data folder is one that a test may fill as it likes.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Environment.h"
#include "support/FileTree.h"
#include "support/Folders.h"

class Installation : public testing::Test {
protected:
    struct Answer {
        int code = -1;       // the probe's: 0 is yes
        std::string output;  // without the last line end
        std::string errors;
    };

    void SetUp() override {
        Install(BuildFolder() + "/bin/support-probe", Prefix() / "bin/support-probe");
        Install(BuildFolder() + "/lib/libOrvoPlatform.so.0", Prefix() / "lib/libOrvoPlatform.so.0");
        std::filesystem::create_directories(Shipped());
        std::filesystem::create_directories(m_folder / "home");
    }

    std::filesystem::path Prefix() const { return Real() / "prefix"; }
    std::filesystem::path Shipped() const { return Prefix() / "share/orvo"; }
    std::filesystem::path User() const { return Real() / "home/.config/orvo"; }
    // The temporary folder itself may lie behind a symbolic link.
    std::filesystem::path Real() const { return std::filesystem::canonical(m_folder.Path()); }

    Answer Ask(const std::vector<std::string>& arguments) const {
        std::string command = "cd '" + Real().string() + "/home' && exec '" + m_program.string() + "'";
        for (const std::string& argument : arguments)
            command += " '" + argument + "'";
        command += " 2>'" + (Real() / "errors").string() + "'";
        Answer answer;
        std::FILE* pipe = popen(command.c_str(), "r");
        if (!pipe)
            return answer;
        for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
            answer.output.push_back(static_cast<char>(character));
        const int status = pclose(pipe);
        answer.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        if (answer.output.ends_with('\n'))
            answer.output.pop_back();
        answer.errors = FileBytes(Real() / "errors");
        return answer;
    }
    // The path that is found; empty when none is (and the path was left empty).
    std::string Find(const std::string& name) const {
        const Answer answer = Ask({"find", name});
        EXPECT_EQ(answer.code == 0, !answer.output.empty()) << answer.output;
        return answer.output;
    }
    bool IsInstalled(const std::filesystem::path& path) const {
        const Answer answer = Ask({"is-installed", path.string()});
        EXPECT_TRUE(answer.code == 0 || answer.code == 1) << answer.errors;
        return answer.code == 0;
    }

    FileTree m_folder;
    EnvironmentVariable m_supportPath{"ORVO_SUPPORT_PATH", nullptr};
    EnvironmentVariable m_libraries{"LD_LIBRARY_PATH", nullptr};  // the copy is to be used
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", nullptr};
    EnvironmentVariable m_home{"HOME", (Real() / "home").string()};
    std::filesystem::path m_program = Prefix() / "bin/support-probe";

private:
    static void Install(const std::filesystem::path& from, const std::filesystem::path& to) {
        std::filesystem::create_directories(to.parent_path());
        std::filesystem::copy_file(from, to);
    }
};
