// Reads the options of a page, and looks at its folder before anybody waits for an analysis.
#include "workbench/commands/AskedReport.h"

#include "facts/DayText.h"
#include "platform/base/PlainText.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/report/ReportFolder.h"
#include "workbench/terminal/Complaint.h"

namespace {

// The first option that says something about a report, while none is asked for; null without one.
const wchar_t* IdleOption(const AskedReport& asked) {
    if (asked.folder)
        return nullptr;
    if (asked.project)
        return L"--project";
    if (asked.author)
        return L"--author";
    if (asked.date)
        return L"--report-date";
    return asked.skies.empty() ? nullptr : L"--sky";
}

int ReadDate(const AskedReport& asked, PageRequest& request) {
    request.date = Today();
    if (!asked.date)
        return kExitOk;
    const std::optional<CalendarDay> day = ParseDay(*asked.date);
    if (!day)
        return Refuse(kExitUsage, SayFormat(L"--report-date 的值“%s”不对：请写报告的日期，例如 2025-12-22",
                                            Printable(*asked.date)));
    request.date = *day;
    return kExitOk;
}

int ReadSkies(const AskedReport& asked, PageRequest& request) {
    for (CString window : asked.skies)
        if (window.Trim().IsEmpty())
            return Refuse(kExitUsage, Say(L"--sky 的值是空的：请写一个窗的名字或句柄，例如 --sky 1-101-1"));
    request.skies = asked.skies;
    return kExitOk;
}

}  // namespace

AskedReport AskedReportOf(SubcommandCall& call, bool hasWindows) {
    return {call.GetValue(L"--report"), call.GetValue(L"--project"), call.GetValue(L"--author"),
            call.GetValue(L"--report-date"), hasWindows ? call.GetValues(L"--sky") : std::vector<CString>()};
}

void AddReportOptions(std::vector<SubcommandOption>& options, bool hasWindows) {
    options.push_back(ValueOption(L"--report", L"FOLDER", L"把报告写成这个文件夹里的 index.html"));
    options.push_back(ValueOption(L"--project", L"NAME", L"报告上的项目名称"));
    options.push_back(ValueOption(L"--author", L"NAME", L"报告上的编制人"));
    options.push_back(ValueOption(L"--report-date", L"Y-M-D", L"报告上的日期；不给出时为今天"));
    if (hasWindows)
        options.push_back(ValuesOption(L"--sky", SubcommandOption::kMany, L"WINDOW",
                                       L"报告里画出这个窗看到的天空，写名字或句柄，可以给出多次"));
}

int ReadAskedReport(const AskedReport& asked, PageRequest& request) {
    if (const wchar_t* idle = IdleOption(asked))
        return Refuse(kExitUsage, SayFormat(L"%s 只用于报告：请同时用 --report 给出报告的文件夹", CString(idle)));
    if (!asked.folder)
        return kExitOk;
    if (asked.folder->IsEmpty())
        return Refuse(kExitUsage, Say(L"--report 的值是空的：请写报告的文件夹，例如 --report report"));
    request.folder = *asked.folder;
    request.project = asked.project.value_or(CString());
    request.author = asked.author.value_or(CString());
    int code = ReadDate(asked, request);
    if (!code)
        code = ReadSkies(asked, request);
    if (code)
        return code;
    const CString fault = ReportFolderFault(request.folder);
    return fault.IsEmpty() ? kExitOk : Refuse(kExitFailed, fault);
}
