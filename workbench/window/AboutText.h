// What the window says about the program.
#pragma once

#include "platform/base/CString.h"

// Version, purpose, where manual, settings and data lie, and what the program stands on; in the language in force.
CString AboutText();
