// Makes the toolkit ready, and the host's main window one of the framework's.
#include "platform/window/HostFrame.h"

#include <QWidget>
#include <cstdio>

#include "platform/base/Language.h"
#include "platform/window/CWnd.h"
#include "platform/window/toolkit/Application.h"
#include "platform/window/toolkit/ModalRun.h"
#include "platform/window/toolkit/WindowEvents.h"

namespace {

// Where nobody sees windows, what the toolkit warns of as it starts (a session that is not there) is nobody's concern.
void TellOnlyTheEnd(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

}  // namespace

bool PrepareWindows(CString& reason) {
    const bool isHopeless = !HasDisplay() && !ModalDriver::IsThere();  // the toolkit need not even start
    if (!isHopeless && !NeedApplication())
        reason = PlatformText(L"窗口只能在程序的主线程中打开。");
    else if (isHopeless || !CanBeAnswered())
        reason = PlatformText(L"没有显示器，无法打开窗口。");
    else
        return true;
    return false;
}

bool PreparePictures(CString& reason) {
    const QtMessageHandler before = qInstallMessageHandler(TellOnlyTheEnd);
    const bool isReady = NeedApplication();
    qInstallMessageHandler(before);
    if (isReady)
        return true;
    reason = PlatformText(L"窗口只能在程序的主线程中打开。");
    return false;
}

CString ToolkitVersion() {
    return FromUtf8(qVersion());
}

bool AttachFrame(CWnd& frame, void* widget) {
    if (!widget)
        return false;
    auto* window = static_cast<QWidget*>(widget);
    if (!WindowLink::Of(window))
        MakeWindow(window, 0, 0, CommonProcedure);
    return frame.Attach(WindowLink::HandleOf(window)) != FALSE;
}
