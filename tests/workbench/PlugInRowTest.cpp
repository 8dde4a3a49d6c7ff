// A subcommand that somebody brings while the window is open: the command line of the window takes it like the others.
#include <stdexcept>

#include "platform/host/ExitCode.h"
#include "platform/host/Output.h"
#include "platform/host/Progress.h"
#include "workbench/WindowStage.h"

namespace {

class RowInTheWindow : public WindowStage {
protected:
    void SetUp() override {
        WindowStage::SetUp();
        Subcommand row;
        row.name = L"twilight";
        row.options = {ValueOption(L"--kind", L"NAME", L"which one", [] { return std::vector<CString>{L"nautical"}; })};
        row.run = [this, end = CString(L"that was twilight")](SubcommandCall& call) {
            const int code = Run(call);
            call.GetOutput().Line(end);  // what runs is still there, whatever it did to the table
            return code;
        };
        CString reason;
        ASSERT_TRUE(HostSubcommands().Add(row, &m_owner, reason)) << ToUtf8(reason.View());
    }
    void TearDown() override {
        HostSubcommands().Forget(&m_owner);
        WindowStage::TearDown();
    }
    int Run(SubcommandCall& call) {
        const CString kind = call.GetValue(L"--kind").value_or(L"civil");
        call.GetOutput().Line(L"the kind is " + kind);
        if (kind == L"none")
            throw std::runtime_error("thrown by a row");
        m_goesOn = call.GetProgress().Show(1, 2, L"part %d of %d");
        if (kind == L"last")
            HostSubcommands().Forget(&m_owner);
        return kExitOk;
    }
    void PressTab() const { QTest::keyClick(Edit(), Qt::Key_Tab); }

    int m_owner = 0;
    bool m_goesOn = false;
};

TEST_F(RowInTheWindow, AnswersInTheLog) {
    Type("twilight");
    EXPECT_TRUE(HasLogged("the kind is civil")) << Log();
    EXPECT_TRUE(m_goesOn) << "nothing in the window stops it";
}

TEST_F(RowInTheWindow, IsCompleted) {
    Edit()->setFocus();
    Edit()->insert("twi");
    PressTab();
    Edit()->insert("--k");
    PressTab();
    PressTab();
    EXPECT_EQ(Edit()->text().toStdString(), "twilight --kind nautical ");
    QTest::keyClick(Edit(), Qt::Key_Return);
    EXPECT_TRUE(HasLogged("the kind is nautical")) << Log();
}

TEST_F(RowInTheWindow, MayFail) {
    Type("twilight --kind none");
    EXPECT_TRUE(HasLogged("内部错误：thrown by a row")) << Log();
    EXPECT_FALSE(HasLogged("the kind is none")) << Log();
    Type("twilight");
    EXPECT_TRUE(HasLogged("the kind is civil")) << Log();
}

TEST_F(RowInTheWindow, MayTakeItselfAway) {
    Type("twilight --kind last");
    EXPECT_TRUE(HasLogged("the kind is last\nthat was twilight")) << Log();
    Type("twilight");
    EXPECT_TRUE(HasLogged("没有子命令“twilight”")) << Log();
}

}  // namespace
