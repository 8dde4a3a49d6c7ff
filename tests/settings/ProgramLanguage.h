// The languages of the program in tests of its dialogs, with the tables that ship, and all that a dialog says.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStringList>
#include <algorithm>

#include "platform/base/Language.h"

// The switch stays for good: the module remembers its dictionary, which is the switch's.
inline TeskLanguageSwitch& ShippedLanguages() {
    static TeskLanguageSwitch languages;
    return languages;
}

// A language of the program, with the table that ships, for as long as it lives.
class ProgramLanguage {
public:
    explicit ProgramLanguage(const wchar_t* name) {
        g_pTeskLangSwitch = &ShippedLanguages();
        EXPECT_TRUE(ShippedLanguages().SetLanguage(name));
    }
    ~ProgramLanguage() {
        ShippedLanguages().SetLanguage(L"zh");
        g_pTeskLangSwitch = nullptr;
    }
    ProgramLanguage(const ProgramLanguage&) = delete;
    ProgramLanguage& operator=(const ProgramLanguage&) = delete;
};

inline bool HasChinese(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.unicode() >= 0x2E80; });
}

// Every text of a window and of all that is in it, seen or only read aloud, the user's data among them.
inline QStringList AllTexts(const QWidget* window) {
    QStringList texts;
    QList<const QWidget*> widgets = {window};
    for (const auto* widget : window->findChildren<QWidget*>())
        widgets << widget;
    for (const QWidget* widget : widgets) {
        texts << widget->windowTitle() << widget->toolTip() << widget->statusTip() << widget->whatsThis()
              << widget->accessibleName() << widget->accessibleDescription();
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            texts << label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            texts << button->text();
        if (const auto* box = qobject_cast<const QGroupBox*>(widget))
            texts << box->title();
        if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
            texts << edit->text() << edit->placeholderText();
        if (const auto* combo = qobject_cast<const QComboBox*>(widget))
            for (int index = 0; index < combo->count(); ++index)
                texts << combo->itemText(index);
    }
    texts.removeAll(QString());
    return texts;
}
