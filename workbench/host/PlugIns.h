// The plug-ins that others wrote: those in the program's plug-in folder and those named on the command line.
// Why: docs/decisions/workbench.md
#pragma once

#include <memory>
#include <vector>

#include "platform/host/ModuleLoader.h"

// Open as long as the object lives, and closed in reverse.
class PlugIns {
public:
    PlugIns() = default;
    ~PlugIns();
    PlugIns(const PlugIns&) = delete;
    PlugIns& operator=(const PlugIns&) = delete;

    // Opens every file NAME.so in the folder plugins beside the program's own libraries (PluginFolder.h) in the order
    // of their names, then the named ones. A file that it has met already, under whatever name, is passed over. Gives a
    // message on each that cannot be opened; the others are opened all the same.
    std::vector<CString> Load(const std::vector<CString>& named);

private:
    bool WasTried(const CString& file) const;

    std::vector<std::unique_ptr<ModuleLoader>> m_loaders;
    std::vector<CString> m_files;
};

// The files that follow --plugin on the command line. One that is missing, or looks like another option, is left out:
// the workbench refuses the command line for it.
std::vector<CString> PlugInsNamed(int argc, const char* const* argv);
