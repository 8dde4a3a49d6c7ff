// Texts between the framework and the toolkit, and the toolkit's own. For the sources of this room only.
#pragma once

#include "platform/base/CString.h"

class QCoreApplication;
class QString;

QString ToQString(const CString& text);
CString FromQString(const QString& text);

// Where the nth wchar_t unit of a text stands in the toolkit's 16-bit units, clamped to its ends, and the way back.
int ToQtIndex(const QString& text, int index);
int FromQtIndex(const QString& text, int index);

// From now on the menus of edits and date pickers speak the language that is in force when they open.
void TranslateToolkit(QCoreApplication* application);
