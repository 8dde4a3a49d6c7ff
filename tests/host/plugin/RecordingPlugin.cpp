// A plug-in that writes everything that happens to it on the host's command line.
#include "platform/base/CString.h"
#include "platform/base/ModuleFile.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/CommandLine.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"

namespace {

// What the module is called while its static objects are made.
struct Life {
    Life();
    ~Life() { acutPrintf(L"gone;"); }
};

const Life g_life;

CString OwnFile() {
    wchar_t buffer[4096];
    GetModuleFileName(&g_life, buffer, 4096);
    return CString(buffer);
}

Life::Life() {
    const CString file = OwnFile();
    acutPrintf(L"made %s;", file.Mid(file.ReverseFind(L'\\') + 1));
}

// The messages about drawings since the last call, each with the number of entities of the host's drawing.
CString& DrawingMessages() {
    static CString messages;
    return messages;
}

}  // namespace

extern "C" ORVO_API const wchar_t* TakeMessages() {
    static CString taken;
    taken = DrawingMessages();
    DrawingMessages().Empty();
    return taken;
}

// The module's own file, asked for at the time of the call.
extern "C" ORVO_API void PrintOwnFile() {
    acutPrintf(L"%s", OwnFile());
}

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    acutPrintf(L"message %d;", message);
    if (message == AcRx::kLoadDwgMsg || message == AcRx::kUnloadDwgMsg) {
        CString note;
        note.Format(L"%d of %d;", message, acdbCurDwg() ? static_cast<int>(acdbCurDwg()->GetEntityCount()) : -1);
        DrawingMessages() += note;
    }
    if (message == AcRx::kInitAppMsg) {
#ifdef ORVO_PLUGIN_FAILS
        return AcRx::kRetError;
#endif
#ifndef ORVO_PLUGIN_STAYS_LOCKED
        acrxUnlockApplication(applicationHandle);
#endif
        HostDynamicLinker().registerAppMDIAware(applicationHandle);
    }
    return message == 99 ? 42 : static_cast<int>(AcRx::kRetOK);
}
