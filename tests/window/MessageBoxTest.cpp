// Message boxes as a person answers them: with keys in a real box.
#include "platform/window/MessageBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <clocale>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/window/ModalDriver.h"
#include "support/Recorder.h"
#include "support/TableSwitch.h"

namespace {

QMessageBox* BoxOf(const ModalWindow& window) {
    return static_cast<QMessageBox*>(static_cast<QWidget*>(window.widget));
}

// The answer to a box in which this key is struck.
int AfterKey(UINT type, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const ModalDriver driver([=](const ModalWindow& window) {
        QTest::keyClick(BoxOf(window), key, modifiers);
        return 0;
    });
    return MessageBox(nullptr, L"text", L"caption", type);
}

// Whether a key leaves the box open (it is answered by a command then).
bool LeavesOpen(UINT type, Qt::Key key) {
    bool isOpen = false;
    const ModalDriver driver([&](const ModalWindow& window) {
        QTest::keyClick(BoxOf(window), key);
        isOpen = BoxOf(window)->isVisible();
        return static_cast<int>((type & 0xF) == MB_YESNO ? IDNO : IDOK);
    });
    MessageBox(nullptr, L"text", L"caption", type);
    return isOpen;
}

TEST(MessageBox, GivesTheButtonThatIsPressed) {
    struct Case {
        UINT type;
        std::vector<int> commands;
    };
    const Case cases[] = {{MB_OK, {IDOK}},
                          {MB_OKCANCEL, {IDOK, IDCANCEL}},
                          {MB_YESNO, {IDYES, IDNO}},
                          {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}}};
    for (const Case& each : cases) {
        for (const int command : each.commands) {
            qsizetype buttons = 0;
            const ModalDriver driver([&](const ModalWindow& window) {
                buttons = BoxOf(window)->buttons().size();
                QTest::mouseClick(BoxOf(window)->findChild<QPushButton*>(QString("ID_%1").arg(command)),
                                  Qt::LeftButton);
                return 0;
            });
            EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", each.type), command);
            EXPECT_EQ(buttons, static_cast<qsizetype>(each.commands.size()));
        }
    }
}

TEST(MessageBox, EnterPressesTheDefaultButton) {
    EXPECT_EQ(AfterKey(MB_YESNO, Qt::Key_Return), IDYES);
    EXPECT_EQ(AfterKey(MB_YESNO | MB_DEFBUTTON2, Qt::Key_Return), IDNO);
    EXPECT_EQ(AfterKey(MB_YESNOCANCEL | MB_DEFBUTTON3, Qt::Key_Return), IDCANCEL);
    EXPECT_EQ(AfterKey(MB_OK | MB_DEFBUTTON3, Qt::Key_Return), IDOK) << "there is no third button";
    EXPECT_EQ(AfterKey(MB_OKCANCEL, Qt::Key_Return), IDOK);
}

TEST(MessageBox, LettersAnswerWithAndWithoutAlt) {
    EXPECT_EQ(AfterKey(MB_YESNO, Qt::Key_Y), IDYES);
    EXPECT_EQ(AfterKey(MB_YESNO, Qt::Key_N), IDNO);
    EXPECT_EQ(AfterKey(MB_YESNO, Qt::Key_N, Qt::ShiftModifier), IDNO);
    EXPECT_EQ(AfterKey(MB_YESNO, Qt::Key_N, Qt::AltModifier), IDNO);
    EXPECT_TRUE(LeavesOpen(MB_YESNO, Qt::Key_X));
}

TEST(MessageBox, EscapeCancelsWhereThatIsAnAnswer) {
    EXPECT_EQ(AfterKey(MB_OKCANCEL, Qt::Key_Escape), IDCANCEL);
    EXPECT_EQ(AfterKey(MB_YESNOCANCEL, Qt::Key_Escape), IDCANCEL);
    EXPECT_EQ(AfterKey(MB_OK, Qt::Key_Escape), IDOK);
    EXPECT_TRUE(LeavesOpen(MB_YESNO, Qt::Key_Escape));
}

