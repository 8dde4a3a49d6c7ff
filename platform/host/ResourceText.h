// The resource scripts of the modules in the process, by module handle: where dialogs are looked up.
#pragma once

#include <string_view>

#include "platform/base/Api.h"
#include "platform/base/ModuleFile.h"

// A library's own script is linked into it (cmake/EmbedScript.cmake) and found there while the library is loaded, by
// any address in it, as the framework finds resources. Nobody need say so.

// For what has none linked in, a program or a test: announces a module's resource script (UTF-8), which must stay where
// it is until the module takes it back with an empty text. A null handle stands for the program. A module has one
// script: another one takes its place. False when there is no room for one more module (64 are possible); everything is
// then as it was. To be called in the user interface's thread; usable while static objects are constructed and
// destroyed.
ORVO_API bool AfxSetResourceText(HINSTANCE module, std::string_view text);

// The script of a module: the one that was announced, else its own; empty when it has none. A library's own is good
// until the library is unloaded.
ORVO_API std::string_view AfxGetResourceText(HINSTANCE module);
