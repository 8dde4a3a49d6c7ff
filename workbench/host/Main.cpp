// The program orvo: chooses the language, prepares the user's folder, opens the module, the workbench and further
// plug-ins, lets the workbench do what was asked for, and closes them again in reverse.
#include <dlfcn.h>

#include <cstdio>
#include <optional>
#include <string>

#include "platform/base/FileLock.h"
#include "platform/base/Language.h"
#include "platform/base/Support.h"
#include "platform/host/ExitCode.h"
#include "platform/host/ModuleLoader.h"
#include "workbench/entry/WorkbenchEntry.h"
#include "workbench/host/LanguageChoice.h"
#include "workbench/host/LastResort.h"
#include "workbench/host/PlugIns.h"
#include "workbench/host/PluginFolder.h"
#include "workbench/host/StandardStreams.h"

namespace {

void Complain(const CString& text) {
    const std::string line = "orvo: " + ToUtf8(text.View()) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool LoadOrComplain(ModuleLoader& loader, const wchar_t* name) {
    CString error;
    if (loader.Load(PluginPath(name), error))
        return true;
    Complain(error);
    return false;
}

// From the moment when the workbench reads the settings anew until the module has saved them, nobody else saves. Where
// that cannot be had, this program's changes are worth more than waiting for ever.
void LockSettings(FileLock& lock) {
    CString path;
    FindFile(L"SunSet.xml", path);
    if (lock.Take(path, kLockPatience) != FileLock::Taken::Busy)
        return;
    CString text;
    text.Format(PlatformText(L"另一个程序一直锁着“%s”，不再等待：这里改动过的设置照样保存，它同时写入的内容可能丢失。"),
                path);
    Complain(text);
}

// Without the libraries the program still says which one it is.
int AnswerAlone(int argc, char** argv) {
    const std::optional<CString> answer = AnswerWithoutLibraries(argc, argv);
    if (!answer)
        return kExitFailed;
    const std::string text = ToUtf8(answer->View()) + "\n";
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 ? kExitOk
                                                                                                       : kExitFailed;
}

int RunWorkbench(int argc, char** argv, FileLock& lock) {
    ModuleLoader workbench;
    if (!LoadOrComplain(workbench, L"OrvoWorkbench.so"))
        return AnswerAlone(argc, argv);
    const auto run = reinterpret_cast<WorkbenchRun>(dlsym(workbench.ApplicationHandle(), kWorkbenchRun));
    if (!run) {
        Complain(PlatformText(L"程序库 OrvoWorkbench.so 与程序不匹配，请重新安装。"));
        return AnswerAlone(argc, argv);
    }
    int code = kExitOk;
    {
        PlugIns plugIns;
        for (const CString& error : plugIns.Load(PlugInsNamed(argc, argv)))
            Complain(error);
        code = run(argc, argv);
    }
    LockSettings(lock);
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    SecureStandardStreams();
    SendCommandLineToStandardError();

    TeskLanguageSwitch language;
    g_pTeskLangSwitch = &language;
    language.SetLanguage(ChooseLanguage(argc, argv));
    g_isLanguageAsked = IsLanguageAsked(argc, argv);
    CopyShippedFiles();  // says itself what it could not do; the shipped files then serve as they are

    int code = kExitFailed;
    FileLock lock;
    {
        ModuleLoader module;
        if (LoadOrComplain(module, L"OrvoDataBase.so"))
            code = RunWorkbench(argc, argv, lock);
        else
            code = AnswerAlone(argc, argv);
    }
    lock.Release();
    g_pTeskLangSwitch = nullptr;
    return code;
}
