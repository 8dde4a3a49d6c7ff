// A plug-in that brings the command SkylineSettings, which shows a settings dialog of its own.
#include "SkylineDialog.h"
#include "facts/Settings.h"
#include "platform/host/CommandLine.h"
#include "platform/host/CommandStack.h"
#include "platform/host/Commands.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/HostMessages.h"
#include "platform/window/HostFrame.h"

namespace {

constexpr const wchar_t* kGroup = L"Skyline";
double g_height = 10.0;  // degrees; kept until the program ends

void ShowDialog() {
    SkylineDialog dialog(acedGetAcadFrame(), g_height);
    if (dialog.DoModal() != IDOK)
        return;
    g_height = dialog.GetHeight();
    acutPrintf(L"\n%s\nskyline: %g degrees\n", NoteOf(CurrentSettings()), g_height);
}

}  // namespace

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    static const QcCmdTable kCommands[] = {{L"SkylineSettings", ShowDialog, 0}};
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(applicationHandle);
        QcDefineCommand(kGroup, kCommands, 1, 0);
    } else if (message == AcRx::kUnloadAppMsg) {
        HostCommandStack().removeGroup(kGroup);
    }
    return AcRx::kRetOK;
}
