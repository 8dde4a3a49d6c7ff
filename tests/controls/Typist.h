// Typing in three ways: by messages as the program's own code sends them, by a person's keys, and by what an input
// method commits.
#pragma once

#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QTest>
#include <string_view>

#include "controls/EditDialog.h"

enum class Way { kMessages, kKeys, kInputMethod };

inline std::string NameOfWay(const testing::TestParamInfo<Way>& way) {
    switch (way.param) {
        case Way::kMessages:
            return "Messages";
        case Way::kKeys:
            return "Keys";
        default:
            return "InputMethod";
    }
}

// As an input method does it: first the text is composed, then all of it is committed at once.
inline void Commit(QWidget* widget, std::wstring_view text) {
    const QString committed = QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
    QInputMethodEvent composing(committed, {});
    QApplication::sendEvent(widget, &composing);
    QInputMethodEvent commit;
    commit.setCommitString(committed);
    QApplication::sendEvent(widget, &commit);
}

class Typist : public testing::TestWithParam<Way> {
protected:
    static void Type(CEdit& edit, std::wstring_view text) {
        if (GetParam() == Way::kInputMethod) {
            Commit(WidgetOf(edit), text);
            return;
        }
        for (const wchar_t character : text) {
            if (GetParam() == Way::kMessages)
                edit.SendMessage(WM_CHAR, static_cast<WPARAM>(character), 1);
            else
                QTest::sendKeyEvent(QTest::Click, WidgetOf(edit), Qt::Key_unknown,
                                    QString::fromWCharArray(&character, 1), Qt::NoModifier);
        }
    }

    // A key of which the keyboard's driver makes no character, or the control character `character`.
    static void Press(CEdit& edit, UINT virtualKey, Qt::Key key, wchar_t character = 0) {
        if (GetParam() != Way::kMessages) {
            QTest::keyClick(WidgetOf(edit), key);
            return;
        }
        edit.SendMessage(WM_KEYDOWN, virtualKey, 1);
        if (character != 0)
            edit.SendMessage(WM_CHAR, static_cast<WPARAM>(character), 1);
    }

    static void Backspace(CEdit& edit) { Press(edit, VK_BACK, Qt::Key_Backspace, L'\b'); }
    static void Left(CEdit& edit) { Press(edit, VK_LEFT, Qt::Key_Left); }
    static void Right(CEdit& edit) { Press(edit, VK_RIGHT, Qt::Key_Right); }
};
