// Which language the program speaks.
// Why: docs/decisions/workbench.md
#pragma once

#include "platform/base/CString.h"

// "zh" or "en". An option --language on the command line (or --language=...) decides, if its value is one of the two;
// else the first of LC_ALL, LC_MESSAGES and LANG that is set and not empty: "zh..." and the neutral "C" and "POSIX"
// give Chinese, which is what the texts are written in, and any other language English. With none of the three set it
// is Chinese.
CString ChooseLanguage(int argc, const char* const* argv);
// Whether it was the option that decided.
bool IsLanguageAsked(int argc, const char* const* argv);
