// The framework's virtual keys and the toolkit's. For the sources of this room only.
#pragma once

#include "platform/base/FrameworkTypes.h"

class QKeyEvent;
class QString;

// 0 for a key that has no number.
UINT ToVirtualKey(const QKeyEvent& event);
int ToQtKey(UINT virtualKey);

// The characters that a key gives: its text, the control character of Ctrl with a letter, of Backspace, Enter, Escape
// and Tab; nothing for other keys and for Alt.
QString CharactersOf(const QKeyEvent& event);
