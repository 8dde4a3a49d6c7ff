// Texts between the workbench and the toolkit.
#pragma once

#include <QString>

#include "platform/base/CString.h"

// Characters that UTF-8 cannot hold become U+FFFD.
QString Shown(const CString& text);
// A built-in text, translated.
QString ShownSay(const wchar_t* text);
CString Typed(const QString& text);
