// A plug-in that adds a subcommand and a command, never takes them back, and can misbehave besides.
#include <stdexcept>

#include "platform/host/DynamicLinker.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"

namespace {

constexpr int kThrow = 99;

bool AddRow(void* applicationHandle) {
    Subcommand row;
    row.name = L"left-behind";
    row.run = [](SubcommandCall&) { return 0; };
    CString reason;
    return HostSubcommands().Add(row, applicationHandle, reason);
}

void Command() {}

}  // namespace

extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle) {
    if (message == kThrow)
        throw kThrow;
    if (message != AcRx::kInitAppMsg)
        return AcRx::kRetOK;
    acrxUnlockApplication(applicationHandle);
    HostCommandStack().addCommand(L"rows", L"left-behind", 0, Command);
    if (!AddRow(applicationHandle))
        return AcRx::kRetError;
#ifdef ORVO_PLUGIN_THROWS
    throw std::runtime_error("thrown at the host");
#endif
#ifdef ORVO_PLUGIN_FAILS
    return AcRx::kRetError;
#else
    return AcRx::kRetOK;
#endif
}
