// The table of subcommands: what it takes, what it refuses, and whose rows they are.
#include "platform/host/Subcommands.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/base/Message.h"
#include "platform/host/ModuleLoader.h"
#include "platform/host/RxRegistry.h"
#include "support/Folders.h"

namespace {

int g_first = 0;
int g_second = 0;
void* const kFirst = &g_first;
void* const kSecond = &g_second;

Subcommand Row(const wchar_t* name, std::vector<SubcommandOption> options = {}) {
    Subcommand row;
    row.name = name;
    row.options = std::move(options);
    row.run = [](SubcommandCall&) { return 0; };
    return row;
}

class SubcommandRows : public testing::Test {
protected:
    bool Add(const Subcommand& row, void* owner = kFirst) { return m_table.Add(row, owner, m_reason); }
    std::string Reason() const { return ToUtf8(m_reason.View()); }
    std::string Names() const {
        std::string names;
        for (const Subcommand* row : m_table.GetAll())
            names += ToUtf8(row->name.View()) + ";";
        return names;
    }
    // Whether a row with this option is taken.
    bool Takes(const wchar_t* option, int count = 1) {
        SubcommandTable table;
        return table.Add(Row(L"row", {ValuesOption(option, count, L"", L"")}), kFirst, m_reason);
    }

    SubcommandTable m_table;
    CString m_reason;
};

TEST_F(SubcommandRows, StandInTheOrderOfTheirComing) {
    EXPECT_TRUE(Add(Row(L"sun"), kSecond));
    EXPECT_TRUE(Add(Row(L"moon-2")));
    EXPECT_TRUE(Add(Row(L"Air")));
    EXPECT_EQ(Names(), "sun;moon-2;Air;");
    ASSERT_NE(m_table.Find(L"moon-2"), nullptr);
    EXPECT_EQ(m_table.Find(L"moon-2")->name, L"moon-2");
    EXPECT_EQ(m_table.Find(L"air"), nullptr) << "found by the exact name";
    EXPECT_EQ(m_table.Find(nullptr), nullptr);
}

TEST_F(SubcommandRows, HaveNamesThatAreWords) {
    for (const wchar_t* name : {L"", L"two words", L"-sun", L"2sun", L"sun=1", L"太阳", L"sun\n", L"_sun"}) {
        EXPECT_FALSE(Add(Row(name))) << ToUtf8(name);
        EXPECT_FALSE(m_reason.IsEmpty());
    }
    EXPECT_EQ(Names(), "");
}

TEST_F(SubcommandRows, LeaveTheProgramItsOwnWords) {
    for (const wchar_t* name : {L"help", L"quit", L"exit", L"orvo", L"Help"}) {
        EXPECT_FALSE(Add(Row(name))) << ToUtf8(name);
        EXPECT_NE(Reason().find(ToUtf8(name)), std::string::npos) << Reason();
    }
}

TEST_F(SubcommandRows, HaveNamesOfTheirOwn) {
    EXPECT_TRUE(Add(Row(L"sun")));
    EXPECT_FALSE(Add(Row(L"sun")));
    EXPECT_NE(Reason().find("sun"), std::string::npos) << Reason();
    EXPECT_FALSE(Add(Row(L"SUN"), kSecond));
    EXPECT_EQ(Names(), "sun;");
    EXPECT_TRUE(Add(Row(L"sun-day"), kSecond));
    EXPECT_TRUE(m_reason.IsEmpty()) << "the reason of before is gone";
}

TEST_F(SubcommandRows, HaveSomethingToRunAndAnOwner) {
    Subcommand row = Row(L"sun");
    EXPECT_FALSE(Add(row, nullptr));
    EXPECT_FALSE(m_reason.IsEmpty());
    row.run = nullptr;
    EXPECT_FALSE(Add(row));
    EXPECT_FALSE(m_reason.IsEmpty());
    EXPECT_EQ(Names(), "");
}

TEST_F(SubcommandRows, HaveOptionsThatCanBeTyped) {
    for (const wchar_t* name : {L"--place", L"-o,--output", L"FILE", L"FILE-2", L"--a1"})
        EXPECT_TRUE(Takes(name)) << ToUtf8(name) << Reason();
    for (const wchar_t* name :
         {L"", L"-", L"--", L"-o", L"--x", L"-out,--output", L"-o,output", L"--output,-o", L"-1,--one",
          L"-o,--output,--out", L"file", L"--a b", L"--a=b", L"--输出", L"-o,", L",--output"})
        EXPECT_FALSE(Takes(name)) << ToUtf8(name);
}

TEST_F(SubcommandRows, HaveOptionsThatAreNotTheProgramsOwn) {
    for (const wchar_t* name : {L"--help", L"--version", L"--language", L"--plugin", L"-h,--hidden"}) {
        EXPECT_FALSE(Takes(name)) << ToUtf8(name);
        EXPECT_FALSE(m_reason.IsEmpty());
    }
    EXPECT_FALSE(Add(Row(L"sun", {FlagOption(L"--all", L""), ValueOption(L"--all", L"", L"")})));
    EXPECT_FALSE(Add(Row(L"sun", {FlagOption(L"-a,--all", L""), FlagOption(L"-a,--any", L"")})));
    EXPECT_FALSE(Add(Row(L"sun", {ValueOption(L"FILE", L"", L""), ValueOption(L"FILE", L"", L"")})));
    EXPECT_TRUE(Add(Row(L"sun", {FlagOption(L"-a,--all", L""), FlagOption(L"-A,--ALL", L"")}))) << Reason();
}

TEST_F(SubcommandRows, HaveCountsThatMakeSense) {
    for (const int count : {SubcommandOption::kMany, SubcommandOption::kFlag, 1, 2, 16})
        EXPECT_TRUE(Takes(L"--value", count)) << count;
    EXPECT_FALSE(Takes(L"--value", -2));
    EXPECT_TRUE(Takes(L"FILE", SubcommandOption::kMany));
    for (const int count : {SubcommandOption::kFlag, 2, -2})
        EXPECT_FALSE(Takes(L"FILE", count)) << count;
}

TEST_F(SubcommandRows, HaveNothingBehindWhatTakesAll) {
    const SubcommandOption all = ValuesOption(L"FILES", SubcommandOption::kMany, L"", L"");
    EXPECT_FALSE(Add(Row(L"sun", {all, ValueOption(L"LAST", L"", L"")})));
    EXPECT_TRUE(Add(Row(L"sun", {ValueOption(L"FIRST", L"", L""), all, FlagOption(L"--all", L"")}))) << Reason();
}

TEST_F(SubcommandRows, NameTheirOptions) {
    EXPECT_EQ(FlagOption(L"-o,--output", L"").GetNames(), (std::vector<CString>{L"-o", L"--output"}));
    EXPECT_EQ(FlagOption(L"--output", L"").GetNames(), std::vector<CString>{L"--output"});
    EXPECT_TRUE(ValueOption(L"FILE", L"", L"").IsPositional());
    EXPECT_FALSE(FlagOption(L"-o,--output", L"").IsPositional());
}

TEST_F(SubcommandRows, AreRemovedByTheirOwner) {
    ASSERT_TRUE(Add(Row(L"sun")) && Add(Row(L"moon"), kSecond) && Add(Row(L"air")));
    EXPECT_FALSE(m_table.Remove(L"moon", kFirst)) << "somebody else's";
    EXPECT_FALSE(m_table.Remove(L"wind", kFirst));
    EXPECT_TRUE(m_table.Remove(L"sun", kFirst));
    EXPECT_FALSE(m_table.Remove(L"sun", kFirst));
    EXPECT_EQ(Names(), "moon;air;");
    EXPECT_TRUE(Add(Row(L"sun"), kSecond)) << "the name is free again";
    m_table.Forget(kSecond);
    EXPECT_EQ(Names(), "air;");
    m_table.Forget(nullptr);
    EXPECT_EQ(Names(), "air;");
}

TEST(HostSubcommandTable, IsAlwaysTheSame) {
    EXPECT_EQ(&HostSubcommands(), &HostSubcommands());
}

// The libraries of tests/host/plugin.
CString TestPlugIn(const char* name) {
    return FromUtf8(BuildFolder() + "/lib/test-plugins/" + name);
}

TEST(RowsOfAPlugIn, GoWithItWhenItForgotThem) {
    ModuleLoader loader;
    CString error;
    ASSERT_TRUE(loader.Load(TestPlugIn("plugin-rows.so"), error)) << ToUtf8(error.View());
    ASSERT_NE(HostSubcommands().Find(L"left-behind"), nullptr);
    ASSERT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone);
    EXPECT_EQ(HostSubcommands().Find(L"left-behind"), nullptr);
}

