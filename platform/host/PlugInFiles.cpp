// Two lists, never destroyed: plug-ins may outlive static objects.
#include "platform/host/PlugInFiles.h"

#include <algorithm>
#include <map>

namespace {

// A file that is opened twice has one handle.
std::multimap<const void*, CString>& OpenOnes() {
    static auto* const files = new std::multimap<const void*, CString>;
    return *files;
}

std::vector<CString>& RefusedOnes() {
    static auto* const files = new std::vector<CString>;
    return *files;
}

}  // namespace

void NotePlugIn(const void* applicationHandle, const CString& file) {
    OpenOnes().emplace(applicationHandle, file);
}

void ForgetPlugIn(const void* applicationHandle) {
    if (const auto found = OpenOnes().find(applicationHandle); found != OpenOnes().end())
        OpenOnes().erase(found);
}

void NoteLoaded(const CString& file) {
    std::erase(RefusedOnes(), file);
}

void NoteNotLoaded(const CString& file) {
    if (std::find(RefusedOnes().begin(), RefusedOnes().end(), file) == RefusedOnes().end())
        RefusedOnes().push_back(file);
}

CString FileOfPlugIn(const void* applicationHandle) {
    const auto found = OpenOnes().find(applicationHandle);
    return found == OpenOnes().end() ? CString() : found->second;
}

std::vector<CString> FilesNotLoaded() {
    return RefusedOnes();
}
