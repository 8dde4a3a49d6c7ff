// What a begun word becomes: names, files, and quotes where they are needed.
#include "workbench/commands/Completion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/host/Subcommands.h"
#include "support/FileTree.h"
#include "workbench/commands/FileNames.h"
#include "workbench/commands/LineWords.h"

namespace fs = std::filesystem;

namespace {

// In a folder of its own, with one subcommand that takes a file.
class Completing : public testing::Test {
protected:
    Completing() {
        Subcommand row;
        row.name = L"look";
        row.options = {ValueOption(L"FILE", L"", L"a file"), ValueOption(L"--write", L"OUT", L"another one"),
                       ValueOption(L"--place", L"NAME", L"a place",
                                   [] {
                                       return std::vector<CString>{L"here", L"Long Beach"};
                                   }),
                       FlagOption(L"--json", L"a flag")};
        row.run = [](SubcommandCall&) { return 0; };
        CString reason;
        EXPECT_TRUE(HostSubcommands().Add(row, this, reason)) << ToUtf8(reason.View());
        row.name = L"ask";
        row.options.erase(row.options.begin());
        EXPECT_TRUE(HostSubcommands().Add(row, this, reason)) << ToUtf8(reason.View());
        fs::current_path(m_folder.Path());
        m_folder.Write("house.dxf", "");
        m_folder.Write("house two.dxf", "");
        m_folder.Write("it's.dxf", "");
        m_folder.Write("plans/a.dxf", "");
        m_folder.Write("plans/.old.dxf", "");
        m_folder.Write(".hidden", "");
    }
    ~Completing() override {
        HostSubcommands().Forget(this);
        fs::current_path(m_before);
    }

    // The line after Tab.
    static std::string After(const CString& line) {
        const LineCompletion completion = CompleteLine(line);
        return ToUtf8((line.Left(line.GetLength() - completion.replaced) + completion.rest).View());
    }

    static std::vector<std::string> Choices(const CString& line) {
        std::vector<std::string> choices;
        for (const CString& choice : CompleteLine(line).choices)
            choices.push_back(ToUtf8(choice.View()));
        return choices;
    }

    const fs::path m_before = fs::current_path();
    FileTree m_folder;
};

using Words = std::vector<std::string>;

}  // namespace

TEST_F(Completing, NamesFilesWhereAValueHasNoWordsOfItsOwn) {
    EXPECT_EQ(After(L"look h"), "look house");
    EXPECT_EQ(Choices(L"look house"), (Words{"house two.dxf", "house.dxf"}));
    EXPECT_EQ(After(L"look house."), "look house.dxf ");
    EXPECT_EQ(After(L"ask --write house."), "ask --write house.dxf ");
    EXPECT_EQ(After(L"orvo look --json house."), "orvo look --json house.dxf ") << "a flag has no value";
    EXPECT_EQ(Choices(L"ask --write --j"), Words()) << "a value, and no option";
    EXPECT_EQ(Choices(L"look --j"), Words{"--json"});
    EXPECT_EQ(Choices(L"ask h"), Words()) << "it takes no file by itself";
    EXPECT_EQ(Choices(L"nobody h"), Words());
    EXPECT_EQ(Choices(L"hou"), Words());
    EXPECT_EQ(Choices(L"look --place h"), Words{"here"}) << "a value with words is one of these";
}

TEST_F(Completing, GoesOnIntoFolders) {
    EXPECT_EQ(After(L"look pl"), "look plans/");
    EXPECT_EQ(After(L"look plans/"), "look plans/a.dxf ");
    EXPECT_EQ(After(L"look plans/."), "look plans/.old.dxf ");
    EXPECT_EQ(After(L"look ./pl"), "look ./plans/");
    const CString whole = FromUtf8((m_folder.Path() / "plans").string());
    EXPECT_EQ(After(L"look " + whole + L"/a"), ToUtf8((L"look " + whole + L"/a.dxf ").View()));
    EXPECT_EQ(Choices(L"look nowhere/"), Words());
    EXPECT_EQ(Choices(L"look house.dxf/"), Words());
}