// Their functions are no longer in memory: whoever ran them would end the program.
TEST(CommandsOfAPlugIn, GoWithItWhenItForgotThem) {
    ModuleLoader loader;
    CString error;
    HostCommandStack().addCommand(L"own", L"stays", 0, [] {});
    ASSERT_TRUE(loader.Load(TestPlugIn("plugin-rows.so"), error)) << ToUtf8(error.View());
    ASSERT_NE(HostCommandStack().lookupCmd(L"left-behind"), nullptr);
    ASSERT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone);
    EXPECT_EQ(HostCommandStack().lookupCmd(L"left-behind"), nullptr);
    EXPECT_NE(HostCommandStack().lookupCmd(L"stays"), nullptr);
    HostCommandStack().removeGroup(L"own");
}

TEST(CommandsOfAPlugIn, GoWithItWhenItRefusesToBeInitialised) {
    ModuleLoader loader;
    CString error;
    EXPECT_FALSE(loader.Load(TestPlugIn("plugin-rows-failing.so"), error));
    EXPECT_EQ(HostCommandStack().lookupCmd(L"left-behind"), nullptr);
}

TEST(RowsOfAPlugIn, GoWithItWhenItRefusesToBeInitialised) {
    ModuleLoader loader;
    CString error;
    EXPECT_FALSE(loader.Load(TestPlugIn("plugin-rows-failing.so"), error));
    EXPECT_EQ(HostSubcommands().Find(L"left-behind"), nullptr);
}

