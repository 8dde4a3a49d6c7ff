// Two lists, never destroyed: plug-ins may outlive static objects.
#include "platform/host/PlugInFiles.h"

#include <algorithm>
#include <map>

namespace {

std::map<const void*, CString>& OpenOnes() {
    static auto* const files = new std::map<const void*, CString>;
    return *files;
}

std::vector<CString>& RefusedOnes() {
    static auto* const files = new std::vector<CString>;
    return *files;
}

}  // namespace

void NotePlugIn(const void* applicationHandle, const CString& file) {
    OpenOnes()[applicationHandle] = file;
}

void ForgetPlugIn(const void* applicationHandle) {
    OpenOnes().erase(applicationHandle);
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
