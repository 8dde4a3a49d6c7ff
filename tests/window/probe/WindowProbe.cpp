// Asks one question of nobody and says what became of it, in lines of `key value`. Its argument is who asks:
// `plain` the program as it is, `console` one that has an application without windows.
#include <dlfcn.h>

#include <QCoreApplication>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/base/FrameworkTypes.h"

namespace {

using Question = int (*)(HWND, const wchar_t*, const wchar_t*, UINT);
constexpr UINT kYesOrNo = 4;

int Fail(const char* what) {
    std::printf("failed %s\n", what);
    return 1;
}

void Print(const char* key, int value) {
    std::printf("%s %d\n", key, value);
}

}  // namespace

int main(int count, char** arguments) {
    const std::string who = count > 1 ? arguments[1] : "plain";
    std::unique_ptr<QCoreApplication> console;
    if (who == "console")
        console = std::make_unique<QCoreApplication>(count, arguments);

    void* library = dlopen(ORVO_PLATFORM_FILE, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return Fail(dlerror());
    const auto ask = reinterpret_cast<Question>(dlsym(library, "_Z10MessageBoxP16OrvoWindowHandlePKwS2_j"));
    if (ask == nullptr)
        return Fail(dlerror());

    Print("answer", ask(nullptr, L"question", L"caption", kYesOrNo));
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    std::printf("platform %s\n", platform != nullptr ? platform : "(none)");
    std::printf("texts %s\n", std::setlocale(LC_CTYPE, nullptr));
    std::printf("half %.1f\n", 0.5);

    dlclose(library);
    Print("stays", dlopen(ORVO_PLATFORM_FILE, RTLD_LAZY | RTLD_NOLOAD) != nullptr);
    Print("application", QCoreApplication::instance() != nullptr);
    if (!console)
        QCoreApplication::processEvents();  // of an application that would be in memory no more
    Print("end", 1);
    return 0;
}
