// Typing in list boxes: the next entry that begins with it, as it stands or in pinyin.
#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QListWidget>
#include <string>

#include "platform/window/CListBox.h"
#include "window/Notifications.h"

namespace {

constexpr const char* kItems = "LISTBOX 10, 7, 7, 60, 60, LBS_NOTIFY | WS_TABSTOP\n";

struct ListTyping : testing::Test {
    DialogForTests dialog{kItems};
    Notifications heard{dialog};
    CListBox list;
    QListWidget* widget = nullptr;

    void Run(const std::function<void()>& work) {
        dialog.m_onInit = [this] { list.SubclassDlgItem(10, &dialog); };
        dialog.Run([&](const ModalWindow& window) {
            widget = Control<QListWidget>(window, 10);
            for (const wchar_t* text : {L"北京", L"上海", L"山西", L"陕西", L"江苏", L"Sichuan 2", L"sicily"})
                list.AddString(text);
            list.SetCurSel(0);
            widget->setFocus();
            work();
        });
    }
    std::string Selected() const {
        CString text;
        list.GetText(list.GetCurSel(), text);
        return ToUtf8(text.View());
    }
    // Anew, as after a pause.
    std::string Typed(const char* text) const {
        widget->clearFocus();
        widget->setFocus();
        QTest::keyClicks(widget, text);
        return Selected();
    }
    // By an input method.
    void Commit(const char* text) const {
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(widget, &event);
    }
};

}  // namespace

TEST_F(ListTyping, SelectsByPinyin) {
    Run([&] {
        EXPECT_EQ(Typed("jiang"), "江苏");
        EXPECT_EQ(heard.TakeCodes(10), (std::vector<UINT>{LBN_SELCHANGE})) << "as the first letter says so";
        EXPECT_EQ(Typed("shanx"), "山西");
        EXPECT_EQ(Typed("SHAAN"), "陕西");
        EXPECT_EQ(Typed("bei jing"), "北京") << "blanks do not count";
    });
}

TEST_F(ListTyping, SelectsByTheTextItself) {
    Run([&] {
        EXPECT_EQ(Typed("sichuan 2"), "Sichuan 2") << "and here a blank is part of it";
        EXPECT_EQ(Typed("sici"), "sicily");
        widget->clearFocus();
        widget->setFocus();
        Commit("陕");
        EXPECT_EQ(Selected(), "陕西");
        widget->clearFocus();
        widget->setFocus();
        Commit("上海");
        EXPECT_EQ(Selected(), "上海");
    });
}

TEST_F(ListTyping, LetsInputMethodsIn) {
    Run([&] {
        EXPECT_TRUE(widget->testAttribute(Qt::WA_InputMethodEnabled));
        QTest::keyClick(widget, Qt::Key_Down);
        EXPECT_TRUE(widget->testAttribute(Qt::WA_InputMethodEnabled)) << "on every entry";
    });
}

TEST_F(ListTyping, GoesOnFromTheSelectedEntryAndAroundTheEnd) {
    Run([&] {
        EXPECT_EQ(Typed("s"), "上海");
        EXPECT_EQ(Typed("s"), "山西");
        EXPECT_EQ(Typed("sss"), "sicily") << "one letter again and again: three further";
        EXPECT_EQ(Typed("s"), "上海");
        EXPECT_EQ(Typed("sh"), "山西") << "the first letter goes on, the second one may stay";
        EXPECT_EQ(Typed("b"), "北京");
    });
}

TEST_F(ListTyping, WhatNoEntryBeginsWithSelectsNothingElse) {
    Run([&] {
        EXPECT_EQ(Typed("hai"), "北京");
        EXPECT_EQ(Typed("7"), "北京");
        EXPECT_EQ(Typed(" "), "北京");
        EXPECT_EQ(Typed("jiangx"), "江苏") << "as far as there was one";
        list.ResetContent();
        QTest::keyClicks(widget, "a");
        EXPECT_EQ(list.GetCurSel(), LB_ERR);
    });
}

TEST_F(ListTyping, BeginsAtTheTopWhereNothingIsSelected) {
    Run([&] {
        list.SetCurSel(-1);
        EXPECT_EQ(Typed("b"), "北京");
    });
}
