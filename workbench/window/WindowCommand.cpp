// Starting the window.
#include "workbench/window/WindowCommand.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <cstdlib>

#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "platform/window/HostFrame.h"
#include "workbench/Texts.h"
#include "workbench/commands/CommandRunner.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/OutputSink.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/QuitSignals.h"

namespace {

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

// A terminal, a pipe or a file may hold lines to run; the null device, which desktops give, holds none.
bool MayHoldLines(int stream) {
    struct stat state = {};
    return isatty(stream) || (fstat(stream, &state) == 0 && !S_ISCHR(state.st_mode));
}

}  // namespace

int RunWindow(const WindowOptions& options) {
    if (CurrentOutputSink()) {
        Complain(Say(L"窗口已经打开了"));
        return kExitUsage;
    }
    CString reason;
    if (!PrepareWindows(reason)) {
        Complain(reason);
        return kExitFailed;
    }
    QApplication::setDesktopFileName("orvo");
    MainWindow window;
    const QuitSignals quitSignals([&window] { window.CloseSoon(); });
    window.show();
    const bool isOpened = !options.file || window.OpenFile(*options.file);
    if (window.isVisible())  // it may have been closed while the drawing was read
        QApplication::exec();
    return isOpened ? kExitOk : kExitFailed;
}

bool IsStartedFromDesktop(const std::vector<CString>& words) {
    const bool hasDisplay = IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
    return hasDisplay && !MayHoldLines(STDIN_FILENO) && AsksForPrompt(words);
}

Subcommand WindowSubcommand() {
    return {L"window",
            L"打开窗口：三维视图、命令行和菜单",
            {ValueOption(L"FILE", L"", L"要打开的 DXF 文件；不给出时不打开图形")},
            {L"orvo window", L"orvo window house.dxf"},
            [](SubcommandCall& call) { return RunWindow({call.GetValue(L"FILE")}); },
            Say};
}
