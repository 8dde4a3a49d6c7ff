// How the program enters the workbench library, which it opens like a plug-in (and sends the host's messages to).
#pragma once

// Does what the program's arguments ask for, argv[0] being the program itself and argv[argc] null. Arguments are taken
// as UTF-8; bytes that are none are replaced. Gives the exit code (ExitCode.h). Throws nothing. The module must have
// been initialised; g_pTeskLangSwitch decides the language.
using WorkbenchRun = int (*)(int argc, const char* const* argv);

// The name under which the library exports it.
inline constexpr const char* kWorkbenchRun = "OrvoWorkbenchRun";
