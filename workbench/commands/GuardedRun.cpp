// Catching everything.
#include "workbench/commands/GuardedRun.h"

#include <exception>

#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"

std::optional<int> RunGuarded(const CString& name, const std::function<int()>& run) {
    CString what;
    try {
        return run();
    } catch (const std::exception& error) {
        what = FromUtf8(error.what());
    } catch (...) {
        what = SayFormat(L"%s 出错", name);
    }
    Complain(SayFormat(L"内部错误：%s", what));
    return std::nullopt;
}
