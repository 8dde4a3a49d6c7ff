// Message boxes as a person answers them: with keys in a real box.
#include "platform/window/MessageBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/window/ModalDriver.h"
#include "support/Recorder.h"
#include "support/TableSwitch.h"
#include "window/BoxOf.h"

namespace {

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
    EXPECT_EQ(AfterKey(MB_YESNO | MB_DEFBUTTON2, Qt::Key_Y, Qt::AltModifier), IDYES);
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

// Shows a box with this text and looks at its size.
void ExpectWithinTheScreen(const std::wstring& text) {
    const auto check = [](const QMessageBox& box) {
        const QRect screen = box.screen()->availableGeometry();
        EXPECT_LE(box.width(), screen.width());
        const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        // Nothing is cut off either: broken as the label breaks it, the text has room in the label.
        const QRect room = label->contentsRect();
        const QRect lines = label->fontMetrics().boundingRect(room, Qt::TextWordWrap, label->text());
        EXPECT_LE(lines.width(), room.width());
        EXPECT_LE(lines.height(), room.height());
        for (const QAbstractButton* button : box.buttons())
            EXPECT_TRUE(box.rect().contains(button->geometry()));
    };
    const ModalDriver driver([&](const ModalWindow& window) {
        check(*BoxOf(window));
        return IDOK;
    });
    MessageBox(nullptr, text.c_str(), L"caption", MB_OK | MB_ICONQUESTION);
}

TEST(MessageBox, LongFileNamesStayWithinTheScreen) {
    std::wstring path = L"C:";
    for (int i = 0; i < 60; ++i)
        path += L"\\一个很长的文件夹名";
    ExpectWithinTheScreen(path);
    std::wstring latin;
    for (int i = 0; i < 60; ++i)
        latin += L"/a_rather_long_name_of_a_folder";
    ExpectWithinTheScreen(latin);
    // No place to break the line at.
    ExpectWithinTheScreen(std::wstring(255, L'M') + L".avi 文件已经存在");
    ExpectWithinTheScreen(L"C:\\" + std::wstring(255, L'_'));
}

TEST(MessageBox, TextsWithoutEndStayWithinTheScreen) {
    ExpectWithinTheScreen(std::wstring(10000, L'M'));
    ExpectWithinTheScreen(std::wstring(10000, L'i'));
    ExpectWithinTheScreen(std::wstring(10000, L'日'));
    ExpectWithinTheScreen(std::wstring(10000, L'\n'));
    std::wstring text;
    for (int i = 0; i < 2500; ++i)
        text += L"😀 a\n";
    ExpectWithinTheScreen(text);
}

TEST(MessageBox, LosesNoLetterOfALongName) {
    const std::wstring name = std::wstring(100, L'M') + L"\\" + std::wstring(41, L'a') + L"e\u0301 b\nc/d";
    QString shown;
    const ModalDriver driver([&](const ModalWindow& window) {
        shown = BoxOf(window)->text();
        return IDOK;
    });
    MessageBox(nullptr, name.c_str(), L"caption", MB_OK);
    EXPECT_TRUE(shown.contains(QString::fromUtf8("e\u0301"))) << "an accent stays with its letter";
    EXPECT_EQ(shown.remove(QChar(0x200B)).toStdWString(), name);
}

TEST(MessageBox, ShowsMarkUpAsTyped) {
    const auto widthOf = [](const wchar_t* text) {
        int width = 0;
        const ModalDriver driver([&](const ModalWindow& window) {
            width = BoxOf(window)->findChild<QLabel*>("qt_msgbox_label")->sizeHint().width();
            return IDOK;
        });
        MessageBox(nullptr, text, L"caption", MB_OK);
        return width;
    };
    // With mark-up the picture's tag would take no room, and bold letters little more than plain ones.
    const int letters = widthOf(L"sun");
    EXPECT_GT(widthOf(L"<b>sun<b><img src='a'>"), letters * 4);
    EXPECT_GT(widthOf(L"&sun&&sun"), widthOf(L"sun&sun")) << "each & is shown";
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

TEST(MessageBox, ButtonsAreNamedForTestsAndForReaders) {
    struct Named {
        int command;
        const char* caption;
        const char* name;
    };
    const auto expect = [](UINT type, const std::vector<Named>& buttons) {
        const ModalDriver driver([&](const ModalWindow& window) {
            for (const Named& each : buttons) {
                const auto* button = BoxOf(window)->findChild<QPushButton*>(QString("ID_%1").arg(each.command));
                if (button == nullptr) {
                    ADD_FAILURE() << each.command;
                    continue;
                }
                EXPECT_EQ(button->text().toStdString(), each.caption);
                EXPECT_EQ(button->accessibleName().toStdString(), each.name);
            }
            return IDOK;
        });
        MessageBox(nullptr, L"text", L"caption", type);
    };
    expect(MB_OKCANCEL, {{IDOK, "确定", "确定"}, {IDCANCEL, "取消", "取消"}});
    expect(MB_YESNO, {{IDYES, "是(&Y)", "是(Y)"}, {IDNO, "否(&N)", "否(N)"}});

    TeskLanguageSwitch languages;
    g_pTeskLangSwitch = &languages;
    ASSERT_TRUE(languages.SetLanguage(L"en"));
    expect(MB_OKCANCEL, {{IDOK, "OK", "OK"}, {IDCANCEL, "Cancel", "Cancel"}});
    expect(MB_YESNO, {{IDYES, "&Yes", "Yes"}, {IDNO, "&No", "No"}});
    EXPECT_EQ(AfterKey(MB_YESNO, Qt::Key_N), IDNO);
    languages.SetLanguage(L"zh");
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

TEST(MessageBox, BlocksItsOwnerOrElseTheProgram) {
    const auto modality = [](HWND owner) {
        Qt::WindowModality found = Qt::NonModal;
        const ModalDriver driver([&](const ModalWindow& window) {
            found = BoxOf(window)->windowModality();
            return IDOK;
        });
        MessageBox(owner, L"text", L"caption", MB_OK);
        return found;
    };
    EXPECT_EQ(modality(nullptr), Qt::ApplicationModal);
    QWidget owner;
    EXPECT_EQ(modality(reinterpret_cast<HWND>(&owner)), Qt::WindowModal);
}

TEST(MessageBox, GoesWithItsOwner) {
    const ModalDriver first([](const ModalWindow&) { return IDOK; });
    MessageBox(nullptr, L"text", L"caption", MB_OK);  // there is an application from now on
    auto owner = std::make_unique<QWidget>();
    const auto handle = reinterpret_cast<HWND>(owner.get());
    const ModalDriver driver([&](const ModalWindow&) {
        owner.reset();
        return IDYES;
    });
    EXPECT_EQ(MessageBox(handle, L"text", L"caption", MB_YESNO), IDNO);
    EXPECT_EQ(driver.GetCount(), 1);
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

}  // namespace
