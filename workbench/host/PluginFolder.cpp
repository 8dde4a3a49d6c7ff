// Finds the libraries' folder from the place of the program's own file.
#include "workbench/host/PluginFolder.h"

#include <filesystem>
#include <system_error>

CString PluginPath(const wchar_t* name) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error || !program.has_parent_path())
        return CString();
    const std::filesystem::path folder =
        (program.parent_path() / ORVO_PROGRAM_TO_LIBRARIES / "orvo").lexically_normal();
    return FromUtf8(folder.string()) + L"/" + name;
}
