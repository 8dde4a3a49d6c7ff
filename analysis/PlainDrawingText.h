// What a text of a drawing says, without the codes that format it.
#pragma once

#include "platform/base/CString.h"

// Of a TEXT: %%d is a degree sign, %%p plus or minus, %%c a diameter, %%% a percent sign, %%NNN the character of that
// number; %%u, %%o and %%k (lines under, over and through it) say nothing. Blanks at both ends are taken away.
CString PlainText(const CString& written);

// Of an MTEXT: also braces, changes of font, height, colour and so on; a new line, column or tab is a blank, a stacked
// fraction is its parts with a slash between.
CString PlainLongText(const CString& written);