TEST(MessageBox, TheCloseButtonDoesWhatEscapeDoes) {
    const auto afterClosing = [](UINT type) {
        const ModalDriver driver([](const ModalWindow& window) {
            BoxOf(window)->close();
            return BoxOf(window)->isVisible() ? IDYES : 0;
        });
        return MessageBox(nullptr, L"text", L"caption", type);
    };
    EXPECT_EQ(afterClosing(MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(afterClosing(MB_OK), IDOK);
    EXPECT_EQ(afterClosing(MB_YESNO), IDYES) << "it stayed open and was answered";
}

TEST(MessageBox, ShowsTextAndCaptionAsTheyAre) {
    QString text;
    QString caption;
    const ModalDriver driver([&](const ModalWindow& window) {
        EXPECT_TRUE(window.text == L"<b>太阳</b>\n& more");
        EXPECT_TRUE(window.caption == L"自动录像");
        text = BoxOf(window)->text();
        caption = BoxOf(window)->windowTitle();
        EXPECT_EQ(BoxOf(window)->textFormat(), Qt::PlainText);
        return IDOK;
    });
    MessageBox(nullptr, L"<b>太阳</b>\n& more", L"自动录像", MB_OK);
    EXPECT_EQ(text.remove(QChar(0x200B)).toStdString(), "<b>太阳</b>\n& more");
    EXPECT_EQ(caption.toStdString(), "自动录像");
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST(MessageBox, ShowsTheIconAskedFor) {
    const std::pair<UINT, QMessageBox::Icon> icons[] = {{0, QMessageBox::NoIcon},
                                                        {MB_ICONSTOP, QMessageBox::Critical},
                                                        {MB_ICONQUESTION, QMessageBox::Question},
                                                        {MB_ICONEXCLAMATION, QMessageBox::Warning},
                                                        {MB_ICONINFORMATION, QMessageBox::Information}};
    for (const auto& [bits, icon] : icons) {
        const ModalDriver driver([&, wanted = icon](const ModalWindow& window) {
            EXPECT_EQ(BoxOf(window)->icon(), wanted);
            return IDOK;
        });
        MessageBox(nullptr, L"text", L"caption", MB_OK | bits);
    }
}

TEST(MessageBox, ALongPathStaysWithinTheScreen) {
    std::wstring path = L"C:";
    for (int i = 0; i < 60; ++i)
        path += L"\\一个很长的文件夹名";
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_LE(BoxOf(window)->width(), BoxOf(window)->screen()->availableGeometry().width());
        return IDOK;
    });
    MessageBox(nullptr, path.c_str(), L"caption", MB_OK);
}

TEST(MessageBox, CaptionsOfButtonsAreTranslated) {
    const TableSwitch english({{L"是(&Y)", L"&Sure"}, {L"否(&N)", L"&Never"}});
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(BoxOf(window)->findChild<QPushButton*>("ID_6")->text().toStdString(), "&Sure");
        EXPECT_EQ(BoxOf(window)->findChild<QPushButton*>("ID_7")->accessibleName().toStdString(), "Never");
        QTest::keyClick(BoxOf(window), Qt::Key_S);
        return 0;
    });
    EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", MB_YESNO), IDYES);
}

TEST(MessageBox, BelongsToItsOwner) {
    const ModalDriver first([](const ModalWindow&) { return IDOK; });
    MessageBox(nullptr, L"text", L"caption", MB_OK);  // there is an application from now on
    QWidget owner;
    const auto handle = reinterpret_cast<HWND>(&owner);
    const ModalDriver driver([&](const ModalWindow& window) {
        EXPECT_EQ(window.owner, handle);
        EXPECT_EQ(BoxOf(window)->parentWidget(), &owner);
        return IDOK;
    });
    MessageBox(handle, L"text", L"caption", MB_OK);
}

TEST(MessageBox, AnOwnerThatIsGoneIsNoOwner) {
    const ModalDriver first([](const ModalWindow&) { return IDOK; });
    MessageBox(nullptr, L"text", L"caption", MB_OK);  // there is an application from now on
    auto owner = std::make_unique<QWidget>();
    const auto handle = reinterpret_cast<HWND>(owner.get());
    owner.reset();
    const ModalDriver driver([](const ModalWindow& window) {
        EXPECT_EQ(BoxOf(window)->parentWidget(), nullptr);
        return IDOK;
    });
    MessageBox(handle, L"text", L"caption", MB_OK);
}

TEST(MessageBox, WhereNobodySeesItTheCarefulAnswerIsGivenAndTheTextReported) {
    Recorder recorder;
    SetMessageSink(Recorder::Take, &recorder);
    EXPECT_EQ(MessageBox(nullptr, L"first", L"caption", MB_YESNO), IDNO);
    EXPECT_EQ(MessageBox(nullptr, L"second", L"caption", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBox(nullptr, L"third", L"caption", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBox(nullptr, L"fourth", L"caption", MB_OK), IDOK);
    EXPECT_EQ(MessageBox(nullptr, nullptr, nullptr, MB_OK), IDOK);
    SetMessageSink(nullptr, nullptr);
    EXPECT_EQ(recorder.texts, (std::vector<std::string>{"first", "second", "third", "fourth"}));
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
        if (++depth == 1) {
            EXPECT_EQ(MessageBox(nullptr, L"inner", L"caption", MB_YESNO), IDNO);
        }
        return depth-- == 1 ? IDYES : IDNO;
    });
    EXPECT_EQ(MessageBox(nullptr, L"outer", L"caption", MB_YESNO), IDYES);
    EXPECT_EQ(driver.GetCount(), 2);
}

TEST(ModalDriver, ACommandWithoutAButtonIsTheCarefulAnswer) {
    const ModalDriver driver([](const ModalWindow&) { return 77; });
    EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", MB_YESNO), IDNO);
    EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", MB_OK), IDOK);
}

TEST(ModalDriver, AnAnswerThatThrowsIsTheCarefulOne) {
    const ModalDriver driver([](const ModalWindow&) -> int { throw std::runtime_error("no"); });
    EXPECT_EQ(MessageBox(nullptr, L"text", L"caption", MB_YESNO), IDNO);
}

TEST(Application, KeepsNumbersWithAPoint) {
    const ModalDriver driver([](const ModalWindow&) { return IDOK; });
    MessageBox(nullptr, L"text", L"caption", MB_OK);
    ASSERT_NE(QCoreApplication::instance(), nullptr);
    EXPECT_STREQ(setlocale(LC_NUMERIC, nullptr), "C");
}

}  // namespace
