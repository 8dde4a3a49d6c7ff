// Typing in two ways: by messages as the program's own code sends them, and by a person's keys.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string_view>

#include "controls/EditDialog.h"

enum class Way { kMessages, kKeys };

inline std::string NameOfWay(const testing::TestParamInfo<Way>& way) {
    return way.param == Way::kMessages ? "Messages" : "Keys";
}

class Typist : public testing::TestWithParam<Way> {
protected:
    static void Type(CEdit& edit, std::wstring_view text) {
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
        if (GetParam() == Way::kKeys) {
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
