// What the program can still say when its own libraries cannot be loaded.
#pragma once

#include <optional>

#include "platform/base/CString.h"

// The answer to --version and to --help (also -h, help), wherever they stand among the arguments, argv[0] being the
// program; nothing when neither was asked for, which only the libraries could answer.
std::optional<CString> AnswerWithoutLibraries(int argc, const char* const* argv);
