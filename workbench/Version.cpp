// The version's line.
#include "workbench/Version.h"

#include "platform/window/HostFrame.h"

extern const char kOrvoCommit[];  // made while building, by cmake/Commit.cmake

CString VersionText() {
    const CString commit = FromUtf8(kOrvoCommit);
    return L"orvo " + FromUtf8(ORVO_VERSION) + L" (" + (commit.IsEmpty() ? CString() : L"commit " + commit + L", ") +
           L"Qt " + ToolkitVersion() + L")";
}