TEST_F(Completing, PutsWhatHasBlanksOrQuotesIntoQuotes) {
    EXPECT_EQ(After(L"look house\" t"), "look \"house two.dxf\" ") << "a quote in the middle of the word";
    EXPECT_EQ(After(L"look \"house t"), "look \"house two.dxf\" ");
    EXPECT_EQ(After(L"look 'house t"), "look 'house two.dxf' ");
    EXPECT_EQ(After(L"look \"pl"), "look \"plans/") << "the folder goes on";
    EXPECT_EQ(After(L"look it"), "look \"it's.dxf\" ");
    EXPECT_EQ(After(L"look 'it"), "look \"it's.dxf\" ") << "a quote cannot stand in its like";
    EXPECT_EQ(After(L"ask --place L"), "ask --place \"Long Beach\" ") << "names as well";
    EXPECT_EQ(After(L"look \"house"), "look \"house") << "two ways to go on";
    EXPECT_EQ(SplitWords(FromUtf8(After(L"look it")))->back(), L"it's.dxf") << "as the prompt reads it";
}

TEST_F(Completing, LeavesOutWhatCannotBeTyped) {
    m_folder.Write("x\nline", "");
    m_folder.Write("x\x1b[31m", "");
    m_folder.Write("x\xff", "");
    m_folder.Write("x'\"", "");
    m_folder.Write("x plain", "");
    EXPECT_EQ(Choices(L"look x"), Words{"x plain"});
    EXPECT_EQ(FileNamesFrom(L"").size(), 5U) << "the hidden one is not among them";
    EXPECT_EQ(FileNamesFrom(L".").size(), 1U);
}

TEST_F(Completing, NamesNoFilesToShells) {
    EXPECT_TRUE(NamesFor({L"look", L"h"}).empty());
    EXPECT_EQ(NamesFor({L"look", L"--j"}), std::vector<CString>{L"--json"});
}

TEST_F(Completing, LeavesAnEmptyWordToShellsWhereAFileBelongs) {
    EXPECT_TRUE(NamesFor({L"look", L""}).empty());
    EXPECT_TRUE(NamesFor({L"look", L"--json", L"--place", L"here", L"--language", L"en", L""}).empty());
    EXPECT_TRUE(NamesFor({L"look", L"--write", L""}).empty());
    for (const std::vector<CString>& words : {std::vector<CString>{L"look", L"house.dxf", L""},
                                              {L"ask", L""},
                                              {L"look", L"--place=here", L"house.dxf", L"--json", L""}}) {
        const std::vector<CString> names = NamesFor(words);
        EXPECT_EQ(names.empty() ? CString() : names.front(), L"--write");
    }
}

TEST_F(Completing, KnowsTheProgramsOptionsWhereTheyAreTaken) {
    const std::vector<CString> names = NamesFor({L"ask", L"--"});
    for (const wchar_t* name : {L"--language", L"--plugin", L"--help"})
        EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << ToUtf8(name);
    const std::vector<std::string> atPrompt = Choices(L"ask --");
    EXPECT_EQ(std::count(atPrompt.begin(), atPrompt.end(), "--help"), 1);
    for (const char* name : {"--language", "--plugin"})
        EXPECT_EQ(std::count(atPrompt.begin(), atPrompt.end(), name), 0) << name;
}

TEST(LastWord, IsReadWithItsQuotes) {
    const auto check = [](const wchar_t* line, int start, const wchar_t* text, wchar_t quote, bool isBare) {
        const BegunWord word = LastWord(line);
        EXPECT_EQ(word.start, start) << ToUtf8(line);
        EXPECT_EQ(word.text, text) << ToUtf8(line);
        EXPECT_EQ(word.quote, quote) << ToUtf8(line);
        EXPECT_EQ(word.isBare, isBare) << ToUtf8(line);
    };
    check(L"", 0, L"", 0, true);
    check(L"a b", 2, L"b", 0, true);
    check(L"a b ", 4, L"", 0, true);
    check(L"a \"b c", 2, L"b c", L'"', false);
    check(L"a \"b c\"d", 2, L"b cd", 0, false);
    check(L"a 'b\" c", 2, L"b\" c", L'\'', false);
    check(L"a \"b c\" d", 8, L"d", 0, true);
}