class ReportedMessages {
public:
    ReportedMessages() { SetMessageSink(Take, &m_text); }
    ~ReportedMessages() { SetMessageSink(nullptr, nullptr); }
    ReportedMessages(const ReportedMessages&) = delete;
    ReportedMessages& operator=(const ReportedMessages&) = delete;
    const std::string& Text() const { return m_text; }

private:
    static void Take(const wchar_t* text, void* context) { *static_cast<std::string*>(context) += ToUtf8(text); }
    std::string m_text;
};

TEST(APlugInThatThrows, IsNotLoaded) {
    const ReportedMessages messages;
    ModuleLoader loader;
    CString error;
    EXPECT_FALSE(loader.Load(TestPlugIn("plugin-throwing.so"), error));
    EXPECT_NE(ToUtf8(error.View()).find("plugin-throwing.so"), std::string::npos);
    EXPECT_NE(ToUtf8(error.View()).find("thrown at the host"), std::string::npos) << ToUtf8(error.View());
    EXPECT_EQ(messages.Text(), "") << "once is enough";
    EXPECT_EQ(HostSubcommands().Find(L"left-behind"), nullptr);
}

TEST(APlugInThatThrows, IsUnloadedAllTheSame) {
    const ReportedMessages messages;
    ModuleLoader loader;
    CString error;
    ASSERT_TRUE(loader.Load(TestPlugIn("plugin-rows.so"), error)) << ToUtf8(error.View());
    EXPECT_EQ(loader.Send(99), AcRx::kRetError) << "throws a number";
    EXPECT_NE(messages.Text().find("plugin-rows.so”处理消息 99 时抛出错误："), std::string::npos) << messages.Text();
    EXPECT_EQ(loader.Unload(), ModuleLoader::Unloaded::Gone);
}

}  // namespace
