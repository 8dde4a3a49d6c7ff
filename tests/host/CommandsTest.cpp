// Command groups, and defining one from a table.
#include "platform/host/Commands.h"

#include <gtest/gtest.h>

#include "platform/host/CommandStack.h"
#include "platform/host/RxRegistry.h"

namespace {

int g_runs = 0;

void RunOne() {
    g_runs += 1;
}

void RunTen() {
    g_runs += 10;
}

TEST(CommandStack, KeepsGroupsAndCommandsInTheirOrder) {
    AcEdCommandStack stack;
    EXPECT_EQ(stack.addCommand(L"B", L"two", 0, RunTen), Acad::eOk);
    EXPECT_EQ(stack.addGroup(L"A"), Acad::eOk);
    EXPECT_EQ(stack.addCommand(L"B", L"one", 5, RunOne), Acad::eOk);
    ASSERT_EQ(stack.groupCount(), 2);
    EXPECT_EQ(stack.groupName(0), L"B");
    EXPECT_EQ(stack.groupName(1), L"A");
    EXPECT_EQ(stack.commandCount(L"A"), 0);
    ASSERT_EQ(stack.commandCount(L"B"), 2);
    EXPECT_EQ(stack.commandAt(L"B", 0)->name, L"two");
    EXPECT_EQ(stack.commandAt(L"B", 1)->name, L"one");
    EXPECT_EQ(stack.commandAt(L"B", 1)->flags, 5);
    EXPECT_EQ(stack.commandAt(L"B", 1)->function, RunOne);
}

TEST(CommandStack, GivesNothingOutOfRange) {
    AcEdCommandStack stack;
    stack.addCommand(L"A", L"one", 0, RunOne);
    for (const int index : {-1, 1, 1000}) {
        EXPECT_TRUE(stack.groupName(index).IsEmpty());
        EXPECT_EQ(stack.commandAt(L"A", index), nullptr);
    }
    EXPECT_EQ(stack.commandAt(L"unknown", 0), nullptr);
    EXPECT_EQ(stack.commandCount(L"unknown"), 0);
    EXPECT_EQ(stack.commandCount(nullptr), 0);
    EXPECT_FALSE(stack.hasGroup(nullptr));
    EXPECT_EQ(stack.lookupCmd(nullptr), nullptr);
    EXPECT_EQ(stack.lookupCmd(L""), nullptr);
}

TEST(CommandStack, ComparesNamesWithoutCase) {
    AcEdCommandStack stack;
    stack.addCommand(L"Group", L"Command", 0, RunOne);
    stack.addCommand(L"GROUP", L"COMMAND", 0, RunTen);
    EXPECT_TRUE(stack.hasGroup(L"group"));
    EXPECT_EQ(stack.groupCount(), 1);
    EXPECT_EQ(stack.commandCount(L"group"), 1);
    ASSERT_NE(stack.lookupCmd(L"command"), nullptr);
    EXPECT_EQ(stack.lookupCmd(L"command")->function, RunTen);  // replaced
    EXPECT_EQ(stack.lookupCmd(L"command")->name, L"COMMAND");
}

TEST(CommandStack, LooksACommandUpInTheEarliestGroup) {
    AcEdCommandStack stack;
    stack.addCommand(L"First", L"same", 0, RunOne);
    stack.addCommand(L"Second", L"same", 0, RunTen);
    stack.addCommand(L"Second", L"other", 0, RunTen);
    EXPECT_EQ(stack.lookupCmd(L"same")->function, RunOne);
    EXPECT_EQ(stack.lookupCmd(L"other")->function, RunTen);
    EXPECT_EQ(stack.lookupCmd(L"none"), nullptr);
    EXPECT_EQ(stack.removeGroup(L"First"), Acad::eOk);
    EXPECT_EQ(stack.lookupCmd(L"same")->function, RunTen);
}

TEST(CommandStack, RemovesAGroupWithItsCommands) {
    AcEdCommandStack stack;
    stack.addCommand(L"A", L"one", 0, RunOne);
    stack.addCommand(L"B", L"two", 0, RunTen);
    EXPECT_EQ(stack.removeGroup(L"a"), Acad::eOk);
    EXPECT_FALSE(stack.hasGroup(L"A"));
    EXPECT_EQ(stack.lookupCmd(L"one"), nullptr);
    EXPECT_NE(stack.lookupCmd(L"two"), nullptr);
    EXPECT_EQ(stack.removeGroup(L"A"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.removeGroup(nullptr), Acad::eKeyNotFound);
}

TEST(CommandStack, ForgetsTheCommandsOfAFunctionInEveryGroup) {
    AcEdCommandStack stack;
    stack.addCommand(L"A", L"one", 0, RunOne);
    stack.addCommand(L"A", L"ten", 0, RunTen);
    stack.addCommand(L"B", L"also one", 0, RunOne);
    stack.forget([](AcRxFunctionPtr function) { return function == RunOne; });
    EXPECT_EQ(stack.lookupCmd(L"one"), nullptr);
    EXPECT_EQ(stack.lookupCmd(L"also one"), nullptr);
    EXPECT_NE(stack.lookupCmd(L"ten"), nullptr);
    EXPECT_TRUE(stack.hasGroup(L"B"));
}

TEST(CommandStack, RefusesWhatIsIncomplete) {
    AcEdCommandStack stack;
    EXPECT_EQ(stack.addGroup(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(stack.addGroup(L""), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"A", nullptr, 0, RunOne), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"A", L"", 0, RunOne), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"A", L"one", 0, nullptr), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(nullptr, L"one", 0, RunOne), Acad::eInvalidInput);
    EXPECT_EQ(stack.groupCount(), 0);
}

class DefineCommand : public testing::Test {
protected:
    void TearDown() override { HostCommandStack().removeGroup(L"Test"); }
};

TEST_F(DefineCommand, RegistersTheRowsOfTheTable) {
    const QcCmdTable table[] = {{L"One", RunOne, 0}, {L"Ten", RunTen, 0}, {L"Beyond", RunOne, 0}};
    EXPECT_TRUE(QcDefineCommand(L"Test", table, 2, 3));
    ASSERT_EQ(HostCommandStack().commandCount(L"Test"), 2);
    EXPECT_EQ(HostCommandStack().commandAt(L"Test", 0)->name, L"One");
    EXPECT_EQ(HostCommandStack().commandAt(L"Test", 1)->flags, 3);
    g_runs = 0;
    HostCommandStack().lookupCmd(L"ten")->function();
    HostCommandStack().lookupCmd(L"ONE")->function();
    EXPECT_EQ(g_runs, 11);
}

TEST_F(DefineCommand, RegistersAnEmptyGroupWithoutATable) {
    EXPECT_TRUE(QcDefineCommand(L"Test", nullptr, 0, 0));
    EXPECT_TRUE(HostCommandStack().hasGroup(L"Test"));
    EXPECT_EQ(HostCommandStack().commandCount(L"Test"), 0);
    EXPECT_TRUE(QcDefineCommand(L"Test", nullptr, 5, 0));
    const QcCmdTable table[] = {{L"One", RunOne, 0}};
    EXPECT_TRUE(QcDefineCommand(L"Test", table, -1, 0));
    EXPECT_EQ(HostCommandStack().commandCount(L"Test"), 0);
}

TEST_F(DefineCommand, CopiesTheTexts) {
    wchar_t name[] = L"One";
    const QcCmdTable table[] = {{name, RunOne, 0}};
    ASSERT_TRUE(QcDefineCommand(L"Test", table, 1, 0));
    name[0] = L'X';
    EXPECT_NE(HostCommandStack().lookupCmd(L"One"), nullptr);
}

TEST_F(DefineCommand, PassesOverIncompleteRowsAndSaysSo) {
    const QcCmdTable table[] = {{nullptr, RunOne, 0}, {L"Ten", nullptr, 0}, {L"One", RunOne, 0}};
    EXPECT_FALSE(QcDefineCommand(L"Test", table, 3, 0));
    ASSERT_EQ(HostCommandStack().commandCount(L"Test"), 1);
    EXPECT_EQ(HostCommandStack().commandAt(L"Test", 0)->name, L"One");
}

TEST_F(DefineCommand, RegistersNothingWithoutAGroup) {
    const int before = HostCommandStack().groupCount();
    const QcCmdTable table[] = {{L"One", RunOne, 0}};
    EXPECT_FALSE(QcDefineCommand(nullptr, table, 1, 0));
    EXPECT_FALSE(QcDefineCommand(L"", table, 1, 0));
    EXPECT_EQ(HostCommandStack().groupCount(), before);
    EXPECT_EQ(HostCommandStack().lookupCmd(L"One"), nullptr);
}

}  // namespace
