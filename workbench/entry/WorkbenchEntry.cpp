// The workbench library's exported functions.
#include "workbench/entry/WorkbenchEntry.h"

#include <exception>
#include <vector>

#include "facts/SettingsChange.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExitCode.h"
#include "platform/host/HostMessages.h"
#include "platform/host/Subcommands.h"
#include "settings/OrvoDataSet.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandRunner.h"
#include "workbench/commands/ConfigRecovery.h"
#include "workbench/commands/Prompt.h"
#include "workbench/entry/OwnSubcommands.h"
#include "workbench/terminal/CollectedOutput.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/window/WindowCommand.h"

namespace {

std::vector<CString> WordsOf(int argc, const char* const* argv) {
    std::vector<CString> words;
    for (int i = 1; i < argc; ++i)
        words.push_back(FromUtf8(argv[i]));
    return words;
}

int Run(int argc, const char* const* argv) {
    const std::vector<CString> words = WordsOf(argc, argv);
    if (IsStartedFromDesktop(words))
        return RunWindow({});
    CollectedOutput output;
    return AsksForPrompt(words) ? RunPrompt(output) : RunWords(words, WordsFrom::CommandLine, output);
}

// Before further plug-ins are opened, so that they find the settings that will be in force.
void PrepareSettings() {
    ReplaceUnusableFiles();
    RefreshWholeStep(g_SunDataSet);
    RememberSavedSettings();
}

int BringSubcommands(void* applicationHandle) {
    CString reason;
    if (AddOwnSubcommands(applicationHandle, reason))
        return AcRx::kRetOK;
    Complain(reason);
    return AcRx::kRetError;
}

// The module, which is unloaded next, saves what is in force then.
void PrepareLastSave() {
    try {
        for (const CString& message : TakeInAtTheEnd())
            Complain(message);
    } catch (const std::exception& error) {
        Complain(SayFormat(L"内部错误：%s", FromUtf8(error.what())));
    }
}

}  // namespace

extern "C" ORVO_API int OrvoWorkbenchRun(int argc, const char* const* argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        Complain(SayFormat(L"内部错误：%s", FromUtf8(error.what())));
    }
    return kExitFailed;
}

extern "C" int acrxEntryPoint(int message, void* applicationHandle) {
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(applicationHandle);
        PrepareSettings();
        return BringSubcommands(applicationHandle);
    }
    if (message == AcRx::kUnloadAppMsg) {
        HostSubcommands().Forget(applicationHandle);
        PrepareLastSave();
    }
    return AcRx::kRetOK;
}
