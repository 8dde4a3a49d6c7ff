// Starting Qt from inside a library.
#include "platform/window/toolkit/Application.h"

#include <dlfcn.h>

#include <QApplication>
#include <QThread>
#include <QWidget>
#include <clocale>
#include <cstdlib>
#include <string_view>

#include "platform/window/toolkit/QtText.h"

namespace {

bool IsSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

// The application outlives whatever made it, and its arguments are in here.
void StayInMemory() {
    Dl_info here = {};
    if (dladdr(reinterpret_cast<void*>(&StayInMemory), &here) != 0)
        dlopen(here.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

// Where the toolkit finds no display of the kinds that it is told, it aborts: the last kind is therefore one that needs
// none. An empty name counts as none.
void ChoosePlatform() {
    if (IsSet("QT_QPA_PLATFORM"))
        return;
    if (!HasDisplay())
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    else if (IsSet("DISPLAY"))
        setenv("QT_QPA_PLATFORM", "xcb;wayland;offscreen", 1);
    else
        setenv("QT_QPA_PLATFORM", "wayland;offscreen", 1);
}

QtMessageHandler g_toolkitsHandler = nullptr;

// What the toolkit says of displays that it tried and of folders that it chose, the program says itself where it
// matters to somebody.
void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const bool isOfDisplays = context.category != nullptr && std::string_view(context.category).starts_with("qt.qpa.");
    const bool isOfFolders = text.startsWith(QLatin1String("QStandardPaths: "));
    if (type == QtFatalMsg || !(isOfDisplays || isOfFolders))
        g_toolkitsHandler(type, context, text);
}

// Whoever sets rules for what is logged wants to see it.
void QuietToolkit() {
    if (!IsSet("QT_LOGGING_RULES") && !IsSet("QT_DEBUG_PLUGINS"))
        g_toolkitsHandler = qInstallMessageHandler(&HandleMessage);
}

void MakeApplication() {
    StayInMemory();
    ChoosePlatform();
    QuietToolkit();
    // Qt keeps references to both as long as it lives, which is to the end of the process.
    static int count = 1;
    static char name[] = "orvo";
    static char* arguments[] = {name, nullptr};
    new QApplication(count, arguments);  // never destroyed
    std::setlocale(LC_NUMERIC, "C");     // Qt has set the user's
    TranslateToolkit(QCoreApplication::instance());
}

}  // namespace

bool HasDisplay() {
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

bool NeedApplication() {
    if (QCoreApplication::instance() == nullptr)
        MakeApplication();
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    return application != nullptr && application->thread() == QThread::currentThread();
}

bool CanBeSeen() {
    return QGuiApplication::platformName() != "offscreen" && QGuiApplication::platformName() != "minimal";
}

QWidget* WidgetOf(HWND window) {
    if (window == nullptr)
        return nullptr;
    for (QWidget* widget : QApplication::allWidgets())
        if (reinterpret_cast<HWND>(widget) == window)
            return widget;
    return nullptr;
}
