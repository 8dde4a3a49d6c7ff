// A plug-in that looks at the settings as soon as it is loaded.
#include "facts/StandardSearch.h"
#include "platform/host/CommandLine.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"
#include "settings/OrvoDataSet.h"

extern "C" int acrxEntryPoint(int message, void* applicationHandle) {
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(applicationHandle);
        acutPrintf(L"\nfinds %d standards", static_cast<int>(NamesOfStandards(g_SunDataSet).size()));
    }
    return AcRx::kRetOK;
}
