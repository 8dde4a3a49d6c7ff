// Who answers a modal window, and that every answer ends it.
#include "platform/window/ModalDriver.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <memory>
#include <stdexcept>

#include "platform/window/MessageBox.h"
#include "window/BoxOf.h"

namespace {

int Ask(UINT type) {
    return MessageBox(nullptr, L"text", L"caption", type);
}

TEST(ModalDriver, TheNewestAnswersAndTheOneBeforeComesBack) {
    const ModalDriver outer([](const ModalWindow&) { return IDYES; });
    {
        const ModalDriver inner([](const ModalWindow&) { return IDNO; });
        EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", MB_YESNO), IDNO);
        EXPECT_EQ(inner.GetCount(), 1);
    }
    EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", MB_YESNO), IDYES);
    EXPECT_EQ(outer.GetCount(), 1);
    EXPECT_TRUE(ModalDriver::IsThere());
}

TEST(ModalDriver, ABoxMayOpenAnother) {
    int depth = 0;
    const ModalDriver driver([&](const ModalWindow&) {
        if (++depth == 1)
            EXPECT_EQ(MessageBox(nullptr, L"inner", L"caption", MB_YESNO), IDNO);
        return depth-- == 1 ? IDYES : IDNO;
    });
    EXPECT_EQ(MessageBox(nullptr, L"outer", L"caption", MB_YESNO), IDYES);
    EXPECT_EQ(driver.GetCount(), 2);
}

TEST(ModalDriver, AnAnswerWithoutAButtonArrives) {
    for (const int answer : {int{IDCANCEL}, 77, -2}) {
        const ModalDriver driver([answer](const ModalWindow&) { return answer; });
        EXPECT_EQ(Ask(MB_YESNO), answer);
        EXPECT_EQ(Ask(MB_OK), answer);
    }
}

TEST(ModalDriver, MayLeaveABoxToItsCarefulAnswer) {
    const ModalDriver driver([](const ModalWindow&) { return ModalDriver::kCareful; });
    EXPECT_EQ(Ask(MB_OK), IDOK);
    EXPECT_EQ(Ask(MB_YESNO), IDNO);
    EXPECT_EQ(Ask(MB_YESNOCANCEL), IDCANCEL);
}

TEST(ModalDriver, AnAnswerThatThrowsFailsTheTestAndIsTheCarefulOne) {
    const ModalDriver driver([](const ModalWindow&) -> int { throw std::runtime_error("no such control"); });
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Ask(MB_YESNO), IDNO), "its answer threw: no such control");
    const ModalDriver odd([](const ModalWindow&) -> int { throw 1; });
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Ask(MB_YESNO), IDNO), "its answer threw");
}

TEST(ModalDriver, AMistakeThatNobodyIsToldOfEndsTheProgram) {
    const auto throwAlone = [] {
        ModalDriver::SetMistakeHandler(nullptr);
        const ModalDriver driver([](const ModalWindow&) -> int { throw std::runtime_error("no such control"); });
        ModalDriver::Ask({});
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // the toolkit has threads, which no fork takes along
    EXPECT_DEATH(throwAlone(), "a mistake: its answer threw: no such control");
}

TEST(ModalDriver, IsAskedWhenTheBoxIsShownAndActive) {
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_TRUE(BoxOf(window)->isVisible());
        EXPECT_TRUE(BoxOf(window)->isActiveWindow());
        EXPECT_TRUE(BoxOf(window)->isModal());
        return IDOK;
    });
    EXPECT_EQ(Ask(MB_OK), IDOK);
    EXPECT_EQ(driver.GetCount(), 1) << "once, however long the box takes to show";
}

TEST(ModalDriver, PressesTheButtonOfItsCommand) {
    for (const int command : {IDYES, IDNO, IDCANCEL}) {
        const ModalDriver driver([=](const ModalWindow&) { return command; });
        EXPECT_EQ(Ask(MB_YESNOCANCEL), command);
    }
}

TEST(ModalDriver, ACommandDoesNotTakeBackWhatTheKeysAnswered) {
    const ModalDriver clicks([](const ModalWindow& window) {
        BoxOf(window)->findChild<QPushButton*>("ID_6")->click();
        return IDNO;
    });
    EXPECT_EQ(Ask(MB_YESNO), IDYES);
    const ModalDriver escapes([](const ModalWindow& window) {
        QTest::keyClick(BoxOf(window), Qt::Key_Escape);
        return IDYES;
    });
    EXPECT_EQ(Ask(MB_YESNOCANCEL), IDCANCEL);
}

TEST(ModalDriver, NestedBoxesAreAnsweredByTheDriverMadeInside) {
    int inner = 0;
    const ModalDriver driver([&](const ModalWindow&) {
        const ModalDriver second([](const ModalWindow&) { return IDCANCEL; });
        inner = Ask(MB_OKCANCEL);
        EXPECT_EQ(second.GetCount(), 1);
        return IDYES;
    });
    EXPECT_EQ(Ask(MB_YESNO), IDYES);
    EXPECT_EQ(inner, IDCANCEL);
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST(ModalDriver, AnAnswerThatThrowsLeavesTheOuterBoxToBeAnswered) {
    const ModalDriver driver([](const ModalWindow&) {
        const ModalDriver throwing([](const ModalWindow&) -> int { throw 1; });
        EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Ask(MB_YESNOCANCEL), IDCANCEL), "its answer threw");
        return IDYES;
    });
    EXPECT_EQ(Ask(MB_YESNO), IDYES);
}

TEST(ModalDriver, WithoutAFunctionItIsAMistake) {
    const ModalDriver driver{ModalDriver::Answer()};
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Ask(MB_YESNO), IDNO), "its answer threw");
}

TEST(ModalDriver, MayGoBeforeTheDriversMadeAfterIt) {
    auto first = std::make_unique<ModalDriver>([](const ModalWindow&) { return IDNO; });
    auto second = std::make_unique<ModalDriver>([](const ModalWindow&) { return IDYES; });
    first.reset();
    EXPECT_EQ(Ask(MB_YESNO), IDYES);
    second.reset();
    EXPECT_FALSE(ModalDriver::IsThere());
    EXPECT_EQ(ModalDriver::Ask({}), 0);
}

TEST(ModalDriver, MayGoWhileItAnswers) {
    std::unique_ptr<ModalDriver> driver;
    volatile int command = IDYES;
    int answer = command;  // nothing that a compiler could know, so that it is read where the driver keeps it
    driver = std::make_unique<ModalDriver>([&driver, answer](const ModalWindow&) {
        driver.reset();
        return answer;
    });
    EXPECT_EQ(Ask(MB_YESNO), IDYES);
    EXPECT_FALSE(ModalDriver::IsThere());
}

}  // namespace
