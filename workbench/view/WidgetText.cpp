// Converts texts through UTF-8, which both sides know whatever the width of their characters.
#include "workbench/view/WidgetText.h"

#include "workbench/Texts.h"

QString Shown(const CString& text) {
    return QString::fromStdString(ToUtf8(text.View()));
}

QString ShownSay(const wchar_t* text) {
    return Shown(Say(text));
}

CString Typed(const QString& text) {
    return FromUtf8(text.toStdString());
}
