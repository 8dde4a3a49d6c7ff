// The module's commands: each runs a dialog over the host's main window.
#include "frame/Commands.h"

#include "frame/Resources.h"
#include "platform/window/CWnd.h"
#include "settings/OrvoDataPrecisSetDlg.h"
#include "zone/OrvoZoneDbSetDlg.h"

namespace {

void EditCities() {
    const QcUtPushResource scope(GetModuleResourceHandle());
    OrvoZoneDbSetDlg dialog(acedGetAcadFrame());
    dialog.DoModal();
}

// Here the dialog is made before its resources are current, and goes after them; the other way round above. On purpose.
void SetPrecision() {
    OrvoDataPrecisSetDlg dialog(acedGetAcadFrame());
    const QcUtPushResource scope(GetModuleResourceHandle());
    dialog.DoModal();
}

}  // namespace

// Writable: the host's interface takes it so.
constinit QcCmdTable g_commandTable[kCommandCount] = {
    {L"QcCityData", &EditCities, 0},
    {L"QSetSunPrec", &SetPrecision, 0},
};
