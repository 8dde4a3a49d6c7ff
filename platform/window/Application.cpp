// Starting Qt from inside a library.
#include "platform/window/Application.h"

#include <QApplication>
#include <QGuiApplication>
#include <QWidget>
#include <clocale>
#include <cstdlib>

namespace {

bool HasDisplay() {
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

}  // namespace

void NeedApplication() {
    if (QCoreApplication::instance() != nullptr)
        return;
    if (!HasDisplay() && std::getenv("QT_QPA_PLATFORM") == nullptr)
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // Qt keeps references to both as long as it lives, which is to the end of the process.
    static int count = 1;
    static char name[] = "orvo";
    static char* arguments[] = {name, nullptr};
    new QApplication(count, arguments);  // NOLINT(cppcoreguidelines-owning-memory): never destroyed
    std::setlocale(LC_NUMERIC, "C");     // Qt has set the user's
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
