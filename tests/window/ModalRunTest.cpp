// Running a modal dialog of the toolkit: who answers, when, and what becomes of it.
#include "platform/window/toolkit/ModalRun.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QDialog>
#include <QGuiApplication>
#include <QPointer>
#include <QTimer>
#include <vector>

namespace {

struct Runs : testing::Test {
    Runs() { CanBeAnswered(); }  // starts the toolkit

    static constexpr int kUnknown = 4711;
    static constexpr int kRefused = 4712;
    std::vector<int> pressed;

    bool Run(QDialog* dialog) {
        return RunModal(dialog, {L"caption", L"text", nullptr, nullptr}, [this, dialog](int command) {
            pressed.push_back(command);
            if (command != kRefused)
                dialog->done(command);
            return command != kUnknown;
        });
    }
};

TEST_F(Runs, TheDriverIsAskedOnceInTheActiveWindow) {
    QDialog dialog;
    const ModalDriver driver([&](const ModalWindow& window) {
        EXPECT_EQ(window.widget, static_cast<QWidget*>(&dialog));
        EXPECT_TRUE(window.caption == L"caption");
        EXPECT_TRUE(window.text == L"text");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(dialog.isActiveWindow());
        return 7;
    });
    EXPECT_TRUE(Run(&dialog));
    EXPECT_EQ(pressed, std::vector<int>{7});
    EXPECT_EQ(dialog.result(), 7);
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST_F(Runs, NothingIsPressedInADialogThatIsOver) {
    QDialog dialog;
    const ModalDriver driver([&](const ModalWindow&) {
        dialog.done(3);
        return 7;
    });
    EXPECT_TRUE(Run(&dialog));
    EXPECT_EQ(dialog.result(), 3);
    EXPECT_TRUE(pressed.empty());
}

TEST_F(Runs, ACommandOfNothingLeavesTheDialogToItself) {
    QDialog dialog;
    const ModalDriver driver([&](const ModalWindow&) {
        QTimer::singleShot(0, &dialog, [&] { dialog.done(4); });
        return 0;
    });
    EXPECT_TRUE(Run(&dialog));
    EXPECT_EQ(dialog.result(), 4);
    EXPECT_TRUE(pressed.empty());
}

TEST_F(Runs, ACommandThatTheDialogDoesNotKnowIsAMistake) {
    QDialog dialog;
    const ModalDriver driver([&](const ModalWindow&) { return kUnknown; });
    EXPECT_NONFATAL_FAILURE(Run(&dialog), "the window \"caption\" knows nothing of the command 4711");
    EXPECT_EQ(pressed, std::vector<int>{kUnknown});
}

TEST_F(Runs, ACommandThatLeavesTheDialogOpenIsAMistake) {
    QDialog dialog;
    const ModalDriver driver([&](const ModalWindow&) { return kRefused; });
    EXPECT_NONFATAL_FAILURE(Run(&dialog), "the command 4712 did not end the window \"caption\"");
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(Runs, ADialogThatIsDestroyedIsOver) {
    auto* dialog = new QDialog;
    const ModalDriver driver([&](const ModalWindow&) {
        delete dialog;
        return 7;
    });
    EXPECT_FALSE(Run(dialog));
    EXPECT_TRUE(pressed.empty());
}

TEST_F(Runs, TheNewestDriverAnswersADialogOverAnother) {
    QDialog outer;
    const ModalDriver driver([&](const ModalWindow&) {
        QDialog inner;
        const ModalDriver newer([](const ModalWindow&) { return 2; });
        EXPECT_TRUE(Run(&inner));
        EXPECT_EQ(inner.result(), 2);
        return 1;
    });
    EXPECT_TRUE(Run(&outer));
    EXPECT_EQ(pressed, (std::vector<int>{2, 1}));
}

TEST_F(Runs, WithoutADisplaySomebodyHasToBeThere) {
    ASSERT_EQ(QGuiApplication::platformName(), "offscreen");
    EXPECT_FALSE(CanBeAnswered());
    const ModalDriver driver([](const ModalWindow&) { return 0; });
    EXPECT_TRUE(CanBeAnswered());
}

}  // namespace
